// The whole program through its real windows, from the start.
#include "drawn_program.hpp"

#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QWindow>

#include <map>

namespace varnholt::test {
namespace {

TEST_F(DrawnProgram, TheTipOpensOnTheMainWindowAndItsBoxIsKept) {
  bool shown = false;
  std::function<void()> answer = [&] {
    if (!app.frmTip.Visible) return loop.later(answer);
    shown = true;
    QTest::mouseClick(usable<QPushButton>(windowOf(loop, app.frmTip), "cmdOK"), Qt::LeftButton);
  };
  loop.later(answer);
  start(true);
  EXPECT_TRUE(waitFor([&] { return shown && !app.frmTip.Visible; }));
}

TEST_F(DrawnProgram, APanelThatGetsTheKeyboardIsTheActiveOne) {
  start();
  for (const char* name : {"ListView2", "ListView1"}) {
    list(name)->setFocus(Qt::TabFocusReason);
    loop.flush();
    const QString head = list(name)->model()->headerData(0, Qt::Horizontal).toString();
    EXPECT_TRUE(head.contains(QStringLiteral("[Me Active]"))) << name;
  }
}

TEST_F(DrawnProgram, AnotherDriveIsChosenInItsList) {
  start();
  auto* drives = usable<QComboBox>(window, "Drive2");
  drives->setFocus();
  QTest::keyClick(drives, Qt::Key_Down);
  EXPECT_EQ(pathShown("Text2"), "D:\\");
  EXPECT_EQ(rows("ListView2"), std::vector<std::string>{"backup"});
}

TEST_F(DrawnProgram, MenuEntriesRunTheirCommandsAndShowTheirMarks) {
  start();
  auto* grid = window->findChild<QAction*>(QStringLiteral("GridLines"));
  ASSERT_TRUE(grid && grid->isEnabled());
  const bool before = app.Form1.ListView1.GridLines;
  grid->trigger();
  loop.flush();
  EXPECT_NE(app.Form1.ListView1.GridLines.get(), before);
  EXPECT_EQ(grid->isChecked(), app.Form1.Menu["GridLines"].Checked.get());
}

TEST_F(DrawnProgram, ATextKeepsTheKeysThatThePanelsKnow) {
  start();
  auto* files = list("ListView1");
  QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, middleOf(files, "letter"));
  QTest::keyClick(files, Qt::Key_Return, Qt::ControlModifier);
  loop.flush();
  auto* line = usable<QLineEdit>(window, "Text3");
  ASSERT_TRUE(line->hasFocus());
  QTest::keyClick(line, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(line, QStringLiteral("xa+b-*c"));
  for (const auto key : {Qt::Key_Backspace, Qt::Key_Home, Qt::Key_Delete, Qt::Key_Insert, Qt::Key_F5, Qt::Key_F8})
    QTest::keyClick(line, key);
  EXPECT_EQ(app.Form1.Text3.Text.get(), "a+b-*");
  EXPECT_FALSE(app.fileops.Form3.Visible || app.fileops.Form4.Visible);
  EXPECT_EQ(app.Form1.ListView1.selectedCount(), 1u);
  QTest::keyClick(line, Qt::Key_Tab);
  EXPECT_FALSE(line->hasFocus());
  EXPECT_FALSE(list("ListView2")->hasFocus());
}

TEST_F(DrawnProgram, SignsThatAreTypedInTheMiddleOfANameSeekIt) {
  rig.write("C:\\lens-kit.txt");
  start();
  auto* files = list("ListView1");
  files->setFocus();
  QTest::keyClicks(files, QStringLiteral("lens-k"));
  EXPECT_EQ(app.Form1.ListView1.SelectedItem()->Text(), "lens-kit");
}

TEST_F(DrawnProgram, TheMenuKeyAndTheRightButtonShowWhatCanBeDoneWithTheSelection) {
  start();
  auto* files = list("ListView1");
  files->setFocus();
  QTest::mouseClick(files->viewport(), Qt::RightButton, {}, middleOf(files, "letter"));
  EXPECT_EQ(app.Form1.filecollect.popc(), "letter.txt");
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
  QTest::keyClick(files, Qt::Key_Menu);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_TRUE(menu);
  std::map<QString, QString> keys;
  for (const QAction* entry : menu->actions())
    keys[entry->objectName()] = entry->shortcut().toString();
  EXPECT_EQ(keys[QStringLiteral("Deleteitems")], QStringLiteral("F8, Del"));
  EXPECT_EQ(keys[QStringLiteral("MoveItems")], QStringLiteral("F6, Ctrl+X"));
  EXPECT_FALSE(keys.contains(QStringLiteral("Fdetails"))) << "not built";
  menu->close();
}

TEST_F(DrawnProgram, TheTreeWindowStandsAtItsStoredPlaceAboveTheMainWindowEachTime) {
  start();
  app.Form1.Menu["Treeon"].choose();
  QWidget* trees = windowOf(loop, app.Form9);
  for (const QPoint& at : {QPoint(70, 90), QPoint(120, 40)}) {
    trees->move(at);
    app.state.Program_pos_Click();
    for (int again = 0; again < 3; ++again) {
      app.Form9.Hide();
      loop.flush();
      app.Form1.Menu["Treeon"].choose();
      loop.flush();
      EXPECT_EQ(trees->pos(), at) << "shown again " << again;
    }
  }
  EXPECT_EQ(trees->windowType(), Qt::Tool);
  EXPECT_EQ(trees->windowHandle()->transientParent(), window->windowHandle());
}

TEST_F(DrawnProgram, TheCloseBoxEndsTheProgram) {
  start();
  loop.later([this] { window->close(); });
  EXPECT_EQ(loop.exec(), 0);
}

}  // namespace
}  // namespace varnholt::test

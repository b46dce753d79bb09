// The whole program through its real windows, from the start.
#include "drawn_program.hpp"

#include <QAction>
#include <QComboBox>
#include <QPushButton>
#include <QToolButton>

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

TEST_F(DrawnProgram, TheCloseBoxEndsTheProgram) {
  start();
  loop.later([this] { window->close(); });
  EXPECT_EQ(loop.exec(), 0);
}

}  // namespace
}  // namespace varnholt::test

// The whole program through its real windows, from the start.
#include "drawn_program.hpp"
#include "qt/theme.hpp"

#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QWindow>

namespace varnholt::test {
namespace {

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

TEST_F(DrawnProgram, AKeyThatWasTypedAheadGoesWhereTheOneBeforeHasMovedTheKeyboard) {
  start();
  QTest::mouseClick(list("ListView1")->viewport(), Qt::LeftButton, {}, middleOf(list("ListView1"), "letter"));
  loop.flush();
  for (const auto key : {Qt::Key_Tab, Qt::Key_Home}) {
    QKeyEvent press(QEvent::KeyPress, key, {});
    QCoreApplication::sendEvent(window->windowHandle(), &press);
  }
  EXPECT_EQ(app.Form1.ListView1.focusedRow(), 1u);
  EXPECT_EQ(app.Form1.ListView2.selectedCount(), 1u);
}

TEST_F(DrawnProgram, TheMenuKeyAndTheRightButtonShowWhatCanBeDoneWithTheSelection) {
  start();
  auto* files = list("ListView1");
  files->setFocus();
  QTest::mouseClick(files->viewport(), Qt::RightButton, {}, middleOf(files, "letter"));
  EXPECT_EQ(app.Form1.filecollect.popc().path, "letter.txt");
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
  QTest::keyClick(files, Qt::Key_Menu);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_TRUE(menu);
  std::map<QString, QString> keys;
  for (const QAction* entry : menu->actions())
    keys[entry->objectName()] = entry->shortcut().toString();
  EXPECT_EQ(keys[QStringLiteral("Deleteitems")], QStringLiteral("F8, Del"));
  EXPECT_EQ(keys[QStringLiteral("MoveItems")], QStringLiteral("F6, Ctrl+X"));
  EXPECT_TRUE(keys.contains(QStringLiteral("Fdetails")));
  menu->close();
  QTest::keyClick(files, Qt::Key_F10);
  menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_TRUE(menu);
  EXPECT_EQ(menu->menuAction(), window->findChild<QMenuBar*>()->actions().first());
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

void expectReadable(const std::string& where, const QColor& text, const QColor& ground) {
  EXPECT_GE(qt::theme::contrast(text, ground), 4.5)
      << where << ": " << qPrintable(text.name() + QLatin1Char(' ') + ground.name());
}

TEST_F(DrawnProgram, EverySkinHasAnAccentAndAGroundOfItsOwnOnWhichAllTextsCanBeRead) {
  using P = QPalette;
  start();
  std::set<QRgb> accents, grounds;
  for (int skin = 0; skin < appearance::NewSkin::Count; ++skin) {
    const std::string name = appearance::NewSkin::nameOf(skin);
    app.NewSkin.choose(skin);
    loop.flush();
    for (const auto& [text, ground] : {std::pair{P::WindowText, P::Window},
                                       {P::Text, P::Base},
                                       {P::ButtonText, P::Button},
                                       {P::HighlightedText, P::Highlight},
                                       {P::ToolTipText, P::ToolTipBase}})
      expectReadable(name, QApplication::palette().color(text), QApplication::palette().color(ground));
    for (const QColor& ground : {qt::theme::headerBase(), qt::theme::surface(), qt::theme::field()})
      expectReadable(name, QColor::fromRgb(qt::theme::DimText), ground);
    EXPECT_GE(qt::theme::contrast(qt::theme::fieldOutline(), qt::theme::surface()), 3) << name;
    const QPalette& colors = QApplication::palette();
    EXPECT_GE(qt::theme::contrast(colors.color(P::Disabled, P::ButtonText), colors.color(P::Button)), 3) << name;
    accents.insert(qt::theme::accent().rgb());
    grounds.insert(list("ListView1")->colors().base.rgb());
    for (int look = 0; look < 4; ++look) {  // without line images, and with each of the three
      app.Form1.Menu["ShiftColors"].Checked = look > 0;
      const char* sets[] = {"BlueBlack", "BlueBlack", "BrownBlack", "GrayBlack"};
      app.Form1.Menu[sets[look]].Checked = false;
      app.Form1.Menu[sets[look]].choose();
      app.looks.apply();
      loop.flush();
      for (const char* panel : {"ListView1", "ListView2"}) {
        const qt::ListColors& colors = list(panel)->colors();
        for (const QColor& row : {colors.base, colors.stripe})
          expectReadable(name + panel + sets[look], colors.text, row);
        expectReadable(name + panel, colors.selectionText, colors.selection);
      }
    }
    app.Form1.Menu["ShiftColors"].Checked = false;
    app.looks.apply();
  }
  EXPECT_EQ(accents.size(), 8u);
  EXPECT_EQ(grounds.size(), 8u);
  app.NewSkin.choose(0);
  loop.flush();
}

// The names of what assistive technology finds below a widget.
QStringList spokenBelow(QAccessibleInterface& node) {
  QStringList names{node.text(QAccessible::Name)};
  for (int at = 0; at < node.childCount(); ++at)
    if (QAccessibleInterface* child = node.child(at)) names += spokenBelow(*child);
  return names;
}

TEST_F(DrawnProgram, AssistiveTechnologyReadsWholeNamesTheFilterLineAndTheHeadsOfAnEmptyList) {
  rig.makeFolder("D:\\Empty");
  start();
  const QStringList spoken = spokenBelow(*QAccessible::queryAccessibleInterface(window));
  EXPECT_TRUE(spoken.contains(QStringLiteral("letter.txt")));
  EXPECT_TRUE(spoken.contains(QStringLiteral("Photos")));
  EXPECT_TRUE(spoken.contains(QStringLiteral("SelectMode")));
  // Left to right and top to bottom.
  qsizetype before = -1;
  for (const QString& name : {QStringLiteral("Help"), qt::toQt(app.Form1.Menu["Viewfilter"].Caption.get()),
                              QStringLiteral("Files, left panel"), QStringLiteral("Files, right panel")}) {
    EXPECT_GT(spoken.indexOf(name), before) << qPrintable(name);
    before = spoken.indexOf(name);
  }
  app.navigation.goTo(app.Form1.Panel1, "D:\\Empty");
  EXPECT_EQ(rows("ListView1").size(), 0u);
  EXPECT_TRUE(
      spokenBelow(*QAccessible::queryAccessibleInterface(list("ListView1"))).contains(QStringLiteral("ByteSize:")));
}

TEST_F(DrawnProgram, AssistiveTechnologyReadsTheTipsOfMenuEntriesAndChoosesThem) {
  start();
  auto* action = window->findChild<QAction*>(QLatin1String("GridLines"));
  ASSERT_TRUE(action);
  auto* entry = QAccessible::queryAccessibleInterface(action);
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->text(QAccessible::Name), QStringLiteral("Grid Lines"));
  EXPECT_EQ(entry->text(QAccessible::Description), action->toolTip());
  EXPECT_GE(entry->parent()->indexOfChild(entry), 0);
  EXPECT_EQ(entry->parent()->text(QAccessible::Name), QStringLiteral("Options"));
  entry->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  loop.flush();
  EXPECT_TRUE(app.Form1.ListView1.GridLines && entry->state().checked);
}

TEST_F(DrawnProgram, OnASmallScreenSizesAndDatesAreSeenAndTheListKeepsItsRows) {
  start();
  const std::vector<controls::ColumnHeader> kept = app.Form1.ListView1.ColumnHeaders;
  const auto* button = usable<QToolButton>(window, "Command1");
  for (const auto& [size, captions] : {std::pair{QSize(1280, 800), true},
                                       {QSize(800, 600), true},
                                       {QSize(666, 500), true},
                                       {QSize(640, 400), false},
                                       {QSize(1280, 800), true}}) {
    window->resize(size);
    const std::string where = std::to_string(size.width());
    EXPECT_TRUE(waitFor([&] { return window->size() == size && list("ListView1")->page() >= 8; })) << where;
    EXPECT_EQ(list("ListView1")->horizontalScrollBar()->maximum(), 0) << where;
    const auto* status = usable<QWidget>(window, "StatusBar1");
    EXPECT_GE(status->width(), std::min(status->sizeHint().width(), size.width() - 60)) << "an idle bar takes no room";
    EXPECT_EQ(button->toolButtonStyle() == Qt::ToolButtonTextUnderIcon, captions) << where;
  }
  EXPECT_EQ(app.Form1.ListView1.ColumnHeaders.get(), kept);
}

// What only real widgets show of the dialogs: the keyboard's way through them, and a window that grows.

class DrawnDialogs : public DrawnProgram {
 protected:
  void keys(QWidget* widget, std::initializer_list<Qt::Key> keys) {
    for (const auto key : keys) {
      QTest::keyClick(widget, key);
      loop.flush();
    }
  }
};

TEST_F(DrawnDialogs, TheKeyboardWalksTheFolderTreeAndTakes) {
  start();
  inDialog(app.Form35, [&](QWidget* dialog) {
    auto* tree = usable<QTreeWidget>(dialog, "TreeView1");
    const auto chosen = [&] { return qt::fromQt(usable<QLineEdit>(dialog, "Text1")->text()); };
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Copy Item(s)"));
    EXPECT_EQ(dialog->focusWidget(), tree);
    keys(tree, {Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up});
    EXPECT_EQ(chosen(), "C:\\");
    EXPECT_FALSE(tree->currentItem()->isExpanded()) << "keys that pass a drive do not read it";
    keys(tree, {Qt::Key_Right, Qt::Key_Down, Qt::Key_Return, Qt::Key_Down});
    EXPECT_EQ(chosen(), "C:\\Photos\\2024");
    EXPECT_TRUE(usable<QPushButton>(dialog, "Command1")->isDefault());
    keys(tree, {Qt::Key_Return, Qt::Key_Return});
  });
  EXPECT_EQ(app.Form35.browse("Copy Item(s)"), "C:\\Photos\\2024\\");
}

TEST_F(DrawnDialogs, DiskInfoClosesByAClickOnItsTextsButNotOnItsCharts) {
  start();
  inDialog(app.tools.Form17, [&](QWidget* dialog) {
    QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("MSChart1")), Qt::LeftButton);
    EXPECT_TRUE(app.tools.Form17.Visible);
    QTest::mouseClick(dialog->findChild<QWidget*>(QStringLiteral("label_freespace")), Qt::LeftButton);
    EXPECT_FALSE(app.tools.Form17.Visible);
  });
  app.tools.Form17.DiskInfo_Click();
}

TEST_F(DrawnDialogs, TheMaskMakesTheWindowLargerAndSmallerAgainAndEnterPreviews) {
  rig.write("C:\\Photos\\a.txt");
  start();
  enter("ListView1", "Photos");
  inDialog(app.rename.Form14, [&](QWidget* dialog) {
    const auto field = [&](const char* name) { return usable<QLineEdit>(dialog, name); };
    const auto press = [&](const char* button) {
      QTest::mouseClick(usable<QPushButton>(dialog, button), Qt::LeftButton);
      loop.flush();
      QCoreApplication::processEvents();
      loop.flush();
    };
    const QSize narrow = dialog->size();
    EXPECT_EQ(dialog->focusWidget(), field("Text1"));
    EXPECT_TRUE(dialog->findChild<QWidget*>(QStringLiteral("panel_mask"))->isHidden());
    press("Command5");
    EXPECT_GT(dialog->height(), narrow.height());
    EXPECT_GE(dialog->width(), 7000 / 15);
    EXPECT_TRUE(dialog->screen()->availableGeometry().contains(dialog->geometry())) << "all of it is on the screen";
    EXPECT_EQ(dialog->focusWidget(), field("Text2"));
    QTest::keyClick(field("Text2"), Qt::Key_Return);
    loop.flush();
    EXPECT_EQ(app.rename.Form14.Index, 0u) << "Enter in a field of the mask leaves the item in hand alone";
    EXPECT_EQ(usable<qt::ListViewWidget>(dialog, "ListView1")->model()->rowCount(), 1);
    press("Command5");
    EXPECT_LE(dialog->height(), narrow.height() + 8);
    EXPECT_EQ(dialog->focusWidget(), field("Text1"));
  });
  QTest::keyClick(list("ListView1"), Qt::Key_End);
  QTest::mouseClick(usable<QToolButton>(window, "Command14"), Qt::LeftButton);
  loop.flush();
  EXPECT_FALSE(app.rename.Form14.Visible);
  EXPECT_EQ(window->focusWidget(), list("ListView1"));
}

}  // namespace
}  // namespace varnholt::test

// What a user does in a panel, by mouse and keyboard on the real widgets, step by step and in both panels alike.
#include "drawn_program.hpp"

#include <QAction>
#include <QComboBox>
#include <QToolButton>
#include <QTreeWidget>

#include <filesystem>

namespace varnholt::test {
namespace {

using Rows = std::vector<std::uint32_t>;

/// Names of one side's widgets.
struct SideNames {
  const char *list, *path, *back, *forward, *parent, *root, *tree;
};
constexpr SideNames Left{"ListView1", "Text1", "Command23", "Command22", "Command8", "Command6", "TreeView1"};
constexpr SideNames Right{"ListView2", "Text2", "Command25", "Command24", "Command9", "Command7", "TreeView2"};

std::ostream& operator<<(std::ostream& out, const SideNames& side) { return out << side.list; }

/// One thing that the user does, and what is focused and selected afterwards.
struct Step {
  const char* what;
  Qt::Key key;  ///< Key_unknown: a click on `row`
  std::uint32_t row;
  Qt::KeyboardModifiers modifiers;
  std::uint32_t focused;
  Rows selected;
};

constexpr Qt::KeyboardModifiers Plain = Qt::NoModifier, Shift = Qt::ShiftModifier, Ctrl = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers CtrlShift = Qt::ControlModifier | Qt::ShiftModifier;

Step key(const char* what, Qt::Key key, Qt::KeyboardModifiers modifiers, std::uint32_t focused, Rows selected) {
  return {what, key, 0, modifiers, focused, std::move(selected)};
}
Step click(const char* what, std::uint32_t row, Qt::KeyboardModifiers modifiers, Rows selected) {
  return {what, Qt::Key_unknown, row, modifiers, row, std::move(selected)};
}

class PanelRoad : public DrawnProgram, public testing::WithParamInterface<SideNames> {
 protected:
  // Rows 0 and 1 are folders, 2 to 41 files.
  static constexpr std::uint32_t Files = 42, Count = Files + 2;

  void SetUp() override {
    for (std::uint32_t number = 0; number < Files; ++number)
      rig.write("C:\\Prints\\2024\\shot-" + std::to_string(100 + number) + (number % 2 ? ".jpg" : ".raw"),
                std::string(number, 'x'));
    rig.makeFolder("C:\\Prints\\2024\\Coast\\Raw");
    rig.makeFolder("C:\\Prints\\2024\\Garden");
    start();
    widget = list(side.list);
    enter(side.list, "Prints");
    enter(side.list, "2024");
    ASSERT_EQ(pathShown(side.path), "C:\\Prints\\2024");
    ASSERT_EQ(panel().list.count(), Count);
  }

  panels::Panel& panel() { return side.list == Left.list ? app.Form1.Panel1 : app.Form1.Panel2; }
  std::string nameOf(std::uint32_t row) { return panel().fileName(panel().list.item(row)); }
  std::vector<std::string> namesOf(const Rows& ids) {
    std::vector<std::string> names;
    for (const std::uint32_t id : ids)
      names.push_back(panel().fileName({panel().list, id}));
    return names;
  }
  Rows selectedRows() {
    Rows rows;
    for (const std::uint32_t id : panel().list.selectedIds())
      rows.push_back(panel().list.rowOf(id));
    return rows;
  }

  // The modifier keys go down and up themselves, as under a hand.
  void clickRow(std::uint32_t row, Qt::KeyboardModifiers modifiers = {}) {
    widget->scrollToRow(row);
    if (modifiers & Ctrl) QTest::keyPress(widget, Qt::Key_Control);
    const QPoint at = widget->visualRect(widget->model()->index(static_cast<int>(row), 0)).center();
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, modifiers, at);
    if (modifiers & Ctrl) QTest::keyRelease(widget, Qt::Key_Control);
  }
  void walk(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
      step.key == Qt::Key_unknown ? clickRow(step.row, step.modifiers)
                                  : QTest::keyClick(widget, step.key, step.modifiers);
      loop.flush();
      EXPECT_EQ(panel().list.focusedRow(), step.focused) << step.what;
      EXPECT_EQ(selectedRows(), step.selected) << step.what;
      EXPECT_EQ(panel().inconsistency(), "") << step.what;
      const QRect row = widget->visualRect(widget->model()->index(static_cast<int>(step.focused), 0));
      EXPECT_TRUE(widget->viewport()->rect().contains(row.center())) << step.what << ": the row is on the screen";
      if (HasFatalFailure()) return;
    }
  }
  void press(const char* button) {
    QTest::mouseClick(usable<QToolButton>(window, button), Qt::LeftButton);
    loop.flush();
  }
  void clickHeader(int column) {
    auto* header = widget->listHeader();
    const int left = header->sectionViewportPosition(column);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(left + 12, header->height() / 2));
    loop.flush();
  }
  void trigger(const char* entry) {
    auto* action = window->findChild<QAction*>(QLatin1String(entry));
    ASSERT_TRUE(action && action->isEnabled()) << entry;
    action->trigger();
    loop.flush();
  }
  Rows range(std::uint32_t from, std::uint32_t to) {
    Rows rows;
    for (std::uint32_t row = from; row <= to; ++row)
      rows.push_back(row);
    return rows;
  }

  const SideNames side = GetParam();
  qt::ListViewWidget* widget = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Sides, PanelRoad, testing::Values(Left, Right), [](const auto& info) {
  return info.param.list == Left.list ? std::string("Left") : std::string("Right");
});

TEST_P(PanelRoad, KeysMoveAndSelect) {
  const std::uint32_t step = widget->page() - 1, last = Count - 1;
  ASSERT_LT(2 * step, last) << "the panel must not show all rows";
  walk({
      click("a click to begin with", 3, Plain, {3}),
      key("down", Qt::Key_Down, Plain, 4, {4}),
      key("up", Qt::Key_Up, Plain, 3, {3}),
      key("shift+down", Qt::Key_Down, Shift, 4, {3, 4}),
      key("shift+down again", Qt::Key_Down, Shift, 5, {3, 4, 5}),
      key("shift+up takes back", Qt::Key_Up, Shift, 4, {3, 4}),
      key("ctrl+down moves alone", Qt::Key_Down, Ctrl, 5, {3, 4}),
      key("ctrl+down again", Qt::Key_Down, Ctrl, 6, {3, 4}),
      key("ctrl+space adds", Qt::Key_Space, Ctrl, 6, {3, 4, 6}),
      key("ctrl+space takes away", Qt::Key_Space, Ctrl, 6, {3, 4}),
      key("space adds", Qt::Key_Space, Plain, 6, {3, 4, 6}),
      key("ctrl+shift+down keeps the others", Qt::Key_Down, CtrlShift, 7, {3, 4, 6, 7}),
      key("down drops all", Qt::Key_Down, Plain, 8, {8}),
      key("home", Qt::Key_Home, Plain, 0, {0}),
      key("up at the top", Qt::Key_Up, Plain, 0, {0}),
      key("page down", Qt::Key_PageDown, Plain, step, {step}),
      key("shift+page down", Qt::Key_PageDown, Shift, 2 * step, range(step, 2 * step)),
      key("shift+home", Qt::Key_Home, Shift, 0, range(0, step)),
      key("ctrl+end moves alone", Qt::Key_End, Ctrl, last, range(0, step)),
      key("end", Qt::Key_End, Plain, last, {last}),
      key("down at the end", Qt::Key_Down, Plain, last, {last}),
      key("shift+page up", Qt::Key_PageUp, Shift, last - step, range(last - step, last)),
      key("ctrl+page up moves alone", Qt::Key_PageUp, Ctrl, last - 2 * step, range(last - step, last)),
      key("shift+end goes from there", Qt::Key_End, Shift, last, range(last - 2 * step, last)),
      key("ctrl+home moves alone", Qt::Key_Home, Ctrl, 0, range(last - 2 * step, last)),
      key("shift+end takes all", Qt::Key_End, Shift, last, range(0, last)),
      key("home drops all", Qt::Key_Home, Plain, 0, {0}),
  });
}

TEST_P(PanelRoad, ClicksSelect) {
  walk({
      click("a click", 4, Plain, {4}),
      click("ctrl adds", 8, Ctrl, {4, 8}),
      click("ctrl adds between", 6, Ctrl, {4, 6, 8}),
      click("ctrl takes away", 8, Ctrl, {4, 6}),
      click("shift goes from the last click", 10, Shift, {8, 9, 10}),
      click("shift the other way", 5, Shift, {5, 6, 7, 8}),
      click("ctrl+shift keeps the others", 11, CtrlShift, range(5, 11)),
      click("a click on a selected row", 9, Plain, {9}),
      key("shift+down goes on from a click", Qt::Key_Down, Shift, 10, {9, 10}),
      click("a folder", 1, Ctrl, {1, 9, 10}),
      click("a row that must be scrolled to", Count - 1, Plain, {Count - 1}),
  });
}

TEST_P(PanelRoad, WhatIsClickedIsCollectedAndCounted) {
  clickRow(4);
  clickRow(7, Ctrl);
  clickRow(0, Ctrl);
  loop.flush();
  EXPECT_EQ(app.Form1.filecollect.items().size(), 3u);
  EXPECT_EQ(app.Form1.StatusBar1.panel(panels::status::SelectedCount), "3  Item(s) Selected");
  for (const std::uint32_t row : {0u, 4u, 7u})
    EXPECT_TRUE(panel().list.item(row).Ghosted()) << row;
  EXPECT_EQ(&panel(), app.Form1.activePanel());
}

TEST_P(PanelRoad, ColumnsSortBothWaysAndRowsKeepTheirMarks) {
  clickRow(5);
  clickRow(9, Ctrl);
  const auto selected = namesOf(panel().list.selectedIds());
  const std::string focused = nameOf(9), first = nameOf(2), last = nameOf(Count - 1);
  clickHeader(0);
  EXPECT_EQ(nameOf(0), last) << "the first click sorts down";
  EXPECT_EQ(nameOf(Count - 1), "Coast");
  EXPECT_EQ(nameOf(*panel().list.focusedRow()), focused);
  auto now = namesOf(panel().list.selectedIds());
  std::ranges::reverse(now);
  EXPECT_EQ(now, selected);
  clickHeader(0);
  EXPECT_EQ(nameOf(2), first);
  clickHeader(2);
  EXPECT_EQ(nameOf(0), "shot-141.jpg") << "by size, down: " << Files - 1 << " bytes are the most";
  clickHeader(2);
  EXPECT_EQ(nameOf(Count - 1), "shot-141.jpg");
  clickHeader(1);
  EXPECT_TRUE(nameOf(0).ends_with(".raw"));
  walk({click("a click means the row that is drawn", 2, Plain, {2}), key("keys too", Qt::Key_Down, Plain, 3, {3})});
}

TEST_P(PanelRoad, ReCallBringsBackWhatWasSelected) {
  if (!app.Form1.Menu.checked("selhis")) trigger("selhis");
  clickRow(3);
  clickRow(6, Ctrl);
  clickRow(0, Ctrl);
  press("Command27");  // Reset
  clickRow(8);
  clickRow(11, Ctrl);
  clickRow(20);
  press("Command16");
  EXPECT_EQ(selectedRows(), (Rows{8, 11, 20}));
  EXPECT_EQ(app.Form1.StatusBar1.panel(panels::status::SelectedCount), "3  Item(s) Selected");
  EXPECT_EQ(app.Form1.filecollect.items().size(), 3u);
  EXPECT_EQ(window->focusWidget(), widget) << "the buttons give the keyboard back";
}

TEST_P(PanelRoad, FoldersAreEnteredAndLeft) {
  const auto at = [&](const std::string& folder, const std::string& row) {
    EXPECT_EQ(pathShown(side.path), folder);
    const auto focused = panel().list.focusedRow();
    EXPECT_EQ(focused ? nameOf(*focused) : "", row);
    EXPECT_EQ(window->focusWidget(), widget);
    EXPECT_EQ(panel().inconsistency(), "");
  };
  clickRow(0);
  QTest::keyClick(widget, Qt::Key_Right);
  at("C:\\Prints\\2024\\Coast", "Raw");
  QTest::keyClick(widget, Qt::Key_Return);
  at("C:\\Prints\\2024\\Coast\\Raw", "");
  QTest::keyClick(widget, Qt::Key_Left);
  at("C:\\Prints\\2024\\Coast", "Raw");
  EXPECT_EQ(selectedRows(), Rows{0}) << "the folder that was left";
  QTest::keyClick(widget, Qt::Key_Left);
  at("C:\\Prints\\2024", "Coast");
  QTest::keyClick(widget, Qt::Key_Down);
  QTest::keyClick(widget, Qt::Key_Return);
  at("C:\\Prints\\2024\\Garden", "");
  press(side.parent);
  at("C:\\Prints\\2024", "Garden");
  QTest::keyClick(widget, Qt::Key_End);
  const std::string last = nameOf(Count - 1);
  QTest::keyClick(widget, Qt::Key_Right);
  at("C:\\Prints\\2024", last);  // a file is not entered
}

TEST_P(PanelRoad, BackAndForwardWalkTheSameWay) {
  EXPECT_FALSE(window->findChild<QToolButton*>(QLatin1String(side.forward))->isEnabled());
  enter(side.list, "Coast");
  const std::vector<std::string> way = {"C:\\Prints\\2024\\Coast", "C:\\Prints\\2024", "C:\\Prints"};
  for (std::size_t step = 1; step < way.size(); ++step) {
    press(side.back);
    EXPECT_EQ(pathShown(side.path), way[step]);
    EXPECT_EQ(window->focusWidget(), widget);
  }
  for (std::size_t step = way.size() - 1; step-- > 0;) {
    press(side.forward);
    EXPECT_EQ(pathShown(side.path), way[step]);
    EXPECT_EQ(window->focusWidget(), widget);
  }
  EXPECT_FALSE(window->findChild<QToolButton*>(QLatin1String(side.forward))->isEnabled());
  press(side.root);
  EXPECT_EQ(pathShown(side.path), "C:\\");
  EXPECT_EQ(window->focusWidget(), widget);
}

TEST_P(PanelRoad, TheTreeWindowSendsThePanelWhereItIsTold) {
  trigger("Treeon");
  auto* tree = usable<QTreeWidget>(windowOf(loop, app.Form9), side.tree);
  QTreeWidgetItem* here = tree->currentItem();
  ASSERT_TRUE(here) << "the tree stands on the panel's folder";
  EXPECT_EQ(here->text(0), QStringLiteral("2024"));
  const QPoint at = tree->visualItemRect(here->child(1)).center();
  QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, at);
  EXPECT_EQ(pathShown(side.path), "C:\\Prints\\2024") << "a click is no command";
  QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, at);
  QTest::mouseRelease(tree->viewport(), Qt::LeftButton, {}, at);
  EXPECT_EQ(pathShown(side.path), "C:\\Prints\\2024\\Garden");
  loop.flush();
  tree->currentItem()->parent()->setExpanded(false);
  loop.flush();
  EXPECT_EQ(pathShown(side.path), "C:\\Prints\\2024\\Garden");
}

TEST_P(PanelRoad, TheTreeWindowObeysTheKeyboard) {
  trigger("Treeon");
  auto* tree = usable<QTreeWidget>(windowOf(loop, app.Form9), side.tree);
  for (const auto pressed : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down}) {
    QTest::keyClick(tree, pressed);
    loop.flush();
  }
  EXPECT_EQ(pathShown(side.path), "C:\\Prints\\2024");
  EXPECT_EQ(tree->currentItem()->text(0), QStringLiteral("Raw"));
  QTest::keyClick(tree, Qt::Key_Return);
  EXPECT_EQ(pathShown(side.path), "C:\\Prints\\2024\\Coast\\Raw");
}

TEST_P(PanelRoad, ATreeNodeOfARemovedFolderLeavesThePanelWhereItIs) {
  trigger("Treeon");
  auto* tree = usable<QTreeWidget>(windowOf(loop, app.Form9), side.tree);
  tree->setCurrentItem(tree->currentItem()->child(1));
  ASSERT_TRUE(std::filesystem::remove(rig.systemPath("C:\\Prints\\2024\\Garden")));
  QTest::keyClick(tree, Qt::Key_Return);
  EXPECT_EQ(pathShown(side.path), "C:\\Prints\\2024");
  EXPECT_EQ(panel().inconsistency(), "");
}

TEST_P(PanelRoad, TheCommandLineTakesTheKeyboardAndGivesItBack) {
  clickRow(0);
  QTest::keyClick(widget, Qt::Key_Return, Ctrl);
  loop.flush();
  auto* line = usable<QLineEdit>(window, "Text3");
  EXPECT_EQ(window->focusWidget(), line);
  EXPECT_EQ(line->text(), QStringLiteral("C:\\Prints\\2024\\Coast"));
  QTest::keyClick(line, Qt::Key_End);
  QTest::keyClicks(line, QStringLiteral(" q"));
  QTest::keyClick(line, Qt::Key_Left);
  QTest::keyClick(line, Qt::Key_Backspace);
  EXPECT_EQ(app.Form1.Text3.Text.get(), "C:\\Prints\\2024\\Coastq");
  EXPECT_EQ(pathShown(side.path), "C:\\Prints\\2024") << "keys in the line are no keys of the panel";
  QTest::keyClick(line, Qt::Key_Escape);
  loop.flush();
  EXPECT_TRUE(line->isHidden());
  EXPECT_EQ(window->focusWidget(), widget);
  walk({key("the panel has its keys again", Qt::Key_Down, Plain, 1, {1})});
}

TEST_P(PanelRoad, CtrlThatGoesUpElsewhereIsUpHereToo) {
  clickRow(4);
  QTest::keyPress(widget, Qt::Key_Control);
  ASSERT_TRUE(app.Form1.CtrlHeld);
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::ControlModifier);
  QCoreApplication::sendEvent(widget, &enter);
  loop.flush();
  QTest::keyRelease(usable<QLineEdit>(window, "Text3"), Qt::Key_Control);
  QTest::keyClick(usable<QLineEdit>(window, "Text3"), Qt::Key_Escape);
  loop.flush();
  EXPECT_FALSE(app.Form1.CtrlHeld);
  clickRow(6);
  EXPECT_FALSE(panel().list.item(4).Ghosted()) << "a plain click drops the marks";
}

TEST_P(PanelRoad, ACtrlClickFromElsewhereKeepsTheMarks) {
  clickRow(4);
  clickRow(7, Ctrl);
  auto* drives = usable<QComboBox>(window, side.list == Left.list ? "Drive1" : "Drive2");
  drives->setFocus();
  QTest::keyPress(drives, Qt::Key_Control);
  const QPoint at = widget->visualRect(widget->model()->index(4, 0)).center();
  QTest::mouseClick(widget->viewport(), Qt::LeftButton, Ctrl, at);
  QTest::keyRelease(widget, Qt::Key_Control);
  EXPECT_EQ(selectedRows(), Rows{7});
  EXPECT_TRUE(panel().list.item(4).Ghosted()) << "the mark outlives the selection while Ctrl is down";
}

TEST_P(PanelRoad, TypedLettersSeekNames) {
  clickRow(5);
  QTest::keyClicks(widget, QStringLiteral("ga"));
  EXPECT_EQ(nameOf(*panel().list.focusedRow()), "Garden") << "folders are sought by their names";
  EXPECT_EQ(selectedRows(), Rows{1});
  QTest::keyClick(widget, Qt::Key_Down);
  QTest::keyClicks(widget, QStringLiteral("SHOT-12"));
  EXPECT_EQ(nameOf(*panel().list.focusedRow()), "shot-120.raw");
  QTest::keyClick(widget, Qt::Key_Home);
  for (const char* name : {"shot-100.raw", "shot-101.jpg"}) {
    QTest::keyClick(widget, Qt::Key_Escape);
    QTest::keyClicks(widget, QStringLiteral("s"));
    EXPECT_EQ(nameOf(*panel().list.focusedRow()), name) << "one letter again goes on";
  }
}

TEST_P(PanelRoad, EscDropsTheSelection) {
  clickRow(4);
  clickRow(7, Ctrl);
  QTest::keyClick(widget, Qt::Key_Escape);
  EXPECT_EQ(selectedRows(), Rows{});
  EXPECT_EQ(app.Form1.StatusBar1.panel(panels::status::SelectedCount), "");
  EXPECT_TRUE(window->isVisible());
}

}  // namespace
}  // namespace varnholt::test

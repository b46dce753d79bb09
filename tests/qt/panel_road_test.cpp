#include "drawn_program.hpp"

#include <QAction>
#include <QComboBox>
#include <QToolButton>
#include <QTreeWidget>

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

constexpr Qt::KeyboardModifiers Shift = Qt::ShiftModifier, Ctrl = Qt::ControlModifier;

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
  void press(const char* button) {
    QTest::mouseClick(usable<QToolButton>(window, button), Qt::LeftButton);
    loop.flush();
  }
  void trigger(const char* entry) {
    auto* action = window->findChild<QAction*>(QLatin1String(entry));
    ASSERT_TRUE(action && action->isEnabled()) << entry;
    action->trigger();
    loop.flush();
  }

  const SideNames side = GetParam();
  qt::ListViewWidget* widget = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Sides, PanelRoad, testing::Values(Left, Right), [](const auto& info) {
  return info.param.list == Left.list ? std::string("Left") : std::string("Right");
});

/// What keys and clicks select is the list's own rule; here each of them reaches it.
TEST_P(PanelRoad, ClicksAndKeysSelectAndTheRowIsOnTheScreen) {
  const std::uint32_t page = widget->page() - 1;
  struct {
    Qt::Key key;  ///< Key_unknown: a click on `focused`
    Qt::KeyboardModifiers modifiers;
    std::uint32_t focused;
    Rows selected;
  } const steps[] = {{Qt::Key_unknown, {}, 3, {3}},
                     {Qt::Key_unknown, Ctrl, 6, {3, 6}},
                     {Qt::Key_unknown, Shift, 8, {6, 7, 8}},
                     {Qt::Key_Space, Ctrl, 8, {6, 7}},
                     {Qt::Key_Home, {}, 0, {0}},
                     {Qt::Key_PageDown, {}, page, {page}},
                     {Qt::Key_End, {}, Count - 1, {Count - 1}},
                     {Qt::Key_PageUp, Ctrl, Count - 1 - page, {Count - 1}},
                     {Qt::Key_Escape, {}, Count - 1 - page, {}}};
  for (const auto& [key, modifiers, focused, selected] : steps) {
    key == Qt::Key_unknown ? clickRow(focused, modifiers) : QTest::keyClick(widget, key, modifiers);
    loop.flush();
    EXPECT_EQ(panel().list.focusedRow(), focused) << key;
    EXPECT_EQ(selectedRows(), selected) << key;
    EXPECT_EQ(panel().inconsistency(), "");
    const QRect row = widget->visualRect(widget->model()->index(static_cast<int>(focused), 0));
    EXPECT_TRUE(widget->viewport()->rect().contains(row.center())) << key;
  }
}

TEST_P(PanelRoad, ButtonsOfThePanelGoWhereTheySayAndLeaveItTheKeyboard) {
  for (const auto& [button, folder] :
       {std::pair{side.back, "C:\\Prints"}, {side.forward, "C:\\Prints\\2024"}, {side.root, "C:\\"}}) {
    press(button);
    EXPECT_EQ(pathShown(side.path), folder);
    EXPECT_EQ(window->focusWidget(), widget);
  }
  EXPECT_FALSE(window->findChild<QToolButton*>(QLatin1String(side.forward))->isEnabled());
}

TEST_P(PanelRoad, TheTreeWindowSendsThePanelWhereItIsToldByMouseAndKeysUnlessTheFolderIsGone) {
  trigger("Treeon");
  auto* tree = usable<QTreeWidget>(windowOf(loop, app.Form9), side.tree);
  ASSERT_TRUE(tree->currentItem()) << "the tree stands on the panel's folder";
  EXPECT_EQ(tree->currentItem()->text(0), QStringLiteral("2024"));
  const QPoint at = tree->visualItemRect(tree->currentItem()->child(1)).center();
  QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, at);
  EXPECT_EQ(pathShown(side.path), "C:\\Prints\\2024") << "a click is no command";
  QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, at);
  QTest::mouseRelease(tree->viewport(), Qt::LeftButton, {}, at);
  EXPECT_EQ(pathShown(side.path), "C:\\Prints\\2024\\Garden");
  const auto keys = [&](std::initializer_list<Qt::Key> pressed) {
    for (const auto key : pressed) {
      QTest::keyClick(tree, key);
      loop.flush();
    }
    return pathShown(side.path);
  };
  EXPECT_EQ(keys({Qt::Key_Up, Qt::Key_Return}), "C:\\Prints\\2024\\Coast");
  EXPECT_EQ(keys({Qt::Key_Up, Qt::Key_Return}), "C:\\Prints\\2024");
  ASSERT_TRUE(std::filesystem::remove(rig.systemPath("C:\\Prints\\2024\\Garden")));
  tree->setCurrentItem(tree->currentItem()->child(1));
  EXPECT_EQ(keys({Qt::Key_Return}), "C:\\Prints\\2024") << "it is gone";
  tree->currentItem()->parent()->setExpanded(false);
  loop.flush();
  EXPECT_EQ(pathShown(side.path), "C:\\Prints\\2024");
  EXPECT_EQ(panel().inconsistency(), "");
}

TEST_P(PanelRoad, CtrlThatGoesUpOrDownElsewhereDoesSoHereToo) {
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
  EXPECT_EQ(nameOf(*panel().list.focusedRow()), "shot-120.raw") << "signs in the middle of a name are no commands";
}

}  // namespace
}  // namespace varnholt::test

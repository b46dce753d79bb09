// The whole program through its real windows, from the start.
#include "drawn_program.hpp"

#include <QAction>
#include <QComboBox>
#include <QPushButton>
#include <QToolButton>

namespace varnholt::test {
namespace {

bool holds(const std::vector<std::string>& texts, const std::string& part) {
  return std::ranges::any_of(texts, [&](const std::string& each) { return each.find(part) != std::string::npos; });
}

TEST_F(DrawnProgram, StartsWithBothPanelsListed) {
  start();
  EXPECT_TRUE(window->windowTitle().startsWith(QStringLiteral("Varnholt")));
  for (const char* name : {"ListView1", "ListView2"}) {
    EXPECT_TRUE(holds(rows(name), "Photos")) << name;
    EXPECT_TRUE(holds(rows(name), "letter")) << name;
  }
  EXPECT_TRUE(usable<QToolButton>(window, "Command27"));
}

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

TEST_F(DrawnProgram, FoldersAreEnteredAndLeftByKeyboardMouseAndButtons) {
  start();
  enter("ListView1", "Photos");
  EXPECT_TRUE(holds(rows("ListView1"), "2024"));
  EXPECT_EQ(pathShown("Text1"), "C:\\Photos");
  auto* widget = list("ListView1");
  const QPoint at = middleOf(widget, "2024");
  QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, at);
  QTest::mouseDClick(widget->viewport(), Qt::LeftButton, {}, at);
  QTest::mouseRelease(widget->viewport(), Qt::LeftButton, {}, at);
  EXPECT_TRUE(holds(rows("ListView1"), "coast"));
  QTest::mouseClick(usable<QToolButton>(window, "Command23"), Qt::LeftButton);
  EXPECT_EQ(pathShown("Text1"), "C:\\Photos");
  QTest::mouseClick(usable<QToolButton>(window, "Command6"), Qt::LeftButton);
  EXPECT_EQ(pathShown("Text1"), "C:\\");
  EXPECT_EQ(pathShown("Text2"), "C:\\") << "the other panel stays";
}

TEST_F(DrawnProgram, AnotherDriveIsChosenInItsList) {
  start();
  auto* drives = usable<QComboBox>(window, "Drive2");
  drives->setFocus();
  QTest::keyClick(drives, Qt::Key_Down);
  EXPECT_EQ(pathShown("Text2"), "D:\\");
  EXPECT_TRUE(holds(rows("ListView2"), "backup"));
}

TEST_F(DrawnProgram, AClickIntoTheOtherPanelMakesItTheActiveOne) {
  start();
  auto* left = list("ListView1");
  auto* right = list("ListView2");
  for (auto* each : {left, right, left}) {
    QTest::mouseClick(each->viewport(), Qt::LeftButton, {}, middleOf(each, "letter"));
    loop.flush();
    auto* other = each == left ? right : left;
    EXPECT_TRUE(each->model()->headerData(0, Qt::Horizontal).toString().contains(QStringLiteral("[Me Active]")));
    EXPECT_FALSE(other->model()->headerData(0, Qt::Horizontal).toString().contains(QStringLiteral("[Me Active]")));
    EXPECT_GT(each->colors().text.lightness(), other->colors().text.lightness());
  }
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

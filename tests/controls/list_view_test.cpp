#include "controls/list_view.hpp"

#include "support/scripted_loop.hpp"

namespace varnholt::controls {
namespace {

constexpr MouseEvent Plain{MouseButton::Left, {}};
constexpr MouseEvent WithCtrl{MouseButton::Left, {false, true, false}};
constexpr MouseEvent WithShift{MouseButton::Left, {true, false, false}};

class ListViewTest : public testing::Test {
 protected:
  void fill(const std::vector<std::string>& texts) {
    for (const auto& text : texts)
      list.add(text);
  }
  std::string order() {
    std::string all;
    for (std::uint32_t row = 0; row < list.count(); ++row)
      all += (row ? " " : "") + list.cell(row, 0);
    return all;
  }
  std::string selected() {
    std::string all;
    for (const auto id : list.selectedIds())
      all += (all.empty() ? "" : " ") + ListItem(list, id).Text();
    return all;
  }
  void click(std::uint32_t row, const MouseEvent& mouse = Plain) {
    list.pressFromUser(row, mouse);
    list.releaseFromUser(mouse);
  }
  void key(int code, Modifiers modifiers = {}) {
    KeyEvent event{code, modifiers, false};
    list.keyFromUser(event, 3);
  }

  test::ScriptedLoop loop;
  Form form{loop, "Form"};
  ListView list{form, "ListView1"};
};

TEST_F(ListViewTest, SortsOthersBeforeDigitsBeforeLettersWhateverTheirCase) {
  fill({"beta", "Alpha", "10", "9", "_x", "\\ folder", "\xC3\xA9t\xC3\xA9", "eta", "Zeta", "-a"});
  EXPECT_EQ(order(), "-a \\ folder _x 10 9 Alpha beta eta \xC3\xA9t\xC3\xA9 Zeta");
  list.setSortOrder(SortOrder::Descending);
  EXPECT_EQ(order(), "Zeta \xC3\xA9t\xC3\xA9 eta beta Alpha 9 10 _x \\ folder -a");
}

TEST_F(ListViewTest, SortsLongListsOnTwoThreadsAsShortOnes) {
  std::vector<std::string> texts;
  for (int number = 0; number < 30'000; ++number)
    texts.push_back("name " + std::to_string(number * 7919 % 30'000 + 100'000));
  fill(texts);
  for (std::uint32_t row = 0; row < list.count(); ++row)
    ASSERT_EQ(list.cell(row, 0), "name " + std::to_string(row + 100'000));
}

TEST_F(ListViewTest, MarksBelongToTheRowAndNotToItsPlace) {
  fill({"a", "b", "c"});
  list.item(0).setSelected(true);
  list.item(0).setGhosted(true);
  list.item(0).setForeColor(255);
  list.focusRow(0);
  list.setSortOrder(SortOrder::Descending);
  EXPECT_EQ(order(), "c b a");
  EXPECT_EQ(selected(), "a");
  EXPECT_TRUE(list.item(2).Ghosted());
  EXPECT_EQ(list.item(2).ForeColor(), 255u);
  EXPECT_EQ(list.focusedRow(), 2u);
}

TEST_F(ListViewTest, ClicksSelectAsInAnyReportList) {
  fill({"a", "b", "c", "d", "e"});
  constexpr MouseEvent WithBoth{MouseButton::Left, {true, true, false}};
  const std::tuple<std::uint32_t, MouseEvent, const char*> clicks[] = {
      {1, Plain, "b"},        {3, WithShift, "b c d"},    {0, WithCtrl, "a b c d"},
      {2, WithCtrl, "a b d"}, {4, WithBoth, "a b c d e"}, {4, Plain, "e"}};
  for (const auto& [row, mouse, selection] : clicks) {
    click(row, mouse);
    EXPECT_EQ(selected(), selection) << row;
  }
  list.pressFromUser({}, Plain);
  EXPECT_EQ(selected(), "");
}

TEST_F(ListViewTest, APressOnASelectedRowKeepsTheSelectionForADrag) {
  fill({"a", "b", "c"});
  click(0);
  click(1, WithShift);
  for (const auto& press : {Plain, WithCtrl}) {
    list.pressFromUser(0, press);
    EXPECT_EQ(selected(), "a b");
    list.dragFromUser();
    list.releaseFromUser(press);
    EXPECT_EQ(selected(), "a b");
  }
  click(0);
  EXPECT_EQ(selected(), "a");
}

TEST_F(ListViewTest, KeysMoveExtendToggleAndMark) {
  fill({"a", "b", "c", "d", "e", "f"});
  constexpr Modifiers None{}, Shift{true, false, false}, Ctrl{false, true, false};
  const std::tuple<int, Modifiers, std::uint32_t, const char*> rows[] = {
      {key::Down, Shift, 0, "a"},          {key::Down, Shift, 1, "a b"},
      {key::Home, None, 0, "a"},           {key::Down, None, 1, "b"},
      {key::Down, Shift, 2, "b c"},        {key::Down, Shift, 3, "b c d"},
      {key::Up, Shift, 2, "b c"},          {key::Down, Ctrl, 3, "b c"},
      {key::Down, Ctrl, 4, "b c"},         {key::Space, Ctrl, 4, "b c e"},
      {key::Space, Ctrl, 4, "b c"},        {key::End, None, 5, "f"},
      {key::PageUp, None, 3, "d"},         {key::PageUp, None, 1, "b"},
      {key::PageUp, None, 0, "a"},         {key::Up, None, 0, "a"},
      {key::PageDown, Shift, 2, "a b c"},  {key::Home, None, 0, "a"},
      {key::End, Shift, 5, "a b c d e f"}, {key::Home, None, 0, "a"},
      {key::Insert, None, 1, "a"},         {key::Insert, None, 2, "a b"},
      {key::End, Ctrl, 5, "a b"},          {key::Insert, None, 5, "a b f"},
      {key::Insert, None, 5, "a b"},       {'A', Ctrl, 5, "a b c d e f"}};
  for (const auto& [code, modifiers, focus, selection] : rows) {
    key(code, modifiers);
    EXPECT_EQ(list.focusedRow(), focus) << "key " << code;
    EXPECT_EQ(selected(), selection) << "key " << code;
  }
}

TEST_F(ListViewTest, TypedLettersFindNamesRoundTheEnd) {
  fill({"apple", "banana", "blue", "\xC3\xA9toile"});
  list.focusRow(0);
  for (const auto& [typed, row] : {std::pair{"b", 1u}, {"b", 2u}, {"b", 1u}, {"bl", 2u}, {"\xC3\xA9", 3u}, {"q", 3u}}) {
    list.seekFromUser(typed);
    EXPECT_EQ(list.focusedRow(), row) << typed;
  }
}

}  // namespace
}  // namespace varnholt::controls

#include "panels/panel_shortcuts.hpp"
#include "support/app_rig.hpp"

#include <cctype>
#include <regex>

namespace varnholt::test {
namespace {

using controls::MenuItem;
using panels::Command;

class Commands : public AppTest {
 protected:
  const std::vector<Command>& rows() { return form().commands.commands(); }
  panels::MainMenu& menu() { return form().Menu; }
  std::vector<MenuItem*> bar() {
    std::vector<MenuItem*> found;
    for (controls::Control* control : form().controls())
      if (auto* item = dynamic_cast<MenuItem*>(control); item && !item->parent()) found.push_back(item);
    return found;
  }
  /// The entries of each menu under its heading's caption, and those of the bar.
  std::map<std::string, std::vector<MenuItem*>> menus() {
    std::map<std::string, std::vector<MenuItem*>> found{{"the bar", bar()}};
    for (controls::Control* control : form().controls())
      if (auto* item = dynamic_cast<MenuItem*>(control); item && !item->children().empty())
        found[item->Caption] = item->children();
    return found;
  }
};

TEST_F(Commands, EachIsThereOnceAndSaysWhatItIsAndWhatItDoes) {
  std::set<std::string> handlers, buttons, shortcuts;
  for (const Command& row : rows()) {
    EXPECT_TRUE(row.handler.ends_with("_Click") && handlers.insert(row.handler).second) << row.handler;
    EXPECT_FALSE(row.toolTip.empty()) << row.handler;
    EXPECT_EQ(row.heading.empty(), row.menuText.empty()) << row.handler;
    EXPECT_FALSE(row.button.empty() && row.heading.empty()) << row.handler << " can be reached by nothing";
    EXPECT_EQ(static_cast<bool>(row.run), row.heading != panels::RightEndOfBar) << row.handler;
    EXPECT_TRUE(row.shortcut.empty() || shortcuts.insert(row.shortcut).second) << row.shortcut;
    EXPECT_TRUE(row.after.empty() || menu().has(row.after)) << row.after;
    if (row.button.empty()) continue;
    EXPECT_TRUE(form().control(row.button) && buttons.insert(row.button).second) << row.button;
    EXPECT_FALSE(row.caption.empty() && row.icon.empty()) << row.handler;
  }
  for (const controls::Control* control : form().controls())
    EXPECT_TRUE(control->kind() != controls::Kind::Button || buttons.contains(control->name())) << control->name();
}

TEST_F(Commands, KeysAndNumbersThatUsersHaveKeepTheirMeaning) {
  // The numbers lie in the settings of users: they never change.
  const std::map<int, std::string> numbers{
      {1, "Command1_Click"},      {2, "Command3_Click"},        {3, "Command4_Click"},   {4, "Command11_Click"},
      {5, "Command5_Click"},      {6, "Command16_Click"},       {7, "Command2_Click"},   {8, "Command13_Click"},
      {9, "Command14_Click"},     {10, "Command15_Click"},      {11, "Command12_Click"}, {12, "Command17_Click"},
      {13, "Command26_Click"},    {14, "Command27_Click"},      {15, "selectall_Click"}, {16, "OpenItem_Click"},
      {17, "Recent_Files_Click"}, {18, "addfavor_Click"},       {19, "showfavor_Click"}, {20, "addtobook_Click"},
      {21, "OpenBook_Click"},     {24, "Com_Sync_Click"},       {28, "NetOp_Click"},     {29, "DiskInfo_Click"},
      {36, "viewlastexit_Click"}, {62, "Comp_SyncBatch_Click"}, {63, "LocalDesk_Click"}, {64, "DynPresets_Click"},
      {71, "NewPro_Click"},       {72, "OpenPro_Click"},        {80, "Viewuser_Click"},  {81, "multiAtribut_Click"},
      {82, "RegOptions_Click"}};
  std::map<int, std::string> seen;
  for (const Command& row : rows())
    if (row.number != 0) seen.emplace(row.number, row.handler);
  EXPECT_EQ(seen, numbers);
  for (const auto row :
       Rows{"MoveItems|Ctrl+X", "presetsetup|Ctrl+P", "Filepatt|Ctrl+M", "Recallprevius|Ctrl+S", "Foldermake|Ctrl+N",
            "Fdetails|Ctrl+U", "WinCopy|Ctrl+C", "WinPaste|Ctrl+V", "Picview_Toggle|Alt+Backspace", "Picview|F12",
            "exit_program|Alt+F4", "refrechview|F4", "LocalDesk|Ctrl+L", "QuickFind|Ctrl+F"})
    EXPECT_EQ(menu()[Row(row).first].Shortcut.get(), Row(row).second) << row;
}

TEST_F(Commands, KeysOfThePanelsLeadToEntriesAndToNoOtherKeysShortcut) {
  std::set<std::string> shown;
  for (const auto& row : panels::panelShortcuts()) {
    EXPECT_TRUE(shown.emplace(row.shown).second) << row.shown;
    EXPECT_FALSE(std::ranges::count(rows(), row.shown, &Command::shortcut)) << row.shown;
    ASSERT_TRUE(menu().has(std::string(row.entry))) << row.entry;
    EXPECT_FALSE(menu()[std::string(row.entry)].PanelKeys->empty());
  }
  namespace key = controls::key;
  const std::tuple<int, controls::Modifiers, const char*> keys[] = {
      {key::F5, {}, "CopyItems"},      {key::F6, {}, "MoveItems"},       {key::F7, {}, "Foldermake"},
      {key::F8, {}, "Deleteitems"},    {key::Delete, {}, "Deleteitems"}, {key::Add, {}, "Filepatt"},
      {key::Subtract, {}, "Filepatt"}, {key::Add, {true}, "Filepatt"},   {key::F6, {true}, "RenFileFolder"}};
  for (const auto& [code, modifiers, entry] : keys)
    EXPECT_EQ(panels::panelShortcut({code, modifiers, false})->entry, entry) << code;
}

TEST_F(Commands, TheMenusAreInOrder) {
  std::vector<std::string> headings;
  for (const MenuItem* item : bar())
    if (!item->RightAligned) headings.push_back(item->Caption);
  EXPECT_EQ(headings,
            (std::vector<std::string>{"&File", "&Select", "&View", "&Go", "&Places", "&Tools", "&Options", "&Help"}));
  EXPECT_EQ(menu()["FileMenu"].children().back()->name(), "exit_program");
  for (const char* line : {"Viewfilter", "Filefilter"})
    EXPECT_TRUE(menu()[line].RightAligned && menu()[line].Enabled && !menu()[line].parent()) << line;
  for (const auto& [heading, items] : menus()) {
    std::set<int> mnemonics;
    for (const MenuItem* item : items) {
      const std::string caption = item->Caption;
      const auto mark = caption.find('&');
      if (mark == std::string::npos) continue;
      ASSERT_LT(mark + 1, caption.size()) << caption;
      EXPECT_TRUE(mnemonics.insert(std::tolower(static_cast<unsigned char>(caption[mark + 1]))).second)
          << heading << ": " << caption;
    }
    const auto isLine = [](const MenuItem* item) { return item->Caption == "-"; };
    EXPECT_FALSE(isLine(items.front()) || isLine(items.back())) << heading;
    EXPECT_EQ(std::ranges::adjacent_find(items, [&](auto* a, auto* b) { return isLine(a) && isLine(b); }), items.end())
        << heading;
  }
}

TEST_F(Commands, EnterInADialogStandsForWhatItIsOpenedFor) {
  for (const auto row :
       Rows{"Form18|Command1", "Form27|Command11", "Form28|Command11", "Form29|Command11", "Form32|Command11",
            "Form36|Command4", "Form37|Command1", "Form44|Command1", "Form47|Command1", "Form48|Command2"}) {
    const controls::Form* form = rig.loop.form(Row(row).first);
    ASSERT_TRUE(form) << row;
    EXPECT_EQ(form->defaultButton, Row(row).second) << row;
  }
}

// Names that handlers pass in code that no test may run.
TEST_F(Commands, EveryNameInTheSourcesIsInTheTable) {
  const std::regex asked(R"re([Mm]enu\["(\w+)"\]|checked\("(\w+)"\)|perform\("(\w+)")re");
  int found = 0;
  for (const auto& file : std::filesystem::recursive_directory_iterator(std::string(test::SourceFolder) + "/src")) {
    if (file.path().extension() != ".cpp") continue;
    std::ifstream in(file.path());
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    for (auto each = std::sregex_iterator(text.begin(), text.end(), asked); each != std::sregex_iterator(); ++each) {
      const std::string entry = (*each)[1].str() + (*each)[2].str(), handler = (*each)[3];
      EXPECT_TRUE(handler.empty() ? menu().has(entry) : form().commands.find(handler) != nullptr)
          << entry << handler << " in " << file.path();
      ++found;
    }
  }
  EXPECT_GE(found, 50);
}

}  // namespace
}  // namespace varnholt::test

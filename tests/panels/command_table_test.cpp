#include "app/all_commands.hpp"
#include "panels/form1.hpp"
#include "panels/panel_shortcuts.hpp"
#include "support/scripted_loop.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <utility>

namespace varnholt::test {
namespace {

using controls::MenuItem;
using panels::Command;

bool isSeparator(const Command& row) { return row.menuText == "-"; }

std::string entryName(const Command& row) {
  return row.menu.empty() ? row.handler.substr(0, row.handler.rfind("_Click")) : row.menu;
}

/// The main window with all commands in its menu.
struct Window {
  explicit Window(std::vector<Command> rows = app::allCommands()) {
    form.commands.add(std::move(rows));
    form.Menu.build(form.commands);
  }
  std::vector<const MenuItem*> items() const {
    std::vector<const MenuItem*> found;
    for (const controls::Control* control : form.controls())
      if (const auto* item = dynamic_cast<const MenuItem*>(control)) found.push_back(item);
    return found;
  }
  std::vector<const MenuItem*> bar() const {
    auto found = items();
    std::erase_if(found, [](const MenuItem* item) { return item->parent(); });
    return found;
  }
  /// The bar, and each menu under its heading's caption.
  std::map<std::string, std::vector<const MenuItem*>> menus() const {
    std::map<std::string, std::vector<const MenuItem*>> found{{"the bar", bar()}};
    for (const MenuItem* item : items())
      if (!item->children().empty()) found[item->Caption].assign(item->children().begin(), item->children().end());
    return found;
  }

  ScriptedLoop loop;
  panels::Form1 form{loop};
};

// --- The rows --------------------------------------------------------------------------------------------------------

TEST(CommandRows, EachHandlerHasOneRow) {
  std::set<std::string> seen;
  for (const Command& row : app::allCommands()) {
    EXPECT_FALSE(row.handler.empty()) << row.menuText;
    EXPECT_TRUE(seen.insert(row.handler).second) << row.handler;
  }
}

TEST(CommandRows, EachSaysWhatItIsAndWhatItDoes) {
  for (const Command& row : app::allCommands()) {
    if (isSeparator(row)) continue;
    EXPECT_FALSE(row.toolTip.empty()) << row.handler;
    EXPECT_TRUE(row.handler.ends_with("_Click")) << row.handler;
    EXPECT_EQ(row.heading.empty(), row.menuText.empty()) << row.handler;
    EXPECT_FALSE(row.button.empty() && row.heading.empty()) << row.handler << " can be reached by nothing";
    if (!row.button.empty()) {
      EXPECT_FALSE(row.caption.empty() && row.icon.empty()) << row.handler;
    }
  }
}

TEST(CommandRows, NoShortcutHasTwoMeanings) {
  std::map<std::string, std::string> seen;
  for (const Command& row : app::allCommands())
    if (!row.shortcut.empty()) {
      EXPECT_TRUE(seen.emplace(row.shortcut, entryName(row)).second) << row.shortcut;
    }

  const std::map<std::string, std::string> given{{"Ctrl+C", "WinCopy"},
                                                 {"Ctrl+V", "WinPaste"},
                                                 {"Ctrl+X", "MoveItems"},
                                                 {"Ctrl+N", "Foldermake"},
                                                 {"Ctrl+P", "presetsetup"},
                                                 {"Ctrl+U", "Fdetails"},
                                                 {"Ctrl+M", "Filepatt"},
                                                 {"Ctrl+S", "Recallprevius"},
                                                 {"Ctrl+L", "LocalDesk"},
                                                 {"Alt+F4", "exit_program"},
                                                 {"Alt+Backspace", "Picview_Toggle"},
                                                 {"F12", "Picview"},
                                                 {"F4", "refrechview"}};
  EXPECT_EQ(seen, given);
}

TEST(CommandRows, KeysOfThePanelsLeadToEntriesOfTheMenusAndToNoOtherKeysShortcut) {
  Window window;
  std::set<std::string> shortcuts, shown;
  for (const Command& row : app::allCommands())
    shortcuts.insert(row.shortcut);
  for (const auto& row : panels::panelShortcuts()) {
    ASSERT_TRUE(window.form.Menu.has(std::string(row.entry))) << row.entry;
    EXPECT_FALSE(window.form.Menu[std::string(row.entry)].PanelKeys->empty());
    EXPECT_FALSE(shortcuts.contains(std::string(row.shown))) << row.shown;
    EXPECT_TRUE(shown.emplace(row.shown).second) << row.shown;
  }
}

TEST(CommandRows, LastCommandNumbersLeadToTheirHandlers) {
  std::map<int, std::string> seen;
  for (const Command& row : app::allCommands())
    if (row.number != 0) {
      EXPECT_TRUE(seen.emplace(row.number, row.handler).second) << row.number;
    }

  // These numbers lie in the settings of users: they never change.
  const std::map<int, std::string> given{
      {1, "Command1_Click"},      {2, "Command3_Click"},        {3, "Command4_Click"},   {4, "Command11_Click"},
      {5, "Command5_Click"},      {6, "Command16_Click"},       {7, "Command2_Click"},   {8, "Command13_Click"},
      {9, "Command14_Click"},     {10, "Command15_Click"},      {11, "Command12_Click"}, {12, "Command17_Click"},
      {13, "Command26_Click"},    {14, "Command27_Click"},      {15, "selectall_Click"}, {16, "OpenItem_Click"},
      {17, "Recent_Files_Click"}, {18, "addfavor_Click"},       {19, "showfavor_Click"}, {20, "addtobook_Click"},
      {21, "OpenBook_Click"},     {24, "Com_Sync_Click"},       {28, "NetOp_Click"},     {29, "DiskInfo_Click"},
      {36, "viewlastexit_Click"}, {62, "Comp_SyncBatch_Click"}, {63, "LocalDesk_Click"}, {64, "DynPresets_Click"},
      {71, "NewPro_Click"},       {72, "OpenPro_Click"},        {80, "Viewuser_Click"},  {81, "multiAtribut_Click"},
      {82, "RegOptions_Click"}};
  EXPECT_EQ(seen, given);
}

TEST(CommandRows, EachButtonOfTheWindowHasOneAndNoOther) {
  Window window;
  std::set<std::string> inRows, inWindow;
  for (const Command& row : app::allCommands())
    if (!row.button.empty()) {
      EXPECT_TRUE(inRows.insert(row.button).second) << row.button;
    }
  for (const controls::Control* control : window.form.controls())
    if (control->kind() == controls::Kind::Button) inWindow.insert(control->name());
  EXPECT_EQ(inRows, inWindow);
}

// --- The menu made from them -----------------------------------------------------------------------------------------

TEST(MainMenu, HeadingsStandInOneOrderWhoeverAddsFirst) {
  const std::vector<std::string> order{"&File", "&Select", "&View", "&Go", "&Places", "&Tools", "&Options", "&Help"};
  auto backwards = app::allCommands();
  std::ranges::reverse(backwards);
  for (const auto& rows : {app::allCommands(), backwards}) {
    Window window(rows);
    std::vector<std::string> captions;
    for (const MenuItem* item : window.bar())
      if (!item->RightAligned) captions.push_back(item->Caption);
    EXPECT_EQ(captions, order);
  }
}

TEST(MainMenu, MnemonicsAreUniqueInEachMenu) {
  Window window;
  for (const auto& [menu, items] : window.menus()) {
    std::map<int, std::string> seen;
    for (const MenuItem* item : items) {
      const std::string caption = item->Caption;
      const auto mark = caption.find('&');
      if (mark == std::string::npos) continue;
      ASSERT_LT(mark + 1, caption.size()) << caption;
      const int letter = std::tolower(static_cast<unsigned char>(caption[mark + 1]));
      EXPECT_TRUE(std::isalnum(letter)) << caption;
      EXPECT_EQ(caption.find('&', mark + 1), std::string::npos) << caption;
      const auto [other, fresh] = seen.emplace(letter, caption);
      EXPECT_TRUE(fresh) << menu << ": " << caption << " and " << other->second;
    }
  }
}

TEST(MainMenu, SeparatorsPartEntriesOnly) {
  Window window;
  for (const auto& [menu, items] : window.menus()) {
    ASSERT_FALSE(items.empty());
    EXPECT_NE(items.front()->Caption.get(), "-") << menu;
    EXPECT_NE(items.back()->Caption.get(), "-") << menu;
    const auto twice = std::ranges::adjacent_find(
        items, [](const MenuItem* a, const MenuItem* b) { return a->Caption == "-" && b->Caption == "-"; });
    EXPECT_EQ(twice, items.end()) << menu;
  }
}

TEST(MainMenu, NoEntryTakesTheNameOfAnotherControl) {
  Window window;
  std::set<std::string> seen;
  for (const controls::Control* control : window.form.controls())
    EXPECT_TRUE(seen.insert(control->name()).second) << control->name();
}

// Names that handlers pass in code that no test may run.
TEST(MainMenu, EveryNameInTheSourcesIsInTheTable) {
  Window window;
  const std::regex asked(R"re([Mm]enu\["(\w+)"\]|checked\("(\w+)"\)|bind\("(\w+)")re");
  int found = 0;
  for (const auto& file : std::filesystem::recursive_directory_iterator(VARNHOLT_SOURCE_DIR "/src")) {
    if (file.path().extension() != ".cpp") continue;
    std::ifstream in(file.path());
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    for (auto each = std::sregex_iterator(text.begin(), text.end(), asked); each != std::sregex_iterator(); ++each) {
      const std::string entry = (*each)[1].str() + (*each)[2].str(), handler = (*each)[3];
      EXPECT_TRUE(handler.empty() ? window.form.Menu.has(entry) : window.form.commands.find(handler) != nullptr)
          << entry << handler << " in " << file.path();
      ++found;
    }
  }
  EXPECT_GE(found, 150);
}

TEST(MainMenu, AnEntryThatIsMadeAnewTakesTheOthersPlaceInTheWindow) {
  const Command row{.handler = "Twice_Click", .toolTip = "Does it", .heading = "File", .menuText = "&Twice"};
  Window window({row, row});
  std::set<const MenuItem*> inMenu(window.form.Menu["FileMenu"].children().begin(),
                                   window.form.Menu["FileMenu"].children().end());
  EXPECT_EQ(inMenu, std::set<const MenuItem*>{&window.form.Menu["Twice"]});
  EXPECT_EQ(std::ranges::count(window.form.controls(), "Twice", &controls::Control::name), 1);
}

TEST(MainMenu, WhatIsNotBuiltYetIsDisabledAndSaysSo) {
  int ran = 0;
  Window window(
      {{.handler = "Later_Click", .toolTip = "Does it later", .heading = "File", .menuText = "&Later"},
       {.handler = "Now_Click", .toolTip = "Does it now", .heading = "File", .menuText = "&Now", .run = [&ran] {
          ++ran;
        }}});
  auto& later = window.form.Menu["Later"];
  EXPECT_FALSE(later.Enabled);
  EXPECT_EQ(later.ToolTipText.get(), "Does it later (not available in this version)");
  later.choose();
  EXPECT_EQ(ran, 0);

  auto& now = window.form.Menu["Now"];
  EXPECT_TRUE(now.Enabled);
  EXPECT_EQ(now.ToolTipText.get(), "Does it now");
  now.choose();
  EXPECT_EQ(ran, 1);
}

TEST(MainMenu, FilterLinesShareTheRightEndOfTheBar) {
  Window window;
  const auto& view = window.form.Menu["Viewfilter"];
  const auto& file = window.form.Menu["Filefilter"];
  for (const MenuItem* line : {&view, &file}) {
    EXPECT_TRUE(line->RightAligned) << line->name();
    EXPECT_EQ(line->parent(), nullptr) << line->name();
    EXPECT_TRUE(line->Enabled) << line->name();
    EXPECT_EQ(line->ToolTipText->find("not available"), std::string::npos) << line->name();
  }
  EXPECT_TRUE(view.Visible);
  EXPECT_FALSE(file.Visible);
}

}  // namespace
}  // namespace varnholt::test

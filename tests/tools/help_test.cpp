#include "support/app_rig.hpp"
#include "tools/help_topics.hpp"

namespace varnholt::tools {
namespace {

class HelpTest : public test::AppTest {
 protected:
  void SetUp() override { rig.startLeft(); }
  tools::frmHelp& help() { return rig.app().tools.frmHelp; }
  std::string title() {
    const auto row = help().lstTopics.SelectedItem();
    return row ? row->Text() : "no topic";
  }
  std::string text() { return help().rtbText.Document().plain(); }
  void inHelp(const std::function<void()>& user) { inDialog("Help_file_Click", "frmHelp", user, {}, "cmdClose"); }
};

TEST_F(HelpTest, F1OpensATopicOfItsOwnInEveryWindow) {
  std::string first;
  inHelp([&] { first = title(); });
  std::set<std::string> titles;
  std::vector<controls::Form*> windows = rig.app().allDialogs();
  windows.push_back(&rig.app().Form9);
  for (controls::Form* window : windows) {
    if (window == &help()) continue;
    std::string shown, told;
    rig.loop.whenShows("frmHelp").run([&](controls::Form&) { shown = title(), told = text(); }).press("cmdClose");
    controls::KeyEvent f1{controls::key::F1, {}};
    window->KeyDown(f1);
    rig.loop.expectAllReached();
    EXPECT_TRUE(f1.handled);
    EXPECT_NE(shown, first) << "no topic of " << window->name();
    EXPECT_GT(told.size(), shown.size() + 40) << window->name();
  }
}

TEST_F(HelpTest, EveryCommandIsFoundByWhatItsMenuSays) {
  inHelp([this] {
    for (const auto& command : form().commands.commands()) {
      std::string words = command.menuText.empty() ? command.toolTip : command.menuText;
      std::erase(words, '&');
      help().txtSearch.typeFromUser(words);
      EXPECT_GT(help().lstTopics.count(), 0u) << words;
      EXPECT_FALSE(text().empty());
    }
  });
}

TEST_F(HelpTest, TheWordsNarrowTheTopicsAndTheKeysGoThroughThem) {
  inHelp([this] {
    const auto all = help().lstTopics.count();
    help().txtSearch.typeFromUser("OVERWRITE warning");
    const auto few = help().lstTopics.count();
    EXPECT_TRUE(few > 0 && few < all) << few;
    EXPECT_EQ(title(), "Overwrite Warning");  // a title goes before other mentions
    help().txtSearch.typeFromUser("no such words anywhere");
    EXPECT_EQ(text() + std::to_string(help().lstTopics.count()), "0");
    help().txtSearch.typeFromUser("");
    const std::string before = title();
    for (const auto& [code, moves] : {std::pair{controls::key::Down, true}, {controls::key::Up, false}}) {
      controls::KeyEvent event{code, {}};
      help().txtSearch.KeyDown(event);
      EXPECT_EQ(title() != before, moves);
      EXPECT_TRUE(text().starts_with(title()));
    }
    help().lstTopics.SetFocus();
    controls::KeyEvent find{'F', {.ctrl = true}};
    help().KeyDown(find);
    EXPECT_TRUE(help().txtSearch.hasFocus());
    controls::KeyEvent again{controls::key::F1, {}};
    help().KeyDown(again);  // opens no second one
  });
}

TEST_F(HelpTest, WithoutItsTextTheHelpStillTellsOfTheCommands) {
  rig.platform->assetsFolder = rig.programFolder() + "\\nowhere";
  const std::string copy = rig.programFolder() + "\\Help.txt";
  ASSERT_TRUE(files().writeFile(copy, "# Ours\r\n\r\nTold\r\nhere.\r\n\r\n- Ok: goes on\r\n"));
  inHelp([this] { EXPECT_EQ(text(), "Ours\n\nTold here.\n\n\u2022  Ok   goes on"); });
  for (const bool there : {true, false}) {
    ASSERT_TRUE(there ? files().writeFile(copy, std::string(100, '\0')) : files().deleteFile(copy, true));
    inHelp([this] {
      EXPECT_EQ(title(), "The help text is missing");
      help().txtSearch.typeFromUser("Ctrl+N New Folder");
      EXPECT_EQ(title(), "Commands of the menu File");
    });
  }
}

}  // namespace
}  // namespace varnholt::tools

// The folder tree that copy, move and zip take a target from.
#include "support/app_rig.hpp"

#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::test {
namespace {

class BrowseForFolder : public AppTest {
 protected:
  BrowseForFolder() {
    rig.makeFolder("C:\\Photos\\2024");
    rig.makeFolder("C:\\Photos\\2023");
    rig.write("C:\\letter.txt");
  }

  panels::Form35& form() { return rig.app().Form35; }
  controls::TreeNode& root() { return *form().TreeView1.roots().front(); }
  controls::TreeNode& child(controls::TreeNode& node, const std::string& text) {
    for (auto& each : node.children)
      if (each->Text == text) return *each;
    ADD_FAILURE() << "no node " << text << " below " << node.Text;
    return node;
  }
  controls::TreeNode& drive(const std::string& letter) {
    for (auto& each : root().children)
      if (each->Key == letter + ":\\") return *each;
    ADD_FAILURE() << "no drive " << letter;
    return root();
  }
  void click(controls::TreeNode& node) { form().TreeView1.clickFromUser(node); }

  std::vector<std::string> childTexts(const controls::TreeNode& node) const {
    std::vector<std::string> texts;
    for (const auto& each : node.children)
      texts.push_back(each->Text);
    return texts;
  }

  /// Browses; the user does that, and presses the button. Without one the close box is used.
  std::optional<std::string> browse(const std::function<void()>& acts, const char* button = "Command3") {
    rig.loop.meets({{"Form35", button, "", acts}});
    return form().browse("Copy Item(s)");
  }
  using Texts = Names;
};

TEST_F(BrowseForFolder, ReadyDrivesStandUnderMyComputerAndNoOthers) {
  ASSERT_EQ(::rmdir((rig.scratch / "second").c_str()), 0);
  std::string told;
  rig.loop.onTurn = [&] { told = form().StatusBar1.panel(1); };
  EXPECT_FALSE(browse([&] {
    rig.loop.onTurn = nullptr;
    EXPECT_EQ(root().Text, "My Computer");
    EXPECT_TRUE(root().Expanded);
    ASSERT_EQ(root().children.size(), 2u) << "D: has no folder behind it";
    EXPECT_TRUE(root().children.at(0)->Text.ends_with("(C:)"));
    EXPECT_TRUE(root().children.at(1)->Text.ends_with("(Z:)"));
    EXPECT_EQ(form().StatusBar1.panel(1), "");
    // Ready from now on, and not in the tree until it is opened again.
    ASSERT_EQ(::mkdir((rig.scratch / "second").c_str(), 0755), 0);
    click(root());
    EXPECT_EQ(root().children.size(), 2u);
  }));
  EXPECT_EQ(told, "Testing Drives For Ready Condition, - Please wait...");
  rig.drives->renamed = "Card 7";
  browse([&] {
    EXPECT_EQ(root().children.size(), 3u);
    EXPECT_EQ(drive("D").Text, "Card 7 (D:)") << "the name that it has now";
  });
}

TEST_F(BrowseForFolder, AClickReadsTheFoldersOnceAndChoosesTheNode) {
  Texts captions;
  const auto taken = browse(
      [&] {
        rig.loop.onTurn = [&] { captions.push_back(form().Caption); };
        click(drive("C"));
        EXPECT_EQ(childTexts(drive("C")), Texts{"Photos"}) << "folders alone";
        EXPECT_TRUE(drive("C").Expanded);
        EXPECT_EQ(form().Text1.Text.get(), "C:\\");
        EXPECT_EQ(form().Caption.get(), "Browse For Folder On Ready Drives..");
        click(child(drive("C"), "Photos"));
        EXPECT_EQ(childTexts(child(drive("C"), "Photos")), (Texts{"2023", "2024"}));
        rig.makeFolder("C:\\Later");
        click(drive("C"));
        EXPECT_EQ(childTexts(drive("C")), Texts{"Photos"}) << "scanned before";
        click(child(child(drive("C"), "Photos"), "2024"));
        EXPECT_EQ(form().Text1.Text.get(), "C:\\Photos\\2024");
      },
      "Command1");
  EXPECT_EQ(taken, "C:\\Photos\\2024\\");
  const std::string path = "Folder Path", scanning = "Scanning Folders, - Please Wait...";
  EXPECT_EQ(captions, (Texts{path, scanning, path, scanning, path, path, scanning}));
}

TEST_F(BrowseForFolder, ALinkToAFolderHasNothingBelowItAndAnOpenedNodeIsNotChosen) {
  std::filesystem::create_directory_symlink("..", rig.systemPath("C:\\Photos\\round"));
  browse([&] {
    click(drive("D"));
    form().TreeView1.expandFromUser(drive("C"), true);
    EXPECT_EQ(childTexts(drive("C")), Texts{"Photos"});
    EXPECT_EQ(form().Text1.Text.get(), "D:\\");
    controls::TreeNode& photos = child(drive("C"), "Photos");
    click(photos);
    click(child(photos, "round"));
    EXPECT_TRUE(child(photos, "round").children.empty());
    EXPECT_EQ(form().Text1.Text.get(), "C:\\Photos\\round") << "it can be chosen";
  });
}

TEST_F(BrowseForFolder, TheCaptionSaysTheFunctionAndTheChoices) {
  struct {
    bool cancel, execute;
    const char* caption;
  } const cases[] = {
      {false, false, "Copy Item(s)"},
      {false, true, "Copy Item(s) & Return On Execute"},
      {true, false, "Copy Item(s) & Return On Cancel"},
      {true, true, "Copy Item(s) & Return On Execute & Return On Cancel"},
  };
  browse([&] {
    for (const auto& [cancel, execute, caption] : cases) {
      if (form().Check1.Value != cancel) form().Check1.toggleFromUser();
      if (form().Check2.Value != execute) form().Check2.toggleFromUser();
      EXPECT_EQ(form().Caption.get(), caption);
    }
  });
}

TEST_F(BrowseForFolder, WhatIsNoFolderAnyMoreIsNotTaken) {
  EXPECT_FALSE(browse(
      [&] {
        form().Command1.press();  // nothing chosen yet
        click(root());
        form().Command1.press();
        click(drive("C"));
        click(child(drive("C"), "Photos"));
        click(child(child(drive("C"), "Photos"), "2024"));
        ASSERT_EQ(::rmdir(rig.systemPath("C:\\Photos\\2024").c_str()), 0);
        form().Command1.press();
        EXPECT_TRUE(form().Visible) << "the folder has gone";
      },
      ""));
}

TEST_F(BrowseForFolder, NothingElseRunsWhileFoldersAreScanned) {
  const auto taken = browse(
      [&] {
        rig.loop.onTurn = [&] {
          click(drive("D"));
          form().TreeView1.expandFromUser(drive("C"), true);
          form().Command1.press();
          form().Command3.press();
          EXPECT_FALSE(form().browse("Copy Item(s)")) << "open already";
        };
        click(drive("C"));
        rig.loop.onTurn = nullptr;
        EXPECT_TRUE(form().Visible);
        EXPECT_EQ(form().Text1.Text.get(), "C:\\");
        EXPECT_EQ(childTexts(drive("C")), Texts{"Photos"});
      },
      "Command1");
  EXPECT_EQ(taken, "C:\\");
}

}  // namespace
}  // namespace varnholt::test

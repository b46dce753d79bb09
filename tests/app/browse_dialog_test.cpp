#include "support/app_rig.hpp"

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

  static Names childTexts(const controls::TreeNode& node) {
    Names texts;
    for (const auto& each : node.children)
      texts.push_back(each->Text);
    return texts;
  }

  /// Browses; the user does that, and presses the button. Without one the close box is used.
  std::optional<std::string> browse(const std::function<void()>& acts, const char* button = "Command3") {
    rig.loop.meets({{"Form35", button, "", acts}});
    return form().browse("Copy Item(s)");
  }
};

TEST_F(BrowseForFolder, ReadyDrivesStandUnderMyComputerAndNoOthers) {
  std::filesystem::remove(rig.scratch / "second");
  std::string told;
  rig.loop.onTurn = [&] { told = form().StatusBar1.panel(1); };
  EXPECT_FALSE(browse([&] {
    rig.loop.onTurn = nullptr;
    EXPECT_EQ(root().Text, "My Computer");
    EXPECT_TRUE(root().Expanded);
    const Names drives = childTexts(root());
    ASSERT_EQ(drives.size(), 2u) << "D: has no folder behind it";
    EXPECT_TRUE(drives[0].ends_with("(C:)") && drives[1].ends_with("(Z:)"));
    EXPECT_EQ(form().StatusBar1.panel(1), "");
    rig.scratch.folder("second");  // ready from now on, and not in the tree until it is opened again
    click(root());
    EXPECT_EQ(childTexts(root()), drives);
  }));
  EXPECT_EQ(told, "Testing Drives For Ready Condition, - Please wait...");
  rig.drives->renamed = "Card 7";
  browse([&] { EXPECT_EQ(drive("D").Text, "Card 7 (D:)") << "the name that it has now"; });
}

TEST_F(BrowseForFolder, AClickReadsTheFoldersOnceAndChoosesTheNode) {
  Names captions;
  const auto taken = browse(
      [&] {
        rig.loop.onTurn = [&] { captions.push_back(form().Caption); };
        click(drive("C"));
        EXPECT_EQ(childTexts(drive("C")), Names{"Photos"}) << "folders alone";
        EXPECT_TRUE(drive("C").Expanded);
        EXPECT_EQ(form().Text1.Text.get() + "|" + form().Caption.get(), "C:\\|Browse For Folder On Ready Drives..");
        click(child(drive("C"), "Photos"));
        EXPECT_EQ(childTexts(child(drive("C"), "Photos")), (Names{"2023", "2024"}));
        rig.makeFolder("C:\\Later");
        click(drive("C"));
        EXPECT_EQ(childTexts(drive("C")), Names{"Photos"}) << "scanned before";
        click(child(child(drive("C"), "Photos"), "2024"));
        EXPECT_EQ(form().Text1.Text.get(), "C:\\Photos\\2024");
      },
      "Command1");
  EXPECT_EQ(taken, "C:\\Photos\\2024\\");
  const std::string path = "Folder Path", scanning = "Scanning Folders, - Please Wait...";
  EXPECT_EQ(captions, (Names{path, scanning, path, scanning, path, path, scanning}));
}

TEST_F(BrowseForFolder, ALinkToAFolderHasNothingBelowItAndAnOpenedNodeIsNotChosen) {
  std::filesystem::create_directory_symlink("..", rig.systemPath("C:\\Photos\\round"));
  browse([&] {
    click(drive("D"));
    form().TreeView1.expandFromUser(drive("C"), true);
    EXPECT_EQ(childTexts(drive("C")), Names{"Photos"});
    EXPECT_EQ(form().Text1.Text.get(), "D:\\");
    controls::TreeNode& photos = child(drive("C"), "Photos");
    click(photos);
    click(child(photos, "round"));
    EXPECT_TRUE(child(photos, "round").children.empty());
    EXPECT_EQ(form().Text1.Text.get(), "C:\\Photos\\round") << "it can be chosen";
  });
}

TEST_F(BrowseForFolder, TheCaptionSaysTheFunctionAndTheChoices) {
  const std::string onExecute = " & Return On Execute", onCancel = " & Return On Cancel";
  browse([&] {
    std::string captions;
    for (controls::CheckBox* box : {&form().Check2, &form().Check1, &form().Check2, &form().Check1}) {
      box->toggleFromUser();
      captions += form().Caption.get() + "|";
    }
    EXPECT_EQ(captions, "Copy Item(s)" + onExecute + "|Copy Item(s)" + onExecute + onCancel + "|Copy Item(s)" +
                            onCancel + "|Copy Item(s)|");
    form().Check1.toggleFromUser();
  });
  rig.loop.meets({{"Form35", "Command3", "", [&] {
                     EXPECT_EQ(form().Caption.get(), "Browse For Folder On Ready Drives..");
                     EXPECT_FALSE(form().Check1.Visible || form().Check2.Visible) << "no panel has moved";
                   }}});
  EXPECT_FALSE(form().browse({}));
}

TEST_F(BrowseForFolder, WhatIsNoFolderAnyMoreIsNotTaken) {
  const auto acts = [&] {
    form().Command1.press();  // nothing chosen yet
    click(root());
    form().Command1.press();
    click(drive("C"));
    click(child(drive("C"), "Photos"));
    std::filesystem::remove_all(rig.systemPath("C:\\Photos"));
    form().Command1.press();
    EXPECT_TRUE(form().Visible) << "the folder has gone";
  };
  EXPECT_FALSE(browse(acts, ""));
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
        EXPECT_EQ(childTexts(drive("C")), Names{"Photos"});
      },
      "Command1");
  EXPECT_EQ(taken, "C:\\");
}

}  // namespace
}  // namespace varnholt::test

// The folder tree that copy, move and zip take a target from.
#include "support/app_rig.hpp"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::test {
namespace {

class BrowseForFolder : public testing::Test {
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

  AppRig rig;
};

TEST_F(BrowseForFolder, ReadyDrivesStandUnderMyComputerAndNoOthers) {
  ASSERT_EQ(::rmdir((rig.scratch / "second").c_str()), 0);
  rig.loop.whenShows("Form35")
      .run([&](controls::Form&) {
        EXPECT_EQ(root().Text, "My Computer");
        EXPECT_TRUE(root().Expanded);
        ASSERT_EQ(root().children.size(), 2u) << "D: has no folder behind it";
        EXPECT_TRUE(root().children.at(0)->Text.ends_with("(C:)"));
        EXPECT_TRUE(root().children.at(1)->Text.ends_with("(Z:)"));
        // Ready from now on, and not in the tree until it is opened again.
        ASSERT_EQ(::mkdir((rig.scratch / "second").c_str(), 0755), 0);
        click(root());
        EXPECT_EQ(root().children.size(), 2u);
      })
      .press("Command3");
  EXPECT_FALSE(form().browse("Copy Item(s)"));
  rig.loop.whenShows("Form35").run([&](controls::Form&) { EXPECT_EQ(root().children.size(), 3u); }).press("Command3");
  EXPECT_FALSE(form().browse("Copy Item(s)"));
}

TEST_F(BrowseForFolder, TheDriveTestIsToldInTheStatusLine) {
  std::string told;
  rig.loop.onTurn = [&] { told = form().StatusBar1.panel(1); };
  rig.loop.whenShows("Form35")
      .run([&](controls::Form&) { EXPECT_EQ(form().StatusBar1.panel(1), ""); })
      .press("Command3");
  form().browse("Copy Item(s)");
  EXPECT_EQ(told, "Testing Drives For Ready Condition, - Please wait...");
}

TEST_F(BrowseForFolder, AClickReadsTheFoldersOnceAndChoosesTheNode) {
  std::vector<std::string> captions;
  rig.loop.whenShows("Form35")
      .run([&](controls::Form&) {
        rig.loop.onTurn = [&] { captions.push_back(form().Caption); };
        click(drive("C"));
        EXPECT_EQ(childTexts(drive("C")), std::vector<std::string>{"Photos"}) << "folders alone";
        EXPECT_TRUE(drive("C").Expanded);
        EXPECT_EQ(form().Text1.Text.get(), "C:\\");
        EXPECT_EQ(form().Caption.get(), "Browse For Folder On Ready Drives..");
        click(child(drive("C"), "Photos"));
        EXPECT_EQ(childTexts(child(drive("C"), "Photos")), (std::vector<std::string>{"2023", "2024"}));
        rig.makeFolder("C:\\Later");
        click(drive("C"));
        EXPECT_EQ(childTexts(drive("C")), std::vector<std::string>{"Photos"}) << "scanned before";
        click(child(child(drive("C"), "Photos"), "2024"));
        EXPECT_EQ(form().Text1.Text.get(), "C:\\Photos\\2024");
      })
      .press("Command1");
  EXPECT_EQ(form().browse("Copy Item(s)"), "C:\\Photos\\2024\\");
  const std::string path = "Folder Path", scanning = "Scanning Folders, - Please Wait...";
  EXPECT_EQ(captions, (std::vector<std::string>{path, scanning, path, scanning, path, path, scanning}));
}

TEST_F(BrowseForFolder, DrivesBearTheNamesThatTheyHaveWhenItOpens) {
  rig.drives->renamed = "Card 7";
  rig.loop.whenShows("Form35")
      .run([&](controls::Form&) { EXPECT_EQ(drive("D").Text, "Card 7 (D:)"); })
      .press("Command3");
  form().browse("Copy Item(s)");
}

TEST_F(BrowseForFolder, ALinkToAFolderHasNothingBelowIt) {
  std::filesystem::create_directory_symlink("..", rig.systemPath("C:\\Photos\\round"));
  rig.loop.whenShows("Form35")
      .run([&](controls::Form&) {
        click(drive("C"));
        controls::TreeNode& photos = child(drive("C"), "Photos");
        click(photos);
        click(child(photos, "round"));
        EXPECT_TRUE(child(photos, "round").children.empty());
        EXPECT_EQ(form().Text1.Text.get(), "C:\\Photos\\round") << "it can be chosen";
      })
      .press("Command3");
  form().browse("Copy Item(s)");
}

TEST_F(BrowseForFolder, ANodeOpenedByItsArrowIsReadAndNotChosen) {
  rig.loop.whenShows("Form35")
      .run([&](controls::Form&) {
        click(drive("D"));
        form().TreeView1.expandFromUser(drive("C"), true);
        EXPECT_EQ(childTexts(drive("C")), std::vector<std::string>{"Photos"});
        EXPECT_EQ(form().Text1.Text.get(), "D:\\");
      })
      .press("Command1");
  EXPECT_EQ(form().browse("Move Item(s)"), "D:\\");
}

TEST_F(BrowseForFolder, TheCaptionSaysTheFunctionAndTheChoices) {
  struct {
    bool cancel, execute;
    const char* caption;
  } const cases[] = {
      {false, false, "Move Item(s)"},
      {false, true, "Move Item(s) & Return On Execute"},
      {true, false, "Move Item(s) & Return On Cancel"},
      {true, true, "Move Item(s) & Return On Execute & Return On Cancel"},
  };
  rig.loop.whenShows("Form35")
      .run([&](controls::Form&) {
        EXPECT_EQ(form().Caption.get(), "Move Item(s)");
        for (const auto& [cancel, execute, caption] : cases) {
          if (form().Check1.Value != cancel) form().Check1.toggleFromUser();
          if (form().Check2.Value != execute) form().Check2.toggleFromUser();
          EXPECT_EQ(form().Caption.get(), caption);
        }
      })
      .press("Command3");
  EXPECT_FALSE(form().browse("Move Item(s)"));
}

TEST_F(BrowseForFolder, WhatIsNoFolderAnyMoreIsNotTaken) {
  rig.loop.whenShows("Form35")
      .press("Command1")  // nothing chosen yet
      .run([&](controls::Form&) {
        click(root());
        form().Command1.press();
        click(drive("C"));
        click(child(drive("C"), "Photos"));
        click(child(child(drive("C"), "Photos"), "2024"));
        ASSERT_EQ(::rmdir(rig.systemPath("C:\\Photos\\2024").c_str()), 0);
        form().Command1.press();
        EXPECT_TRUE(form().Visible) << "the folder has gone";
      })
      .closes();
  EXPECT_FALSE(form().browse("Copy Item(s)"));
}

TEST_F(BrowseForFolder, NothingElseRunsWhileFoldersAreScanned) {
  rig.loop.whenShows("Form35")
      .run([&](controls::Form&) {
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
        EXPECT_EQ(childTexts(drive("C")), std::vector<std::string>{"Photos"});
      })
      .press("Command1");
  EXPECT_EQ(form().browse("Copy Item(s)"), "C:\\");
}

}  // namespace
}  // namespace varnholt::test

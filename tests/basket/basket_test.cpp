#include "basket_test.hpp"

namespace varnholt::basket {
namespace {

TEST_F(BasketTest, GrowsAcrossFoldersAndDrivesAndTakesEachFileOnce) {
  rig.command("WinCopy_Click");
  EXPECT_EQ(form().Caption.get(), "Varnholt, - Ctrl+C Failed !") << "nothing is selected";
  for (const char* folder : {"C:\\One", "C:\\Two", "D:\\Three"})
    gather(folder);
  EXPECT_EQ(form().Caption.get(), "Varnholt, - Ctrl+C Done !");
  Names found = paths();
  EXPECT_EQ(found.size(), 5u);
  EXPECT_EQ(std::count(found.begin(), found.end(), "|Fold|D:\\Three\\Sub"), 1);
  EXPECT_EQ(found.at(2), "C:\\Two\\b.txt");
  gather("C:\\One");
  EXPECT_EQ(form().Caption.get(), "Varnholt, - Ctrl+C Failed !");
  EXPECT_EQ(paths(), found);
}

TEST_F(BasketTest, IsPastedInTheOrderOfAddingIntoTheActivePanelAndStaysFull) {
  rig.command("WinPaste_Click");
  EXPECT_EQ(form().Caption.get(), "Varnholt - No Items To Paste !");
  for (const char* folder : {"C:\\Two", "D:\\Three", "C:\\One"})
    gather(folder);
  const Names before = paths();
  Names lines;
  rig.loop.onTurn = [&] {
    lines.push_back(basket().Form43.Label2.Caption);
    EXPECT_TRUE(basket().Form43.Visible);
    EXPECT_EQ(basket().Form43.Label1.Caption.get(), "Target: C:\\To\\");
    // Other commands are refused, and a click takes nothing from the paste.
    rig.app().dispatcher.perform("Command1_Click");
    rig.app().dispatcher.perform("WinPaste_Click");
    rig.key(form().Panel1, controls::key::Left);
    form().Panel1.list.item(0).setSelected(true);
    rig.app().selection.ClickPane();
  };
  rig.loop.meets({{"Form7", "Command11", "Source FileName:     a.txt", [&] {
                     EXPECT_FALSE(rig.app().fileops.Form7.Command4.Enabled) << "no target is renamed in a paste";
                   }}});
  pasteInto("C:\\To");
  EXPECT_EQ(lines.front() + lines.back(), "Paste 1 Of 5 Item(s)...Paste 5 Of 5 Item(s)...");
  EXPECT_EQ(form().Panel1.path(), "C:\\To\\");
  EXPECT_EQ(rig.read("C:\\To\\a.txt") + rig.read("C:\\To\\A.TXT"), "C:\\One\\a.txtC:\\One\\A.TXT");
  EXPECT_EQ(rig.read("C:\\To\\b.txt") + rig.read("C:\\To\\Sub\\c.txt"), "C:\\Two\\b.txtD:\\Three\\Sub\\c.txt");
  EXPECT_EQ(form().Caption.get(), "Varnholt, - Paste (Ctrl+V) Done !");
  EXPECT_EQ(paths(), before);
  EXPECT_TRUE(!basket().Form43.Visible && !rig.app().dispatcher.busy && form().Panel1.list.count() == 5);
}

TEST_F(BasketTest, WhatIsGoneOrStandsThereAlreadyIsPassedOver) {
  for (const char* folder : {"C:\\Two", "D:\\Three", "C:\\One"})
    gather(folder);
  ASSERT_TRUE(rig.platform->files.deleteFile("C:\\Two\\b.txt", true));
  ASSERT_TRUE(rig.platform->files.deleteFolder("D:\\Three\\Sub", true));
  Names lines;
  rig.loop.onTurn = [&] { lines.push_back(basket().Form43.Label3.Caption); };
  const auto itself = test::told("Cannot Copy Item to Itself !");
  rig.loop.meets({{"Form7", "Command1"}, itself, itself, {"Form12"}});
  pasteInto("C:\\One");
  EXPECT_EQ(lines.at(0), "Source File/Folder Do Not Exist !");
  const std::string leftOut = rig.read(rig.programFolder() + "\\LeftOut.txt");
  EXPECT_NE(leftOut.find("C:\\Two\\b.txt\tSource File/Folder"), std::string::npos) << leftOut;
  EXPECT_NE(leftOut.find("D:\\Three\\Sub\tSource File/Folder"), std::string::npos) << leftOut;
}

TEST_F(BasketTest, APasteEndsByCancelByItsCloseBoxOrByTheQuestionAndIsNotCalledDone) {
  for (const char* folder : {"C:\\Two", "C:\\One"})
    gather(folder);
  const auto cancels = [&](const char* text, const std::function<void()>& way, const Answers& answers) {
    rig.loop.onTurn = way;
    rig.loop.meets(answers);
    pasteInto("C:\\To");
    EXPECT_FALSE(rig.exists("C:\\To\\a.txt")) << text;
    EXPECT_EQ(form().Caption->find("Done"), std::string::npos) << text;
    EXPECT_EQ(basket().Form43.StopFlag || rig.app().dispatcher.busy || basket().Form43.Visible, false) << text;
    rig.loop.expectAllReached();
  };
  cancels("cancel", [&] { basket().Form43.Command2.press(); }, {test::told("Paste Process Aborted. !")});
  EXPECT_TRUE(rig.exists("C:\\To\\b.txt"));
  cancels("question", {}, {{"Form7", "Command2"}});
  ASSERT_TRUE(rig.platform->files.deleteFile("C:\\To\\b.txt", true));
  cancels("close box", [&] { basket().Form43.closeFromUser(); }, {test::told("Paste Process Aborted. !")});
}

TEST_F(BasketTest, TheMainWindowStaysUntilThePasteIsOver) {
  gather("C:\\Two");
  rig.loop.onTurn = [&] {
    form().closeFromUser();
    EXPECT_TRUE(form().Visible);
  };
  pasteInto("C:\\To");
  EXPECT_FALSE(rig.loop.quitAsked);
}

TEST_F(BasketTest, ManySmallFilesOfSeveralFoldersArriveWhole) {
  const int each = 150;
  for (int number = 0; number < 2 * each; ++number)
    rig.write((number < each ? "C:\\Many\\f" : "D:\\Many\\g") + std::to_string(number), std::to_string(number));
  for (int number = 0; number < 2 * each; ++number)
    basket().PasteCollection.add({(number < each ? "C:\\Many\\f" : "D:\\Many\\g") + std::to_string(number), false});
  pasteInto("C:\\To");
  for (int number = 0; number < 2 * each; ++number)
    EXPECT_EQ(rig.read((number < each ? "C:\\To\\f" : "C:\\To\\g") + std::to_string(number)), std::to_string(number));
  EXPECT_LT(rig.loop.turns, 100) << "one by one";
}

TEST(PasteCollectionTest, KeepsOrderAndLetterCaseAndForgetsWhatIsTakenOut) {
  PasteCollection collection;
  for (const char* path : {"C:\\a", "C:\\A", "C:\\b", "C:\\a"})
    collection.add({path, false});
  ASSERT_EQ(collection.count(), 3u);
  collection.remove({collection.items()[0].path, "C:\\b", "C:\\none"});
  ASSERT_EQ(collection.count(), 1u);
  EXPECT_EQ(collection.items()[0].path, "C:\\A");
  EXPECT_TRUE(collection.add({"C:\\a", false}));
  EXPECT_FALSE(collection.add({"C:\\A", false}));
}

}  // namespace
}  // namespace varnholt::basket

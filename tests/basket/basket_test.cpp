#include "core/val_input_rule.hpp"
#include "support/app_rig.hpp"

namespace varnholt::basket {
namespace {

class BasketTest : public test::AppTest {
 protected:
  using Answers = std::vector<test::Answer>;

  void SetUp() override {
    for (const char* path :
         {"C:\\One\\a.txt", "C:\\One\\A.TXT", "C:\\Two\\b.txt", "D:\\Three\\a.txt", "D:\\Three\\Sub\\c.txt"})
      rig.write(path, path);
    rig.write("C:\\To\\kept");
    rig.startLeft();
  }
  Basket& basket() { return rig.app().basket; }
  void gather(const std::string& folder) {
    show(folder, "C:\\");
    for (const std::uint32_t row : {0u, 1u})
      if (row < left().list.count()) left().list.item(row).setSelected(true);
    rig.command("WinCopy_Click");
  }
  void pasteInto(const std::string& folder) {
    show(folder, "C:\\");
    rig.command("WinPaste_Click");
    rig.loop.onTurn = {};
  }
  Names paths() {
    Names found;
    for (const core::Item& item : basket().PasteCollection.items())
      found.push_back((item.isFolder ? "|Fold|" : "") + item.path);
    return found;
  }
};

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
}

TEST_F(BasketTest, RowsOfOneListingOfTwoAndOfACollectionAreTakenOnce) {
  const auto added = [&](const char* folder, bool isAdded, std::size_t count) {
    gather(folder);
    EXPECT_EQ(form().Caption.get(), std::string("Varnholt, - Ctrl+C ") + (isAdded ? "Done !" : "Failed !")) << folder;
    EXPECT_EQ(basket().PasteCollection.count(), count) << folder;
  };
  basket().PasteCollection.add({"C:\\Two\\b.txt", false});
  added("C:\\Two", false, 1);
  added("C:\\One", true, 3);
  rig.command("WinCopy_Click");
  EXPECT_EQ(form().Caption.get(), "Varnholt, - Ctrl+C Failed !") << "the same rows";
  rig.write("C:\\One\\0.txt");
  added("C:\\One", true, 4);
  EXPECT_EQ(paths().back(), "C:\\One\\0.txt");
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
    EXPECT_EQ(basket().Form43.Label1.Caption.get(), "Target: C:\\To\\");
    form().closeFromUser();
    EXPECT_TRUE(form().Visible) << "until the paste is over";
    // Other commands are refused, and a click takes nothing from the paste.
    rig.app().dispatcher.perform("Command1_Click");
    rig.app().dispatcher.perform("WinPaste_Click");
    rig.key(left(), controls::key::Left);
    left().list.pressFromUser(0, {});
    left().list.releaseFromUser({});
    EXPECT_EQ(form().mode(), "PasteMode");
  };
  rig.loop.meets({{"Form7", "Command11", "Source FileName:     a.txt", [&] {
                     EXPECT_FALSE(rig.app().fileops.Form7.Command4.Enabled) << "no target is renamed in a paste";
                   }}});
  pasteInto("C:\\To");
  EXPECT_EQ(lines.front() + lines.back(), "Paste 1 Of 5 Item(s)...Paste 5 Of 5 Item(s)...");
  EXPECT_EQ(left().path(), "C:\\To\\");
  EXPECT_EQ(rig.read("C:\\To\\a.txt") + rig.read("C:\\To\\A.TXT"), "C:\\One\\a.txtC:\\One\\A.TXT");
  EXPECT_EQ(rig.read("C:\\To\\b.txt") + rig.read("C:\\To\\Sub\\c.txt"), "C:\\Two\\b.txtD:\\Three\\Sub\\c.txt");
  EXPECT_EQ(form().Caption.get(), "Varnholt, - Paste (Ctrl+V) Done !");
  EXPECT_FALSE(rig.loop.quitAsked);
  EXPECT_EQ(paths(), before);
  EXPECT_TRUE(!basket().Form43.Visible && !rig.app().dispatcher.busy && left().list.count() == 5);
}

TEST_F(BasketTest, WhatIsGoneOrStandsThereAlreadyIsPassedOver) {
  for (const char* folder : {"C:\\Two", "D:\\Three", "C:\\One"})
    gather(folder);
  ASSERT_TRUE(files().deleteFile("C:\\Two\\b.txt", true));
  ASSERT_TRUE(files().deleteFolder("D:\\Three\\Sub", true));
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
  ASSERT_TRUE(files().deleteFile("C:\\To\\b.txt", true));
  cancels("close box", [&] { basket().Form43.closeFromUser(); }, {test::told("Paste Process Aborted. !")});
}

TEST_F(BasketTest, ManySmallFilesOfSeveralFoldersArriveWhole) {
  const auto name = [](int number) { return (number < 150 ? "\\f" : "\\g") + std::to_string(number); };
  for (int number = 0; number < 300; ++number) {
    const std::string path = (number < 150 ? "C:\\Many" : "D:\\Many") + name(number);
    rig.write(path, std::to_string(number));
    basket().PasteCollection.add({path, false});
  }
  pasteInto("C:\\To");
  for (int number = 0; number < 300; ++number)
    EXPECT_EQ(rig.read("C:\\To" + name(number)), std::to_string(number));
  EXPECT_LT(rig.loop.turns, 100) << "one by one";
}

TEST(PasteCollectionTest, KeepsOrderAndLetterCaseAndForgetsWhatIsTakenOut) {
  PasteCollection collection;
  for (const char* path : {"C:\\a", "C:\\A", "C:\\b", "C:\\a"})
    collection.add({path, false});
  ASSERT_EQ(collection.count(), 3u);
  collection.remove({"C:\\a", "C:\\b", "C:\\none"});
  EXPECT_TRUE(collection.add({"C:\\a", false}));
  EXPECT_FALSE(collection.add({"C:\\A", false}));
}

class PasteViewerTest : public BasketTest {
 protected:
  void SetUp() override {
    BasketTest::SetUp();
    for (const char* folder : {"C:\\Two", "D:\\Three"})
      gather(folder);
    ASSERT_EQ(paths(), all);
  }
  Form38& viewer() { return basket().Form38; }
  void inViewer(const std::function<void()>& user, const Answers& answers = {}) {
    const auto acts = [&] {
      if (viewer().Command8.Caption.get() == "More") viewer().Command8.press();
      user();
    };
    inDialog("RegOptions_Click", "Form38", acts, answers, "Command4");
  }
  void saveAs(const std::string& name) {
    viewer().Text2.typeFromUser(name);
    viewer().Command5.press();
  }
  void load(const std::string& name, int adds = 0) {
    viewer().Check1.Value = adds;
    const auto& items = viewer().Combo1.Items.get();
    const auto found = std::ranges::find(items, name, &controls::ComboBox::Item::text);
    ASSERT_NE(found, items.end()) << name;
    viewer().Combo1.chooseFromUser(static_cast<int>(found - items.begin()));
  }
  std::string collection(const std::string& name) { return rig.programFolder() + "\\Collections\\" + name; }
  const Names all{"C:\\Two\\b.txt", "|Fold|D:\\Three\\Sub", "D:\\Three\\a.txt"};
};

TEST_F(PasteViewerTest, ShowsSumsSortsAndTakesOut) {
  inViewer(
      [&] {
        const auto cells = [&](std::uint32_t row) {
          return viewer().ListView1.cell(row, 0) + viewer().ListView1.cell(row, 1);
        };
        EXPECT_EQ(viewer().Caption.get(), "Paste Viewer, - 3 Item(s) In View");
        EXPECT_EQ(cells(0) + cells(1), "b.txtC:\\Two\\b.txt<Folder>D:\\Three\\Sub");
        viewer().Command1.press();
        EXPECT_EQ(viewer().Caption.get(), "Paste Viewer, - 3 Item(s) In : 44 Bytes");
        for (const char* first : {"C:\\Two\\b.txt", "D:\\Three\\Sub"}) {
          viewer().ListView1.ColumnClick(2);
          EXPECT_EQ(viewer().ListView1.cell(0, 1), first);
        }
        viewer().ListView1.item(0).setSelected(true);
        viewer().Command3.press();
        EXPECT_EQ(paths(), (Names{all[0], all[2]}));
        EXPECT_EQ(viewer().Caption.get(), "Paste Viewer, - 2 Item(s) In View");
        viewer().Command2.press();
        EXPECT_EQ(basket().PasteCollection.count(), 2u);
        viewer().Command2.press();
        EXPECT_EQ(basket().PasteCollection.count() + viewer().ListView1.count(), 0u);
        viewer().Command1.press();
        EXPECT_EQ(viewer().Caption.get(), "Paste Viewer, - 0 Item(s) In : 0 Bytes");
      },
      {test::no("You are about to Reset Paste Collection !\rAre you Sure ?"), test::yes()});
}

TEST_F(PasteViewerTest, GoesToAnItemAndTellsOfOneThatIsGone) {
  ASSERT_TRUE(files().deleteFile("D:\\Three\\a.txt", true));
  inViewer(
      [&] {
        viewer().Command6.press();
        EXPECT_EQ(left().path(), "C:\\Two\\");
        viewer().ListView1.focusRow(2);
        viewer().Command6.press();
        viewer().ListView1.DblClick();
      },
      {test::noticed("Selected File/Folder Do NOT Exist !"), test::noticed("File/Folder Path Do Not Exist... !")});
}

TEST_F(PasteViewerTest, SavesWithAQuestionLoadsAndDeletes) {
  const std::string exists = "Collection File:  Trip.Col\rAlready Exist !, - OverWrite ?";
  inViewer(
      [&] {
        saveAs("");
        saveAs("a?b");
        saveAs(" Trip ");
        EXPECT_EQ(rig.read(collection("Trip.Col")), "C:\\Two\\b.txt\r\n|Fold|D:\\Three\\Sub\r\nD:\\Three\\a.txt\r\n");
        basket().PasteCollection.reset();
        saveAs("Trip");
        EXPECT_NE(rig.read(collection("Trip.Col")), "") << "the answer was no";
        for (const int adds : {0, 1, 1}) {
          load("Trip.Col", adds);
          EXPECT_EQ(paths(), all) << "each once";
        }
        viewer().Command7.press();
      },
      {test::told(core::refusedCharacterText('?')), test::noticed("Saved As:  ...\\Trip.Col"), test::no(exists),
       test::yes("Collection File:  Trip.Col\rDelete ?")});
  EXPECT_FALSE(rig.exists(collection("Trip.Col")));
}

TEST_F(PasteViewerTest, ALineThatNamesNothingCostsThatLine) {
  rig.write(
      collection("Odd.Col"),
      "\r\nc:\\two\\B.TXT\nC:\\Two\\b.txt\r\nC:\\One\\A.txt\r\nQ:\\x\r\nplain\r\n|Fold|\r\nC:\\\r\nD:\\Three\\sub\\");
  inViewer([&] {
    load("Odd.Col");
    EXPECT_EQ(paths().size(), 3u) << "one file in two cases, one of two that differ in case alone, a folder";
    EXPECT_EQ(paths().front(), "C:\\Two\\b.txt");
    EXPECT_EQ(paths().back(), "|Fold|D:\\Three\\Sub");
    EXPECT_EQ(viewer().Label1.Caption.get(), "4 line(s) of Odd.Col name nothing that is there.");
  });
}

TEST_F(PasteViewerTest, WhatIsNoCollectionIsToldAndTheBasketStays) {
  rig.write(collection("Huge.Col"));
  std::filesystem::resize_file(rig.systemPath(collection("Huge.Col")), 1'000'000'000);
  rig.write(collection("Turned.Col"));
  inViewer(
      [&] {
        std::filesystem::remove(rig.systemPath(collection("Turned.Col")));
        rig.makeFolder(collection("Turned.Col"));
        for (const char* name : {"Huge.Col", "Turned.Col"})
          load(name);
        saveAs("Turned");
      },
      {{"Form12"}, {"Form12"}, {"Form12"}});
  EXPECT_EQ(paths(), all);
}

}  // namespace
}  // namespace varnholt::basket

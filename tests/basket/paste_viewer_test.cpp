#include "basket_test.hpp"

#include "core/val_input_rule.hpp"

#include <algorithm>
#include <filesystem>

namespace varnholt::basket {
namespace {

class PasteViewerTest : public BasketTest {
 protected:
  void SetUp() override {
    BasketTest::SetUp();
    for (const char* folder : {"C:\\Two", "D:\\Three"})
      gather(folder);
    ASSERT_EQ(paths(), all);
  }
  Form38& viewer() { return basket().Form38; }
  /// In the viewer, which the user leaves again.
  void inViewer(const std::function<void()>& user, const Answers& answers = {}) {
    rig.loop.whenShows("Form38")
        .run([&](controls::Form&) {
          if (viewer().Command8.Caption.get() == "More") viewer().Command8.press();
          user();
        })
        .press("Command4");
    rig.loop.meets(answers);
    rig.command("RegOptions_Click");
    rig.loop.expectAllReached();
    EXPECT_FALSE(rig.app().dispatcher.busy);
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
  void forget() { basket().PasteCollection.reset(); }
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
  ASSERT_TRUE(rig.platform->files.deleteFile("D:\\Three\\a.txt", true));
  inViewer(
      [&] {
        viewer().Command6.press();
        EXPECT_EQ(form().Panel1.path(), "C:\\Two\\");
        viewer().ListView1.focusRow(2);
        viewer().Command6.press();
        viewer().ListView1.DblClick();
      },
      {test::noticed("Selected File/Folder Do NOT Exist !"), test::noticed("File/Folder Path Do Not Exist... !")});
}

TEST_F(PasteViewerTest, SavesWithAQuestionAndLoadsWithAndWithoutAdding) {
  const std::string exists = "Collection File:  Trip.Col\rAlready Exist !, - OverWrite ?";
  inViewer(
      [&] {
        saveAs("");
        saveAs("a?b");
        saveAs(" Trip ");
        EXPECT_EQ(rig.read(collection("Trip.Col")), "C:\\Two\\b.txt\r\n|Fold|D:\\Three\\Sub\r\nD:\\Three\\a.txt\r\n");
        forget();
        saveAs("Trip");
        EXPECT_NE(rig.read(collection("Trip.Col")), "") << "the answer was no";
      },
      {test::told(core::refusedCharacterText('?')), test::noticed("Saved As:  ...\\Trip.Col"), test::no(exists)});
  gather("C:\\One");
  const Names others = paths();
  inViewer([&] {
    load("Trip.Col", 1);
    Names merged = others;
    merged.insert(merged.end(), all.begin(), all.end());
    EXPECT_EQ(paths(), merged);
    load("Trip.Col", 1);
    EXPECT_EQ(paths(), merged) << "each once";
    load("Trip.Col");
    EXPECT_EQ(paths(), all);
    EXPECT_EQ(viewer().Caption.get(), "Paste Viewer, - 3 Item(s) In View");
  });
  inViewer(
      [&] {
        load("Trip.Col");
        viewer().Command7.press();
      },
      {test::yes("Collection File:  Trip.Col\rDelete ?")});
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

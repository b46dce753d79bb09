#include "basket/basket.hpp"
#include "support/app_rig.hpp"

#include <gtest/gtest.h>

namespace varnholt::basket {
namespace {

/// Files in three folders of two drives, and the left panel active.
class BasketTest : public testing::Test {
 protected:
  using Names = std::vector<std::string>;

  void SetUp() override {
    for (const char* path :
         {"C:\\One\\a.txt", "C:\\One\\A.TXT", "C:\\Two\\b.txt", "D:\\Three\\a.txt", "D:\\Three\\Sub\\c.txt"})
      rig.write(path, path);
    rig.makeFolder("C:\\To");
    rig.startLeft();
  }
  panels::Form1& form() { return rig.form(); }
  Basket& basket() { return rig.app().basket; }
  /// Selects all of the folder and adds it to the basket.
  void gather(const std::string& folder) {
    ASSERT_TRUE(rig.app().navigation.goTo(form().Panel1, folder));
    form().Panel1.list.SetFocus();
    for (const std::uint32_t row : {0u, 1u})
      if (row < form().Panel1.list.count()) form().Panel1.list.item(row).setSelected(true);
    rig.command("WinCopy_Click");
  }
  Names paths() {
    Names found;
    for (const core::Item& item : basket().PasteCollection.items())
      found.push_back((item.isFolder ? "|Fold|" : "") + item.path);
    return found;
  }
  test::AppRig rig;
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
  gather("C:\\One");
  EXPECT_EQ(form().Caption.get(), "Varnholt, - Ctrl+C Failed !");
  EXPECT_EQ(paths(), found);
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

#include "support/app_rig.hpp"

namespace varnholt::appearance {
namespace {

class LooksTest : public test::AppTest {
 protected:
  void SetUp() override { rig.startLeft(); }
  void remove(const std::string& name) { ASSERT_TRUE(files().deleteFile(rig.programFolder() + name, true)) << name; }
  /// The line image of every list in a window other than the main ones, by its first letters behind the folder.
  std::set<std::string> lineImages() {
    std::set<std::string> images;
    auto& app = rig.app();
    for (controls::ListView* list : {&app.rename.Form14.ListView1, &app.basket.Form38.ListView1,
                                     &app.presets.Form20.ListView1, &app.presets.Form34.ListView1}) {
      const std::string image = list->Picture;
      EXPECT_EQ(list->PictureAlignment.get(), image.empty() ? 0 : 5);
      images.insert(image.substr(image.rfind('\\') + 1));
    }
    return images;
  }
};

TEST_F(LooksTest, ListsOfOtherWindowsWearTheChosenLinesAlsoThoseThatAreOpen) {
  using Images = std::set<std::string>;
  EXPECT_EQ(lineImages(), Images{""});
  rig.menu("ShiftColorOther").choose();
  EXPECT_EQ(lineImages(), Images{"line34.jpg"});
  EXPECT_TRUE(form().ListView1.Picture->empty());
  rig.menu("BrownBlack").choose();
  EXPECT_EQ(lineImages(), Images{"line34db.jpg"});
  remove("\\line34.jpg");
  rig.loop.meets({test::told("Shift Image File missing In App. Folder !")});
  rig.menu("ShiftColorOther").choose();
  EXPECT_TRUE(rig.menu("ShiftColorOther").Checked);
  ASSERT_TRUE(files().writeFile(rig.programFolder() + "\\line34.jpg", "lines"));
  rig.menu("ShiftColorOther").choose();
  EXPECT_EQ(lineImages(), Images{""});
}

TEST_F(LooksTest, ASkinThatLacksAPictureGivesWayToTheFirstAndThatIsToldOfToo) {
  const std::string missing = "Missing Skinfile !, - Returning to default skin.";
  remove("\\Skins\\Metal\\mainmetal2500.jpg");
  rig.menu("SkinGreen").choose();
  rig.loop.meets({test::told(missing)});
  rig.menu("SkinMetal").choose();
  EXPECT_TRUE(form().Picture->ends_with("mainblue2500.jpg"));
  EXPECT_TRUE(rig.menu("SkinBlue").Checked && !rig.menu("SkinGreen").Checked && !rig.menu("SkinMetal").Checked);
  rig.menu("SkinGreen").choose();
  remove("\\Skins\\Blue\\mainblue800.jpg");
  rig.loop.meets({test::told(missing), test::told("Needed Skinfile Missing !, - Reinstall Program From New, Or Try To "
                                                  "Restart Varnholt.")});
  rig.menu("SkinMetal").choose();
  EXPECT_EQ(rig.app().program.init.Skintype, "0") << "is tried again at the next start";
}

}  // namespace
}  // namespace varnholt::appearance

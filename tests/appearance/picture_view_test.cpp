#include "support/app_rig.hpp"

namespace varnholt::appearance {
namespace {

namespace key = controls::key;

class PictureViewTest : public test::AppTest {
 protected:
  void SetUp() override {
    for (const char* file : {"C:\\Card\\a.jpg", "C:\\Card\\b.txt", "D:\\other.png"})
      rig.write(file);
    rig.makeFolder("C:\\Card\\Sub");
    shell = &rig.useRecordingShell();
    rig.startLeft();
    tool = rig.programFolder() + "\\Tool.gif";
    show("C:\\Card", "D:\\");
    rig.click(right(), "other");
    rig.click(left(), "a");
  }
  PictureView& view() { return rig.app().pictureView; }
  /// What the boxes show, left and right, stretched in brackets; "-" for one that is hidden.
  std::string shown() {
    std::string text;
    for (auto [box, image] : {std::pair{&form().Picture1, &form().Image1}, {&form().Picture2, &form().Image2}}) {
      EXPECT_TRUE(box->Picture->empty() || image->Picture->empty());
      EXPECT_TRUE(box->Visible || !image->Visible);
      const std::string picture = image->Visible ? "[" + image->Picture.get() + "]" : box->Picture.get();
      text += (text.empty() ? "" : " ") + (box->Visible ? picture : "-");
    }
    for (auto at = text.find(tool); at != std::string::npos; at = text.find(tool))
      text.replace(at, tool.size(), "tool");
    return text;
  }

  test::RecordingShell* shell = nullptr;
  std::string tool;
};

TEST_F(PictureViewTest, ThePicturesFollowTheItemsInFocusAsTheUserWalksTheFolder) {
  EXPECT_EQ(shown(), "- -");
  EXPECT_TRUE(form().Image1.Stretch && rig.menu("Picview").Checked);
  form().Command26.press();
  EXPECT_EQ(shown(), "[C:\\Card\\a.jpg] [D:\\other.png]");
  rig.key(left(), key::Down);
  EXPECT_EQ(shown(), "[C:\\Card\\b.txt] [D:\\other.png]") << "what is no picture is known when it is read";
  EXPECT_EQ(form().Image1.Fallback.get(), tool);
  rig.click(left(), "\\ Sub");
  EXPECT_EQ(shown(), "[tool] [D:\\other.png]");
  rig.doubleClick(left(), "\\ Sub");
  EXPECT_EQ(shown(), "[tool] [tool]") << "another folder resets both";
  rig.click(right(), "other");
  ASSERT_TRUE(files().deleteFile(tool, false));
  form().Command18.press();
  EXPECT_EQ(shown(), "[] []") << "nothing without the fallback picture";
  rig.menu("Picview_Toggle").choose();
  EXPECT_EQ(shown(), "- -");
}

TEST_F(PictureViewTest, F12ShowsThePicturesInTheirOwnSizeAndOnTheVirtualDeskTopOnlyItsOwn) {
  form().Command26.press();
  rig.menu("Picview").choose();
  EXPECT_EQ(shown(), "C:\\Card\\a.jpg D:\\other.png");
  EXPECT_FALSE(rig.menu("Picview").Checked);
  form().VDT_Aktive = true;
  view().ViewpicvVDT("C:\\Card\\", "a.jpg");
  EXPECT_EQ(shown(), "C:\\Card\\a.jpg [C:\\Card\\a.jpg]");
  rig.menu("Picview").choose();
  EXPECT_EQ(shown(), "C:\\Card\\a.jpg C:\\Card\\a.jpg");
  EXPECT_FALSE(rig.menu("Picview").Checked);
  view().ViewpicvVDT("C:\\Card\\Sub\\", "<Folder>");
  EXPECT_EQ(shown(), "C:\\Card\\a.jpg tool");
  form().Command4.press();  // is refused without a word
  EXPECT_EQ(shown(), "C:\\Card\\a.jpg tool");
  form().VDT_Aktive = false;
  rig.menu("Picview").choose();
  rig.click(right(), "other");
  EXPECT_EQ(shown(), "[C:\\Card\\a.jpg] [D:\\other.png]");
}

TEST_F(PictureViewTest, ACommandLetsGoOfThePicturesUntilItHasEnded) {
  form().Command26.press();
  rig.loop.whenShows("Form4").run([this](controls::Form& dialog) {
    EXPECT_EQ(shown(), "[tool] [tool]");
    dialog.closeFromUser();
  });
  form().Command4.press();
  EXPECT_EQ(shown(), "[C:\\Card\\a.jpg] [D:\\other.png]");
}

TEST_F(PictureViewTest, ADoubleClickOnAPictureAndAClickOnTheIconOpenTheItem) {
  form().Command26.press();
  EXPECT_FALSE(form().Picture3.IconName->empty());
  rig.app().dispatcher.busy = true;
  form().Image1.DblClick();
  EXPECT_EQ(shell->started.size(), 0u) << "not while a command works";
  rig.app().dispatcher.busy = false;
  const auto opened = [this](const std::function<void()>& act) {
    act();
    return rig.platform->files.readFile(rig.programFolder() + "\\Temp.Url").valueOr("");
  };
  EXPECT_NE(opened([this] { form().Image2.DblClick(); }).find("D:\\other.png"), std::string::npos);
  EXPECT_NE(opened([this] { form().Picture3.Click(); }).find("C:\\Card\\a.jpg"), std::string::npos);
  controls::KeyEvent down;
  down.code = key::Down;
  form().Picture1.KeyDown(down);
  EXPECT_EQ(shown(), "[C:\\Card\\b.txt] [D:\\other.png]") << "keys scroll through the folder";
  EXPECT_NE(opened([this] { form().Picture1.DblClick(); }).find("C:\\Card\\b.txt"), std::string::npos);
  EXPECT_EQ(shell->started.size(), 3u);
  rig.click(left(), "\\ Sub");
  EXPECT_TRUE(form().Picture3.Picture->ends_with("\\vn.ico"));
}

}  // namespace
}  // namespace varnholt::appearance

#include "core/message_dialogs.hpp"
#include "drawn.hpp"
#include "qt/pictures.hpp"
#include "qt/theme.hpp"
#include "qt/widgets/surface.hpp"

#include <map>

namespace varnholt::test {
namespace {

TEST(Pictures, ASkinIsReadNoLargerThanTheWindowNeeds) {
  qt::Pictures pictures;
  pictures.setReader([](const std::string&) { return redPicture(QSize(2500, 1500)); });
  EXPECT_EQ(pictures.covering("C:\\skin.jpg", QSize(1000, 300)).size(), QSize(1250, 750));
  EXPECT_EQ(pictures.covering("C:\\skin.jpg", QSize(2000, 300)).size(), QSize(2000, 1200));
  pictures.decodeAhead("C:\\skin.jpg", QSize(1000, 300));
  EXPECT_EQ(pictures.covering("C:\\skin.jpg", QSize(3000, 2000)).size(), QSize(2500, 1500));
  EXPECT_EQ(pictures.kept("C:\\skin.jpg").size(), QSize(2500, 1500));
}

qt::Pictures::Loaded loaded(qt::Pictures& pictures, const std::string& path, const QSize& area) {
  std::optional<qt::Pictures::Loaded> came;
  pictures.loadBeside(path, area, [&](const qt::Pictures::Loaded& each) { came = each; });
  EXPECT_TRUE(waitFor([&] { return came.has_value(); })) << path;
  return came.value_or(qt::Pictures::Loaded{});
}

TEST(Pictures, ALargeOneIsLoadedNoLargerThanItIsShown) {
  qt::Pictures pictures;
  pictures.setReader([](const std::string&) { return redPicture(QSize(4000, 1000)); });
  const auto small = loaded(pictures, "C:\\photo.jpg", QSize(300, 300));
  EXPECT_EQ(small.image.size(), QSize(500, 125));
  EXPECT_EQ(small.natural, QSize(4000, 1000));
  EXPECT_EQ(loaded(pictures, "C:\\photo.jpg", {}).image.size(), QSize(4000, 1000));
}

TEST(Pictures, WhatCannotBeReadIsNoPicture) {
  qt::Pictures pictures;
  EXPECT_TRUE(loaded(pictures, "C:\\photo.jpg", {}).image.isNull());
  const std::map<std::string, std::string> files{
      {"text.jpg", "no picture"},
      {"empty.png", ""},
      {"cut.png", redPicture(QSize(40, 20)).substr(0, 30)},
      {"cut.jpg", redPicture(QSize(400, 200), "JPG").substr(0, 900)},
      {"bomb.bmp", std::string("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\xff\xff\xff\x7f\xff\xff\xff\x7f\1\0\x20\0", 30) +
                       std::string(40, '\0')}};
  pictures.setReader([&](const std::string& path) {
    const auto file = files.find(path);
    return file == files.end() ? std::optional<std::string>() : file->second;
  });
  for (const char* path : {"text.jpg", "empty.png", "cut.png", "cut.jpg", "bomb.bmp", "pipe.png"}) {
    EXPECT_TRUE(loaded(pictures, path, {}).image.isNull()) << path;
    EXPECT_TRUE(loaded(pictures, path, QSize(100, 100)).image.isNull()) << path;
  }
}

TEST(Skin, ShinesThroughAroundThePanelsAndNeverBehindATextWhateverTheSize) {
  qt::QtMessageLoop loop;
  loop.setPictureReader([](const std::string&) { return redPicture(QSize(80, 50)); });
  core::Form12 form(loop);
  form.Label1.Caption = "No Items selected. !";
  form.Picture = "C:\\skin.jpg";
  form.Show();
  QWidget* window = windowOf(loop, form);
  for (const QSize& size : {QSize(400, 160), QSize(900, 300), QSize(320, 150)}) {
    window->resize(size);
    const QImage drawn = window->grab().toImage();
    EXPECT_EQ(drawn.pixelColor(2, 2), QColor(Qt::red));
    EXPECT_EQ(drawn.pixelColor(drawn.width() - 3, drawn.height() - 3), QColor(Qt::red));
    EXPECT_EQ(drawn.pixelColor(drawn.width() / 2, 12), qt::theme::surface());
  }
}

}  // namespace
}  // namespace varnholt::test

#include "core/message_dialogs.hpp"
#include "drawn.hpp"
#include "qt/pictures.hpp"
#include "qt/theme.hpp"
#include "qt/widgets/surface.hpp"

namespace varnholt::test {
namespace {

TEST(Pictures, ASkinIsReadNoLargerThanTheWindowNeeds) {
  qt::Pictures pictures;
  pictures.setReader([](const std::string&) { return redPicture(QSize(2500, 1500)); });
  EXPECT_EQ(pictures.covering("C:\\skin.jpg", QSize(1000, 300)).size(), QSize(1250, 750));
  EXPECT_EQ(pictures.covering("C:\\skin.jpg", QSize(2000, 300)).size(), QSize(2000, 1200));
  pictures.decodeAhead("C:\\skin.jpg", QSize(1000, 300));
  EXPECT_EQ(pictures.covering("C:\\skin.jpg", QSize(3000, 2000)).size(), QSize(2500, 1500));
  EXPECT_EQ(pictures.fresh("C:\\skin.jpg").size(), QSize(2500, 1500));
}

TEST(Pictures, WhatCannotBeReadIsNoPicture) {
  qt::Pictures pictures;
  EXPECT_TRUE(pictures.fresh("C:\\photo.jpg").isNull());
  pictures.setReader([](const std::string& path) {
    return path == "C:\\gone.jpg" ? std::optional<std::string>() : std::optional<std::string>("no picture");
  });
  EXPECT_TRUE(pictures.fresh("C:\\gone.jpg").isNull());
  EXPECT_TRUE(pictures.covering("C:\\notes.txt", QSize(100, 100)).isNull());
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

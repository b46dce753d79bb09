#include "core/message_dialogs.hpp"
#include "drawn.hpp"
#include "qt/pictures.hpp"
#include "qt/theme.hpp"
#include "qt/widgets/surface.hpp"

#include <QImageReader>

namespace varnholt::test {
namespace {

TEST(Pictures, ASkinIsReadNoLargerThanTheWindowNeeds) {
  qt::Pictures pictures;
  pictures.setReader([](const std::string&, std::uint64_t) { return redPicture(QSize(2500, 1500)); });
  EXPECT_EQ(pictures.covering("C:\\skin.jpg", QSize(1000, 300)).size(), QSize(1250, 750));
  EXPECT_EQ(pictures.covering("C:\\skin.jpg", QSize(2000, 300)).size(), QSize(2000, 1200));
  pictures.decodeAhead("C:\\skin.jpg", QSize(1000, 300));
  EXPECT_EQ(pictures.covering("C:\\skin.jpg", QSize(3000, 2000)).size(), QSize(2500, 1500));
  EXPECT_EQ(pictures.kept("C:\\skin.jpg").size(), QSize(2500, 1500));
}

qt::DecodedPicture loaded(qt::Pictures& pictures, const std::string& path, const qt::PictureWish& wish = {}) {
  std::optional<qt::DecodedPicture> came;
  pictures.loadBeside(path, wish, std::make_shared<std::atomic<bool>>(false),
                      [&](qt::DecodedPicture each) { came = std::move(each); });
  EXPECT_TRUE(waitFor([&] { return came.has_value(); })) << path;
  return came.value_or(qt::DecodedPicture{});
}

TEST(Pictures, ALargeOneIsLoadedNoLargerThanItIsShown) {
  using Fit = qt::PictureWish::Fit;
  qt::Pictures pictures;
  pictures.setReader([](const std::string& path, std::uint64_t) {
    return redPicture(QSize(4000, 1000), path.ends_with("png") ? "PNG" : "JPG");
  });
  const auto small = loaded(pictures, "photo.jpg", {QSize(300, 300)});
  EXPECT_EQ(small.image.size(), QSize(500, 125));
  EXPECT_EQ(small.natural, QSize(4000, 1000));
  EXPECT_EQ(loaded(pictures, "photo.jpg").image.size(), small.natural);
  EXPECT_EQ(loaded(pictures, "photo.jpg", {QSize(300, 300), Fit::Preview}).image.width(), 500);
  EXPECT_TRUE(loaded(pictures, "photo.png", {QSize(300, 300), Fit::Preview}).isWhole()) << "no sooner done in part";
}

TEST(Pictures, OneAboveTheLimitOfMemoryIsDecodedSmallerWhereItsFormatCan) {
  QImageReader::setAllocationLimit(1);  // MB
  qt::Pictures pictures;
  pictures.setReader([](const std::string& path, std::uint64_t) {
    return redPicture(QSize(1200, 600), path.ends_with("bmp") ? "BMP" : "JPG");
  });
  const auto whole = loaded(pictures, "photo.jpg");
  EXPECT_EQ(whole.image.size(), QSize(600, 300));
  EXPECT_EQ(whole.natural, QSize(1200, 600));
  EXPECT_TRUE(loaded(pictures, "photo.bmp", {QSize(100, 100)}).image.isNull());
  QImageReader::setAllocationLimit(256);
}

std::string fileOfProject(const std::string& name) {
  std::ifstream file(std::string(SourceFolder) + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Pictures, AreShownInEveryFormatAndTurnedAsTheCameraSays) {
  // A segment that says that the camera was held upright.
  const std::string upright("\xFF\xE1\0\x22"
                            "Exif\0\0MM\0*\0\0\0\x08\0\1\x01\x12\0\3\0\0\0\1\0\6\0\0\0\0\0\0",
                            36);
  // Those of phones are red left and green right, to be turned by a quarter.
  std::map<std::string, std::string> files{{"heic", fileOfProject("/tests/qt/pictures/turned.heic")},
                                           {"avif", fileOfProject("/tests/qt/pictures/turned.avif")},
                                           {"jpg", redPicture(QSize(64, 32), "JPG").insert(2, upright)},
                                           {"svg", "<svg xmlns='http://www.w3.org/2000/svg' width='32' height='64'>"
                                                   "<rect width='32' height='64' fill='red'/></svg>"}};
  for (const char* format : {"bmp", "tiff"})
    files[format] = redPicture(QSize(32, 64), format);
  const std::string exif = upright.substr(10), length("\0\0\0\x1A", 4);
  files["png"] = redPicture(QSize(64, 32)).insert(33, length + "eXIf" + exif + "\xD6\x67\x4B\x69");
  files["webp"] = redPicture(QSize(64, 32), "WEBP") + "EXIF" + std::string(length.rbegin(), length.rend()) + exif;
  qt::Pictures pictures;
  pictures.setReader([&](const std::string& path, std::uint64_t most) { return files[path].substr(0, most); });
  for (const auto& [format, bytes] : files) {
    const auto whole = loaded(pictures, format);
    ASSERT_EQ(whole.image.size(), QSize(32, 64)) << format;
    EXPECT_GT(whole.image.pixelColor(16, 10).red(), 230) << format;
    EXPECT_EQ(whole.natural, QSize(32, 64)) << format;
    files[format] = bytes.substr(0, bytes.size() / 2);
    EXPECT_TRUE(loaded(pictures, format).image.isNull()) << format << " cut off";
  }
  files["gif"] = fileOfProject("/assets/program/Tool.gif");
  EXPECT_EQ(loaded(pictures, "gif").image.size(), QSize(240, 180));
  files["gif"].resize(files["gif"].size() / 2);
  EXPECT_TRUE(loaded(pictures, "gif").image.isNull()) << "gif cut off";
}

TEST(Pictures, WhatCannotBeReadIsNoPictureAndAFilmIsNotReadToItsEnd) {
  qt::Pictures pictures;
  EXPECT_TRUE(loaded(pictures, "C:\\photo.jpg").image.isNull());
  const std::map<std::string, std::string> files{
      {"text.jpg", "no picture"},
      {"empty.png", ""},
      {"cut.png", redPicture(QSize(40, 20)).substr(0, 30)},
      {"cut.jpg", redPicture(QSize(400, 200), "JPG").substr(0, 900)},
      {"film.mp4", std::string("\0\0\0\x18"
                               "ftypmp42",
                               12)},
      {"bomb.bmp", std::string("BM\0\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\xff\xff\xff\x7f\xff\xff\xff\x7f\1\0\x20\0", 30) +
                       std::string(40, '\0')}};
  std::atomic<std::uint64_t> mostOfFilm = 0;
  pictures.setReader([&](const std::string& path, std::uint64_t most) {
    if (path == "film.mp4") mostOfFilm = std::max<std::uint64_t>(mostOfFilm, most);
    const auto file = files.find(path);
    return file == files.end() ? std::optional<std::string>() : file->second;
  });
  for (const char* path : {"text.jpg", "empty.png", "cut.png", "cut.jpg", "bomb.bmp", "pipe.png", "film.mp4"}) {
    EXPECT_TRUE(loaded(pictures, path).image.isNull()) << path;
    EXPECT_TRUE(loaded(pictures, path, {QSize(100, 100)}).image.isNull()) << path;
  }
  EXPECT_LE(mostOfFilm, 4096u);
}

TEST(Skin, ShinesThroughAroundThePanelsAndNeverBehindATextWhateverTheSize) {
  qt::QtMessageLoop loop;
  loop.setPictureReader([](const std::string&, std::uint64_t) { return redPicture(QSize(80, 50)); });
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

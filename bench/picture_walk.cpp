// What a user waits for who walks through photos with the picture view on, from the press of the key: the whole program
// on a display, over JPEG files of 24 megapixels.
//   bench_picture_walk make FOLDER    makes the files
//   bench_picture_walk FOLDER         prints "case <tab> ours_ms <tab> limit_ms"

#include "drawn_program.hpp"
#include "qt/widgets/picture_view.hpp"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QThread>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>

using namespace varnholt;

namespace {

constexpr int Files = 8, Width = 6000, Height = 4000, Quality = 92;
constexpr qint64 Patience = 20'000;                                      // milliseconds
constexpr double KeyLimit = 50, StretchedLimit = 250, WholeLimit = 800;  // milliseconds

// A photo of soft shapes with the noise of a sensor, about 9 MB. Each has a height of its own, by which it is known.
QImage photo(int number) {
  QImage image(Width, Height + number, QImage::Format_RGB32);
  std::uint32_t noise = 1 + static_cast<std::uint32_t>(number);
  for (int y = 0; y < image.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < Width; ++x) {
      noise = noise * 1664525 + 1013904223;
      const int grain = static_cast<int>(noise >> 28), shape = (x / 40 * (y / 30 + number) % 97) + x * 60 / Width;
      line[x] = qRgb(shape + grain, 60 + y * 90 / Height + grain, 40 + shape / 2 + grain);
    }
  }
  return image;
}

class Measured : public bench::DrawnProgram {
 public:
  using DrawnProgram::DrawnProgram;

 private:
  void measureAll() override {
    image_ = view("Image1");
    box_ = view("Picture1");
    run("Command26_Click");
    key(Qt::Key_Home);
    settle();
    std::vector<double> keys, pictures;
    for (int row = 1; row < Files; ++row) {
      const double drawn = press();
      keys.push_back(drawn);
      pictures.push_back(drawn + waitFor([&] { return isShown(*image_, row); }));
    }
    tell("picture-key", keys, KeyLimit);
    tell("picture-stretched", pictures, StretchedLimit);
    held();
    ownSize();
  }

  // A key held down: no picture that is passed by may hold up the last one.
  void held() {
    constexpr unsigned long Repeat = 33;  // milliseconds
    key(Qt::Key_Home);
    waitFor([&] { return isShown(*image_, 0); });
    std::vector<double> keys;
    for (int row = 1; row < Files; ++row) {
      keys.push_back(press());
      QElapsedTimer pause;
      pause.start();
      while (pause.elapsed() < static_cast<qint64>(Repeat))
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    tell("picture-held-key", keys, KeyLimit);
    std::vector<double> last{Repeat + waitFor([&] { return isShown(*image_, Files - 1); })};
    tell("picture-held-last", last, StretchedLimit);
  }

  void ownSize() {
    run("Picview_Click");
    key(Qt::Key_Home);
    waitFor([&] { return isShown(*box_, 0) && box_->isWhole(); });
    std::vector<double> first, whole;
    for (int row = 1; row < Files; ++row) {
      const double drawn = press();
      first.push_back(drawn + waitFor([&] { return isShown(*box_, row); }));
      whole.push_back(first.back() + waitFor([&] { return box_->isWhole(); }));
    }
    tell("picture-own-size-first", first, StretchedLimit);
    tell("picture-own-size-whole", whole, WholeLimit);
  }

  qt::PictureView* view(const char* name) {
    return widget_->window()->findChild<qt::PictureView*>(QLatin1String(name));
  }
  bool isShown(const qt::PictureView& view, int row) const { return view.naturalSize().height() == Height + row; }

  // Down to the painted row.
  double press() {
    QElapsedTimer timer;
    bench::Painted painted(widget_->viewport());
    timer.start();
    key(Qt::Key_Down);
    loop_.flush();
    while (!painted.seen)
      QCoreApplication::processEvents();
    return milliseconds(timer);
  }
  double waitFor(const std::function<bool()>& condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
      if (timer.elapsed() > Patience) std::_Exit(EXIT_FAILURE);  // not the files that were made for it
      QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    QCoreApplication::processEvents();  // paints it
    return milliseconds(timer);
  }
  static double milliseconds(const QElapsedTimer& timer) { return static_cast<double>(timer.nsecsElapsed()) / 1e6; }

  static void tell(const char* name, std::vector<double>& times, double limit) {
    std::ranges::sort(times);
    std::printf("%s\t%.1f\t%.0f\n", name, times[times.size() / 2], limit);
  }

  qt::PictureView *image_ = nullptr, *box_ = nullptr;
};

int make(const char* folder) {
  for (int number = 0; number < Files; ++number)
    if (!photo(number).save(QDir(QString::fromLocal8Bit(folder)).filePath(QStringLiteral("IMG_%1.jpg").arg(number)),
                            "JPG", Quality))
      return 1;
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string_view(argv[1]) == "make") return make(argv[2]);
  return bench::measureDrawn<Measured>(argc, argv);
}

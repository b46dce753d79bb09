// What a user waits for in the windows of the disk tools: a chart of 2,000 items, and the facts of a drive that does
// not answer: the whole program on a display.
//   bench_disk_tools FOLDER    prints "case <tab> ours_ms <tab> limit_ms"

#include "drawn_program.hpp"

#include <QElapsedTimer>

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <mutex>

using namespace varnholt;

namespace {

constexpr int Rounds = 9, Items = 2000;
constexpr double DrawLimit = 30, OpenLimit = 100;  // milliseconds

/// The drives of the machine, of which none answers while they are held.
class HeldDrives : public platform::Drives {
 public:
  explicit HeldDrives(platform::Drives& real) : real_(real) {}
  void hold(bool on) {
    const std::lock_guard lock(mutex_);
    held_ = on;
    freed_.notify_all();
  }
  std::vector<char> letters() const override { return real_.letters(); }
  platform::Result<platform::DriveInfo> info(char letter) const override {
    std::unique_lock lock(mutex_);
    freed_.wait(lock, [this] { return !held_; });
    return real_.info(letter);
  }
  void refresh() override { real_.refresh(); }
  void watch(std::function<void()> changed) override { real_.watch(std::move(changed)); }

 private:
  platform::Drives& real_;
  mutable std::mutex mutex_;
  mutable std::condition_variable freed_;
  bool held_ = false;
};

/// Made before the program that works on them.
struct OnHeldDrives {
  std::unique_ptr<HeldDrives> drives_;
};

class Measured : private OnHeldDrives, public bench::DrawnProgram {
 public:
  Measured(qt::QtMessageLoop& loop, const std::string& folder)
      : DrawnProgram(loop, folder, [this](platform::Platform& real) { return onHeldDrives(real); }) {}

 private:
  platform::Platform onHeldDrives(platform::Platform& real) {
    drives_ = std::make_unique<HeldDrives>(real.drives);
    return {real.files,        *drives_,          real.environment, real.settings, real.registry, real.shell,
            real.detours,      real.fileTypes,    real.system,      real.clock,    real.regional, real.programFolder,
            real.assetsFolder, real.startNotices, real.toSystem,    real.toProgram};
  }

  void measureAll() override {
    measureChart("chart-2k-pie", controls::Chart::Type::Pie);
    measureChart("chart-2k-bar", controls::Chart::Type::Bar);
    measureDiskInfo();
    std::fflush(stdout);  // a drive that has not answered yet ends the process at once
  }

  void measureChart(const char* name, controls::Chart::Type type) {
    auto& dialog = app_.tools.Form45;
    std::vector<controls::Chart::Value> values;
    for (int item = 0; item < Items; ++item)
      values.push_back({"file-" + std::to_string(item) + ".dat", 1'000.0 * (item * 7919 % Items)});
    dialog.Show();
    settle();
    dialog.MSChart1.Values = values;
    dialog.MSChart1.ChartType = type;
    settle();
    QWidget* drawn = widgetOf("MSChart1", "Form45");
    std::vector<double> times;
    for (int round = 0; round < Rounds; ++round) {
      QElapsedTimer timer;
      timer.start();
      drawn->repaint();
      times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    print(name, times, DrawLimit);
    dialog.UnloadForm();
  }

  void measureDiskInfo() {
    std::vector<double> times;
    for (int round = 0; round < Rounds; ++round) {
      settle();
      drives_->hold(true);
      QElapsedTimer timer;
      timer.start();
      // Within the dialog's own loop, as soon as its window has been drawn.
      loop_.later([&] { awaitPaint(timer, times); });
      run("DiskInfo_Click");
    }
    const double first = times.front();  // its widgets are made then
    std::printf("disk-info-open\t%.1f\t%.1f\n", first, OpenLimit);
    print("disk-info-again", times, OpenLimit);
  }

  void awaitPaint(const QElapsedTimer& timer, std::vector<double>& times) {
    QWidget* drawn = widgetOf("MSChart1", "Form17");
    const bench::Painted painted(drawn);
    drawn->update();
    while (!painted.seen)
      QCoreApplication::processEvents();
    times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    drives_->hold(false);
    app_.tools.Form17.Command3.press();
  }

  static QWidget* widgetOf(const char* name, const char* window) {
    for (QWidget* top : QApplication::topLevelWidgets())
      if (top->objectName() == QLatin1String(window)) return top->findChild<QWidget*>(QLatin1String(name));
    return nullptr;
  }

  static void print(const char* name, std::vector<double>& times, double limit) {
    std::ranges::nth_element(times, times.begin() + Rounds / 2);
    std::printf("%s\t%.1f\t%.1f\n", name, times[Rounds / 2], limit);
  }
};

}  // namespace

int main(int argc, char** argv) { return bench::measureDrawn<Measured>(argc, argv); }

// What a user waits for in a drawn panel of 100,000 rows, from the press to the painted window: the whole program on a
// display, with events as the toolkit sends them.
//   bench_panel_drawn_100k FOLDER            prints "case <tab> ours_ms <tab> limit_ms"
//   bench_panel_drawn_100k FOLDER resident   prints the bytes that the program holds with FOLDER in both panels

#include "app/app.hpp"
#include "qt/run_program.hpp"
#include "qt/widgets/list_view_widget.hpp"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>

#include <unistd.h>

using namespace varnholt;

namespace {

constexpr std::size_t RecallNames = 2'000;
constexpr double Limit = 50, WholePanelLimit = 100;  // milliseconds

/// Of this process, in the memory of the machine.
long residentBytes() {
  long pages = 0;
  if (std::FILE* file = std::fopen("/proc/self/statm", "r")) {
    if (std::fscanf(file, "%*d %ld", &pages) != 1) pages = 0;
    std::fclose(file);
  }
  return pages * ::sysconf(_SC_PAGESIZE);
}

/// Notes that a widget was painted.
class Painted : public QObject {
 public:
  explicit Painted(QObject* watched) { watched->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    seen = seen || event->type() == QEvent::Paint;
    return false;
  }
  bool seen = false;
};

class Running : public qt::RunningProgram {
 public:
  Running(qt::QtMessageLoop& loop, const std::string& folder, bool onlyResident)
      : loop_(loop),
        onlyResident_(onlyResident),
        host_(platform::makePlatformHost(folders(folder))),
        app_(loop, host_->platform()) {
    core::Settings(host_->platform().settings).save(core::setting::Tip_State, "1");
    app_.frmSplash.Timer1.Interval = 1;
    loop.later([this] { measureAll(); });
    app_.Main();
  }
  void storeState() override {}
  void leave() override { loop_.quit(); }

 private:
  platform::HostFolders folders(const std::string& folder) const {
    platform::HostFolders folders;
    folders.data = kept_.path().toStdString();
    folders.drives = "C=" + folder;
    return folders;
  }

  void measureAll() {
    if (!app_.Form1.Visible) return loop_.later([this] { measureAll(); });
    loop_.flush();
    for (QWidget* top : QApplication::topLevelWidgets())
      if (auto* found = top->findChild<qt::ListViewWidget*>(QStringLiteral("ListView1"))) widget_ = found;
    widget_->window()->resize(1280, 800);
    list().SetFocus();
    settle();
    if (onlyResident_) {
      std::printf("%ld\n", residentBytes());
      return loop_.quit();
    }
    measure("drawn-click", Limit, [this] { click(row_ = row_ == 5 ? 9 : 5, {}); });
    measure("drawn-ctrl-click", Limit, [this] { click(row_ = row_ == 5 ? 9 : 5, Qt::ControlModifier); });
    measure("drawn-key", Limit, [this] { key(Qt::Key_Down, {}); });
    measure(
        "drawn-shift-end", Limit, [this] { key(Qt::Key_End, Qt::ShiftModifier); }, [this] { key(Qt::Key_Home, {}); });
    measure(
        "drawn-select-all", Limit, [this] { run("selectall_Click"); }, [this] { key(Qt::Key_Home, {}); });
    measure(
        "drawn-click-after-all", Limit, [this] { click(5, {}); }, [this] { run("selectall_Click"); });
    measure(
        "drawn-ctrl-click-in-all", Limit, [this] { click(5, Qt::ControlModifier); },
        [this] { run("selectall_Click"); });
    for (std::uint32_t number = 0; number < RecallNames; ++number)
      app_.Form1.panelRecall(panels::Side::Left).push(app_.Form1.Panel1.fileName(list().item(number * 50)));
    measure(
        "drawn-recall-2000", Limit, [this] { run("Command16_Click"); }, [this] { click(5, {}); });
    measure(
        "drawn-inverse", WholePanelLimit, [this] { run("Inversel_Click"); }, [this] { click(5, {}); });
    click(5, {});
    for (const auto& [name, column] :
         {std::pair("drawn-sort-name", 1), {"drawn-sort-ext", 2}, {"drawn-sort-size", 3}, {"drawn-sort-date", 4}})
      measure(name, Limit, [this, column = column] { list().headerFromUser(column); });
    measure("drawn-page", Limit,
            [this] { widget_->verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd); });
    loop_.quit();
  }

  controls::ListView& list() { return app_.Form1.ListView1; }
  void run(const char* handler) { app_.dispatcher.perform(handler); }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, modifiers);
      QCoreApplication::sendEvent(widget_, &event);
    }
  }
  void click(int row, Qt::KeyboardModifiers modifiers) {
    widget_->verticalScrollBar()->setValue(0);
    const QPoint at = widget_->visualRect(widget_->model()->index(row, 0)).center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, at, widget_->viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, modifiers);
      QCoreApplication::sendEvent(widget_->viewport(), &event);
    }
  }

  void settle() {
    loop_.flush();
    for (int turn = 0; turn < 5; ++turn)
      QCoreApplication::processEvents();
  }

  void measure(const char* name, double limit, const std::function<void()>& act,
               const std::function<void()>& prepare = {}) {
    std::vector<double> times;
    for (int round = 0; round < 9; ++round) {
      if (prepare) prepare();
      settle();
      Painted painted(widget_->viewport());
      QElapsedTimer timer;
      timer.start();
      act();
      loop_.flush();
      while (!painted.seen)
        QCoreApplication::processEvents();
      times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::nth_element(times, times.begin() + 4);
    std::printf("%s\t%.2f\t%.0f\n", name, times[4], limit);
  }

  QTemporaryDir kept_;
  qt::QtMessageLoop& loop_;
  bool onlyResident_;
  std::unique_ptr<platform::PlatformHost> host_;
  app::App app_;
  qt::ListViewWidget* widget_ = nullptr;
  int row_ = 5;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  return qt::runProgram(argc, argv, [&](qt::QtMessageLoop& loop, const auto&) {
    return std::make_unique<Running>(loop, argv[1], argc > 2);
  });
}

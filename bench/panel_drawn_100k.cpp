// What a user waits for in a drawn panel of 100,000 rows, from the press to the painted window: the whole program on a
// display, with events as the toolkit sends them.
//   bench_panel_drawn_100k FOLDER            prints "case <tab> ours_ms <tab> limit_ms"
//   bench_panel_drawn_100k FOLDER both       prints the bytes that the program holds with FOLDER in both panels
//   bench_panel_drawn_100k FOLDER left       the same with the left panel alone in the folder "big" of FOLDER

#include "drawn_program.hpp"

#include <QElapsedTimer>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string_view>

#include <unistd.h>

using namespace varnholt;

namespace {

constexpr std::size_t RecallNames = 2'000;
constexpr double Limit = 50, WholePanelLimit = 100, GatherLimit = 100, FindLimit = 10;  // milliseconds

/// Of this process, in the memory of the machine.
long residentBytes() {
  long pages = 0;
  if (std::FILE* file = std::fopen("/proc/self/statm", "r")) {
    if (std::fscanf(file, "%*d %ld", &pages) != 1) pages = 0;
    std::fclose(file);
  }
  return pages * ::sysconf(_SC_PAGESIZE);
}

/// Only holds its folder.
class Resident : public bench::DrawnProgram {
 public:
  using DrawnProgram::DrawnProgram;

 protected:
  void measureAll() override { std::printf("%ld\n", residentBytes()); }
};

class ResidentLeft : public Resident {
 public:
  using Resident::Resident;

 private:
  void measureAll() override {
    app_.navigation.goTo(app_.Form1.Panel1, "C:\\big");
    settle();
    Resident::measureAll();
  }
};

class Measured : public bench::DrawnProgram {
 public:
  using DrawnProgram::DrawnProgram;

 private:
  void measureAll() override {
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
    run("selectall_Click");
    auto& basket = app_.basket.PasteCollection;
    const auto gather = [this] { run("WinCopy_Click"); };
    paints_ = false;  // the title alone changes
    measure("basket-gather", GatherLimit, gather, [&] { basket.reset(); });
    measure("basket-gather-beside-as-many", GatherLimit, gather, [&] {
      basket.reset();
      for (std::uint32_t number = 0; number < list().count(); ++number)
        basket.add({"C:\\other\\" + std::to_string(number), false});
    });
    paints_ = true;
    click(5, {});
    for (const auto& [name, column] :
         {std::pair("drawn-sort-name", 1), {"drawn-sort-ext", 2}, {"drawn-sort-size", 3}, {"drawn-sort-date", 4}})
      measure(name, Limit, [this, column = column] { list().headerFromUser(column); });
    measure("drawn-page", Limit,
            [this] { widget_->verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd); });
    measureFind();
  }

  /// One key in the window that finds an item while its name is typed.
  void measureFind() {
    run("QuickFind_Click");
    auto& text = app_.search.Form47.Text1;
    const std::string last = app_.Form1.Panel1.fileName(list().item(list().count() - 1));
    paints_ = false;  // of what is not found the list shows nothing
    for (const auto& [name, typed] :
         {std::pair<const char*, std::string>("find-item-last", last), {"find-item-none", "none of them"}})
      measure(
          name, FindLimit, [&, typed = typed] { text.typeFromUser(typed); }, [&] { text.typeFromUser(""); });
    paints_ = true;
  }

  void click(int row, Qt::KeyboardModifiers modifiers) {
    widget_->verticalScrollBar()->setValue(0);
    const QPoint at = widget_->visualRect(widget_->model()->index(row, 0)).center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent event(type, at, widget_->viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, modifiers);
      QCoreApplication::sendEvent(widget_->viewport(), &event);
    }
  }

  void measure(const char* name, double limit, const std::function<void()>& act,
               const std::function<void()>& prepare = {}) {
    std::vector<double> times;
    for (int round = 0; round < 9; ++round) {
      if (prepare) prepare();
      settle();
      bench::Painted painted(widget_->viewport());
      QElapsedTimer timer;
      timer.start();
      act();
      loop_.flush();
      while (paints_ && !painted.seen)
        QCoreApplication::processEvents();
      times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::nth_element(times, times.begin() + 4);
    std::printf("%s\t%.2f\t%.0f\n", name, times[4], limit);
  }

  int row_ = 5;
  bool paints_ = true;  ///< what is measured has the list painted
};

}  // namespace

int main(int argc, char** argv) {
  const std::string_view what = argc > 2 ? argv[2] : "";
  if (what == "both") return bench::measureDrawn<Resident>(argc, argv);
  if (what == "left") return bench::measureDrawn<ResidentLeft>(argc, argv);
  return bench::measureDrawn<Measured>(argc, argv);
}

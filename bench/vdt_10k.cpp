// What a user waits for whose project points to all files of a folder, until every row is painted with what was found
// out about its target: the whole program on a display. And what noting an open of a file costs behind as many others.
//   bench_vdt_10k FOLDER    prints "case <tab> ours_ms <tab> limit_ms"

#include "core/text_file.hpp"
#include "drawn_program.hpp"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <functional>

using namespace varnholt;

namespace {

constexpr int Rounds = 9;
constexpr double LoadLimit = 100, RefreshLimit = 60, DropLimit = 50, NoteLimit = 1;  // milliseconds

class Measured : public bench::DrawnProgram {
 public:
  using DrawnProgram::DrawnProgram;

 private:
  void measureAll() override {
    auto& vdt = app_.vdt;
    run("LocalDesk_Click");
    vdt.targets.answered = [this, told = vdt.targets.answered] {
      told();
      answered_ = true;
    };
    std::vector<std::string> lines;
    for (std::uint32_t row = 0; row < list().count(); ++row)
      lines.push_back(app_.Form1.Panel1.itemPath(list().item(row)));
    (void)core::writeLines(app_.program.files(), vdt.projects.path(vdt.projects.current()), lines);
    measure("vdt-10k-load", LoadLimit, [&] { vdt.projects.VdtProjectLoad(); });
    app_.Form1.ListView3.focusRow(0);
    measure("vdt-10k-refresh", RefreshLimit, [&] { vdt.ListView3_Click(); });
    int number = 0;
    measure("vdt-10k-drop", DropLimit, [&] {
      controls::DropEvent drop{{"C:\\new-" + std::to_string(++number)}, {}};
      vdt.ListView3_OLEDragDrop(drop);
      answered_ = true;
    });
    measureOpens();
  }

  void measureOpens() {
    QElapsedTimer timer;
    timer.start();
    for (std::uint32_t row = 0; row < list().count(); ++row) {
      const std::string path = app_.Form1.Panel1.itemPath(list().item(row));
      app_.mostUsed.Muf(path);
      app_.opener.Filehis_store(path);
    }
    std::printf("open-noted\t%.3f\t%.0f\n", static_cast<double>(timer.nsecsElapsed()) / 1e6 / list().count(),
                NoteLimit);
  }

  void measure(const char* name, double limit, const std::function<void()>& act) {
    auto* drawn = widget_->window()->findChild<qt::ListViewWidget*>(QStringLiteral("ListView3"));
    std::vector<double> times;
    for (int round = 0; round < Rounds; ++round) {
      settle();
      answered_ = false;
      QElapsedTimer timer;
      timer.start();
      act();
      while (!answered_)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
      const bench::Painted painted(drawn->viewport());
      drawn->viewport()->update();
      loop_.flush();
      while (!painted.seen)
        QCoreApplication::processEvents();
      times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::nth_element(times, times.begin() + Rounds / 2);
    std::printf("%s\t%.1f\t%.1f\n", name, times[Rounds / 2], limit);
  }

  bool answered_ = false;
};

}  // namespace

int main(int argc, char** argv) { return bench::measureDrawn<Measured>(argc, argv); }

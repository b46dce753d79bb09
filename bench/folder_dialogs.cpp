// Compares or makes alike two folders, or scans one for leftovers, through the program's own dialogs, answered as a
// user who goes on would. Prints the microseconds from the press of the button until the lists are filled; for "hits" a
// line a column, tab-separated: the case, the milliseconds of a sort by it, the limit.
//   bench_folder_dialogs compare|sync|scan|hits LEFT RIGHT      (RIGHT is empty, or only a place for a scan)

#include "started_program.hpp"

#include <cstdio>
#include <string>

using namespace varnholt;
using bench::Clock;
using bench::microsecondsSince;

namespace {

class AnsweringLoop : public bench::IdleLoop {
 public:
  explicit AnsweringLoop(std::string what) : what_(std::move(what)) {}

  void runModal(controls::Form& form) override {
    form.Visible = true;
    if (auto* alert = dynamic_cast<core::Form12*>(&form)) std::fprintf(stderr, "%s\n", alert->Label1.Caption->c_str());
    if (auto* notice = dynamic_cast<core::Form13*>(&form))
      std::fprintf(stderr, "%s\n", notice->Label1.Caption->c_str());
    if (auto* dialog = dynamic_cast<compare::Form30*>(&form)) {
      work(*dialog);
    } else if (auto* scan = dynamic_cast<cleanup::Form16*>(&form)) {
      work(*scan);
    } else if (auto* yes = dynamic_cast<controls::Button*>(form.control("Command11"))) {
      yes->press();
    }
    form.Visible = false;
  }
  long microseconds = 0;
  std::uint32_t rows = 0;

 private:
  void press(controls::Button& button) {
    const auto from = Clock::now();
    button.press();
    microseconds = microsecondsSince(from);
  }
  void work(compare::Form30& dialog) {
    dialog.Check3.toggleFromUser();  // one way, from the active panel
    for (controls::CheckBox* test : {&dialog.Check4, &dialog.Check5, &dialog.Check6, &dialog.Check10})
      if (!test->Value) test->toggleFromUser();
    if (what_ == "sync") dialog.Check8.toggleFromUser();
    press(dialog.Command11);
    rows = dialog.ListView1.count();
  }
  void work(cleanup::Form16& dialog) {
    dialog.Command4.press();
    dialog.Check10.toggleFromUser();
    dialog.Text2.typeFromUser("*.none");
    for (const auto& each : dialog.patternBoxes())
      if (!each.box.Value) each.box.toggleFromUser();
    press(dialog.Command1);
    rows = dialog.ListView1.count();
    if (what_ == "hits") sort(dialog);
  }
  void sort(cleanup::Form16& dialog) {
    for (int column = 0; column < static_cast<int>(dialog.ListView1.ColumnHeaders.get().size()); ++column) {
      const auto from = Clock::now();
      dialog.ListView1.headerFromUser(column + 1);
      const std::string first = dialog.ListView1.count() ? dialog.ListView1.cell(0, 0) : std::string();
      std::printf("hits sorted by column %d\t%.1f\t300\n", column + 1,
                  static_cast<double>(microsecondsSince(from)) / 1000);
    }
  }

  std::string what_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  const std::string what = argv[1];
  AnsweringLoop loop(what);
  bench::StartedProgram program(loop, std::string(argv[3]) + ".program");
  app::App& app = program.app();
  if (!program.goTo(app.Form1.Panel1, argv[2]) || !program.goTo(app.Form1.Panel2, argv[3])) return 1;
  const bool ofTwo = what == "compare" || what == "sync";
  ofTwo ? app.compare.Com_Sync_Click() : app.cleanup.Command17_Click();
  if (what != "hits") std::printf("%ld\n", loop.microseconds);
  std::fprintf(stderr, "%u rows\n", loop.rows);
  return 0;
}

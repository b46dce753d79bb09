// Copies, moves, pastes, zips or deletes all files of a folder through the program's own loops, makes them hidden and
// read-only, or tests whether they fit, with the dialogs answered as a user who goes on would. Prints the microseconds
// from the press of the dialog's button, or of Ctrl+V, until the dialog hides.
//   bench_operation_loop copy|move|paste|zip|delete|attributes|validate FROM TO

#include "started_program.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace varnholt;
using bench::Clock;
using bench::microsecondsSince;

namespace {

class AnsweringLoop : public bench::IdleLoop {
 public:
  void runModal(controls::Form& form) override {
    form.Visible = true;
    if (form.name() == "Form12") std::fprintf(stderr, "an alert came up\n");
    if (auto* attributes = dynamic_cast<properties::Form18*>(&form)) {
      attributes->Check2.toggleFromUser();
      attributes->Check3.toggleFromUser();
    }
    if (auto* zip = dynamic_cast<zip::Form41*>(&form)) {
      zip->Text1.Text = target;
      zip->Text2.Text = "packed.zip";
    }
    if (isOperation(form)) begin(&form);
    const bool ofFirst = form.name() == "Form18" || form.name() == "Form41";
    const char* button = ofFirst ? "Command1" : "Command11";
    if (auto* start = dynamic_cast<controls::Button*>(form.control(button))) start->press();
    form.Visible = false;
  }
  void changed(controls::Form& form) override {
    if (isOperation(form) && (!timed_ || timed_ == &form) && !form.Visible && microseconds == 0)
      microseconds = microsecondsSince(from_);
  }
  /// Times the dialog; without one, the next that hides.
  void begin(const controls::Form* dialog = nullptr) {
    timed_ = dialog;
    from_ = Clock::now();
    microseconds = 0;
  }
  long microseconds = 0;
  std::string target;  ///< folder of an archive

 private:
  static bool isOperation(const controls::Form& form) {
    static constexpr std::string_view Forms[] = {"Form3", "Form4", "Form5", "Form18", "Form41", "Form43"};
    return std::ranges::find(Forms, form.name()) != std::end(Forms);
  }
  const controls::Form* timed_ = nullptr;
  Clock::time_point from_ = Clock::now();
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  const std::string operation = argv[1];
  AnsweringLoop loop;
  bench::StartedProgram program(loop, std::string(argv[3]) + "/.program");
  app::App& app = program.app();
  auto& form = app.Form1;
  if (!program.goTo(form.Panel1, argv[2]) || !program.goTo(form.Panel2, argv[3])) return 1;
  app.selection.selectall_Click();
  loop.microseconds = 0;
  if (operation == "copy") app.fileops.Copy.start();
  if (operation == "move") app.fileops.Move.start();
  if (operation == "paste") {
    app.basket.WinCopy_Click();
    form.ListView2.SetFocus();
    loop.begin();
    app.basket.Paste.WinPaste_Click();
  }
  loop.target = form.Panel2.path();
  if (operation == "zip") app.zip.MakeZip_Click();
  if (operation == "delete") app.fileops.Delete.start();
  if (operation == "attributes") app.properties.attributes.multiAtribut_Click();
  if (operation == "validate") {
    const auto from = Clock::now();
    const bool fits = app.fileops.Space.ValidateSpaceNeeded(app.fileops.Form3, form.filecollect, form.Panel1.path(),
                                                            form.Panel2.path());
    loop.microseconds = microsecondsSince(from);
    if (!fits) return 1;
  }
  std::printf("%ld\n", loop.microseconds);
  return 0;
}

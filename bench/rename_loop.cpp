// Renames all files of a folder through the rename dialog, or shows the preview of it, with the dialogs answered as a
// user who goes on would; or does the same renames in a plain loop of system calls. Prints the microseconds that it
// took: of the first, from the press of the dialog's button until it hides, the re-reading of the panels not counted.
//   bench_rename_loop execute|preview|plain FOLDER

#include "started_program.hpp"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <stdio.h>

using namespace varnholt;
namespace fs = std::filesystem;
using bench::Clock;
using bench::microsecondsSince;

namespace {

constexpr const char* Text = "new ";

/// Turns the mask on, and presses the button once the fields are filled.
class MaskingLoop : public bench::IdleLoop {
 public:
  explicit MaskingLoop(bool executes) : executes_(executes) {}

  void runModal(controls::Form& form) override {
    form.Visible = true;
    if (auto* dialog = dynamic_cast<rename::Form14*>(&form)) {
      mask(*dialog);
    } else if (auto* yes = dynamic_cast<controls::Button*>(form.control("Command11"))) {
      yes->press();
    }
    form.Visible = false;
  }
  void changed(controls::Form& form) override {
    if (executes_ && form.name() == "Form14" && !form.Visible && microseconds == 0)
      microseconds = microsecondsSince(from_);
  }
  long microseconds = 0;
  std::uint32_t rows = 0;

 private:
  void mask(rename::Form14& dialog) {
    dialog.Command5.press();
    dialog.Text2.typeFromUser(Text);
    microseconds = 0;
    from_ = Clock::now();
    (executes_ ? dialog.Command6 : dialog.Command7).press();
    if (!executes_) microseconds = microsecondsSince(from_);
    rows = dialog.ListView1.count();
  }

  bool executes_;
  Clock::time_point from_ = Clock::now();
};

// The floor: the same renames in the same order, each in its one call.
int plain(const std::string& folder) {
  std::vector<std::pair<std::string, std::string>> renames;
  for (const auto& entry : fs::directory_iterator(folder)) {
    const std::string name = entry.path().filename();
    renames.emplace_back(folder + "/" + name, folder + "/" + (Text + name));
  }
  std::ranges::sort(renames);
  const auto from = Clock::now();
  for (const auto& [old, now] : renames)
    if (::renameat2(AT_FDCWD, old.c_str(), AT_FDCWD, now.c_str(), RENAME_NOREPLACE) != 0) return 1;
  std::printf("%ld\n", microsecondsSince(from));
  return 0;
}

int throughDialog(const std::string& folder, bool executes) {
  MaskingLoop loop(executes);
  bench::StartedProgram program(loop, folder + ".program");
  app::App& app = program.app();
  if (!program.goTo(app.Form1.Panel1, folder)) return 1;
  app.selection.selectall_Click();
  app.rename.Command14_Click();
  std::printf("%ld\n", loop.microseconds);
  return executes || loop.rows == app.Form1.Panel1.list.count() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const std::string what = argv[1], folder = fs::absolute(argv[2]);
  if (what == "plain") return plain(folder);
  return throughDialog(folder, what == "execute");
}

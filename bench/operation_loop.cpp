// Copies, moves or deletes all files of a folder through the program's own loops, or tests whether they fit, with the
// dialogs answered as a user who goes on would. Prints the microseconds from the press of the dialog's button until it
// has closed, both panels listed again.
//   bench_operation_loop copy|move|delete|validate FROM TO

#include "app/app.hpp"
#include "idle_loop.hpp"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

using namespace varnholt;

namespace {

class AnsweringLoop : public bench::IdleLoop {
 public:
  void runModal(controls::Form& form) override {
    form.Visible = true;
    auto* start = dynamic_cast<controls::Button*>(form.control("Command11"));
    if (form.name() == "Form12") std::fprintf(stderr, "an alert came up\n");
    const auto from = std::chrono::steady_clock::now();
    if (start) start->press();
    form.Visible = false;
    const auto took = std::chrono::steady_clock::now() - from;
    if (form.name() == "Form3" || form.name() == "Form4" || form.name() == "Form5")
      microseconds = std::chrono::duration_cast<std::chrono::microseconds>(took).count();
  }
  long microseconds = 0;
};

std::string programPath(const platform::Platform& platform, const char* path) {
  return platform.toProgram(std::filesystem::absolute(path).string());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  const std::string operation = argv[1];
  const std::filesystem::path scratch = std::filesystem::absolute(argv[3]) / ".program";
  const auto host = platform::makePlatformHost({{}, scratch, {}, "C=/;Z=/"});
  AnsweringLoop loop;
  loop.screen().width = 1280 * controls::TwipsPerPixel;
  app::App app(loop, host->platform());
  core::Settings(host->platform().settings).save(core::setting::Tip_State, "1");
  if (!app.Main()) return 1;
  auto& form = app.Form1;
  form.Activate();
  form.ListView1.SetFocus();
  if (!app.navigation.goTo(form.Panel1, programPath(host->platform(), argv[2])) ||
      !app.navigation.goTo(form.Panel2, programPath(host->platform(), argv[3])))
    return 1;
  app.selection.selectall_Click();
  if (operation == "copy") app.fileops.Copy.start();
  if (operation == "move") app.fileops.Move.start();
  if (operation == "delete") app.fileops.Delete.start();
  if (operation == "validate") {
    const auto from = std::chrono::steady_clock::now();
    app.fileops.Space.ValidateSpaceNeeded(app.fileops.Form3);
    loop.microseconds =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - from).count();
    if (form.SpaceRefused) return 1;
  }
  std::printf("%ld\n", loop.microseconds);
  std::filesystem::remove_all(scratch);
  return 0;
}

// The program from its start to its first painted window (the splash), or with the argument "main" to its painted main
// window, the time that the splash is looked at left out.

#include "app/app.hpp"
#include "first_paint.hpp"
#include "qt/run_program.hpp"

#include <cstdlib>
#include <cstring>

using namespace varnholt;

int main(int argc, char** argv) {
  const bool toMain = argc > 1 && std::strcmp(argv[1], "main") == 0;
  struct Running : qt::RunningProgram {
    explicit Running(controls::MessageLoop& loop) : app(loop, host->platform()) {}
    void storeState() override {}
    void leave() override { std::_Exit(1); }
    std::unique_ptr<platform::PlatformHost> host = platform::makePlatformHost();
    app::App app;
  };
  return qt::runProgram(argc, argv, [&](qt::QtMessageLoop& loop, const auto&) -> std::unique_ptr<qt::RunningProgram> {
    new bench::FirstPaint(toMain ? QStringLiteral("Form1") : QString());
    auto running = std::make_unique<Running>(loop);
    loop.setPictureReader([&files = running->host->platform().files](const std::string& path) {
      const auto bytes = files.readFile(path);
      return bytes ? std::optional(*bytes) : std::nullopt;
    });
    if (toMain) running->app.frmSplash.Timer1.Interval = 1;
    running->app.Main();
    return running;
  });
}

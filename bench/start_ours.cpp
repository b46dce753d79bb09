// The program from its start to its first painted window (the splash), or with the argument "main" to its painted main
// window, the time that the splash is looked at left out.

#include "app/app.hpp"
#include "first_paint.hpp"
#include "qt/run_program.hpp"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

using namespace varnholt;

int main(int argc, char** argv) {
  const bool toMain = argc > 1 && std::strcmp(argv[1], "main") == 0;
  struct Running : qt::RunningProgram {
    Running(controls::MessageLoop& loop, std::unique_ptr<platform::PlatformHost> system)
        : host(std::move(system)), app(loop, host->platform()) {}
    void storeState() override {}
    void leave() override { std::_Exit(1); }
    std::unique_ptr<platform::PlatformHost> host;
    app::App app;
  };
  std::unique_ptr<platform::PlatformHost> host;
  const auto prepare = [&] { host = platform::makePlatformHost(); };
  return qt::runProgram(argc, argv, prepare, [&](auto& loop, const auto&) -> std::unique_ptr<qt::RunningProgram> {
    new bench::FirstPaint(toMain ? QStringLiteral("Form1") : QString());
    auto running = std::make_unique<Running>(loop, std::move(host));
    loop.setPictureReader([&files = running->host->platform().files](const std::string& path, std::uint64_t most) {
      const auto bytes = files.readBeginning(path, most);
      return bytes ? std::optional(*bytes) : std::nullopt;
    });
    if (toMain) running->app.frmSplash.Timer1.Interval = 1;
    running->app.Main();
    return running;
  });
}

#include "app/app.hpp"
#include "qt/run_program.hpp"

using namespace varnholt;

namespace {

/// The running program on this system.
struct Running {
  explicit Running(controls::MessageLoop& loop) : app(loop, host->platform()) {}
  std::unique_ptr<platform::PlatformHost> host = platform::makePlatformHost();
  app::App app;
};

std::shared_ptr<void> start(qt::QtMessageLoop& loop) {
  auto running = std::make_shared<Running>(loop);
  loop.setPictureReader([&files = running->host->platform().files](const std::string& path) {
    const auto bytes = files.readFile(path);
    return bytes ? std::optional(*bytes) : std::nullopt;
  });
  loop.dragAndDrop().setPaths({running->host->platform().toSystem, running->host->platform().toProgram});
  if (!running->app.Main()) loop.quit();
  return running;
}

}  // namespace

int main(int argc, char** argv) { return qt::runProgram(argc, argv, start); }

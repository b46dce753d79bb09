#include "app/app.hpp"
#include "app/arguments.hpp"
#include "core/diagnostic_log.hpp"
#include "platform/crash_report.hpp"
#include "platform/standard_streams.hpp"
#include "qt/run_program.hpp"

#include <cstdio>
#include <memory>
#include <utility>

using namespace varnholt;

namespace {

/// The running program on this system.
class Running : public qt::RunningProgram {
 public:
  Running(controls::MessageLoop& loop, std::unique_ptr<platform::PlatformHost> system)
      : host(std::move(system)), app(loop, host->platform()) {}
  void storeState() override { app.state.StoreProgramState(); }
  void leave() override { app.state.leave(); }

  std::unique_ptr<platform::PlatformHost> host;
  app::App app;
};

std::unique_ptr<qt::RunningProgram> start(qt::QtMessageLoop& loop, const std::vector<std::string>& arguments,
                                          std::unique_ptr<platform::PlatformHost> host) {
  platform::noteDoing("the start");
  auto running = std::make_unique<Running>(loop, std::move(host));
  auto& system = running->host->platform();
  platform::reportCrashes(system.toSystem(system.programFolder), core::programVersion());
  loop.setPictureReader([&files = system.files](const std::string& path, std::uint64_t most) {
    const auto bytes = files.readBeginning(path, most);
    return bytes ? std::optional(*bytes) : std::nullopt;
  });
  loop.dragAndDrop().setPaths({system.toSystem, system.toProgram});
  const auto folders = app::foldersNamed(arguments);
  // A desktop that opens more of them sees no error, so a window is better than none.
  if (folders.size() > 2) std::fputs("varnholt: more than two folders; the first two are shown\n", stderr);
  if (running->app.Main())
    running->app.openFolders(folders);
  else
    loop.quit();
  platform::noteDoing("rest, after the start");
  return running;
}

}  // namespace

int main(int argc, char** argv) {
  platform::openStandardStreams();
  if (const auto answer = app::answerWithoutWindow({argv + 1, argv + argc})) {
    std::fputs(answer->text.c_str(), answer->exitCode == 0 ? stdout : stderr);
    return answer->exitCode;
  }
  std::unique_ptr<platform::PlatformHost> host;
  return qt::runProgram(
      argc, argv, [&] { host = platform::makePlatformHost(); },
      [&](qt::QtMessageLoop& loop, const std::vector<std::string>& arguments) {
        return start(loop, arguments, std::move(host));
      });
}

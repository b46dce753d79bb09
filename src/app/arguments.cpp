#include "app/arguments.hpp"

#include "core/diagnostic_log.hpp"
#include "platform/file_address.hpp"
#include "platform/paths.hpp"

#include <filesystem>

namespace varnholt::app {
namespace {

constexpr const char* Help = "Usage: varnholt [LEFT [RIGHT]]\n"
                             "\n"
                             "Two folders side by side. LEFT and RIGHT are the folders to begin with, as\n"
                             "paths of the system (/home/me/Photos) or of the program (C:\\Photos), or\n"
                             "addresses (file:///home/me/Photos).\n"
                             "\n"
                             "  --help       show this text\n"
                             "  --version    show the version\n"
                             "\n"
                             "Variables: VARNHOLT_DRIVES=\"C=/home/me;D=/data\" chooses the drive letters.\n";

bool isProgramPath(const std::string& text) {
  return !platform::paths::driveOf(text).empty() && (text.size() == 2 || text[2] == '\\');
}

}  // namespace

std::optional<Answer> answerWithoutWindow(const std::vector<std::string>& arguments) {
  for (const std::string& each : arguments) {
    if (each == "--") return {};
    if (each == "--help") return Answer{Help};
    if (each == "--version") return Answer{"Varnholt " + core::programVersion() + "\n"};
    if (each.starts_with("--")) return Answer{"varnholt: no such option: " + each + "\n" + Help, 2};
    // The toolkit's options may have a value behind them.
    if (each.starts_with('-')) return {};
  }
  return {};
}

std::vector<std::string> foldersNamed(const std::vector<std::string>& arguments) {
  namespace fs = std::filesystem;
  std::vector<std::string> folders;
  bool optionsEnded = false;
  for (const std::string& argument : arguments) {
    if (!optionsEnded && argument == "--") {
      optionsEnded = true;
      continue;
    }
    std::error_code failed;
    if (isProgramPath(argument)) {
      folders.push_back(platform::paths::driveOf(argument) + argument.substr(2));
      continue;
    }
    // Some desktops hand over addresses.
    const std::string named = platform::systemPathOfAddress(argument);
    folders.push_back(fs::absolute(named.empty() ? argument : named, failed).lexically_normal().string());
  }
  return folders;
}

}  // namespace varnholt::app

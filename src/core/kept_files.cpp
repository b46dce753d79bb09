#include "core/kept_files.hpp"

#include "core/program.hpp"
#include "platform/paths.hpp"

namespace varnholt::core {

namespace paths = platform::paths;

platform::Result<std::string> moveAside(platform::FileSystem& files, const std::string& path) {
  constexpr int MostTries = 1000;
  platform::Result<void> moved;
  for (int number = 1; number <= MostTries; ++number) {
    std::string aside = path + ".damaged-" + std::to_string(number);
    moved = files.moveFile(path, aside);
    if (moved) return aside;
    if (moved.error().code != platform::ErrorCode::AlreadyThere) break;
  }
  return moved.error();
}

std::string KeptFiles::read(const std::string& path) {
  FileText text = readText(program_.files(), path);
  unread_.erase(path);
  if (!text.whole) unread_.insert(path);
  return std::move(text.bytes);
}

std::vector<std::string> KeptFiles::readLines(const std::string& path) {
  const std::string text = read(path);
  if (endsWithinLine(text)) foundCutOff(path);
  return splitEntries(text);
}

platform::Result<void> KeptFiles::setAside(const std::string& path) {
  if (wasReadWhole(path)) return {};
  const auto aside = moveAside(program_.files(), path);
  if (!aside && aside.error().code != platform::ErrorCode::NotFound) return aside.error();
  unread_.erase(path);
  if (aside)
    program_.dialogs.alert(std::string(paths::fileName(path)) + " could not be read to its end.\rIt is kept as  " +
                           *aside);
  return {};
}

platform::Result<void> KeptFiles::write(const std::string& path, std::string_view bytes) {
  if (const auto free = setAside(path); !free) return free;
  return program_.files().writeFile(path, bytes);
}

platform::Result<void> KeptFiles::writeLines(const std::string& path, const std::vector<std::string>& lines) {
  if (const auto free = setAside(path); !free) return free;
  return core::writeLines(program_.files(), path, lines);
}

}  // namespace varnholt::core

#include "panels/histories.hpp"

#include "core/program_files.hpp"
#include "core/text_file.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>

namespace varnholt::panels {
namespace {

namespace file = core::program_file;
namespace paths = platform::paths;

std::vector<std::string> read(const core::Program& program, std::string_view literal) {
  return core::readLines(program.files(), file::path(program.platform, literal));
}

void write(const core::Program& program, std::string_view literal, const std::vector<std::string>& lines) {
  (void)core::writeLines(program.files(), file::path(program.platform, literal), lines);
}

}  // namespace

bool History::contains(const std::string& text) const {
  const std::string wanted = platform::foldCase(text);
  return std::ranges::any_of(entries_, [&](const std::string& each) { return platform::foldCase(each) == wanted; });
}

bool History::add(const std::string& text) {
  if (text.empty() || contains(text)) return false;
  entries_.push_back(text);
  if (entries_.size() > limit_) entries_.erase(entries_.begin());
  return true;
}

void History::assign(std::vector<std::string> entries) {
  entries_.clear();
  for (const auto& entry : entries)
    add(entry);
}

void Histories::noteLastFolder(const std::string& folder) {
  const std::string drive = paths::driveOf(folder);
  if (drive.empty()) return;
  std::erase_if(lastFolders, [&](const std::string& each) { return paths::driveOf(each) == drive; });
  lastFolders.push_back(paths::withClosing(folder));
}

std::string Histories::lastFolder(std::string_view drive) const {
  const auto found = std::find_if(lastFolders.rbegin(), lastFolders.rend(),
                                  [&](const std::string& each) { return paths::driveOf(each) == drive; });
  return found == lastFolders.rend() ? std::string() : *found;
}

void Histories::load(const core::Program& program) {
  std::vector<std::string> existing;
  for (const auto& line : read(program, file::DirHis))
    if (program.files().folderExists(line)) existing.push_back(paths::withClosing(line));
  folders.assign(std::move(existing));
  files.assign(read(program, file::FileHis));
  compareRight.assign(read(program, file::CompHis_R));
  compareLeft.assign(read(program, file::CompHis_L));
  for (const auto& line : read(program, file::GetFolders))
    noteLastFolder(line);
}

void Histories::store(const core::Program& program) const {
  write(program, file::DirHis, folders.entries());
  write(program, file::FileHis, files.entries());
  write(program, file::GetFolders, lastFolders);
}

}  // namespace varnholt::panels

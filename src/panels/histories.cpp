#include "panels/histories.hpp"

#include "core/program_files.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <map>
#include <memory>
#include <unordered_set>
#include <utility>

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;

constexpr std::size_t DriveLetters = 26;

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

void History::renew(const std::string& text) {
  remove(text);
  add(text);
}

void History::remove(const std::string& text) {
  const std::string unwanted = platform::foldCase(text);
  std::erase_if(entries_, [&](const std::string& each) { return platform::foldCase(each) == unwanted; });
}

void History::assign(std::vector<std::string> entries) {
  std::unordered_set<std::string> known;
  std::erase_if(
      entries, [&](const std::string& each) { return each.empty() || !known.insert(platform::foldCase(each)).second; });
  if (entries.size() > limit_) entries.erase(entries.begin(), entries.end() - static_cast<std::ptrdiff_t>(limit_));
  entries_ = std::move(entries);
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
  const auto loadFolders = [&](History& history, core::SharedLines& file) {
    std::vector<std::string> known = file.load(program);
    for (std::string& line : known)
      line = paths::withClosing(line);
    history.assign(std::move(known));
  };
  loadFolders(folders, foldersFile_);
  files.assign(filesFile_.load(program));
  loadFolders(compareRight, compareRightFile_);
  loadFolders(compareLeft, compareLeftFile_);
  for (const auto& line : lastFoldersFile_.load(program))
    noteLastFolder(line);
}

void Histories::forgetVanished(const core::Program& program, std::function<void()> changed) {
  std::map<std::string, std::vector<std::string>> byDrive;
  for (const auto& folder : folders.entries())
    byDrive[paths::driveOf(folder)].push_back(folder);
  for (auto& [drive, asked] : byDrive) {
    auto gone = std::make_shared<std::vector<std::string>>(std::move(asked));
    program.loop.runBeside(
        [gone, &disk = program.platform.files] {
          std::erase_if(*gone, [&](const std::string& folder) {
            const auto path = disk.resolve(folder);
            return path && disk.folderExists(*path);
          });
        },
        [this, gone, changed] {
          for (const auto& folder : *gone)
            folders.remove(folder);
          if (!gone->empty()) changed();
        });
  }
}

platform::Result<void> Histories::storeFolders(const core::Program& program) {
  return foldersFile_.store(program, folders.entries(), folders.limit());
}

void Histories::ComphisL_save(const core::Program& program) {
  if (!compareLeft.entries().empty()) (void)compareLeftFile_.store(program, compareLeft.entries(), compareLeft.limit());
}

void Histories::ComphisR_save(const core::Program& program) {
  if (!compareRight.entries().empty())
    (void)compareRightFile_.store(program, compareRight.entries(), compareRight.limit());
}

std::vector<platform::Result<void>> Histories::store(const core::Program& program) {
  return {storeFolders(program), filesFile_.store(program, files.entries(), files.limit()),
          lastFoldersFile_.store(program, lastFolders, DriveLetters, paths::driveOf)};
}

}  // namespace varnholt::panels

#include "platform/posix/file_facts.hpp"

#include "platform/posix/dirents.hpp"
#include "platform/posix/entry_facts.hpp"
#include "platform/posix/path_map.hpp"
#include "platform/posix/unique_fd.hpp"
#include "platform/posix/workers.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <optional>
#include <unordered_set>

#include <fcntl.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {
namespace {

/// The names of a folder that holds at most `limit` of them, lowered, for a volume may know no case; nothing for a
/// fuller one.
std::optional<std::unordered_set<std::string>> fewNames(int folder, std::size_t limit) {
  std::unordered_set<std::string> names;
  DirentBatch batch;
  while (batch.read(folder) > 0) {
    batch.forEach([&](const char* name, unsigned char) { return names.insert(foldCase(name)), true; });
    if (names.size() > limit) return {};
  }
  return names;
}

FileFacts askFacts(int folder, const char* name) {
  constexpr unsigned Wanted = STATX_TYPE | STATX_SIZE | STATX_MTIME;
  FileFacts facts;
  struct statx asked;
  if (::statx(folder, name, AT_NO_AUTOMOUNT, Wanted, &asked) == 0) {
    if (S_ISDIR(asked.stx_mode)) return facts;
  } else if (::statx(folder, name, AT_NO_AUTOMOUNT | AT_SYMLINK_NOFOLLOW, Wanted, &asked) != 0) {
    facts.isThere = errno != ENOENT && errno != ENOTDIR && errno != ENAMETOOLONG && errno != ELOOP;
    return facts;
  }
  facts.isThere = facts.hasDates = true;
  facts.size = asked.stx_size;
  facts.modified = {asked.stx_mtime.tv_sec, static_cast<std::int32_t>(asked.stx_mtime.tv_nsec)};
  return facts;
}

/// Runs `ask` with the number and the system form of each name, on several threads.
template <class Ask>
void forEachName(const std::vector<std::string>& names, const Ask& ask) {
  constexpr std::size_t Block = 256;
  std::atomic<std::size_t> next = 0;
  const std::size_t blocks = (names.size() + Block - 1) / Block;
  runWorkers(static_cast<unsigned>(std::min<std::size_t>(workerCount(), blocks)), [&](unsigned) {
    for (std::size_t from = next.fetch_add(Block); from < names.size(); from = next.fetch_add(Block))
      for (std::size_t at = from; at < std::min(from + Block, names.size()); ++at)
        ask(at, PathMap::nameToSystem(names[at]));
  });
}

/// Whether most of the names are there, by a few from all over.
bool mostAreThere(int folder, const std::vector<std::string>& names) {
  constexpr std::size_t Few = 32;
  const std::size_t step = names.size() / Few + 1;
  std::size_t asked = 0, found = 0;
  for (std::size_t at = 0; at < names.size(); at += step, ++asked)
    found += askFacts(folder, PathMap::nameToSystem(names[at]).c_str()).isThere;
  return found * 2 >= asked;
}

}  // namespace

std::vector<FileFacts> factsOf(const std::string& systemFolder, const std::vector<std::string>& names) {
  std::vector<FileFacts> facts(names.size());
  const UniqueFd folder(::open(systemFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
  if (!folder) return facts;
  // Where most are not there, the folder's own word is quicker than a question for each.
  std::optional<std::unordered_set<std::string>> there;
  if (!mostAreThere(folder.get(), names)) there = fewNames(folder.get(), names.size() / 4);
  forEachName(names, [&](std::size_t at, const std::string& name) {
    if (!there || there->contains(foldCase(name))) facts[at] = askFacts(folder.get(), name.c_str());
  });
  return facts;
}

std::vector<std::optional<Attributes>> attributesOf(const std::string& systemFolder,
                                                    const std::vector<std::string>& names) {
  std::vector<std::optional<Attributes>> attributes(names.size());
  forEachName(names, [&](std::size_t at, const std::string& name) {
    Entry entry;
    entry.name = name;
    if (readPathFacts((systemFolder + '/' + name).c_str(), entry) == 0 && entry.kind != EntryKind::Folder)
      attributes[at] = Attributes{entry.attributes};
  });
  return attributes;
}

}  // namespace varnholt::platform::posix

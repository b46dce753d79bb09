#include "platform/posix/file_batch.hpp"

#include "platform/posix/copy_file.hpp"
#include "platform/posix/entry_facts.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/unique_fd.hpp"
#include "platform/posix/workers.hpp"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <limits>

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

using Names = std::vector<std::string>;

UniqueFd openFolder(const std::string& folder) {
  return UniqueFd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

/// The sizes of the first names, up to the first for which `look`, made anew for each worker, gives none. Nothing is
/// changed meanwhile, so several workers look at once: in a large folder finding a name is half of the work.
template <class MakeLook>
std::vector<std::uint64_t> plainSizes(const Names& names, const MakeLook& makeLook) {
  constexpr std::size_t Block = 32;
  std::vector<std::uint64_t> sizes(names.size());
  std::atomic<std::size_t> next = 0, end = names.size();
  const std::size_t blocks = (names.size() + Block - 1) / Block;
  runWorkers(static_cast<unsigned>(std::min<std::size_t>(workerCount(), blocks)), [&](unsigned) {
    auto look = makeLook();
    for (std::size_t from = next.fetch_add(Block); from < end; from = next.fetch_add(Block))
      for (std::size_t at = from; at < std::min(from + Block, end.load()); ++at)
        if (const std::optional<std::uint64_t> size = look(names[at].c_str()))
          sizes[at] = *size;
        else
          for (std::size_t before = end; at < before && !end.compare_exchange_weak(before, at);) {
          }
  });
  sizes.resize(end);
  return sizes;
}

bool isFree(int folder, const char* name) {
  struct stat facts {};
  return ::fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT;
}

/// The sizes of the first names, up to the first that is no file of at most `limit` bytes or not free in the target.
std::vector<std::uint64_t> sizesOfNew(const Names& names, int source, int target, std::uint64_t limit) {
  return plainSizes(names, [=] {
    return [=](const char* name) -> std::optional<std::uint64_t> {
      struct stat facts {};
      const bool isFile = ::fstatat(source, name, &facts, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(facts.st_mode);
      const auto size = static_cast<std::uint64_t>(facts.st_size);
      return isFile && size <= limit && isFree(target, name) ? std::optional(size) : std::nullopt;
    };
  });
}

/// Runs `work` for each index, several at once, and begins no further one when one has failed or the caller, who is
/// asked on his own thread, wants no more. Gives the results up to the first that was not begun.
template <class Work>
BatchResults runBatch(std::size_t count, unsigned mostWorkers, const Progress& progress, const Work& work) {
  std::vector<std::optional<Result<std::uint64_t>>> done(count);
  std::atomic<std::size_t> next = 0;
  std::atomic<bool> over = false;
  const unsigned workers = static_cast<unsigned>(std::min<std::size_t>(mostWorkers, count));
  runWorkers(workers, [&](unsigned worker) {
    auto step = work();
    for (std::size_t at = next++; at < count && !over; at = next++) {
      done[at] = step(at);
      if (!*done[at] || (worker == 0 && progress && !progress(at + 1))) over = true;
    }
  });
  BatchResults results;
  for (auto& each : done) {
    if (!each) break;
    results.push_back(std::move(*each));
  }
  return results;
}

class NoStop final : public CopyMonitor {
 public:
  bool add(std::uint64_t) override { return true; }
};

}  // namespace

BatchResults copyBatch(const std::string& from, const Names& names, const std::string& to, std::uint64_t limit,
                       const Progress& progress) {
  const UniqueFd source = openFolder(from), target = openFolder(to);
  if (!source || !target) return {};
  sweepLeftovers(target.get());
  const auto sizes = sizesOfNew(names, source.get(), target.get(), limit);
  const auto fromStore = AttributeStore::ofDescriptor(source.get()),
             toStore = AttributeStore::ofDescriptor(target.get());
  NoStop monitor;
  return runBatch(sizes.size(), workerCount(), progress, [&] {
    CopySide fromSide{source.get(), fromStore}, toSide{target.get(), toStore};
    return [&, fromSide, toSide](std::size_t at) mutable -> Result<std::uint64_t> {
      const char* name = names[at].c_str();
      auto failure = copyEntry(fromSide, name, DT_REG, toSide, name, {.targetIsFree = true}, monitor);
      if (!failure) return sizes[at];
      failure->error.path = (failure->atTarget ? to : from) + '/' + name;
      return failure->error;
    };
  });
}

// One after the other: the kernel lets one rename at a time into a folder. The names it looks for then are known to it
// from the look before, which is made by several at once.
BatchResults moveBatch(const std::string& from, const Names& names, const std::string& to, const Progress& progress) {
  const UniqueFd source = openFolder(from), target = openFolder(to);
  BatchResults results;
  if (!source || !target) return results;
  sweepLeftovers(source.get());
  sweepLeftovers(target.get());
  const auto sizes = sizesOfNew(names, source.get(), target.get(), std::numeric_limits<std::uint64_t>::max());
  for (std::size_t at = 0; at < sizes.size(); ++at) {
    const char* name = names[at].c_str();
    if (::renameat2(source.get(), name, target.get(), name, RENAME_NOREPLACE) != 0) break;
    results.emplace_back(sizes[at]);
    if (progress && !progress(results.size())) break;
  }
  return results;
}

BatchResults deleteBatch(const std::string& folder, const Names& names, const Progress& progress) {
  const UniqueFd open = openFolder(folder);
  if (!open) return {};
  sweepLeftovers(open.get());
  const auto folderStore = AttributeStore::ofDescriptor(open.get());
  const auto sizes = plainSizes(names, [&] {
    return [&, store = folderStore](const char* name) mutable -> std::optional<std::uint64_t> {
      Entry facts;
      facts.name = name;
      const std::string path = folder + '/' + name;
      const bool isPlain = readEntryFacts(open.get(), name, path.c_str(), DT_UNKNOWN, store, facts) == 0 &&
                           !facts.isLink && facts.kind == EntryKind::File && facts.attributes == attribute::Archive;
      return isPlain ? std::optional(facts.size) : std::nullopt;
    };
  });
  return runBatch(sizes.size(), deleteWorkerCount(), progress, [&] {
    return [&](std::size_t at) -> Result<std::uint64_t> {
      if (::unlinkat(open.get(), names[at].c_str(), 0) == 0) return sizes[at];
      return systemError(errno, folder + '/' + names[at]);
    };
  });
}

std::vector<Result<bool>> attributesBatch(const std::string& folder, const Names& names, Attributes attributes,
                                          std::span<const Attributes> spared) {
  std::vector<Result<bool>> results(names.size(), false);
  std::atomic<std::size_t> next = 0;
  runWorkers(static_cast<unsigned>(std::min<std::size_t>(workerCount(), names.size())), [&](unsigned) {
    for (std::size_t at = next++; at < names.size(); at = next++)
      results[at] = setAttributesUnless(folder + '/' + names[at], spared, attributes);
  });
  return results;
}

}  // namespace varnholt::platform::posix

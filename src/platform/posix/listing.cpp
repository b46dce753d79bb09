#include "platform/posix/listing.hpp"

#include "platform/posix/dirents.hpp"
#include "platform/posix/entry_facts.hpp"
#include "platform/posix/listing_order.hpp"
#include "platform/posix/path_map.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/unique_fd.hpp"
#include "platform/posix/workers.hpp"
#include "platform/text_fold.hpp"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include <fcntl.h>
#include <malloc.h>
#include <sched.h>

namespace varnholt::platform::posix {
namespace {

constexpr size_t LargeFolder = 200'000;

/// Bytes of names in blocks that never move, so that views into them stay good.
class NameArena {
 public:
  std::string_view add(std::string_view text) {
    if (text.size() > left_) {
      left_ = std::max(blockSize, text.size());
      blocks_.push_back(std::make_unique<char[]>(left_));
      next_ = blocks_.back().get();
    }
    char* place = next_;
    text.copy(place, text.size());
    next_ += text.size();
    left_ -= text.size();
    return {place, text.size()};
  }

 private:
  static constexpr size_t blockSize = 256 * 1024;
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* next_ = nullptr;
  size_t left_ = 0;
};

class PosixListing final : public Listing {
 public:
  std::vector<Entry>& foldersForFilling() { return folders_; }
  std::vector<Entry>& filesForFilling() { return files_; }
  void keep(NameArena names) { names_.push_back(std::move(names)); }

 private:
  std::vector<NameArena> names_;
};

/// Batches on their way from the reader to the workers.
class BatchQueue {
 public:
  void push(DirentBatch batch) {
    const std::lock_guard lock(mutex_);
    batches_.push_back(std::move(batch));
    changed_.notify_one();
  }
  void close() {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    changed_.notify_all();
  }
  std::optional<DirentBatch> pop() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return closed_ || !batches_.empty(); });
    if (batches_.empty()) return {};
    DirentBatch batch = std::move(batches_.front());
    batches_.pop_front();
    return batch;
  }
  /// Nothing while the workers keep up. Never waits.
  std::optional<DirentBatch> popWhenLong() {
    const std::lock_guard lock(mutex_);
    if (batches_.size() <= longQueue) return {};
    DirentBatch batch = std::move(batches_.back());
    batches_.pop_back();
    return batch;
  }

 private:
  static constexpr size_t longQueue = 64;  // two megabytes
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<DirentBatch> batches_;
  bool closed_ = false;
};

/// What one worker found. Lowered names are needed for the sort only.
class EntryCollector {
 public:
  explicit EntryCollector(int folder) : folder_(folder), store_(AttributeStore::ofDescriptor(folder)) {}

  /// To be called on a thread that is ours alone: extended attributes have no calls relative to an open folder, so
  /// the thread leaves the working folder that it shares with the process and goes into this one.
  void enterFolder() { inFolder_ = ::unshare(CLONE_FS) == 0 && ::fchdir(folder_) == 0; }

  void collect(const DirentBatch& batch) {
    batch.forEach([this](const char* name, unsigned char type) {
      add(name, type);
      return true;
    });
  }

  void appendRows(std::vector<SortRow>& folders, std::vector<SortRow>& files) const {
    for (size_t i = 0; i < entries_.size(); ++i)
      (entries_[i].kind == EntryKind::Folder ? folders : files).push_back({folded_[i], &entries_[i]});
  }

  size_t size() const { return entries_.size(); }
  NameArena takeNames() { return std::move(names_); }

 private:
  void add(const char* name, unsigned char type) {
    programName_.clear();
    PathMap::appendNameToProgram(name, programName_);
    Entry entry;
    entry.name = programName_;
    if (readEntryFacts(inFolder_ ? AT_FDCWD : folder_, name, xattrPath(name), type, store_, entry) != 0) return;
    entry.name = names_.add(programName_);
    foldedName_.clear();
    appendFolded(programName_, foldedName_);
    folded_.push_back(foldedName_ == programName_ ? entry.name : foldedNames_.add(foldedName_));
    entries_.push_back(entry);
  }

  const char* xattrPath(const char* name) {
    if (inFolder_) return name;
    path_ = "/proc/self/fd/" + std::to_string(folder_) + "/" + name;
    return path_.c_str();
  }

  int folder_;
  bool inFolder_ = false;
  AttributeStore store_;
  std::vector<Entry> entries_;
  std::vector<std::string_view> folded_;
  NameArena names_, foldedNames_;
  std::string programName_, foldedName_, path_;
};

/// Reads all names and has them asked. Gives 0 or errno of the read.
int collectEntries(int folder, std::vector<EntryCollector>& collectors) {
  BatchQueue queue;
  std::vector<std::thread> threads;
  const auto work = [&](EntryCollector& collector, bool ownThread) {
    if (ownThread) collector.enterFolder();
    while (auto batch = queue.pop())
      collector.collect(*batch);
  };
  int error = 0;
  for (bool isLast = false; !isLast;) {
    DirentBatch batch;
    const ssize_t got = batch.read(folder);
    error = got < 0 ? errno : 0;
    if (got <= 0) break;
    isLast = batch.isLast();
    queue.push(std::move(batch));
    // A small folder is done by the first worker before the second one would have started.
    if (threads.size() + 1 < collectors.size()) {
      try {
        threads.emplace_back(work, std::ref(collectors[threads.size()]), true);
      } catch (const std::system_error&) {
        // Without a thread the reader asks for itself.
      }
    }
    if (const auto late = queue.popWhenLong()) collectors.back().collect(*late);
  }
  queue.close();
  if (threads.empty()) work(collectors.back(), false);
  for (std::thread& thread : threads)
    thread.join();
  return error;
}

void takeSorted(std::vector<SortRow>& rows, std::vector<Entry>& out) {
  sortRows(rows);
  out.reserve(rows.size());
  for (const SortRow& row : rows)
    out.push_back(*row.entry);
}

// A folder of a million files is sorted in arrays of many megabytes. The allocator learns from the first of them to
// keep what is given back, for the next one. A window's own blocks are smaller and better kept, so this is left to the
// first such folder.
void returnLargeBlocks() {
  constexpr int LargeBlock = 4 << 20;
  ::mallopt(M_MMAP_THRESHOLD, LargeBlock);
  ::mallopt(M_TRIM_THRESHOLD, LargeBlock);
}

ListingPtr makeListing(std::vector<EntryCollector>& collectors) {
  std::vector<SortRow> folders, files;
  size_t total = 0;
  for (const EntryCollector& collector : collectors)
    total += collector.size();
  if (total >= LargeFolder) returnLargeBlocks();
  files.reserve(total);
  for (const EntryCollector& collector : collectors)
    collector.appendRows(folders, files);
  auto listing = std::make_shared<PosixListing>();
  takeSorted(folders, listing->foldersForFilling());
  takeSorted(files, listing->filesForFilling());
  for (EntryCollector& collector : collectors)
    listing->keep(collector.takeNames());
  return listing;
}

}  // namespace

Result<ListingPtr> readListing(const std::string& path) {
  const UniqueFd folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
  if (!folder) return systemError(errno, path);
  // One for each worker, and the last for the reader itself.
  std::vector<EntryCollector> collectors;
  for (unsigned i = 0; i < workerCount() + 1; ++i)
    collectors.emplace_back(folder.get());
  if (const int error = collectEntries(folder.get(), collectors)) return systemError(error, path);
  auto listing = makeListing(collectors);
  collectors.clear();
  // The smaller blocks, too, by which the workers' arrays grew: they lie between those of the names.
  if (listing->files().size() >= LargeFolder) ::malloc_trim(0);
  return listing;
}

}  // namespace varnholt::platform::posix

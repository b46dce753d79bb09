#include "vnzip/archive.hpp"

#include "platform/posix/temp_file.hpp"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <string_view>
#include <unordered_set>

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>

namespace varnholt::vnzip {
namespace {

using platform::posix::UniqueFd;

constexpr std::uint64_t LargeFile = 0xF0000000;  // from here on packed sizes may need eight bytes
constexpr std::size_t BufferLength = 256 * 1024;
constexpr std::uint16_t Stored = 0, Deflated = 8;

std::string realPath(const std::string& path) {
  char resolved[PATH_MAX];
  return ::realpath(path.c_str(), resolved) ? resolved : path;
}

bool copyRange(int from, std::uint64_t offset, int to, std::uint64_t target, std::uint64_t count) {
  auto in = static_cast<off_t>(offset), out = static_cast<off_t>(target);
  while (count > 0) {
    const ssize_t done = ::copy_file_range(from, &in, to, &out, count, 0);
    if (done < 0 && errno == EINTR) continue;
    if (done <= 0) break;
    count -= static_cast<std::uint64_t>(done);
  }
  std::string bytes(std::min<std::uint64_t>(count, 1u << 20), '\0');
  while (count > 0) {
    const std::size_t part = std::min<std::uint64_t>(count, bytes.size());
    if (!readAt(from, bytes.data(), part, static_cast<std::uint64_t>(in)) ||
        !writeAt(to, bytes.data(), part, static_cast<std::uint64_t>(out)))
      return false;
    in += static_cast<off_t>(part), out += static_cast<off_t>(part), count -= part;
  }
  return true;
}

bool isUtf8(const std::string& text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const std::size_t length = byte < 0x80                   ? 1
                               : byte >= 0xC2 && byte < 0xE0 ? 2
                               : (byte & 0xF0) == 0xE0       ? 3
                               : byte >= 0xF0 && byte < 0xF5 ? 4
                                                             : 0;
    if (length == 0 || at + length > text.size()) return false;
    for (std::size_t next = 1; next < length; ++next)
      if ((static_cast<unsigned char>(text[at + next]) & 0xC0) != 0x80) return false;
    at += length;
  }
  return true;
}

bool isPlain(const std::string& text) {
  return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

NewEntry entryOf(const Source& source) {
  NewEntry entry;
  entry.name = source.name;
  entry.isUtf8 = !isPlain(source.name) && isUtf8(source.name);
  entry.modified = source.modified.tv_sec;
  entry.size = source.size;
  entry.external = static_cast<std::uint32_t>(source.mode) << 16 | source.attributes;
  entry.large = source.size >= LargeFile;
  return entry;
}

}  // namespace

ArchiveRun::ArchiveRun(std::string path, LeftOut leftOut)
    : path_(std::move(path)), leftOut_(std::move(leftOut)), sources_(leftOut_) {}

ArchiveRun::~ArchiveRun() {
  for (const Draft& draft : drafts_)
    if (draft.fd && !draft.name.empty()) ::unlinkat(folder_.get(), draft.name.c_str(), 0);
}

ArchiveRun::End ArchiveRun::add(const Taking& taking, Existing existing, const std::vector<std::string>& fileSpecs,
                                const GoesOn& goesOn) {
  if (fileSpecs.empty()) return End::Done;
  if (!begun_ && !begin()) return End::Failed;
  auto sources = sources_.expand(taking, fileSpecs);
  passOver(sources, existing);
  if (sources.empty()) return sources_.dropNames(), End::Done;
  if (!prepare(sources)) return sources_.dropNames(), End::Failed;
  Draft& draft = drafts_[current_ == 0 ? 1 : 0];
  const std::uint64_t before = draft.end;
  std::vector<Entry> added;
  End end = pack(draft, sources, goesOn, added);
  if (end == End::Done && !added.empty() && !finish(draft, std::move(added))) end = End::Failed;
  if (end == End::Done) return sources_.keepNames(), end;
  draft.end = before;
  sources_.dropNames();
  return end;
}

void ArchiveRun::end() {
  constexpr std::uint64_t Most = 8;  // what is rewritten for less costs more than it gains
  if (current_ < 0 || dead_ == 0 || dead_ < drafts_[current_].end / Most || !isUnchanged()) return;
  Draft& draft = drafts_[current_ == 0 ? 1 : 0];
  if (!draft.fd && !makeDraft(draft)) return;
  draft.end = 0;
  if (takeOver(drafts_[current_].fd.get(), directory_, {}, draft)) (void)finish(draft, {});
}

// --- The archive as it is ------------------------------------------------------------------------------------------

bool ArchiveRun::begin() {
  const std::string real = realPath(path_);
  const std::size_t slash = real.rfind('/');
  if (slash == std::string::npos) return false;
  leaf_ = real.substr(slash + 1);
  folder_ = UniqueFd(::open(real.substr(0, slash + 1).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder_ || leaf_.empty()) return false;
  old_ = UniqueFd(::openat(folder_.get(), leaf_.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
  if (!old_ && errno != ENOENT) return false;
  if (old_) {
    if (::fstat(old_.get(), &oldFacts_) != 0 || !S_ISREG(oldFacts_.st_mode) || !(oldFacts_.st_mode & S_IWUSR))
      return false;
    auto directory = readDirectory(old_.get());
    if (!directory) return false;
    directory_ = *std::move(directory);
    sources_.spare({oldFacts_.st_dev, oldFacts_.st_ino});
  }
  for (std::size_t at = 0; at < directory_.entries.size(); ++at)
    byName_[directory_.entries[at].name] = at;
  begun_ = true;
  return true;
}

bool ArchiveRun::isUnchanged() const {
  struct stat now {};
  const bool there = ::fstatat(folder_.get(), leaf_.c_str(), &now, AT_SYMLINK_NOFOLLOW) == 0;
  if (current_ >= 0) {
    struct stat ours {};
    return there && ::fstat(drafts_[current_].fd.get(), &ours) == 0 && ours.st_dev == now.st_dev &&
           ours.st_ino == now.st_ino;
  }
  if (!old_) return !there;
  return there && now.st_ino == oldFacts_.st_ino && now.st_dev == oldFacts_.st_dev &&
         now.st_size == oldFacts_.st_size && now.st_mtim.tv_sec == oldFacts_.st_mtim.tv_sec &&
         now.st_mtim.tv_nsec == oldFacts_.st_mtim.tv_nsec;
}

void ArchiveRun::passOver(std::vector<Source>& sources, Existing existing) const {
  if (existing == Existing::Replace) return;
  std::erase_if(sources, [&](const Source& source) {
    const auto known = byName_.find(source.name);
    if (known == byName_.end()) return existing == Existing::Freshen;
    return source.modified.tv_sec <= directory_.entries[known->second].modified;
  });
}

// --- Drafts --------------------------------------------------------------------------------------------------------

bool ArchiveRun::makeDraft(Draft& draft) {
  constexpr int MostAttempts = 100;
  const mode_t mode = old_ ? oldFacts_.st_mode & 0777 : 0666;
  const int folder = folder_.get();
  for (int attempt = 0; attempt < MostAttempts && !draft.fd; ++attempt) {
    draft.name = platform::posix::temporaryName();
    draft.fd = UniqueFd(::openat(folder, draft.name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!draft.fd && errno != EEXIST) return false;
    // A clean-up may be quicker with a file that is not held yet.
    if (draft.fd && !platform::posix::holdTemporary(folder, draft.name.c_str(), draft.fd.get())) draft.fd.reset();
  }
  struct stat facts {};
  if (!draft.fd || ::fstat(draft.fd.get(), &facts) != 0) return false;
  sources_.spare({facts.st_dev, facts.st_ino});
  draft.end = 0;
  return true;
}

bool ArchiveRun::prepare(const std::vector<Source>& sources) {
  if (!isUnchanged()) return false;
  Draft& draft = drafts_[current_ == 0 ? 1 : 0];
  if (!draft.fd && !makeDraft(draft)) return false;
  if (current_ >= 0) return catchUp(draft, drafts_[current_]);
  draft.end = 0;
  if (!old_) return true;
  auto taken = readDirectory(old_.get());
  return taken && takeOver(old_.get(), *std::move(taken), sources, draft);
}

// Both hold the same up to where the one behind ends.
bool ArchiveRun::catchUp(Draft& draft, const Draft& from) {
  const std::uint64_t missing = from.end - draft.end;
  if (!copyRange(from.fd.get(), draft.end, draft.fd.get(), draft.end, missing)) return false;
  draft.end = from.end;
  return true;
}

// Neither what the first batch replaces nor what no entry claims is taken along.
bool ArchiveRun::takeOver(int from, Directory taken, const std::vector<Source>& without, Draft& draft) {
  std::unordered_set<std::string_view> replaced;
  for (const Source& source : without)
    replaced.insert(source.name);
  auto& entries = taken.entries;
  std::vector<std::size_t> byOffset(entries.size());
  std::iota(byOffset.begin(), byOffset.end(), 0);
  std::ranges::sort(byOffset, {}, [&](std::size_t at) { return entries[at].offset; });
  // What is copied next: bytes that stand together are copied in one piece.
  std::uint64_t until = byOffset.empty() ? taken.begin : entries[byOffset.front()].offset;
  std::uint64_t begin = beginsWithEntry(from) ? until : 0;
  const auto copy = [&] {
    if (!copyRange(from, begin, draft.fd.get(), draft.end, until - begin)) return false;
    draft.end += until - begin;
    return true;
  };
  for (std::size_t place = 0; place < byOffset.size(); ++place) {
    Entry& entry = entries[byOffset[place]];
    const std::uint64_t next = place + 1 < byOffset.size() ? entries[byOffset[place + 1]].offset : taken.begin;
    if (!replaced.contains(entry.name)) {
      until = entry.end > entry.offset ? std::min(entry.end, next) : next;
      moveTo(entry, draft.end + (entry.offset - begin));
      if (until == next) continue;
    }
    if (!copy()) return false;
    begin = until = next;
  }
  if (!copy()) return false;
  std::erase_if(entries, [&](const Entry& entry) { return replaced.contains(entry.name); });
  directory_ = std::move(taken);
  byName_.clear();
  for (std::size_t at = 0; at < directory_.entries.size(); ++at)
    byName_[directory_.entries[at].name] = at;
  return true;
}

// --- A batch -------------------------------------------------------------------------------------------------------

bool ArchiveRun::flush(Draft& draft) {
  const bool written = writeAt(draft.fd.get(), buffer_.data(), buffer_.size(), buffered_);
  buffered_ += buffer_.size();
  buffer_.clear();
  return written;
}

ArchiveRun::End ArchiveRun::pack(Draft& draft, const std::vector<Source>& sources, const GoesOn& goesOn,
                                 std::vector<Entry>& added) {
  Packer packer(sources);
  buffer_.clear();
  buffered_ = draft.end;
  while (auto piece = packer.next()) {
    const Source& source = sources[piece->source];
    if (const End end = packFile(draft, packer, std::move(piece), source, goesOn, added); end != End::Done) return end;
    if (buffer_.size() >= BufferLength && !flush(draft)) return End::Failed;
    if (!goesOn(source.name)) return End::Stopped;
  }
  return flush(draft) ? End::Done : End::Failed;
}

ArchiveRun::End ArchiveRun::packFile(Draft& draft, Packer& packer, std::shared_ptr<Piece> piece, const Source& source,
                                     const GoesOn& goesOn, std::vector<Entry>& added) {
  NewEntry entry = entryOf(source);
  entry.offset = draft.end;
  if (piece->isLast) {
    if (!piece->failure.empty()) return leftOut_(source.path, piece->failure), End::Done;
    entry.method = piece->isStored ? Stored : Deflated;
    entry.crc = piece->crc;
    entry.packed = piece->packed.size();
    const std::string header = localHeader(entry);
    buffer_ += header;
    buffer_ += piece->packed;
    draft.end += header.size() + entry.packed;
    added.push_back(directoryEntry(entry));
    added.back().end = draft.end;
    return End::Done;
  }
  // The header of a large file is known behind it.
  entry.method = Deflated;
  const std::size_t headerLength = localHeader(entry).size();
  if (!flush(draft)) return End::Failed;
  std::uint64_t end = entry.offset + headerLength;
  std::string failure;
  while (true) {
    if (failure.empty()) failure = piece->failure;
    if (failure.empty()) {
      if (!writeAt(draft.fd.get(), piece->packed.data(), piece->packed.size(), end)) return End::Failed;
      end += piece->packed.size();
      entry.crc =
          static_cast<std::uint32_t>(::crc32_combine(entry.crc, piece->crc, static_cast<z_off_t>(piece->length)));
    }
    if (piece->isLast) break;
    if (!goesOn(source.name)) return End::Stopped;
    piece = packer.next();
  }
  buffered_ = draft.end;
  if (!failure.empty()) return leftOut_(source.path, failure), End::Done;
  entry.packed = end - entry.offset - headerLength;
  const std::string header = localHeader(entry);
  if (!writeAt(draft.fd.get(), header.data(), header.size(), entry.offset)) return End::Failed;
  draft.end = buffered_ = end;
  added.push_back(directoryEntry(entry));
  added.back().end = draft.end;
  return End::Done;
}

bool ArchiveRun::finish(Draft& draft, std::vector<Entry> added) {
  auto& entries = directory_.entries;
  const std::size_t before = entries.size();
  std::vector<std::pair<std::size_t, Entry>> replaced;
  for (Entry& entry : added) {
    const auto [known, isNew] = byName_.try_emplace(entry.name, entries.size());
    if (isNew) {
      entries.push_back(std::move(entry));
    } else {
      replaced.emplace_back(known->second, std::move(entries[known->second]));
      entries[known->second] = std::move(entry);
    }
  }
  directory_.begin = draft.end;
  const std::string bytes = directoryBytes(directory_);
  if (writeAt(draft.fd.get(), bytes.data(), bytes.size(), draft.end) &&
      ::ftruncate(draft.fd.get(), static_cast<off_t>(draft.end + bytes.size())) == 0 && ::fsync(draft.fd.get()) == 0 &&
      publish(draft)) {
    for (const auto& [at, entry] : replaced)
      dead_ += std::max(entry.end, entry.offset) - entry.offset;
    return true;
  }
  for (std::size_t at = before; at < entries.size(); ++at)
    byName_.erase(entries[at].name);
  entries.resize(before);
  for (auto& [at, entry] : replaced)
    entries[at] = std::move(entry);
  return false;
}

// The file that was the archive until now gets the other's name in the same step.
bool ArchiveRun::publish(Draft& draft) {
  if (!isUnchanged()) return false;
  const int folder = folder_.get();
  const char *const name = draft.name.c_str(), *const archive = leaf_.c_str();
  const bool isNew = current_ < 0 && !old_;
  if (isNew) {
    if (platform::posix::renameNoReplace(folder, name, folder, archive) != 0) return false;
  } else if (current_ >= 0 && ::renameat2(folder, name, folder, archive, RENAME_EXCHANGE) == 0) {
    drafts_[current_].name = draft.name;
  } else {
    if (::renameat(folder, name, folder, archive) != 0) return false;
    if (current_ >= 0) drafts_[current_] = {};
  }
  draft.name.clear();
  current_ = draft.fd.get() == drafts_[0].fd.get() ? 0 : 1;
  ::fsync(folder);
  return true;
}

}  // namespace varnholt::vnzip

#include "platform/posix/entry_facts.hpp"

#include "platform/posix/posix_error.hpp"

#include <cerrno>

#include <dirent.h>
#include <fcntl.h>
#include <sys/sysmacros.h>

namespace varnholt::platform::posix {
namespace {

constexpr unsigned wanted = STATX_TYPE | STATX_MODE | STATX_SIZE | STATX_MTIME | STATX_ATIME | STATX_BTIME;

Date dateOf(const struct statx_timestamp& time) { return {time.tv_sec, static_cast<std::int32_t>(time.tv_nsec)}; }

EntryKind kindOfMode(mode_t mode) {
  if (S_ISDIR(mode)) return EntryKind::Folder;
  return S_ISREG(mode) || S_ISLNK(mode) ? EntryKind::File : EntryKind::Special;
}

void takeFacts(const struct statx& facts, Entry& out) {
  out.kind = kindOfMode(facts.stx_mode);
  out.size = out.kind == EntryKind::Folder ? 0 : facts.stx_size;
  out.modified = dateOf(facts.stx_mtime);
  out.accessed = dateOf(facts.stx_atime);
  out.created = facts.stx_mask & STATX_BTIME ? dateOf(facts.stx_btime) : out.modified;
}

void takeUnasked(unsigned char kindHint, Entry& out) {
  const bool plain = kindHint == DT_REG || kindHint == DT_LNK || kindHint == DT_UNKNOWN;
  out.kind = kindHint == DT_DIR ? EntryKind::Folder : plain ? EntryKind::File : EntryKind::Special;
  out.isLink = kindHint == DT_LNK;
  out.hasDates = false;
  const mode_t mode = (kindHint == DT_DIR ? S_IFDIR : S_IFREG) | S_IWUSR;
  out.attributes = reportedAttributes({}, mode, out.name, false);
}

bool canStoreAttributes(mode_t mode) { return S_ISREG(mode) || S_ISDIR(mode); }

}  // namespace

namespace {

void takeEntry(int folder, const char* name, const char* xattrPath, struct statx facts, AttributeStore& store,
               Entry& out) {
  std::optional<Attributes> stored;
  if (S_ISLNK(facts.stx_mode)) {
    out.isLink = true;
    struct statx target;
    out.isDangling = ::statx(folder, name, AT_NO_AUTOMOUNT, wanted, &target) != 0;
    if (!out.isDangling) {
      facts = target;
      AttributeStore targetStore = AttributeStore::ofPath(xattrPath);
      stored = canStoreAttributes(facts.stx_mode) ? targetStore.read(xattrPath, true) : std::nullopt;
    }
  } else if (canStoreAttributes(facts.stx_mode)) {
    stored = store.read(xattrPath);
  }
  takeFacts(facts, out);
  const bool compressed = facts.stx_attributes & STATX_ATTR_COMPRESSED;
  out.attributes = reportedAttributes(stored, facts.stx_mode, out.name, compressed);
  out.isIndexed = stored && !(*stored & attribute::NotIndexed);
}

}  // namespace

int readEntryFacts(int folder, const char* name, const char* xattrPath, unsigned char kindHint, AttributeStore& store,
                   Entry& out) {
  struct statx facts;
  if (::statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, wanted, &facts) == 0) {
    takeEntry(folder, name, xattrPath, facts, store, out);
    return 0;
  }
  if (errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG || errno == ELOOP) return errno;
  takeUnasked(kindHint, out);
  return 0;
}

int readPathFacts(const char* path, Entry& out) {
  struct statx facts;
  if (::statx(AT_FDCWD, path, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, wanted, &facts) != 0) return errno;
  AttributeStore store = AttributeStore::ofVolume(makedev(facts.stx_dev_major, facts.stx_dev_minor), path);
  takeEntry(AT_FDCWD, path, path, facts, store, out);
  return 0;
}

namespace {

/// For single entries; a listing's workers go into the folder instead.
int readSingleEntry(int folder, const char* name, AttributeStore& store, Entry& out) {
  const std::string xattrPath = "/proc/self/fd/" + std::to_string(folder) + '/' + name;
  out.name = name;
  return readEntryFacts(folder, name, xattrPath.c_str(), DT_UNKNOWN, store, out);
}

}  // namespace

bool refusesOverwrite(int folder, const char* name, AttributeStore& store) {
  constexpr Attributes guarding = attribute::ReadOnly | attribute::Hidden | attribute::System;
  Entry facts;
  return readSingleEntry(folder, name, store, facts) == 0 && (facts.attributes & guarding);
}

bool refusesWriting(int folder, const char* name, AttributeStore& store) {
  const Attributes guarding = attribute::ReadOnly | attribute::System | (*name == '.' ? 0 : attribute::Hidden);
  Entry facts;
  return readSingleEntry(folder, name, store, facts) == 0 && (facts.attributes & guarding);
}

bool refusesRemoval(int folder, const char* name, AttributeStore& store) {
  Entry facts;
  return readSingleEntry(folder, name, store, facts) == 0 && !facts.isLink && (facts.attributes & attribute::ReadOnly);
}

Result<EntryInfo> readPathInfo(const std::string& path) {
  Entry entry;
  entry.name = std::string_view(path).substr(path.rfind('/') + 1);
  if (const int error = readPathFacts(path.c_str(), entry)) return systemError(error, path);
  EntryInfo info;
  info.size = entry.size;
  info.modified = entry.modified;
  info.created = entry.created;
  info.accessed = entry.accessed;
  info.attributes = entry.attributes;
  info.kind = entry.kind;
  info.isLink = entry.isLink;
  info.isDangling = entry.isDangling;
  info.isIndexed = entry.isIndexed;
  return info;
}

}  // namespace varnholt::platform::posix

#include "vnzip/container.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>

#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::vnzip {
namespace {

// PKWARE's APPNOTE.TXT: signatures, and the lengths of the records without their texts.
constexpr std::uint32_t LocalMark = 0x04034b50, EntryMark = 0x02014b50, EndMark = 0x06054b50;
constexpr std::uint32_t LargeEndMark = 0x06064b50, LargeLocatorMark = 0x07064b50;
constexpr std::size_t LocalLength = 30, EntryLength = 46, EndLength = 22, LargeEndLength = 56, LocatorLength = 20;
constexpr std::uint16_t LargeField = 0x0001, TimeField = 0x5455;
constexpr std::uint32_t All32 = 0xFFFFFFFF;
constexpr std::uint16_t All16 = 0xFFFF;
constexpr std::uint16_t Utf8Flag = 1u << 11, Version = 20, LargeVersion = 45, MadeOnUnix = 3u << 8;
constexpr std::uint64_t LargestDirectory = 1u << 30;

template <class Number>
void put(std::string& out, Number number) {
  for (std::size_t byte = 0; byte < sizeof number; ++byte)
    out += static_cast<char>(static_cast<std::uint64_t>(number) >> (8 * byte));
}

template <class Number>
Number get(const char* from) {
  std::uint64_t number = 0;
  for (std::size_t byte = 0; byte < sizeof(Number); ++byte)
    number |= static_cast<std::uint64_t>(static_cast<unsigned char>(from[byte])) << (8 * byte);
  return static_cast<Number>(number);
}

/// Date and time of a DOS directory entry, local, to two seconds.
std::uint32_t dosTime(std::int64_t seconds) {
  const std::time_t moment = seconds;
  std::tm local{};
  if (!::localtime_r(&moment, &local) || local.tm_year < 80) return (1u << 21) | (1u << 16);
  const int year = std::min(local.tm_year - 80, 127);
  return static_cast<std::uint32_t>(year << 25 | (local.tm_mon + 1) << 21 | local.tm_mday << 16 | local.tm_hour << 11 |
                                    local.tm_min << 5 | local.tm_sec / 2);
}

void putTime(std::string& out, std::int64_t modified) {
  put(out, TimeField);
  put(out, std::uint16_t{5});
  out += '\1';
  put(out, static_cast<std::uint32_t>(modified));
}

/// Where the field of that number stands among the extra fields of a record, behind its head; 0: nowhere.
std::size_t findField(const std::string& record, std::uint16_t wanted) {
  const std::size_t begin = EntryLength + get<std::uint16_t>(record.data() + 28);
  const std::size_t end = begin + get<std::uint16_t>(record.data() + 30);
  for (std::size_t at = begin; at + 4 <= end;) {
    const auto length = get<std::uint16_t>(record.data() + at + 2);
    if (at + 4 + length > end) return 0;
    if (get<std::uint16_t>(record.data() + at) == wanted) return at + 4;
    at += 4u + length;
  }
  return 0;
}

/// Where the offset in eight bytes stands; 0: it has four.
std::size_t largeOffsetAt(const std::string& record) {
  if (get<std::uint32_t>(record.data() + 42) != All32) return 0;
  std::size_t at = findField(record, LargeField);
  if (at == 0) return 0;
  const std::size_t end = at + get<std::uint16_t>(record.data() + at - 2);
  for (const std::size_t size : {24u, 20u})
    if (get<std::uint32_t>(record.data() + size) == All32) at += 8;
  return at + 8 <= end ? at : 0;
}

std::uint64_t packedSize(const std::string& record) {
  const auto packed = get<std::uint32_t>(record.data() + 20);
  std::size_t at = packed == All32 ? findField(record, LargeField) : 0;
  if (at == 0) return packed;
  const std::size_t end = at + get<std::uint16_t>(record.data() + at - 2);
  if (get<std::uint32_t>(record.data() + 24) == All32) at += 8;
  return at + 8 <= end ? get<std::uint64_t>(record.data() + at) : packed;
}

/// Whether its local header is where the entry says; then its end is known, too.
bool findBytes(int fd, Entry& entry) {
  constexpr std::uint16_t SizesBehind = 1u << 3;
  char header[LocalLength];
  if (!readAt(fd, header, sizeof header, entry.offset) || get<std::uint32_t>(header) != LocalMark) return false;
  if (!(get<std::uint16_t>(header + 6) & SizesBehind))
    entry.end = entry.offset + LocalLength + get<std::uint16_t>(header + 26) + get<std::uint16_t>(header + 28) +
                packedSize(entry.record);
  return true;
}

struct End {
  std::uint64_t count = 0, size = 0, begin = 0;
  std::string comment;
};

std::optional<End> readLargeEnd(int fd, std::uint64_t endAt, End end) {
  char locator[LocatorLength];
  if (endAt < LocatorLength || !readAt(fd, locator, sizeof locator, endAt - LocatorLength) ||
      get<std::uint32_t>(locator) != LargeLocatorMark)
    return end;
  char large[LargeEndLength];
  if (!readAt(fd, large, sizeof large, get<std::uint64_t>(locator + 8)) || get<std::uint32_t>(large) != LargeEndMark)
    return {};
  end.count = get<std::uint64_t>(large + 32);
  end.size = get<std::uint64_t>(large + 40);
  end.begin = get<std::uint64_t>(large + 48);
  return end;
}

std::optional<End> readEnd(int fd, std::uint64_t length) {
  const std::uint64_t tail = std::min<std::uint64_t>(length, EndLength + All16);
  std::string bytes(tail, '\0');
  if (tail < EndLength || !readAt(fd, bytes.data(), bytes.size(), length - tail)) return {};
  for (std::size_t at = bytes.size() - EndLength + 1; at-- > 0;) {
    const char* const from = bytes.data() + at;
    if (get<std::uint32_t>(from) != EndMark) continue;
    const auto comment = get<std::uint16_t>(from + 20);
    if (at + EndLength + comment != bytes.size()) continue;
    // An archive in several volumes is none that can be added to.
    if (get<std::uint16_t>(from + 4) != 0 || get<std::uint16_t>(from + 6) != 0) return {};
    return readLargeEnd(fd, length - tail + at,
                        {get<std::uint16_t>(from + 10), get<std::uint32_t>(from + 12), get<std::uint32_t>(from + 16),
                         bytes.substr(at + EndLength, comment)});
  }
  return {};
}

std::optional<Entry> entryAt(const std::string& bytes, std::size_t at) {
  if (at + EntryLength > bytes.size() || get<std::uint32_t>(bytes.data() + at) != EntryMark) return {};
  const char* const from = bytes.data() + at;
  const std::size_t name = get<std::uint16_t>(from + 28);
  const std::size_t length = EntryLength + name + get<std::uint16_t>(from + 30) + get<std::uint16_t>(from + 32);
  if (at + length > bytes.size()) return {};
  Entry entry;
  entry.record = bytes.substr(at, length);
  entry.name = entry.record.substr(EntryLength, name);
  const std::size_t large = largeOffsetAt(entry.record);
  entry.offset = large ? get<std::uint64_t>(entry.record.data() + large) : get<std::uint32_t>(from + 42);
  if (const std::size_t time = findField(entry.record, TimeField);
      time && get<std::uint16_t>(entry.record.data() + time - 2) >= 5 && (entry.record[time] & 1))
    entry.modified = get<std::uint32_t>(entry.record.data() + time + 1);
  return entry;
}

}  // namespace

bool readAt(int fd, void* bytes, std::size_t count, std::uint64_t offset) {
  auto* at = static_cast<char*>(bytes);
  while (count > 0) {
    const ssize_t got = ::pread(fd, at, count, static_cast<off_t>(offset));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    at += got, count -= static_cast<std::size_t>(got), offset += static_cast<std::uint64_t>(got);
  }
  return true;
}

bool writeAt(int fd, const void* bytes, std::size_t count, std::uint64_t offset) {
  const auto* at = static_cast<const char*>(bytes);
  while (count > 0) {
    const ssize_t done = ::pwrite(fd, at, count, static_cast<off_t>(offset));
    if (done < 0 && errno == EINTR) continue;
    if (done <= 0) return false;
    at += done, count -= static_cast<std::size_t>(done), offset += static_cast<std::uint64_t>(done);
  }
  return true;
}

std::optional<Directory> readDirectory(int fd) {
  struct stat facts {};
  if (::fstat(fd, &facts) != 0) return {};
  const auto length = static_cast<std::uint64_t>(facts.st_size);
  const auto end = readEnd(fd, length);
  if (!end || end->size > LargestDirectory || end->begin > length || end->size > length - end->begin) return {};
  std::string bytes(end->size, '\0');
  if (!readAt(fd, bytes.data(), bytes.size(), end->begin)) return {};
  Directory directory{{}, end->begin, end->comment};
  for (std::size_t at = 0; directory.entries.size() < end->count;) {
    auto entry = entryAt(bytes, at);
    if (!entry || entry->offset >= end->begin || !findBytes(fd, *entry)) return {};
    at += entry->record.size();
    directory.entries.push_back(*std::move(entry));
  }
  return directory;
}

bool beginsWithEntry(int fd) {
  char mark[4];
  return readAt(fd, mark, sizeof mark, 0) && get<std::uint32_t>(mark) == LocalMark;
}

void moveTo(Entry& entry, std::uint64_t offset) {
  std::string bytes;
  if (entry.end != 0) entry.end = entry.end - entry.offset + offset;
  entry.offset = offset;
  if (const std::size_t large = largeOffsetAt(entry.record)) {
    put(bytes, offset);
    entry.record.replace(large, bytes.size(), bytes);
  } else {
    put(bytes, static_cast<std::uint32_t>(offset));
    entry.record.replace(42, bytes.size(), bytes);
  }
}

std::string directoryBytes(const Directory& directory) {
  std::string bytes;
  for (const Entry& entry : directory.entries)
    bytes += entry.record;
  const std::uint64_t count = directory.entries.size(), size = bytes.size(), begin = directory.begin;
  if (count >= All16 || size >= All32 || begin >= All32) {
    const std::uint64_t largeEndAt = begin + size;
    put(bytes, LargeEndMark);
    put(bytes, std::uint64_t{LargeEndLength - 12});
    put(bytes, static_cast<std::uint16_t>(MadeOnUnix | LargeVersion));
    put(bytes, LargeVersion);
    put(bytes, std::uint64_t{0});
    put(bytes, count);
    put(bytes, count);
    put(bytes, size);
    put(bytes, begin);
    put(bytes, LargeLocatorMark);
    put(bytes, std::uint32_t{0});
    put(bytes, largeEndAt);
    put(bytes, std::uint32_t{1});
  }
  put(bytes, EndMark);
  put(bytes, std::uint32_t{0});
  const auto shortCount = static_cast<std::uint16_t>(std::min<std::uint64_t>(count, All16));
  put(bytes, shortCount);
  put(bytes, shortCount);
  put(bytes, static_cast<std::uint32_t>(std::min<std::uint64_t>(size, All32)));
  put(bytes, static_cast<std::uint32_t>(std::min<std::uint64_t>(begin, All32)));
  put(bytes, static_cast<std::uint16_t>(directory.comment.size()));
  return bytes + directory.comment;
}

std::string localHeader(const NewEntry& entry) {
  std::string extra;
  if (entry.large) {
    put(extra, LargeField);
    put(extra, std::uint16_t{16});
    put(extra, entry.size);
    put(extra, entry.packed);
  }
  putTime(extra, entry.modified);
  std::string bytes;
  put(bytes, LocalMark);
  put(bytes, entry.large ? LargeVersion : Version);
  put(bytes, entry.isUtf8 ? Utf8Flag : std::uint16_t{0});
  put(bytes, entry.method);
  put(bytes, dosTime(entry.modified));
  put(bytes, entry.crc);
  put(bytes, entry.large ? All32 : static_cast<std::uint32_t>(entry.packed));
  put(bytes, entry.large ? All32 : static_cast<std::uint32_t>(entry.size));
  put(bytes, static_cast<std::uint16_t>(entry.name.size()));
  put(bytes, static_cast<std::uint16_t>(extra.size()));
  return bytes + entry.name + extra;
}

Entry directoryEntry(const NewEntry& entry) {
  std::string large;
  const auto field = [&large](std::uint64_t number, bool isLarge) {
    if (isLarge) put(large, number);
    return isLarge ? All32 : static_cast<std::uint32_t>(number);
  };
  const std::uint32_t size = field(entry.size, entry.large), packed = field(entry.packed, entry.large);
  const std::uint32_t offset = field(entry.offset, entry.offset >= All32);
  std::string extra;
  if (!large.empty()) {
    put(extra, LargeField);
    put(extra, static_cast<std::uint16_t>(large.size()));
    extra += large;
  }
  putTime(extra, entry.modified);
  std::string bytes;
  put(bytes, EntryMark);
  put(bytes, static_cast<std::uint16_t>(MadeOnUnix | (large.empty() ? Version : LargeVersion)));
  put(bytes, large.empty() ? Version : LargeVersion);
  put(bytes, entry.isUtf8 ? Utf8Flag : std::uint16_t{0});
  put(bytes, entry.method);
  put(bytes, dosTime(entry.modified));
  put(bytes, entry.crc);
  put(bytes, packed);
  put(bytes, size);
  put(bytes, static_cast<std::uint16_t>(entry.name.size()));
  put(bytes, static_cast<std::uint16_t>(extra.size()));
  put(bytes, std::uint16_t{0});
  put(bytes, std::uint16_t{0});
  put(bytes, std::uint16_t{0});
  put(bytes, entry.external);
  put(bytes, offset);
  return {bytes + entry.name + extra, entry.name, entry.offset, 0, entry.modified};
}

}  // namespace varnholt::vnzip

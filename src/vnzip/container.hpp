#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace varnholt::vnzip {

/// An entry as the directory of an archive holds it: its record, byte by byte, and what is read of it here.
struct Entry {
  std::string record;
  std::string name;
  std::uint64_t offset = 0;   ///< of its local header
  std::uint64_t end = 0;      ///< behind its last byte; 0: not told in front of its bytes
  std::int64_t modified = 0;  ///< seconds; 0: told to two seconds in local time alone
};

/// What an archive holds, and where the directory begins.
struct Directory {
  std::vector<Entry> entries;
  std::uint64_t begin = 0;
  std::string comment;
};

/// Reads the directory of an archive; nothing when it is no whole one.
std::optional<Directory> readDirectory(int fd);
/// Whether an entry begins at the file's first byte, be it one that the directory still names or not: no program that
/// unpacks the archive stands in front.
bool beginsWithEntry(int fd);
/// The directory as it stands at `begin`, with its end record.
std::string directoryBytes(const Directory& directory);
/// The entry's local header stands at `offset` from now on, which is no larger than before.
void moveTo(Entry& entry, std::uint64_t offset);

/// What is known of a new entry when it is packed.
struct NewEntry {
  std::string name;
  bool isUtf8 = false;
  std::uint16_t method = 0;
  std::int64_t modified = 0;
  std::uint32_t crc = 0, external = 0;
  std::uint64_t packed = 0, size = 0, offset = 0;
  bool large = false;  ///< sizes of eight bytes, whatever they come to be
};
std::string localHeader(const NewEntry& entry);
Entry directoryEntry(const NewEntry& entry);

/// Reads or writes all of it. False: it is not there, or cannot be.
bool readAt(int fd, void* bytes, std::size_t count, std::uint64_t offset);
bool writeAt(int fd, const void* bytes, std::size_t count, std::uint64_t offset);

}  // namespace varnholt::vnzip

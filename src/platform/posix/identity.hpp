#pragma once

#include <cstdint>
#include <string_view>

#include <sys/stat.h>

namespace varnholt::platform::posix {

/// Whether two names lead to one entry, told by device and inode.
inline bool sameInode(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// A short number that stands for a text, the same on every machine: FNV-1a, 32 bits.
inline std::uint32_t digest(std::string_view text) {
  std::uint32_t hash = 2166136261u;
  for (const char c : text)
    hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
  return hash;
}

}  // namespace varnholt::platform::posix

#pragma once

#include "support/testing.hpp"

#include <ostream>

#include <sys/stat.h>
#include <sys/xattr.h>

namespace varnholt::test {

/// All that a user could miss of one entry.
struct EntryFacts {
  mode_t mode = 0;         ///< type and permissions
  std::string contents;    ///< bytes of a file, text of a link
  std::string attributes;  ///< `user.DOSATTRIB` as it is stored; empty where the volume keeps none
  timespec modified{};

  bool isFolder() const { return S_ISDIR(mode); }
  bool operator==(const EntryFacts& other) const {
    return mode == other.mode && contents == other.contents && attributes == other.attributes &&
           modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
  }
};

inline std::ostream& operator<<(std::ostream& out, const EntryFacts& facts) {
  return out << std::oct << facts.mode << std::dec << ", " << facts.contents.size() << " bytes \""
             << facts.contents.substr(0, 20) << "\", attributes \"" << facts.attributes << "\", "
             << facts.modified.tv_sec << '.' << facts.modified.tv_nsec;
}

/// Of one entry, which need not exist: then the mode is 0.
inline EntryFacts factsOf(const std::string& path) {
  EntryFacts facts;
  struct stat stat {};
  if (::lstat(path.c_str(), &stat) != 0) return facts;
  facts.mode = stat.st_mode;
  facts.modified = stat.st_mtim;
  if (S_ISLNK(stat.st_mode)) facts.contents = std::filesystem::read_symlink(path).string();
  if (!S_ISREG(stat.st_mode) && !S_ISDIR(stat.st_mode)) return facts;
  std::ifstream file(path, std::ios::binary);
  if (S_ISREG(stat.st_mode)) facts.contents.assign(std::istreambuf_iterator<char>(file), {});
  char value[64];
  const ssize_t length = ::getxattr(path.c_str(), "user.DOSATTRIB", value, sizeof value);
  facts.attributes.assign(value, length > 0 ? static_cast<size_t>(length) : 0);
  return facts;
}

/// The entries of a tree by their path in it.
using TreeSnapshot = std::map<std::string, EntryFacts>;

/// Reads a tree of the system as it stands, without the root itself and without the dates of folders: those of the
/// folders that an operation works in change. One that is not there is empty.
inline TreeSnapshot snapshot(const std::string& folder) {
  TreeSnapshot all;
  std::error_code none;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, none)) {
    EntryFacts facts = factsOf(entry.path());
    if (facts.isFolder()) facts.modified = {};
    all.emplace(entry.path().lexically_relative(folder), std::move(facts));
  }
  return all;
}

/// What differs, a line an entry ("+ name", "- name", "! name"); empty when nothing does.
inline std::string difference(const TreeSnapshot& before, const TreeSnapshot& after) {
  std::string lines;
  for (const auto& [name, facts] : before)
    if (const auto now = after.find(name); now == after.end() || !(now->second == facts))
      lines += (now == after.end() ? "- " : "! ") + name + "\n";
  for (const auto& [name, facts] : after)
    if (!before.contains(name)) lines += "+ " + name + "\n";
  return lines;
}

}  // namespace varnholt::test

#pragma once

#include "support/testing.hpp"

#include <ostream>

#include <sys/stat.h>

namespace varnholt::test {

/// All that a user could miss of one entry.
struct EntryFacts {
  mode_t mode = 0;         ///< type and permissions
  std::string contents;    ///< bytes of a file, text of a link
  std::string attributes;  ///< `user.DOSATTRIB` as it is stored; empty where the volume keeps none
  timespec modified{};

  bool isFolder() const { return (mode & S_IFMT) == S_IFDIR; }
  bool operator==(const EntryFacts& other) const;
};
std::ostream& operator<<(std::ostream& out, const EntryFacts& facts);

/// The entries of a tree by their path in it.
using TreeSnapshot = std::map<std::string, EntryFacts>;

/// Reads a tree of the system as it stands, without the root itself and without the dates of folders: those of the
/// folders that an operation works in change.
TreeSnapshot snapshot(const std::string& folder);
/// Of one entry, which need not exist: then the mode is 0.
EntryFacts factsOf(const std::string& path);

/// What differs, a line an entry ("+ name", "- name", "! name"); empty when nothing does.
std::string difference(const TreeSnapshot& before, const TreeSnapshot& after);

}  // namespace varnholt::test

#pragma once

#include "support/own_mounts.hpp"
#include "support/scratch_folder.hpp"
#include "support/tree_snapshot.hpp"

namespace varnholt::test {

/// The disk of a user: `C:` and `D:`, outliving the programs that are started on it. Names are given as "C:/From/a".
class World : public ScratchFolder {
 public:
  World();

  /// Makes `D:` a volume of its own. False where nothing can be mounted.
  bool mountSecond();
  /// Files get a date long past and a mode, so that a changed one is seen.
  const World& file(std::string_view name, std::string_view bytes, long date = 1'000'000'000, mode_t mode = 0640) const;
  EntryFacts entry(std::string_view name) const { return factsOf(system(name)); }
  TreeSnapshot tree(std::string_view folder) const { return snapshot(system(folder)); }
  /// Both drives.
  TreeSnapshot all() const;
  /// The temporary files in a folder, or in all below it.
  std::vector<std::string> temporary(std::string_view folder, bool below = true) const;

 private:
  ScopedMount second_;
};

/// Bytes that do not repeat soon, so that a piece in the wrong place is seen.
std::string pattern(std::size_t count, unsigned seed);

}  // namespace varnholt::test

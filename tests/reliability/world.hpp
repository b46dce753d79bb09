#pragma once

#include "support/own_mounts.hpp"
#include "support/scratch_folder.hpp"
#include "support/tree_snapshot.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace varnholt::test {

/// The disk of a user: `C:` and `D:`, outliving the programs that are started on it. Names are given as "C:/From/a".
class World {
 public:
  World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  /// Makes `D:` a volume of its own. False where nothing can be mounted.
  bool mountSecond(const std::string& options = "mode=0777");
  const ScopedMount& second() const { return second_; }

  const std::string& path() const { return scratch_.path(); }
  std::string system(std::string_view name) const;
  /// Files get a date long past and a mode, so that a changed one is seen.
  World& file(std::string_view name, std::string_view bytes, long date = 1'000'000'000, mode_t mode = 0640);
  World& folder(std::string_view name);
  World& link(std::string_view name, std::string_view target);
  bool has(std::string_view name) const { return facts(name).mode != 0; }
  EntryFacts facts(std::string_view name) const { return factsOf(system(name)); }
  TreeSnapshot tree(std::string_view folder) const { return snapshot(system(folder)); }
  /// Both drives.
  TreeSnapshot all() const;
  /// The temporary files in a folder, or in all below it.
  std::vector<std::string> temporary(std::string_view folder, bool below = true) const;

 private:
  ScratchFolder scratch_;
  ScopedMount second_;
};

/// Bytes that do not repeat soon, so that a piece in the wrong place is seen.
std::string pattern(std::size_t count, unsigned seed);

}  // namespace varnholt::test

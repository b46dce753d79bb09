#pragma once

#include "support/app_rig.hpp"
#include "support/own_mounts.hpp"
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
  TreeSnapshot tree(std::string_view folder) const { return snapshot(system(folder)); }
  TreeSnapshot all() const;
  /// The temporary files below a folder.
  std::vector<std::string> temporary(std::string_view folder) const;

 private:
  ScopedMount second_;
};

/// A program that was started on a world, and its user. The left panel is the active one.
class User {
 public:
  /// Files that a killed program left on their way are brought back by this start, which tells it.
  explicit User(const World& world);

  void open(const std::string& from, const std::string& to);
  void mark(const std::vector<std::string>& rows);
  void markAll();
  void markBoth();
  void meets(const std::vector<Answer>& answers) { rig.loop.meets(answers); }
  /// Runs on what is marked; the dialogs are to be expected before.
  void copies() { rig.command("Command1_Click"); }
  void moves() { rig.command("Command3_Click"); }
  void syncs() { rig.command("Com_Sync_Click"); }
  void swaps() { rig.command("ExFiles_Click"); }
  void deletes() { rig.command("Command4_Click"); }

  panels::Panel& left() { return rig.form().Panel1; }

  AppRig rig;
};

/// Bytes that do not repeat soon, so that a piece in the wrong place is seen.
std::string pattern(std::size_t count, unsigned seed);

}  // namespace varnholt::test

#pragma once

#include "support/app_rig.hpp"
#include "world.hpp"

namespace varnholt::test {

/// A program that was started on a world, and its user. The left panel is the active one.
class User {
 public:
  /// The wrapper, where there is one, stands between the program and the disk. Files that a killed program left on
  /// their way are brought back by this start, which tells it.
  explicit User(const World& world, AppRig::Wrapper wrapper = {});

  void open(const std::string& from, const std::string& to);
  /// Selects rows of the left panel by full name; folders and files.
  void mark(const std::vector<std::string>& names);
  void markAll();
  /// All rows of both panels.
  void markBoth();
  void meets(const std::vector<Answer>& answers) { rig.loop.meets(answers); }
  /// Runs on what is marked; the dialogs are to be expected before.
  void copies() { rig.command("Command1_Click"); }
  void moves() { rig.command("Command3_Click"); }
  /// What was marked when it was gathered, into the folder of the left panel.
  void pastes() { rig.command("WinPaste_Click"); }
  void swaps() { rig.command("ExFiles_Click"); }
  void deletes() { rig.command("Command4_Click"); }

  panels::Panel& left() { return rig.form().Panel1; }
  panels::Panel& right() { return rig.form().Panel2; }

  AppRig rig;
};

}  // namespace varnholt::test

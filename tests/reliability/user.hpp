#pragma once

#include "support/app_rig.hpp"
#include "world.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace varnholt::test {

/// A program that was started on a world, and its user. The left panel is the active one.
class User {
 public:
  /// The wrapper, where there is one, stands between the program and the disk.
  explicit User(const World& world, AppRig::Wrapper wrapper = {});

  void open(const std::string& from, const std::string& to);
  /// Selects rows of the left panel by full name; folders and files.
  void mark(const std::vector<std::string>& names);
  void markAll();
  /// Expects the dialog, and that its start button is pressed.
  ScriptedLoop::Step& starts(const std::string& dialog) { return rig.loop.whenShows(dialog).press("Command11"); }
  ScriptedLoop::Step& answers(const std::string& dialog, const std::string& button) {
    return rig.loop.whenShows(dialog).press(button);
  }
  /// An alert, whatever it says.
  void isTold() { answers("Form12", "Command11"); }
  void copies() { rig.command("Command1_Click"); }
  void moves() { rig.command("Command3_Click"); }
  void deletes() { rig.command("Command4_Click"); }

  panels::Panel& left() { return rig.form().Panel1; }
  panels::Panel& right() { return rig.form().Panel2; }
  fileops::FileOps& ops() { return rig.app().fileops; }

  AppRig rig;

 private:
  std::optional<std::uint32_t> rowOf(const std::string& name);
};

/// A program on a world of its own.
class ReliabilityTest : public testing::Test {
 protected:
  User& user(AppRig::Wrapper wrapper = {}) {
    user_ = std::make_unique<User>(world, std::move(wrapper));
    return *user_;
  }

  World world;

 private:
  std::unique_ptr<User> user_;
};

}  // namespace varnholt::test

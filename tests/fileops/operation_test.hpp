#pragma once

#include "support/app_rig.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace varnholt::fileops {

/// Both panels on folders of their own, the left one active: "C:\From\" and "C:\To\".
class OperationTest : public testing::Test {
 protected:
  static constexpr controls::Modifiers Ctrl{false, true, false};

  void SetUp() override {
    rig.makeFolder("C:\\From");
    rig.makeFolder("C:\\To");
    rig.startLeft();
  }

  /// Lists the folders anew and selects these rows of the left panel, in this order.
  void select(const std::vector<std::string>& rows, const std::string& from = "C:\\From",
              const std::string& to = "C:\\To") {
    ASSERT_TRUE(rig.app().navigation.goTo(left(), from));
    ASSERT_TRUE(rig.app().navigation.goTo(right(), to));
    left().list.SetFocus();
    bool first = true;
    for (const std::string& row : rows) {
      rig.click(left(), row, std::exchange(first, false) ? controls::Modifiers{} : Ctrl);
    }
  }
  std::string windows(const std::string& path) const { return rig.read(path); }
  panels::Form1& form() { return rig.form(); }
  panels::Panel& left() { return rig.form().Panel1; }
  panels::Panel& right() { return rig.form().Panel2; }
  FileOps& ops() { return rig.app().fileops; }
  platform::FileSystem& files() { return rig.platform->files; }
  /// Expects that dialog, and that its start button is pressed.
  test::ScriptedLoop::Step& starts(const std::string& dialog) { return rig.loop.whenShows(dialog).press("Command11"); }

  test::AppRig rig;
};

}  // namespace varnholt::fileops

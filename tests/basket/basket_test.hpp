#pragma once

#include "support/app_rig.hpp"

#include <gtest/gtest.h>

namespace varnholt::basket {

/// Files in three folders of two drives, and the left panel active.
class BasketTest : public testing::Test {
 protected:
  using Names = std::vector<std::string>;
  using Answers = std::vector<test::Answer>;

  void SetUp() override {
    for (const char* path :
         {"C:\\One\\a.txt", "C:\\One\\A.TXT", "C:\\Two\\b.txt", "D:\\Three\\a.txt", "D:\\Three\\Sub\\c.txt"})
      rig.write(path, path);
    rig.write("C:\\To\\kept");
    rig.startLeft();
  }
  panels::Form1& form() { return rig.form(); }
  Basket& basket() { return rig.app().basket; }
  /// Selects all of the folder and adds it to the basket.
  void gather(const std::string& folder) {
    ASSERT_TRUE(rig.app().navigation.goTo(form().Panel1, folder));
    form().Panel1.list.SetFocus();
    for (const std::uint32_t row : {0u, 1u})
      if (row < form().Panel1.list.count()) form().Panel1.list.item(row).setSelected(true);
    rig.command("WinCopy_Click");
  }
  void pasteInto(const std::string& folder) {
    ASSERT_TRUE(rig.app().navigation.goTo(form().Panel1, folder));
    form().Panel1.list.SetFocus();
    rig.command("WinPaste_Click");
    rig.loop.onTurn = {};
  }
  Names paths() {
    Names found;
    for (const core::Item& item : basket().PasteCollection.items())
      found.push_back((item.isFolder ? "|Fold|" : "") + item.path);
    return found;
  }
  test::AppRig rig;
};

}  // namespace varnholt::basket

#pragma once

#include "fileops/overwrite_policy.hpp"
#include "panels/desk.hpp"
#include "panels/icons.hpp"
#include "panels/room.hpp"
#include "rename/masked_rename.hpp"
#include "rename/rename_dialog.hpp"
#include "rename/single_rename.hpp"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace varnholt::rename {

/// The Rename command: takes the selection over, shows `Form14`, and gives items their new names as the user steps
/// through them.
class Rename : public panels::Room {
 public:
  /// Hangs itself on the policy, as the renaming of a target that is in the way of a copy.
  Rename(panels::Desk& desk, fileops::OverwritePolicy& policy, fileops::Form7& form7);
  Rename(const Rename&) = delete;
  Rename& operator=(const Rename&) = delete;

  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form14}; }
  void Command14_Click();
  /// One file for another room, under that caller's caption; the selection, the item in hand and the mode word stay as
  /// they are. Gives the new name, or nothing when the file has kept its own.
  std::optional<std::string> renameOne(Caller caller, const std::string& path);

  rename::Form14 Form14;

 private:
  void bindDialog();
  void ViewIdent();
  void show(Caller caller);
  void close();
  void Command11_Click();
  void Command6_Click();
  void step(int by);
  void showItem();
  void open(const std::string& path);
  void previewKey(controls::KeyEvent& key);
  /// After a step: panels and trees show what has become of the item.
  void VerifyS(const Item& item);

  panels::Desk& desk_;
  panels::Icons icons_{desk_.program};
  SingleRename single_;
  MaskedRename masked_;
  std::vector<Item> items_;
  std::optional<std::string> renamedTo_;  ///< the new name of the item that was renamed last
};

}  // namespace varnholt::rename

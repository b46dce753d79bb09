#pragma once

#include "fileops/overwrite_policy.hpp"
#include "panels/desk.hpp"
#include "rename/item.hpp"
#include "rename/rename_dialog.hpp"

#include <string>

namespace varnholt::rename {

/// Gives one item its new name, with the questions that come before.
class SingleRename {
 public:
  SingleRename(panels::Desk& desk, fileops::OverwritePolicy& policy, fileops::Form7& form7, Form14& dialog)
      : desk_(desk), policy_(policy), form7_(form7), dialog_(dialog) {}

  enum class Outcome {
    Renamed,
    Left,   ///< it keeps its name, and the next one is in turn
    Stays,  ///< it was refused, and may be given another name
  };
  Outcome rename(const Item& item, const std::string& newName);
  /// Asks about every file that is in the way again.
  void askAgain() { replaceAll_ = false; }

 private:
  Outcome folder(const Item& item, const std::string& to);
  Outcome file(const Item& item, const std::string& to);
  Outcome replace(const Item& item, const std::string& to);
  bool mayReplace(const Item& item, const std::string& to);
  fileops::Overwrite ask(const Item& item, const std::string& to);
  /// Runs the rename itself, and tells why it failed.
  Outcome run(const Item& item, const std::string& to, const std::function<platform::Result<void>()>& call);
  Outcome refused(const Item& item, const std::string& reason);

  panels::Desk& desk_;
  fileops::OverwritePolicy& policy_;
  fileops::Form7& form7_;
  Form14& dialog_;
  bool replaceAll_ = false;
};

}  // namespace varnholt::rename

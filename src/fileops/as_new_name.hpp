#pragma once

#include "fileops/name_dialog.hpp"
#include "fileops/progress.hpp"
#include "panels/desk.hpp"

#include <memory>
#include <optional>
#include <string>

namespace varnholt::fileops {

/// Copy As and Move As: one file goes to its target by way of a work folder, where it gets its new name.
class AsNewName {
 public:
  /// `window` is the operation's own dialog.
  AsNewName(panels::Desk& desk, const controls::Form& window, Form32& dialog)
      : desk_(desk), window_(window), dialog_(dialog) {}
  AsNewName(const AsNewName&) = delete;
  AsNewName& operator=(const AsNewName&) = delete;

  /// Copies or moves the file into the work folder and asks for its name. Gives its path there; nothing when the user
  /// stops or cancels, or it cannot be done: then the file is where it was.
  std::optional<std::string> begin(const std::string& file, bool moving, const Stoppable& run);
  /// `TmpMode`: a file goes this way.
  bool TmpMode() const { return !waits_.empty(); }
  /// The operation is over: a moved file that has not gone on goes back, and the new name's row comes into focus.
  void end();

 private:
  using Names = std::vector<std::string>;
  bool makeTmpFolder();
  void clearTmpFolder();
  bool enter(const std::string& file, const Stoppable& run);
  bool rename(const std::string& name);
  bool note(const Names& places);
  void goBack();
  void showNewName();
  void tell(const platform::Error& error, const std::string& path);
  std::string TmpFolder() const;

  panels::Desk& desk_;
  const controls::Form& window_;
  Form32& dialog_;
  std::string origin_;     ///< the file as it was selected
  std::string waits_;      ///< the file in the work folder; empty: none
  std::string AsNewName_;  ///< empty until it is keyed
  bool moving_ = false;
  std::unique_ptr<platform::Detours::Note> note_;
};

}  // namespace varnholt::fileops

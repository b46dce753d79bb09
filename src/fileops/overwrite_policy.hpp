#pragma once

#include "fileops/overwrite_dialogs.hpp"
#include "panels/desk.hpp"

#include <functional>
#include <string>

namespace varnholt::fileops {

/// True when the second date is at most two whole seconds after the first: the difference that counts as none.
bool NotNewer(const platform::Date& first, const platform::Date& second);

/// What becomes of a file whose target exists.
enum class Outcome {
  Copy,
  CopyOverProtected,  ///< whatever attributes the target has
  CopiedAlready,      ///< not copied, but counted as done
  Skipped,
  Ends,  ///< the user ends the operation
};

/// The questions about targets that exist, and what follows from their answers.
class OverwritePolicy {
 public:
  OverwritePolicy(panels::Desk& desk, Form7& form7, Form10& form10);

  /// Decides about `SourcePath` and the target of that name. Asks while `OverwritePrompt` is set, else keeps to the
  /// last answer. When it answers Copy, the target may be replaced, unless the rename made its place free.
  Outcome decide(const std::string& name);
  /// The comparison of `SourcePath` with its target, and the question.
  void copywarning(const std::string& name);
  /// The same question in front of a rename that would hit a file: `from` gets the name of `to`. When both are one file
  /// only the case of the name changes.
  Overwrite RenameWarning(const std::string& from, const std::string& to);
  /// True when the versions match or the user agrees.
  bool ConfirmVersion(const std::string& source, const std::string& target);

  bool OverwritePrompt = true;  ///< asks for each target that exists; the "all" answers clear it
  /// Renames the target out of the way, folder and name given; false when the user cancels. The button is disabled
  /// while nothing hangs here.
  std::function<bool(const std::string& folder, const std::string& name)> renameTarget;
  /// True while the copy dialog is visible: the only place where a target can be renamed.
  std::function<bool()> copyDialogVisible;

 private:
  struct Facts;
  Facts factsOf(const std::string& path) const;
  std::string factsLine(const Facts& facts) const;
  Outcome decideThisOne(const std::string& name, const std::string& target);
  bool askNewName(const std::string& name);
  void ask();

  panels::Desk& desk_;
  Form7& form7_;
  Form10& form10_;
};

}  // namespace varnholt::fileops

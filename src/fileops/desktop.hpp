#pragma once

#include "fileops/progress.hpp"
#include "panels/desk.hpp"

#include <string>
#include <vector>

namespace varnholt::fileops {

/// The user's desktop folder as a place to copy to and to look into.
class Desktop {
 public:
  Desktop(panels::Desk& desk, Form3& dialog) : desk_(desk), Form3_(dialog) {}

  /// Copies the selected files there.
  void CopyDesktop_Click();
  /// Shows it in the active panel.
  void Copyfrom_desktop_Click();
  /// Copies these files there, by full paths, in one call that the user may stop, and tells how it went. One that is
  /// there already is replaced only when the user says so.
  void copy(const std::vector<std::string>& files, const Stoppable& run);

 private:
  /// The folder with closing backslash; when there is none the user is told, and nothing comes back.
  std::optional<std::string> folder() const;
  bool mayReplace(const std::string& target) const;
  platform::Result<void> copyFiles(const std::vector<std::string>& files, const std::string& desktop,
                                   const platform::Progress& progress) const;
  void copySelected(const std::vector<std::string>& files);
  /// Shows how the call goes on, and stops it by the dialog's button.
  platform::Result<void> runInDialog(const LongCall& call);

  panels::Desk& desk_;
  Form3& Form3_;
};

}  // namespace varnholt::fileops

#pragma once

#include "panels/desk.hpp"

#include <string>
#include <vector>

namespace varnholt::fileops {

/// The user's desktop folder as a place to copy to and to look into.
class Desktop {
 public:
  explicit Desktop(panels::Desk& desk) : desk_(desk) {}

  /// Copies the selected files there.
  void CopyDesktop_Click();
  /// Shows it in the active panel.
  void Copyfrom_desktop_Click();
  /// Copies these files there, by full paths, and tells how it went. One that is there already is replaced only when
  /// the user says so.
  void copy(const std::vector<std::string>& files);

 private:
  /// The folder with closing backslash; when there is none the user is told, and nothing comes back.
  std::optional<std::string> folder() const;
  bool mayReplace(const std::string& target) const;
  bool copyFile(const std::string& file, const std::string& target) const;

  panels::Desk& desk_;
};

}  // namespace varnholt::fileops

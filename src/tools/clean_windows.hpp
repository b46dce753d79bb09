#pragma once

#include "panels/desk.hpp"

#include <string>

namespace varnholt::tools {

/// Clears away what the Windows folder and its user's profile gather: prefetched programs, cookies, recent files.
/// Folders are those that the registry names; one that is a drive's root, the home folder, or above either of them is
/// refused, whatever it names.
class CleanWindows {
 public:
  explicit CleanWindows(panels::Desk& desk) : desk_(desk) {}

  void CleanPrefetch_Click();
  void DelCookies_Click();
  void DelRecent_Click();

 private:
  /// What is told of one of the folders of the profile.
  struct Leftovers {
    const char* value;  ///< its name in the registry
    const char* question;
    const char *none, *deleted;
  };
  void deleteFiles(const Leftovers& leftovers);
  /// True, and the user is told, for a folder that may not be cleaned.
  bool refused(const std::string& folder);

  panels::Desk& desk_;
};

}  // namespace varnholt::tools

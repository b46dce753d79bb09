#pragma once

#include "platform/environment.hpp"
#include "platform/posix/path_map.hpp"
#include "platform/posix/windows_folder.hpp"

namespace varnholt::platform::posix {

/// The process environment, and behind it the platform's own folders. Values of variables that are absolute system
/// paths are given in program form. A folder that no drive holds is answered by the empty text.
class PosixEnvironment : public Environment {
 public:
  /// Folders in system form. `temporary` is made at the first question for it, for the user alone.
  PosixEnvironment(const PathMap& map, WindowsFolder windows, std::string programFiles, std::string temporary);

  std::string variable(const std::string& name) const override;
  std::string windowsFolder() const override;
  std::string desktopFolder() const override;

 private:
  std::string ownValue(const std::string& name) const;
  std::string programForm(const std::string& systemPath) const;

  const PathMap& map_;
  WindowsFolder windows_;
  std::string programFiles_, temporary_;
};

/// A folder of our own: made when missing, with the given permissions. Empty when something else has the name, or
/// when it belongs to another user, who could then change what lies in it.
std::string ownFolder(const std::string& folder, unsigned permissions);

/// The program's folder in the system's temporary folder ($TMPDIR, else /tmp), with the user's number in its name.
std::string temporaryFolderName();

}  // namespace varnholt::platform::posix

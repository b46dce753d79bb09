#pragma once

#include <optional>
#include <string>

namespace varnholt::platform {

/// The environment as the program sees it. Values are paths in program form.
class Environment {
 public:
  virtual ~Environment() = default;
  /// One of windir, SystemRoot, SystemDrive, ProgramFiles, tmp, temp (case as given). The process environment's value
  /// if the variable is set there, even to the empty text and even if it names no folder; else the platform's own:
  /// "C:" for SystemDrive, the Windows folder for windir and SystemRoot, the folder of installed applications beside
  /// it, a temporary folder of the program's own. Empty for any other name that is not set.
  virtual std::string variable(const std::string& name) const = 0;
  /// GetWindowsDirectoryA: the stand-in Windows folder, without closing backslash; empty when it could not be made.
  virtual std::string windowsFolder() const = 0;
  /// The user's desktop folder (xdg-user-dirs), which may be missing; empty when no drive holds it.
  virtual std::string desktopFolder() const = 0;
};

}  // namespace varnholt::platform

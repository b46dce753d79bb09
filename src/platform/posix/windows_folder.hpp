#pragma once

#include <string>

namespace varnholt::platform::posix {

/// The stand-in Windows folder: a real folder with small scripts under the names of the system programs that the
/// program calls (explorer.exe, system32/cmd.exe, ...). It is made once, as a whole, and is the user's from then on.
class WindowsFolder {
 public:
  /// System form: the folder, and the shipped one that it is made from.
  WindowsFolder(std::string folder, std::string shipped) : folder_(std::move(folder)), shipped_(std::move(shipped)) {}

  /// The folder, made when missing. Where it cannot be made the shipped one serves as it is; empty without that.
  std::string path() const;

 private:
  std::string folder_, shipped_;
};

}  // namespace varnholt::platform::posix

#pragma once

#include "panels/desk.hpp"

#include <string>

namespace varnholt::places {

/// The user is told so where there is no explorer.exe.
inline constexpr const char* NoExplorer = "..\\Explorer.exe, - Do Not Exist !";

/// Has the desktop open a file, and counts that. False: it was not opened, and the user was told.
inline bool openFile(panels::Desk& desk, const std::string& path) {
  if (!desk.opener.openAddress("file://" + path, "file:///" + path, NoExplorer)) return false;
  desk.mostUsed.Muf(path);
  return true;
}

}  // namespace varnholt::places

#pragma once

#include "platform/result.hpp"

#include <string>
#include <string_view>

namespace varnholt::platform {

/// What the desktop knows of a file's type. Answers come from HKEY_CLASSES_ROOT of our registry first, then from the
/// desktop's own MIME database.
class FileTypes {
 public:
  virtual ~FileTypes() = default;
  /// The open command of a file name's type with its file mark written "%1": `paint "%1"` from the registry, or
  /// `"desktop:org.gimp.desktop" "%1"` for an entry of the desktop, which the shell has the desktop's library launch.
  /// The extension may come with or without its point. NotFound: no program is registered.
  virtual Result<std::string> openCommand(std::string_view extension) const = 0;
  /// A type's description in words ("PNG image"); the empty text when unknown.
  virtual std::string description(std::string_view extension) const = 0;
  /// Name of the desktop theme's icon for the type ("image-png"); "text-x-generic" or alike for an unknown one.
  virtual std::string iconName(std::string_view extension) const = 0;
};

}  // namespace varnholt::platform

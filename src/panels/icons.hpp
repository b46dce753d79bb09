#pragma once

#include "controls/standard.hpp"
#include "core/program.hpp"

#include <optional>
#include <string>

namespace varnholt::panels {

/// The icon of a file's type, for the preview boxes of dialogs.
class Icons {
 public:
  explicit Icons(core::Program& program) : program_(program) {}

  /// Draws the icon into the picture, which is cleared first: a program's own icon, else what the registry names for
  /// the type, else the system library's first icon, else the desktop's icon for the type.
  void Iconshow(controls::PictureBox& picture, const std::string& path) const;

 private:
  /// Bytes of an icon file for "path,index" as the registry has it.
  std::optional<std::string> ExtractIcon(const std::string& defaultIcon) const;
  std::string defaultIconOf(const std::string& extension) const;

  core::Program& program_;
};

}  // namespace varnholt::panels

#pragma once

#include "platform/file_types.hpp"
#include "platform/registry.hpp"

#include <unordered_map>

namespace varnholt::platform::posix {

/// File types from HKEY_CLASSES_ROOT of our registry (".ext" names a class, the class has its description as default
/// value and its command under shell\open\command), else from the desktop's MIME database. Nothing is loaded before
/// the first question.
class DesktopFileTypes : public FileTypes {
 public:
  explicit DesktopFileTypes(const Registry& registry) : registry_(registry) {}

  Result<std::string> openCommand(std::string_view extension) const override;
  std::string description(std::string_view extension) const override;
  std::string iconName(std::string_view extension) const override;

 private:
  std::string classOf(std::string_view extension) const;
  std::string registryText(const std::string& path) const;

  const Registry& registry_;
  /// Lists ask for each row; a desktop changes its icons' names about never.
  mutable std::unordered_map<std::string, std::string> icons_;
};

}  // namespace varnholt::platform::posix

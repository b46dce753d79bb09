#pragma once

#include "platform/paths.hpp"

#include <string_view>

namespace varnholt::core {

/// A file name in the two columns of a row: the whole name and no extension when there is no point in it.
struct NameParts {
  std::string_view base, extension;
};

inline NameParts splitName(std::string_view name) {
  return {platform::paths::baseName(name), platform::paths::extension(name)};
}

}  // namespace varnholt::core

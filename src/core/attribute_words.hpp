#pragma once

#include "platform/attributes.hpp"

#include <string_view>

namespace varnholt::core {

/// The words for an attribute value in the attribute text and the status bar. A value above 128 without words of its
/// own is looked up again less 2048 (compressed). "Cannot Identify Attributes !" for a value without words.
std::string_view fileatrib(platform::Attributes value);

/// As fileatrib, in the properties view; the empty text for two folder values that it has no word for.
std::string_view propertiesAttributes(platform::Attributes value);

}  // namespace varnholt::core

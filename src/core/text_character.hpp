#pragma once

#include "platform/text_character.hpp"

#include <string>
#include <string_view>

namespace varnholt::core {

using platform::firstCharacter;
using platform::TextCharacter;

/// Without the blanks around it.
std::string_view trimmed(std::string_view text);

/// A path that stands in quotes by itself, without them.
std::string_view unquoted(std::string_view path);

size_t characterCount(std::string_view text);
/// The last `count` characters, or all of it.
std::string_view lastCharacters(std::string_view text, size_t count);
/// The text, or from `limit` characters on "..." and its last `kept` ones: how long paths are shown in a line.
std::string shortened(std::string_view text, size_t limit, size_t kept);

}  // namespace varnholt::core

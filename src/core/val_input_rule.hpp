#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace varnholt::core {

/// The first character of a proposed file name that may not stand in one: < > : / \ * ? | or the double quote. None
/// for a name that is fine, and for the empty text.
std::optional<char> firstRefusedCharacter(std::string_view name);

/// The alert for such a character.
std::string refusedCharacterText(char refused);

}  // namespace varnholt::core

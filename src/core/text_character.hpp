#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace varnholt::core {

/// The first character of a text.
struct TextCharacter {
  std::uint32_t code = 0;  ///< Unicode code point; 0x110000 plus the byte for one that is not UTF-8
  size_t bytes = 1;
};

/// `text` must not be empty. A byte that begins no valid UTF-8 character (RFC 3629) counts as a character alone, so
/// every text can be walked and no two texts look alike.
TextCharacter firstCharacter(std::string_view text);

/// Without the blanks around it.
std::string_view trimmed(std::string_view text);

size_t characterCount(std::string_view text);
/// The last `count` characters, or all of it.
std::string_view lastCharacters(std::string_view text, size_t count);
/// The text, or from `limit` characters on "..." and its last `kept` ones: how long paths are shown in a line.
std::string shortened(std::string_view text, size_t limit, size_t kept);

}  // namespace varnholt::core

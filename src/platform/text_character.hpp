#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace varnholt::platform {

/// Added to a byte that is not UTF-8, behind all code points of Unicode.
inline constexpr std::uint32_t NotUtf8 = 0x110000;

/// The first character of a text.
struct TextCharacter {
  std::uint32_t code = 0;  ///< Unicode code point, or NotUtf8 plus a byte
  std::size_t bytes = 1;
};

/// `text` must not be empty. A byte that begins no valid UTF-8 character (RFC 3629) counts as a character alone, so
/// every text can be walked and no two texts look alike.
TextCharacter firstCharacter(std::string_view text);

/// Adds a Unicode code point as UTF-8.
void appendCharacter(std::uint32_t code, std::string& out);

}  // namespace varnholt::platform

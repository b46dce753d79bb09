#pragma once

#include <cstdint>
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

}  // namespace varnholt::core

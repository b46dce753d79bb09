#include "platform/text_character.hpp"

#include <glib.h>

namespace varnholt::platform {

TextCharacter firstCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x80) return {first, 1};
  const gunichar code = g_utf8_get_char_validated(text.data(), static_cast<gssize>(text.size()));
  if (code > 0x10FFFF) return {NotUtf8 + first, 1};
  return {code, static_cast<std::size_t>(g_utf8_skip[first])};
}

void appendCharacter(std::uint32_t code, std::string& out) {
  char bytes[6];
  out.append(bytes, static_cast<std::size_t>(g_unichar_to_utf8(code, bytes)));
}

}  // namespace varnholt::platform

#include "platform/text_fold.hpp"

#include <glib.h>

namespace varnholt::platform {
namespace {

char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

/// Adds the first character of the text as `change` makes it; gives its length in bytes.
size_t appendChanged(std::string_view text, gunichar (*change)(gunichar), std::string& out) {
  const gunichar character = g_utf8_get_char_validated(text.data(), static_cast<gssize>(text.size()));
  if (character == static_cast<gunichar>(-1) || character == static_cast<gunichar>(-2)) {
    out += text.front();
    return 1;
  }
  char bytes[6];
  out.append(bytes, static_cast<size_t>(g_unichar_to_utf8(change(character), bytes)));
  return static_cast<size_t>(g_utf8_next_char(text.data()) - text.data());
}

}  // namespace

void appendFolded(std::string_view text, std::string& out) {
  for (size_t i = 0; i < text.size();) {
    if (static_cast<unsigned char>(text[i]) < 0x80)
      out += lowerAscii(text[i++]);
    else
      i += appendChanged(text.substr(i), g_unichar_tolower, out);
  }
}

std::string foldCase(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  appendFolded(text, out);
  return out;
}

std::string upperCase(std::string_view text) {
  std::string out;
  for (size_t i = 0; i < text.size();)
    i += appendChanged(text.substr(i), g_unichar_toupper, out);
  return out;
}

}  // namespace varnholt::platform

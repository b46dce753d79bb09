#include "platform/text_fold.hpp"

#include "platform/text_character.hpp"

#include <glib.h>

namespace varnholt::platform {
namespace {

char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

/// Adds the first character of the text as `change` makes it; gives its length in bytes.
size_t appendChanged(std::string_view text, gunichar (*change)(gunichar), std::string& out) {
  const auto [code, length] = firstCharacter(text);
  if (code >= NotUtf8)
    out += text.front();
  else
    appendCharacter(change(code), out);
  return length;
}

}  // namespace

void appendFolded(std::string_view text, std::string& out) {
  // Most names are ASCII, and a loop without a branch folds many of their letters at once.
  const size_t before = out.size();
  out.append(text);
  unsigned char all = 0;
  for (char* c = out.data() + before; c != out.data() + out.size(); ++c) {
    all |= static_cast<unsigned char>(*c);
    *c = lowerAscii(*c);
  }
  if (all < 0x80) return;
  out.resize(before);
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

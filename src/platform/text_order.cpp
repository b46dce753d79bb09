#include "platform/text_order.hpp"

#include <array>
#include <glib.h>

namespace varnholt::platform {
namespace {

// First bytes of a key element. ASCII punctuation keeps its own order below the digits.
constexpr char OtherUnicode = '\x60';
constexpr unsigned char Digits = 0x70;
constexpr unsigned char Letters = 0x80;
constexpr char OtherLetters = '\xA0';
constexpr char BrokenByte = '\xF0';
// Ends the part that is compared first; what follows tells accents apart.
constexpr char AccentPart = '\x01';

constexpr std::array<char, 128> asciiRanks() {
  std::array<char, 128> ranks{};
  unsigned char other = 2;
  for (int c = 0; c < 128; ++c) {
    const bool digit = c >= '0' && c <= '9';
    const bool upper = c >= 'A' && c <= 'Z';
    const bool lower = c >= 'a' && c <= 'z';
    unsigned char rank = 0;
    if (digit) rank = static_cast<unsigned char>(Digits + (c - '0'));
    if (upper) rank = static_cast<unsigned char>(Letters + (c - 'A'));
    if (lower) rank = static_cast<unsigned char>(Letters + (c - 'a'));
    if (!digit && !upper && !lower) rank = other < 0x5F ? other++ : other;
    ranks[static_cast<std::size_t>(c)] = static_cast<char>(rank);
  }
  return ranks;
}
constexpr auto AsciiRanks = asciiRanks();

gunichar baseCharacter(gunichar c) {
  gunichar base = 0, mark = 0;
  while (g_unichar_decompose(c, &base, &mark) && mark != 0)
    c = base;
  return c;
}

void appendCodePoint(gunichar c, std::string& key) {
  const gunichar base = baseCharacter(g_unichar_tolower(c));
  if (base < 128) {
    key += AsciiRanks[base];
    return;
  }
  char utf8[6];
  const int length = g_unichar_to_utf8(base, utf8);
  key += g_unichar_isalnum(base) ? OtherLetters : OtherUnicode;
  key.append(utf8, static_cast<std::size_t>(length));
}

void appendAccents(std::string_view text, std::string& key) {
  key += AccentPart;
  const char* at = text.data();
  const char* end = at + text.size();
  while (at < end) {
    const gunichar c = g_utf8_get_char_validated(at, end - at);
    if (c == static_cast<gunichar>(-1) || c == static_cast<gunichar>(-2)) {
      key += *at++;
      continue;
    }
    char utf8[6];
    key.append(utf8, static_cast<std::size_t>(g_unichar_to_utf8(g_unichar_tolower(c), utf8)));
    at = g_utf8_next_char(at);
  }
}

}  // namespace

bool appendBaseOrderKey(std::string_view text, std::string& key) {
  // Most names are ASCII: a loop that only counts on takes their letters.
  const std::size_t before = key.size();
  key.append(text);
  unsigned char all = 0;
  for (std::size_t place = before; place < key.size(); ++place) {
    const auto byte = static_cast<unsigned char>(key[place]);
    all |= byte;
    key[place] = AsciiRanks[byte & 0x7F];
  }
  if (all < 0x80) return true;
  key.resize(before);
  const char* at = text.data();
  const char* end = at + text.size();
  while (at < end) {
    const auto byte = static_cast<unsigned char>(*at);
    if (byte < 128) {
      key += AsciiRanks[byte];
      ++at;
      continue;
    }
    const gunichar c = g_utf8_get_char_validated(at, end - at);
    if (c == static_cast<gunichar>(-1) || c == static_cast<gunichar>(-2)) {
      key += BrokenByte;
      key += *at++;
      continue;
    }
    appendCodePoint(c, key);
    at = g_utf8_next_char(at);
  }
  return false;
}

void appendOrderKey(std::string_view text, std::string& key) {
  if (!appendBaseOrderKey(text, key)) appendAccents(text, key);
}

}  // namespace varnholt::platform

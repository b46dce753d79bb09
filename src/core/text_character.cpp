#include "core/text_character.hpp"

namespace varnholt::core {
namespace {

struct Lead {
  size_t bytes;
  std::uint32_t bits, smallest;
};

/// What a first byte announces; no bytes for one that cannot be first.
Lead leadOf(unsigned char byte) {
  if (byte >= 0xC2 && byte <= 0xDF) return {2, byte & 0x1Fu, 0x80};
  if (byte >= 0xE0 && byte <= 0xEF) return {3, byte & 0x0Fu, 0x800};
  if (byte >= 0xF0 && byte <= 0xF4) return {4, byte & 0x07u, 0x10000};
  return {0, 0, 0};
}

}  // namespace

TextCharacter firstCharacter(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x80) return {first, 1};
  const TextCharacter invalid{0x110000u + first, 1};
  const Lead lead = leadOf(first);
  if (lead.bytes == 0 || text.size() < lead.bytes) return invalid;
  std::uint32_t code = lead.bits;
  for (size_t i = 1; i < lead.bytes; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0) != 0x80) return invalid;
    code = code << 6 | (byte & 0x3Fu);
  }
  const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < lead.smallest || code > 0x10FFFF || isSurrogate) return invalid;
  return {code, lead.bytes};
}

std::string_view trimmed(std::string_view text) {
  const auto from = text.find_first_not_of(' ');
  if (from == std::string_view::npos) return {};
  return text.substr(from, text.find_last_not_of(' ') - from + 1);
}

size_t characterCount(std::string_view text) {
  size_t count = 0;
  for (; !text.empty(); ++count)
    text.remove_prefix(firstCharacter(text).bytes);
  return count;
}

std::string_view lastCharacters(std::string_view text, size_t count) {
  for (size_t all = characterCount(text); all > count; --all)
    text.remove_prefix(firstCharacter(text).bytes);
  return text;
}

std::string shortened(std::string_view text, size_t limit, size_t kept) {
  if (characterCount(text) < limit) return std::string(text);
  return "..." + std::string(lastCharacters(text, kept));
}

}  // namespace varnholt::core

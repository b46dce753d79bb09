#include "platform/attributes.hpp"

#include <charconv>

namespace varnholt::platform {
namespace {

constexpr Attributes attributeWord = 0xFFFF;
constexpr std::uint32_t attribIsValid = 1;

std::uint32_t littleEndian(std::string_view bytes, size_t at, size_t count) {
  std::uint32_t value = 0;
  for (size_t i = 0; i < count; ++i)
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
  return value;
}

size_t alignedTo(size_t offset, size_t step) { return (offset + step - 1) / step * step; }

std::optional<Attributes> decodeText(std::string_view text) {
  if (text.size() < 3 || text.size() > 10 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X')) return {};
  Attributes value = 0;
  const char* end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data() + 2, end, value, 16);
  return parsed.ec == std::errc() && parsed.ptr == end ? std::optional(value & attributeWord) : std::nullopt;
}

/// Bytes of the fields behind the header: flags and attributes, then sizes and times that differ by version.
size_t fieldBytes(std::uint32_t version) {
  switch (version) {
  case 3:
    return 44;
  case 4:
    return 24;
  case 5:
    return 16;
  default:
    return 0;
  }
}

/// [text, NUL] [to even] [version, 16 bits] [version again] [to a multiple of 4] [flags] [attributes] ...,
/// little-endian (Samba, librpc/idl/xattr.idl).
std::optional<Attributes> decodeBinary(std::string_view bytes, size_t textEnd) {
  const size_t versions = alignedTo(textEnd + 1, 2);
  const size_t fields = alignedTo(versions + 4, 4);
  if (fields > bytes.size()) return {};
  const std::uint32_t version = littleEndian(bytes, versions, 2);
  const size_t needed = fieldBytes(version);
  if (needed == 0 || version != littleEndian(bytes, versions + 2, 2) || bytes.size() - fields < needed) return {};
  if (!(littleEndian(bytes, fields, 4) & attribIsValid)) return {};
  return littleEndian(bytes, fields + 4, 4) & attributeWord;
}

}  // namespace

std::optional<Attributes> decodeDosAttrib(std::string_view bytes) {
  const size_t nul = bytes.find('\0');
  if (nul == std::string_view::npos) return decodeText(bytes);
  return nul + 1 == bytes.size() ? decodeText(bytes.substr(0, nul)) : decodeBinary(bytes, nul);
}

std::string encodeDosAttrib(Attributes attributes) {
  char digits[8];
  const auto written = std::to_chars(digits, digits + sizeof digits, attributes & attributeWord, 16);
  return "0x" + std::string(digits, written.ptr);
}

}  // namespace varnholt::platform

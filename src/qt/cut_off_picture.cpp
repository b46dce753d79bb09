#include "qt/cut_off_picture.hpp"

#include "core/picture_file.hpp"

#include <cstdint>
#include <optional>

namespace varnholt::qt {
namespace {

using namespace std::string_view_literals;

std::size_t byteAt(std::string_view bytes, std::size_t at) {
  return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

// The end marker cannot stand in the picture's own data, but does in those of a thumbnail, which are passed over with
// their segment.
bool isCutOffJpeg(std::string_view bytes) {
  constexpr std::size_t Marker = 0xFF, StartOfScan = 0xDA;
  for (std::size_t at = 2; at + 4 <= bytes.size() && byteAt(bytes, at) == Marker;) {
    if (byteAt(bytes, at + 1) == StartOfScan) return bytes.find("\xFF\xD9"sv, at) == std::string_view::npos;
    const bool fills = byteAt(bytes, at + 1) == Marker;
    at += fills ? 1 : 2 + (byteAt(bytes, at + 2) << 8 | byteAt(bytes, at + 3));
  }
  return true;
}

std::size_t gifColors(std::size_t flags) { return flags & 0x80 ? std::size_t{3} << ((flags & 7) + 1) : 0; }

/// Where the chain of blocks that begins here ends; none: behind the file.
std::optional<std::size_t> behindBlocks(std::string_view bytes, std::size_t at) {
  while (at < bytes.size() && byteAt(bytes, at) != 0)
    at += 1 + byteAt(bytes, at);
  return at < bytes.size() ? std::optional(at + 1) : std::nullopt;
}

// The first picture of it is what is shown.
bool isCutOffGif(std::string_view bytes) {
  constexpr std::size_t Extension = 0x21, Picture = 0x2C, Header = 13, PictureHeader = 10;
  std::optional<std::size_t> at = Header + gifColors(byteAt(bytes, 10));
  while (at && byteAt(bytes, *at) == Extension)
    at = behindBlocks(bytes, *at + 2);
  if (!at || byteAt(bytes, *at) != Picture) return true;
  return !behindBlocks(bytes, *at + PictureHeader + gifColors(byteAt(bytes, *at + PictureHeader - 1)) + 1);
}

bool isCutOffBmp(std::string_view bytes) {
  std::uint64_t length = 0;
  for (std::size_t at = 5; at >= 2; --at)
    length = length << 8 | byteAt(bytes, at);
  return length > bytes.size();
}

}  // namespace

bool isCutOff(std::string_view bytes) {
  const std::string_view format = core::pictureFormat(bytes);
  if (format == "jpeg") return isCutOffJpeg(bytes);
  if (format == "gif") return isCutOffGif(bytes);
  return format == "bmp" && isCutOffBmp(bytes);
}

}  // namespace varnholt::qt

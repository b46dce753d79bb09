#include "qt/exif_turn.hpp"

#include <QTransform>

#include <cstdint>

namespace varnholt::qt {
namespace {

using namespace std::string_view_literals;

// 0 behind the end.
std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t length, bool bigEnd) {
  std::uint32_t value = 0;
  for (std::size_t each = 0; each < length; ++each) {
    const std::size_t place = bigEnd ? at + each : at + length - 1 - each;
    value = value << 8 | (place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0u);
  }
  return value;
}

// A file of chunks: length and name in this or the other order, the data, and what stands behind them.
std::string_view chunk(std::string_view bytes, std::size_t at, std::string_view wanted, bool isPng) {
  while (at + 8 <= bytes.size()) {
    const std::size_t length = number(bytes, isPng ? at : at + 4, 4, isPng);
    if (bytes.substr(isPng ? at + 4 : at, 4) == wanted) return bytes.substr(at + 8, length);
    at += 8 + length + (isPng ? 4 : length % 2);
  }
  return {};
}

int orientationIn(std::string_view exif) {
  constexpr std::uint32_t Orientation = 0x0112;
  if (exif.starts_with("Exif\0\0"sv)) exif.remove_prefix(6);
  const bool bigEnd = exif.starts_with("MM"sv);
  const std::size_t table = number(exif, 4, 4, bigEnd);
  const std::uint32_t entries = number(exif, table, 2, bigEnd);
  for (std::size_t entry = 0; entry < entries; ++entry) {
    const std::size_t at = table + 2 + 12 * entry;
    if (at >= exif.size()) break;
    if (number(exif, at, 2, bigEnd) == Orientation) return static_cast<int>(number(exif, at + 8, 2, bigEnd));
  }
  return 1;
}

}  // namespace

int heldByCamera(std::string_view bytes) {
  std::string_view exif;
  if (bytes.starts_with("RIFF"sv)) exif = chunk(bytes, 12, "EXIF"sv, false);
  if (bytes.starts_with("\x89PNG"sv)) exif = chunk(bytes, 8, "eXIf"sv, true);
  const int held = orientationIn(exif);
  return held >= 1 && held <= 8 ? held : 1;
}

QImage turnedUpright(const QImage& picture, int held) {
  const bool mirrored = held == 2 || held == 4 || held == 5 || held == 7;
  const int angle = held == 3 || held == 4 ? 180 : held == 6 || held == 7 ? 90 : liesDown(held) ? 270 : 0;
  const QImage turned = mirrored ? picture.mirrored(true, false) : picture;
  return angle == 0 ? turned : turned.transformed(QTransform().rotate(angle));
}

}  // namespace varnholt::qt

#include "core/picture_file.hpp"

#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>

namespace varnholt::core {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view Extensions[] = {"bmp", "gif", "jpg",  "jpeg", "png",  "ico",  "cur",
                                           "svg", "tif", "tiff", "webp", "heic", "heif", "avif"};

// The first bytes of a file in each format.
struct Beginning {
  std::string_view bytes, format;
};
constexpr Beginning Beginnings[] = {{"BM"sv, "bmp"},
                                    {"GIF87a"sv, "gif"},
                                    {"GIF89a"sv, "gif"},
                                    {"\xFF\xD8\xFF"sv, "jpeg"},
                                    {"\x89PNG\r\n\x1A\n"sv, "png"},
                                    {"\x00\x00\x01\x00"sv, "ico"},
                                    {"\x00\x00\x02\x00"sv, "ico"},
                                    {"II*\x00"sv, "tiff"},
                                    {"MM\x00*"sv, "tiff"}};

// An SVG file is XML, whose root may stand behind a declaration and comments.
constexpr std::size_t RootWithin = PictureBeginning;

bool isWebP(std::string_view bytes) { return bytes.starts_with("RIFF"sv) && bytes.substr(0, 12).ends_with("WEBP"sv); }

// The brands of HEIC, HEIF and AVIF pictures and sequences; those of films have the same beginning.
bool isHeif(std::string_view bytes) {
  constexpr std::string_view Brands[] = {"heic", "heix", "heim", "heis", "hevc", "mif1", "msf1", "avif", "avis"};
  if (bytes.size() < 12 || bytes.substr(4, 4) != "ftyp") return false;
  return std::ranges::find(Brands, bytes.substr(8, 4)) != std::end(Brands);
}

}  // namespace

bool hasPictureName(std::string_view name) {
  const std::string extension = platform::foldCase(platform::paths::extension(name));
  return std::ranges::find(Extensions, extension) != std::end(Extensions);
}

std::string_view pictureFormat(std::string_view bytes) {
  for (const auto& [beginning, format] : Beginnings)
    if (bytes.starts_with(beginning)) return format;
  if (isWebP(bytes)) return "webp";
  if (isHeif(bytes)) return "heif";
  return bytes.substr(0, RootWithin).find("<svg") != std::string_view::npos ? "svg" : "";
}

}  // namespace varnholt::core

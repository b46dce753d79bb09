#include "core/picture_file.hpp"

#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>

namespace varnholt::core {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view Extensions[] = {"bmp", "gif", "jpg",  "jpeg", "png",  "ico",  "cur",
                                           "svg", "tif", "tiff", "webp", "heic", "heif", "avif"};

// The first bytes: BMP, GIF 87a and 89a, JPEG, PNG, ICO and CUR, TIFF of both byte orders.
constexpr std::string_view Beginnings[] = {"BM"sv,
                                           "GIF87a"sv,
                                           "GIF89a"sv,
                                           "\xFF\xD8\xFF"sv,
                                           "\x89PNG\r\n\x1A\n"sv,
                                           "\x00\x00\x01\x00"sv,
                                           "\x00\x00\x02\x00"sv,
                                           "II*\x00"sv,
                                           "MM\x00*"sv};

// An SVG file is XML, whose root may stand behind a declaration and comments.
constexpr std::size_t RootWithin = PictureBeginning;

bool isWebP(std::string_view bytes) { return bytes.starts_with("RIFF"sv) && bytes.substr(0, 12).ends_with("WEBP"sv); }

}  // namespace

bool hasPictureName(std::string_view name) {
  const std::string extension = platform::foldCase(platform::paths::extension(name));
  return std::ranges::find(Extensions, extension) != std::end(Extensions);
}

bool isHeif(std::string_view bytes) {
  // The brands of HEIC, HEIF and AVIF pictures and sequences; those of films have the same beginning.
  constexpr std::string_view Brands[] = {"heic", "heix", "heim", "heis", "hevc", "mif1", "msf1", "avif", "avis"};
  if (bytes.size() < 12 || bytes.substr(4, 4) != "ftyp") return false;
  return std::ranges::find(Brands, bytes.substr(8, 4)) != std::end(Brands);
}

bool isPicture(std::string_view bytes) {
  if (std::ranges::any_of(Beginnings, [&](std::string_view each) { return bytes.starts_with(each); })) return true;
  if (isWebP(bytes) || isHeif(bytes)) return true;
  return bytes.substr(0, RootWithin).find("<svg") != std::string_view::npos;
}

}  // namespace varnholt::core

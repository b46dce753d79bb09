#pragma once

#include <cstddef>
#include <string_view>

namespace varnholt::core {

/// True when a file of that name is likely to hold a picture, so that it is worth reading.
bool hasPictureName(std::string_view name);
/// How much of a file is enough to tell.
inline constexpr std::size_t PictureBeginning = 4096;
/// The format of a picture that begins with these bytes: "bmp", "gif", "heif" (with HEIC and AVIF), "ico" (with
/// pointers), "jpeg", "png", "svg", "tiff" or "webp"; empty for what is drawn as no picture.
std::string_view pictureFormat(std::string_view bytes);

}  // namespace varnholt::core

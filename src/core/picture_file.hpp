#pragma once

#include <cstddef>
#include <string_view>

namespace varnholt::core {

/// True when a file of that name is likely to hold a picture, so that it is worth reading.
bool hasPictureName(std::string_view name);
/// How much of a file is enough to tell.
inline constexpr std::size_t PictureBeginning = 4096;
/// True when the bytes begin as one of the picture formats that are drawn.
bool isPicture(std::string_view bytes);
/// True for the formats among them that phones write: HEIC, HEIF and AVIF.
bool isHeif(std::string_view bytes);

}  // namespace varnholt::core

#pragma once

#include <string_view>

namespace varnholt::core {

/// True when a file of that name is likely to hold a picture, so that it is worth reading.
bool hasPictureName(std::string_view name);
/// True when the bytes begin as one of the picture formats that are drawn.
bool isPicture(std::string_view bytes);

}  // namespace varnholt::core

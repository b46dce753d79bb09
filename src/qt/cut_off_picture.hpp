#pragma once

#include <string_view>

namespace varnholt::qt {

/// True for a JPEG, GIF or BMP file that ends before its picture does. Their decoders would make the rest grey or black
/// without a word; those of the other formats tell.
bool isCutOff(std::string_view bytes);

}  // namespace varnholt::qt

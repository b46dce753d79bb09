#pragma once

#include <QImage>

#include <string_view>

namespace varnholt::qt {

/// How the camera was held, 1 (upright) to 8, as a WebP or PNG file says; the toolkit reads it of JPEG and TIFF files
/// only, for which this is 1.
int heldByCamera(std::string_view bytes);
/// True when width and height change places.
constexpr bool liesDown(int held) { return held >= 5; }
/// The picture upright.
QImage turnedUpright(const QImage& picture, int held);

}  // namespace varnholt::qt

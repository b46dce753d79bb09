#pragma once

#include <QImage>
#include <QSize>

#include <atomic>
#include <string>

namespace varnholt::qt {

/// What is wanted of a picture.
struct PictureWish {
  /// In pixels; empty: the picture in its own size.
  QSize area;
  enum class Fit {
    Cover,    ///< room in both directions
    Show,     ///< as much as shows the whole picture
    Preview,  ///< the same where that is much sooner done than all of it; else all of it
  } fit = Fit::Show;
};

struct DecodedPicture {
  QImage image;   ///< null: no picture, cut off, or too large; ready to be drawn
  QSize natural;  ///< its own size, of which the image may be a smaller copy
  bool isWhole() const { return image.size() == natural; }
};

/// Decodes the bytes of a picture's file, turned as its camera says. It is decoded smaller where the format can be,
/// also when all of it would take more memory than a picture may. Gives up when it is not wanted any more. May be
/// called on any thread.
DecodedPicture decodePicture(const std::string& bytes, const PictureWish& wish, const std::atomic<bool>& unwanted);

}  // namespace varnholt::qt

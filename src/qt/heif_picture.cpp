#include "qt/heif_picture.hpp"

#include <QImageReader>

#include <libheif/heif.h>

#include <memory>

namespace varnholt::qt {
namespace {

template <auto Free>
struct Freed {
  template <class T>
  void operator()(T* held) const {
    Free(held);
  }
};
using Context = std::unique_ptr<heif_context, Freed<heif_context_free>>;
using Handle = std::unique_ptr<heif_image_handle, Freed<heif_image_handle_release>>;
using Image = std::unique_ptr<heif_image, Freed<heif_image_release>>;

Handle mainPicture(const heif_context* context) {
  heif_image_handle* handle = nullptr;
  const heif_error error = heif_context_get_primary_image_handle(const_cast<heif_context*>(context), &handle);
  return Handle(error.code == heif_error_Ok ? handle : nullptr);
}

Image pixels(const heif_image_handle* handle, bool seeThrough) {
  heif_image* image = nullptr;
  const auto chroma = seeThrough ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB;
  const heif_error error = heif_decode_image(handle, &image, heif_colorspace_RGB, chroma, nullptr);
  return Image(error.code == heif_error_Ok ? image : nullptr);
}

}  // namespace

DecodedPicture decodeHeif(const std::string& bytes) {
  const Context context(heif_context_alloc());
  if (heif_context_read_from_memory_without_copy(context.get(), bytes.data(), bytes.size(), nullptr).code !=
      heif_error_Ok)
    return {};
  const Handle handle = mainPicture(context.get());
  if (!handle) return {};
  const QSize natural(heif_image_handle_get_width(handle.get()), heif_image_handle_get_height(handle.get()));
  const qint64 limit = qint64{QImageReader::allocationLimit()} << 20;
  if (natural.isEmpty() || qint64{4} * natural.width() * natural.height() > limit) return {};
  const bool seeThrough = heif_image_handle_has_alpha_channel(handle.get()) != 0;
  const Image decoded = pixels(handle.get(), seeThrough);
  if (!decoded) return {};
  int stride = 0;
  const std::uint8_t* plane = heif_image_get_plane_readonly(decoded.get(), heif_channel_interleaved, &stride);
  if (!plane) return {};
  const QSize size(heif_image_get_width(decoded.get(), heif_channel_interleaved),
                   heif_image_get_height(decoded.get(), heif_channel_interleaved));
  const QImage view(plane, size.width(), size.height(), stride,
                    seeThrough ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
  return {view.convertToFormat(seeThrough ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32), size};
}

}  // namespace varnholt::qt

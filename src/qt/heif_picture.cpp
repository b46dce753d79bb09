#include "qt/heif_picture.hpp"

#include "platform/shared_library.hpp"

#include <QImageReader>

#include <libheif/heif.h>

#include <memory>

namespace varnholt::qt {
namespace {

/// What we use of libheif, whose interface is the same in all of 1.x: its decoders fill their tables as they are
/// loaded.
class HeifLibrary : public platform::LateLibrary {
 public:
  HeifLibrary() : LateLibrary("libheif.so.1") {}

  VARNHOLT_LATE_CALL(heif_context_alloc);
  VARNHOLT_LATE_CALL(heif_context_free);
  VARNHOLT_LATE_CALL(heif_context_read_from_memory_without_copy);
  VARNHOLT_LATE_CALL(heif_context_get_primary_image_handle);
  VARNHOLT_LATE_CALL(heif_image_handle_release);
  VARNHOLT_LATE_CALL(heif_image_handle_get_width);
  VARNHOLT_LATE_CALL(heif_image_handle_get_height);
  VARNHOLT_LATE_CALL(heif_image_handle_has_alpha_channel);
  VARNHOLT_LATE_CALL(heif_decode_image);
  VARNHOLT_LATE_CALL(heif_image_release);
  VARNHOLT_LATE_CALL(heif_image_get_plane_readonly);
  VARNHOLT_LATE_CALL(heif_image_get_width);
  VARNHOLT_LATE_CALL(heif_image_get_height);
};

const HeifLibrary& heif() {
  static const HeifLibrary library;
  return library;
}

using Context = std::unique_ptr<heif_context, decltype(heif_context_free)*>;
using Handle = std::unique_ptr<heif_image_handle, decltype(heif_image_handle_release)*>;
using Image = std::unique_ptr<heif_image, decltype(heif_image_release)*>;

Handle mainPicture(const Context& context) {
  heif_image_handle* handle = nullptr;
  const heif_error error = heif().heif_context_get_primary_image_handle(context.get(), &handle);
  return {error.code == heif_error_Ok ? handle : nullptr, heif().heif_image_handle_release};
}

Image pixels(const Handle& handle, bool seeThrough) {
  heif_image* image = nullptr;
  const auto chroma = seeThrough ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB;
  const heif_error error = heif().heif_decode_image(handle.get(), &image, heif_colorspace_RGB, chroma, nullptr);
  return {error.code == heif_error_Ok ? image : nullptr, heif().heif_image_release};
}

}  // namespace

DecodedPicture decodeHeif(const std::string& bytes) {
  const HeifLibrary& library = heif();
  if (!library.isWhole()) return {};
  const Context context(library.heif_context_alloc(), library.heif_context_free);
  if (library.heif_context_read_from_memory_without_copy(context.get(), bytes.data(), bytes.size(), nullptr).code !=
      heif_error_Ok)
    return {};
  const Handle handle = mainPicture(context);
  if (!handle) return {};
  const QSize natural(library.heif_image_handle_get_width(handle.get()),
                      library.heif_image_handle_get_height(handle.get()));
  const qint64 limit = qint64{QImageReader::allocationLimit()} << 20;
  if (natural.isEmpty() || qint64{4} * natural.width() * natural.height() > limit) return {};
  const bool seeThrough = library.heif_image_handle_has_alpha_channel(handle.get()) != 0;
  const Image decoded = pixels(handle, seeThrough);
  if (!decoded) return {};
  int stride = 0;
  const std::uint8_t* plane = library.heif_image_get_plane_readonly(decoded.get(), heif_channel_interleaved, &stride);
  if (!plane) return {};
  const QSize size(library.heif_image_get_width(decoded.get(), heif_channel_interleaved),
                   library.heif_image_get_height(decoded.get(), heif_channel_interleaved));
  const QImage view(plane, size.width(), size.height(), stride,
                    seeThrough ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
  return {view.convertToFormat(seeThrough ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32), size};
}

}  // namespace varnholt::qt

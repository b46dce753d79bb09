#include "qt/heif_picture.hpp"

#include <QImageReader>
#include <QLibrary>

#include <libheif/heif.h>

#include <memory>

namespace varnholt::qt {
namespace {

/// What we use of libheif. It is opened at the first such picture: its decoders fill their tables as they are loaded,
/// which would cost every start of the program a tenth of its time.
class HeifLibrary {
  QLibrary file_{QStringLiteral("heif"), 1};  // libheif.so.1: the interface of all of 1.x
  template <class F>
  F* find(const char* name) {
    auto* const found = reinterpret_cast<F*>(file_.resolve(name));
    complete = complete && found;
    return found;
  }

 public:
  /// False: this system has no such library; nothing else is to be used then.
  bool complete = true;
#define VARNHOLT_HEIF(name) decltype(heif_##name)* const name = find<decltype(heif_##name)>("heif_" #name)
  VARNHOLT_HEIF(context_alloc);
  VARNHOLT_HEIF(context_free);
  VARNHOLT_HEIF(context_read_from_memory_without_copy);
  VARNHOLT_HEIF(context_get_primary_image_handle);
  VARNHOLT_HEIF(image_handle_release);
  VARNHOLT_HEIF(image_handle_get_width);
  VARNHOLT_HEIF(image_handle_get_height);
  VARNHOLT_HEIF(image_handle_has_alpha_channel);
  VARNHOLT_HEIF(decode_image);
  VARNHOLT_HEIF(image_release);
  VARNHOLT_HEIF(image_get_plane_readonly);
  VARNHOLT_HEIF(image_get_width);
  VARNHOLT_HEIF(image_get_height);
#undef VARNHOLT_HEIF
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
  const heif_error error = heif().context_get_primary_image_handle(context.get(), &handle);
  return {error.code == heif_error_Ok ? handle : nullptr, heif().image_handle_release};
}

Image pixels(const Handle& handle, bool seeThrough) {
  heif_image* image = nullptr;
  const auto chroma = seeThrough ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB;
  const heif_error error = heif().decode_image(handle.get(), &image, heif_colorspace_RGB, chroma, nullptr);
  return {error.code == heif_error_Ok ? image : nullptr, heif().image_release};
}

}  // namespace

DecodedPicture decodeHeif(const std::string& bytes) {
  const HeifLibrary& library = heif();
  if (!library.complete) return {};
  const Context context(library.context_alloc(), library.context_free);
  if (library.context_read_from_memory_without_copy(context.get(), bytes.data(), bytes.size(), nullptr).code !=
      heif_error_Ok)
    return {};
  const Handle handle = mainPicture(context);
  if (!handle) return {};
  const QSize natural(library.image_handle_get_width(handle.get()), library.image_handle_get_height(handle.get()));
  const qint64 limit = qint64{QImageReader::allocationLimit()} << 20;
  if (natural.isEmpty() || qint64{4} * natural.width() * natural.height() > limit) return {};
  const bool seeThrough = library.image_handle_has_alpha_channel(handle.get()) != 0;
  const Image decoded = pixels(handle, seeThrough);
  if (!decoded) return {};
  int stride = 0;
  const std::uint8_t* plane = library.image_get_plane_readonly(decoded.get(), heif_channel_interleaved, &stride);
  if (!plane) return {};
  const QSize size(library.image_get_width(decoded.get(), heif_channel_interleaved),
                   library.image_get_height(decoded.get(), heif_channel_interleaved));
  const QImage view(plane, size.width(), size.height(), stride,
                    seeThrough ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
  return {view.convertToFormat(seeThrough ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32), size};
}

}  // namespace varnholt::qt

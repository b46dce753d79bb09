#include "qt/typed_ahead.hpp"

#include <QApplication>

#include <algorithm>

namespace varnholt::qt {
namespace {

/// A key as the X server tells it, up to the window it is for (X Window System Protocol, appendix B, KeyPress).
struct ServerKey {
  std::uint8_t type, key;
  std::uint16_t sequence;
  std::uint32_t time, root, window;
};
constexpr int Press = 2, Release = 3;
constexpr int SentByProgram = 0x80;

/// True: the window takes no keys, although the server believes so.
bool isDeaf(const QWidget& window, const QWidget& inFront) {
  if (&window == &inFront || window.windowType() == Qt::Popup) return false;
  return !window.isVisible() || inFront.isModal();
}

}  // namespace

TypedAhead::TypedAhead(std::function<QWidget*()> inFront) : inFront_(std::move(inFront)) {
  QCoreApplication::instance()->installNativeEventFilter(this);
}

TypedAhead::~TypedAhead() { QCoreApplication::instance()->removeNativeEventFilter(this); }

bool TypedAhead::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
  if (type != "xcb_generic_event_t") return false;
  auto& event = *static_cast<ServerKey*>(message);
  const int kind = event.type & ~SentByProgram;
  if (kind != Press && (kind != Release || down_.erase(event.key) == 0)) return false;
  const QWidget* inFront = inFront_();
  if (!inFront || !inFront->isVisible() || inFront->internalWinId() == 0) return false;
  const auto windows = QApplication::topLevelWidgets();
  const auto meant = std::ranges::find(windows, event.window, &QWidget::internalWinId);
  if (meant == windows.end() || !isDeaf(**meant, *inFront)) return false;
  event.window = static_cast<std::uint32_t>(inFront->internalWinId());
  if (kind == Press) down_.insert(event.key);
  return false;
}

}  // namespace varnholt::qt

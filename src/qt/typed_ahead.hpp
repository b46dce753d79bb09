#pragma once

#include <QAbstractNativeEventFilter>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <set>

namespace varnholt::qt {

/// Keys that are typed while a window comes or goes. The X server still sends them to the window that had the keyboard
/// when they were pressed, which stands behind the new dialog by now, or is gone: they go to the window in front, as
/// they would a moment later. Elsewhere the window system itself waits. Needs a QApplication, which outlives it.
class TypedAhead : public QAbstractNativeEventFilter {
 public:
  /// `inFront` tells the window that the user sees in front, null: none.
  explicit TypedAhead(std::function<QWidget*()> inFront);
  ~TypedAhead() override;

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  std::function<QWidget*()> inFront_;
  std::set<std::uint8_t> down_;  ///< keys whose press went elsewhere; so does their release
};

}  // namespace varnholt::qt

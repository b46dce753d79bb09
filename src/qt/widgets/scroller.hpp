#pragma once

#include <QScrollArea>

namespace varnholt::qt {

/// What a dialog holds, where the screen is too small for all of it at once. What has the keyboard is in sight.
class Scroller : public QScrollArea {
 public:
  /// Takes the layout of the dialog, and stands in its place.
  explicit Scroller(QWidget& dialog);

  QSize sizeHint() const override;
};

}  // namespace varnholt::qt

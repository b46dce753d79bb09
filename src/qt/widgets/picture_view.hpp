#pragma once

#include <QAbstractScrollArea>
#include <QIcon>
#include <QPixmap>

namespace varnholt::qt {

/// Shows a picture or an icon. The dynamic property "defaultIcon" names the icon shown while there is neither;
/// without it the area is empty then.
class PictureView : public QAbstractScrollArea {
  Q_OBJECT
 public:
  explicit PictureView(QWidget* parent = nullptr);
  /// `natural`: its own size, of which the pixmap may be a smaller copy; empty: the pixmap's.
  void setPicture(const QPixmap& picture, const QSize& natural = {});
  const QSize& naturalSize() const { return natural_; }
  /// It has all pixels of the picture, and not a smaller copy.
  bool isWhole() const { return picture_.size() == natural_; }
  void setIcon(const QIcon& icon);
  /// As large as the area lets it be, in its own proportions; otherwise in its own size from the upper left, with
  /// scroll bars where the area is smaller.
  void setStretch(bool stretch);
  /// A click on it does something: assistive technology is offered to press it.
  void setPressable(bool pressable) { pressable_ = pressable; }
  bool isPressable() const { return pressable_ && isEnabled(); }
  /// What is drawn of the picture, in pixels of the screen; empty: all that it has.
  QSize wantedPixels() const;
  /// The area itself in such pixels.
  QSize areaPixels() const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 Q_SIGNALS:
  /// By assistive technology; the mouse is told to who watches it.
  void pressed();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void place();
  void paintIcon(QPainter& painter) const;

  QPixmap picture_;
  QSize natural_;
  QIcon icon_;
  bool stretch_ = false, pressable_ = false;
};

}  // namespace varnholt::qt

#pragma once

#include <QDialog>
#include <QFrame>
#include <QImage>
#include <QPixmap>

#include <functional>

namespace varnholt::qt {

/// A picture behind a window, made to cover it and keep its proportions.
class Skin {
 public:
  /// Gives the picture in a size that covers the area, in pixels; null: none.
  using Source = std::function<QImage(const QSize& area)>;
  /// The share of a window's size that a picture needs: a calm surface may be blown up by a tenth unseen, which lets a
  /// window of usual size do with half of the large skin.
  static constexpr double Sharpness = 0.9;

  void set(Source source);
  void paint(QWidget& widget, const QRegion& region);

 private:
  Source source_;
  QImage read_;     ///< a little larger than the window was, so that a growing window does not read it at each step
  QPixmap fitted_;  ///< of the window's size, so that repaints only copy
};

/// The part of a main window that a skin shines through.
class Backdrop : public QWidget {
  Q_OBJECT
 public:
  using QWidget::QWidget;
  void setSkin(Skin::Source source);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Skin skin_;
};

/// A dialog that a skin shines through.
class SkinDialog : public QDialog {
  Q_OBJECT
 public:
  explicit SkinDialog(QWidget* parent = nullptr);
  void setSkin(Skin::Source source);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  Skin skin_;
};

/// A panel of its own colour, on which controls stand, so that their texts never fight a skin. With the dynamic
/// property "hideWhenEmpty" it is there only while a control in it is visible.
class Surface : public QFrame {
  Q_OBJECT
 public:
  explicit Surface(QWidget* parent = nullptr);
  /// Marks the panel that commands act on.
  void setActive(bool active);
  bool isActive() const { return active_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool active_ = false;
};

}  // namespace varnholt::qt

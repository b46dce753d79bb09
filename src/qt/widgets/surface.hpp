#pragma once

#include <QDialog>
#include <QFrame>
#include <QPixmap>

namespace varnholt::qt {

/// Draws a skin so that it covers the whole area, keeping its proportions; without one, nothing.
void paintSkin(QWidget& widget, const QPixmap& skin);

/// The part of a main window that a skin shines through.
class Backdrop : public QWidget {
  Q_OBJECT
 public:
  using QWidget::QWidget;
  void setSkin(const QPixmap& skin);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap skin_;
};

/// A dialog that a skin shines through.
class SkinDialog : public QDialog {
  Q_OBJECT
 public:
  explicit SkinDialog(QWidget* parent = nullptr);
  void setSkin(const QPixmap& skin);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap skin_;
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

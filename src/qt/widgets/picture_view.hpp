#pragma once

#include <QIcon>
#include <QPixmap>
#include <QWidget>

namespace varnholt::qt {

/// Shows a picture or an icon, centred. The dynamic property "defaultIcon" names the icon shown while there is neither.
class PictureView : public QWidget {
  Q_OBJECT
 public:
  explicit PictureView(QWidget* parent = nullptr);
  void setPicture(const QPixmap& picture);
  void setIcon(const QIcon& icon);
  /// Fills the whole area, whatever the picture's proportions; otherwise it is made smaller when it must, and never
  /// larger.
  void setStretch(bool stretch);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
  QIcon icon_;
  bool stretch_ = false;
};

}  // namespace varnholt::qt

#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/icons.hpp"
#include "qt/pictures.hpp"
#include "qt/text.hpp"
#include "qt/widgets/picture_view.hpp"

namespace varnholt::qt {
namespace {

class PictureBoxAdapter : public Joined<controls::PictureBox, PictureView> {
 public:
  using Joined::Joined;

 protected:
  QString ownName() const override { return QStringLiteral("Picture"); }

  void updateOwn() override {
    drawn.setStretch(self.Stretch);
    if (self.PictureData.get() != data_) {
      data_ = self.PictureData.get();
      QPixmap pixmap;
      pixmap.loadFromData(reinterpret_cast<const uchar*>(data_.data()), static_cast<uint>(data_.size()));
      drawn.setPicture(pixmap);
    }
    if (self.Picture.get() != picture_) drawn.setPicture(host().pictures().fresh(picture_ = self.Picture.get()));
    if (self.IconName.get() != icon_) drawn.setIcon(desktopIcon(icon_ = self.IconName.get()));
  }

 private:
  static QIcon desktopIcon(const std::string& name) {
    return name.empty() ? QIcon() : QIcon::fromTheme(toQt(name), iconNamed(name));
  }

  std::string picture_, data_, icon_;
};

}  // namespace

std::unique_ptr<Adapter> joinPictureBox(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<PictureBoxAdapter>(host, control, widget);
}

}  // namespace varnholt::qt

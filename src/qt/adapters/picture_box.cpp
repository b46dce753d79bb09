#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/icons.hpp"
#include "qt/pictures.hpp"
#include "qt/text.hpp"
#include "qt/widgets/picture_view.hpp"

#include <QEvent>
#include <QPointer>

#include <optional>

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
    if (self.Picture.get() != picture_) {
      picture_ = self.Picture.get();
      asked_.reset();
      drawn.setPicture({});
      shownWidth_ = 0;
    }
    load();
    if (self.IconName.get() != icon_) drawn.setIcon(desktopIcon(icon_ = self.IconName.get()));
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize && watched == drawn.viewport() && !abandoned()) load();
    return Joined::eventFilter(watched, event);
  }

 private:
  // One that does not come, from a drive that is gone, must not keep the next ones away. More at once would pile up
  // while a key is held down.
  static constexpr int AtOnce = 2;

  // What was asked for may be too small for a larger area, or for the picture's own size.
  bool isAskedFor(const QSize& area) const {
    if (!asked_) return false;
    return asked_->isEmpty() || (!area.isEmpty() && area.boundedTo(*asked_) == area);
  }

  void load() {
    const QSize area = drawn.wantedPixels();
    if (picture_.empty() || loading_ == AtOnce || isAskedFor(area)) return;
    asked_ = area;
    ++loading_;
    host().pictures().loadBeside(picture_, area,
                                 [self = QPointer(this), path = picture_](const Pictures::Loaded& loaded) {
                                   if (self && !self->abandoned()) self->came(path, loaded);
                                 });
  }

  // What is no longer wanted is dropped, and so is a smaller one that comes late.
  void came(const std::string& path, const Pictures::Loaded& loaded) {
    --loading_;
    if (path == picture_ && loaded.image.width() > shownWidth_) {
      shownWidth_ = loaded.image.width();
      drawn.setPicture(QPixmap::fromImage(loaded.image), loaded.natural);
    }
    load();
  }

  static QIcon desktopIcon(const std::string& name) {
    return name.empty() ? QIcon() : QIcon::fromTheme(toQt(name), iconNamed(name));
  }

  std::string picture_, data_, icon_;
  std::optional<QSize> asked_;  ///< the area for which the picture was asked; empty: its own size
  int loading_ = 0;
  int shownWidth_ = 0;
};

}  // namespace

std::unique_ptr<Adapter> joinPictureBox(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<PictureBoxAdapter>(host, control, widget);
}

}  // namespace varnholt::qt

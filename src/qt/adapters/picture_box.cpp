#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/icons.hpp"
#include "qt/pictures.hpp"
#include "qt/text.hpp"
#include "qt/widgets/picture_view.hpp"

#include <QEvent>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <optional>
#include <utility>

namespace varnholt::qt {
namespace {

class PictureBoxAdapter : public Joined<controls::PictureBox, PictureView> {
 public:
  PictureBoxAdapter(Host& host, controls::PictureBox& control, PictureView& widget) : Joined(host, control, widget) {
    late_.setSingleShot(true);
    connect(&late_, &QTimer::timeout, this, [this] { drawn.setPicture({}); });
    connect(&drawn, &PictureView::pressed, this, [this] { this->host().fromUser([this] { self.Click(); }); });
  }
  ~PictureBoxAdapter() override { stopLoading(); }

 protected:
  QString ownName() const override { return QStringLiteral("Picture"); }

  void updateOwn() override {
    drawn.setStretch(self.Stretch);
    drawn.setPressable(static_cast<bool>(self.Click));
    if (self.PictureData.get() != data_) {
      data_ = self.PictureData.get();
      drawn.setPicture(Pictures::drawn(data_));
    }
    if (self.Picture.get() != picture_) takePicture();
    load();
    if (self.IconName.get() != icon_) drawn.setIcon(desktopIcon(icon_ = self.IconName.get()));
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize && watched == drawn.viewport() && !abandoned()) load();
    return Joined::eventFilter(watched, event);
  }

  // What it has told need not be told again by the widgets around it.
  bool mouseRelease(const QMouseEvent& event) override { return Joined::mouseRelease(event) || true; }
  bool mouseDoubleClick(const QMouseEvent& event) override { return Joined::mouseDoubleClick(event) || true; }

 private:
  // One that does not come, from a drive that is gone, must not keep the next ones away. More at once would pile up
  // while a key is held down.
  static constexpr int AtOnce = 2;
  // The one before stays so long, so that a walk through a folder does not flicker.
  static constexpr std::chrono::milliseconds Patience{250};

  void takePicture() {
    stopLoading();
    picture_ = self.Picture.get();
    asked_.reset();
    shownWidth_ = 0;
    late_.stop();
    picture_.empty() ? drawn.setPicture({}) : late_.start(Patience);
  }

  void stopLoading() {
    if (unwanted_) *unwanted_ = true;
    unwanted_ = std::make_shared<std::atomic<bool>>(false);
  }

  // What was asked for may be too small for a larger area, or for the picture's own size, which is asked for only when
  // the smaller one has come.
  bool isAskedFor(const QSize& area) const {
    if (!asked_ || asked_->isEmpty()) return asked_.has_value();
    return area.isEmpty() ? shownWidth_ == 0 : area.boundedTo(*asked_) == area;
  }

  void load() {
    const QSize area = drawn.wantedPixels();
    if (picture_.empty() || loading_ == AtOnce || isAskedFor(area)) return;
    const bool first = area.isEmpty() && !asked_;
    const PictureWish wish =
        first ? PictureWish{drawn.areaPixels(), PictureWish::Fit::Preview} : PictureWish{area, PictureWish::Fit::Show};
    asked_ = wish.area;
    ++loading_;
    host().pictures().loadBeside(picture_, wish, unwanted_,
                                 [self = QPointer(this), path = picture_](DecodedPicture loaded) {
                                   if (self && !self->abandoned()) self->came(path, std::move(loaded));
                                 });
  }

  // What is no longer wanted is dropped, and so is a smaller one that comes late.
  void came(const std::string& path, DecodedPicture loaded) {
    --loading_;
    if (path == picture_ && loaded.image.isNull() && shownWidth_ == 0) showFallback();
    if (path == picture_ && loaded.image.width() > shownWidth_) show(std::move(loaded));
    load();
  }

  void show(DecodedPicture loaded) {
    late_.stop();
    shownWidth_ = loaded.image.width();
    if (loaded.isWhole()) asked_ = QSize();
    drawn.setPicture(QPixmap::fromImage(std::move(loaded.image)), loaded.natural);
  }

  void showFallback() {
    late_.stop();
    asked_ = QSize();
    drawn.setPicture(host().pictures().kept(self.Fallback));
  }

  // A desktop without icons of its own has none for types: one of the program's family stands in.
  static QIcon desktopIcon(const std::string& name) {
    if (name.empty()) return {};
    const bool isPicture = name.starts_with("image");
    return QIcon::fromTheme(toQt(name), iconNamed(hasIcon(name) ? name : isPicture ? "picture" : "file"));
  }

  std::string picture_, data_, icon_;
  std::optional<QSize> asked_;  ///< the area for which the picture was asked; empty: all of it, or it is none
  int loading_ = 0;
  int shownWidth_ = 0;  ///< of the picture that is wanted; 0: nothing of it has come
  Pictures::Unwanted unwanted_;
  QTimer late_;
};

}  // namespace

std::unique_ptr<Adapter> joinPictureBox(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<PictureBoxAdapter>(host, control, widget);
}

}  // namespace varnholt::qt

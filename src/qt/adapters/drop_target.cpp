#include "qt/adapters/drop_target.hpp"

#include "qt/adapters/adapter.hpp"
#include "qt/input.hpp"
#include "qt/widgets/drop_mark.hpp"

#include <QApplication>
#include <QDropEvent>

#include <utility>

namespace varnholt::qt {

DropTarget::DropTarget(Host& host, controls::Control& control, QWidget& widget)
    : host_(host), control_(control), widget_(widget), designedDrops_(widget.acceptDrops()) {}

void DropTarget::update() {
  const bool drops = designedDrops_ || control_.OLEDragDrop;
  if (widget_.acceptDrops() != drops) widget_.setAcceptDrops(drops);
}

// A source that allows only a move would delete its files on our word, before anything is known to have arrived.
bool DropTarget::mayTake(const QDropEvent& event) const {
  const QWidget* modal = QApplication::activeModalWidget();
  const bool reachable = !modal || modal == widget_.window();
  return over_ && reachable && event.possibleActions().testFlag(Qt::CopyAction);
}

bool DropTarget::takes(const QDropEvent& event, const Place& place) const {
  return mayTake(event) && (over_->source != &control_ || !place.folder.empty());
}

DropTarget::Place DropTarget::placeOf(const QDropEvent& event) const {
  return over_ && places_ ? places_(event.position().toPoint(), over_->source) : Place{};
}

bool DropTarget::enter(QDropEvent& event) {
  if (control_.OLEDragDrop) over_ = host_.dragAndDrop().read(*event.mimeData());
  const bool ours = move(event);
  // A drag begins over its own list, of which some rows take it: who refuses the first place hears of no other.
  if (mayTake(event) && over_->source == &control_) event.accept();
  return ours;
}

bool DropTarget::move(QDropEvent& event) {
  if (!control_.OLEDragDrop) {
    // Text may be dragged into a field; a file there would leave a line that nobody can use.
    const bool files = DragAndDrop::carriesFiles(*event.mimeData());
    if (files) event.ignore();
    return files;
  }
  const Place place = placeOf(event);
  if (!takes(event, place)) {
    delete mark_;
    event.ignore();
    return true;
  }
  event.setDropAction(Qt::CopyAction);
  event.accept();
  if (!mark_) mark_ = new DropMark(&widget_);
  mark_->setGeometry(place.folder.empty() ? widget_.rect() : place.area);
  return true;
}

bool DropTarget::leave() {
  over_.reset();
  delete mark_;
  return static_cast<bool>(control_.OLEDragDrop);
}

bool DropTarget::drop(QDropEvent& event) {
  const bool ours = move(event);
  std::optional<DragAndDrop::Load> load;
  Place place = placeOf(event);
  if (takes(event, place)) load = std::move(over_);
  leave();
  if (!load) return ours;
  controls::DropEvent drop{std::move(load->files), modifiersOf(event.modifiers()), load->source, false,
                           std::move(place.folder)};
  host_.afterDrop([this, drop = std::move(drop)]() mutable { control_.OLEDragDrop(drop); });
  return true;
}

}  // namespace varnholt::qt

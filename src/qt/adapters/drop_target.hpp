#pragma once

#include "controls/control.hpp"
#include "qt/drag_and_drop.hpp"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>

class QDropEvent;

namespace varnholt::qt {

class DropMark;
class Host;

/// Lets files be dropped on a control that has a handler for them, and keeps them from those that have none. Each event
/// gives true when the widget itself must not see it.
class DropTarget {
 public:
  /// A part of the widget that stands for a folder of its own.
  struct Place {
    QRect area;
    std::string folder;  ///< program path; empty: no such part
  };
  /// The part at a position, for what is dragged from a list of ours, or from elsewhere (null).
  using Places = std::function<Place(const QPoint& at, const controls::Control* source)>;

  DropTarget(Host& host, controls::Control& control, QWidget& widget);
  void setPlaces(Places places) { places_ = std::move(places); }

  /// The handler may have come or gone.
  void update();
  bool enter(QDropEvent& event);
  bool move(QDropEvent& event);
  bool leave();
  bool drop(QDropEvent& event);

 private:
  bool mayTake(const QDropEvent& event) const;
  bool takes(const QDropEvent& event, const Place& place) const;
  Place placeOf(const QDropEvent& event) const;

  Host& host_;
  controls::Control& control_;
  QWidget& widget_;
  bool designedDrops_;
  std::optional<DragAndDrop::Load> over_;  ///< what is being dragged over the control
  QPointer<DropMark> mark_;
  Places places_;
};

}  // namespace varnholt::qt

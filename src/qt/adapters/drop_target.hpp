#pragma once

#include "controls/control.hpp"
#include "qt/drag_and_drop.hpp"

#include <QPointer>
#include <QWidget>

#include <optional>

class QDropEvent;

namespace varnholt::qt {

class DropMark;
class Host;

/// Lets files be dropped on a control that has a handler for them, and keeps them from those that have none. Each event
/// gives true when the widget itself must not see it.
class DropTarget {
 public:
  DropTarget(Host& host, controls::Control& control, QWidget& widget);

  /// The handler may have come or gone.
  void update();
  bool enter(QDropEvent& event);
  bool move(QDropEvent& event);
  bool leave();
  bool drop(QDropEvent& event);

 private:
  bool takes(const QDropEvent& event) const;

  Host& host_;
  controls::Control& control_;
  QWidget& widget_;
  bool designedDrops_;
  std::optional<DragAndDrop::Load> over_;  ///< what is being dragged over the control
  QPointer<DropMark> mark_;
};

}  // namespace varnholt::qt

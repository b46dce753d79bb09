#pragma once

#include "controls/control.hpp"

#include <QByteArray>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QMimeData;
class QWidget;

namespace varnholt::qt {

/// Files on their way between lists of ours, and between us and other programs, which know them as URIs (RFC 8089).
class DragAndDrop {
 public:
  /// Program paths to system paths and back; empty text: no such path.
  struct Paths {
    std::function<std::string(const std::string&)> toSystem, toProgram;
  };
  /// What a drag carries.
  struct Load {
    std::vector<std::string> files;             ///< program paths, at least one
    const controls::Control* source = nullptr;  ///< the list of ours in which the drag began; null: another program
  };
  /// Has the user carry the data, from the widget, until they are dropped or given up.
  using Carrier = std::function<void(QWidget& from, std::unique_ptr<QMimeData> data)>;

  DragAndDrop();
  void setPaths(Paths paths) { paths_ = std::move(paths); }
  /// For tests: a drag needs a hand on a mouse.
  void setCarrier(Carrier carrier) { carrier_ = std::move(carrier); }

  /// Drags program paths out of the list that `from` draws. Returns when the drag is over. Other programs are offered
  /// copies alone: what moves files here asks, marks and reports, and nobody else may delete them on our word.
  void drag(const controls::Control& source, std::vector<std::string> files, QWidget& from);
  bool dragging() const { return own_.has_value(); }
  /// What the data carry. Nothing when any of it is no file of this machine that has a program path.
  std::optional<Load> read(const QMimeData& data) const;
  /// True for files of any kind, also such as `read` refuses.
  static bool carriesFiles(const QMimeData& data);

 private:
  std::unique_ptr<QMimeData> dataOf(const std::vector<std::string>& files) const;

  Paths paths_;
  Carrier carrier_;
  std::optional<Load> own_;  ///< the drag that runs
  QByteArray mark_;          ///< tells its data from those of another running copy of the program
};

}  // namespace varnholt::qt

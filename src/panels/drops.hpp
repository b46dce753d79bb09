#pragma once

#include "panels/dispatcher.hpp"
#include "panels/form1.hpp"
#include "panels/navigation.hpp"
#include "panels/selection.hpp"

#include <functional>
#include <string>
#include <vector>

namespace varnholt::panels {

/// Drags out of the panels and drops on panels and command buttons.
class Drops {
 public:
  Drops(Form1& form, Dispatcher& dispatcher, Navigation& navigation, Selection& selection)
      : form_(form), dispatcher_(dispatcher), navigation_(navigation), selection_(selection) {}

  /// Paths that a drag of the panel's selected rows carries.
  std::vector<std::string> draggedFiles(Panel& panel);
  /// The folder of a row that files can be dropped onto; empty for a file's row.
  std::string folderOf(Panel& panel, controls::ListItem item) const;
  /// `ListView1_OLEDragDrop`, `ListView2_OLEDragDrop`: items of the other panel are copied here, with Shift moved. What
  /// is dropped onto the row of a folder goes into that one, also within a panel.
  void OLEDragDrop(Panel& panel, controls::DropEvent& event);
  /// A drop on a command button: ClickPane, then the button's click routine.
  void buttonDrop(const std::string& handler, controls::DropEvent& event);

  /// Files from another program dropped on a panel; with `move` they are moved. True: taken.
  std::function<bool(Panel&, const std::vector<std::string>& files, bool move)> dropFiles;

 private:
  bool take(Panel& panel, controls::DropEvent& event);
  void DragDropClick(const std::string& handler);

  Form1& form_;
  Dispatcher& dispatcher_;
  Navigation& navigation_;
  Selection& selection_;
};

}  // namespace varnholt::panels

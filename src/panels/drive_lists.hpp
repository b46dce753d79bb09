#pragma once

#include "core/program.hpp"
#include "panels/dispatcher.hpp"
#include "panels/form1.hpp"

#include <functional>
#include <string>
#include <vector>

namespace varnholt::panels {

/// The drive lists of both panels.
class DriveLists {
 public:
  DriveLists(Form1& form, core::Program& program) : form_(form), program_(program) {}

  /// Fills both lists with the drives that there are. Names and icons follow as the drives answer.
  void fill();
  /// Looks whether volumes have come or gone, and fills the lists again if so.
  void refresh();
  /// From now on volumes that come or go are shown by themselves; while a command works, when it has ended.
  void watch(Dispatcher& dispatcher);
  /// True for a drive in the lists.
  bool has(char letter) const;
  /// `ViewDriveSelection`: both lists show the drives of their panels.
  void ViewDriveSelection();

  /// A drive has gone: panels that show it must go elsewhere.
  std::function<void()> drivesChanged;

 private:
  void show();
  void describe(char letter);

  Form1& form_;
  core::Program& program_;
  bool missed_ = false;  ///< volumes have come or gone while a command worked
  std::vector<char> letters_;
  std::vector<controls::ComboBox::Item> items_;
};

}  // namespace varnholt::panels

#pragma once

#include "core/program.hpp"
#include "panels/form1.hpp"

namespace varnholt::panels {

/// What happens when a panel becomes the active one, and what the status bar tells of it.
class ActivePanel {
 public:
  ActivePanel(Form1& form, core::Program& program) : form_(form), program_(program) {}

  void GotFocus(Panel& panel);
  void ListView1_GotFocus() { GotFocus(form_.Panel1); }
  void listview2_GotFocus() { GotFocus(form_.Panel2); }

  /// The tick of `Timer1`: time and date in the status bar.
  void UpdateClock();
  /// File system and free space of the panel's drive in the status bar.
  void showDrive(const Panel& panel);
  /// The same, if the panel has come to another drive.
  void followDrive(const Panel& panel);
  void showFreeSpace(const Panel& panel);

  /// Colours of the active and of the other list, from the list colour set.
  controls::Color activeColor = controls::NoColor, inactiveColor = controls::NoColor;

 private:
  platform::Result<platform::DriveInfo> drive(const Panel& panel) const;
  void showFreeSpace(const platform::Result<platform::DriveInfo>& drive);
  void colorLists();

  Form1& form_;
  core::Program& program_;
  std::string shownDrive_;
};

}  // namespace varnholt::panels

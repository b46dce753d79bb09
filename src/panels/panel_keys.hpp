#pragma once

#include "panels/desk.hpp"

#include <string>

namespace varnholt::panels {

/// The keys of a panel, double clicks on its rows, and the command line below it.
class PanelKeys {
 public:
  explicit PanelKeys(Desk& desk) : d_(desk) {}

  void KeyDown(Panel& panel, controls::KeyEvent& event);
  void KeyUp(Panel& panel, controls::KeyEvent& event);
  /// `ListView1_DblClick`, `ListView2_DblClick`: into a folder, or open the file.
  void DblClick(Panel& panel);

  /// Opens the active panel's item in focus as a double click does.
  void OpenSelected_Click();
  /// Selects the active panel's item in focus, or takes it from the selection, and steps to the next.
  void MarkItem_Click();
  /// The other panel becomes the active one.
  void OtherPanel_Click();
  /// Keys in a panel's path line: Enter goes to the folder that was typed, or to a file's and selects it; Esc gives up.
  void pathKey(Panel& panel, controls::KeyEvent& event);
  /// The keyboard leaves the path line: it shows again where the panel is.
  void leavePath(Panel& panel) { panel.showPath(); }

  /// Shows the command line with the active panel's item (`CmdLine_Click`).
  void commandline();
  void Text3_KeyDown(controls::KeyEvent& event);
  void Text3_DblClick() { d_.form.Text3.Text = ""; }

 private:
  void escape();
  void goToTyped(Panel& panel);
  bool spaceLeavesFolder(Panel& panel);
  void runLine();

  Desk& d_;
};

}  // namespace varnholt::panels

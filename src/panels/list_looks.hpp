#pragma once

#include "core/program.hpp"
#include "panels/active_panel.hpp"
#include "panels/form1.hpp"

#include <string>

namespace varnholt::panels {

/// The colours that rows are marked with, as decimal blue-green-red texts the way the program has always kept them.
struct PanelColors {
  std::string text = "14737632";  ///< light gray
  std::string green = "65280", yellow = "65535", red = "255", cyan = "16776960", orange = "33023";
};

/// How the lists look: the colour set, the line image behind the rows, the grid.
class ListLooks {
 public:
  ListLooks(Form1& form, core::Program& program, ActivePanel& active)
      : form_(form), program_(program), active_(active) {}

  PanelColors colors;
  /// Takes colour set, shift and grid from the start-up state. A missing line image is told, and start-up goes on.
  void applyInitState();
  /// The grounds of the active and of the other lists, where no line image covers them.
  void takeGrounds(controls::Color active, controls::Color inactive);
  /// Grid and line image to the three lists of the main window.
  void apply();

  /// The menu of the line colours is there for lists whose lines are shifted, and says so while there are none.
  void colorMenuState();

  void GridLines_Click();
  void ShiftColors_Click();
  void ShiftColorOther_Click();
  void BlueBlack_Click() { chooseSet(0); }
  void BrownBlack_Click() { chooseSet(1); }
  void GrayBlack_Click() { chooseSet(2); }
  /// Gives one list of a dialog the line image, or takes it away.
  void ShiftColorOtherM(controls::ListView& list);

 private:
  void chooseSet(int number);
  void takeSet(int number);
  bool allLineImagesExist() const;
  std::string lineImage(int number) const;

  Form1& form_;
  core::Program& program_;
  ActivePanel& active_;
  std::string linePicture_;
};

}  // namespace varnholt::panels

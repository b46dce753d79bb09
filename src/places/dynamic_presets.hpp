#pragma once

#include "controls/list_view.hpp"
#include "controls/message_loop.hpp"
#include "places/folder_pair.hpp"

#include <functional>
#include <string>
#include <vector>

namespace varnholt::places {

/// "Dynamic Preset View": the pairs of folders visited since the program started.
class Form34 : public controls::Form {
 public:
  explicit Form34(panels::Desk& desk);

  controls::Label Label1{*this, "Label1"}, Label2{*this, "Label2"};  ///< the pair in focus
  controls::ListView ListView1{*this, "ListView1"};
  controls::CheckBox Check2{*this, "Check2"};      ///< sorting
  controls::CheckBox Check1{*this, "Check1"};      ///< recording
  controls::Button Command11{*this, "Command11"};  ///< empty the list
  controls::Button Command1{*this, "Command1"};    ///< open
  controls::Button Command3{*this, "Command3"};    ///< close

  /// Records the pair that the panels show, unless it stands in the list or the recording is off.
  void DynPresetAdd();
  /// Runs what moves both panels as one move.
  std::function<bool(const std::function<bool()>&)> asOneMove;

 private:
  void setTexts();
  void Form_Activate();
  void showFocused();
  void Command1_Click();
  void Command11_Click();
  void Check2_Click();
  void ListView1_ColumnClick(int number);

  panels::Desk& desk_;
  std::vector<std::string> tips_;  ///< of the rows
};

}  // namespace varnholt::places

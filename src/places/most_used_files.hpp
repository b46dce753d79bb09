#pragma once

#include "controls/list_view.hpp"
#include "controls/standard.hpp"
#include "panels/desk.hpp"

#include <optional>
#include <string>
#include <vector>

namespace varnholt::places {

/// "Most Used Files": how often each file was opened, to open it again or go to where it lies.
class Form40 : public controls::Form {
 public:
  explicit Form40(panels::Desk& desk);

  controls::ListView ListView1{*this, "ListView1"};
  controls::Label Label1{*this, "Label1"};  ///< what happens beyond a hundred
  controls::StatusBar StatusBar1{*this, "StatusBar1", 1};
  controls::Button Command11{*this, "Command11"};  ///< open
  controls::Button Command6{*this, "Command6"};    ///< go to
  controls::Button Command3{*this, "Command3"};    ///< remove rows
  controls::Button Command2{*this, "Command2"};    ///< cancel

 private:
  void setTexts();
  void bind();
  void Form_Activate();
  void ListView1_Click();
  void Command3_Click();
  void Command6_Click();
  void Command11_Click();
  /// Fills the list; rows that were selected or in focus are again.
  void show();
  /// The path of the row in focus; empty when the list is.
  std::string pathInFocus();
  /// The same as the disk spells it; none when the file is gone.
  std::optional<std::string> fileInFocus();

  panels::Desk& desk_;
  std::vector<std::string> paths_;  ///< of the rows
};

}  // namespace varnholt::places

#pragma once

#include "controls/standard.hpp"
#include "panels/desk.hpp"

#include <optional>
#include <string>

namespace varnholt::places {

/// "Recent Files": the files that were opened, newest first, to open one again or go to where it lies.
class Form28 : public controls::Form {
 public:
  explicit Form28(panels::Desk& desk);

  controls::ComboBox ImageCombo1{*this, "ImageCombo1"};
  controls::Button Command11{*this, "Command11"};  ///< open
  controls::Button Command3{*this, "Command3"};    ///< go to
  controls::Button Command1{*this, "Command1"};    ///< clear
  controls::Button Command2{*this, "Command2"};    ///< cancel

  /// The file that was opened, empty for none. Its caller clears it before, and reads it after.
  std::string chosen;

 private:
  void setTexts();
  void show(const char* whenEmpty);
  void Command1_Click();
  void Command3_Click();
  void Command11_Click();
  /// The file in the box as the disk spells it; none when it is gone.
  std::optional<std::string> fileInHand() const;

  panels::Desk& desk_;
};

}  // namespace varnholt::places

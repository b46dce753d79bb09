#pragma once

#include "controls/standard.hpp"
#include "panels/desk.hpp"

namespace varnholt::fileops {

/// "New Folder": asks for a name and makes a folder of it in the active panel.
class Form2 : public controls::Form {
 public:
  explicit Form2(panels::Desk& desk);

  controls::PictureBox Image1{*this, "Image1"};
  controls::TextBox Text1{*this, "Text1"};
  controls::Button Command11{*this, "Command11"};  ///< make it
  controls::Button Command1{*this, "Command1"};    ///< reset the box
  controls::Button Command2{*this, "Command2"};    ///< cancel

  /// The command of the main window: the dialog, until a folder is made or the user cancels.
  void Command11OfForm1_Click();

 private:
  void Command11_Click();
  void tell(const std::string& text, const std::string& title) const;

  panels::Desk& desk_;
};

}  // namespace varnholt::fileops

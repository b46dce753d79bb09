#pragma once

#include "fileops/name_dialog.hpp"
#include "panels/desk.hpp"

namespace varnholt::fileops {

/// "New Folder": asks for a name and makes a folder of it in the active panel.
class Form2 : public NameForm {
 public:
  explicit Form2(panels::Desk& desk);

  /// The command of the main window: the dialog, until a folder is made or the user cancels.
  void Command11OfForm1_Click();

 private:
  void Command11_Click();
  void tell(const std::string& text, const std::string& title) const;

  panels::Desk& desk_;
};

}  // namespace varnholt::fileops

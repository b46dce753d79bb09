#pragma once

#include "fileops/operation_dialogs.hpp"

namespace varnholt::basket {

/// "Paste Item(s)": how a paste goes on, and the button that ends it. The main window stays visible behind it and may
/// be looked through meanwhile.
class Form43 : public fileops::ProgressForm {
 public:
  explicit Form43(controls::MessageLoop& loop);

  controls::Label Label1{*this, "Label1"};       ///< the target folder
  controls::Label Label2{*this, "Label2"};       ///< "Paste 1 Of 3 Item(s)..."
  controls::Label Label3{*this, "Label3"};       ///< the item in hand, or what is the matter with it
  controls::Label Label4{*this, "Label4"};       ///< "Working..."
  controls::Button Command2{*this, "Command2"};  ///< cancel

  controls::Button& stopButton() override { return Command2; }
  void showItem(const std::string& line) override;
  void showCount(std::size_t number, std::size_t of) override;
};

}  // namespace varnholt::basket

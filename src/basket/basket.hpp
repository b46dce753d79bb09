#pragma once

#include "basket/paste.hpp"
#include "basket/paste_viewer.hpp"
#include "panels/desk.hpp"
#include "panels/room.hpp"

namespace varnholt::basket {

/// The paste basket: gathers files and folders from anywhere, to paste them into the active panel's folder.
class Basket : public panels::Room {
 public:
  Basket(panels::Desk& desk, fileops::FileOps& fileops);
  Basket(const Basket&) = delete;
  Basket& operator=(const Basket&) = delete;

  std::vector<controls::Form*> dialogs() override { return {&Form43, &Form38}; }
  void addCommands(panels::CommandTable& table) override;
  /// Adds what is selected in the active panel.
  void WinCopy_Click();
  void RegOptions_Click();

  basket::PasteCollection PasteCollection;
  basket::Form43 Form43;
  basket::Form38 Form38;
  basket::Paste Paste;

 private:
  panels::Desk& desk_;
};

}  // namespace varnholt::basket

#pragma once

#include "basket/paste_collection.hpp"
#include "panels/desk.hpp"
#include "panels/room.hpp"

namespace varnholt::basket {

/// The paste basket: gathers files and folders from anywhere, to paste them into the active panel's folder.
class Basket : public panels::Room {
 public:
  explicit Basket(panels::Desk& desk) : desk_(desk) {}
  Basket(const Basket&) = delete;
  Basket& operator=(const Basket&) = delete;

  void addCommands(panels::CommandTable& table) override;
  /// Adds what is selected in the active panel.
  void WinCopy_Click();

  basket::PasteCollection PasteCollection;

 private:
  panels::Desk& desk_;
};

}  // namespace varnholt::basket

#pragma once

#include "panels/desk.hpp"
#include "panels/room.hpp"

namespace varnholt::places {

/// What was opened: recent files, typed addresses, and the most used files.
class OpenedItems : public panels::Room {
 public:
  explicit OpenedItems(panels::Desk& desk);
  OpenedItems(const OpenedItems&) = delete;
  OpenedItems& operator=(const OpenedItems&) = delete;

  void addCommands(panels::CommandTable& table) override;

 private:
  panels::Desk& desk_;
};

}  // namespace varnholt::places

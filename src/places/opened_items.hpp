#pragma once

#include "panels/desk.hpp"
#include "panels/room.hpp"
#include "places/most_used_files.hpp"
#include "places/open_item.hpp"
#include "places/recent_files.hpp"

#include <vector>

namespace varnholt::places {

/// What was opened: recent files, typed addresses, and the most used files.
class OpenedItems : public panels::Room {
 public:
  explicit OpenedItems(panels::Desk& desk);
  OpenedItems(const OpenedItems&) = delete;
  OpenedItems& operator=(const OpenedItems&) = delete;

  void Recent_Files_Click();
  void Mufi_Click();
  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form28, &Form29, &Form40}; }
  void load() override;
  void store() override;

 private:
  panels::Desk& desk_;

 public:
  places::Form28 Form28;
  places::Form29 Form29;
  places::Form40 Form40;
};

}  // namespace varnholt::places

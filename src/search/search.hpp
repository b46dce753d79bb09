#pragma once

#include "panels/desk.hpp"
#include "panels/room.hpp"
#include "search/find_folder_dialog.hpp"
#include "search/find_item_dialog.hpp"
#include "search/found_history.hpp"
#include "search/match_dialog.hpp"

#include <vector>

namespace varnholt::search {

/// Finds a folder by its name below another, and an item among those on the disk as its name is typed.
class Search : public panels::Room {
 public:
  explicit Search(panels::Desk& desk);
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;

  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form36, &Form37, &Form47, &Form48}; }
  void load() override;
  void store() override;

 private:
  panels::Desk& desk_;

 public:
  FoundHistory found;
  search::Form37 Form37;
  search::Form36 Form36;
  search::Form47 Form47;
  search::Form48 Form48;
};

}  // namespace varnholt::search

#pragma once

#include "panels/desk.hpp"
#include "panels/room.hpp"

namespace varnholt::search {

/// Finds a folder by its name below another, and an item among those on the disk as its name is typed.
class Search : public panels::Room {
 public:
  explicit Search(panels::Desk& desk);
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;

  void addCommands(panels::CommandTable& table) override;

 private:
  panels::Desk& desk_;
};

}  // namespace varnholt::search

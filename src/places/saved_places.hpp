#pragma once

#include "panels/desk.hpp"
#include "panels/room.hpp"

namespace varnholt::places {

/// Favorites and bookmarks: places that the user has given a name.
class SavedPlaces : public panels::Room {
 public:
  explicit SavedPlaces(panels::Desk& desk);
  SavedPlaces(const SavedPlaces&) = delete;
  SavedPlaces& operator=(const SavedPlaces&) = delete;

  void addCommands(panels::CommandTable& table) override;

 private:
  panels::Desk& desk_;
};

}  // namespace varnholt::places

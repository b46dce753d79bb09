#pragma once

#include "panels/room.hpp"
#include "places/bookmarks.hpp"
#include "places/favorites.hpp"

namespace varnholt::places {

/// Favorites and bookmarks: places that the user has given a name.
class SavedPlaces : public panels::Room {
 public:
  /// `nameDialog` asks for the names of bookmarks. A double click in a panel on one of their files is answered here.
  SavedPlaces(panels::Desk& desk, fileops::Form32& nameDialog, rename::Rename& rename);
  SavedPlaces(const SavedPlaces&) = delete;
  SavedPlaces& operator=(const SavedPlaces&) = delete;

  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&favorites.Form26, &favorites.Form27, &bookmarks.Form33}; }

 private:
  panels::Desk& desk_;

 public:
  Favorites favorites;
  Bookmarks bookmarks;
};

}  // namespace varnholt::places

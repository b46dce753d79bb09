#include "places/saved_places.hpp"

namespace varnholt::places {

SavedPlaces::SavedPlaces(panels::Desk& desk, fileops::Form32& nameDialog, rename::Rename& rename)
    : desk_(desk), favorites(desk, rename), bookmarks(desk, nameDialog, rename) {
  desk_.opener.ownTypes["url"] = [this](const std::string& file) {
    if (!favorites.open(file)) desk_.opener.openByType(file);
  };
  desk_.opener.ownTypes["bmk"] = [this](const std::string& file) {
    if (bookmarks.follow(file)) bookmarks.arrive();
  };
}

void SavedPlaces::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "addfavor_Click",
       .toolTip = "Keep the file in focus among the favorites",
       .icon = "favorites",
       .heading = "Places",
       .menuText = "&Add To Favorites",
       .number = 18,
       .newGroup = true,
       .run = [this] { favorites.addfavor_Click(); }},
      {.handler = "showfavor_Click",
       .toolTip = "Open, rename or delete favorites",
       .icon = "favorites",
       .heading = "Places",
       .menuText = "Open &Favorites",
       .number = 19,
       .run = [this] { favorites.showfavor_Click(); }},
      {.handler = "Syncfavorites_Click",
       .toolTip = "Copy the favorites of Windows among those of the program",
       .icon = "sync",
       .heading = "Places",
       .menuText = "&Import Windows Favorites",
       .run = [this] { favorites.Syncfavorites_Click(); }},
      {.handler = "addtobook_Click",
       .toolTip = "Mark this folder and the item in focus, to come back to them",
       .icon = "bookmark",
       .heading = "Places",
       .menuText = "Add To &Bookmarks",
       .number = 20,
       .newGroup = true,
       .run = [this] { bookmarks.addtobook_Click(); }},
      {.handler = "OpenBook_Click",
       .toolTip = "Go to, rename or delete bookmarks",
       .icon = "bookmarks",
       .heading = "Places",
       .menuText = "&Open Bookmarks",
       .number = 21,
       .run = [this] { bookmarks.OpenBook_Click(); }},
  });
}

}  // namespace varnholt::places

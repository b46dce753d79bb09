#include "places/folder_pair.hpp"

namespace varnholt::places {

bool goToPair(panels::Desk& desk, const FolderPair& pair) {
  if (!desk.files().folderExists(pair.left) || !desk.files().folderExists(pair.right)) {
    desk.program.dialogs.alert("Preset has changed and NOT Valid !");
    return false;
  }
  desk.navigation.goToPair(pair.left, pair.right);
  return true;
}

}  // namespace varnholt::places

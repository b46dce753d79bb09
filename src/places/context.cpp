#include "places/context.hpp"

namespace varnholt::places {

bool goToPair(const Context& context, const FolderPair& pair) {
  if (!context.folderExists(pair.left) || !context.folderExists(pair.right)) {
    context.program.dialogs.alert("Preset has changed and NOT Valid !");
    return false;
  }
  context.navigation.goToPair(pair.left, pair.right);
  return true;
}

}  // namespace varnholt::places

#include "places/saved_places.hpp"

namespace varnholt::places {

SavedPlaces::SavedPlaces(panels::Desk& desk) : desk_(desk) {}

void SavedPlaces::addCommands(panels::CommandTable& table) { (void)table, (void)desk_; }

}  // namespace varnholt::places

#include "places/opened_items.hpp"

namespace varnholt::places {

OpenedItems::OpenedItems(panels::Desk& desk) : desk_(desk) {}

void OpenedItems::addCommands(panels::CommandTable& table) { (void)table, (void)desk_; }

}  // namespace varnholt::places

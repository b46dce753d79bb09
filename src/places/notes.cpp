#include "places/notes.hpp"

namespace varnholt::places {

Notes::Notes(panels::Desk& desk) : desk_(desk) {}

void Notes::addCommands(panels::CommandTable& table) { (void)table, (void)desk_; }

}  // namespace varnholt::places

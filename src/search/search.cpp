#include "search/search.hpp"

namespace varnholt::search {

Search::Search(panels::Desk& desk) : desk_(desk) {}

void Search::addCommands(panels::CommandTable& table) { (void)table, (void)desk_; }

}  // namespace varnholt::search

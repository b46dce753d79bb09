#include "zip/zip.hpp"

namespace varnholt::zip {

Zip::Zip(panels::Desk& desk) : desk_(desk) {}

void Zip::addCommands(panels::CommandTable& table) { (void)table, (void)desk_; }

}  // namespace varnholt::zip

#include "vdt/vdt.hpp"

namespace varnholt::vdt {

VDT::VDT(panels::Desk& desk) : desk_(desk) {}

void VDT::addCommands(panels::CommandTable& table) { (void)table, (void)desk_; }

}  // namespace varnholt::vdt

#pragma once

#include "panels/desk.hpp"

namespace varnholt::fileops {

/// Brings back what a killed copy of the program left in a work folder on its way, and tells the user where it stands.
void bringBackStranded(panels::Desk& desk);

}  // namespace varnholt::fileops

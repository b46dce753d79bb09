#pragma once

#include "panels/desk.hpp"

#include <string>

namespace varnholt::places {

/// A folder for each panel.
struct FolderPair {
  std::string left, right;
};

/// Takes both panels to the pair. False: a folder is missing, which the user has been told, and both panels stay.
bool goToPair(panels::Desk& desk, const FolderPair& pair);

}  // namespace varnholt::places

#pragma once

#include "platform/file_system.hpp"

namespace varnholt::platform::posix {

/// Reads a folder: the caller's thread reads names, workers ask the facts of each, and all is sorted once.
/// The path in system form; links in it are followed.
Result<ListingPtr> readListing(const std::string& systemPath);

}  // namespace varnholt::platform::posix

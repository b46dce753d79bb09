#pragma once

#include "panels/desk.hpp"

#include <string>
#include <string_view>

namespace varnholt::fileops {

/// The target of the item in hand, should it have this name.
std::string targetOf(const panels::Desk& desk, std::string_view name);

/// What a folder holds, as seen from a long call; nothing when it cannot be read, and a link to one is no more than a
/// link.
platform::TreeSize treeSize(const panels::Desk& desk, const std::string& folder,
                            const platform::Progress& progress = {});

/// The bytes of that, asked while the windows go on painting.
std::uint64_t folderBytes(const panels::Desk& desk, const std::string& folder);

}  // namespace varnholt::fileops

#pragma once

#include "platform/file_system.hpp"
#include "rename/item.hpp"

#include <cstddef>
#include <optional>
#include <vector>

namespace varnholt::rename {

/// The attributes of each item; nothing for what is gone, and for what is no file. `folderRows` is about how many
/// entries their folder has: when most of them are asked for, the folder is read once instead.
std::vector<std::optional<platform::Attributes>> fileAttributes(const platform::FileSystem& files,
                                                                const std::vector<Item>& items, std::size_t folderRows);

}  // namespace varnholt::rename

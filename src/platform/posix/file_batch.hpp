#pragma once

#include "platform/file_system.hpp"

#include <string>
#include <vector>

namespace varnholt::platform::posix {

/// FileSystem::copyFiles, moveFiles and deleteFiles on system paths and names.
BatchResults copyBatch(const std::string& from, const std::vector<std::string>& names, const std::string& to,
                       std::uint64_t limit, const Progress& progress);
BatchResults moveBatch(const std::string& from, const std::vector<std::string>& names, const std::string& to,
                       const Progress& progress);
BatchResults deleteBatch(const std::string& folder, const std::vector<std::string>& names, const Progress& progress);
/// FileSystem::setAttributesOf.
std::vector<Result<bool>> attributesBatch(const std::string& folder, const std::vector<std::string>& names,
                                          Attributes attributes, std::span<const Attributes> spared);

}  // namespace varnholt::platform::posix

#pragma once

#include "platform/file_system.hpp"

namespace varnholt::platform::posix {

/// FileSystem::fileFacts: the folder as a system path, the names in program form.
std::vector<FileFacts> factsOf(const std::string& systemFolder, const std::vector<std::string>& names);

/// FileSystem::fileAttributes, alike.
std::vector<std::optional<Attributes>> attributesOf(const std::string& systemFolder,
                                                    const std::vector<std::string>& names);

}  // namespace varnholt::platform::posix

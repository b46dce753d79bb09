#pragma once

#include "platform/result.hpp"

#include "platform/posix/unique_fd.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace varnholt::platform::posix {

/// Opens a regular file for reading, links followed. NotRegular for pipes and devices, which are never opened;
/// IsAFolder.
Result<UniqueFd> openRegular(const std::string& systemPath);

/// The whole file; TooLarge when it holds more than `limit` bytes.
Result<std::string> readWholeFile(const std::string& systemPath, std::uint64_t limit);

/// The first `most` bytes, or all that there are.
Result<std::string> readFileBeginning(const std::string& systemPath, std::uint64_t most);

/// Replaces or makes a file in one step: temporary name, sync, rename, sync of the folder. A link is followed.
/// Mode, owner and extended attributes of a file that is replaced are kept. ReadOnlyTarget as for a copy.
Result<void> replaceFile(const std::string& systemPath, std::string_view bytes);

/// Writes all bytes at the descriptor's position. Gives 0 or errno.
int writeAll(int fd, const char* bytes, size_t count);

}  // namespace varnholt::platform::posix

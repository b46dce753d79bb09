#pragma once

#include "platform/posix/unique_fd.hpp"
#include "platform/result.hpp"

#include <string>

namespace varnholt::platform::posix {

/// An open folder and the name of an entry in it: how everything that changes an entry names it, so that the folder
/// cannot be swapped under the call.
struct Place {
  UniqueFd folder;
  std::string name;
};

/// The place of a system path. NotFound, NotAFolder and alike for the folder.
Result<Place> openPlace(const std::string& systemPath);

/// The folder part ("/" for entries of the root) and the name.
std::string folderOf(const std::string& systemPath);
std::string nameOf(const std::string& systemPath);

}  // namespace varnholt::platform::posix

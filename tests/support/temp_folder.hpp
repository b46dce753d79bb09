#pragma once

#include "platform/posix/file_system.hpp"
#include "support/kill_at.hpp"
#include "support/scratch_folder.hpp"

namespace varnholt::test {

/// A fresh folder with a drive map and a file system object of its own. `C:` is the folder, `E:` the same folder under
/// a second letter, `Z:` the root of the file system.
class TempFolder : public ScratchFolder {
 public:
  /// Program form under `C:`, or under another letter.
  std::string at(std::string_view name = {}, char letter = 'C') const {
    std::string program = std::string{letter, ':', '\\'}.append(name);
    std::ranges::replace(program, '/', '\\');
    return program;
  }

  platform::posix::PathMap map{platform::posix::parseDriveVariable("C=" + path() + ";E=" + path() + ";Z=/")};
  platform::posix::PosixFileSystem files{map};
};

/// The code of a result, for tables: empty when it is no error.
template <class T>
std::optional<platform::ErrorCode> codeOf(const platform::Result<T>& result) {
  return result ? std::nullopt : std::optional(result.error().code);
}

}  // namespace varnholt::test

#pragma once

#include "platform/posix/file_system.hpp"
#include "support/scratch_folder.hpp"

namespace varnholt::test {

/// A fresh folder with a drive map and a file system object of its own. `C:` is the folder, `E:` the same folder under
/// a second letter, `Z:` the root of the file system.
class TempFolder : public ScratchFolder {
 public:
  TempFolder();

  /// Program form under `C:`, or under another letter.
  std::string at(std::string_view name = {}, char letter = 'C') const;

  platform::posix::PathMap map;
  platform::posix::PosixFileSystem files;
};

/// The code of a result, for tables: empty when it is no error.
template <class T>
std::optional<platform::ErrorCode> codeOf(const platform::Result<T>& result) {
  return result ? std::nullopt : std::optional(result.error().code);
}

/// Runs checks in a child process that has no rights beyond those of an ordinary user, for as root the kernel refuses
/// nothing. True when all checks in it held. The folder must be open to others.
bool heldAsOrdinaryUser(const std::function<void()>& checks);

}  // namespace varnholt::test

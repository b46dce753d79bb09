#pragma once

#include "platform/posix/file_system.hpp"
#include "support/scratch_folder.hpp"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/stat.h>

namespace varnholt::test {

/// A fresh folder with a drive map and a file system object of its own. `C:` is the folder, `E:` the same folder under
/// a second letter, `Z:` the root of the file system. Names are given with slashes, relative to the folder.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();

  // --- Building, each in one line ----------------------------------------------------------------------------------

  TempFolder& file(std::string_view name, std::string_view bytes = "x", std::optional<platform::Date> modified = {});
  TempFolder& folder(std::string_view name);
  TempFolder& link(std::string_view name, std::string_view target);
  TempFolder& hardLink(std::string_view name, std::string_view existing);
  TempFolder& pipe(std::string_view name);
  TempFolder& mode(std::string_view name, mode_t mode);
  TempFolder& modified(std::string_view name, platform::Date date);
  /// Stores DOS attributes as they are, past the file system object. False where the volume keeps none.
  bool store(std::string_view name, std::string_view value);

  // --- Looking -------------------------------------------------------------------------------------------------

  /// Program form under `C:`, or under another letter.
  std::string path(std::string_view name = {}, char letter = 'C') const;
  std::string system(std::string_view name) const { return name.empty() ? scratch.path() : scratch / name; }
  bool has(std::string_view name) const { return scratch.has(name); }
  std::string read(std::string_view name) const { return scratch.read(name); }
  std::string linkText(std::string_view name) const;
  struct stat facts(std::string_view name) const;
  /// Names in a folder by bytes, "." and ".." left out: finds temporary files that were left behind.
  std::vector<std::string> names(std::string_view folder = {}) const;

  ScratchFolder scratch;
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

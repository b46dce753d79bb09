#pragma once

#include "platform/posix/drive_sources.hpp"
#include "platform/result.hpp"

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::platform::posix {

/// The map between paths in program form (`C:\Photos\a.jpg`) and system form (`/home/me/Photos/a.jpg`), exact both
/// ways for every name that a POSIX file system can hold. May be asked by any thread, also while it is read again.
///
/// Names: a backslash becomes its stand-in on the way up. A name that really holds the stand-in, or the escape mark,
/// has an escape mark put before that character, so no two names meet. All other bytes pass as they are, valid UTF-8 or
/// not.
class PathMap {
 public:
  /// A map read from the user's surroundings, read again by reload().
  explicit PathMap(DriveSources sources = DriveSources::fromSystem());
  /// A fixed map; reload() keeps it.
  explicit PathMap(std::vector<DriveMapping> drives);

  /// System form of a path: absolute, without closing slash unless it is the root. Letters in any case, one closing
  /// backslash or none; runs of backslashes count as one, "." and ".." parts are left to the kernel.
  /// InvalidPath: no drive of that letter, no backslash after the colon, a slash or NUL anywhere.
  Result<std::string> toSystem(std::string_view programPath) const;
  /// Program form of an absolute system path, by the longest drive folder that holds it (the earlier letter where two
  /// are equal); a drive's own folder gives "C:\". No closing backslash otherwise. InvalidPath when no drive holds it.
  Result<std::string> toProgram(std::string_view systemPath) const;

  /// One name, without folders.
  static std::string nameToProgram(std::string_view systemName);
  static void appendNameToProgram(std::string_view systemName, std::string& out);
  static std::string nameToSystem(std::string_view programName);

  /// The drives by letter, hidden ones last.
  std::vector<DriveMapping> drives() const;
  /// Gives a folder that no drive holds a hidden drive of its own, from Y down. False when no letter is free.
  bool reach(const std::string& folder);
  /// Reads the sources again (a volume was mounted or unmounted).
  void reload();

 private:
  using Table = std::shared_ptr<const std::vector<DriveMapping>>;
  Table table() const;
  void set(std::vector<DriveMapping> drives);

  DriveSources sources_;
  bool fixed_ = false;
  std::vector<DriveMapping> hidden_;
  std::vector<DriveMapping> seen_;  ///< drives that had a letter before
  mutable std::mutex mutex_;
  Table table_;
};

}  // namespace varnholt::platform::posix

#pragma once

#include "platform/file_system.hpp"
#include "platform/posix/copy_bytes.hpp"
#include "platform/posix/dos_attributes.hpp"
#include "platform/posix/posix_error.hpp"

#include <optional>
#include <string>

namespace varnholt::platform::posix {

/// A folder's end of a copy: its descriptor and where its volume keeps attributes.
struct CopySide {
  int folder = -1;
  AttributeStore store;
};

/// What a copy of one entry may do.
struct CopyRules {
  bool overwrite = false;
  /// The target folder was made by this copy and has a temporary name itself while files are copied into it: nothing
  /// of others is in it, and its files need no temporary names of their own.
  bool freshFolder = false;
  bool targetIsFree = false;  ///< nothing had the target's name when it was looked at, and nothing may be replaced
  bool moves = false;         ///< the bytes must be on the disk before this returns, and the owner stays
  bool protectedToo = false;  ///< with overwrite: a target with read-only, hidden or system is replaced like any other
};

/// Why an entry was not copied; the path is left to the caller, who knows it.
struct CopyFailure {
  Error error;
  bool atTarget = false;
};

/// Copies one entry that is no folder, of the given d_type: a regular file with modified time, attributes,
/// permissions and extended attributes, or a link as a link. Empty when done.
std::optional<CopyFailure> copyEntry(CopySide& from, const char* fromName, unsigned char type, CopySide& to,
                                     const char* toName, const CopyRules& rules, CopyMonitor& monitor);

/// Attributes, where one side keeps them in a way of its own that copying extended attributes does not carry over.
/// `mode` is the source's: read-only may stand in it alone, and such a volume need not keep modes.
void copyNativeAttributes(CopySide& from, const char* fromName, mode_t mode, AttributeStore& to,
                          const std::string& toPath);

/// FileSystem::copyFile and replaceFile on system paths. With `moves` the bytes and the name are on the disk when it
/// succeeds, and the copy is gone again when it fails.
Result<void> copyFileTo(const std::string& from, const std::string& to, const CopyRules& rules,
                        const Progress& progress);

}  // namespace varnholt::platform::posix

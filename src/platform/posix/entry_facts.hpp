#pragma once

#include "platform/file_system.hpp"
#include "platform/posix/dos_attributes.hpp"

#include <string_view>

namespace varnholt::platform::posix {

/// Asks the kernel the facts of one entry: once for all but the attributes, once for those.
///
/// `folder` is an open folder or AT_FDCWD; `name` is relative to it, or an absolute path. `xattrPath` names the same
/// entry for the extended attribute calls, which know no folder descriptors. `kindHint` is the folder's own word
/// (d_type), used only where the entry may not be asked. `out.name` must be set before: a leading point hides.
/// Gives 0, or errno where there is no such entry; an entry that may not be asked is given with hasDates false.
int readEntryFacts(int folder, const char* name, const char* xattrPath, unsigned char kindHint, AttributeStore& store,
                   Entry& out);

/// The same for an absolute path, `out.name` set before. An entry that may not be asked is an error here.
int readPathFacts(const char* path, Entry& out);

/// Whether an entry carries read-only, hidden or system: the original platform overwrites no such file, and permission
/// bits of a folder do not change that.
bool refusesOverwrite(int folder, const char* name, AttributeStore& store);

/// The same for a text of the program's own: that its name begins with a point is the user's wish, and no protection.
bool refusesWriting(int folder, const char* name, AttributeStore& store);

/// Whether an entry that is no link carries read-only. One that may not be asked is left to the removal itself.
bool refusesRemoval(int folder, const char* name, AttributeStore& store);

/// The facts of one absolute system path, the name left empty.
Result<EntryInfo> readPathInfo(const std::string& systemPath);

}  // namespace varnholt::platform::posix

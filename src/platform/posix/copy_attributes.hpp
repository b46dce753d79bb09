#pragma once

#include <sys/stat.h>

namespace varnholt::platform::posix {

/// Copies all extended attributes that the target volume can keep (user.* and access control lists; the system's own
/// security labels are the target's affair). Sources and targets are open for reading or writing. Gives 0, or errno
/// where a user attribute could not be kept for want of room; a volume without extended attributes is no error.
int copyExtendedAttributes(int from, int to);

/// Gives a new file the owner and group of another, or its group alone, as far as that is allowed.
void giveOwner(const struct stat& old, int newFd);

/// Gives a new file what belongs to the one it is to replace: owner where allowed, mode, extended attributes.
/// `oldFd` may be open with O_PATH. What cannot be given is left: the bytes matter more.
void copyOwnership(const struct stat& old, int oldFd, int newFd);

}  // namespace varnholt::platform::posix

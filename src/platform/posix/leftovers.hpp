#pragma once

#include <string>

namespace varnholt::platform::posix {

/// Removes from an open folder what copies that were killed left there under temporary names: files and folders of this
/// user, named by this program on this machine, and held by no process any more. Anything else stays, whatever its
/// name. Failures are passed over: a left-over costs room, no more.
///
/// Asked in front of every change in a folder, so it holds itself to about a hundredth of the time: a large folder that
/// was read just before is not read again for a while. Notes the folder as a place of work.
void sweepLeftovers(int folder);

/// The same at once, for a folder in which nothing is about to be made.
void clearLeftovers(int folder);

/// As sweepLeftovers for the folder that holds what the path names. Costs no call of the system when it is not due.
void sweepFolderOf(const std::string& systemPath);

}  // namespace varnholt::platform::posix

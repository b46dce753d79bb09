#pragma once

#include <string>

namespace varnholt::platform::posix {

/// Where this process works: folders in which it may leave something under a temporary name when it is killed. They are
/// noted in a file beside the program that a living process holds locked, so that the next start can look there. All
/// in system form.

/// From now on places are noted in a file in this folder; empty: no more, and the file goes.
void noteWorkPlacesIn(const std::string& programFolder);

/// Notes a folder before something is made in it under a temporary name. Costs next to nothing for one noted before.
void noteWorkPlace(const std::string& folder);

/// Clears what killed processes left in the places that they noted, and forgets those places. Files and folders of
/// living ones stay. A drive that does not answer holds up this call.
void clearWorkPlaces(const std::string& programFolder);

}  // namespace varnholt::platform::posix

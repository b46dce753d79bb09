#pragma once

#include "compare/compare_dialog.hpp"

namespace varnholt::compare {

/// Copies the files of one direction's list, in its order. The list's rows tell afterwards which could not be copied
/// and why; after a stop those that were not come to count as such. Where none failed the target folder gets the date
/// of the source, as after the copy of a folder.
void syncFiles(panels::Desk& desk, Form30& dialog, const Form30::Direction& direction);

/// Takes the rows that are done out of the lists. What could not be copied stays, and its number is told.
void keepFailed(Form30& dialog);

}  // namespace varnholt::compare

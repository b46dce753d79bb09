#pragma once

#include <string>
#include <string_view>

namespace varnholt::platform {

/// The text in lower case, character by character (Unicode's simple mapping, the same in every locale). Bytes that
/// are not UTF-8 stay as they are, so two names that differ only in such bytes stay apart.
std::string foldCase(std::string_view text);

/// As foldCase, added to `out`; for callers that fold many texts into one buffer.
void appendFolded(std::string_view text, std::string& out);

/// The text in upper case, in the same way.
std::string upperCase(std::string_view text);

}  // namespace varnholt::platform

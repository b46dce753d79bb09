#pragma once

#include <string>
#include <string_view>

namespace varnholt::platform {

/// Appends bytes whose plain byte order is the order of list texts: letter case does not count, other characters come
/// before digits and digits before letters; a letter with an accent stands beside its base letter. Texts that differ
/// in letter case only have equal keys. Bytes that are not UTF-8 order behind all letters.
void appendOrderKey(std::string_view text, std::string& key);

/// The same without telling accents apart: the key of a text's beginning is the beginning of its key. Gives false when
/// the text holds characters that appendOrderKey would tell apart further.
bool appendBaseOrderKey(std::string_view text, std::string& key);

}  // namespace varnholt::platform

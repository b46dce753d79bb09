#pragma once

#include <string_view>

namespace varnholt::core {

/// True when the pattern matches the whole text: `*` any run of characters, `?` one character, `#` one digit 0 to 9,
/// `[a-cx]` one of these characters, `[!a-cx]` one that is none of them, anything else itself. A character is a UTF-8
/// code point, or a byte that is part of none.
///
/// In a class `-` at an end is itself, and `[!]` is the exclamation mark. `[]` matches the empty text. A pattern with
/// a `[` that is not closed, or a range that runs backwards, matches nothing. `]` outside a class is itself.
///
/// Case counts: callers lower both. Time is at worst the product of the lengths.
bool wildcardMatch(std::string_view pattern, std::string_view text);

}  // namespace varnholt::core

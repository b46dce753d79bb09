#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace varnholt::platform {

/// DOS attribute bits (MS-FSCC 2.6), as the file system object reports and sets them.
using Attributes = std::uint32_t;
namespace attribute {
inline constexpr Attributes ReadOnly = 1;
inline constexpr Attributes Hidden = 2;
inline constexpr Attributes System = 4;
inline constexpr Attributes Folder = 16;
inline constexpr Attributes Archive = 32;
inline constexpr Attributes Compressed = 2048;
inline constexpr Attributes NotIndexed = 8192;  ///< stored alone, and never reported
/// The bits that a user may set.
inline constexpr Attributes Settable = ReadOnly | Hidden | System | Archive;
}  // namespace attribute

/// What the extended attribute `user.DOSATTRIB` holds, in any form that Samba or Wine writes: text "0x22" with or
/// without NUL, binary versions 3, 4 and 5. Empty for anything malformed. Bits beyond the attribute word are dropped.
std::optional<Attributes> decodeDosAttrib(std::string_view bytes);

/// The text form ("0x22"), the only one that both Samba and Wine read.
std::string encodeDosAttrib(Attributes attributes);

}  // namespace varnholt::platform

#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace varnholt::platform::posix {

/// Gives `count` bytes of a file from an offset, fewer at its end.
using ByteReader = std::function<std::string(std::uint64_t offset, std::size_t count)>;

/// "a.b.c.d": the FileVersion of a Windows program or library (PE32 or PE32+), from the fixed part of its version
/// resource; the empty text for anything else. Reads headers, the resource folders and the resource alone, whatever
/// the size of the file; nothing that the file says of itself is trusted (learn.microsoft.com: PE Format,
/// VS_FIXEDFILEINFO).
std::string versionOfProgram(const ByteReader& read);

/// The bytes of an icon file (ICO) with all sizes of the program's icon number `index`, counted from 0; the empty text
/// when it has no such icon. As careful as above (learn.microsoft.com: Icons, GRPICONDIR).
std::string iconOfProgram(const ByteReader& read, std::uint32_t index);

}  // namespace varnholt::platform::posix

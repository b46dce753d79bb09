#pragma once

#include <cstdint>
#include <string>

namespace varnholt::test {

/// A number in so many bytes, least first, at a place of the bytes, which grow as needed.
inline void put(std::string& bytes, size_t at, std::uint32_t value, size_t count) {
  if (bytes.size() < at + count) bytes.resize(at + count);
  for (size_t i = 0; i < count; ++i)
    bytes[at + i] = static_cast<char>(value >> (8 * i));
}

/// A Windows program with one section that holds nothing but a version resource. PE32+ when `wide`. `high` and `low`
/// are the two halves of its file version, two numbers of 16 bits each.
inline std::string windowsProgram(bool wide, std::uint32_t high, std::uint32_t low) {
  constexpr size_t header = 0x80, optional = header + 24, section = 0x400, address = 0x1000;
  const size_t optionalSize = wide ? 240 : 224;
  std::string bytes(section + 0x200, '\0');
  put(bytes, 0, 0x5A4D, 2);
  put(bytes, 0x3C, header, 4);
  put(bytes, header, 0x4550, 4);
  put(bytes, header + 6, 1, 2);
  put(bytes, header + 20, static_cast<std::uint32_t>(optionalSize), 2);
  put(bytes, optional, wide ? 0x20B : 0x10B, 2);
  put(bytes, optional + (wide ? 108 : 92), 16, 4);
  put(bytes, optional + (wide ? 112 : 96) + 16, address, 4);
  const size_t table = optional + optionalSize;
  put(bytes, table + 12, address, 4);
  put(bytes, table + 16, 0x200, 4);
  put(bytes, table + 20, section, 4);
  const std::uint32_t entries[][2] = {{16, 0x80000018}, {1, 0x80000030}, {1033, 0x48}};
  for (size_t level = 0; level < 3; ++level) {
    const size_t folder = section + level * 0x18;
    put(bytes, folder + 14, 1, 2);
    put(bytes, folder + 16, entries[level][0], 4);
    put(bytes, folder + 20, entries[level][1], 4);
  }
  put(bytes, section + 0x48, address + 0x60, 4);
  put(bytes, section + 0x4C, 92, 4);
  const size_t resource = section + 0x60;
  put(bytes, resource, 92, 2);
  put(bytes, resource + 2, 52, 2);
  put(bytes, resource + 40, 0xFEEF04BD, 4);
  put(bytes, resource + 48, high, 4);
  put(bytes, resource + 52, low, 4);
  return bytes;
}

}  // namespace varnholt::test

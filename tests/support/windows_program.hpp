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

/// An entry of a folder of resources that begins at `folder`, and the number of its entries.
inline void putEntry(std::string& bytes, size_t folder, std::uint32_t id, std::uint32_t target, size_t entry = 0) {
  put(bytes, folder + 14, static_cast<std::uint32_t>(entry + 1), 2);
  put(bytes, folder + 16 + entry * 8, id, 4);
  put(bytes, folder + 20 + entry * 8, target, 4);
}

/// Where the one section of the programs made here begins in the file and in memory; it holds the resources.
constexpr size_t programSection = 0x400, programAddress = 0x1000;

/// A Windows program with a section of so many bytes, all of them 0. PE32+ when `wide`.
inline std::string emptyProgram(bool wide, std::uint32_t sectionBytes) {
  constexpr size_t header = 0x80, optional = header + 24;
  const size_t optionalSize = wide ? 240 : 224, table = optional + optionalSize;
  std::string bytes(programSection + sectionBytes, '\0');
  put(bytes, 0, 0x5A4D, 2);
  put(bytes, 0x3C, header, 4);
  put(bytes, header, 0x4550, 4);
  put(bytes, header + 6, 1, 2);
  put(bytes, header + 20, static_cast<std::uint32_t>(optionalSize), 2);
  put(bytes, optional, wide ? 0x20B : 0x10B, 2);
  put(bytes, optional + (wide ? 108 : 92), 16, 4);
  put(bytes, optional + (wide ? 112 : 96) + 16, programAddress, 4);
  put(bytes, table + 12, programAddress, 4);
  put(bytes, table + 16, sectionBytes, 4);
  put(bytes, table + 20, programSection, 4);
  return bytes;
}

/// A Windows program with nothing but a version resource. `high` and `low` are the two halves of its file version, two
/// numbers of 16 bits each.
inline std::string windowsProgram(bool wide, std::uint32_t high, std::uint32_t low) {
  std::string bytes = emptyProgram(wide, 0x200);
  putEntry(bytes, programSection, 16, 0x80000018);
  putEntry(bytes, programSection + 0x18, 1, 0x80000030);
  putEntry(bytes, programSection + 0x30, 1033, 0x48);
  put(bytes, programSection + 0x48, programAddress + 0x60, 4);
  put(bytes, programSection + 0x4C, 92, 4);
  const size_t resource = programSection + 0x60;
  put(bytes, resource, 92, 2);
  put(bytes, resource + 2, 52, 2);
  put(bytes, resource + 40, 0xFEEF04BD, 4);
  put(bytes, resource + 48, high, 4);
  put(bytes, resource + 52, low, 4);
  return bytes;
}

}  // namespace varnholt::test

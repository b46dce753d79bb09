#include "platform/posix/program_resources.hpp"
#include "support/temp_folder.hpp"

#include <gtest/gtest.h>

#include <random>

namespace varnholt::platform::posix {
namespace {

void put(std::string& bytes, size_t at, std::uint32_t value, size_t count) {
  if (bytes.size() < at + count) bytes.resize(at + count);
  for (size_t i = 0; i < count; ++i)
    bytes[at + i] = static_cast<char>(value >> (8 * i));
}

/// A program with one section that holds nothing but a version resource. PE32+ when `wide`.
std::string program(bool wide, std::uint32_t high, std::uint32_t low) {
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

std::string versionIn(const std::string& bytes) {
  return versionOfProgram([&](std::uint64_t offset, std::size_t count) {
    return offset < bytes.size() ? bytes.substr(static_cast<size_t>(offset), count) : std::string();
  });
}

TEST(VersionResource, BothProgramForms) {
  EXPECT_EQ(versionIn(program(false, 0x00060001, 0x1DB10004)), "6.1.7601.4");
  EXPECT_EQ(versionIn(program(true, 0xFFFF0000, 0x0000FFFF)), "65535.0.0.65535");
}

TEST(VersionResource, AnythingElseHasNone) {
  EXPECT_EQ(versionIn(""), "");
  EXPECT_EQ(versionIn("MZ"), "");
  EXPECT_EQ(versionIn(std::string(4096, 'x')), "");
  std::string bytes = program(false, 1, 2);
  put(bytes, 0x400 + 16, 3, 4);  // icons, no version
  EXPECT_EQ(versionIn(bytes), "");
  bytes = program(false, 1, 2);
  put(bytes, 0x400 + 0x60 + 40, 0, 4);  // no signature
  EXPECT_EQ(versionIn(bytes), "");
  bytes = program(false, 1, 2);
  put(bytes, 0x400 + 20, 0x80000000, 4);  // a folder that holds itself
  EXPECT_EQ(versionIn(bytes), "");
}

TEST(VersionResource, EveryTruncationIsSafe) {
  const std::string whole = program(true, 1, 2);
  for (size_t length = 0; length < whole.size(); ++length) {
    const std::string version = versionIn(whole.substr(0, length));
    EXPECT_TRUE(version.empty() || version == "0.1.0.2") << length;
  }
}

TEST(VersionResource, DamagedBytesAreSafe) {
  std::mt19937 random(11);
  const std::string whole = program(false, 1, 2);
  std::uint64_t asked = 0;
  for (int round = 0; round < 20000; ++round) {
    std::string bytes = whole;
    for (int change = 0; change < 4; ++change)
      bytes[random() % 0x500] = static_cast<char>(random() % 3 ? random() : 0xFF);
    (void)versionOfProgram([&](std::uint64_t offset, std::size_t count) {
      asked = std::max<std::uint64_t>(asked, count);
      return offset < bytes.size() ? bytes.substr(static_cast<size_t>(offset), count) : std::string();
    });
  }
  EXPECT_LE(asked, 65536u) << "a file may not make us read gigabytes";
}

TEST(FileVersion, OfFiles) {
  test::TempFolder temp;
  temp.file("a.exe", program(true, 0x00010002, 0x00030004)).file("a.txt", "text").folder("f");
  EXPECT_EQ(temp.files.fileVersion(temp.path("a.exe")).valueOr("?"), "1.2.3.4");
  EXPECT_EQ(temp.files.fileVersion(temp.path("a.txt")).valueOr("?"), "");
  EXPECT_EQ(test::codeOf(temp.files.fileVersion(temp.path("f"))), ErrorCode::IsAFolder);
  EXPECT_EQ(test::codeOf(temp.files.fileVersion(temp.path("none"))), ErrorCode::NotFound);
}

}  // namespace
}  // namespace varnholt::platform::posix

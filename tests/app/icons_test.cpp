#include "support/app_rig.hpp"

#include <gtest/gtest.h>

namespace varnholt::app {
namespace {

void put(std::string& bytes, std::size_t at, std::uint32_t value, int count = 4) {
  if (bytes.size() < at + static_cast<std::size_t>(count)) bytes.resize(at + static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i)
    bytes[at + static_cast<std::size_t>(i)] = static_cast<char>(value >> (8 * i) & 0xFF);
}

// One folder of resources at `at` with one entry.
void putFolder(std::string& bytes, std::size_t at, std::uint32_t id, std::uint32_t target) {
  put(bytes, at + 14, 1, 2);
  put(bytes, at + 16, id);
  put(bytes, at + 20, target);
}

/// A Windows program that holds nothing but one icon, 16 pixels wide, with the picture bytes given.
std::string programWithIcon(const std::string& picture) {
  constexpr std::size_t header = 64, sections = header + 24 + 224, resources = 512;
  constexpr std::uint32_t sub = 0x80000000;
  std::string bytes = "MZ";
  put(bytes, 0x3C, header);
  put(bytes, header, 0x4550);
  put(bytes, header + 6, 1, 2);
  put(bytes, header + 20, 224, 2);
  put(bytes, header + 24, 0x10B, 2);
  put(bytes, header + 24 + 92, 16);
  put(bytes, header + 24 + 96 + 16, 0x1000);  // the resource folders' address
  put(bytes, sections + 12, 0x1000);
  put(bytes, sections + 16, 2048);
  put(bytes, sections + 20, resources);
  // Type folder with two entries: icon (3) and icon group (14).
  put(bytes, resources + 14, 2, 2);
  put(bytes, resources + 16, 3);
  put(bytes, resources + 20, 64 | sub);
  put(bytes, resources + 24, 14);
  put(bytes, resources + 28, 160 | sub);
  putFolder(bytes, resources + 64, 7, 96 | sub);
  putFolder(bytes, resources + 96, 1033, 128);
  put(bytes, resources + 128, 0x1000 + 400);
  put(bytes, resources + 132, static_cast<std::uint32_t>(picture.size()));
  putFolder(bytes, resources + 160, 1, 192 | sub);
  putFolder(bytes, resources + 192, 1033, 224);
  put(bytes, resources + 224, 0x1000 + 300);
  put(bytes, resources + 228, 20);
  const std::size_t group = resources + 300;
  put(bytes, group + 2, 1, 2);
  put(bytes, group + 4, 1, 2);
  put(bytes, group + 6, 0x1010, 2);
  put(bytes, group + 14, static_cast<std::uint32_t>(picture.size()));
  put(bytes, group + 18, 7, 2);
  bytes.resize(resources + 400);
  return bytes + picture + std::string(64, '\0');
}

class IconsTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(rig.start());
    auto& registry = rig.platform->registry;
    const auto set = [&](const char* key, const char* value) {
      ASSERT_TRUE(registry.createKey(platform::RegistryRoot::ClassesRoot, key));
      ASSERT_TRUE(registry.set(platform::RegistryRoot::ClassesRoot, key, "", std::string(value)));
    };
    set(".abc", "abcfile");
    set("abcfile\\DefaultIcon", " \"C:\\Icons\\library.dll\" , 0 ");
    set(".def", "deffile");
    set("deffile\\DefaultIcon", "C:\\Icons\\plain.ico");
    set(".ghi", "ghifile");
    set("ghifile\\DefaultIcon", "C:\\Icons\\gone.dll,3");
  }
  controls::PictureBox& shown(const std::string& path) {
    rig.app().icons.Iconshow(rig.form().Picture1, path);
    return rig.form().Picture1;
  }
  test::AppRig rig;
};

TEST_F(IconsTest, AProgramShowsItsOwnIconAndATypeWhatTheRegistryNames) {
  rig.write("C:\\Setup.EXE", programWithIcon("PICTURE"));
  rig.write("C:\\Icons\\library.dll", programWithIcon("OTHER"));
  rig.write("C:\\Icons\\plain.ico", "icon file");
  const std::string own = shown("C:\\Setup.EXE").PictureData;
  // Header of an icon file with one entry of 16 by 16, then the picture.
  EXPECT_EQ(own.substr(0, 8), std::string("\0\0\1\0\1\0\x10\x10", 8));
  EXPECT_EQ(own.substr(22), "PICTURE");
  EXPECT_TRUE(shown("C:\\a.ABC").PictureData->ends_with("OTHER"));
  EXPECT_EQ(shown("C:\\a.def").PictureData.get(), "icon file");
}

TEST_F(IconsTest, WhatFailsFallsBackOnTheSystemLibraryAndThenOnTheDesktop) {
  rig.write("C:\\Setup.exe", "no program");
  for (const char* path : {"C:\\Setup.exe", "C:\\a.ghi", "C:\\a.unknown", "C:\\noext"}) {
    EXPECT_TRUE(shown(path).PictureData->empty()) << path;
    EXPECT_FALSE(shown(path).IconName->empty()) << path;
  }
  const std::string library = rig.app().program.folders.systemFolder + "\\SHELL32.DLL";
  ASSERT_TRUE(rig.platform->files.writeFile(library, programWithIcon("SYSTEM")));
  EXPECT_TRUE(shown("C:\\a.ghi").PictureData->ends_with("SYSTEM"));
  EXPECT_TRUE(shown("C:\\a.ghi").IconName->empty());
}

TEST_F(IconsTest, ATruncatedOrLyingProgramIsNoIconAndNoCrash) {
  const std::string whole = programWithIcon("PICTURE");
  for (std::size_t size = 0; size < whole.size(); size += 7) {
    rig.write("C:\\cut.exe", whole.substr(0, size));
    shown("C:\\cut.exe");
  }
  std::uint32_t seed = 1;
  for (int round = 0; round < 300; ++round) {
    std::string lying = whole;
    for (int change = 0; change < 4; ++change) {
      seed = seed * 1664525 + 1013904223;
      lying[(seed >> 8) % lying.size()] = static_cast<char>(seed >> 24);
    }
    rig.write("C:\\lying.exe", lying);
    EXPECT_LT(shown("C:\\lying.exe").PictureData->size(), 65u << 20);
  }
}

}  // namespace
}  // namespace varnholt::app

#include "support/app_rig.hpp"
#include "support/windows_program.hpp"

namespace varnholt::app {
namespace {

/// A Windows program that holds nothing but one icon, 16 pixels wide, with the picture bytes given.
std::string programWithIcon(const std::string& picture) {
  using test::put, test::putEntry, test::programSection, test::programAddress;
  constexpr std::size_t group = 300, icon = 400;
  constexpr std::uint32_t sub = 0x80000000;
  const auto size = static_cast<std::uint32_t>(picture.size());
  std::string bytes = test::emptyProgram(false, 1024);
  putEntry(bytes, programSection, 3, 64 | sub);  // icons
  putEntry(bytes, programSection + 64, 7, 96 | sub);
  putEntry(bytes, programSection + 96, 1033, 128);
  put(bytes, programSection + 128, programAddress + icon, 4);
  put(bytes, programSection + 132, size, 4);
  putEntry(bytes, programSection, 14, 160 | sub, 1);  // groups of icons
  putEntry(bytes, programSection + 160, 1, 192 | sub);
  putEntry(bytes, programSection + 192, 1033, 224);
  put(bytes, programSection + 224, programAddress + group, 4);
  put(bytes, programSection + 228, 20, 4);
  put(bytes, programSection + group + 2, 1, 2);
  put(bytes, programSection + group + 4, 1, 2);
  put(bytes, programSection + group + 6, 0x1010, 2);
  put(bytes, programSection + group + 14, size, 4);
  put(bytes, programSection + group + 18, 7, 2);
  return bytes.replace(programSection + icon, picture.size(), picture);
}

class IconsTest : public test::AppTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(rig.start());
    for (const auto& [type, icon] : {std::pair{"abc", " \"C:\\Icons\\library.dll\" , 0 "},
                                     {"def", "C:\\Icons\\plain.ico"},
                                     {"ghi", "C:\\Icons\\gone.dll,3"}}) {
      const std::string kind = std::string(type) + "file";
      rig.registerText(platform::RegistryRoot::ClassesRoot, std::string(".") + type, "", kind);
      rig.registerText(platform::RegistryRoot::ClassesRoot, kind + "\\DefaultIcon", "", icon);
    }
  }
  controls::PictureBox& shown(const std::string& path) {
    rig.app().icons.Iconshow(rig.form().Picture1, path);
    return rig.form().Picture1;
  }
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
  for (std::size_t size = 0; size < test::programSection + 400; size += 7) {
    rig.write("C:\\cut.exe", whole.substr(0, size));
    EXPECT_FALSE(shown("C:\\cut.exe").PictureData->ends_with("PICTURE")) << size;
  }
  std::string lying = whole;
  test::put(lying, test::programSection + 304, 0xFFFF, 2);      // so many icons
  test::put(lying, test::programSection + 132, 0xFFFFFFFF, 4);  // of so many bytes
  rig.write("C:\\lying.exe", lying);
  EXPECT_LT(shown("C:\\lying.exe").PictureData->size(), 65u << 20);
}

}  // namespace
}  // namespace varnholt::app

#include "platform/posix/file_types.hpp"

#include "platform/posix/registry.hpp"
#include "platform/posix/shell.hpp"

#include "support/kill_at.hpp"
#include "support/scratch_folder.hpp"

namespace varnholt::platform::posix {
namespace {

// The desktop's databases are read once a process, so each check runs in a child that has its own.
class DesktopTypes : public testing::Test {
 protected:
  DesktopTypes() {
    folder.write("data/applications/pixel.desktop",
                 "[Desktop Entry]\nType=Application\nName=Pixel\nExec=env PIXEL=1 cat %U\nMimeType=image/png;\n");
    folder.writeScript(
        "record.sh", "#!/bin/sh\nfor word; do printf '%s\\n' \"$word\"; done > \"$0.tmp\"\nmv \"$0.tmp\" \"$0.out\"\n");
    folder.write("data/applications/texted.desktop",
                 "[Desktop Entry]\nType=Application\nName=Texted\nExec=" + (folder / "record.sh") +
                     " --file=%f \"two words\" 100%%\nMimeType=text/plain;\n");
    folder.write("config/mimeapps.list",
                 "[Default Applications]\nimage/png=pixel.desktop\ntext/plain=texted.desktop\n");
  }

  void SetUp() override {
    if (!std::filesystem::exists("/usr/share/mime/mime.cache")) GTEST_SKIP() << "no shared MIME database here";
  }
  void inChild(const std::function<void(const FileTypes&, Registry&)>& check) {
    EXPECT_TRUE(test::heldInChild([&] {
      ::setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
      ::setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
      ::setenv("XDG_CONFIG_DIRS", (folder / "none").c_str(), 1);
      SqliteRegistry registry(folder / "registry.db");
      check(DesktopFileTypes(registry), registry);
    }));
  }

  test::ScratchFolder folder;
};

TEST_F(DesktopTypes, AnswerWithTheDesktopsDefaultProgram) {
  inChild([](const FileTypes& types, Registry&) {
    for (const char* extension : {"png", ".png", "PNG"})
      EXPECT_EQ(types.openCommand(extension).valueOr("none"), "\"desktop:pixel.desktop\" \"%1\"") << extension;
    for (const char* extension : {"", ".", "nosuchextension", "a/b", "\xFF"}) {
      const auto command = types.openCommand(extension);
      ASSERT_FALSE(command) << extension;
      EXPECT_EQ(command.error().code, ErrorCode::NotFound);
    }
  });
}

TEST_F(DesktopTypes, OpenFilesWithTheirPathsWhole) {
  const PathMap map(parseDriveVariable("C=" + folder / "c"));
  for (const std::string name :
       {"plain.txt", "two  words.txt", "a \"quote\" and 'another' $HOME.txt", "no utf-8 \xE9%20.txt"}) {
    folder.write("c/" + name, "x");
    inChild([&](const FileTypes& types, Registry&) {
      PosixShell shell(map, {[](const std::string& path) { return path; }, [] { return std::string(); }});
      std::string command = types.openCommand("txt").valueOr("none");
      command.replace(command.find("\"%1\""), 4, quoteArgument("C:\\" + name));
      const auto started = shell.start(command);
      ASSERT_TRUE(started) << started.error().text;
      EXPECT_EQ(shell.wait(*started).valueOr(-1), 0);
    });
    EXPECT_EQ(folder.read("record.sh.out"), "--file=" + folder / "c/" + name + "\ntwo words\n100%\n");
  }
}

TEST_F(DesktopTypes, AnswerFromTheRegistryFirst) {
  inChild([](const FileTypes& types, Registry& registry) {
    const auto put = [&](const char* key, const char* text) {
      EXPECT_TRUE(registry.createKey(RegistryRoot::ClassesRoot, key));
      EXPECT_TRUE(registry.set(RegistryRoot::ClassesRoot, key, "", std::string(text)));
    };
    put(".png", "painting");
    put("painting", "A painting");
    put("painting\\shell\\open\\command", "paint \"%1\"");
    put(".odd", "oddity");
    EXPECT_EQ(types.openCommand("PNG").valueOr("none"), "paint \"%1\"");
    EXPECT_EQ(types.description(".png"), "A painting");
    EXPECT_FALSE(types.openCommand("odd"));
    EXPECT_EQ(types.description("odd"), "");
  });
}

TEST_F(DesktopTypes, AreDescribedInWordsAndPictures) {
  inChild([](const FileTypes& types, Registry&) {
    EXPECT_EQ(types.description("png"), "PNG image");
    EXPECT_EQ(types.iconName("png"), "image-png");
    EXPECT_EQ(types.iconName(".PNG"), "image-png");
    EXPECT_EQ(types.description("nosuchextension"), "");
    EXPECT_EQ(types.iconName("nosuchextension"), "text-x-generic");
    EXPECT_EQ(types.iconName(""), "text-x-generic");
  });
}

}  // namespace
}  // namespace varnholt::platform::posix

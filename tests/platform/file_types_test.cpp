#include "platform/posix/file_types.hpp"

#include "platform/posix/registry.hpp"

#include "support/scratch_folder.hpp"

#include <gtest/gtest.h>

#include <functional>

#include <sys/wait.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

TEST(ExecLine, BecomesACommandOfOurs) {
  const std::pair<const char*, const char*> cases[] = {
      {"gimp %U", "gimp \"%1\""},
      {"gimp %f", "gimp \"%1\""},
      {"eog", "eog"},
      {"viewer --open=%u -x", "viewer \"--open=%1\" -x"},
      {"app %i -caption %c %k %F", "app -caption \"%1\""},
      {"app %d %D %n %N %v %m %f", "app \"%1\""},
      {"\"/opt/my app/run\" %f", "\"/opt/my app/run\" \"%1\""},
      {"app 100%% %f", "app 100% \"%1\""},
      {"sh -c \"echo \\\"\\$1\\\"\" %f", "sh -c \"echo \"\"$1\"\"\" \"%1\""},
      {"app \"\" %f", "app \"\" \"%1\""},
      {"app %", "app %"},
      {"", ""},
      {"app \"not closed", ""},
  };
  for (const auto& [exec, command] : cases)
    EXPECT_EQ(commandFromExec(exec), command) << exec;
}

// The desktop's databases are read once a process, so each check runs in a child that has its own.
class DesktopTypes : public testing::Test {
 protected:
  DesktopTypes() {
    folder.write("data/applications/pixel.desktop",
                 "[Desktop Entry]\nType=Application\nName=Pixel\nExec=env PIXEL=1 cat %U\nMimeType=image/png;\n");
    folder.write("data/applications/texted.desktop",
                 "[Desktop Entry]\nType=Application\nName=Texted\nExec=cat %f\nTerminal=true\nMimeType=text/plain;\n");
    folder.write("config/mimeapps.list",
                 "[Default Applications]\nimage/png=pixel.desktop\ntext/plain=texted.desktop\n");
  }

  void inChild(const std::function<void(const FileTypes&, Registry&)>& check) {
    const pid_t child = ::fork();
    if (child == 0) {
      ::setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
      ::setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
      ::setenv("XDG_CONFIG_DIRS", (folder / "none").c_str(), 1);
      SqliteRegistry registry(folder / "registry.db");
      check(DesktopFileTypes(registry), registry);
      ::_exit(HasFailure() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }

  static bool hasDatabase() { return std::filesystem::exists("/usr/share/mime/mime.cache"); }

  test::ScratchFolder folder;
};

TEST_F(DesktopTypes, AnswerWithTheDesktopsDefaultProgram) {
  if (!hasDatabase()) GTEST_SKIP() << "the shared MIME database is not installed";
  inChild([](const FileTypes& types, Registry&) {
    for (const char* extension : {"png", ".png", "PNG"})
      EXPECT_EQ(types.openCommand(extension).valueOr("none"), "env PIXEL=1 cat \"%1\"") << extension;
    EXPECT_EQ(types.openCommand("txt").valueOr("none"), "x-terminal-emulator -e cat \"%1\"");
    for (const char* extension : {"", ".", "nosuchextension", "a/b", "\xFF"}) {
      const auto command = types.openCommand(extension);
      ASSERT_FALSE(command) << extension;
      EXPECT_EQ(command.error().code, ErrorCode::NotFound);
    }
  });
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
  if (!hasDatabase()) GTEST_SKIP() << "the shared MIME database is not installed";
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

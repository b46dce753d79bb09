#include "platform/posix/environment.hpp"

#include "support/scratch_folder.hpp"

#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

namespace fs = std::filesystem;

class EnvironmentTest : public testing::Test {
 protected:
  EnvironmentTest() {
    for (const char* name : {"windir", "SystemRoot", "SystemDrive", "ProgramFiles", "tmp", "temp"})
      unset.emplace_back(name, nullptr);
    fs::create_directory(folder / "data");
    folder.writeScript("assets/windows/explorer.exe", "#!/bin/sh\necho shipped\n");
    folder.writeScript("assets/windows/system32/cmd.exe", "#!/bin/sh\n");
  }
  PosixEnvironment environment() {
    return {map, WindowsFolder(folder / "data/Windows", folder / "assets/windows"), folder / "data/Program Files",
            folder / "data/Temp"};
  }

  test::ScratchFolder folder;
  std::list<test::ScopedVariable> unset;
  PathMap map{parseDriveVariable("C=" + folder.path())};
};

TEST_F(EnvironmentTest, AnswersWithThePlatformsOwnFolders) {
  for (const auto row : test::Rows{"windir|C:\\data\\Windows", "SystemRoot|C:\\data\\Windows",
                                   "SystemDrive|C:", "ProgramFiles|C:\\data\\Program Files", "tmp|C:\\data\\Temp",
                                   "temp|C:\\data\\Temp", "WINDIR|"})
    EXPECT_EQ(environment().variable(test::Row(row).first), test::Row(row).second) << row;
  for (const char* made : {"data/Windows", "data/Program Files", "data/Temp"})
    EXPECT_TRUE(fs::is_directory(folder / made)) << made;
  EXPECT_EQ(fs::status(folder / "data/Temp").permissions(), fs::perms(0700));
}

TEST_F(EnvironmentTest, LeavesSetVariablesAsTheyAre) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""}, {"C:\\nowhere", "C:\\nowhere"}, {folder / "missing", "C:\\missing"}, {"/elsewhere", "/elsewhere"}};
  for (const auto& [set, answer] : cases) {
    const test::ScopedVariable variable("windir", set.c_str());
    EXPECT_EQ(environment().variable("windir"), answer) << set;
  }
  EXPECT_FALSE(folder.has("data/Windows"));
}

TEST_F(EnvironmentTest, MakesTheWindowsFolderOnceAndLeavesItToTheUser) {
  ASSERT_EQ(environment().windowsFolder(), "C:\\data\\Windows");
  EXPECT_EQ(folder.read("data/Windows/explorer.exe"), "#!/bin/sh\necho shipped\n");
  EXPECT_EQ(::access((folder / "data/Windows/system32/cmd.exe").c_str(), X_OK), 0);
  EXPECT_TRUE(folder.has("data/Windows/System32/cmd.exe"));
  folder.write("data/Windows/explorer.exe", "edited");
  fs::remove(folder / "data/Windows/system32/cmd.exe");
  ASSERT_EQ(environment().windowsFolder(), "C:\\data\\Windows");
  EXPECT_EQ(folder.read("data/Windows/explorer.exe"), "edited");
  EXPECT_FALSE(folder.has("data/Windows/system32/cmd.exe"));
  // Nothing of the making is left beside it.
  EXPECT_EQ(std::distance(fs::directory_iterator(folder / "data"), fs::directory_iterator()), 1);
  const std::pair<const char*, const char*> cannotBe[] = {{"data/Windows/explorer.exe", "assets/windows"},
                                                          {"data/Windows/explorer.exe/W", "assets/windows"},
                                                          {"W", "none"}};
  for (const auto& [place, shipped] : cannotBe) {
    const WindowsFolder windows(folder / place, folder / shipped);
    EXPECT_EQ(PosixEnvironment(map, windows, "", "").windowsFolder(), "") << place;
  }
}

TEST_F(EnvironmentTest, DoesNotUseATemporaryFolderOfSomebodyElse) {
  folder.write("data/Temp", "a file of that name");
  EXPECT_EQ(environment().variable("tmp"), "");
  fs::remove(folder / "data/Temp");
  fs::create_directory(folder / "elsewhere");
  fs::create_directory_symlink(folder / "elsewhere", folder / "data/Temp");
  EXPECT_EQ(environment().variable("tmp"), "");
  if (::geteuid() != 0) GTEST_SKIP() << "only root can make a folder of another user";
  fs::remove(folder / "data/Temp");
  fs::create_directory(folder / "data/Temp");
  ASSERT_EQ(::chown((folder / "data/Temp").c_str(), 65534, 65534), 0);
  EXPECT_EQ(environment().variable("tmp"), "");
}

}  // namespace
}  // namespace varnholt::platform::posix

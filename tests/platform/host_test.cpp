#include "platform/platform.hpp"

#include "support/scratch_folder.hpp"

namespace varnholt::platform {
namespace {

namespace fs = std::filesystem;

class HostTest : public testing::Test {
 protected:
  HostTest() {
    for (const char* name : {"windir", "SystemRoot", "SystemDrive", "ProgramFiles", "tmp", "temp"})
      unset.emplace_back(name, nullptr);
    fs::create_directories(folder / "home");
    given.data = folder / "home/data";
    given.assets = std::string(test::SourceFolder) + "/assets";
    given.drives = "C=" + folder / "home" + ";Z=/";
  }

  test::ScratchFolder folder;
  std::list<test::ScopedVariable> unset;
  HostFolders given;
};

TEST_F(HostTest, TellsOfDamagedFilesOnce) {
  makePlatformHost(given);
  folder.write("home/data/settings.db", "damaged");
  folder.write("home/data/registry.db", "damaged");
  EXPECT_EQ(
      makePlatformHost(given)->platform().startNotices,
      (std::vector<std::string>{"The settings file was damaged. It is kept as C:\\data\\settings.db.damaged-1, and "
                                "a fresh one was made.",
                                "The registry file was damaged. It is kept as C:\\data\\registry.db.damaged-1, and "
                                "a fresh one was made."}));
  EXPECT_TRUE(makePlatformHost(given)->platform().startNotices.empty());
}

TEST_F(HostTest, TellsOfAFileThatCannotBeOpenedAndWhy) {
  fs::create_directories(folder / "home/data/settings.db");
  const auto host = makePlatformHost(given);
  EXPECT_EQ(host->platform().startNotices,
            (std::vector<std::string>{"The settings file cannot be opened: Is a directory. It is not read, and changes "
                                      "are not kept."}));
  EXPECT_FALSE(host->platform().settings.save("a", "s", "k", "v"));
}

TEST_F(HostTest, WithoutAPlaceForItsFilesAnswersWithErrors) {
  folder.write("home/data", "a file in the way");
  const auto host = makePlatformHost(given);
  Platform& platform = host->platform();
  EXPECT_EQ(platform.startNotices.size(), 1u);
  EXPECT_EQ(platform.settings.get("a", "s", "k", "fallback"), "fallback");
  EXPECT_FALSE(platform.settings.save("a", "s", "k", "v"));
  EXPECT_TRUE(platform.environment.windowsFolder().ends_with("\\assets\\windows")) << "as it was shipped";
  EXPECT_EQ(platform.environment.variable("tmp"), "");
  EXPECT_EQ(folder.read("home/data"), "a file in the way");
  fs::remove(folder / "home/data");
  fs::create_directory(folder / "home/data");
  EXPECT_TRUE(platform.settings.save("a", "s", "k", "v")) << "as soon as there is a place";
}

TEST_F(HostTest, AFolderThatNoDriveHoldsIsUsedAndNamedAllTheSame) {
  given.data = folder / "away";
  given.drives = "D=" + folder / "home";
  const auto host = makePlatformHost(given);
  Platform& platform = host->platform();
  EXPECT_EQ(platform.programFolder, "Y:\\away");
  EXPECT_EQ(platform.environment.windowsFolder(), "Y:\\away\\Windows");
  EXPECT_EQ(platform.environment.variable("temp"), "Y:\\away\\Temp");
  EXPECT_EQ(platform.assetsFolder, "");
  EXPECT_TRUE(platform.settings.save("a", "s", "k", "v"));
  EXPECT_TRUE(platform.files.writeFile("Y:\\away\\list.txt", "x") && folder.has("away/list.txt"));
  EXPECT_TRUE(platform.files.volume("Y:\\away").ok());
  platform.drives.refresh();
  EXPECT_EQ(platform.drives.letters(), std::vector<char>{'D'}) << "it stands in no list of drives";
  EXPECT_EQ(platform.toSystem("Y:\\away"), folder / "away");
  EXPECT_TRUE(fs::is_empty(folder / "home")) << "the user is given no folder that he did not ask for";
}

}  // namespace
}  // namespace varnholt::platform

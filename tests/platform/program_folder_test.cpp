#include "platform/posix/program_folder.hpp"

#include "platform/posix/shipped_files.hpp"
#include "platform/posix/temp_file.hpp"

#include "support/temp_folder.hpp"

#include <sys/wait.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

namespace fs = std::filesystem;

class ProgramFolderTest : public testing::Test {
 protected:
  ProgramFolders find(const HostFolders& given) { return findProgramFolders(given, map); }
  HostFolders at(const char* executable) {
    return {.executable = folder / executable, .data = {}, .assets = {}, .drives = {}};
  }
  void ship(const std::string& assets) {
    folder.write(assets + "/program/Readme.txt", "shipped");
    folder.write(assets + "/program/Skins/0/Main.jpg", "picture");
  }

  static pid_t deadProcess() {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    ::waitpid(child, nullptr, 0);
    return child;
  }

  test::ScratchFolder folder;
  test::ScopedVariable data{"XDG_DATA_HOME", (folder / "data").c_str()};
  PathMap map{parseDriveVariable("C=" + folder.path())};
};

TEST_F(ProgramFolderTest, IsTheExecutablesOwnForPortableUse) {
  fs::create_directories(folder / "stick/varnholt");
  ship("stick/varnholt/assets");
  const ProgramFolders found = find(at("stick/varnholt"));
  EXPECT_EQ(found.program, folder / "stick/varnholt");
  EXPECT_EQ(found.assets, folder / "stick/varnholt/assets");
  EXPECT_EQ(folder.read("stick/varnholt/Readme.txt"), "shipped");
  EXPECT_EQ(folder.read("stick/varnholt/Skins/0/Main.jpg"), "picture");
  EXPECT_FALSE(folder.has("data"));
  EXPECT_TRUE(found.notices.empty());
}

TEST_F(ProgramFolderTest, IsTheUsersForAnInstalledProgram) {
  fs::create_directories(folder / "opt/bin");
  ship("opt/share/varnholt/assets");
  const ProgramFolders found = find(at("opt/bin"));
  EXPECT_EQ(found.program, folder / "data/varnholt");
  EXPECT_EQ(found.assets, folder / "opt/share/varnholt/assets");
  EXPECT_EQ(folder.read("data/varnholt/Readme.txt"), "shipped");
}

TEST(InstalledPrograms, AreKnownByTheirFolder) {
  const std::pair<const char*, bool> cases[] = {
      {"/usr/bin", true},   {"/usr/local/bin", true},     {"/usr", true},         {"/bin", true},
      {"/usrlocal", false}, {"/home/me/varnholt", false}, {"/home/me/bin", false}};
  for (const auto& [executable, installed] : cases)
    EXPECT_EQ(isInstalled(executable), installed) << executable;
}

TEST_F(ProgramFolderTest, NeverLosesWhatTheUserHas) {
  fs::create_directories(folder / "p");
  ship("assets");
  folder.write("p/Readme.txt", "edited");
  HostFolders given = at("p");
  given.assets = folder / "assets";
  find(given);
  EXPECT_EQ(folder.read("p/Readme.txt"), "edited");
  EXPECT_EQ(folder.read("p/Skins/0/Main.jpg"), "picture");
  fs::remove(folder / "p/Readme.txt");
  find(given);
  EXPECT_EQ(folder.read("p/Readme.txt"), "shipped");
}

TEST_F(ProgramFolderTest, IsTheUsersWhenTheExecutablesCannotBeWrittenTo) {
  folder.folder("ro");
  folder.mode("ro", 0555).mode("", 0777);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] { EXPECT_EQ(find(at("ro")).program, folder / "data/varnholt"); }));
}

TEST_F(ProgramFolderTest, KeepsNothingOfStartsThatWereCut) {
  const std::string dead = ".new-" + std::to_string(deadProcess()), temporary = temporaryName();
  const std::string alive = ".new-" + std::to_string(::getpid());
  ship("p/assets");
  for (const std::string& gone : {".Windows" + dead + "/System32/cmd.exe", "." + std::string("Readme.txt") + dead,
                                  temporary + "/half", "Skins/0/.Main.jpg" + dead})
    folder.write("p/" + gone, "half");
  const std::vector<std::string> stays = {".Windows" + alive, ".mine" + dead, ".Windows.new-", "Windows" + dead};
  for (const std::string& name : stays)
    folder.write("p/" + name, "mine");
  find(at("p"));
  for (const std::string& gone : {".Windows" + dead, ".Readme.txt" + dead, temporary, "Skins/0/.Main.jpg" + dead})
    EXPECT_FALSE(folder.has("p/" + gone)) << gone;
  for (const std::string& name : stays)
    EXPECT_TRUE(folder.has("p/" + name)) << name;
  ASSERT_TRUE(makeFolderFrom(folder / "p/assets/program", folder / "p/Windows"));
  EXPECT_EQ(folder.read("p/Windows/Skins/0/Main.jpg"), "picture");
}

TEST_F(ProgramFolderTest, GetsReadOnlyShippedFilesAsItsOwn) {
  ship("assets");
  fs::permissions(folder / "assets/program/Readme.txt", fs::perms(0444));
  ASSERT_TRUE(copyMissingFiles(folder / "assets/program", folder / "p"));
  EXPECT_NE(fs::status(folder / "p/Readme.txt").permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(ProgramFolderTest, OfAnUnfinishedCopyHoldsNoHalfFile) {
  ship("assets");
  fs::create_directories(folder / "p/Readme.txt/in the way");
  EXPECT_TRUE(copyMissingFiles(folder / "assets/program", folder / "p"));
  EXPECT_TRUE(fs::is_directory(folder / "p/Readme.txt"));
  folder.write("q", "a file where the folder should be");
  EXPECT_FALSE(copyMissingFiles(folder / "assets/program", folder / "q"));
  EXPECT_EQ(folder.read("q"), "a file where the folder should be");
}

}  // namespace
}  // namespace varnholt::platform::posix

#include "platform/crash_report.hpp"
#include "platform/posix/crash_report.hpp"
#include "platform/posix/program_folder.hpp"
#include "platform/posix/shipped_files.hpp"
#include "platform/posix/temp_file.hpp"
#include "support/temp_folder.hpp"

#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>

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
  // A library of an earlier version was brought before; the last write is by somebody who knows better.
  for (const char* text : {"first", "second"}) {
    folder.write("opt/lib/varnholt/Vnzip.dll", text);
    find(at("opt/bin"));
    EXPECT_EQ(folder.read("data/varnholt/Vnzip.dll"), text);
  }
  folder.write("data/varnholt/Vnzip.dll", "own");
  const ProgramFolders found = find(at("opt/bin"));
  EXPECT_EQ(found.program, folder / "data/varnholt");
  EXPECT_EQ(found.assets, folder / "opt/share/varnholt/assets");
  EXPECT_EQ(folder.read("data/varnholt/Readme.txt"), "shipped");
  EXPECT_EQ(folder.read("data/varnholt/Vnzip.dll"), "own");
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
  EXPECT_EQ(folder.read("p/Readme.txt") + folder.read("p/Skins/0/Main.jpg"), "editedpicture");
  fs::remove(folder / "p/Readme.txt");
  find(given);
  EXPECT_EQ(folder.read("p/Readme.txt"), "shipped");
}

TEST_F(ProgramFolderTest, IsTheUsersWhenTheExecutablesCannotBeWrittenTo) {
  folder.folder("ro");
  folder.mode("ro", 0555).mode("", 0777);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] { EXPECT_EQ(find(at("ro")).program, folder / "data/varnholt"); }));
  // A passing one where the user's cannot be made.
  folder.folder("home").mode("home", 0555).folder("tmp").mode("tmp", 0777);
  const test::ScopedVariable unwritable("XDG_DATA_HOME", (folder / "home").c_str());
  const test::ScopedVariable temporary("TMPDIR", (folder / "tmp").c_str());
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    const ProgramFolders found = find(at("ro"));
    EXPECT_EQ(found.program, folder / ("tmp/varnholt-" + std::to_string(::geteuid()) + "/program"));
    EXPECT_EQ(found.notices.size(), 1u);
  }));
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

int deeper(int depth) {
  volatile char room[4096] = {};
  return depth < 0 ? 0 : deeper(depth + 1) + room[depth % 4096];
}

TEST(CrashReport, TellsWhatTheProgramWasDoingAtTheNextStart) {
  using Case = std::tuple<std::function<void()>, int, const char*>;
  for (const auto& [crash, signal, says] : std::initializer_list<Case>{
           {[] { ::raise(SIGSEGV); }, SIGSEGV, "SIGSEGV"},
           {[] { (void)deeper(0); }, SIGSEGV, "SIGSEGV"},
           {[] { std::thread([] { throw std::runtime_error("no more of it"); }).join(); }, SIGABRT, "no more of it"}}) {
    const test::ScratchFolder folder;
    const pid_t child = ::fork();
    if (child == 0) {
      const rlimit none{};
      ::setrlimit(RLIMIT_CORE, &none);
      ::close(STDERR_FILENO);
      reportCrashes(folder.path(), "1.2.3");
      noteDoing("Command1_Click");
      crash();
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << "it ends as the system would have ended it";
    const std::string notice = takeCrashNotice(folder.path(), "C:\\Crash.log");
    EXPECT_NE(notice.find("at:  Command1_Click"), std::string::npos) << notice;
    EXPECT_TRUE(notice.ends_with("C:\\Crash.log"));
    const std::string report = folder.read("Crash.log");
    for (const char* part : {"[Version] 1.2.3\r\n", "[Doing]   Command1_Click\r\n", says, "platform_test"})
      EXPECT_NE(report.find(part), std::string::npos) << part << " in " << report;
    EXPECT_EQ(takeCrashNotice(folder.path(), "C:\\Crash.log"), "") << "told once";
  }
  const test::ScratchFolder folder;
  folder.link("Crash.new", "/dev/zero");
  EXPECT_NE(takeCrashNotice(folder.path(), "C:\\Crash.log"), "") << "a device is not read for ever";
}

}  // namespace
}  // namespace varnholt::platform::posix

#include "platform/posix/temp_file.hpp"
#include "support/own_mounts.hpp"
#include "support/temp_folder.hpp"

#include <sys/syscall.h>

namespace {

/// A name by which a volume that does not tell case apart finds an entry, with an inode of its own.
std::string otherSpelling;
/// A volume without links and flags of renames, and what happens on it just before one.
std::function<void()> beforeRename;

}  // namespace

// In front of the library's own.
extern "C" int fstatat(int folder, const char* name, struct stat* facts, int flags) noexcept {
  const bool isOther = !otherSpelling.empty() && name == otherSpelling;
  return static_cast<int>(::syscall(SYS_newfstatat, folder, isOther ? "." : name, facts, flags));
}
extern "C" int renameat2(int folder, const char* name, int toFolder, const char* to, unsigned flags) noexcept {
  if (beforeRename && flags) return errno = EINVAL, -1;
  if (beforeRename) beforeRename();
  return static_cast<int>(::syscall(SYS_renameat2, folder, name, toFolder, to, flags));
}
extern "C" int renameat(int folder, const char* name, int toFolder, const char* to) noexcept {
  return ::renameat2(folder, name, toFolder, to, 0);
}
extern "C" int linkat(int folder, const char* name, int toFolder, const char* to, int flags) noexcept {
  if (beforeRename) return errno = EPERM, -1;
  return static_cast<int>(::syscall(SYS_linkat, folder, name, toFolder, to, flags));
}

namespace varnholt::platform {
namespace {

using test::codeOf;
using test::TempFolder;
using Names = std::vector<std::string>;

class MovesAndDeletes : public testing::Test {
 protected:
  using Code = std::optional<ErrorCode>;  ///< none: it succeeded
  Code move(const std::string& from, const std::string& to, const Progress& progress = {}) {
    return codeOf(temp.files.moveFile(temp.at(from), temp.at(to), progress));
  }
  Code moveTree(const std::string& from, const std::string& to) {
    return codeOf(temp.files.moveFolder(temp.at(from), temp.at(to)));
  }
  Code remove(const std::string& name, bool force = false) {
    return codeOf(temp.files.deleteFile(temp.at(name), force));
  }
  Code removeTree(const std::string& name, bool force = true, LeftOuts* leftOut = nullptr) {
    return codeOf(temp.files.deleteFolder(temp.at(name), force, {}, leftOut));
  }
  TempFolder temp;
  static constexpr Code Done{};
};

TEST_F(MovesAndDeletes, WithinAVolume) {
  temp.file("a", "1", Date{50, 0}).file("tree/x", "2").folder("f").link("l", "a").link("toF", "f");
  EXPECT_EQ(move("a", "f/b"), Done);
  EXPECT_EQ(temp.read("f/b"), "1");
  EXPECT_EQ(temp.facts("f/b").st_mtim.tv_sec, 50);
  EXPECT_EQ(move("l", "f/"), Done);
  EXPECT_EQ(temp.linkText("f/l"), "a");
  EXPECT_EQ(moveTree("tree", "f/"), Done);
  EXPECT_EQ(temp.read("f/tree/x"), "2");
  EXPECT_EQ(moveTree("toF", "toF2"), Done);
  EXPECT_EQ(temp.linkText("toF2"), "f");
  EXPECT_EQ(temp.names(), (Names{"f", "toF2"}));
}

TEST_F(MovesAndDeletes, NothingIsReplaced) {
  temp.file("a", "new").file("b", "old").folder("f").folder("empty").file("g/h/x").link("toH", "g/h");
  temp.hardLink("a2", "a").hardLink("A", "a");
  using enum ErrorCode;
  const std::tuple<const char*, const char*, ErrorCode> files[] = {
      {"a", "b", AlreadyThere},  {"a", "f", AlreadyThere}, {"f", "c", IsAFolder}, {"none", "c", NotFound},
      {"a", "none/c", NotFound}, {"a", "a2", SameEntry},   {"a", "A", SameEntry}};
  for (const auto& [from, to, code] : files)
    EXPECT_EQ(move(from, to), code) << from << " to " << to;
  const std::tuple<const char*, const char*, ErrorCode> trees[] = {
      {"f", "empty", AlreadyThere}, {"a", "c", NotAFolder},  {"g", "g/x", IntoItself},
      {"g", "g/h/y", IntoItself},   {"g", "g/", IntoItself}, {"g", "toH/y", IntoItself}};
  for (const auto& [from, to, code] : trees)
    EXPECT_EQ(moveTree(from, to), code) << from << " to " << to;
  EXPECT_EQ(codeOf(temp.files.moveFolder(temp.at("g"), temp.at("g/x", 'E'))), IntoItself);
  EXPECT_EQ(temp.read("a") + temp.read("b"), "newold");
  EXPECT_EQ(temp.names(), (Names{"A", "a", "a2", "b", "empty", "f", "g", "toH"}));
  EXPECT_TRUE(temp.has("g/h/x"));
}

TEST_F(MovesAndDeletes, CaseOfANameCanChangeWhereEachSpellingHasAnInodeOfItsOwn) {
  temp.file("name.txt", "1");
  const NewName names[] = {{"name.txt", "NAME.TXT"}};
  otherSpelling = names[0].to;
  const auto refused = temp.files.checkRenames(temp.at(""), names);
  otherSpelling.clear();
  EXPECT_TRUE(refused.empty());
}

TEST_F(MovesAndDeletes, NoEmptyFileStaysInATargetThatOthersRename) {
  temp.file("t/x").folder("t2");
  const posix::UniqueFd target(::open(temp.system("t").c_str(), O_RDONLY | O_DIRECTORY));
  beforeRename = [&] {  // as a volume shows it that goes by paths: the descriptor stays with the name
    for (const auto& each : std::filesystem::directory_iterator(temp.system("t")))
      ::rename(each.path().c_str(), (temp.system("t2") + "/" + each.path().filename().string()).c_str());
  };
  {
    posix::TempFile file;
    EXPECT_EQ(file.createAs(target.get(), posix::temporaryName().c_str(), 0600), 0);
    EXPECT_EQ(file.placeNew("f"), ENOENT);
  }
  beforeRename = {};
  EXPECT_EQ(temp.names("t2"), (Names{"x"}));
}

TEST_F(MovesAndDeletes, CaseOfANameCanChange) {
  temp.file("name.txt", "1").folder("folder");
  EXPECT_EQ(move("name.txt", "Name.TXT"), Done);
  EXPECT_EQ(moveTree("folder", "Folder"), Done);
  EXPECT_EQ(temp.names(), (Names{"Folder", "Name.TXT"}));
  EXPECT_TRUE(temp.files.moveFile(temp.at("Name.TXT"), temp.at("Name.TXT", 'E'))) << "to where it is";
  EXPECT_EQ(temp.read("Name.TXT"), "1");
}

/// A second volume mounted into the folder.
class OtherVolume : public MovesAndDeletes {
 protected:
  void SetUp() override {
    temp.folder("other");
    mount = test::ScopedMount::memory(temp.system("other"), "size=2m");
    if (!mount) GTEST_SKIP() << "no right to mount here";
  }
  test::ScopedMount mount;
  const std::string big = std::string(3 << 20, 'x');
};

TEST_F(OtherVolume, AMoveOfAFileIsACopyAndThenADelete) {
  temp.file("a", "bytes", Date{50, 0}).link("l", "nowhere");
  const uid_t owner = ::chown(temp.system("a").c_str(), 7, 8) == 0 ? 7 : ::getuid();
  temp.mode("a", 06640);
  ASSERT_TRUE(temp.files.copyFile(temp.at("a"), temp.at("c"), false));
  EXPECT_EQ(temp.facts("c").st_mode & 07777, owner == 7 ? 0640u : 06640u) << "it would lend the rights of its maker";
  EXPECT_EQ(move("a", "other/b"), Done);
  EXPECT_EQ(temp.facts("other/b").st_uid, owner);
  ASSERT_EQ(remove("c"), Done);
  EXPECT_EQ(move("l", "other/"), Done);
  EXPECT_EQ(temp.read("other/b"), "bytes");
  EXPECT_EQ(temp.facts("other/b").st_mtim.tv_sec, 50);
  EXPECT_EQ(temp.facts("other/b").st_mode & 07777, 06640u);
  EXPECT_EQ(temp.linkText("other/l"), "nowhere");
  EXPECT_EQ(temp.names(), (Names{"other"}));
  temp.file("f/a", "1");
  EXPECT_EQ(moveTree("f", "other/f"), ErrorCode::NotSupported);
  EXPECT_EQ(temp.read("f/a"), "1");
  EXPECT_EQ(temp.names("other"), (Names{"b", "l"}));
}

TEST_F(OtherVolume, WhatFindsNoRoomChangesNothing) {
  temp.file("a", big).file("other/a", "old").file("tree/1/big", big);
  const auto at = [&](const char* name) { return temp.at(name); };
  auto& files = temp.files;
  temp.mode("other/a", 0444);
  EXPECT_EQ(codeOf(files.replaceFile(at("a"), at("other/a"))), ErrorCode::NoSpace);
  EXPECT_EQ(temp.facts("other/a").st_mode & 0777, 0444u);
  temp.mode("other/a", 0644);
  EXPECT_EQ(codeOf(files.copyFile(at("a"), at("other/a"), true)), ErrorCode::NoSpace);
  EXPECT_EQ(codeOf(files.writeFile(at("other/a"), big)), ErrorCode::NoSpace);
  EXPECT_EQ(move("a", "other/b"), ErrorCode::NoSpace);
  EXPECT_EQ(temp.facts("a").st_size, 3 << 20);
  EXPECT_EQ(codeOf(files.copyFolder(at("tree"), at("other/tree"), true)), ErrorCode::NoSpace);
  EXPECT_TRUE(temp.names("other/tree/1").empty()) << "no half file stays";
  EXPECT_EQ(temp.read("other/a"), "old");
  EXPECT_EQ(temp.names("other"), (Names{"a", "tree"}));
}

TEST_F(OtherVolume, ACopyThatFindsNoRoomGivesUpAndSaysSo) {
  for (int number = 0; number < 50; ++number)
    temp.file("tree/" + std::to_string(number), std::string(1 << 20, 'y'));
  LeftOuts leftOut;
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.at("tree"), temp.at("other/tree"), true, {}, &leftOut)),
            ErrorCode::NoSpace);
  EXPECT_LT(leftOut.size(), 10u);
  EXPECT_EQ(leftOut.back().path, temp.at("tree"));
  EXPECT_EQ(leftOut.back().text, "the rest was not tried: No space left on device");
}

TEST_F(OtherVolume, WhatCannotBeWrittenToIsLeftAsItIs) {
  temp.file("a", "new").file("other/a", "old").file("other/f/x", "x");
  ASSERT_TRUE(mount.makeReadOnly());
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.at("a"), temp.at("other/b"), true)), ErrorCode::AccessDenied);
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.at("a"), temp.at("other/a"), true)), ErrorCode::AccessDenied);
  EXPECT_EQ(move("other/a", "b"), ErrorCode::AccessDenied);
  EXPECT_EQ(remove("other/a", true), ErrorCode::AccessDenied);
  EXPECT_EQ(removeTree("other/f"), ErrorCode::AccessDenied);
  EXPECT_EQ(temp.read("other/a") + temp.read("other/f/x"), "oldx");
  EXPECT_EQ(temp.names(), (Names{"a", "other"})) << "the copy of what could not go is taken back";
}

TEST_F(OtherVolume, AMoveOfAnOrdinaryUser) {
  temp.folder("fixed").file("fixed/a", "1").mode("fixed", 0555).mode("other", 0777).mode("", 0777);
  temp.file("a", "1").link("l", "nowhere").folder("other/box").mode("other/box", 0333);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    EXPECT_EQ(move("fixed/a", "other/a"), ErrorCode::AccessDenied) << "the copy is taken back";
    for (const char* name : {"a", "l"})
      EXPECT_EQ(move(name, "other/box/"), Done) << name << ": into a folder that cannot be read";
  }));
  EXPECT_EQ(temp.read("fixed/a"), "1");
  EXPECT_EQ(temp.names("other"), Names{"box"});
  EXPECT_EQ(temp.names("other/box"), (Names{"a", "l"}));
}

TEST_F(OtherVolume, AFileThatChangesMeanwhileOrIsStoppedIsNotMovedAway) {
  const std::string path = temp.system("a"), old(1 << 20, 'o'), grown = old + std::string(100, '+');
  const auto moveWhile = [&](const std::function<bool()>& change) {
    temp.file("a", old);
    return move("a", "other/a",
                [&, done = false](std::uint64_t) mutable { return std::exchange(done, true) || change(); });
  };
  EXPECT_EQ(moveWhile([] { return false; }), ErrorCode::Stopped);
  EXPECT_TRUE(temp.read("a") == old);
  EXPECT_NE(moveWhile([&] { return std::ofstream(path, std::ios::app) << std::string(100, '+'), true; }), Done);
  EXPECT_TRUE(temp.read("a") == grown);
  EXPECT_NE(moveWhile([&] { return ::truncate(path.c_str(), 9) == 0; }), Done);
  EXPECT_EQ(temp.read("a"), "ooooooooo");
  EXPECT_TRUE(temp.names("other").empty());
  EXPECT_EQ(moveWhile([&] { return temp.file("other/a", "somebody's"), true; }), ErrorCode::AlreadyThere);
  EXPECT_EQ(temp.read("other/a"), "somebody's");
  EXPECT_TRUE(temp.read("a") == old);
  std::filesystem::remove(temp.system("other/a"));
  EXPECT_EQ(moveWhile([&] { return std::filesystem::remove(path); }), Done) << "it is gone, and still in the copy";
  EXPECT_TRUE(temp.read("other/a") == old);
  std::filesystem::remove(temp.system("other/a"));
  temp.file("later", "new");
  (void)moveWhile([&] { return std::filesystem::rename(temp.system("later"), path), true; });
  EXPECT_EQ(temp.read("a"), "new") << "another file has its name";
  EXPECT_TRUE(temp.read("other/a") == old) << "the copy is the last of it";
}

TEST_F(OtherVolume, DeleteDoesNotEnterIt) {
  temp.file("other/precious", "1").folder("tree/sub");
  for (const char* place : {"tree", "tree/sub"}) {
    const auto there = test::ScopedMount::bind(temp.system("other"), temp.system(place));
    ASSERT_TRUE(there);
    EXPECT_EQ(removeTree("tree"), ErrorCode::AccessDenied);
  }
  EXPECT_EQ(temp.read("other/precious"), "1");
}

TEST_F(MovesAndDeletes, ReadOnlyFilesNeedForceAndLinksGoAlone) {
  temp.file("locked").mode("locked", 0444).file("stored").file("plain").folder("f").pipe("p");
  temp.link("l", "locked").link("gone", "nowhere");
  const bool keeps = temp.store("stored", "0x21");
  for (const char* name : {"plain", "l", "gone", "p"})
    EXPECT_EQ(remove(name), Done) << name;
  EXPECT_EQ(remove("locked"), ErrorCode::AccessDenied);
  EXPECT_EQ(remove("stored"), keeps ? Code(ErrorCode::AccessDenied) : Done);
  EXPECT_TRUE(temp.has("locked"));
  EXPECT_EQ(remove("locked", true), Done);
  EXPECT_EQ(remove("stored", true), keeps ? Done : Code(ErrorCode::NotFound));
  EXPECT_EQ(remove("f", true), ErrorCode::IsAFolder);
  EXPECT_EQ(remove("none", true), ErrorCode::NotFound);
  EXPECT_EQ(temp.names(), Names{"f"});
}

TEST_F(MovesAndDeletes, WholeTreeButNothingThatLinksName) {
  temp.file("tree/a").file("tree/f/g/b").folder("tree/empty").pipe("tree/p").file("outside/a", "1");
  temp.link("tree/toOutside", "../outside").link("tree/f/toFile", "../../outside/a").link("tree/self", ".");
  temp.link("l", "outside").link("toFile", "outside/a");
  EXPECT_EQ(removeTree("tree", false), Done);
  EXPECT_EQ(removeTree("l"), Done) << "a link to a folder goes as a link";
  EXPECT_EQ(removeTree("toFile"), ErrorCode::NotAFolder);
  EXPECT_EQ(removeTree("none"), ErrorCode::NotFound);
  EXPECT_EQ(temp.names(), (Names{"outside", "toFile"}));
  EXPECT_EQ(temp.read("outside/a"), "1");
}

TEST_F(MovesAndDeletes, UnforcedLeavesReadOnlyFilesAndTheFoldersAroundThem) {
  temp.file("tree/f/locked").mode("tree/f/locked", 0444).file("tree/f/a").file("tree/g/b").folder("fixed");
  LeftOuts leftOut;
  EXPECT_EQ(removeTree("tree", false, &leftOut), ErrorCode::AccessDenied);
  ASSERT_EQ(leftOut.size(), 1u);
  EXPECT_EQ(leftOut.front().path, temp.at("tree/f/locked"));
  EXPECT_EQ(temp.names("tree"), Names{"f"});
  EXPECT_EQ(temp.names("tree/f"), Names{"locked"});
  if (temp.store("fixed", "0x11")) {
    EXPECT_EQ(removeTree("fixed", false), ErrorCode::AccessDenied);
  }
  EXPECT_EQ(removeTree("tree"), Done);
  EXPECT_EQ(removeTree("fixed"), Done);
}

TEST_F(MovesAndDeletes, ForcedOpensFoldersThatTheirOwnerLocked) {
  temp.mode("", 0777);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    temp.file("tree/noWrite/a").file("tree/noRead/b").file("tree/none/f/c").file("outside/d");
    temp.mode("tree/noWrite", 0555).mode("tree/noRead", 0300).mode("tree/none", 0).mode("outside", 0555);
    temp.mode("tree", 0700).link("tree/l", "../outside");
    EXPECT_EQ(removeTree("tree", false), ErrorCode::AccessDenied);
    EXPECT_EQ(removeTree("tree"), Done);
    EXPECT_FALSE(temp.has("tree"));
    EXPECT_EQ(temp.facts("outside").st_mode & 0777, 0555u) << "what a link names is not touched";
  }));
}

TEST_F(MovesAndDeletes, ManyFilesOnAllWorkersUntilItIsStopped) {
  for (int i = 0; i < 4000; ++i)
    temp.file("tree/wide/" + std::to_string(i)).file("tree/deep/" + std::to_string(i % 50) + "/" + std::to_string(i));
  EXPECT_EQ(codeOf(temp.files.deleteFolder(temp.at("tree"), true, [](std::uint64_t) { return false; })),
            ErrorCode::Stopped);
  EXPECT_TRUE(temp.has("tree"));
  EXPECT_EQ(removeTree("tree", false), Done);
  EXPECT_TRUE(temp.names().empty());
}

TEST_F(MovesAndDeletes, DeeperThanAPathCanBeLong) {
  temp.folder("tree");
  int at = ::open(temp.system("tree").c_str(), O_RDONLY | O_DIRECTORY);
  for (int level = 0; level < 1500; ++level) {
    ASSERT_EQ(::mkdirat(at, "level", 0700), 0);
    const int below = ::openat(at, "level", O_RDONLY | O_DIRECTORY);
    ASSERT_GE(below, 0) << level;
    ::close(at);
    at = below;
  }
  ::close(at);
  ASSERT_TRUE(temp.files.copyFolder(temp.at("tree"), temp.at("copy"), false));
  for (const char* tree : {"copy", "tree"}) {
    EXPECT_EQ(temp.files.folderSize(temp.at(tree))->folders, 1500u);
    EXPECT_EQ(removeTree(tree), Done);
  }
  EXPECT_TRUE(temp.names().empty());
}

TEST_F(MovesAndDeletes, DrivesAndWhatHoldsThemStay) {
  temp.file("holder/drive/a", "1").link("l", "holder/drive");
  posix::PathMap map(posix::parseDriveVariable("C=" + temp.system("") + ";D=" + temp.system("holder/drive") + ";Z=/"));
  posix::PosixFileSystem files(map);
  const std::string byRoot = "Z:" + temp.at("").substr(2);
  for (const auto each : test::Rows{"C:\\", "D:\\", "D:", "Z:\\", "C:\\holder\\drive", "C:\\holder\\",
                                    "C:\\holder\\drive\\..", "C:\\holder\\drive\\.", byRoot}) {
    const std::string path(each);
    EXPECT_FALSE(files.deleteFolder(path, true)) << path;
    EXPECT_FALSE(files.moveFolder(path, "C:\\moved")) << path;
  }
  EXPECT_EQ(temp.read("holder/drive/a"), "1");
  EXPECT_TRUE(files.deleteFolder("C:\\l", true)) << "a link to a drive is a link";
}

TEST_F(MovesAndDeletes, FolderSwappedForALinkMeanwhileIsNotFollowed) {
  temp.file("outside/precious", "1");
  std::atomic<bool> stop = false;
  std::thread swapper([&] {
    const std::string folder = temp.system("tree/f"), aside = temp.system("aside"), target = temp.system("outside");
    while (!stop) {
      if (::rename(folder.c_str(), aside.c_str()) == 0) (void)!::symlink(target.c_str(), folder.c_str());
      std::error_code ignored;
      std::filesystem::remove_all(aside, ignored);
    }
  });
  for (int round = 0; round < 200; ++round) {
    for (const char* name : {"tree", "tree/a", "tree/f", "tree/f/g", "tree/z"})
      (void)::mkdir(temp.system(name).c_str(), 0777);
    (void)removeTree("tree");
    ASSERT_TRUE(temp.has("outside/precious"));
  }
  stop = true;
  swapper.join();
}

}  // namespace
}  // namespace varnholt::platform

// Copies of files and trees, and what they must never do.

#include "support/temp_folder.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <random>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

/// What a volume says to changes of modes and times; 0: it makes them.
int refused = 0;

template <class... Arguments>
int change(long call, Arguments... arguments) {
  if (!refused) return static_cast<int>(::syscall(call, arguments...));
  errno = refused;
  return -1;
}

}  // namespace

// In front of the library's own.
extern "C" int fchmod(int fd, mode_t mode) noexcept { return change(SYS_fchmod, fd, mode); }
extern "C" int futimens(int fd, const timespec* times) noexcept {
  return change(SYS_utimensat, fd, static_cast<const char*>(nullptr), times, 0);
}

namespace varnholt::platform {
namespace {

using test::codeOf;
using test::TempFolder;
using Names = std::vector<std::string>;

std::string randomBytes(size_t count) {
  std::mt19937 random(static_cast<unsigned>(count));
  std::string bytes(count, '\0');
  for (char& c : bytes)
    c = static_cast<char>(random());
  return bytes;
}

// --- One file --------------------------------------------------------------------------------------------------------

TEST(CopyFile, BytesOfEverySize) {
  TempFolder temp;
  for (size_t size : {0u, 1u, 4096u, 131072u, 131073u, 9000000u}) {
    const std::string bytes = randomBytes(size);
    temp.file("a", bytes);
    ASSERT_TRUE(temp.files.copyFile(temp.path("a"), temp.path("b"), true)) << size;
    EXPECT_EQ(temp.read("b"), bytes) << size;
  }
  EXPECT_EQ(temp.names(), (Names{"a", "b"})) << "no temporary file stays";
}

TEST(CopyFile, DateModeAndExtendedAttributesComeAlong) {
  TempFolder temp;
  temp.file("a", "x", Date{-5, 7});
  const bool keeps = temp.store("a", "0x23");
  temp.mode("a", 0440);
  ASSERT_TRUE(temp.files.copyFile(temp.path("a"), temp.path("b"), false));
  EXPECT_EQ(temp.files.info(temp.path("b"))->modified, (Date{-5, 7}));
  EXPECT_EQ(temp.facts("b").st_mode & 0777, 0440u);
  if (keeps) {
    EXPECT_EQ(temp.files.attributes(temp.path("b")).valueOr(0), 0x23u);
  }
}

TEST(CopyFile, FolderWithClosingBackslashTakesTheName) {
  TempFolder temp;
  temp.file("a", "1").folder("f");
  ASSERT_TRUE(temp.files.copyFile(temp.path("a"), temp.path("f/"), false));
  EXPECT_EQ(temp.read("f/a"), "1");
}

TEST(CopyFile, TargetThatExists) {
  TempFolder temp;
  temp.file("a", "new").file("b", "old").folder("f").pipe("p");
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("a"), temp.path("b"), false)), ErrorCode::AlreadyThere);
  EXPECT_EQ(temp.read("b"), "old");
  ASSERT_TRUE(temp.files.copyFile(temp.path("a"), temp.path("b"), true));
  EXPECT_EQ(temp.read("b"), "new");
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("a"), temp.path("f"), true)), ErrorCode::IsAFolder);
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("a"), temp.path("p"), true)), ErrorCode::NotRegular);
}

TEST(CopyFile, GuardedTargetIsNotOverwritten) {
  TempFolder temp;
  temp.file("a", "new").file("locked", "old").mode("locked", 0444).file(".dot", "old").file("sys", "old");
  const bool keeps = temp.store("sys", "0x24");
  for (const char* target : {"locked", ".dot", "sys"}) {
    if (target == std::string("sys") && !keeps) continue;
    const auto copied = temp.files.copyFile(temp.path("a"), temp.path(target), true);
    EXPECT_EQ(codeOf(copied), ErrorCode::ReadOnlyTarget) << target;
    EXPECT_EQ(copied.error().path, temp.path(target));
    EXPECT_EQ(temp.read(target), "old");
  }
}

TEST(ReplaceFile, ProtectionGoesWithTheOldFileAndIsLeftWhereNothingIsReplaced) {
  TempFolder temp;
  temp.file("a", "new").file("locked", "old").mode("locked", 0444).file(".dot", "old");
  temp.file("behind", "behind").mode("behind", 0444).link("link", "behind");
  EXPECT_EQ(codeOf(temp.files.replaceFile(temp.path("a"), temp.path("locked"), [](std::uint64_t) { return false; })),
            ErrorCode::Stopped);
  EXPECT_EQ(temp.read("locked"), "old");
  EXPECT_EQ(temp.facts("locked").st_mode & 0777, 0444u);
  for (const char* target : {"locked", ".dot", "link"}) {
    ASSERT_TRUE(temp.files.replaceFile(temp.path("a"), temp.path(target))) << target;
    EXPECT_EQ(temp.read(target), "new");
    EXPECT_EQ(temp.facts(target).st_mode, temp.facts("a").st_mode) << target;
  }
  EXPECT_EQ(temp.read("behind"), "behind");
  EXPECT_EQ(temp.facts("behind").st_mode & 0777, 0444u);
  EXPECT_EQ(codeOf(temp.files.replaceFile(temp.path("a"), temp.path("a"))), ErrorCode::SameEntry);
}

TEST(CopyFile, NeverOntoItself) {
  TempFolder temp;
  temp.file("a", "bytes").link("l", "a").hardLink("h", "a");
  for (const std::string& target : {temp.path("a"), temp.path("a", 'E'), temp.path("l"), temp.path("h")})
    for (bool overwrite : {true, false})
      EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("a"), target, overwrite)), ErrorCode::SameEntry) << target;
  EXPECT_EQ(temp.read("a"), "bytes");
  EXPECT_EQ(temp.linkText("l"), "a");
  EXPECT_EQ(temp.facts("a").st_nlink, 2u);
}

TEST(CopyFile, LinksStayLinks) {
  TempFolder temp;
  temp.file("t", "1").link("l", "t").link("gone", "nowhere").file("other", "2").link("old", "other");
  ASSERT_TRUE(temp.files.copyFile(temp.path("l"), temp.path("l2"), false));
  ASSERT_TRUE(temp.files.copyFile(temp.path("gone"), temp.path("gone2"), false));
  EXPECT_EQ(temp.linkText("l2"), "t");
  EXPECT_EQ(temp.linkText("gone2"), "nowhere");
  // A link in the target's place is replaced; what it names is not written through.
  ASSERT_TRUE(temp.files.copyFile(temp.path("t"), temp.path("old"), true));
  EXPECT_EQ(temp.read("other"), "2");
  ASSERT_TRUE(temp.files.copyFile(temp.path("l"), temp.path("other"), true));
  EXPECT_EQ(temp.linkText("other"), "t");
}

TEST(CopyFile, HolesStayHoles) {
  TempFolder temp;
  temp.file("a", "start");
  ASSERT_EQ(::truncate(temp.system("a").c_str(), 64 << 20), 0);
  if (temp.facts("a").st_blocks > 1000) GTEST_SKIP() << "no holes on this volume";
  ASSERT_TRUE(temp.files.copyFile(temp.path("a"), temp.path("b"), false));
  EXPECT_EQ(temp.facts("b").st_size, 64 << 20);
  EXPECT_LT(temp.facts("b").st_blocks, 1000);
  EXPECT_EQ(temp.read("b").substr(0, 6), std::string("start\0", 6));
}

TEST(CopyFile, StoppedLeavesTheOldTarget) {
  TempFolder temp;
  temp.file("a", std::string(30 << 20, 'n')).file("b", "old");
  std::uint64_t seen = 0;
  const auto stop = [&](std::uint64_t done) {
    seen = done;
    return false;
  };
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("a"), temp.path("b"), true, stop)), ErrorCode::Stopped);
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("a"), temp.path("c"), true, stop)), ErrorCode::Stopped);
  EXPECT_GT(seen, 0u);
  EXPECT_EQ(temp.read("b"), "old");
  EXPECT_EQ(temp.names(), (Names{"a", "b"}));
}

TEST(CopyFile, VolumesThatKeepNoTimesAndModesTakeCopiesAllTheSame) {
  TempFolder temp;
  temp.file("a", "new");
  for (const int error : {ENOTSUP, ENOSYS, EPERM}) {
    temp.file("b", "old");
    refused = error;
    EXPECT_TRUE(temp.files.copyFile(temp.path("a"), temp.path("b"), true)) << error;
    refused = 0;
    EXPECT_EQ(temp.read("b"), "new");
  }
  refused = EIO;
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("a"), temp.path("b"), true)), ErrorCode::Failed);
  refused = 0;
}

TEST(CopyFile, FilesThatDoNotTellTheirSize) {
  TempFolder temp;
  ASSERT_TRUE(temp.files.copyFile("Z:\\proc\\self\\status", temp.path("status"), false));
  EXPECT_NE(temp.read("status").find("Name:"), std::string::npos);
}

TEST(CopyFile, Missing) {
  TempFolder temp;
  temp.file("a").folder("f");
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("none"), temp.path("b"), true)), ErrorCode::NotFound);
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("a"), temp.path("none/b"), true)), ErrorCode::NotFound);
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("f"), temp.path("b"), true)), ErrorCode::IsAFolder);
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("a"), "Q:\\b", true)), ErrorCode::InvalidPath);
}

TEST(CopyFile, FolderWithoutWritePermission) {
  TempFolder temp;
  temp.file("a").folder("f").mode("f", 0755).mode("", 0755);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("a"), temp.path("f/b"), false)), ErrorCode::AccessDenied);
  }));
}

// --- Trees -----------------------------------------------------------------------------------------------------------

TEST(CopyFolder, WholeTreeWithFacts) {
  TempFolder temp;
  temp.file("from/a", "1", Date{100, 0}).file("from/f/b", "2").folder("from/empty").link("from/l", "f/b");
  temp.file("from/.hidden/c", "3").mode("from/f", 0750);
  temp.modified("from/f", Date{200, 0}).modified("from", Date{300, 0});
  ASSERT_TRUE(temp.files.copyFolder(temp.path("from"), temp.path("to"), false));
  EXPECT_EQ(temp.names("to"), (Names{".hidden", "a", "empty", "f", "l"}));
  EXPECT_EQ(temp.read("to/f/b"), "2");
  EXPECT_EQ(temp.read("to/.hidden/c"), "3");
  EXPECT_EQ(temp.linkText("to/l"), "f/b");
  EXPECT_EQ(temp.facts("to/a").st_mtim.tv_sec, 100);
  EXPECT_EQ(temp.facts("to/f").st_mtim.tv_sec, 200);
  EXPECT_EQ(temp.facts("to").st_mtim.tv_sec, 300);
  EXPECT_EQ(temp.facts("to/f").st_mode & 0777, 0750u);
  EXPECT_EQ(temp.names(), (Names{"from", "to"}));
}

TEST(CopyFolder, IntoAFolderWithClosingBackslash) {
  TempFolder temp;
  temp.file("from/a", "1").folder("f");
  ASSERT_TRUE(temp.files.copyFolder(temp.path("from"), temp.path("f/"), false));
  EXPECT_EQ(temp.read("f/from/a"), "1");
}

TEST(CopyFolder, MergesAndKeepsWhatIsThere) {
  TempFolder temp;
  temp.file("from/same", "new").file("from/f/b", "2").file("to/same", "old").file("to/f/other", "3");
  temp.mode("to/f", 0700).modified("to", Date{100, 0});
  ASSERT_TRUE(temp.files.copyFolder(temp.path("from"), temp.path("to"), true));
  EXPECT_EQ(temp.read("to/same"), "new");
  EXPECT_EQ(temp.names("to/f"), (Names{"b", "other"}));
  EXPECT_EQ(temp.facts("to/f").st_mode & 0777, 0700u) << "a folder that was there keeps its own";
}

TEST(CopyFolder, PassesOverWhatCannotBeCopiedAndTellsAllOfIt) {
  TempFolder temp;
  temp.file("from/a", "new").file("from/f/free", "1").file("from/z", "2").pipe("from/pipe").file("from/taken/b", "3");
  temp.file("from/locked", "new").file("from/.dot", "new").file("from/f/folder", "new");
  temp.file("to/a", "old").file("to/locked", "old").mode("to/locked", 0444).file("to/.dot", "old");
  temp.folder("to/f/folder").file("to/taken", "a file");
  LeftOuts leftOut;
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("from"), temp.path("to"), true, {}, &leftOut)),
            ErrorCode::NotRegular);
  std::vector<std::pair<std::string, ErrorCode>> told;
  for (const Error& each : leftOut)
    told.emplace_back(each.path, each.code);
  const decltype(told) expected{{temp.path("from/pipe"), ErrorCode::NotRegular},
                                {temp.path("to/.dot"), ErrorCode::ReadOnlyTarget},
                                {temp.path("to/f/folder"), ErrorCode::IsAFolder},
                                {temp.path("to/locked"), ErrorCode::ReadOnlyTarget},
                                {temp.path("to/taken"), ErrorCode::AlreadyThere}};
  EXPECT_EQ(told, expected);
  EXPECT_EQ(temp.read("to/a") + temp.read("to/f/free") + temp.read("to/z"), "new12");
  EXPECT_EQ(temp.read("to/locked") + temp.read("to/.dot"), "oldold");
  leftOut.clear();
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("from"), temp.path("to"), false, {}, &leftOut)),
            ErrorCode::NotRegular);
  EXPECT_EQ(leftOut.size(), 8u) << "nothing may be replaced";
}

TEST(CopyFolder, UnreadableFilesAndFoldersAreLeftOut) {
  TempFolder temp;
  temp.file("from/a", "1").file("from/secret").file("from/shut/b").mode("from/secret", 0).mode("from/shut", 0);
  temp.mode("", 0777);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    LeftOuts leftOut;
    EXPECT_FALSE(temp.files.copyFolder(temp.path("from"), temp.path("to"), true, {}, &leftOut));
    EXPECT_EQ(leftOut.size(), 2u);
    EXPECT_EQ(temp.names("to"), Names{"a"});
  }));
  temp.mode("from/shut", 0700);
}

TEST(CopyFolder, FileInTheFoldersPlace) {
  TempFolder temp;
  temp.file("from/f/a").file("to/f", "a file").file("alone", "old");
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("from"), temp.path("to"), true)), ErrorCode::AlreadyThere);
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("from"), temp.path("alone"), true)), ErrorCode::AlreadyThere);
  EXPECT_EQ(temp.read("to/f"), "a file");
  EXPECT_EQ(temp.read("alone"), "old");
}

TEST(CopyFolder, LinkInTheFoldersPlaceIsNotWrittenThrough) {
  TempFolder temp;
  temp.file("from/f/a", "new").file("elsewhere/a", "old").folder("to").link("to/f", "../elsewhere");
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("from"), temp.path("to"), true)), ErrorCode::AlreadyThere);
  EXPECT_EQ(temp.read("elsewhere/a"), "old");
}

TEST(CopyFolder, NeverIntoItself) {
  TempFolder temp;
  temp.file("from/f/a").link("toFrom", "from").link("toInner", "from/f");
  for (const std::string& target :
       {temp.path("from/copy"), temp.path("from/f/copy"), temp.path("from/"), temp.path("from/copy", 'E'),
        temp.path("toFrom/copy"), temp.path("toInner/copy"), temp.path("from/f")})
    EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("from"), target, true)), ErrorCode::IntoItself) << target;
  for (const std::string& target : {temp.path("from"), temp.path("from", 'E'), temp.path("toFrom")})
    EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("from"), target, true)), ErrorCode::SameEntry) << target;
  EXPECT_EQ(temp.names("from"), (Names{"f"}));
  EXPECT_EQ(temp.names("from/f"), (Names{"a"}));
}

TEST(CopyFolder, TreeThatHoldsItsTargetByAMount) {
  TempFolder temp;
  temp.file("from/a").folder("from/mounted").folder("to");
  if (::mount(temp.system("to").c_str(), temp.system("from/mounted").c_str(), nullptr, MS_BIND, nullptr) != 0)
    GTEST_SKIP() << "no right to mount here";
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("from"), temp.path("to"), true)), ErrorCode::IntoItself);
  ::umount(temp.system("from/mounted").c_str());
}

TEST(CopyFolder, FoldersThatMayNotBeWrittenAreCopiedAllTheSame) {
  TempFolder temp;
  temp.file("from/f/a", "1").mode("from/f", 0555).mode("from", 0555).mode("", 0777);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    ASSERT_TRUE(temp.files.copyFolder(temp.path("from"), temp.path("to"), false));
    EXPECT_EQ(temp.read("to/f/a"), "1");
    EXPECT_EQ(temp.facts("to/f").st_mode & 0777, 0555u);
    EXPECT_TRUE(temp.files.deleteFolder(temp.path("to"), true));
  }));
}

TEST(CopyFolder, AFailureLeavesFoldersUsable) {
  TempFolder temp;
  temp.file("from/f/a", "1").pipe("from/f/pipe").mode("from/f", 0755);
  EXPECT_FALSE(temp.files.copyFolder(temp.path("from"), temp.path("to"), false));
  EXPECT_EQ(temp.facts("to/f").st_mode & 0777, 0755u) << "what was copied until then stays, and is not locked";
}

TEST(CopyFolder, StoppedTakesItsNewFolderAwayAndNothingOfOthers) {
  for (const int callsBefore : {0, 1, 2}) {
    TempFolder temp;
    for (int i = 0; i < 40; ++i)
      temp.file("from/" + std::to_string(i % 4) + "/" + std::to_string(i), std::string(2 << 20, 'x'));
    temp.file("from/own").folder("merged").mode("from/1", 0555);
    int calls = 0;
    const auto stop = [&](std::uint64_t) {
      if (calls == 1 && temp.has("to")) temp.file("to/stranger").file("to/own", "changed");
      return ++calls <= callsBefore;
    };
    const auto copied = temp.files.copyFolder(temp.path("from"), temp.path("to"), false, stop);
    if (copied) continue;  // it was quicker than the second question
    EXPECT_EQ(copied.error().code, ErrorCode::Stopped);
    if (temp.has("to")) {
      EXPECT_EQ(temp.names("to"), (Names{"own", "stranger"}));
    }
    calls = 0;
    (void)temp.files.copyFolder(temp.path("from"), temp.path("merged"), false, stop);
    for (const std::string& name : temp.names("merged"))
      for (const std::string& file : name == "own" ? Names{} : temp.names("merged/" + name))
        EXPECT_EQ(temp.facts("merged/" + name + "/" + file).st_size, 2 << 20) << file;
    for (const std::string& name : temp.names())
      EXPECT_FALSE(name.starts_with(".vnh-")) << name;
  }
}

TEST(CopyFolder, ManyFilesOnAllWorkers) {
  TempFolder temp;
  for (int folder = 0; folder < 30; ++folder)
    for (int file = 0; file < 60; ++file)
      temp.file("from/" + std::to_string(folder) + "/" + std::to_string(file), std::to_string(folder * file));
  ASSERT_TRUE(temp.files.copyFolder(temp.path("from"), temp.path("to"), false));
  for (int folder = 0; folder < 30; ++folder)
    for (int file = 0; file < 60; ++file)
      EXPECT_EQ(temp.read("to/" + std::to_string(folder) + "/" + std::to_string(file)), std::to_string(folder * file));
  ASSERT_TRUE(temp.files.copyFolder(temp.path("from"), temp.path("to"), true));
  EXPECT_EQ(temp.names("to/7").size(), 60u) << "merging leaves no temporary files";
}

TEST(CopyFolder, LinkToAFolderIsCopiedAsALink) {
  TempFolder temp;
  temp.file("f/a").link("l", "f");
  ASSERT_TRUE(temp.files.copyFolder(temp.path("l"), temp.path("l2"), false));
  EXPECT_EQ(temp.linkText("l2"), "f");
}

TEST(CopyFolder, SourceThatIsNoFolder) {
  TempFolder temp;
  temp.file("a");
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("a"), temp.path("b"), true)), ErrorCode::NotAFolder);
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("none"), temp.path("b"), true)), ErrorCode::NotFound);
  EXPECT_FALSE(temp.has("b"));
}

}  // namespace
}  // namespace varnholt::platform

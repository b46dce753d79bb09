#include "platform/posix/shipped_files.hpp"
#include "support/own_mounts.hpp"
#include "support/temp_folder.hpp"
#include "support/tree_snapshot.hpp"

#include <cerrno>
#include <cstring>

#include <linux/magic.h>
#include <sys/statfs.h>
#include <sys/syscall.h>

namespace {

/// What a volume says to changes of modes and times; 0: it makes them.
int refused = 0;
/// It passes over a change of one of the two times alone, and calls that done.
bool wantsBothTimes = false;
/// Volumes are NTFS by FUSE, and this attribute was set last.
bool isNtfs = false;
std::uint32_t ntfsWord = 0;
std::atomic<int> writtenOut = 0;

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
  if (wantsBothTimes && (times[0].tv_nsec == UTIME_OMIT || times[1].tv_nsec == UTIME_OMIT)) return 0;
  return change(SYS_utimensat, fd, static_cast<const char*>(nullptr), times, 0);
}
extern "C" int fstatfs(int fd, struct statfs* facts) noexcept {
  const int result = static_cast<int>(::syscall(SYS_fstatfs, fd, facts));
  if (isNtfs) facts->f_type = FUSE_SUPER_MAGIC;
  return result;
}
extern "C" int setxattr(const char* path, const char* name, const void* value, size_t size, int flags) noexcept {
  if (!isNtfs || std::strcmp(name, "system.ntfs_attrib") != 0)
    return static_cast<int>(::syscall(SYS_setxattr, path, name, value, size, flags));
  std::memcpy(&ntfsWord, value, sizeof ntfsWord);
  return 0;
}
extern "C" int syncfs(int) noexcept { return ++writtenOut, 0; }

namespace varnholt::platform {
namespace {

using test::codeOf;
using test::TempFolder;
using Names = std::vector<std::string>;

class Copies : public testing::Test {
 protected:
  using Code = std::optional<ErrorCode>;  ///< none: it succeeded
  Code copy(const std::string& from, const std::string& to, bool overwrite = true, const Progress& progress = {}) {
    return codeOf(temp.files.copyFile(temp.at(from), temp.at(to), overwrite, progress));
  }
  Code copyTree(const std::string& from, const std::string& to, bool overwrite = true, LeftOuts* leftOut = nullptr) {
    return codeOf(temp.files.copyFolder(temp.at(from), temp.at(to), overwrite, {}, leftOut));
  }
  TempFolder temp;
  static constexpr Code Done{};
};

TEST_F(Copies, BytesOfEverySize) {
  std::mt19937 random(7);
  for (const size_t size : {0u, 1u, 4096u, 131072u, 131073u, 9000000u}) {
    std::string bytes(size, '\0');
    for (char& c : bytes)
      c = static_cast<char>(random());
    temp.file("a", bytes);
    ASSERT_EQ(copy("a", "b"), Done) << size;
    EXPECT_EQ(temp.read("b"), bytes) << size;
  }
  EXPECT_EQ(temp.names(), (Names{"a", "b"})) << "no temporary file stays";
  ASSERT_TRUE(temp.files.copyFile("Z:\\proc\\self\\status", temp.at("status"), false)) << "it does not tell its size";
  EXPECT_NE(temp.read("status").find("Name:"), std::string::npos);
}

TEST_F(Copies, DateModeAndExtendedAttributesComeAlong) {
  temp.file("a", "x", Date{-5, 7}).folder("f");
  const bool keeps = temp.store("a", "0x23");
  temp.mode("a", 0440);
  ASSERT_EQ(copy("a", "f/", false), Done) << "a closing backslash: under the same name in there";
  EXPECT_EQ(temp.files.info(temp.at("f/a"))->modified, (Date{-5, 7}));
  EXPECT_EQ(temp.facts("f/a").st_mode & 0777, 0440u);
  EXPECT_EQ(temp.files.attributes(temp.at("f/a")).valueOr(0), keeps ? 0x23u : 0x21u);
}

TEST_F(Copies, Refusals) {
  temp.file("a", "new").file("b", "old").folder("f").pipe("p");
  temp.file("locked", "old").mode("locked", 0444).file(".dot", "old").file("sys", "old");
  const bool keeps = temp.store("sys", "0x24");
  using enum ErrorCode;
  const std::tuple<const char*, const char*, bool, ErrorCode> rows[] = {
      {"a", "b", false, AlreadyThere},       {"a", "f", true, IsAFolder},         {"a", "p", true, NotRegular},
      {"a", "locked", true, ReadOnlyTarget}, {"a", ".dot", true, ReadOnlyTarget}, {"none", "c", true, NotFound},
      {"a", "none/b", true, NotFound},       {"f", "c", true, IsAFolder},         {"p", "c", true, NotRegular}};
  for (const auto& [from, to, overwrite, code] : rows)
    EXPECT_EQ(copy(from, to, overwrite), code) << from << " to " << to;
  EXPECT_TRUE(!keeps || copy("a", "sys") == ReadOnlyTarget);
  EXPECT_EQ(temp.files.copyFile(temp.at("a"), temp.at("locked"), true).error().path, temp.at("locked"));
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.at("a"), "Q:\\b", true)), InvalidPath);
  for (const char* target : {"b", "locked", ".dot", "sys"})
    EXPECT_EQ(temp.read(target), "old") << target;
  EXPECT_FALSE(temp.has("c"));
  ASSERT_EQ(copy("a", "b"), Done);
  EXPECT_EQ(temp.read("b"), "new");
}

TEST_F(Copies, ProtectionGoesWithTheReplacedFileAndIsLeftWhereNothingIsReplaced) {
  temp.file("a", "new").file("locked", "old").mode("locked", 0444).file(".dot", "old");
  temp.file("behind", "behind").mode("behind", 0444).link("link", "behind");
  EXPECT_EQ(codeOf(temp.files.replaceFile(temp.at("a"), temp.at("locked"), [](std::uint64_t) { return false; })),
            ErrorCode::Stopped);
  EXPECT_EQ(temp.read("locked"), "old");
  EXPECT_EQ(temp.facts("locked").st_mode & 0777, 0444u);
  for (const char* target : {"locked", ".dot", "link"}) {
    ASSERT_TRUE(temp.files.replaceFile(temp.at("a"), temp.at(target))) << target;
    EXPECT_EQ(temp.read(target), "new");
    EXPECT_EQ(temp.facts(target).st_mode, temp.facts("a").st_mode) << target;
  }
  EXPECT_EQ(temp.read("behind"), "behind");
  EXPECT_EQ(temp.facts("behind").st_mode & 0777, 0444u);
  EXPECT_EQ(codeOf(temp.files.replaceFile(temp.at("a"), temp.at("a"))), ErrorCode::SameEntry);
}

TEST_F(Copies, NeverOntoItself) {
  temp.file("a", "bytes").link("l", "a").hardLink("h", "a");
  for (const std::string& target : {temp.at("a"), temp.at("a", 'E'), temp.at("l"), temp.at("h")})
    for (bool overwrite : {true, false})
      EXPECT_EQ(codeOf(temp.files.copyFile(temp.at("a"), target, overwrite)), ErrorCode::SameEntry) << target;
  EXPECT_EQ(temp.read("a") + temp.linkText("l"), "bytesa");
  EXPECT_EQ(temp.facts("a").st_nlink, 2u);
}

TEST_F(Copies, LinksStayLinks) {
  temp.file("t", "1").file("other", "2").folder("f");
  for (const auto& [name, text] : {std::pair{"l", "t"}, {"gone", "nowhere"}, {"toF", "f"}}) {
    temp.link(name, text);
    ASSERT_EQ(copy(name, std::string(name) + "2", false), Done);
    EXPECT_EQ(temp.linkText(std::string(name) + "2"), text);
  }
  ASSERT_EQ(copyTree("toF", "toF3", false), Done);
  EXPECT_EQ(temp.linkText("toF3"), "f");
  // A link in the target's place is replaced; what it names is not written through.
  temp.link("old", "other");
  ASSERT_EQ(copy("t", "old"), Done);
  EXPECT_EQ(temp.read("other"), "2");
  ASSERT_EQ(copy("l", "other"), Done);
  EXPECT_EQ(temp.linkText("other"), "t");
}

TEST_F(Copies, HolesStayHoles) {
  temp.file("a", "start");
  ASSERT_EQ(::truncate(temp.system("a").c_str(), 64 << 20), 0);
  if (temp.facts("a").st_blocks > 1000) GTEST_SKIP() << "no holes on this volume";
  ASSERT_EQ(copy("a", "b"), Done);
  EXPECT_EQ(temp.facts("b").st_size, 64 << 20);
  EXPECT_LT(temp.facts("b").st_blocks, 1000);
  EXPECT_EQ(temp.read("b").substr(0, 6), std::string("start\0", 6));
}

TEST_F(Copies, StoppedLeavesTheOldTarget) {
  temp.file("a", std::string(30 << 20, 'n')).file("b", "old");
  std::uint64_t seen = 0;
  const auto stop = [&](std::uint64_t done) { return seen = done, false; };
  for (const char* target : {"b", "c"})
    EXPECT_EQ(copy("a", target, true, stop), ErrorCode::Stopped);
  EXPECT_GT(seen, 0u);
  EXPECT_EQ(temp.read("b"), "old");
  EXPECT_EQ(temp.names(), (Names{"a", "b"}));
}

TEST_F(Copies, VolumesThatKeepNoTimesAndModesTakeCopiesAllTheSame) {
  temp.file("a", "new");
  for (const int error : {ENOTSUP, ENOSYS, EPERM, EIO}) {
    temp.file("b", "old");
    refused = error;
    EXPECT_EQ(copy("a", "b"), error == EIO ? Code(ErrorCode::Failed) : Done) << error;
    EXPECT_EQ(posix::copyMissingFiles(temp.system("a"), temp.system("shipped")), error != EIO) << error;
    std::filesystem::remove(temp.system("shipped"));
    refused = 0;
    EXPECT_EQ(temp.read("b"), error == EIO ? "old" : "new");
  }
}

TEST_F(Copies, KeepTheirDateOnVolumesThatSetBothTimesOrNone) {
  temp.file("f/a", "x", Date{7, 0}).modified("f", {9, 0});
  wantsBothTimes = true;
  EXPECT_TRUE(temp.files.copyFolder(temp.at("f"), temp.at("g"), false));
  wantsBothTimes = false;
  EXPECT_EQ(temp.facts("g/a").st_mtim.tv_sec + temp.facts("g").st_mtim.tv_sec, 7 + 9);
}

TEST_F(Copies, ToNtfsKeepTheReadOnlyOfAMode) {
  temp.file("a").mode("a", 0444);
  isNtfs = true;
  EXPECT_EQ(copy("a", "b"), Done);
  isNtfs = false;
  EXPECT_EQ(ntfsWord, attribute::Archive | attribute::ReadOnly);
}

/// The file changes while the copy of it is on its way.
class ChangingFile : public Copies {
 protected:
  static constexpr std::size_t Large = 20 << 20;
  Code copyWhile(const std::function<void()>& change) {
    int calls = 0;
    return copy("a", "b", false, [&](std::uint64_t) {
      change();
      return ++calls < 400;  // a fifth of these is what the file takes
    });
  }
  const std::string old = std::string(Large, 'o');
};

TEST_F(ChangingFile, GivesACopyOfWhatItWasAndNoEndOfZeros) {
  const auto path = temp.system("a");
  const auto shrinks = [&] { ASSERT_EQ(::truncate(path.c_str(), 9 << 20), 0); };
  const auto grows = [&] { std::ofstream(path, std::ios::app) << std::string(300 << 10, '+'); };
  const auto goes = [&] { std::filesystem::remove(path); };
  const std::tuple<const char*, off_t, std::function<void()>, bool> rows[] = {
      {"it grows, and the copy runs not after its end", Large, grows, true},
      {"it is gone, and still in the copy", Large, goes, true},
      {"it shrinks", Large, shrinks, false},
      {"it shrinks, and has holes at its end", 200 << 20, shrinks, false}};
  for (const auto& [what, size, change, isWhole] : rows) {
    std::filesystem::remove(temp.system("b"));
    temp.file("a", old);
    ASSERT_EQ(::truncate(path.c_str(), size), 0);
    EXPECT_EQ(copyWhile(change), Done) << what;
    const std::string bytes = temp.read("b");
    EXPECT_TRUE(isWhole ? bytes == old : bytes.size() >= 9 << 20 && old.starts_with(bytes)) << what;
  }
}

TEST_F(ChangingFile, ATargetThatComesUpMeanwhileStays) {
  temp.file("a", old);
  EXPECT_EQ(copyWhile([&] { temp.file("b", "somebody's"); }), ErrorCode::AlreadyThere);
  EXPECT_EQ(temp.read("b"), "somebody's");
  EXPECT_EQ(temp.names(), (Names{"a", "b"}));
}

TEST_F(Copies, WholeTreesWithTheirFactsAlsoOverThemselves) {
  temp.file("from/a", "1", Date{100, 0}).file("from/f/b", "2").folder("from/empty").link("from/l", "f/b");
  temp.link("from/self", ".").link("from/one", "two").link("from/two", "one");
  temp.file("from/.hidden/c", "3").folder("into");
  for (int file = 0; file < 1800; ++file)  // on all workers
    temp.file("from/f/" + std::to_string(file % 30) + "f/" + std::to_string(file), std::to_string(file));
  temp.mode("from/f", 0750).modified("from/f", Date{200, 0}).modified("from", Date{300, 0});
  for (const bool merges : {false, true}) {
    ASSERT_EQ(copyTree("from", "into/", merges), Done);
    EXPECT_EQ(test::difference(test::snapshot(temp / "from"), test::snapshot(temp / "into/from")), "");
    if (merges) continue;
    EXPECT_EQ(temp.facts("into/from/f").st_mtim.tv_sec, 200);
    EXPECT_EQ(temp.facts("into/from").st_mtim.tv_sec, 300);
  }
  EXPECT_EQ(temp.names(), (Names{"from", "into"}));
}

TEST_F(Copies, MergesAndKeepsWhatIsThere) {
  temp.file("from/same", "new").file("from/f/b", "2").file("to/same", "old").file("to/f/other", "3");
  temp.file("from/g/h/c", "4").mode("to/f", 0700).mode("to", 02755);
  ASSERT_EQ(copyTree("from", "to"), Done);
  EXPECT_EQ(temp.read("to/same"), "new");
  EXPECT_EQ(temp.names("to/f"), (Names{"b", "other"}));
  EXPECT_EQ(temp.facts("to/f").st_mode & 0777, 0700u) << "a folder that was there keeps its own";
  EXPECT_TRUE(temp.facts("to/g/h").st_mode & S_ISGID) << "what is made in a shared folder is shared, too";
}

TEST_F(Copies, PassesOverWhatCannotBeCopiedAndTellsAllOfIt) {
  temp.file("from/a", "new").file("from/f/free", "1").file("from/z", "2").pipe("from/pipe").file("from/taken/b", "3");
  temp.file("from/locked", "new").file("from/.dot", "new").file("from/f/folder", "new").file("from/linked/a", "new");
  temp.file("to/a", "old").file("to/locked", "old").mode("to/locked", 0444).file("to/.dot", "old");
  temp.folder("to/f/folder").file("to/taken", "a file").file("elsewhere/a", "old").link("to/linked", "../elsewhere");
  LeftOuts leftOut;
  EXPECT_EQ(copyTree("from", "to", true, &leftOut), ErrorCode::NotRegular);
  std::vector<std::pair<std::string, ErrorCode>> told;
  for (const Error& each : leftOut)
    told.emplace_back(each.path, each.code);
  const decltype(told) expected{
      {temp.at("from/pipe"), ErrorCode::NotRegular},     {temp.at("to/.dot"), ErrorCode::ReadOnlyTarget},
      {temp.at("to/f/folder"), ErrorCode::IsAFolder},    {temp.at("to/linked"), ErrorCode::AlreadyThere},
      {temp.at("to/locked"), ErrorCode::ReadOnlyTarget}, {temp.at("to/taken"), ErrorCode::AlreadyThere}};
  EXPECT_EQ(told, expected);
  EXPECT_EQ(temp.read("to/a") + temp.read("to/f/free") + temp.read("to/z"), "new12");
  EXPECT_EQ(temp.read("to/locked") + temp.read("to/.dot") + temp.read("elsewhere/a"), "oldoldold");
  EXPECT_EQ(temp.facts("to/f").st_mode & 0777, 0755u) << "and no folder is locked";
  leftOut.clear();
  EXPECT_EQ(copyTree("from", "to", false, &leftOut), ErrorCode::NotRegular);
  EXPECT_EQ(leftOut.size(), 9u) << "nothing may be replaced";
}

TEST_F(Copies, OfAnOrdinaryUser) {
  temp.file("from/a", "1").file("from/secret").file("from/shut/b").mode("from/secret", 0).mode("from/shut", 0);
  temp.file("fixed/f/a", "1").mode("fixed/f", 0555).mode("fixed", 0555).mode("", 0777);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    EXPECT_EQ(copy("fixed/f/a", "fixed/b"), ErrorCode::AccessDenied) << "nothing may be made there";
    LeftOuts leftOut;
    EXPECT_EQ(copyTree("from", "to", true, &leftOut), ErrorCode::AccessDenied);
    EXPECT_EQ(leftOut.size(), 2u);
    EXPECT_EQ(temp.names("to"), Names{"a"});
    // Folders that may not be written are copied all the same.
    EXPECT_EQ(copyTree("fixed", "copy", false), Done);
    EXPECT_EQ(temp.read("copy/f/a"), "1");
    EXPECT_EQ(temp.facts("copy/f").st_mode & 0777, 0555u);
    EXPECT_TRUE(temp.files.deleteFolder(temp.at("copy"), true));
  }));
}

TEST_F(Copies, TreeIsNeverCopiedIntoItselfOrWhatIsNoFolder) {
  temp.file("from/f/a").link("toFrom", "from").link("toInner", "from/f").file("alone", "old").file("to/f", "a file");
  using enum ErrorCode;
  for (const char* target : {"from/copy", "from/f/copy", "from/", "toFrom/copy", "toInner/copy", "from/f"})
    EXPECT_EQ(copyTree("from", target), IntoItself) << target;
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.at("from"), temp.at("from/copy", 'E'), true)), IntoItself);
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.at("from"), temp.at("from", 'E'), true)), SameEntry);
  EXPECT_EQ(copyTree("from", "from"), SameEntry);
  EXPECT_EQ(copyTree("from", "toFrom"), SameEntry);
  EXPECT_EQ(copyTree("from", "alone"), AlreadyThere);
  EXPECT_EQ(copyTree("alone", "b"), NotAFolder);
  EXPECT_EQ(copyTree("none", "b"), NotFound);
  EXPECT_EQ(temp.names("from"), Names{"f"});
  EXPECT_EQ(temp.names("from/f"), Names{"a"});
  EXPECT_EQ(temp.read("alone"), "old");
  EXPECT_FALSE(temp.has("b"));
  temp.folder("from/mounted").folder("target");
  const auto mount = test::ScopedMount::bind(temp.system("target"), temp.system("from/mounted"));
  if (!mount) GTEST_SKIP() << "no right to mount here";
  EXPECT_EQ(copyTree("from", "target"), IntoItself) << "by a mount";
}

TEST_F(Copies, StoppedTakesItsNewFolderAwayAndNothingOfOthers) {
  for (const int callsBefore : {0, 1, 2}) {
    TempFolder temp;
    for (int i = 0; i < 40; ++i)
      temp.file("from/" + std::to_string(i % 4) + "/" + std::to_string(i), std::string(2 << 20, 'x'));
    temp.file("from/own").folder("merged").mode("from/1", 0555);
    int calls = 0;
    const auto stop = [&](const auto&) {
      if (calls == 1 && temp.has("to")) temp.file("to/stranger").file("to/own", "changed");
      return ++calls <= callsBefore;
    };
    const auto copied = temp.files.copyFolder(temp.at("from"), temp.at("to"), false, stop);
    if (copied) continue;  // it was quicker than the second question
    EXPECT_EQ(copied.error().code, ErrorCode::Stopped);
    if (temp.has("to")) {
      EXPECT_EQ(temp.names("to"), (Names{"own", "stranger"}));
    }
    calls = 0;
    (void)temp.files.copyFolder(temp.at("from"), temp.at("merged"), false, stop);
    for (const std::string& name : temp.names("merged"))
      for (const std::string& file : name == "own" ? Names{} : temp.names("merged/" + name))
        EXPECT_EQ(temp.facts("merged/" + name + "/" + file).st_size, 2 << 20) << file;
    for (const std::string& name : temp.names())
      EXPECT_FALSE(name.starts_with(".vnh-")) << name;
  }
}

TEST_F(Copies, OfAVolumeThatIsWaitedForAreWrittenOut) {
  writtenOut = 0;
  EXPECT_TRUE(temp.files.writeOut(temp.at(""), true));
  EXPECT_EQ(writtenOut, 1);
}

TEST_F(Copies, AFolderTellsItsShareByEntriesAndItsSizeAtTheEnd) {
  temp.file("from/a/large", std::string(24 << 20, 'x')).folder("from/b").file("from/c/locked", "1234");
  for (int file = 0; file < 3000; ++file)
    temp.file("from/many/" + std::to_string(file), "x");
  temp.folder("to/c/locked");  // in the way: left out, and counted
  std::vector<FolderAdvance> told;
  (void)temp.files.copyFolder(temp.at("from"), temp.at("to"), true, [&](const FolderAdvance& advance) {
    told.push_back(advance);
    return true;
  });
  EXPECT_TRUE(std::ranges::is_sorted(told, {}, &FolderAdvance::share));
  EXPECT_NEAR(told.back().share, 1, 1e-6);
  EXPECT_EQ(told.back().bytes, temp.files.folderSize(temp.at("from"))->bytes);
}

}  // namespace
}  // namespace varnholt::platform

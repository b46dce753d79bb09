// Moves and deletes, and what they must never do.

#include "support/temp_folder.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

namespace varnholt::platform {
namespace {

using test::codeOf;
using test::TempFolder;
using Names = std::vector<std::string>;

// --- Move ------------------------------------------------------------------------------------------------------------

TEST(MoveFile, WithinAVolume) {
  TempFolder temp;
  temp.file("a", "1", Date{50, 0}).folder("f").link("l", "a");
  ASSERT_TRUE(temp.files.moveFile(temp.path("a"), temp.path("f/b")));
  EXPECT_EQ(temp.read("f/b"), "1");
  EXPECT_EQ(temp.facts("f/b").st_mtim.tv_sec, 50);
  EXPECT_FALSE(temp.has("a"));
  ASSERT_TRUE(temp.files.moveFile(temp.path("l"), temp.path("f/")));
  EXPECT_EQ(temp.linkText("f/l"), "a");
}

TEST(MoveFile, NeverReplaces) {
  TempFolder temp;
  temp.file("a", "new").file("b", "old").folder("f");
  EXPECT_EQ(codeOf(temp.files.moveFile(temp.path("a"), temp.path("b"))), ErrorCode::AlreadyThere);
  EXPECT_EQ(codeOf(temp.files.moveFile(temp.path("a"), temp.path("f"))), ErrorCode::AlreadyThere);
  EXPECT_EQ(temp.read("a"), "new");
  EXPECT_EQ(temp.read("b"), "old");
  EXPECT_EQ(codeOf(temp.files.moveFile(temp.path("f"), temp.path("g"))), ErrorCode::IsAFolder);
  EXPECT_EQ(codeOf(temp.files.moveFile(temp.path("none"), temp.path("g"))), ErrorCode::NotFound);
  EXPECT_EQ(codeOf(temp.files.moveFile(temp.path("a"), temp.path("none/g"))), ErrorCode::NotFound);
}

TEST(MoveFile, CaseOfANameCanChange) {
  TempFolder temp;
  temp.file("name.txt", "1").folder("folder");
  ASSERT_TRUE(temp.files.moveFile(temp.path("name.txt"), temp.path("Name.TXT")));
  ASSERT_TRUE(temp.files.moveFolder(temp.path("folder"), temp.path("Folder")));
  EXPECT_EQ(temp.names(), (Names{"Folder", "Name.TXT"}));
  EXPECT_TRUE(temp.files.moveFile(temp.path("Name.TXT"), temp.path("Name.TXT", 'E'))) << "to where it is";
  EXPECT_EQ(temp.read("Name.TXT"), "1");
}

TEST(MoveFile, TwoNamesOfOneFileBothStay) {
  TempFolder temp;
  temp.file("a", "1").hardLink("A", "a").hardLink("b", "a");
  for (const char* target : {"A", "b"})
    EXPECT_EQ(codeOf(temp.files.moveFile(temp.path("a"), temp.path(target))), ErrorCode::SameEntry) << target;
  EXPECT_EQ(temp.names(), (Names{"A", "a", "b"}));
}

/// A second volume mounted into the folder.
class OtherVolume : public ::testing::Test {
 protected:
  void SetUp() override {
    temp.folder("other");
    if (::mount("none", temp.system("other").c_str(), "tmpfs", 0, "size=2m") != 0)
      GTEST_SKIP() << "no right to mount here";
    mounted_ = true;
  }
  void TearDown() override {
    if (mounted_) ::umount2(temp.system("other").c_str(), MNT_DETACH);
  }
  TempFolder temp;

 private:
  bool mounted_ = false;
};

TEST_F(OtherVolume, MoveFileIsCopyThenDelete) {
  temp.file("a", "bytes", Date{50, 0}).mode("a", 0640).link("l", "nowhere");
  ASSERT_TRUE(temp.files.moveFile(temp.path("a"), temp.path("other/b")));
  ASSERT_TRUE(temp.files.moveFile(temp.path("l"), temp.path("other/")));
  EXPECT_EQ(temp.read("other/b"), "bytes");
  EXPECT_EQ(temp.facts("other/b").st_mtim.tv_sec, 50);
  EXPECT_EQ(temp.facts("other/b").st_mode & 0777, 0640u);
  EXPECT_EQ(temp.linkText("other/l"), "nowhere");
  EXPECT_EQ(temp.names(), (Names{"other"}));
}

TEST_F(OtherVolume, MoveFileThatFindsNoRoomKeepsTheSource) {
  temp.file("a", std::string(3 << 20, 'x'));
  EXPECT_EQ(codeOf(temp.files.moveFile(temp.path("a"), temp.path("other/a"))), ErrorCode::NoSpace);
  EXPECT_EQ(temp.facts("a").st_size, 3 << 20);
  EXPECT_TRUE(temp.names("other").empty()) << "nor is the half copy left";
}

TEST_F(OtherVolume, CopyThatFindsNoRoomKeepsTheOldTarget) {
  temp.file("a", std::string(3 << 20, 'x')).file("other/a", "old").file("tree/1/big", std::string(3 << 20, 'y'));
  EXPECT_EQ(codeOf(temp.files.copyFile(temp.path("a"), temp.path("other/a"), true)), ErrorCode::NoSpace);
  EXPECT_EQ(temp.read("other/a"), "old");
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("tree"), temp.path("other/tree"), true)), ErrorCode::NoSpace);
  EXPECT_TRUE(temp.names("other/tree/1").empty()) << "no half file stays";
  EXPECT_EQ(codeOf(temp.files.writeFile(temp.path("other/a"), std::string(3 << 20, 'z'))), ErrorCode::NoSpace);
  EXPECT_EQ(temp.read("other/a"), "old");
  EXPECT_EQ(temp.names("other"), (Names{"a", "tree"}));
}

TEST_F(OtherVolume, MoveWhoseSourceCannotGoTakesTheCopyBack) {
  temp.folder("fixed").file("fixed/a", "1").mode("fixed", 0555).mode("other", 0777).mode("", 0755);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    EXPECT_EQ(codeOf(temp.files.moveFile(temp.path("fixed/a"), temp.path("other/a"))), ErrorCode::AccessDenied);
  }));
  EXPECT_EQ(temp.read("fixed/a"), "1");
  EXPECT_FALSE(temp.has("other/a"));
}

TEST_F(OtherVolume, AMoveIntoAFolderThatCannotBeReadEndsWhole) {
  temp.file("a", "1").link("l", "nowhere").folder("other/box").mode("other/box", 0333).mode("", 0777);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    for (const char* name : {"a", "l"})
      EXPECT_TRUE(temp.files.moveFile(temp.path(name), temp.path("other/box/"))) << name;
  }));
  EXPECT_EQ(temp.names(), Names{"other"});
  EXPECT_EQ(temp.names("other/box"), (Names{"a", "l"}));
}

TEST_F(OtherVolume, ACopyThatFindsNoRoomGivesUpAndSaysSo) {
  for (int number = 0; number < 50; ++number)
    temp.file("tree/" + std::to_string(number), std::string(1 << 20, 'y'));
  LeftOuts leftOut;
  EXPECT_EQ(codeOf(temp.files.copyFolder(temp.path("tree"), temp.path("other/tree"), true, {}, &leftOut)),
            ErrorCode::NoSpace);
  EXPECT_LT(leftOut.size(), 10u);
  EXPECT_EQ(leftOut.back().path, temp.path("tree"));
  EXPECT_EQ(leftOut.back().text, "the rest was not tried: No space left on device");
}

TEST_F(OtherVolume, MoveFolderIsNotSupported) {
  temp.file("f/a", "1");
  EXPECT_EQ(codeOf(temp.files.moveFolder(temp.path("f"), temp.path("other/f"))), ErrorCode::NotSupported);
  EXPECT_EQ(temp.read("f/a"), "1");
  EXPECT_TRUE(temp.names("other").empty());
}

TEST_F(OtherVolume, DeleteDoesNotEnterIt) {
  temp.file("other/precious", "1").folder("tree");
  ASSERT_EQ(::mount(temp.system("other").c_str(), temp.system("tree").c_str(), nullptr, MS_BIND, nullptr), 0);
  EXPECT_EQ(codeOf(temp.files.deleteFolder(temp.path("tree"), true)), ErrorCode::AccessDenied);
  ::umount2(temp.system("tree").c_str(), MNT_DETACH);
  temp.folder("tree/sub");
  ASSERT_EQ(::mount(temp.system("other").c_str(), temp.system("tree/sub").c_str(), nullptr, MS_BIND, nullptr), 0);
  EXPECT_EQ(codeOf(temp.files.deleteFolder(temp.path("tree"), true)), ErrorCode::AccessDenied);
  ::umount2(temp.system("tree/sub").c_str(), MNT_DETACH);
  EXPECT_EQ(temp.read("other/precious"), "1");
}

TEST(MoveFolder, MovesAndNeverReplaces) {
  TempFolder temp;
  temp.file("f/a", "1").folder("g").folder("empty").link("l", "g");
  EXPECT_EQ(codeOf(temp.files.moveFolder(temp.path("f"), temp.path("empty"))), ErrorCode::AlreadyThere);
  ASSERT_TRUE(temp.files.moveFolder(temp.path("f"), temp.path("g/")));
  EXPECT_EQ(temp.read("g/f/a"), "1");
  ASSERT_TRUE(temp.files.moveFolder(temp.path("l"), temp.path("l2")));
  EXPECT_EQ(temp.linkText("l2"), "g");
  EXPECT_EQ(codeOf(temp.files.moveFolder(temp.path("g/f/a"), temp.path("x"))), ErrorCode::NotAFolder);
}

TEST(MoveFolder, NeverIntoItself) {
  TempFolder temp;
  temp.file("f/g/a").link("toG", "f/g");
  for (const std::string& target :
       {temp.path("f/x"), temp.path("f/g/x"), temp.path("f/"), temp.path("f/x", 'E'), temp.path("toG/x")})
    EXPECT_EQ(codeOf(temp.files.moveFolder(temp.path("f"), target)), ErrorCode::IntoItself) << target;
  EXPECT_TRUE(temp.has("f/g/a"));
}

// --- Delete ----------------------------------------------------------------------------------------------------------

TEST(DeleteFile, ReadOnlyNeedsForce) {
  TempFolder temp;
  temp.file("locked").mode("locked", 0444).file("stored").file("plain");
  const bool keeps = temp.store("stored", "0x21");
  EXPECT_EQ(codeOf(temp.files.deleteFile(temp.path("locked"), false)), ErrorCode::AccessDenied);
  if (keeps) {
    EXPECT_EQ(codeOf(temp.files.deleteFile(temp.path("stored"), false)), ErrorCode::AccessDenied);
  }
  EXPECT_TRUE(temp.has("locked"));
  EXPECT_TRUE(temp.files.deleteFile(temp.path("plain"), false));
  EXPECT_TRUE(temp.files.deleteFile(temp.path("locked"), true));
  EXPECT_TRUE(temp.files.deleteFile(temp.path("stored"), true));
  EXPECT_TRUE(temp.names().empty());
}

TEST(DeleteFile, NeverWhatALinkNames) {
  TempFolder temp;
  temp.file("t", "1").mode("t", 0444).link("l", "t").link("gone", "nowhere").folder("f").pipe("p");
  EXPECT_TRUE(temp.files.deleteFile(temp.path("l"), false));
  EXPECT_TRUE(temp.files.deleteFile(temp.path("gone"), false));
  EXPECT_TRUE(temp.files.deleteFile(temp.path("p"), false));
  EXPECT_EQ(temp.names(), (Names{"f", "t"}));
  EXPECT_EQ(codeOf(temp.files.deleteFile(temp.path("f"), true)), ErrorCode::IsAFolder);
  EXPECT_EQ(codeOf(temp.files.deleteFile(temp.path("none"), true)), ErrorCode::NotFound);
}

TEST(DeleteFolder, WholeTreeButNothingThatLinksName) {
  TempFolder temp;
  temp.file("tree/a").file("tree/f/g/b").folder("tree/empty").pipe("tree/p").file("outside/a", "1");
  temp.link("tree/toOutside", "../outside").link("tree/f/toFile", "../../outside/a").link("tree/self", ".");
  ASSERT_TRUE(temp.files.deleteFolder(temp.path("tree"), false));
  EXPECT_EQ(temp.names(), (Names{"outside"}));
  EXPECT_EQ(temp.read("outside/a"), "1");
}

TEST(DeleteFolder, LinkToAFolderIsRemovedAsALink) {
  TempFolder temp;
  temp.file("f/a", "1").link("l", "f").link("toFile", "f/a");
  ASSERT_TRUE(temp.files.deleteFolder(temp.path("l"), true));
  EXPECT_EQ(temp.names(), (Names{"f", "toFile"}));
  EXPECT_EQ(temp.read("f/a"), "1");
  EXPECT_EQ(codeOf(temp.files.deleteFolder(temp.path("toFile"), true)), ErrorCode::NotAFolder);
}

TEST(DeleteFolder, UnforcedLeavesReadOnlyFilesAndTheFoldersAroundThem) {
  TempFolder temp;
  temp.file("tree/f/locked").mode("tree/f/locked", 0444).file("tree/f/a").file("tree/g/b").folder("fixed");
  LeftOuts leftOut;
  EXPECT_EQ(codeOf(temp.files.deleteFolder(temp.path("tree"), false, {}, &leftOut)), ErrorCode::AccessDenied);
  ASSERT_EQ(leftOut.size(), 1u);
  EXPECT_EQ(leftOut.front().path, temp.path("tree/f/locked"));
  EXPECT_EQ(temp.names("tree"), Names{"f"});
  EXPECT_EQ(temp.names("tree/f"), Names{"locked"});
  if (temp.store("fixed", "0x11")) {
    EXPECT_EQ(codeOf(temp.files.deleteFolder(temp.path("fixed"), false)), ErrorCode::AccessDenied);
  }
  EXPECT_TRUE(temp.files.deleteFolder(temp.path("tree"), true));
  EXPECT_TRUE(temp.files.deleteFolder(temp.path("fixed"), true));
}

TEST(DeleteFolder, ForcedOpensFoldersThatTheirOwnerLocked) {
  TempFolder temp;
  temp.mode("", 0777);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    temp.file("tree/noWrite/a").file("tree/noRead/b").file("tree/none/f/c").file("outside/d");
    temp.mode("tree/noWrite", 0555).mode("tree/noRead", 0300).mode("tree/none", 0).mode("outside", 0555);
    temp.mode("tree", 0700).link("tree/l", "../outside");
    EXPECT_EQ(codeOf(temp.files.deleteFolder(temp.path("tree"), false)), ErrorCode::AccessDenied);
    EXPECT_TRUE(temp.files.deleteFolder(temp.path("tree"), true));
    EXPECT_FALSE(temp.has("tree"));
    EXPECT_EQ(temp.facts("outside").st_mode & 0777, 0555u) << "what a link names is not touched";
  }));
}

TEST(DeleteFolder, ManyFilesOnAllWorkers) {
  TempFolder temp;
  for (int i = 0; i < 4000; ++i)
    temp.file("tree/wide/" + std::to_string(i)).file("tree/deep/" + std::to_string(i % 50) + "/" + std::to_string(i));
  ASSERT_TRUE(temp.files.deleteFolder(temp.path("tree"), false));
  EXPECT_TRUE(temp.names().empty());
}

TEST(DeleteFolder, DeeperThanAPathCanBeLong) {
  TempFolder temp;
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
  EXPECT_EQ(temp.files.folderSize(temp.path("tree"))->folders, 1500u);
  ASSERT_TRUE(temp.files.deleteFolder(temp.path("tree"), true));
  EXPECT_TRUE(temp.names().empty());
}

TEST(DeleteFolder, DrivesAndWhatHoldsThemStay) {
  TempFolder temp;
  temp.file("holder/drive/a", "1").link("l", "holder/drive");
  posix::PathMap map(posix::parseDriveVariable("C=" + temp.system("") + ";D=" + temp.system("holder/drive") + ";Z=/"));
  posix::PosixFileSystem files(map);
  for (const std::string& path :
       {std::string("C:\\"), std::string("D:\\"), std::string("D:"), std::string("Z:\\"),
        std::string("C:\\holder\\drive"), std::string("C:\\holder\\"), std::string("C:\\holder\\drive\\.."),
        std::string("C:\\holder\\drive\\."), "Z:" + std::string(temp.path("").substr(2))}) {
    EXPECT_FALSE(files.deleteFolder(path, true)) << path;
    EXPECT_FALSE(files.moveFolder(path, "C:\\moved")) << path;
  }
  EXPECT_EQ(temp.read("holder/drive/a"), "1");
  EXPECT_TRUE(files.deleteFolder("C:\\l", true)) << "a link to a drive is a link";
}

TEST(DeleteFolder, FolderSwappedForALinkMeanwhileIsNotFollowed) {
  TempFolder temp;
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
    (void)temp.files.deleteFolder(temp.path("tree"), true);
    ASSERT_TRUE(temp.has("outside/precious"));
  }
  stop = true;
  swapper.join();
}

TEST(DeleteFolder, StopsWhenAsked) {
  TempFolder temp;
  for (int folder = 0; folder < 50; ++folder)
    temp.file("tree/" + std::to_string(folder) + "/a");
  EXPECT_EQ(codeOf(temp.files.deleteFolder(temp.path("tree"), true, [](std::uint64_t) { return false; })),
            ErrorCode::Stopped);
  EXPECT_TRUE(temp.has("tree"));
  EXPECT_EQ(codeOf(temp.files.deleteFolder(temp.path("none"), true)), ErrorCode::NotFound);
}

TEST(WriteOut, WaitsOrGoesOnBeside) {
  TempFolder temp;
  EXPECT_TRUE(temp.files.writeOut(temp.path(), true));
  EXPECT_TRUE(temp.files.writeOut(temp.path(), false));
  EXPECT_EQ(codeOf(temp.files.writeOut(temp.path("none"), true)), ErrorCode::NotFound);
}

}  // namespace
}  // namespace varnholt::platform

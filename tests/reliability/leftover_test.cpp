// What killed copies leave is cleared by the next change in the folder, and nothing else ever is.

#include "platform/posix/temp_file.hpp"
#include "support/kill_at.hpp"
#include "support/temp_folder.hpp"
#include "support/waiting_child.hpp"
#include "user.hpp"
#include "watched_files.hpp"

#include <csignal>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::test {
namespace {

using platform::posix::holdTemporary;
using platform::posix::isTemporaryName;
using platform::posix::temporaryName;
using platform::posix::UniqueFd;
using Names = std::vector<std::string>;

// --- Killed inside a large file ------------------------------------------------------------------------------------

class InALargeFile : public ReliabilityTest {
 protected:
  static constexpr std::size_t size = 40 << 20;

  /// Starts the program in a child that is killed when it tells of the copy for the so-manieth time.
  bool isKilledAt(int call, bool move) {
    int calls = 0;
    const auto kill = [&calls, call](std::uint64_t) {
      if (calls++ == call) ::raise(SIGKILL);
      return true;
    };
    return KillAt([] {},
                  [this, kill, move] {
                    User user(world, watching(kill));
                    user.open("C:\\From", "D:\\To");
                    user.mark({"big"});
                    user.starts(move ? "Form5" : "Form3");
                    if (!move) user.answers("Form7", "Command11");
                    move ? user.moves() : user.copies();
                  })
        .byItself();
  }
};

TEST_F(InALargeFile, TheOldTargetStaysAndTheSourceToo) {
  if (!world.mountSecond()) GTEST_SKIP() << "a second volume cannot be mounted here";
  world.file("C:/From/big", pattern(size, 1)).file("D:/To/kept", "kept").file("C:/Later/z", "z");
  for (const bool move : {false, true}) {
    if (!move) world.file("D:/To/big", "old");
    if (move) std::filesystem::remove(world.system("D:/To/big"));
    const TreeSnapshot before = world.all();
    for (int call = 0; call < 5; ++call) {
      SCOPED_TRACE(call);
      ASSERT_TRUE(isKilledAt(call, move));
      const auto left = world.temporary("D:/To");
      for (const std::string& name : left)
        EXPECT_TRUE(isTemporaryName(name)) << name;
      std::string expected;
      for (const std::string& name : left)
        expected += "+ D:/To/" + name + "\n";
      EXPECT_EQ(difference(before, world.all()), expected);
      // The last is left for the test of all the next changes.
      ASSERT_TRUE(heldInChild([this] {
        User user(world);
        user.open("C:\\Later", "D:\\To");
        user.mark({"z"});
        user.starts("Form3");
        user.copies();
      }));
      std::filesystem::remove(world.system("D:/To/z"));
      EXPECT_EQ(difference(before, world.all()), "");
    }
  }
}

// --- The next start ------------------------------------------------------------------------------------------------

TEST_F(ReliabilityTest, AKilledFolderCopyLeavesNothingBehindTheNextStart) {
  for (int file = 0; file < 40; ++file)
    world.file("C:/From/tree/" + std::to_string(file), pattern(1 << 20, 1));
  world.folder("D:/To").file("D:/To/.vnh-mine", "mine");
  const TreeSnapshot before = world.tree("D:/To");
  const auto kill = [](std::uint64_t) -> bool { return ::raise(SIGKILL) == 0; };
  ASSERT_TRUE(KillAt([] {},
                     [&] {
                       User user(world, watching(kill));
                       user.open("C:\\From", "D:\\To");
                       user.mark({"tree"});
                       user.starts("Form3");
                       user.copies();
                     })
                  .byItself());
  ASSERT_NE(difference(before, world.tree("D:/To")), "");
  ASSERT_TRUE(heldInChild([this] { User next(world); }));
  EXPECT_EQ(difference(before, world.tree("D:/To")), "");
  for (const auto& entry : std::filesystem::directory_iterator(world.path() + "/data"))
    EXPECT_FALSE(entry.path().filename().string().starts_with(".vnh-working-")) << "it is forgotten, too";
}

// --- The next change -----------------------------------------------------------------------------------------------

/// Files under temporary names of this program that nobody holds.
class Leftover : public testing::Test {
 protected:
  std::string plant(const std::string& folder, bool isFolder = false) {
    // A child process counts on from where this one is: its names must be others.
    const std::string name = folder + "/" + temporaryName() + "ffffff";
    isFolder ? temp.file(name + "/half", "half").folder(name + "/" + temporaryName()) : temp.file(name, "half");
    return name;
  }
  static platform::Result<void> batched(const platform::BatchResults& results) {
    EXPECT_EQ(results.size(), 1u);
    return results.empty() || results[0] ? platform::Result<void>() : results[0].error();
  }
  TempFolder temp;
};

TEST_F(Leftover, IsClearedByAnyChangeInTheFolder) {
  using Change = std::function<platform::Result<void>()>;
  auto& files = temp.files;
  const std::vector<std::pair<const char*, Change>> changes = {
      {"copy into", [&] { return files.copyFile(temp.path("from/a"), temp.path("copyInto/a"), false); }},
      {"copy over", [&] { return files.copyFile(temp.path("from/a"), temp.path("copyOver/old"), true); }},
      {"move into", [&] { return files.moveFile(temp.path("from/b"), temp.path("moveInto/b")); }},
      {"move out of", [&] { return files.moveFile(temp.path("moveOut/old"), temp.path("from/c")); }},
      {"move a folder into", [&] { return files.moveFolder(temp.path("from/f"), temp.path("moveFolder/f")); }},
      {"delete in", [&] { return files.deleteFile(temp.path("delete/old"), true); }},
      {"delete a folder in", [&] { return files.deleteFolder(temp.path("deleteFolder/g"), true); }},
      {"write in", [&] { return files.writeFile(temp.path("write/old"), "new"); }},
      {"copy a folder into", [&] { return files.copyFolder(temp.path("from/g"), temp.path("copyFolder/g"), true); }},
      {"copy files into",
       [&] { return batched(files.copyFiles(temp.path("from"), {"e"}, temp.path("copyFiles"), 100)); }},
      {"move files into", [&] { return batched(files.moveFiles(temp.path("from"), {"e"}, temp.path("moveFiles"))); }},
      {"delete files in", [&] { return batched(files.deleteFiles(temp.path("deleteFiles"), {"old"})); }},
      {"merge into", [&] { return files.copyFolder(temp.path("from/g"), temp.path("merge"), true); }},
      {"merge below", [&] { return files.copyFolder(temp.path("from/h"), temp.path("mergeBelow"), true); }},
  };
  temp.file("from/a").file("from/b").file("from/e").file("from/f/x").file("from/g/x").file("from/h/sub/x");
  const std::vector<std::string> folders = {"copyInto",  "copyOver",     "moveInto", "moveOut",       "moveFolder",
                                            "delete",    "deleteFolder", "write",    "copyFolder",    "copyFiles",
                                            "moveFiles", "deleteFiles",  "merge",    "mergeBelow/sub"};
  ASSERT_EQ(folders.size(), changes.size());
  for (std::size_t at = 0; at < changes.size(); ++at) {
    SCOPED_TRACE(changes[at].first);
    const std::string& folder = folders[at];
    temp.file(folder + "/old", "old").file(folder + "/g/y", "y");
    const std::string file = plant(folder), tree = plant(folder, true);
    const auto changed = changes[at].second();
    EXPECT_TRUE(changed) << changed.error().text;
    EXPECT_FALSE(temp.has(file));
    EXPECT_FALSE(temp.has(tree));
  }
}

TEST_F(Leftover, WhatOnlyLooksLikeItStays) {
  temp.file("from").folder("to").file("precious/file");
  const std::string ours = temporaryName();
  std::string otherMachine = ours;
  otherMachine[5] = otherMachine[5] == '0' ? '1' : '0';
  for (const std::string& name :
       {std::string(".vnh-"), std::string(".vnh-mine"), ours + "-1", ours + ".txt", "x" + ours,
        ours.substr(0, ours.rfind('-')), ours.substr(0, ours.rfind('-') + 1), otherMachine})
    temp.file("to/" + name, "mine");
  temp.link("to/" + temporaryName(), "../precious").link("to/" + temporaryName(), "../precious/file");
  temp.pipe("to/" + temporaryName());
  const std::string others = "to/" + temporaryName();
  temp.file(others);
  if (::geteuid() == 0) {
    ASSERT_EQ(::chown(temp.system(others).c_str(), 65534, 65534), 0);
  }
  const TreeSnapshot before = snapshot(temp.system(""));
  ASSERT_TRUE(temp.files.copyFile(temp.path("from"), temp.path("to/from"), false));
  ASSERT_TRUE(temp.files.deleteFile(temp.path("to/from"), false));
  EXPECT_EQ(difference(before, snapshot(temp.system(""))), ::geteuid() == 0 ? "" : "- " + others + "\n");
}

TEST_F(Leftover, OfALivingWriterStays) {
  temp.file("small", "s").folder("to");
  for (int i = 0; i < 40; ++i)
    temp.file("tree/f/" + std::to_string(i), std::string(1 << 20, 't'));
  const auto otherProgram = [&] {
    const std::string dead = plant("to");
    EXPECT_TRUE(temp.files.copyFile(temp.path("small"), temp.path("to/small"), true));
    EXPECT_FALSE(temp.has(dead)) << "it has looked for left-overs";
    EXPECT_TRUE(temp.files.deleteFile(temp.path("to/small"), true));
  };
  WaitingChild duringTree(otherProgram), duringFile(otherProgram), afterwards(otherProgram);
  bool asked = false;
  const auto inBetween = [&](std::uint64_t) {
    if (!std::exchange(asked, true)) {
      EXPECT_EQ(temp.names("to").size(), 1u);
      EXPECT_TRUE(duringTree.held());
    }
    return true;
  };
  ASSERT_TRUE(temp.files.copyFolder(temp.path("tree"), temp.path("to/tree"), false, inBetween));
  EXPECT_TRUE(asked);
  EXPECT_EQ(difference(snapshot(temp.system("tree")), snapshot(temp.system("to/tree"))), "");

  // A file has a temporary name for a moment only, or on volumes that know no files without one.
  const std::string name = temporaryName();
  {
    const UniqueFd folder(::open(temp.system("to").c_str(), O_RDONLY | O_DIRECTORY));
    const UniqueFd file(::openat(folder.get(), name.c_str(), O_RDWR | O_CREAT | O_EXCL, 0600));
    ASSERT_TRUE(holdTemporary(folder.get(), name.c_str(), file.get()));
    EXPECT_TRUE(duringFile.held());
    EXPECT_EQ(temp.names("to"), (Names{name, "tree"}));
  }
  EXPECT_TRUE(afterwards.held());
  EXPECT_EQ(temp.names("to"), (Names{"tree"}));
}

TEST_F(Leftover, AReadOnlyOneIsClearedToo) {
  temp.file("from").mode("", 0777).folder("to").mode("to", 0777);
  EXPECT_TRUE(heldAsOrdinaryUser([&] {
    const std::string file = plant("to"), tree = plant("to", true);
    temp.mode(file, 0400).mode(tree + "/half", 0400).mode(tree, 0500);
    ASSERT_TRUE(temp.files.createFolder(temp.path("to/made")));
    ASSERT_TRUE(temp.files.deleteFolder(temp.path("to/made"), true));
    EXPECT_FALSE(temp.has(file));
    EXPECT_FALSE(temp.has(tree));
  }));
}

}  // namespace
}  // namespace varnholt::test

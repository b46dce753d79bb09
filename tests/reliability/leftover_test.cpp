// What killed copies leave is cleared by the next change in the folder, and nothing else ever is.

#include "platform/posix/temp_file.hpp"
#include "support/temp_folder.hpp"
#include "support/tree_snapshot.hpp"

#include <iostream>

#include <sys/wait.h>

namespace varnholt::test {
namespace {

using platform::posix::holdTemporary;
using platform::posix::temporaryName;
using platform::posix::UniqueFd;
using Names = std::vector<std::string>;

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
  // Each in a folder of its own, which holds a file "old" and a folder "g".
  const std::pair<const char*, Change> changes[] = {
      {"copyInto", [&] { return files.copyFile(temp.at("from/a"), temp.at("copyInto/a"), false); }},
      {"copyOver", [&] { return files.copyFile(temp.at("from/a"), temp.at("copyOver/old"), true); }},
      {"moveInto", [&] { return files.moveFile(temp.at("from/b"), temp.at("moveInto/b")); }},
      {"moveOut", [&] { return files.moveFile(temp.at("moveOut/old"), temp.at("from/c")); }},
      {"moveFolder", [&] { return files.moveFolder(temp.at("from/f"), temp.at("moveFolder/f")); }},
      {"delete", [&] { return files.deleteFile(temp.at("delete/old"), true); }},
      {"deleteFolder", [&] { return files.deleteFolder(temp.at("deleteFolder/g"), true); }},
      {"write", [&] { return files.writeFile(temp.at("write/old"), "new"); }},
      {"copyFolder", [&] { return files.copyFolder(temp.at("from/h"), temp.at("copyFolder/h"), true); }},
      {"copyFiles", [&] { return batched(files.copyFiles(temp.at("from"), {"e"}, temp.at("copyFiles"), 100)); }},
      {"moveFiles", [&] { return batched(files.moveFiles(temp.at("from"), {"e"}, temp.at("moveFiles"))); }},
      {"deleteFiles", [&] { return batched(files.deleteFiles(temp.at("deleteFiles"), {"old"})); }},
      {"merge", [&] { return files.copyFolder(temp.at("from/h"), temp.at("merge"), true); }},
      {"mergeBelow/sub", [&] { return files.copyFolder(temp.at("from/h"), temp.at("mergeBelow"), true); }}};
  temp.file("from/a").file("from/b").file("from/e").file("from/f/x").file("from/h/sub/x");
  for (const auto& [folder, change] : changes) {
    SCOPED_TRACE(folder);
    temp.file(std::string(folder) + "/old", "old").file(std::string(folder) + "/g/y", "y");
    const std::string file = plant(folder), tree = plant(folder, true);
    const auto changed = change();
    EXPECT_TRUE(changed) << changed.error().text;
    EXPECT_FALSE(temp.has(file) || temp.has(tree));
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
  ASSERT_TRUE(temp.files.copyFile(temp.at("from"), temp.at("to/from"), false));
  ASSERT_TRUE(temp.files.deleteFile(temp.at("to/from"), false));
  EXPECT_EQ(difference(before, snapshot(temp.system(""))), ::geteuid() == 0 ? "" : "- " + others + "\n");
}

/// A second running program: a child process that was started before, so that it knows nothing of what this process has
/// done since, and does its work when told.
class WaitingChild {
 public:
  explicit WaitingChild(const std::function<void()>& work) {
    std::cout.flush();
    child_ = ::fork();
    if (child_ != 0) return;
    ::raise(SIGSTOP);
    work();
    std::cout.flush();
    ::_exit(testing::Test::HasFailure() ? 1 : 0);
  }
  ~WaitingChild() {
    if (child_ <= 0) return;
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
  }
  WaitingChild(const WaitingChild&) = delete;
  WaitingChild& operator=(const WaitingChild&) = delete;

  /// Does the work, once, and waits for its end. True when all checks in it held.
  bool held() {
    const pid_t child = std::exchange(child_, -1);
    int status = 0;
    return child > 0 && ::waitpid(child, &status, WUNTRACED) == child && WIFSTOPPED(status) &&
           ::kill(child, SIGCONT) == 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
  }

 private:
  pid_t child_ = -1;
};

TEST_F(Leftover, OfALivingWriterStays) {
  temp.file("small", "s").folder("to");
  for (int i = 0; i < 40; ++i)
    temp.file("tree/f/" + std::to_string(i), std::string(1 << 20, 't'));
  const auto otherProgram = [&] {
    const std::string dead = plant("to");
    EXPECT_TRUE(temp.files.copyFile(temp.at("small"), temp.at("to/small"), true));
    EXPECT_FALSE(temp.has(dead)) << "it has looked for left-overs";
    EXPECT_TRUE(temp.files.deleteFile(temp.at("to/small"), true));
  };
  WaitingChild duringTree(otherProgram), duringFile(otherProgram), afterwards(otherProgram);
  bool asked = false;
  const auto inBetween = [&](const auto&) {
    if (!std::exchange(asked, true)) {
      EXPECT_EQ(temp.names("to").size(), 1u);
      EXPECT_TRUE(duringTree.held());
    }
    return true;
  };
  ASSERT_TRUE(temp.files.copyFolder(temp.at("tree"), temp.at("to/tree"), false, inBetween));
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
    ASSERT_TRUE(temp.files.createFolder(temp.at("to/made")));
    ASSERT_TRUE(temp.files.deleteFolder(temp.at("to/made"), true));
    EXPECT_FALSE(temp.has(file));
    EXPECT_FALSE(temp.has(tree));
  }));
}

}  // namespace
}  // namespace varnholt::test

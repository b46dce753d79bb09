// Files that change names in a ring where the volume cannot exchange them, and what a kill in the middle leaves.

#include "platform/platform.hpp"
#include "platform/posix/passing_names.hpp"
#include "platform/posix/unique_fd.hpp"
#include "support/temp_folder.hpp"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

class PassingNamesTest : public testing::Test {
 protected:
  void SetUp() override {
    temp.folder("files").folder("data").folder("assets");
    PassingNames::keepNotesIn(temp.system("data"));
    folder = UniqueFd(::open(temp.system("files").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  }
  void make(int count) {
    for (int number = 0; number < count; ++number)
      temp.file("files/" + std::to_string(number), std::to_string(number));
  }
  /// Each of so many files gets the name of the next, the last one the first name.
  Passage ring(int count) const {
    Passage passage{PassingNames::nameFor("0"), "1", {"0"}};
    for (int number = count - 1; number > 0; --number)
      passage.places.push_back(std::to_string(number));
    return passage;
  }
  bool isTurned(int count) const {
    for (int number = 0; number < count; ++number)
      if (temp.read("files/" + std::to_string((number + 1) % count)) != std::to_string(number)) return false;
    return true;
  }
  int run(const Passage& passage) { return PassingNames::run(folder.get(), temp.system("files"), {passage}).front(); }
  /// A process that is killed as soon as the first file has its passing name.
  void runKilled(const Passage& passage) {
    const pid_t child = ::fork();
    if (child == 0) {
      (void)!::nice(19);  // so that the kill is the quicker one
      ::_exit(run(passage));
    }
    while (!temp.has("files/" + passage.passing) && ::waitpid(child, nullptr, WNOHANG) == 0) {
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
  }

  test::TempFolder temp;
  UniqueFd folder;
};

TEST_F(PassingNamesTest, ARingTurnsOrStays) {
  make(3);
  EXPECT_EQ(run(ring(3)), 0);
  EXPECT_TRUE(isTurned(3));
  Passage broken = ring(3);
  broken.places[1] = "gone";
  EXPECT_EQ(run(broken), ENOENT);
  EXPECT_TRUE(isTurned(3)) << "as before";
  EXPECT_EQ(temp.names("files").size(), 3u);
  EXPECT_TRUE(temp.names("data").empty());
  PassingNames::keepNotesIn(temp.system("no such folder"));
  EXPECT_NE(run(ring(3)), 0) << "not without a note";
  EXPECT_TRUE(isTurned(3));
}

TEST_F(PassingNamesTest, AKillInTheMiddleIsPutRightByTheNextStart) {
  constexpr int Count = 3000;
  make(Count);
  const Passage passage = ring(Count);
  runKilled(passage);
  ASSERT_TRUE(temp.has("files/" + passage.passing)) << "killed too late to show anything";
  const HostFolders given{temp.system("data"), temp.system("data"), temp.system("assets"), "C=" + temp.system("")};
  EXPECT_TRUE(makePlatformHost(given)->platform().startNotices.empty());
  EXPECT_TRUE(isTurned(Count));
  EXPECT_EQ(temp.names("files").size(), static_cast<std::size_t>(Count));
}

TEST_F(PassingNamesTest, WhatCannotBePutRightIsToldOnce) {
  constexpr int Count = 3000;
  make(Count);
  const Passage passage = ring(Count);
  runKilled(passage);
  for (const auto& name : passage.places)
    if (!temp.has("files/" + name)) temp.file("files/" + name, "somebody else's");
  const auto stranded = finishPassages(temp.system("data"));
  ASSERT_EQ(stranded.size(), 1u);
  EXPECT_EQ(stranded.front().path, temp.system("files/" + passage.passing));
  EXPECT_EQ(stranded.front().wanted, "1");
  EXPECT_EQ(temp.read("files/" + passage.passing), "0");
  EXPECT_TRUE(finishPassages(temp.system("data")).empty());
}

TEST_F(PassingNamesTest, ARunThatIsAtWorkIsLeftAlone) {
  constexpr int Count = 3000;
  make(Count);
  const Passage passage = ring(Count);
  const pid_t child = ::fork();
  if (child == 0) ::_exit(run(passage));
  while (!temp.has("files/" + passage.passing) && ::waitpid(child, nullptr, WNOHANG) == 0) {
  }
  EXPECT_TRUE(finishPassages(temp.system("data")).empty());
  int status = -1;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_TRUE(isTurned(Count));
}

}  // namespace
}  // namespace varnholt::platform::posix

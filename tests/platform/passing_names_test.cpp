// Files that change names in a ring where the volume cannot exchange them, and what a kill in the middle leaves.

#include "platform/platform.hpp"
#include "platform/posix/passing_names.hpp"
#include "platform/posix/temp_file.hpp"
#include "platform/posix/unique_fd.hpp"
#include "support/temp_folder.hpp"

#include <sys/wait.h>

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
  /// Each file has the name that is so many further on.
  bool isTurned(int count, int by = 1) const {
    for (int number = 0; number < count; ++number)
      if (temp.read("files/" + std::to_string((number + by) % count)) != std::to_string(number)) return false;
    return true;
  }
  int run(const Passage& passage) { return PassingNames::run(folder.get(), temp.system("files"), {passage}).front(); }
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

TEST_F(PassingNamesTest, AKillAtAnyCallIsPutRightByTheNextStartOrToldOnce) {
  const HostFolders given{temp.system("data"), temp.system("data"), temp.system("assets"), "C=" + temp.system()};
  const Passage passage = ring(3);
  const std::string passing = "files/" + passage.passing;
  const test::KillAt killer([] {}, [&] { (void)run(passage); });
  make(3);
  const int moments = killer.moments();
  if (moments == test::KillAt::Untraceable) GTEST_SKIP() << "processes may not be traced here";
  int told = 0;
  for (int moment = 0; moment < moments; ++moment) {
    SCOPED_TRACE(moment);
    make(3);
    ASSERT_TRUE(killer.at(moment));
    EXPECT_TRUE(makePlatformHost(given)->platform().startNotices.empty());
    EXPECT_TRUE(isTurned(3) || isTurned(3, 0));
    EXPECT_EQ(temp.names("files").size(), 3u);
    make(3);
    ASSERT_TRUE(killer.at(moment));
    if (!temp.has(passing)) {
      finishPassages(temp.system("data"));
      continue;
    }
    for (const auto& name : passage.places)
      if (!temp.has("files/" + name)) temp.file("files/" + name, "somebody else's");
    const auto stranded = finishPassages(temp.system("data"));
    ASSERT_EQ(stranded.size(), 1u);
    EXPECT_EQ(stranded.front().path, temp.system(passing));
    EXPECT_EQ(stranded.front().wanted, "1");
    EXPECT_EQ(temp.read(passing), "0");
    EXPECT_TRUE(finishPassages(temp.system("data")).empty());
    std::filesystem::remove(temp.system(passing));
    ++told;
  }
  EXPECT_GT(told, 0);
}

TEST_F(PassingNamesTest, ADamagedNoteIsNotToldWordForWord) {
  const std::string note = "data/Renaming" + temporaryName();
  temp.file(note, std::string("gar\0bage\0of\0a\0disk\0", 20));
  EXPECT_TRUE(finishPassages(temp.system("data")).empty());
  EXPECT_FALSE(temp.has(note));
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

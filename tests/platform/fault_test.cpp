// The process is killed at any moment, and the decorator that other tests make trouble with.

#include "support/faulty_file_system.hpp"
#include "support/temp_folder.hpp"

#include <gtest/gtest.h>

#include <csignal>
#include <random>

#include <sys/wait.h>
#include <unistd.h>

namespace varnholt::platform {
namespace {

using test::codeOf;
using test::FaultyFileSystem;
using test::TempFolder;

/// Runs work in a child for ever and kills it after so many microseconds.
void runAndKill(unsigned microseconds, const std::function<void()>& work) {
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    for (;;)
      work();
  }
  ::usleep(microseconds);
  ::kill(child, SIGKILL);
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFSIGNALED(status));
}

bool isWhole(const std::string& bytes, size_t size) {
  return bytes.size() == size && bytes.find_first_not_of(bytes.front()) == std::string::npos;
}

/// Where the kill falls, spread over what a few rounds of the work take.
std::vector<unsigned> killTimes() {
  std::mt19937 random(5);
  std::vector<unsigned> times;
  for (int i = 0; i < 40; ++i)
    times.push_back(random() % 20000 + 200);
  return times;
}

TEST(Killed, WrittenFileIsTheOldOneOrTheNewOne) {
  TempFolder temp;
  constexpr size_t size = 300000;
  temp.file("a", std::string(size, 'o'));
  for (const unsigned time : killTimes()) {
    runAndKill(time, [&] {
      for (const char letter : {'a', 'b', 'c'})
        (void)temp.files.writeFile(temp.path("a"), std::string(size, letter));
    });
    ASSERT_TRUE(isWhole(temp.read("a"), size)) << time;
  }
}

TEST(Killed, CopiedOverFileIsTheOldOneOrTheNewOne) {
  TempFolder temp;
  constexpr size_t size = 2000000;
  temp.file("one", std::string(size, '1')).file("two", std::string(size, '2')).file("target", std::string(size, 'o'));
  for (const unsigned time : killTimes()) {
    runAndKill(time, [&] {
      for (const char* source : {"one", "two"})
        (void)temp.files.copyFile(temp.path(source), temp.path("target"), true);
    });
    ASSERT_TRUE(isWhole(temp.read("target"), size)) << time;
  }
}

TEST(Killed, NoHalfFileHasAFinalName) {
  TempFolder temp;
  constexpr size_t size = 200000;
  for (int i = 0; i < 30; ++i)
    temp.file("from/" + std::to_string(i % 3) + "/" + std::to_string(i), std::string(size, 'x'));
  for (const unsigned time : killTimes()) {
    runAndKill(time, [&] {
      (void)temp.files.copyFolder(temp.path("from"), temp.path("to"), true);
      (void)temp.files.copyFile(temp.path("from/0/0"), temp.path("single"), true);
    });
    for (const auto& entry : std::filesystem::recursive_directory_iterator(temp.system(""))) {
      const std::string path = entry.path().string();
      if (entry.is_regular_file() && path.find("/.vnh-") == std::string::npos) {
        ASSERT_EQ(entry.file_size(), size) << path;
      }
    }
    std::filesystem::remove_all(temp.system("to"));
    std::filesystem::remove_all(temp.system("single"));
  }
}

TEST(Killed, MovedFileIsAtOneEndOrBoth) {
  TempFolder temp;
  constexpr size_t size = 100000;
  temp.folder("f").file("a", std::string(size, 'x'));
  for (const unsigned time : killTimes()) {
    runAndKill(time, [&] {
      (void)temp.files.moveFile(temp.path("a"), temp.path("f/a"));
      (void)temp.files.moveFile(temp.path("f/a"), temp.path("a"));
    });
    ASSERT_EQ(temp.has("a") + temp.has("f/a"), 1) << time;
    ASSERT_TRUE(isWhole(temp.read(temp.has("a") ? "a" : "f/a"), size));
  }
}

// --- The decorator ---------------------------------------------------------------------------------------------------

TEST(FaultyFileSystem, PassesOnUntilASwitchIsSet) {
  TempFolder temp;
  temp.file("a", "12345");
  FaultyFileSystem faulty(temp.files);
  EXPECT_TRUE(faulty.copyFile(temp.path("a"), temp.path("b"), false, {}));
  faulty.noSpace = true;
  EXPECT_EQ(codeOf(faulty.copyFile(temp.path("a"), temp.path("c"), false, {})), ErrorCode::NoSpace);
  EXPECT_EQ(codeOf(faulty.writeFile(temp.path("c"), "x")), ErrorCode::NoSpace);
  EXPECT_TRUE(faulty.deleteFile(temp.path("b"), false)) << "a full volume can still be emptied";
  EXPECT_EQ(temp.names(), (std::vector<std::string>{"a"}));
}

TEST(FaultyFileSystem, DeniedVanishedAndFullAfterAWhile) {
  TempFolder temp;
  temp.file("a", "12345");
  FaultyFileSystem faulty(temp.files);
  faulty.failsAfterBytes = 12;
  EXPECT_TRUE(faulty.copyFile(temp.path("a"), temp.path("b"), false, {}));
  EXPECT_TRUE(faulty.copyFile(temp.path("a"), temp.path("c"), false, {}));
  EXPECT_EQ(codeOf(faulty.copyFile(temp.path("a"), temp.path("d"), false, {})), ErrorCode::NoSpace);
  faulty.deniesWrite = true;
  EXPECT_EQ(codeOf(faulty.deleteFile(temp.path("b"), true)), ErrorCode::AccessDenied);
  EXPECT_EQ(codeOf(faulty.moveFile(temp.path("b"), temp.path("d"), {})), ErrorCode::AccessDenied);
  faulty.vanishes = temp.path("a");
  EXPECT_FALSE(faulty.fileExists(temp.path("a")));
  EXPECT_EQ(codeOf(faulty.readFile(temp.path("a"), 100)), ErrorCode::NotFound);
  EXPECT_TRUE(faulty.fileExists(temp.path("b")));
}

}  // namespace
}  // namespace varnholt::platform

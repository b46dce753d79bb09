// Names, depths and numbers that a file system allows and programs stumble over.

#include "user.hpp"

#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::test {
namespace {

namespace fs = std::filesystem;

/// Copies all from one folder to the other, moves it within the volume, and deletes it; compares after each.
class Everything : public ReliabilityTest {
 protected:
  void SetUp() override { world.folder("C:/From").folder("C:/To").folder("C:/Moved").file("C:/Kept/file", "kept"); }

  void copyMoveAndDelete() {
    const TreeSnapshot before = world.tree("C:/From");
    User& user = this->user();
    user.open("C:\\From", "C:\\To");
    user.markAll();
    user.starts("Form3");
    user.copies();
    EXPECT_EQ(difference(before, world.tree("C:/From")), "");
    EXPECT_EQ(difference(before, world.tree("C:/To")), "");

    user.open("C:\\To", "C:\\Moved");
    user.markAll();
    user.starts("Form5");
    user.moves();
    EXPECT_EQ(difference({}, world.tree("C:/To")), "");
    EXPECT_EQ(difference(before, world.tree("C:/Moved")), "");

    user.open("C:\\Moved", "C:\\To");
    user.markAll();
    user.starts("Form4");
    user.answers("Form11", "Command11");
    if (hasTree) user.answers("Form11", "Command2");
    user.deletes();
    EXPECT_EQ(difference({}, world.tree("C:/Moved")), "");
    EXPECT_EQ(difference(before, world.tree("C:/From")), "");
    EXPECT_TRUE(world.has("C:/Kept/file"));
  }

  bool hasTree = false;
};

TEST_F(Everything, NamesOfEveryKind) {
  hasTree = true;
  const std::string names[] = {
      "bytes\xff\xfe\x80that are no UTF-8",
      "r\xc3\xa9sum\xc3\xa9.txt",
      "re\xcc\x81sume\xcc\x81.txt",  // the same to the eye
      "new\nline\x01\x1b[31m",
      " blanks ",
      "trailing point.",
      "...",
      "back\\slash",
      "\\ looks like a folder",
      "|Fold|",
      "a:b*c?d\"e<f>g|h",
      "%windir%",
      "-rf $HOME & ~",
      "upper",
      "UPPER",
      "\xef\x81\x9c",  // what stands for a backslash inside the program
      "\xef\x80\x9b",  // and its escape
      "\xef\x80\x9b\xef\x81\x9c\\",
      std::string(255, 'x'),
  };
  for (const std::string& name : names) {
    // What begins with a point is hidden, and in the panel only when asked for.
    if (!name.starts_with('.')) world.file("C:/From/" + name, "bytes of " + name);
    const std::string folder = name.starts_with('.') ? "points" : name.substr(0, 200) + "_";
    world.file("C:/From/" + folder + "/" + name, "below");
  }
  copyMoveAndDelete();
}

TEST_F(Everything, TenThousandFilesInAFolder) {
  for (int i = 0; i < 10'000; ++i)
    world.file("C:/From/f" + std::to_string(i) + ".txt", std::to_string(i), 1'000'000'000 + i);
  copyMoveAndDelete();
}

TEST_F(Everything, TreesDeeperThanAPathCanBeLong) {
  hasTree = true;
  int at = ::open(world.system("C:/From").c_str(), O_RDONLY | O_DIRECTORY);
  const std::string name(50, 'n');
  for (int level = 0; level < 200; ++level) {  // 10,200 bytes
    ASSERT_EQ(::mkdirat(at, name.c_str(), 0755), 0);
    const int below = ::openat(at, name.c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_GE(below, 0);
    ::close(std::exchange(at, below));
    const int file = ::openat(at, "file", O_WRONLY | O_CREAT, 0644);
    ASSERT_EQ(::write(file, name.data(), static_cast<size_t>(level % 50)), level % 50);
    ::close(file);
  }
  ::close(at);
  copyMoveAndDelete();
}

}  // namespace
}  // namespace varnholt::test

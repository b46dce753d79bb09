// Names and numbers that a file system allows and programs stumble over.

#include "world.hpp"

namespace varnholt::test {
namespace {

/// Copies all from one folder to the other, moves it within the volume, and deletes it; compares after each.
class Everything : public testing::Test {
 protected:
  void copyMoveAndDelete(bool hasTree) {
    world.folder("C:/To").folder("C:/Moved").file("C:/Kept/file", "kept");
    const TreeSnapshot before = world.tree("C:/From");
    User user(world);
    user.open("C:\\From", "C:\\To");
    user.markAll();
    user.meets({{"Form3"}});
    user.copies();
    EXPECT_EQ(difference(before, world.tree("C:/To")), "");

    user.open("C:\\To", "C:\\Moved");
    user.markAll();
    user.meets({{"Form5"}});
    user.moves();
    EXPECT_EQ(difference({}, world.tree("C:/To")), "");
    EXPECT_EQ(difference(before, world.tree("C:/Moved")), "");

    user.open("C:\\Moved", "C:\\To");
    user.markAll();
    user.meets({{"Form4"}, yes()});
    if (hasTree) user.meets({{"Form11", "Command2"}});
    user.deletes();
    EXPECT_EQ(difference({}, world.tree("C:/Moved")), "");
    EXPECT_EQ(difference(before, world.tree("C:/From")), "");
    EXPECT_TRUE(world.has("C:/Kept/file"));
  }
  World world;
};

TEST_F(Everything, NamesOfEveryKind) {
  const std::string names[] = {"bytes\xff\xfe\x80that are no UTF-8",
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
                               std::string(255, 'x')};
  for (const std::string& name : names) {
    // What begins with a point is hidden, and in the panel only when asked for.
    if (!name.starts_with('.')) world.file("C:/From/" + name, "bytes of " + name);
    const std::string folder = name.starts_with('.') ? "points" : name.substr(0, 200) + "_";
    world.file("C:/From/" + folder + "/" + name, "below");
  }
  copyMoveAndDelete(true);
}

TEST_F(Everything, TenThousandFilesInAFolder) {
  for (int i = 0; i < 10'000; ++i)
    world.file("C:/From/f" + std::to_string(i) + ".txt", std::to_string(i), 1'000'000'000 + i);
  copyMoveAndDelete(false);
}

}  // namespace
}  // namespace varnholt::test

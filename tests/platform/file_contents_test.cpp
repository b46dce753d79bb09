#include "support/kill_at.hpp"
#include "support/temp_folder.hpp"

#include <sys/xattr.h>

namespace varnholt::platform {
namespace {

using test::codeOf;
using test::TempFolder;

TEST(ReadFile, WholeAndWithinTheLimit) {
  TempFolder temp;
  temp.file("a", std::string("1\0\n", 3)).file("empty", "").folder("f").link("l", "a");
  EXPECT_EQ(temp.files.readFile(temp.at("a")).valueOr("?"), std::string("1\0\n", 3));
  EXPECT_EQ(temp.files.readFile(temp.at("l")).valueOr("?").size(), 3u);
  EXPECT_EQ(temp.files.readFile(temp.at("empty")).valueOr("?"), "");
  const auto unknownSize = temp.files.readFile("Z:\\proc\\self\\status");
  EXPECT_TRUE(unknownSize && unknownSize->starts_with("Name:"));
  EXPECT_TRUE(temp.files.readFile(temp.at("a"), 3));
  EXPECT_EQ(codeOf(temp.files.readFile(temp.at("a"), 2)), ErrorCode::TooLarge);
  EXPECT_EQ(temp.files.readBeginning(temp.at("a"), 2).valueOr("?"), std::string("1\0", 2));
  EXPECT_EQ(temp.files.readBeginning(temp.at("a"), 9).valueOr("?").size(), 3u);
  EXPECT_EQ(codeOf(temp.files.readFile(temp.at("f"))), ErrorCode::IsAFolder);
  EXPECT_EQ(codeOf(temp.files.readFile(temp.at("none"))), ErrorCode::NotFound);
}

TEST(WriteFile, MakesAndReplaces) {
  TempFolder temp;
  ASSERT_TRUE(temp.files.writeFile(temp.at("a"), "one"));
  EXPECT_EQ(temp.read("a"), "one");
  temp.mode("a", 0640);
  const bool noted = ::setxattr(temp.system("a").c_str(), "user.note", "kept", 4, 0) == 0;
  ASSERT_TRUE(temp.files.writeFile(temp.at("a"), "second"));
  EXPECT_EQ(temp.read("a"), "second");
  EXPECT_EQ(temp.facts("a").st_mode & 0777, 0640u);
  EXPECT_EQ(::getxattr(temp.system("a").c_str(), "user.note", nullptr, 0), noted ? 4 : -1);
  EXPECT_EQ(temp.names(), (std::vector<std::string>{"a"})) << "no temporary file stays";
}

TEST(WriteFile, LinkStaysAndItsFileIsReplaced) {
  TempFolder temp;
  temp.file("f/real", "old").link("l", "f/real").link("l2", "l").link("new", "f/made");
  ASSERT_TRUE(temp.files.writeFile(temp.at("l2"), "new"));
  ASSERT_TRUE(temp.files.writeFile(temp.at("new"), "made"));
  EXPECT_EQ(temp.read("f/real"), "new");
  EXPECT_EQ(temp.linkText("l2"), "l");
  EXPECT_EQ(temp.read("f/made"), "made");
}

TEST(WriteFile, Refused) {
  TempFolder temp;
  temp.file("locked", "old").mode("locked", 0444).folder("f").pipe("p");
  EXPECT_EQ(codeOf(temp.files.writeFile(temp.at("locked"), "new")), ErrorCode::ReadOnlyTarget);
  EXPECT_EQ(temp.read("locked"), "old");
  EXPECT_EQ(codeOf(temp.files.writeFile(temp.at("f"), "x")), ErrorCode::IsAFolder);
  EXPECT_EQ(codeOf(temp.files.writeFile(temp.at("p"), "x")), ErrorCode::NotRegular);
  EXPECT_EQ(codeOf(temp.files.writeFile(temp.at("none/a"), "x")), ErrorCode::NotFound);
}

TEST(WriteFile, KilledAtAnyCallItIsTheOldOneOrTheNewOne) {
  TempFolder temp;
  const std::string whole(300'000, 'n');
  const test::KillAt killer([] {}, [&] { (void)temp.files.writeFile(temp.at("a"), whole); });
  const int moments = killer.moments();
  if (moments == test::KillAt::Untraceable) GTEST_SKIP() << "processes may not be traced here";
  ASSERT_GT(moments, 2);
  for (int moment = 0; moment < moments; ++moment) {
    temp.file("a", "old");
    EXPECT_TRUE(killer.at(moment));
    const std::string bytes = temp.read("a");
    EXPECT_TRUE(bytes == "old" || bytes == whole) << moment << ": " << bytes.size();
  }
}

TEST(CreateFolder, OneLevel) {
  TempFolder temp;
  temp.file("taken");
  EXPECT_TRUE(temp.files.createFolder(temp.at("f/")));
  EXPECT_TRUE(temp.files.folderExists(temp.at("f")));
  EXPECT_EQ(codeOf(temp.files.createFolder(temp.at("f"))), ErrorCode::AlreadyThere);
  EXPECT_EQ(codeOf(temp.files.createFolder(temp.at("taken"))), ErrorCode::AlreadyThere);
  EXPECT_EQ(codeOf(temp.files.createFolder(temp.at("none/f"))), ErrorCode::NotFound);
  EXPECT_EQ(codeOf(temp.files.createFolder(temp.at(std::string(256, 'x')))), ErrorCode::InvalidPath);
}

}  // namespace
}  // namespace varnholt::platform

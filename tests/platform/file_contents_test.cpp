#include "support/temp_folder.hpp"

#include <gtest/gtest.h>

#include <sys/xattr.h>

namespace varnholt::platform {
namespace {

using test::codeOf;
using test::TempFolder;

TEST(ReadFile, WholeAndWithinTheLimit) {
  TempFolder temp;
  temp.file("a", std::string("1\0\n", 3)).file("empty", "").folder("f").link("l", "a");
  EXPECT_EQ(temp.files.readFile(temp.path("a")).valueOr("?"), std::string("1\0\n", 3));
  EXPECT_EQ(temp.files.readFile(temp.path("l")).valueOr("?").size(), 3u);
  EXPECT_EQ(temp.files.readFile(temp.path("empty")).valueOr("?"), "");
  const auto unknownSize = temp.files.readFile("Z:\\proc\\self\\status");
  EXPECT_TRUE(unknownSize && unknownSize->starts_with("Name:"));
  EXPECT_TRUE(temp.files.readFile(temp.path("a"), 3));
  EXPECT_EQ(codeOf(temp.files.readFile(temp.path("a"), 2)), ErrorCode::TooLarge);
  EXPECT_EQ(codeOf(temp.files.readFile(temp.path("f"))), ErrorCode::IsAFolder);
  EXPECT_EQ(codeOf(temp.files.readFile(temp.path("none"))), ErrorCode::NotFound);
}

TEST(WriteFile, MakesAndReplaces) {
  TempFolder temp;
  ASSERT_TRUE(temp.files.writeFile(temp.path("a"), "one"));
  EXPECT_EQ(temp.read("a"), "one");
  temp.mode("a", 0640);
  const bool noted = ::setxattr(temp.system("a").c_str(), "user.note", "kept", 4, 0) == 0;
  ASSERT_TRUE(temp.files.writeFile(temp.path("a"), "second"));
  EXPECT_EQ(temp.read("a"), "second");
  EXPECT_EQ(temp.facts("a").st_mode & 0777, 0640u);
  EXPECT_EQ(::getxattr(temp.system("a").c_str(), "user.note", nullptr, 0), noted ? 4 : -1);
  EXPECT_EQ(temp.names(), (std::vector<std::string>{"a"})) << "no temporary file stays";
}

TEST(WriteFile, LinkStaysAndItsFileIsReplaced) {
  TempFolder temp;
  temp.file("f/real", "old").link("l", "f/real").link("l2", "l").link("new", "f/made");
  ASSERT_TRUE(temp.files.writeFile(temp.path("l2"), "new"));
  ASSERT_TRUE(temp.files.writeFile(temp.path("new"), "made"));
  EXPECT_EQ(temp.read("f/real"), "new");
  EXPECT_EQ(temp.linkText("l2"), "l");
  EXPECT_EQ(temp.read("f/made"), "made");
}

TEST(WriteFile, Refused) {
  TempFolder temp;
  temp.file("locked", "old").mode("locked", 0444).folder("f").pipe("p");
  EXPECT_EQ(codeOf(temp.files.writeFile(temp.path("locked"), "new")), ErrorCode::ReadOnlyTarget);
  EXPECT_EQ(temp.read("locked"), "old");
  EXPECT_EQ(codeOf(temp.files.writeFile(temp.path("f"), "x")), ErrorCode::IsAFolder);
  EXPECT_EQ(codeOf(temp.files.writeFile(temp.path("p"), "x")), ErrorCode::NotRegular);
  EXPECT_EQ(codeOf(temp.files.writeFile(temp.path("none/a"), "x")), ErrorCode::NotFound);
}

TEST(CreateFolder, OneLevel) {
  TempFolder temp;
  temp.file("taken");
  EXPECT_TRUE(temp.files.createFolder(temp.path("f/")));
  EXPECT_TRUE(temp.files.folderExists(temp.path("f")));
  EXPECT_EQ(codeOf(temp.files.createFolder(temp.path("f"))), ErrorCode::AlreadyThere);
  EXPECT_EQ(codeOf(temp.files.createFolder(temp.path("taken"))), ErrorCode::AlreadyThere);
  EXPECT_EQ(codeOf(temp.files.createFolder(temp.path("none/f"))), ErrorCode::NotFound);
  EXPECT_EQ(codeOf(temp.files.createFolder(temp.path(std::string(256, 'x')))), ErrorCode::InvalidPath);
}

}  // namespace
}  // namespace varnholt::platform

#include "platform/paths.hpp"
#include "platform/text_fold.hpp"
#include "support/testing.hpp"

namespace varnholt::platform {
namespace {

TEST(Paths, AreJoinedAndClosedByOneBackslash) {
  EXPECT_EQ(paths::join("C:\\a", "b"), "C:\\a\\b");
  EXPECT_EQ(paths::join("C:\\", "b") + paths::join("", "b"), "C:\\bb");
  EXPECT_EQ(paths::withClosing("C:") + paths::withClosing("C:\\a\\\\") + paths::withClosing(""), "C:\\C:\\a\\");
  EXPECT_EQ(paths::withoutClosing("C:\\a\\") + paths::withoutClosing("C:\\"), "C:\\aC:\\");
}

TEST(Paths, RootsAndDrives) {
  for (const char* root : {"C:\\", "c:\\", "z:", "D:"})
    EXPECT_TRUE(paths::isRoot(root)) << root;
  for (const char* other : {"", "C", "C:\\a", "C:a", "1:\\", "\\\\server"})
    EXPECT_FALSE(paths::isRoot(other)) << other;
  EXPECT_EQ(paths::driveOf("d:\\x") + paths::driveOf("x\\d:"), "D:");
}

TEST(Paths, NameAndParent) {
  for (const auto text : test::Rows{"C:\\a\\b.txt|b.txt|C:\\a\\", "C:\\a\\b\\|b|C:\\a\\", "C:\\a|a|C:\\", "C:\\||C:\\",
                                    "C:||C:\\", "plain|plain|"}) {
    const test::Row row(text);
    EXPECT_EQ(paths::fileName(row.first), row.second) << text;
    EXPECT_EQ(paths::parent(row.first), row.third) << text;
  }
}

TEST(Paths, ExtensionIsBehindTheLastPoint) {
  for (const auto text : test::Rows{"a.tar.gz|a.tar|gz", ".profile|.profile|", ".tar.gz|.tar|gz", "README|README|",
                                    "name.|name.|", "||"}) {
    const test::Row row(text);
    EXPECT_EQ(paths::baseName(row.first), row.second) << text;
    EXPECT_EQ(paths::extension(row.first), row.third) << text;
  }
}

TEST(Paths, SameFolderForgetsCaseAndClosing) {
  EXPECT_TRUE(paths::sameFolder("C:\\Fotos\\\xC3\x84", "c:\\fotos\\\xC3\xA4\\"));
  EXPECT_TRUE(paths::sameFolder("C:\\", "c:"));
  EXPECT_FALSE(paths::sameFolder("C:\\a", "C:\\b"));
}

TEST(TextFold, LowersLettersOfAllScripts) {
  EXPECT_EQ(foldCase("README.TXT"), "readme.txt");
  EXPECT_EQ(foldCase("\xC3\x84\xC3\x96 \xD0\x96 \xCE\xA9"), "\xC3\xA4\xC3\xB6 \xD0\xB6 \xCF\x89");
  EXPECT_EQ(foldCase("\xF0\x90\x90\x80"), "\xF0\x90\x90\xA8");
}

TEST(TextFold, KeepsBytesThatAreNotUtf8) {
  for (const char* text : {"\xFF", "a\xC3", "\xC3(\xE2\x82", "\xED\xA0\x80"})
    EXPECT_EQ(foldCase(text), text);
  EXPECT_EQ(foldCase(std::string_view("A\0B", 3)), std::string_view("a\0b", 3));
}

}  // namespace
}  // namespace varnholt::platform

#include "platform/paths.hpp"
#include "platform/text_fold.hpp"
#include "support/testing.hpp"

namespace varnholt::platform {
namespace {

TEST(Paths, JoinAddsOneBackslash) {
  EXPECT_EQ(paths::join("C:\\a", "b"), "C:\\a\\b");
  EXPECT_EQ(paths::join("C:\\", "b"), "C:\\b");
  EXPECT_EQ(paths::join("", "b"), "b");
}

TEST(Paths, ClosingBackslash) {
  EXPECT_EQ(paths::withClosing("C:"), "C:\\");
  EXPECT_EQ(paths::withClosing("C:\\a\\\\"), "C:\\a\\");
  EXPECT_EQ(paths::withClosing(""), "");
  EXPECT_EQ(paths::withoutClosing("C:\\a\\"), "C:\\a");
  EXPECT_EQ(paths::withoutClosing("C:\\"), "C:\\");
}

TEST(Paths, RootsAndDrives) {
  for (const char* root : {"C:\\", "c:\\", "z:", "D:"})
    EXPECT_TRUE(paths::isRoot(root)) << root;
  for (const char* other : {"", "C", "C:\\a", "C:a", "1:\\", "\\\\server"})
    EXPECT_FALSE(paths::isRoot(other)) << other;
  EXPECT_EQ(paths::driveOf("d:\\x"), "D:");
  EXPECT_EQ(paths::driveOf("x\\d:"), "");
}

struct NameCase {
  const char *path, *name, *parent;
};

TEST(Paths, NameAndParent) {
  for (const auto& [path, name, parent] : {NameCase{"C:\\a\\b.txt", "b.txt", "C:\\a\\"},
                                           {"C:\\a\\b\\", "b", "C:\\a\\"},
                                           {"C:\\a", "a", "C:\\"},
                                           {"C:\\", "", "C:\\"},
                                           {"C:", "", "C:\\"},
                                           {"plain", "plain", ""}}) {
    EXPECT_EQ(paths::fileName(path), name) << path;
    EXPECT_EQ(paths::parent(path), parent) << path;
  }
}

struct ExtensionCase {
  const char *name, *base, *extension;
};

TEST(Paths, ExtensionIsBehindTheLastPoint) {
  for (const auto& [name, base, extension] : {ExtensionCase{"a.txt", "a", "txt"},
                                              {"a.tar.gz", "a.tar", "gz"},
                                              {".profile", ".profile", ""},
                                              {".tar.gz", ".tar", "gz"},
                                              {"README", "README", ""},
                                              {"name.", "name.", ""},
                                              {"", "", ""}}) {
    EXPECT_EQ(paths::baseName(name), base) << name;
    EXPECT_EQ(paths::extension(name), extension) << name;
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

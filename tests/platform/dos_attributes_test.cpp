#include "platform/attributes.hpp"
#include "support/temp_folder.hpp"

#include <sys/mount.h>
#include <sys/syscall.h>

namespace {

/// What others do between the look at a file and its change.
std::function<void()> afterLook;

}  // namespace

// In front of the library's own.
extern "C" ssize_t lgetxattr(const char* path, const char* name, void* value, size_t size) noexcept {
  const long got = ::syscall(SYS_lgetxattr, path, name, value, size);
  const int error = errno;
  if (afterLook) std::exchange(afterLook, {})();
  errno = error;
  return got;
}

namespace varnholt::platform {
namespace {

using test::codeOf;
using test::TempFolder;
using namespace attribute;

std::string stored(const TempFolder& temp, const char* name) {
  char value[256];
  const ssize_t got = ::getxattr(temp.system(name).c_str(), "user.DOSATTRIB", value, sizeof value);
  return got < 0 ? "" : std::string(value, static_cast<size_t>(got));
}

class SetAttributes : public testing::Test {
 protected:
  void expectReported(std::initializer_list<std::pair<const char*, Attributes>> rows) {
    for (const auto& [name, attributes] : rows)
      EXPECT_EQ(temp.files.attributes(temp.at(name)).valueOr(0), attributes) << name;
  }
  TempFolder temp;
};
using ReportedAttributes = SetAttributes;

TEST_F(ReportedAttributes, WithoutStoredOnesModeAndNameTell) {
  temp.file("plain").file("locked").mode("locked", 0444).file(".dot").folder("f").folder(".f").folder("fixed");
  temp.mode("fixed", 0555);  // a folder's mode is no attribute
  expectReported({{"plain", Archive},
                  {"locked", Archive | ReadOnly},
                  {".dot", Archive | Hidden},
                  {"f", Folder},
                  {".f", Folder | Hidden},
                  {"fixed", Folder}});
  EXPECT_EQ(codeOf(temp.files.attributes(temp.at("none"))), ErrorCode::NotFound);
}

TEST_F(ReportedAttributes, StoredOnesRule) {
  temp.file(".dot").file("sys").file("bad").file("locked").folder("f");
  if (!temp.store(".dot", "0x20")) GTEST_SKIP() << "no extended attributes here";
  temp.store("sys", std::string_view("0x6\0", 4));
  temp.store("bad", "nonsense");
  temp.store("locked", "0x22");
  temp.store("f", "0x12");
  temp.mode("locked", 0444);
  expectReported({{".dot", Archive},
                  {"sys", Hidden | System},
                  {"bad", Archive},
                  {"locked", Archive | Hidden | ReadOnly},
                  {"f", Folder | Hidden}});
}

TEST_F(SetAttributes, ChangesNothingElse) {
  temp.file("a", "bytes", Date{1000, 0});
  ASSERT_TRUE(temp.files.setAttributes(temp.at("a"), Archive | ReadOnly));
  EXPECT_EQ(stored(temp, "a"), "") << "nothing is stored for what mode and name tell";
  EXPECT_EQ(temp.facts("a").st_mtim.tv_sec, 1000);
  EXPECT_EQ(temp.read("a"), "bytes");
  ASSERT_TRUE(temp.files.setAttributes(temp.at("a"), Archive));
  if (!temp.store("a", "0x1020")) GTEST_SKIP() << "no extended attributes here";
  ASSERT_TRUE(temp.files.setAttributes(temp.at("a"), Hidden));
  EXPECT_EQ(stored(temp, "a"), "0x1002") << "bits that cannot be set stay";
  EXPECT_EQ(codeOf(temp.files.setAttributes(temp.at("none"), 0)), ErrorCode::NotFound);
}

TEST_F(SetAttributes, OfManyFilesSparesThoseOfTheGivenValues) {
  temp.file("a").file("b").file("sys").folder("f");
  if (!temp.store("sys", "0x26")) GTEST_SKIP() << "no extended attributes here";
  symlink(temp.system("a").c_str(), temp.system("link").c_str());
  const Attributes spared[] = {Archive | Hidden | System};
  const auto results = temp.files.setAttributesOf(temp.at(""), {"a", "sys", "none", "link", "b"}, ReadOnly, spared);
  ASSERT_EQ(results.size(), 5u);
  EXPECT_TRUE(results[0].valueOr(false) && results[4].valueOr(false));
  EXPECT_FALSE(results[1].valueOr(true));
  EXPECT_EQ(codeOf(results[2]), ErrorCode::NotFound);
  EXPECT_EQ(codeOf(results[3]), ErrorCode::NotSupported);
  expectReported({{"a", ReadOnly}, {"b", ReadOnly}, {"sys", spared[0]}});
}

TEST_F(SetAttributes, ALinkThatTakesTheFilesPlaceLeadsNowhere) {
  temp.file("others", "1");
  for (const Attributes attributes : {Archive | ReadOnly, Hidden}) {
    temp.file("a").link("l", "others");
    afterLook = [this] { ::rename(temp.system("l").c_str(), temp.system("a").c_str()); };
    EXPECT_FALSE(temp.files.setAttributes(temp.at("a"), attributes));
    EXPECT_EQ(temp.linkText("a"), "others");
    expectReported({{"others", Archive}});
    ::unlink(temp.system("a").c_str());
  }
}

TEST_F(SetAttributes, AResetLeavesSystemAlone) {
  temp.file("a").file("sys").file(".dot").mode(".dot", 0444);
  if (!temp.store("a", "0x2823") || !temp.store("sys", "0x827")) GTEST_SKIP() << "no extended attributes here";
  EXPECT_FALSE(temp.files.info(temp.at("a"))->isIndexed) << "it is stored that it is not";
  EXPECT_TRUE(temp.files.info(temp.at("sys"))->isIndexed);
  EXPECT_FALSE(temp.files.info(temp.at(".dot"))->isIndexed) << "nothing is stored";
  for (const char* name : {"a", "sys", ".dot"})
    ASSERT_TRUE(temp.files.resetAttributes(temp.at(name)));
  expectReported({{"a", 0}, {"sys", System}, {".dot", 0}});
  EXPECT_TRUE(temp.files.info(temp.at("a"))->isIndexed);
}

TEST_F(SetAttributes, EveryCombinationComesBack) {
  temp.file("a").folder("f");
  if (!temp.store("a", "0x20")) GTEST_SKIP() << "no extended attributes here";
  for (Attributes word = 0; word < 64; ++word) {
    if (word & ~Settable) continue;
    ASSERT_TRUE(temp.files.setAttributes(temp.at("a"), word)) << word;
    EXPECT_EQ(temp.files.attributes(temp.at("a")).valueOr(99), word);
    EXPECT_EQ((temp.facts("a").st_mode & S_IWUSR) == 0, (word & ReadOnly) != 0) << word;
    ASSERT_TRUE(temp.files.setAttributes(temp.at("f"), word)) << word;
    EXPECT_EQ(temp.files.attributes(temp.at("f")).valueOr(99), word | Folder);
    EXPECT_TRUE(temp.facts("f").st_mode & S_IWUSR) << "a read-only folder can still be filled";
  }
}

TEST_F(SetAttributes, OwnerAloneCanChangeAFileThatIsReadOnly) {
  temp.file("a").file("others");
  if (!temp.store("a", "0x20")) GTEST_SKIP() << "no extended attributes here";
  temp.mode("a", 0444).mode("", 0755);
  ASSERT_EQ(::chown(temp.system("a").c_str(), 65534, 65534), 0);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    // The kernel refuses extended attributes of a file without write permission even to its owner.
    ASSERT_TRUE(temp.files.setAttributes(temp.at("a"), ReadOnly | Hidden));
    EXPECT_EQ(temp.files.attributes(temp.at("a")).valueOr(0), ReadOnly | Hidden);
    EXPECT_EQ(temp.facts("a").st_mode & 0777, 0444u) << "the permission was lent, not given";
    EXPECT_EQ(codeOf(temp.files.setAttributes(temp.at("others"), ReadOnly | Archive)), ErrorCode::AccessDenied);
  }));
}

TEST_F(SetAttributes, VolumeWithoutExtendedAttributesKeepsReadOnly) {
  temp.folder("m");
  if (::mount("none", temp.system("m").c_str(), "ramfs", 0, nullptr) != 0) GTEST_SKIP() << "no right to mount here";
  temp.file("m/a");
  EXPECT_TRUE(temp.files.setAttributes(temp.at("m/a"), ReadOnly | Archive));
  EXPECT_EQ(temp.files.attributes(temp.at("m/a")).valueOr(0), ReadOnly | Archive);
  EXPECT_EQ(codeOf(temp.files.setAttributes(temp.at("m/a"), Hidden | Archive)), ErrorCode::NotSupported);
  EXPECT_EQ(temp.files.attributes(temp.at("m/a")).valueOr(0), Archive) << "read-only is kept after that";
  ::umount(temp.system("m").c_str());
}

TEST_F(SetAttributes, AnyDateIsKept) {
  temp.file("a").folder("f");
  for (const Date& date : {Date{-86400, 500}, Date{4102444800, 999999999}}) {
    ASSERT_TRUE(temp.files.setModified(temp.at("a"), date));
    EXPECT_EQ(temp.files.info(temp.at("a"))->modified, date);
  }
  EXPECT_TRUE(temp.files.setModified(temp.at("f"), Date{5, 0}));
  EXPECT_EQ(temp.files.info(temp.at("f"))->modified.seconds, 5);
  EXPECT_EQ(codeOf(temp.files.setModified(temp.at("none"), Date{})), ErrorCode::NotFound);
}

// Every form in which the extended attribute user.DOSATTRIB is found on disks.
std::string fromHex(std::string digits) {
  std::erase(digits, ' ');
  std::string bytes;
  for (size_t at = 0; at < digits.size(); at += 2)
    bytes += static_cast<char>(std::stoi(digits.substr(at, 2), nullptr, 16));
  return bytes;
}

// "0x20", NUL, one byte to even, version 3 twice, two bytes to four; flags, attributes, and the sizes and times.
const std::string version3 = fromHex("30783230 00 00 0300 0300 0000 11000000 22000000") + std::string(36, '\0');
const std::string version4 = fromHex("0000 0400 0400 0000 11000000 07000000") + std::string(16, '\1');
const std::string version5 = fromHex("00000500 05000000 11000000 20040000 999c19ae54aadc01");

TEST(DosAttribForms, AreTextOrBinary) {
  const std::pair<std::string, Attributes> rows[] = {{"0x22", 0x22},     {std::string("0x22\0", 5), 0x22},
                                                     {"0X7", 7},         {"0x0", 0},
                                                     {"0x120021", 0x21},  // bits beyond the word are dropped
                                                     {version3, 0x22},   {version4, 7},
                                                     {version5, 0x420}};
  for (const auto& [bytes, attributes] : rows)
    EXPECT_EQ(decodeDosAttrib(bytes), attributes) << bytes;
}

TEST(DosAttribForms, MalformedIsNothing) {
  for (const std::string& bytes :
       {std::string(), std::string("0x"), std::string("22"), std::string("0xzz"), std::string("0x22 "),
        std::string("0x123456789"), std::string(1, '\0'), std::string(24, '\0'), version5.substr(0, 23),
        version4.substr(0, 31), version3.substr(0, 55), fromHex("00000600 06000000 11000000 20000000") + version5,
        fromHex("00000500 04000000 11000000 20000000 0000000000000000")})
    EXPECT_EQ(decodeDosAttrib(bytes), std::nullopt);
  std::string notValid = version5;
  notValid[8] = 0x10;  // the create time only
  EXPECT_EQ(decodeDosAttrib(notValid), std::nullopt);
}

}  // namespace
}  // namespace varnholt::platform

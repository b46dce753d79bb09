#include "support/temp_folder.hpp"

namespace varnholt::platform {
namespace {

using test::codeOf;

struct FileContents : testing::Test {
  test::TempFolder temp;
};

TEST_F(FileContents, ReadFileWholeAndWithinTheLimit) {
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

TEST_F(FileContents, WriteFileMakesAndReplaces) {
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

TEST_F(FileContents, WriteFileKeepsALinkAndReplacesItsFile) {
  temp.file("f/real", "old").link("l", "f/real").link("l2", "l").link("new", "f/made");
  ASSERT_TRUE(temp.files.writeFile(temp.at("l2"), "new") && temp.files.writeFile(temp.at("new"), "made"));
  EXPECT_EQ(temp.read("f/real") + temp.linkText("l2") + temp.read("f/made"), "newlmade");
}

TEST_F(FileContents, WriteFileReplacesWhatOnlyItsNameHides) {
  temp.file(".note", "old");
  ASSERT_TRUE(temp.files.writeFile(temp.at(".note"), "new"));
  EXPECT_EQ(temp.read(".note"), "new");
}

TEST_F(FileContents, WriteFileRefused) {
  temp.file("locked", "old").mode("locked", 0444).folder("f").pipe("p");
  using enum ErrorCode;
  for (const auto& [name, code] :
       {std::pair{"locked", ReadOnlyTarget}, {"f", IsAFolder}, {"p", NotRegular}, {"none/a", NotFound}})
    EXPECT_EQ(codeOf(temp.files.writeFile(temp.at(name), "new")), code) << name;
  EXPECT_EQ(temp.read("locked"), "old");
}

TEST_F(FileContents, WriteFileKilledAtAnyCallItIsTheOldOneOrTheNewOne) {
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

TEST_F(FileContents, CreateFolderOneLevel) {
  temp.file("taken");
  EXPECT_TRUE(temp.files.createFolder(temp.at("f/")) && temp.files.folderExists(temp.at("f")));
  using enum ErrorCode;
  for (const auto& [name, code] : {std::pair{std::string("f"), AlreadyThere},
                                   {"taken", AlreadyThere},
                                   {"none/f", NotFound},
                                   {std::string(256, 'x'), InvalidPath}})
    EXPECT_EQ(codeOf(temp.files.createFolder(temp.at(name))), code) << name;
}

// The batch calls: as the single calls for the plain cases, and hands off from the first that is none.

using Names = std::vector<std::string>;
constexpr std::uint64_t NoLimit = ~std::uint64_t{0};

class FileBatch : public testing::Test {
 protected:
  FileBatch() {
    temp.folder("to");
    for (const char* name : {"from/a", "from/b", "from/c", "from/d", "from/e"})
      temp.file(name, std::string(name));
  }
  /// What a call on a..e gives: the files that it has done.
  std::size_t copied() { return temp.files.copyFiles(from, all, to, NoLimit).size(); }
  std::size_t moved() { return temp.files.moveFiles(from, all, to).size(); }
  void remove(const std::string& name) { std::filesystem::remove(temp.system(name)); }
  std::size_t deleted() { return temp.files.deleteFiles(from, all).size(); }

  test::TempFolder temp;
  const Names all{"a", "b", "c", "d", "e"};
  const std::string from = temp.at("from"), to = temp.at("to");
};

TEST_F(FileBatch, PlainFilesAreAllDoneAndTellTheirBytes) {
  temp.modified("from/c", {1'000'000'000, 5}).mode("from/d", 0640);
  const auto results = temp.files.copyFiles(from, all, to, NoLimit);
  ASSERT_EQ(results.size(), 5u);
  for (const auto& result : results)
    EXPECT_EQ(result.valueOr(0), 6u);
  EXPECT_EQ(temp.names("to"), all);
  EXPECT_EQ(temp.read("to/b"), "from/b");
  EXPECT_EQ(temp.facts("to/c").st_mtim.tv_sec, 1'000'000'000);
  EXPECT_EQ(temp.facts("to/d").st_mode & 07777, 0640u);
  EXPECT_EQ(deleted(), 5u);
  EXPECT_EQ(temp.names("from"), Names{});
  EXPECT_EQ(temp.files.moveFiles(to, all, from).size(), 5u);
  EXPECT_EQ(temp.names("from"), all);
  EXPECT_EQ(temp.names("to"), Names{});
}

TEST_F(FileBatch, NothingIsTouchedFromTheFirstTargetThatExists) {
  temp.file("to/c", "old");
  EXPECT_EQ(copied(), 2u);
  EXPECT_EQ(temp.names("to"), (Names{"a", "b", "c"}));
  EXPECT_EQ(temp.read("to/c"), "old");
  remove("to/a");
  remove("to/b");
  EXPECT_EQ(moved(), 2u);
  EXPECT_EQ(temp.names("from"), (Names{"c", "d", "e"}));
  EXPECT_EQ(temp.read("to/c"), "old");
}

TEST_F(FileBatch, LinksFoldersPipesAndLargeFilesAreNoPlainCase) {
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"a link", [&] { temp.link("from/c", "a"); }},
      {"a dangling link", [&] { temp.link("from/c", "nowhere"); }},
      {"a folder", [&] { temp.folder("from/c"); }},
      {"a pipe", [&] { temp.pipe("from/c"); }},
      {"nothing", [] {}}};
  for (const auto& [what, make] : cases) {
    remove("from/c");
    make();
    EXPECT_EQ(copied(), 2u) << what;
    remove("to/a");
    remove("to/b");
    EXPECT_EQ(moved(), 2u) << what;
    EXPECT_EQ(temp.names("to"), (Names{"a", "b"})) << what;
    EXPECT_EQ(temp.files.moveFiles(to, {"a", "b"}, from).size(), 2u);
    EXPECT_EQ(deleted(), 2u) << what;
    temp.file("from/a", "from/a").file("from/b", "from/b");
  }
  remove("from/c");
  temp.file("from/c", "larger");
  EXPECT_EQ(temp.files.copyFiles(from, all, to, 6).size(), 5u);
  for (const auto& name : all)
    remove("to/" + name);
  temp.file("from/c", "larger!");
  EXPECT_EQ(temp.files.copyFiles(from, all, to, 6).size(), 2u);
}

/// The numbers of those that keep their names, and why.
std::vector<std::pair<std::size_t, ErrorCode>> kept(const std::vector<NotRenamed>& refused) {
  std::vector<std::pair<std::size_t, ErrorCode>> all;
  for (const NotRenamed& each : refused)
    all.emplace_back(each.index, each.error.code);
  return all;
}

TEST_F(FileBatch, NamesAreGivenAsIfAllAtOnce) {
  // A chain, a ring of three, a name that stays taken with one that waits for it, two for one name, no names at all.
  for (const char* name : {"1", "2", "r", "s", "t", "stays", "w", "x", "y", "z", "long"})
    temp.file(std::string("from/") + name, name);
  const std::vector<NewName> names{{"1", "2"},     {"2", "3"}, {"r", "s"}, {"s", "t"}, {"t", "r"},
                                   {"w", "stays"}, {"x", "w"}, {"y", "n"}, {"z", "n"}, {"long", std::string(300, 'n')},
                                   {"a", "../x"},  {"b", ".."}};
  using enum ErrorCode;
  const std::vector<std::pair<std::size_t, ErrorCode>> refused{{5, AlreadyThere}, {6, AlreadyThere}, {8, AlreadyThere},
                                                               {9, InvalidPath},  {10, InvalidPath}, {11, InvalidPath}};
  const auto before = temp.names("from");
  EXPECT_EQ(kept(temp.files.checkRenames(from, names)), refused) << "told before";
  EXPECT_EQ(temp.names("from"), before);
  EXPECT_EQ(kept(temp.files.renameFiles(from, names)), refused);
  for (const auto row :
       test::Rows{"2|1", "3|2", "s|r", "t|s", "r|t", "n|y", "stays|stays", "w|w", "x|x", "z|z", "long|long"})
    EXPECT_EQ(temp.read("from/" + test::Row(row).first), test::Row(row).second) << row;
  EXPECT_FALSE(temp.has("from/1"));
  EXPECT_EQ(temp.files.renameFiles(temp.at("gone"), names).size(), names.size());
}

TEST_F(FileBatch, WhoGetsTheNameOfAVanishedFileIsNotRenamedInItsPlace) {
  temp.file("from/1", "1");
  const std::vector<NewName> names{{"1", "2"}, {"2", "3"}};
  EXPECT_EQ(kept(temp.files.renameFiles(from, names)), (decltype(kept({})){{1, ErrorCode::NotFound}}));
  EXPECT_EQ(temp.read("from/2"), "1");
}

TEST_F(FileBatch, ProtectedFilesAreNotDeleted) {
  for (const Attributes attributes : {1u, 2u, 4u, 0u, 33u}) {
    ASSERT_TRUE(temp.files.setAttributes(temp.at("from/c"), attributes));
    EXPECT_EQ(deleted(), 2u) << attributes;
    EXPECT_EQ(temp.names("from"), (Names{"c", "d", "e"}));
    temp.file("from/a").file("from/b");
  }
}

TEST_F(FileBatch, NamesThatLeadElsewhereAndFoldersThatAreGoneGiveNothing) {
  temp.file("kept").file("from/x\\y");
  for (const char* name : {"..\\kept", "", ".", "..", "../kept"}) {
    EXPECT_TRUE(temp.files.deleteFiles(from, {name}).empty()) << name;
    EXPECT_TRUE(temp.files.moveFiles(from, {name}, to).empty()) << name;
    EXPECT_TRUE(temp.files.copyFiles(from, {name}, to, NoLimit).empty()) << name;
  }
  EXPECT_TRUE(temp.has("kept"));
  EXPECT_TRUE(temp.files.copyFiles(temp.at("gone"), all, to, NoLimit).empty());
  EXPECT_TRUE(temp.files.copyFiles(from, all, temp.at("gone"), NoLimit).empty());
  EXPECT_TRUE(temp.files.copyFiles("Q:\\", all, to, NoLimit).empty());
}

TEST_F(FileBatch, EndsSoonWhenItIsStopped) {
  Names many;
  for (int number = 0; number < 2000; ++number)
    temp.file("from/" + many.emplace_back(std::to_string(number)));
  const auto stop = [](std::uint64_t) { return false; };
  EXPECT_LT(temp.files.copyFiles(from, many, to, NoLimit, stop).size(), many.size());
  EXPECT_LT(temp.files.deleteFiles(from, many, stop).size(), many.size());
  temp.folder("elsewhere");
  EXPECT_EQ(temp.files.moveFiles(from, all, temp.at("elsewhere"), stop).size(), 1u);
}

}  // namespace
}  // namespace varnholt::platform

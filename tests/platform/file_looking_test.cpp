#include "platform/text_fold.hpp"
#include "support/own_mounts.hpp"
#include "support/temp_folder.hpp"

namespace varnholt::platform {
namespace {

using test::codeOf;
using test::TempFolder;

std::vector<std::string> namesOf(const std::vector<Entry>& entries) {
  std::vector<std::string> names;
  for (const Entry& entry : entries)
    names.emplace_back(entry.name);
  return names;
}

const Entry* find(const Listing& listing, std::string_view name) {
  for (const auto* entries : {&listing.folders(), &listing.files()})
    for (const Entry& entry : *entries)
      if (entry.name == name) return &entry;
  return nullptr;
}

class Looking : public testing::Test {
 protected:
  ListingPtr list(const std::string& folder = {}) {
    const auto listing = temp.files.list(temp.at(folder));
    if (!listing) throw std::runtime_error(listing.error().text);
    return *listing;
  }
  TempFolder temp;
  using Names = std::vector<std::string>;
};

TEST_F(Looking, FoldersAndFilesApartByLoweredName) {
  temp.folder("beta").folder("Alpha");
  for (const char* name : {"b.txt", "A.txt", "a.txt", "\xC3\x84.txt", "\xC3\xA4.txt"})
    temp.file(name);
  EXPECT_EQ(namesOf(list()->folders()), (Names{"Alpha", "beta"}));
  EXPECT_EQ(namesOf(list()->files()), (Names{"A.txt", "a.txt", "b.txt", "\xC3\x84.txt", "\xC3\xA4.txt"}));
}

TEST_F(Looking, FactsInOnePassAndLinksAsWhatTheyPointTo) {
  temp.file("old.txt", "12345", Date{-1000, 5}).file("new.txt", "", Date{5000000000, 999999999}).folder("f");
  temp.link("toFolder", "f").link("toFile", "old.txt").link("gone", "nowhere").link("loop", "loop");
  temp.pipe("pipe").link("toPipe", "pipe");
  const auto before = std::filesystem::current_path();
  const auto listing = list();
  EXPECT_EQ(std::filesystem::current_path(), before);
  const Entry* old = find(*listing, "old.txt");
  ASSERT_TRUE(old);
  EXPECT_EQ(old->size, 5u);
  EXPECT_EQ(old->modified, (Date{-1000, 5}));
  EXPECT_EQ(temp.files.info(temp.at("old.txt"))->modified, (Date{-1000, 5}));
  EXPECT_TRUE(old->hasDates && old->created.seconds > 0 && !old->isLink);
  EXPECT_EQ(old->attributes, attribute::Archive);
  EXPECT_EQ(find(*listing, "new.txt")->modified, (Date{5000000000, 999999999}));
  EXPECT_EQ(find(*listing, "f")->size, 0u);
  EXPECT_EQ(find(*listing, "f")->attributes, attribute::Folder);
  EXPECT_EQ(namesOf(listing->folders()), (Names{"f", "toFolder"}));
  EXPECT_TRUE(find(*listing, "toFolder")->isLink);
  EXPECT_EQ(find(*listing, "toFile")->size, 5u);
  for (const char* name : {"gone", "loop"})
    EXPECT_TRUE(find(*listing, name)->isDangling && find(*listing, name)->kind == EntryKind::File) << name;
  for (const char* name : {"pipe", "toPipe"})
    EXPECT_EQ(find(*listing, name)->kind, EntryKind::Special) << name;
  EXPECT_EQ(codeOf(temp.files.readFile(temp.at("pipe"))), ErrorCode::NotRegular) << "nor is it opened";
  temp.pipe("pipe.exe");
  EXPECT_EQ(codeOf(temp.files.fileVersion(temp.at("pipe.exe"))), ErrorCode::NotRegular);
}

TEST_F(Looking, FactsOfManyNamesWhetherMostAreThereOrFew) {
  temp.file("old.txt", "12345", Date{-1000, 5}).folder("f").link("toFile", "old.txt").link("gone", "nowhere");
  for (const std::size_t strangers : {0u, 100u}) {
    Names asked{"old.txt", "f", "toFile", "gone", "none"};
    for (std::size_t number = 0; number < strangers; ++number)
      asked.push_back("stranger " + std::to_string(number));
    const auto facts = temp.files.fileFacts(temp.at(""), asked);
    ASSERT_EQ(facts.size(), asked.size());
    std::string there;
    for (const FileFacts& each : facts)
      there += each.isThere ? std::to_string(each.size) + (each.hasDates ? "d " : " ") : "- ";
    EXPECT_TRUE(there.starts_with("5d - 5d 7d - ")) << there;
    EXPECT_EQ(there.size(), 13 + 2 * strangers) << "no stranger is there";
    EXPECT_EQ(facts[2].modified, (Date{-1000, 5}));
  }
  using Known = std::vector<std::optional<Attributes>>;
  temp.file(".dot");
  EXPECT_EQ(temp.files.fileAttributes(temp.at(""), {"old.txt", "f", "toFile", "none", ".dot"}),
            (Known{attribute::Archive, {}, attribute::Archive, {}, attribute::Archive | attribute::Hidden}));
  EXPECT_EQ(temp.files.fileAttributes("Q:\\", {"old.txt"}), Known(1));
}

TEST_F(Looking, LargeFolderIsCompleteAndInOrder) {
  constexpr int count = 12000;  // above what one thread sorts
  for (int i = 0; i < count; ++i)
    temp.file((i % 3 ? "Name-" : "name-") + std::to_string(i * 7919 % count), "");
  const auto names = namesOf(list()->files());
  EXPECT_EQ(names.size(), size_t{count});
  EXPECT_TRUE(std::ranges::is_sorted(names, {}, [](const auto& name) { return std::pair(foldCase(name), name); }));
}

TEST_F(Looking, Errors) {
  temp.file("file");
  EXPECT_EQ(codeOf(temp.files.list(temp.at("none"))), ErrorCode::NotFound);
  EXPECT_EQ(codeOf(temp.files.list(temp.at("file"))), ErrorCode::NotAFolder);
  EXPECT_EQ(codeOf(temp.files.list("Q:\\")), ErrorCode::InvalidPath);
  EXPECT_EQ(codeOf(temp.files.list("C:\\" + std::string(5000, 'x'))), ErrorCode::InvalidPath);
  const auto missing = temp.files.list(temp.at("none/below"));
  EXPECT_EQ(missing.error().path, temp.at("none/below")) << "errors speak of program paths";
}

TEST_F(Looking, EntriesThatMayNotBeAskedAreStillListed) {
  temp.folder("locked").file("locked/a.txt").folder("locked/f").mode("locked", 0744).mode("", 0755);
  temp.folder("closed").mode("closed", 0700);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    const auto listing = list("locked");
    ASSERT_TRUE(find(*listing, "a.txt"));
    EXPECT_FALSE(find(*listing, "a.txt")->hasDates);
    EXPECT_EQ(find(*listing, "f")->kind, EntryKind::Folder);
    EXPECT_EQ(codeOf(temp.files.list(temp.at("closed"))), ErrorCode::AccessDenied);
  }));
}

TEST_F(Looking, FileLargerThanFourGigabytes) {
  temp.file("huge", "");
  ASSERT_EQ(::truncate(temp.system("huge").c_str(), 5LL << 30), 0);
  EXPECT_EQ(temp.files.info(temp.at("huge"))->size, 5ull << 30);
  EXPECT_EQ(codeOf(temp.files.readFile(temp.at("huge"))), ErrorCode::TooLarge);
  EXPECT_EQ(temp.files.folderSize(temp.at())->bytes, 5ull << 30);
}

TEST_F(Looking, FilesAndFolders) {
  temp.file("t").folder("f").link("toFile", "t").link("toFolder", "f").link("gone", "nowhere").pipe("pipe");
  const auto kind = [&](const char* name) {
    return std::pair(temp.files.fileExists(temp.at(name)), temp.files.folderExists(temp.at(name)));
  };
  for (const char* file : {"t", "toFile", "gone", "pipe"})
    EXPECT_EQ(kind(file), std::pair(true, false)) << file;
  for (const char* folder : {"f", "toFolder", ""})
    EXPECT_EQ(kind(folder), std::pair(false, true)) << folder;
  for (const char* nothing : {"none", "t/below"})
    EXPECT_EQ(kind(nothing), std::pair(false, false)) << nothing;
  EXPECT_TRUE(temp.files.info(temp.at("toFile"))->isLink);
  EXPECT_TRUE(temp.files.info(temp.at("gone"))->isDangling);
  EXPECT_EQ(codeOf(temp.files.info(temp.at("none"))), ErrorCode::NotFound);
}

TEST_F(Looking, HoweverItIsSpelled) {
  temp.file("a").file("b").link("l", "a").hardLink("h", "a");
  const std::string byRoot = "Z:" + temp.files.resolve("Z:" + temp.system("a"))->substr(2);
  for (const std::string& same : {temp.at("a", 'E'), byRoot, temp.at("l"), temp.at("h")})
    EXPECT_TRUE(temp.files.sameEntry(temp.at("a"), same)) << same;
  EXPECT_FALSE(temp.files.sameEntry(temp.at("a"), temp.at("b")));
  EXPECT_FALSE(temp.files.sameEntry(temp.at("none"), temp.at("none")));
}

TEST_F(Looking, SpelledAsTheDiskHasIt) {
  temp.file("Photos/Sommer \xC3\x84/B.jpg").file("twin").file("TWIN").file("point.").file("back\\slash");
  std::vector<std::string> asked, wanted;
  for (const auto text :
       test::Rows{"c:\\PHOTOS\\sommer \xC3\xA4\\b.JPG|C:\\Photos\\Sommer \xC3\x84\\B.jpg", "C:/photos/|C:\\Photos",
                  "C:\\twin|C:\\twin", "C:\\TWIN|C:\\TWIN", "C:\\Twin|C:\\TWIN", "C:\\point.|C:\\point.",
                  "C:\\photos.|C:\\Photos", "C:\\Photos\\..\\twin|C:\\twin", "C:\\..\\.\\twin|C:\\twin",
                  "C:\\BACK\xEF\x81\x9CSLASH|C:\\back\xEF\x81\x9Cslash", "c:|C:\\"}) {
    EXPECT_EQ(temp.files.resolve(test::Row(text).first).valueOr("?"), test::Row(text).second);
    asked.push_back(test::Row(text).first), wanted.push_back(test::Row(text).second);
  }
  for (std::size_t at = 0; auto& answer : temp.files.resolveAll(asked))
    EXPECT_EQ(answer.valueOr("?"), wanted[at++]);
  EXPECT_EQ(codeOf(temp.files.resolve("C:\\photos\\none")), ErrorCode::NotFound);
  for (const char* path : {"C:photos", "nonsense", ""})
    EXPECT_EQ(codeOf(temp.files.resolve(path)), ErrorCode::InvalidPath) << path;
}

TEST_F(Looking, TheSizeOfATreeCountsItsFilesOnceAndFollowsNothing) {
  temp.file("tree/a", "12345").file("tree/f/b", "123").folder("tree/f/g").file("outside/big", std::string(1000, 'x'));
  temp.link("tree/toOutside", "../outside").link("tree/f/toBig", "../../outside/big").pipe("tree/pipe");
  for (int i = 0; i < 2000; ++i)
    temp.file("tree/wide/" + std::to_string(i), "ab").file("tree/deep/" + std::to_string(i % 100) + "/x/y", "c");
  const auto size = temp.files.folderSize(temp.at("tree"));
  ASSERT_TRUE(size);
  EXPECT_EQ(size->bytes, 8u + 4000 + 100);
  EXPECT_EQ(size->files, 5u + 2000 + 100);
  EXPECT_EQ(size->folders, 2u + 202);
  EXPECT_TRUE(size->exact);
  EXPECT_EQ(codeOf(temp.files.folderSize(temp.at("tree"), [](std::uint64_t) { return false; })), ErrorCode::Stopped);
  EXPECT_EQ(codeOf(temp.files.folderSize(temp.at("tree/a"))), ErrorCode::NotAFolder);
  EXPECT_EQ(codeOf(temp.files.folderSize(temp.at("none"))), ErrorCode::NotFound);
}

TEST_F(Looking, UnreadableFolderMakesTheSizeInexact) {
  temp.file("tree/a", "123").file("tree/locked/b", "12345").mode("tree/locked", 0700).mode("", 0755);
  EXPECT_TRUE(test::heldAsOrdinaryUser([&] {
    const auto size = temp.files.folderSize(temp.at("tree"));
    EXPECT_TRUE(size && size->bytes == 3u && !size->exact);
  }));
}

class FindingFolders : public Looking {
 protected:
  std::string find(const FolderTest& takes, unsigned levels = 10, const std::string& after = {}) {
    return temp.files.findFolder(temp.at("t"), levels, takes, after).valueOr("failed");
  }
  /// All that are found, one after the other, below the folder itself.
  Names all(unsigned levels = 10) {
    const auto any = [](const std::string&) { return true; };
    Names found;
    for (std::string at = find(any, levels); !at.empty(); at = find(any, levels, at))
      found.push_back(at.substr(temp.at("t\\").size()));
    return found;
  }
};

TEST_F(FindingFolders, EachComesBeforeThoseInItAndInTheOrderOfListings) {
  for (const char* path : {"t/b/x/f", "t/B/y/f", "t/a.b/f", "t/a/z/f", "t/a/Z/f", "t/a/k/l/f", "t/\xC4/f"})
    temp.file(path);
  temp.link("t/a/link", "../b").link("t/loop", ".");
  EXPECT_EQ(all(), (Names{"a", "a\\k", "a\\k\\l", "a\\Z", "a\\z", "a.b", "B", "B\\y", "b", "b\\x", "\xC4"}));
  EXPECT_EQ(all(1), (Names{"a", "a.b", "B", "b", "\xC4"}));
  EXPECT_EQ(find([](const std::string& path) { return path.ends_with("y") || path.ends_with("x"); }), temp.at("t/B/y"));
}

TEST_F(FindingFolders, GoesOnBehindOneThatIsGoneByThen) {
  for (const char* path : {"t/a/b", "t/a/c/d", "t/e"})
    temp.folder(path);
  const auto any = [](const std::string&) { return true; };
  EXPECT_EQ(find(any, 10, temp.at("t/a/bb/c")), temp.at("t/a/c"));
  EXPECT_EQ(find(any, 10, temp.at("t/aa")), temp.at("t/e"));
  EXPECT_EQ(find(any, 10, temp.at("t/e")), "");
}

TEST_F(FindingFolders, SeesWholeTreesOnAllThreadsAndStopsWhenItIsTold) {
  for (int at = 0; at < 400; ++at)
    temp.folder("t/" + std::to_string(at) + "/" + std::to_string(at % 7) + "/x");
  std::atomic<int> seen = 0;
  EXPECT_EQ(find([&](const std::string&) { return ++seen < 0; }), "");
  EXPECT_EQ(seen, 1200);
  const auto none = [](const std::string&) { return false; };
  const auto stop = [](const SearchAdvance&) { return false; };
  EXPECT_EQ(codeOf(temp.files.findFolder(temp.at("t"), 10, none, {}, stop)), ErrorCode::Stopped);
  EXPECT_EQ(codeOf(temp.files.findFolder(temp.at("none"), 10, none, {})), ErrorCode::NotFound);
}

TEST_F(Looking, MountedVolumesAreNotEntered) {
  temp.file("tree/a", "123").folder("tree/mounted");
  const auto mount = test::ScopedMount::memory(temp.system("tree/mounted"));
  if (!mount) GTEST_SKIP() << "no right to mount here";
  temp.file("tree/mounted/b", "12345");
  const auto size = temp.files.folderSize(temp.at("tree"));
  ASSERT_TRUE(size);
  EXPECT_EQ(size->bytes, 3u);
}

}  // namespace
}  // namespace varnholt::platform

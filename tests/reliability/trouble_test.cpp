// What the disk, the system and other programs do to a copy, a move or a delete.

#include "support/temp_folder.hpp"
#include "user.hpp"
#include "watched_files.hpp"

#include <algorithm>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::test {
namespace {

namespace fs = std::filesystem;
namespace attribute = platform::attribute;

constexpr const char* noMounts = "nothing can be mounted here: no right to a mount table of one's own";
constexpr std::size_t Large = 20 << 20;

class Trouble : public ReliabilityTest {
 protected:
  void SetUp() override { world.folder("C:/From").folder("C:/To").folder("D:/To"); }
  /// Nothing at all is different from what it was.
  void expectUnchanged(const TreeSnapshot& before) { EXPECT_EQ(difference(before, world.all()), ""); }
};

// --- No space ------------------------------------------------------------------------------------------------------

TEST_F(Trouble, NoSpaceForAReplacementLeavesTheOldFile) {
  if (!world.mountSecond("size=4m,mode=0777")) GTEST_SKIP() << noMounts;
  world.file("C:/From/a", pattern(8 << 20, 1)).file("D:/To/a", pattern(1 << 20, 2));
  User& user = this->user();
  for (const platform::Attributes protection : {attribute::Archive, attribute::ReadOnly}) {
    ASSERT_TRUE(user.rig.platform->files.setAttributes("D:\\To\\a", protection));
    for (const char* answer : {"Command11", "Command6"}) {
      const TreeSnapshot before = world.all();
      user.open("C:\\From", "D:\\To");
      user.mark({"a"});
      user.starts("Form3");
      user.answers("Form7", answer);
      const bool asksAttributes = protection == attribute::ReadOnly && answer == std::string("Command11");
      if (asksAttributes) user.answers("Form10", "Command11");
      user.isTold();
      user.copies();
      expectUnchanged(before);
    }
  }
}

TEST_F(Trouble, NoSpaceForANewFileOrTree) {
  if (!world.mountSecond("size=4m,mode=0777")) GTEST_SKIP() << noMounts;
  world.file("C:/From/a", pattern(8 << 20, 1)).folder("D:/To");
  world.file("C:/From/Tree/big", pattern(8 << 20, 2)).file("C:/From/Tree/small", "s");
  const TreeSnapshot before = world.all(), source = world.tree("C:/From");
  User& user = this->user();
  for (const char* dialog : {"Form3", "Form5"}) {
    user.open("C:\\From", "D:\\To");
    user.mark({"a"});
    user.starts(dialog);
    user.answers("Form11", "Command1");
    dialog == std::string("Form3") ? user.copies() : user.moves();
    expectUnchanged(before);
  }
  user.open("C:\\From", "D:\\To");
  user.mark({"Tree"});
  user.starts("Form3");
  user.isTold();
  user.copies();
  EXPECT_EQ(difference(source, world.tree("C:/From")), "");
  EXPECT_FALSE(world.has("D:/To/Tree/big")) << "no half file has its name";
  EXPECT_TRUE(world.temporary("D:").empty());
}

// --- No right ------------------------------------------------------------------------------------------------------

TEST_F(Trouble, AccessDenied) {
  if (::geteuid() != 0) GTEST_SKIP() << "files of another user can be made by root alone";
  world.file("C:/From/a", "a", 1'000'000'000, 0644).file("C:/From/secret", "s", 1'000'000'000, 0600);
  world.file("C:/To/a", "old", 900'000'000, 0644).file("C:/From/Tree/x", "x", 1'000'000'000, 0644);
  for (const char* folder : {"C:/From", "C:/To", "C:/From/Tree"})
    ::chmod(world.system(folder).c_str(), 0755);
  ::chmod(world.system("D:/To").c_str(), 0777);
  const TreeSnapshot before = world.all();
  User& user = this->user();  // started by root, who can read the program's own files wherever they lie
  EXPECT_TRUE(heldAsOrdinaryUser([&] {
    // A target that may not be replaced, and a place where nothing may be made.
    user.open("C:\\From", "C:\\To");
    user.mark({"a", "Tree"});
    user.starts("Form3");
    user.answers("Form7", "Command6");
    user.answers("Form11", "Command1");
    user.isTold();
    user.copies();
    // A source that may not be read, and then one that may not go: the copy is taken back.
    for (const char* name : {"secret", "a"}) {
      user.open("C:\\From", "D:\\To");
      user.mark({name});
      user.starts(name == std::string("a") ? "Form5" : "Form3");
      user.answers("Form11", "Command1");
      name == std::string("a") ? user.moves() : user.copies();
    }
    // A folder out of which nothing may be taken.
    user.open("C:\\From", "D:\\To");
    user.mark({"a", "Tree"});
    user.starts("Form4");
    user.answers("Form11", "Command11");
    user.answers("Form11", "Command11");  // a was not deleted; go on
    user.answers("Form11", "Command11");  // Tree is not empty
    user.answers("Form11", "Command11");  // Tree was not deleted
    user.isTold();
    user.deletes();
  }));
  expectUnchanged(before);
}

TEST_F(Trouble, ReadOnlyVolume) {
  if (!world.mountSecond()) GTEST_SKIP() << noMounts;
  world.file("C:/From/a", "new").file("C:/From/b", "b").file("D:/To/a", "old").file("D:/To/c", "c").folder("C:/To");
  ASSERT_TRUE(world.second().makeReadOnly());
  const TreeSnapshot before = world.all();
  User& user = this->user();
  user.open("C:\\From", "D:\\To");
  user.mark({"a", "b"});
  user.starts("Form3");
  user.answers("Form11", "Command11");  // b did not arrive; go on
  user.answers("Form7", "Command6");
  user.isTold();
  user.copies();
  expectUnchanged(before);

  user.open("D:\\To", "C:\\To");
  user.mark({"c"});
  user.starts("Form5");
  user.answers("Form11", "Command1");
  user.moves();
  expectUnchanged(before);

  user.open("D:\\To", "C:\\To");
  user.mark({"c"});
  user.starts("Form4");
  user.answers("Form11", "Command11");
  user.answers("Form11", "Command1");  // it was not deleted
  user.deletes();
  expectUnchanged(before);
}

// --- A file that changes under the copy ----------------------------------------------------------------------------

class Changing : public Trouble {
 protected:
  void SetUp() override {
    Trouble::SetUp();
    mounted = world.mountSecond();
    world.file("C:/From/a", old).folder("D:/To");
  }
  /// Does something to the file when the copy of it is on its way; once, or every time.
  User& changing(std::function<void()> change, bool once = true) {
    return user(watching([this, change = std::move(change), once](std::uint64_t) {
      if (calls++ == 0 || !once) change();
      return calls < most;
    }));
  }
  /// The user copies or moves it to the other volume, and meets this dialog at the end, if any.
  void carries(User& user, bool move, const std::string& dialog = {}) {
    user.open("C:\\From", "D:\\To");
    user.mark({"a"});
    user.starts(move ? "Form5" : "Form3");
    // Skips a target that is there, ends at one that is not, or is told.
    if (!dialog.empty()) user.answers(dialog, dialog == "Form12" ? "Command11" : "Command1");
    move ? user.moves() : user.copies();
    EXPECT_GT(calls, 0);
    EXPECT_TRUE(world.temporary("D:").empty());
  }
  std::string bytes(const std::string& name) const { return world.facts(name).contents; }
  std::string path() const { return world.system("C:/From/a"); }
  void append(std::size_t count) const { std::ofstream(path(), std::ios::app) << std::string(count, '+'); }

  const std::string old = pattern(Large, 3);
  bool mounted = false;
  static constexpr int most = 400;  ///< a fifth of these is what the file takes
  int calls = 0;
};

TEST_F(Changing, AFileThatGrowsIsCopiedAsItWas) {
  carries(changing([this] { append(300 << 10); }, false), false);
  EXPECT_LT(calls, most) << "it runs after the end for ever";
  EXPECT_TRUE(bytes("D:/To/a") == old);
  EXPECT_GT(bytes("C:/From/a").size(), Large);
}

TEST_F(Changing, AFileThatGrowsIsNotMovedAway) {
  if (!mounted) GTEST_SKIP() << noMounts;
  carries(changing([this] { append(100); }), true, "Form11");
  EXPECT_TRUE(bytes("C:/From/a") == old + std::string(100, '+'));
  EXPECT_FALSE(world.has("D:/To/a"));
}

TEST_F(Changing, AFileThatShrinksGetsNoEndOfZeros) {
  carries(changing([this] { EXPECT_EQ(::truncate(path().c_str(), 9 << 20), 0); }), false);
  const std::string copy = bytes("D:/To/a");
  EXPECT_GE(copy.size(), 9u << 20);
  EXPECT_TRUE(old.starts_with(copy));
}

TEST_F(Changing, AFileWithHolesThatShrinksGetsNoEndOfZeros) {
  ASSERT_EQ(::truncate(path().c_str(), 200 << 20), 0);
  carries(changing([this] { EXPECT_EQ(::truncate(path().c_str(), 9 << 20), 0); }), false);
  EXPECT_TRUE(old.starts_with(bytes("D:/To/a").substr(0, Large)));
  EXPECT_LE(bytes("D:/To/a").size(), Large);
}

TEST_F(Changing, AFileThatShrinksIsNotMovedAway) {
  if (!mounted) GTEST_SKIP() << noMounts;
  carries(changing([this] { EXPECT_EQ(::truncate(path().c_str(), 9 << 20), 0); }), true, "Form11");
  EXPECT_TRUE(bytes("C:/From/a") == old.substr(0, 9 << 20));
  EXPECT_FALSE(world.has("D:/To/a"));
}

TEST_F(Changing, AFileThatVanishesIsStillInTheCopy) {
  for (const bool move : {false, true}) {
    if (move && !mounted) GTEST_SKIP() << noMounts;
    world.file("C:/From/a", old);
    fs::remove(world.system("D:/To/a"));
    calls = 0;
    carries(changing([this] { fs::remove(path()); }), move);
    EXPECT_TRUE(bytes("D:/To/a") == old);
  }
}

TEST_F(Changing, AFileThatIsReplacedMeanwhileIsNotMovedAway) {
  if (!mounted) GTEST_SKIP() << noMounts;
  world.file("C:/Later/new", "new");
  carries(changing([this] { fs::rename(world.system("C:/Later/new"), path()); }), true, "Form12");
  EXPECT_EQ(bytes("C:/From/a"), "new");
  EXPECT_TRUE(bytes("D:/To/a") == old) << "the copy is the last of it";
}

TEST_F(Changing, ATargetThatComesUpMeanwhileStays) {
  if (!mounted) GTEST_SKIP() << noMounts;
  for (const bool move : {false, true}) {
    fs::remove(world.system("D:/To/a"));
    calls = 0;
    carries(changing([this] { world.file("D:/To/a", "somebody's"); }), move, move ? "Form12" : "Form7");
    EXPECT_EQ(bytes("D:/To/a"), "somebody's");
    EXPECT_TRUE(bytes("C:/From/a") == old);
  }
}

// --- A folder that is swapped for a link ---------------------------------------------------------------------------

class Swapped : public Trouble {
 protected:
  void SetUp() override {
    Trouble::SetUp();
    world.file("C:/Outside/precious", "p").file("C:/Outside/Sub/more", "m");
    for (const char* name : {"Tree/a", "Tree/Sub/b", "Tree/Sub/Deep/c", "Tree/z"})
      world.file("C:/From/" + std::string(name), "bytes");
    outside = world.tree("C:/Outside");
  }
  void swap(const std::string& folder) const {
    const std::string path = world.system("C:/From/" + folder);
    fs::rename(path, world.system("C:/Aside"));
    // Relative, for an absolute one is a way through another volume's root.
    std::string up = "../Outside";
    for (const char c : folder)
      if (c == '/') up = "../" + up;
    fs::create_directory_symlink(up, path);
    ASSERT_TRUE(fs::exists(path + "/precious"));
  }
  void startsToDelete(User& user, const std::function<void()>& whileAsked) {
    user.open("C:\\From", "C:\\To");
    user.mark({"Tree"});
    user.starts("Form4");
    user.answers("Form11", "Command11");
    user.rig.loop.whenShows("Form11").run([whileAsked](controls::Form&) { whileAsked(); }).press("Command11");
  }
  TreeSnapshot outside;
};

TEST_F(Swapped, WhileTheUserIsAsked) {
  User& user = this->user();
  startsToDelete(user, [this] { swap("Tree"); });
  user.deletes();
  EXPECT_EQ(difference(outside, world.tree("C:/Outside")), "");
  EXPECT_TRUE(world.has("C:/Aside/a"));
}

TEST_F(Swapped, WhileItIsDeleted) {
  for (const char* folder : {"Tree/Sub", "Tree/Sub/Deep", "Tree"}) {
    SCOPED_TRACE(folder);
    bool done = false;
    User& user = this->user(watching([this, folder, &done](std::uint64_t) {
      if (!std::exchange(done, true)) swap(folder);
      return true;
    }));
    startsToDelete(user, [] {});
    // The tree stays, when it is the link: it was not asked to be deleted.
    if (folder == std::string("Tree")) {
      user.answers("Form11", "Command1");
      user.isTold();
    }
    user.deletes();
    EXPECT_TRUE(done);
    EXPECT_EQ(difference(outside, world.tree("C:/Outside")), "");
    fs::remove_all(world.system("C:/Aside"));
    fs::remove_all(world.system("C:/From/Tree"));
    for (const char* name : {"Tree/a", "Tree/Sub/b", "Tree/Sub/Deep/c"})
      world.file("C:/From/" + std::string(name), "bytes");
  }
}

// --- Links that loop, folders in themselves, one file twice --------------------------------------------------------

TEST_F(Trouble, LinksThatLoop) {
  world.file("C:/From/Tree/a", "a").link("C:/From/Tree/self", ".").link("C:/From/Tree/up", "../..");
  world.link("C:/From/Tree/one", "two").link("C:/From/Tree/two", "one").link("C:/From/round", "round");
  world.link("C:/From/Tree/Sub/root", "/").file("C:/Kept", "k");
  const TreeSnapshot source = world.tree("C:/From");
  User& user = this->user();
  user.open("C:\\From", "C:\\To");
  user.markAll();
  user.starts("Form3");
  user.copies();
  EXPECT_EQ(difference(source, world.tree("C:/From")), "");
  TreeSnapshot copy = world.tree("C:/To");
  for (auto& [name, facts] : copy)
    if (S_ISLNK(facts.mode) && source.contains(name)) facts.modified = source.at(name).modified;
  EXPECT_EQ(difference(source, copy), "");

  user.open("C:\\To", "C:\\From\\Tree");
  user.markAll();
  user.starts("Form4");
  user.answers("Form11", "Command11");
  user.answers("Form11", "Command11");
  user.deletes();
  EXPECT_TRUE(world.tree("C:/To").empty());
  EXPECT_EQ(difference(source, world.tree("C:/From")), "");
}

/// A folder's own sub-folder under another name: by the drive of all, by a link, by a mount.
TEST_F(Trouble, AFolderIntoItselfByAnotherName) {
  world.file("C:/From/Data/a", "a").file("C:/From/Data/Sub/b", "b").folder("C:/To");
  std::string byRoot = "Z:" + world.system("C:/From/Data/Sub");
  std::ranges::replace(byRoot, '/', '\\');
  world.link("C:/To/Link", world.system("C:/From/Data/Sub"));
  const ScopedMount mount = ScopedMount::bind(world.system("C:/From/Data/Sub"), world.path() + "/second");
  const TreeSnapshot before = world.tree("C:");
  User& user = this->user();
  for (const std::string& target : {byRoot, std::string("C:\\To\\Link"), std::string("D:\\")}) {
    if (target == "D:\\" && !mount) continue;
    SCOPED_TRACE(target);
    user.open("C:\\From", target);
    user.mark({"Data"});
    user.starts("Form3");
    user.answers("Form11", "Command1");  // it did not arrive
    user.copies();
    EXPECT_EQ(difference(before, world.tree("C:")), "");
    user.open("C:\\From", target);
    user.mark({"Data"});
    user.starts("Form5");
    if (target.starts_with("C:"))
      user.answers("Form11", "Command1");
    else
      user.isTold();  // another drive, by its letter
    user.moves();
    EXPECT_EQ(difference(before, world.tree("C:")), "");
  }
}

TEST_F(Trouble, OneFileAsSourceAndTarget) {
  world.file("C:/From/a", "bytes").folder("C:/To");
  ASSERT_EQ(::link(world.system("C:/From/a").c_str(), world.system("C:/To/a").c_str()), 0);
  std::string byRoot = "Z:" + world.system("C:/From");
  std::ranges::replace(byRoot, '/', '\\');
  User& user = this->user();
  for (const platform::Attributes protection : {attribute::Archive, attribute::ReadOnly}) {
    ASSERT_TRUE(user.rig.platform->files.setAttributes("C:\\From\\a", protection));
    const TreeSnapshot before = world.all();
    for (const std::string& target : {std::string("C:\\To"), byRoot}) {
      SCOPED_TRACE(target);
      user.open("C:\\From", target);
      user.mark({"a"});
      user.starts("Form3");
      user.answers("Form7", "Command6");
      user.isTold();
      user.copies();
      expectUnchanged(before);
      user.open("C:\\From", target);
      user.mark({"a"});
      user.starts("Form5");
      user.isTold();
      user.moves();
      expectUnchanged(before);
    }
  }
  struct stat facts {};
  ASSERT_EQ(::stat(world.system("C:/To/a").c_str(), &facts), 0);
  EXPECT_EQ(facts.st_nlink, 2u);
}

}  // namespace
}  // namespace varnholt::test

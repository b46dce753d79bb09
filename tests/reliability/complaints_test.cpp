// "I confirmed one file, and it deleted another": whatever happens to the rows meanwhile, it cannot.
#include "world.hpp"

namespace varnholt::test {
namespace {

class OtherRow : public testing::Test {
 protected:
  using Happening = std::function<void(User&)>;
  using Names = std::set<std::string>;

  void fill() {
    std::filesystem::remove_all(world.system("C:/From"));
    for (const std::string name : {"b", "d", "f"})
      world.file("C:/From/" + name, name).file("C:/Elsewhere/" + name, "elsewhere");
    world.folder("C:/To");
  }
  /// What can happen to the rows between the choice and the button, and what is in the folder then.
  struct Relisting {
    const char* what;
    Happening happens;
    Names rows = {"b", "d", "f"};
  };
  std::vector<Relisting> relistings() {
    const auto renewed = [this](User& user) {
      world.file("C:/From/a", "a").file("C:/From/c", "c").file("C:/From/A folder/x", "x");
      user.rig.app().listing.filedir(user.left());
    };
    return {{"listed anew with more rows", renewed, {"a", "b", "c", "d", "f", "A folder", "A folder/x"}},
            {"cleared and listed anew", [](User& user) { user.rig.app().listing.ViewClearItems(user.left()); }},
            {"sorted by date", [](User& user) { user.rig.app().listing.ColumnClick(user.left(), 4); }},
            {"sorted downwards", [](User& user) { user.rig.app().listing.ColumnClick(user.left(), 1); }},
            {"refreshed", [](User& user) { user.rig.app().listing.viewrefresh(); }},
            {"both sides updated", [](User& user) { user.rig.app().listing.UpdateBothViews(); }},
            {"the focus elsewhere", [](User& user) { user.left().list.focusRow(0); }}};
  }
  Names left() const {
    Names names;
    for (const auto& [name, facts] : world.tree("C:/From"))
      names.insert(name);
    return names;
  }
  World world;
};

/// Rows that are gone may take the selection with them, but never hand it on.
TEST_F(OtherRow, IsNeverHitBetweenTheChoiceAndTheCommandNorWhileTheConfirmationIsOpen) {
  for (const auto& [what, happens, rows] : relistings())
    for (const bool confirming : {false, true}) {
      SCOPED_TRACE(what);
      fill();
      User user(world);
      user.open("C:\\From", "C:\\To");
      // A refresh keeps the row in hand alone.
      std::vector<std::string> chosen = {"d"};
      if (confirming) chosen.insert(chosen.begin(), "b");
      user.mark(chosen);
      const auto meanwhile = [&, happens = happens] { happens(user); };
      if (confirming)
        user.meets({{"Form4", "Command11", "", meanwhile}, {"Form11", "Command11", "", meanwhile}});
      else
        meanwhile();
      // It forgets what was chosen for a command, and then nothing is deleted.
      const bool isKept = confirming ? what != std::string("refreshed") : !user.left().list.selectedIds().empty();
      if (!confirming) user.meets(isKept ? std::vector{Answer{"Form4"}, yes()} : std::vector{noticed({})});
      user.deletes();
      Names expected = rows;
      for (const std::string& name : isKept ? chosen : std::vector<std::string>())
        expected.erase(name);
      EXPECT_EQ(left(), expected);
    }
}

/// Names mean other files in another folder.
TEST_F(OtherRow, APanelThatGoesElsewhereEndsIt) {
  fill();
  User user(world);
  const TreeSnapshot before = world.all();
  const auto goesElsewhere = [&] { ASSERT_TRUE(user.rig.app().navigation.goTo(user.left(), "C:\\Elsewhere")); };
  for (const auto& [dialog, run] :
       {std::pair{"Form3", &User::copies}, {"Form5", &User::moves}, {"Form4", &User::deletes}}) {
    user.open("C:\\From", "C:\\To");
    user.mark({"b", "d"});
    user.meets({{dialog, "Command11", "", goesElsewhere}});
    if (dialog == std::string("Form4")) user.meets({yes()});
    (user.*run)();
    EXPECT_EQ(difference(before, world.all()), "") << dialog;
  }
}

TEST(NamesOfEveryKind, AreCopiedMovedAndDeleted) {
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
  const World world;
  for (const std::string& name : names) {
    // What begins with a point is hidden, and in the panel only when asked for.
    if (!name.starts_with('.')) world.file("C:/From/" + name, "bytes of " + name);
    const std::string folder = name.starts_with('.') ? "points" : name.substr(0, 200) + "_";
    world.file("C:/From/" + folder + "/" + name, "below");
  }
  world.folder("C:/To").folder("C:/Moved").file("C:/Kept/file", "kept");
  const TreeSnapshot before = world.tree("C:/From");
  User user(world);
  const auto all = [&](const char* from, const char* to, void (User::*run)(), const std::vector<Answer>& answers) {
    user.open(from, to);
    user.markAll();
    user.meets(answers);
    (user.*run)();
  };
  all("C:\\From", "C:\\To", &User::copies, {{"Form3"}});
  EXPECT_EQ(difference(before, world.tree("C:/To")), "");
  all("C:\\To", "C:\\Moved", &User::moves, {{"Form5"}});
  EXPECT_EQ(difference({}, world.tree("C:/To")), "");
  EXPECT_EQ(difference(before, world.tree("C:/Moved")), "");
  all("C:\\Moved", "C:\\To", &User::deletes, {{"Form4"}, yes(), {"Form11", "Command2"}});
  EXPECT_EQ(difference({}, world.tree("C:/Moved")), "");
  EXPECT_EQ(difference(before, world.tree("C:/From")), "");
  EXPECT_TRUE(world.has("C:/Kept/file"));
}

}  // namespace
}  // namespace varnholt::test

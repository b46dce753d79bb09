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

TEST_F(OtherRow, WhileTheConfirmationIsOpenHitsTheChosenFiles) {
  for (const auto& [what, happens, rows] : relistings()) {
    SCOPED_TRACE(what);
    fill();
    User user(world);
    user.open("C:\\From", "C:\\To");
    user.mark({"b", "d"});
    const auto meanwhile = [&, happens = happens] { happens(user); };
    user.meets({{"Form4", "Command11", "", meanwhile}, {"Form11", "Command11", "", meanwhile}});
    user.deletes();
    Names expected = rows;
    // A refresh forgets what was chosen, and then nothing is deleted.
    if (what != std::string("refreshed")) expected.erase("b"), expected.erase("d");
    EXPECT_EQ(left(), expected);
  }
}

/// Rows that are gone may take the selection with them, but never hand it on.
TEST_F(OtherRow, BetweenTheChoiceAndTheCommandHitsNoOther) {
  for (const auto& [what, happens, rows] : relistings()) {
    SCOPED_TRACE(what);
    fill();
    User user(world);
    user.open("C:\\From", "C:\\To");
    user.mark({"d"});
    happens(user);
    Names expected = rows;
    if (user.left().list.selectedIds().empty()) {
      user.meets({noticed({})});  // nothing is selected
    } else {
      user.meets({{"Form4"}, yes()});
      expected.erase("d");
    }
    user.deletes();
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

}  // namespace
}  // namespace varnholt::test

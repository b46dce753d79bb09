// What users of file managers complain about: here it cannot happen.

#include "user.hpp"
#include "watched_files.hpp"

#include <filesystem>
#include <set>

#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::test {
namespace {

namespace fs = std::filesystem;
namespace attribute = platform::attribute;

class Complaint : public ReliabilityTest {
 protected:
  void SetUp() override { world.folder("C:/From").folder("C:/To").folder("D:/To"); }

  void protect(User& user, const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
      ASSERT_TRUE(user.rig.platform->files.setAttributes(path, attribute::ReadOnly));
  }
  std::string bytes(const std::string& name) const { return world.facts(name).contents; }
};

// --- "It said it skipped the file, and then the source was gone"
// ------------------------------------------------------

TEST_F(Complaint, WhatIsNotMovedStaysWhereItIs) {
  for (const char* name : {"a", "b", "c", "d", "Sub/x"})
    world.file("C:/From/" + std::string(name), "new " + std::string(name));
  world.file("C:/To/b", "old b", 900'000'000).file("C:/To/d", "old d", 900'000'000).file("C:/To/Sub/y", "old y");
  const TreeSnapshot from = world.tree("C:/From"), to = world.tree("C:/To");
  User& user = this->user();
  user.open("C:\\From", "C:\\To");
  user.markAll();
  user.starts("Form5");
  for (int refused = 0; refused < 3; ++refused)
    user.isTold();
  user.moves();
  EXPECT_EQ(difference(from, world.tree("C:/From")), "- a\n- c\n");
  EXPECT_EQ(difference(to, world.tree("C:/To")), "+ a\n+ c\n");
  EXPECT_EQ(world.facts("C:/To/a"), from.at("a"));
}

/// Each file fails in turn, on this volume and to another; the user goes on each time, or ends it there.
TEST_F(Complaint, AnErrorNeverCostsTheSourceOfAMove) {
  class Failing : public platform::ForwardingFileSystem {
   public:
    Failing(platform::FileSystem& base, std::string name) : ForwardingFileSystem(base), name_(std::move(name)) {}
    platform::Result<void> moveFile(const std::string& from, const std::string& to,
                                    const platform::Progress& progress) override {
      if (!from.ends_with(name_)) return base_.moveFile(from, to, progress);
      // Far into the file, as a disk that is unplugged does it.
      (void)base_.moveFile(from, to, [](std::uint64_t) { return false; });
      return platform::Error{platform::ErrorCode::Failed, from, "Input/output error"};
    }

   private:
    std::string name_;
  };
  if (!world.mountSecond()) GTEST_SKIP() << "a second volume cannot be mounted here";
  world.folder("D:/To");
  const std::vector<std::string> names = {"a", "b", "c"};
  for (const std::string& fails : names)
    for (const char* answer : {"Command11", "Command1"}) {
      SCOPED_TRACE(fails + answer);
      for (const std::string& name : names) {
        world.file("C:/From/" + name, pattern(300'000, static_cast<unsigned char>(name[0])));
        fs::remove(world.system("D:/To/" + name));
      }
      const TreeSnapshot before = world.tree("C:/From");
      User& user = this->user([fails](auto& real) { return std::make_unique<Failing>(real, fails); });
      user.open("C:\\From", "D:\\To");
      user.markAll();
      user.starts("Form5");
      user.answers("Form11", answer);
      user.moves();
      TreeSnapshot both = world.tree("C:/From");
      EXPECT_TRUE(both.contains(fails));
      both.merge(world.tree("D:/To"));
      EXPECT_EQ(difference(before, both), "");
    }
}

// --- "I cancelled, and both copies were gone"
// --------------------------------------------------------------------------

TEST_F(Complaint, StopAtAnyTurnLosesNothing) {
  const bool mounted = world.mountSecond();
  const std::vector<std::string> names = {"a", "b", "c", "d", "e"};
  for (const std::string& target : mounted ? std::vector<std::string>{"C:", "D:"} : std::vector<std::string>{"C:"})
    for (const char* dialog : {"Form3", "Form5", "Form4"})
      for (int stopTurn = 1; stopTurn <= 5; ++stopTurn) {
        SCOPED_TRACE(target + dialog + std::to_string(stopTurn));
        fs::remove_all(world.system(target + "/To"));
        world.folder(target + "/To");
        for (const std::string& name : names)
          world.file("C:/From/" + name, pattern(5000, static_cast<unsigned char>(name[0])));
        const TreeSnapshot before = world.tree("C:/From");
        User& user = this->user();
        user.open("C:\\From", target + "\\To");
        user.markAll();
        user.starts(dialog);
        const bool deleting = dialog == std::string("Form4");
        if (deleting) user.answers("Form11", "Command11");
        user.isTold();
        int turns = 0;
        user.rig.loop.onTurn = [&] {
          auto* form = user.rig.loop.form(dialog);
          if (dynamic_cast<fileops::OperationForm&>(*form).isRunning() && ++turns == stopTurn)
            dynamic_cast<controls::Button*>(form->control("Command1"))->press();
        };
        deleting ? user.deletes() : dialog == std::string("Form3") ? user.copies() : user.moves();
        user.rig.loop.onTurn = {};
        const TreeSnapshot from = world.tree("C:/From"), to = world.tree(target + "/To");
        for (const auto& [name, facts] : before) {
          EXPECT_TRUE(deleting || from.contains(name) || to.contains(name)) << name;
          EXPECT_TRUE(!from.contains(name) || from.at(name) == facts) << name;
          EXPECT_TRUE(!to.contains(name) || to.at(name) == facts) << name;
        }
        // A copy stops behind its item, the others in front of theirs.
        if (deleting) {
          EXPECT_EQ(from.size(), 6u - static_cast<unsigned>(stopTurn));
        }
        EXPECT_TRUE(world.temporary(target + "/To").empty());
      }
}

TEST_F(Complaint, CancelAndCloseInEachDialogChangesNothing) {
  world.file("C:/From/a", "new")
      .file("C:/To/a", "old", 900'000'000)
      .file("C:/From/Sub/x", "x")
      .file("C:/To/Sub/y", "y");
  User& user = this->user();
  protect(user, {"C:\\To\\a"});
  const TreeSnapshot before = world.all();
  const auto cancel = [&](const std::string& row, const std::vector<std::string>& dialogs, void (User::*run)()) {
    for (const bool closes : {false, true}) {
      SCOPED_TRACE(row + dialogs.back() + (closes ? " closed" : ""));
      user.open("C:\\From", "C:\\To");
      user.mark({row});
      for (std::size_t at = 0; at + 1 < dialogs.size(); ++at)
        user.answers(dialogs[at], "Command11");
      const bool isOperation = dialogs.size() == 1;
      auto& last = user.rig.loop.whenShows(dialogs.back());
      if (closes)
        last.closes();
      else
        last.press(isOperation || dialogs.back() == "Form7" ? "Command2"
                   : dialogs.back() == "Form10"             ? "Command3"
                                                            : "Command1");
      (user.*run)();
      EXPECT_EQ(difference(before, world.all()), "");
    }
  };
  cancel("a", {"Form3"}, &User::copies);
  cancel("a", {"Form3", "Form7"}, &User::copies);
  cancel("a", {"Form3", "Form7", "Form10"}, &User::copies);
  cancel("Sub", {"Form3", "Form11"}, &User::copies);
  cancel("a", {"Form5"}, &User::moves);
  cancel("a", {"Form4"}, &User::deletes);
  cancel("a", {"Form4", "Form11"}, &User::deletes);
  cancel("Sub", {"Form4", "Form11", "Form11"}, &User::deletes);
}

// --- "I said All once, and it went on with all sorts of things"
// --------------------------------------------------------

class AllAnswer : public Complaint {
 protected:
  void SetUp() override {
    Complaint::SetUp();
    for (const char* name : {"a", "b", "Sub/x"})
      world.file("C:/From/" + std::string(name), "new").file("C:/To/" + std::string(name), "old", 900'000'000);
  }
  /// Nothing of an earlier answer holds: each question comes, and with each refused all is as it was.
  void expectAllIsAskedAgain(User& user) {
    protect(user, {"C:\\To\\a", "C:\\From\\b"});
    const TreeSnapshot before = world.all();
    user.open("C:\\From", "C:\\To");
    user.mark({"a", "b", "Sub"});
    user.starts("Form3");
    user.answers("Form7", "Command1");   // b
    user.answers("Form7", "Command11");  // a,
    user.answers("Form10", "Command2");  // which is read-only
    user.answers("Form11", "Command1");  // Sub
    user.copies();
    EXPECT_EQ(difference(before, world.all()), "");
    user.open("C:\\From", "C:\\To");
    user.mark({"b", "Sub"});
    user.starts("Form4");
    user.answers("Form11", "Command11");
    user.answers("Form10", "Command2");  // b
    user.answers("Form11", "Command1");  // Sub
    user.deletes();
    EXPECT_EQ(difference(before, world.all()), "");
  }
};

TEST_F(AllAnswer, ToOverwriteAnswersNothingElse) {
  for (const char* all : {"Command6", "Command3"}) {
    SCOPED_TRACE(all);
    SetUp();
    User& user = this->user();
    user.open("C:\\From", "C:\\To");
    user.mark({"a", "b", "Sub"});
    user.starts("Form3");
    user.answers("Form7", all);
    user.answers("Form11", "Command1");  // the folder is asked about all the same
    user.copies();
    EXPECT_EQ(bytes("C:/To/a") + bytes("C:/To/b") + bytes("C:/To/Sub/x"), "newnewold");
    expectAllIsAskedAgain(user);
  }
}

TEST_F(AllAnswer, EndsWithAnOperationThatIsStopped) {
  User& user = this->user();
  user.open("C:\\From", "C:\\To");
  user.mark({"a", "b", "Sub"});
  user.starts("Form3");
  user.answers("Form7", "Command6");
  user.isTold();
  user.rig.loop.onTurn = [&] { user.ops().Form3.StopFlag = true; };
  user.copies();
  user.rig.loop.onTurn = {};
  EXPECT_EQ(bytes("C:/To/b") + bytes("C:/To/a"), "newold");
  expectAllIsAskedAgain(user);
}

TEST_F(AllAnswer, EndsWithAnOperationThatFails) {
  User& user = this->user();
  for (const char* name : {"C:/From/c", "C:/To/c"})
    world.file(name, "c");
  user.open("C:\\From", "C:\\To");
  user.mark({"a", "c"});
  fs::remove(world.system("C:/From/a"));
  fs::remove(world.system("C:/To/a"));
  user.starts("Form3");
  user.answers("Form7", "Command6");
  user.answers("Form11", "Command1");  // a did not arrive
  user.copies();
  SetUp();
  expectAllIsAskedAgain(user);
}

TEST_F(AllAnswer, ToAttributesAnswersNothingElse) {
  User& user = this->user();
  protect(user, {"C:\\To\\a", "C:\\To\\b"});
  user.open("C:\\From", "C:\\To");
  user.mark({"a", "b", "Sub"});
  user.starts("Form3");
  user.answers("Form7", "Command11");
  user.answers("Form10", "Command1");  // b: all of them
  user.answers("Form7", "Command1");   // a is asked about, and skipped
  user.answers("Form11", "Command1");
  user.copies();
  EXPECT_EQ(bytes("C:/To/b") + bytes("C:/To/a") + bytes("C:/To/Sub/x"), "newoldold");
  SetUp();
  expectAllIsAskedAgain(user);
}

TEST_F(AllAnswer, ToFoldersOfADeleteAnswersNothingElse) {
  world.file("C:/From/Other/y", "y").file("C:/From/Third/z", "z");
  User& user = this->user();
  protect(user, {"C:\\From\\a"});
  user.open("C:\\From", "C:\\To");
  user.mark({"a", "Sub", "Other", "Third"});
  user.starts("Form4");
  user.answers("Form11", "Command11");
  user.answers("Form10", "Command2");  // a keeps to its own question
  user.answers("Form11", "Command2");  // Third, and all folders
  user.deletes();
  EXPECT_TRUE(world.has("C:/From/a"));
  EXPECT_FALSE(world.has("C:/From/Sub") || world.has("C:/From/Other") || world.has("C:/From/Third"));
  SetUp();
  expectAllIsAskedAgain(user);
}

TEST_F(AllAnswer, ToAttributesOfADeleteAnswersNothingElse) {
  User& user = this->user();
  protect(user, {"C:\\From\\a", "C:\\From\\b"});
  user.open("C:\\From", "C:\\To");
  user.mark({"a", "b", "Sub"});
  user.starts("Form4");
  user.answers("Form11", "Command11");
  user.answers("Form10", "Command1");  // b, and all of them
  user.answers("Form11", "Command1");  // Sub is asked about
  user.deletes();
  EXPECT_EQ(
      difference({{"Sub", world.facts("C:/From/Sub")}, {"Sub/x", world.facts("C:/From/Sub/x")}}, world.tree("C:/From")),
      "! Sub\n");
  SetUp();
  expectAllIsAskedAgain(user);
}

// --- "I confirmed one file, and it deleted another"
// --------------------------------------------------------------------

class OtherRow : public Complaint {
 protected:
  void SetUp() override {
    Complaint::SetUp();
    for (const char* name : {"b", "d", "f"})
      world.file("C:/From/" + std::string(name), name).file("C:/Elsewhere/" + std::string(name), "elsewhere");
  }
  using Happening = std::function<void(User&)>;
  /// What can happen to the rows between the choice and the button.
  std::vector<std::pair<const char*, Happening>> relistings() {
    const auto renewed = [this](User& user) {
      world.file("C:/From/a", "a").file("C:/From/c", "c").file("C:/From/A folder/x", "x");
      user.rig.app().listing.filedir(user.left());
    };
    return {
        {"listed anew with more rows", renewed},
        {"cleared and listed anew", [](User& user) { user.rig.app().listing.ViewClearItems(user.left()); }},
        {"sorted by date", [](User& user) { user.rig.app().listing.ColumnClick(user.left(), 4); }},
        {"sorted downwards", [](User& user) { user.rig.app().listing.ColumnClick(user.left(), 1); }},
        {"refreshed", [](User& user) { user.rig.app().listing.viewrefresh(); }},
        {"both sides updated", [](User& user) { user.rig.app().listing.UpdateBothViews(); }},
        {"the focus elsewhere", [](User& user) { user.left().list.focusRow(0); }},
    };
  }
  std::set<std::string> left() const {
    std::set<std::string> names;
    for (const auto& [name, facts] : world.tree("C:/From"))
      names.insert(name);
    return names;
  }
};

TEST_F(OtherRow, WhileTheConfirmationIsOpenHitsTheChosenFiles) {
  for (const auto& [what, happens] : relistings()) {
    SCOPED_TRACE(what);
    SetUp();
    User& user = this->user();
    user.open("C:\\From", "C:\\To");
    user.mark({"b", "d"});
    user.rig.loop.whenShows("Form4").run([&, happens](controls::Form&) { happens(user); }).press("Command11");
    user.rig.loop.whenShows("Form11").run([&, happens](controls::Form&) { happens(user); }).press("Command11");
    user.deletes();
    std::set<std::string> expected = {"f"};
    if (what == std::string("listed anew with more rows")) expected.insert({"a", "c", "A folder", "A folder/x"});
    // A refresh forgets what was chosen, and then nothing is deleted.
    if (what == std::string("refreshed")) expected.insert({"b", "d"});
    EXPECT_EQ(left(), expected);
    fs::remove_all(world.system("C:/From"));
  }
}

/// Rows that are gone may take the selection with them, but never hand it on.
TEST_F(OtherRow, BetweenTheChoiceAndTheCommandHitsNoOther) {
  for (const auto& [what, happens] : relistings()) {
    SCOPED_TRACE(what);
    SetUp();
    User& user = this->user();
    user.open("C:\\From", "C:\\To");
    user.mark({"d"});
    happens(user);
    std::set<std::string> before = left();
    const auto selected = user.left().list.selectedIds();
    if (selected.empty()) {
      user.rig.loop.whenShows("Form13").closes();  // nothing is selected
    } else {
      user.starts("Form4");
      user.answers("Form11", "Command11");
      before.erase("d");
    }
    user.deletes();
    EXPECT_EQ(left(), before);
    fs::remove_all(world.system("C:/From"));
  }
}

/// Names mean other files in another folder.
TEST_F(OtherRow, APanelThatGoesElsewhereEndsIt) {
  const auto goesElsewhere = [](User& user) { return user.rig.app().navigation.goTo(user.left(), "C:\\Elsewhere"); };
  User& user = this->user();
  const TreeSnapshot before = world.all();
  for (const char* dialog : {"Form3", "Form5", "Form4"}) {
    SCOPED_TRACE(dialog);
    user.open("C:\\From", "C:\\To");
    user.mark({"b", "d"});
    const bool deleting = dialog == std::string("Form4");
    user.rig.loop.whenShows(dialog).run([&](controls::Form&) { EXPECT_TRUE(goesElsewhere(user)); }).press("Command11");
    if (deleting) user.answers("Form11", "Command11");
    deleting ? user.deletes() : dialog == std::string("Form3") ? user.copies() : user.moves();
    EXPECT_EQ(difference(before, world.all()), "");
  }
}

}  // namespace
}  // namespace varnholt::test

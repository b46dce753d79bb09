#include "operation_test.hpp"
#include "support/windows_program.hpp"

namespace varnholt::fileops {
namespace {

using platform::Date;

class OverwriteTest : public OperationTest {
 protected:
  void pairs(const Names& names, int sourceYear = 2010) {
    for (const std::string& name : names) {
      rig.write("C:\\From\\" + name, "new " + name);
      rig.write("C:\\To\\" + name, "old " + name);
      rig.setDate("C:\\From\\" + name, sourceYear, 5, 6);
      rig.setDate("C:\\To\\" + name, 2010, 5, 6);
    }
  }
  /// The names in the target whose files are new.
  std::set<std::string> replaced() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(rig.systemPath("C:\\To"))) {
      const std::string name = entry.path().filename();
      if (entry.is_regular_file() && rig.read("C:\\To\\" + name).starts_with("new ")) names.insert(name);
    }
    return names;
  }
  void age(const std::string& path, std::int64_t seconds) {
    Date date = files().info(path)->modified;
    date.seconds += seconds;
    ASSERT_TRUE(files().setModified(path, date));
  }
  using Set = std::set<std::string>;
};

TEST_F(OverwriteTest, TheQuestionComparesBothFiles) {
  pairs({"a.txt"}, 2012);
  rig.write("C:\\From\\a.txt", std::string(1234, 'x'));
  rig.setDate("C:\\From\\a.txt", 2012, 5, 6);
  rig.loop.meets({{"Form3"}});
  rig.loop.whenShows("Form7")
      .reads({"Caption|Overwrite Warning !, - Files Not Equal !", "Label1|Source FileName:     a.txt",
              "Label2|Date L.m: 06-05-12  12:00   Size: 1,234   Version: NA",
              "Label3|Target FileName:     C:\\To\\a.txt", "Label4|Date L.m: 06-05-10  12:00   Size: 9   Version: NA"})
      .run([&](controls::Form&) { EXPECT_TRUE(ops().Form7.Command4.Enabled); })
      .press("Command1");
  select({"a"});
  rig.command("Command1_Click");
  pairs({"a.txt"});
  age("C:\\To\\a.txt", 2);
  rig.app().program.init.DateTimeFormat = "1";
  select({"a"});
  rig.loop.meets({{"Form3"}});
  rig.loop.whenShows("Form7")
      .reads({"Caption|Overwrite Warning !, - Files Equal !",
              "Label2|Date L.m: 05-06-10  12:00 PM   Size: 9   Version: NA"})
      .press("Command2");
  rig.command("Command1_Click");
  const std::string deep = "C:\\" + std::string(40, 'd'),
                    label = "Target FileName:     ..." + std::string(34, 'd') + "\\a.txt";
  rig.write(deep + "\\a.txt");
  select({"a"}, {.to = deep});
  rig.loop.meets({{"Form3"}});
  rig.loop.whenShows("Form7").reads("Label3", label).press("Command2");
  rig.command("Command1_Click");
}

TEST_F(OverwriteTest, ThisOneSkipAndCancelHoldForOneItem) {
  pairs({"a", "b", "c", "d"});
  copy({"a", "b", "c", "d"}, {existing(ThisOne, "d"), existing(Skip, "c"), existing(Cancel, "b")});
  EXPECT_EQ(replaced(), Set{"d"});
  EXPECT_EQ(ops().Form7.OverwriteAnswer, Overwrite::None);
  EXPECT_EQ(ops().Copy.tally().BytesDone, 5);  // of "d" alone
}

// The user said All once, and it went on with all sorts of things.
TEST_F(OverwriteTest, AllAnswersNothingElseAndEndsWithItsOperationHoweverThatEnds) {
  const Names everything = {"a", "b", "\\ Sub"};
  const auto stops = [&] { ops().Form3.StopFlag = true; };
  const auto takesAway = [&] {
    for (const char* path : {"C:\\From\\a", "C:\\To\\a"})
      ASSERT_TRUE(files().deleteFile(path, true));
  };
  constexpr bool copies = false, removes = true;
  const std::tuple<const char*, bool, Names, Names, Answers> cases[] = {
      {"all", copies, {}, everything, {existing(All), no()}},
      {"all older", copies, {}, everything, {existing(AllOlder), no()}},
      {"all, and stopped", copies, {}, {"a", "b"}, {{"Form7", All, "", stops}, told()}},
      {"all, and failed", copies, {}, {"a", "b"}, {{"Form7", All, "", takesAway}, no()}},
      {"all protected targets",
       copies,
       {"To\\a", "To\\b"},
       everything,
       {existing(ThisOne), isProtected(AnywayAll), existing(Skip), no()}},
      {"all folders of a delete",
       removes,
       {"From\\a"},
       {"a", "\\ Other", "\\ Sub"},
       {isProtected(SkipIt), {"Form11", "Command2"}}},
      {"all protected files of a delete", removes, {"From\\a", "From\\b"}, everything, {isProtected(AnywayAll), no()}}};
  for (const auto& [what, deletes, locked, rows, answers] : cases) {
    SCOPED_TRACE(what);
    const auto fresh = [&] {
      for (const char* folder : {"C:\\From", "C:\\To"})
        std::filesystem::remove_all(rig.systemPath(folder));
      pairs({"a", "b", "Sub\\x", "Other\\y"}, 2012);
    };
    fresh();
    for (const std::string& name : locked)
      protect("C:\\" + name);
    deletes ? remove(rows, answers) : copy(rows, answers);
    fresh();
    protect("C:\\To\\a"), protect("C:\\From\\b");
    copy(everything, {existing(Skip, "b"), existing(ThisOne, "a"), isProtected(SkipIt), no()});
    remove({"b", "\\ Sub"}, {isProtected(SkipIt), no()});
    EXPECT_EQ(replaced(), Set{});
    EXPECT_TRUE(rig.exists("C:\\From\\b") && rig.exists("C:\\From\\Sub\\x"));
  }
}

TEST_F(OverwriteTest, AllOlderTakesWhatIsNewerByMoreThanTwoSeconds) {
  pairs({"2s", "3s", "older", "z"});
  age("C:\\From\\2s", 2);
  age("C:\\From\\3s", 3);
  age("C:\\From\\older", -100);
  age("C:\\From\\z", 100);
  copy({"2s", "3s", "older", "z"}, {existing(AllOlder)});
  EXPECT_EQ(replaced(), (Set{"3s", "z"}));
  EXPECT_EQ(ops().Copy.tally().BytesDone, 6 + 6 + 9 + 5) << "what was left out counts as done";
}

TEST_F(OverwriteTest, VersionsThatDifferAreAskedAbout) {
  rig.write("C:\\From\\p.exe", test::windowsProgram(false, 0x00010002, 0));
  rig.write("C:\\To\\p.exe", test::windowsProgram(false, 0x00010000, 0));
  const std::string question = "File Versions Differ !\rSource File:  p.exe  1.2.0.0\rTarget File:  p.exe  1.0.0.0\r"
                               "Still Want To OverWrite ?";
  const std::string before = rig.read("C:\\To\\p.exe");
  for (const bool agrees : {false, true}) {
    copy({"p"}, {existing(All), agrees ? yes(question) : no(question)});
    EXPECT_EQ(rig.read("C:\\To\\p.exe") == before, !agrees);
    EXPECT_EQ(ops().Copy.tally().BytesDone, static_cast<double>(before.size()));
  }
  // Overwriting one item makes no version test.
  rig.write("C:\\To\\p.exe", before);
  copy({"p"}, {existing(ThisOne)});
  EXPECT_NE(rig.read("C:\\To\\p.exe"), before);
}

TEST_F(OverwriteTest, ProtectedTargetsAreAskedAboutByTheirAttributes) {
  // The words of the question; empty: none is asked.
  for (const auto text :
       test::Rows{"1|Readonly", "33|Readonly", "2|Hidden", "34|Hidden", "4|System File", "36|System File",
                  "3|Readonly and Hidden", "35|Readonly and Hidden", "7|Readonly,Hidden and SystemFile",
                  "39|Readonly,Hidden and SystemFile", "38|Archive,Hidden and SystemFile", "6|", "5|", "32|"}) {
    const auto attributes = static_cast<platform::Attributes>(std::stoul(test::Row(text).first));
    const std::string marks = test::Row(text).second;
    pairs({"a"});
    protect("C:\\To\\a", attributes);
    Answers answers{existing(ThisOne)};
    const std::string words = "Current File:  a\r Are marked:  " + marks + "\rPlease use Command Options !";
    if (!marks.empty()) answers.push_back(isProtected(Anyway, words));
    // A value that is not listed goes unasked, and then the copy fails.
    const bool copies = !marks.empty() || attributes == 32;
    if (!copies) answers.push_back(told());
    copy({"a"}, answers);
    EXPECT_EQ(replaced().contains("a"), copies) << attributes;
    ASSERT_TRUE(files().deleteFile("C:\\To\\a", true));
  }
}

TEST_F(OverwriteTest, AnswersAboutAttributes) {
  const Names names = {"a", "b", "c", "d", "e"};
  pairs(names);
  for (const std::string& name : names)
    protect("C:\\To\\" + name);
  const auto again = existing(ThisOne);
  // "Cancel all" keeps only the item in hand from being copied.
  copy(names, {again, isProtected(SkipIt), again, isProtected(CancelAll), again, isProtected(AnywayAll), again, again});
  EXPECT_EQ(replaced(), (Set{"a", "b", "c"}));
  EXPECT_EQ(ops().Form10.AttrAnswer, AttributeAnswer::None);
}

TEST_F(OverwriteTest, ATargetThatWasNotRenamedAfterAllStays) {
  pairs({"a"});
  ops().policy.renameTarget = [](const std::string&, const std::string&) { return true; };
  copy({"a"}, {existing(RenameIt), told()});
  EXPECT_EQ(replaced(), Set{});
}

TEST_F(OverwriteTest, CancelAndTheCloseBoxOfEachDialogChangeNothing) {
  pairs({"a", "b", "Sub\\x"});
  protect("C:\\To\\a");
  const test::Answer copies{"Form3"}, moves{"Form5"}, deletes{"Form4"};
  const struct {
    const char *handler, *cancel;  ///< the button in the last dialog
    Names rows;
    Answers dialogs;
  } cases[] = {{"Command1_Click", "Command2", {"a"}, {copies}},
               {"Command1_Click", Cancel, {"a", "b"}, {copies, existing(Cancel)}},
               {"Command1_Click", CancelAll, {"a"}, {copies, existing(ThisOne), isProtected(CancelAll)}},
               {"Command1_Click", "Command1", {"\\ Sub"}, {copies, no()}},
               {"Command3_Click", "Command2", {"a"}, {moves}},
               {"Command4_Click", "Command2", {"a"}, {deletes}},
               {"Command4_Click", "Command1", {"\\ Sub"}, {deletes, yes(), no()}}};
  for (const auto& each : cases)
    for (const char* button : {each.cancel, ""}) {
      select(each.rows);
      Answers dialogs = each.dialogs;
      dialogs.back().button = button;
      start(each.handler, dialogs, {});
      EXPECT_EQ(replaced(), Set{}) << each.handler << dialogs.back().dialog << button;
      EXPECT_TRUE(rig.exists("C:\\From\\a") && rig.exists("C:\\From\\Sub\\x"));
      EXPECT_EQ(rig.read("C:\\To\\Sub\\x"), "old Sub\\x");
    }
}

}  // namespace
}  // namespace varnholt::fileops

// What becomes of a target that exists: the question, its six answers, attributes, versions, dates.
#include "operation_test.hpp"

#include "support/windows_program.hpp"

namespace varnholt::fileops {
namespace {

using platform::Date;

TEST(NotNewer, TwoSecondsAreNoDifference) {
  struct Case {
    Date first, second;
    bool notNewer;
  };
  for (const Case& each :
       {Case{{100, 0}, {102, 0}, true}, Case{{100, 0}, {103, 0}, false}, Case{{100, 0}, {100, 0}, true},
        Case{{500, 0}, {100, 0}, true}, Case{{100, 999'999'999}, {102, 999'999'999}, true}})
    EXPECT_EQ(NotNewer(each.first, each.second), each.notNewer) << each.second.seconds;
}

class OverwriteTest : public OperationTest {
 protected:
  void pair(const std::string& name, int sourceYear = 2010, int targetYear = 2010) {
    rig.write("C:\\From\\" + name, "new " + name);
    rig.write("C:\\To\\" + name, "old " + name);
    rig.setDate("C:\\From\\" + name, sourceYear, 5, 6);
    rig.setDate("C:\\To\\" + name, targetYear, 5, 6);
  }
  bool replaced(const std::string& name) { return rig.read("C:\\To\\" + name) == "new " + name; }
  void age(const std::string& path, std::int64_t seconds) {
    Date date = files().info(path)->modified;
    date.seconds += seconds;
    ASSERT_TRUE(files().setModified(path, date));
  }
  void protect(const std::string& path, platform::Attributes attributes) {
    ASSERT_TRUE(files().setAttributes(path, attributes));
  }
};

TEST_F(OverwriteTest, TheQuestionComparesBothFiles) {
  pair("a.txt", 2012, 2010);
  rig.write("C:\\From\\a.txt", std::string(1234, 'x'));
  rig.setDate("C:\\From\\a.txt", 2012, 5, 6);
  select({"a"});
  starts("Form3");
  rig.loop.whenShows("Form7")
      .reads("Caption", "Overwrite Warning !, - Files Not Equal !")
      .reads("Label1", "Source FileName:     a.txt")
      .reads("Label2", "Date L.m: 06-05-12  12:00   Size: 1,234   Version: NA")
      .reads("Label3", "Target FileName:     C:\\To\\a.txt")
      .reads("Label4", "Date L.m: 06-05-10  12:00   Size: 9   Version: NA")
      .run([&](controls::Form&) { EXPECT_TRUE(ops().Form7.Command4.Enabled); })
      .press("Command1");
  rig.command("Command1_Click");

  pair("a.txt");
  age("C:\\To\\a.txt", 2);
  rig.app().program.init.DateTimeFormat = "1";
  select({"a"});
  starts("Form3");
  rig.loop.whenShows("Form7")
      .reads("Caption", "Overwrite Warning !, - Files Equal !")
      .reads("Label2", "Date L.m: 05-06-10  12:00 PM   Size: 9   Version: NA")
      .press("Command2");
  rig.command("Command1_Click");
  const std::string deep = "C:\\" + std::string(40, 'd');
  rig.write(deep + "\\a.txt");
  select({"a"}, "C:\\From", deep);
  starts("Form3");
  rig.loop.whenShows("Form7")
      .reads("Label3", "Target FileName:     ..." + std::string(34, 'd') + "\\a.txt")
      .press("Command2");
  rig.command("Command1_Click");
}

TEST_F(OverwriteTest, ThisOneSkipAndCancelHoldForOneItem) {
  for (const char* name : {"a", "b", "c", "d"})
    pair(name);
  select({"a", "b", "c", "d"});
  starts("Form3");
  rig.loop.whenShows("Form7").reads("Label1", "Source FileName:     d").press("Command11");
  rig.loop.whenShows("Form7").reads("Label1", "Source FileName:     c").press("Command1");
  rig.loop.whenShows("Form7").reads("Label1", "Source FileName:     b").press("Command2");
  rig.command("Command1_Click");
  EXPECT_TRUE(replaced("d"));
  EXPECT_FALSE(replaced("c"));
  EXPECT_FALSE(replaced("b"));
  EXPECT_FALSE(replaced("a"));
  EXPECT_EQ(ops().Form7.OverwriteAnswer, Overwrite::None);
  EXPECT_EQ(ops().Copy.tally().BytesDone, 5);  // of "d" alone
}

TEST_F(OverwriteTest, AllHoldsForTheRestAndForNoOtherOperation) {
  for (const char* name : {"a", "b", "c"})
    pair(name);
  protect("C:\\To\\a", platform::attribute::ReadOnly);
  select({"a", "b", "c"});
  starts("Form3");
  rig.loop.whenShows("Form7").press("Command6");
  rig.command("Command1_Click");
  EXPECT_TRUE(replaced("a") && replaced("b") && replaced("c"));
  pair("a");
  select({"a"});
  starts("Form3");
  rig.loop.whenShows("Form7").press("Command1");
  rig.command("Command1_Click");
  EXPECT_FALSE(replaced("a"));
}

TEST_F(OverwriteTest, AllOlderTakesWhatIsNewerByMoreThanTwoSeconds) {
  for (const char* name : {"2s", "3s", "older", "z"})
    pair(name);
  age("C:\\From\\2s", 2);
  age("C:\\From\\3s", 3);
  age("C:\\From\\older", -100);
  age("C:\\From\\z", 100);
  select({"2s", "3s", "older", "z"});
  starts("Form3");
  rig.loop.whenShows("Form7").press("Command3");
  rig.command("Command1_Click");
  EXPECT_FALSE(replaced("2s"));
  EXPECT_TRUE(replaced("3s"));
  EXPECT_FALSE(replaced("older"));
  EXPECT_TRUE(replaced("z"));
  // What was left out counts as done.
  EXPECT_EQ(ops().Copy.tally().BytesDone, 6 + 6 + 9 + 5);
}

TEST_F(OverwriteTest, VersionsThatDifferAreAskedAbout) {
  rig.write("C:\\From\\p.exe", test::windowsProgram(false, 0x00010002, 0));
  rig.write("C:\\To\\p.exe", test::windowsProgram(false, 0x00010000, 0));
  const std::string question = "File Versions Differ !\rSource File:  p.exe  1.2.0.0\rTarget File:  p.exe  1.0.0.0\r"
                               "Still Want To OverWrite ?";
  const std::string before = rig.read("C:\\To\\p.exe");
  for (const bool agrees : {false, true}) {
    select({"p"});
    starts("Form3");
    rig.loop.whenShows("Form7").press("Command6");
    rig.loop.whenShows("Form11").reads("Label1", question).press(agrees ? "Command11" : "Command1");
    rig.command("Command1_Click");
    EXPECT_EQ(rig.read("C:\\To\\p.exe") == before, !agrees);
    EXPECT_EQ(ops().Copy.tally().BytesDone, static_cast<double>(before.size()));
  }
  // Overwriting one item makes no version test.
  rig.write("C:\\To\\p.exe", before);
  select({"p"});
  starts("Form3");
  rig.loop.whenShows("Form7").press("Command11");
  rig.command("Command1_Click");
  EXPECT_NE(rig.read("C:\\To\\p.exe"), before);
}

TEST_F(OverwriteTest, ProtectedTargetsAreAskedAboutByTheirAttributes) {
  struct Case {
    platform::Attributes attributes;
    std::string text;  // empty: no dialog
  };
  for (const Case& each :
       {Case{1, "Readonly"}, Case{33, "Readonly"}, Case{2, "Hidden"}, Case{34, "Hidden"}, Case{4, "System File"},
        Case{36, "System File"}, Case{3, "Readonly and Hidden"}, Case{35, "Readonly and Hidden"},
        Case{7, "Readonly,Hidden and SystemFile"}, Case{39, "Readonly,Hidden and SystemFile"},
        Case{38, "Archive,Hidden and SystemFile"}, Case{6, ""}, Case{5, ""}, Case{32, ""}}) {
    pair("a");
    protect("C:\\To\\a", each.attributes);
    select({"a"});
    starts("Form3");
    rig.loop.whenShows("Form7").press("Command11");
    if (!each.text.empty())
      rig.loop.whenShows("Form10")
          .reads("Label1", "Current File:  a\r Are marked:  " + each.text + "\rPlease use Command Options !")
          .press("Command11");
    // A value that is not listed goes unasked, and then the copy fails.
    const bool copies = !each.text.empty() || each.attributes == 32;
    if (!copies) rig.loop.whenShows("Form12").press("Command11");
    rig.command("Command1_Click");
    EXPECT_EQ(replaced("a"), copies) << each.attributes;
    ASSERT_TRUE(files().deleteFile("C:\\To\\a", true));
  }
}

TEST_F(OverwriteTest, AnswersAboutAttributes) {
  for (const char* name : {"a", "b", "c", "d", "e"}) {
    pair(name);
    protect(std::string("C:\\To\\") + name, platform::attribute::ReadOnly);
  }
  select({"a", "b", "c", "d", "e"});
  starts("Form3");
  rig.loop.whenShows("Form7").press("Command11");
  rig.loop.whenShows("Form10").press("Command2");  // e: skip
  rig.loop.whenShows("Form7").press("Command11");
  rig.loop.whenShows("Form10").press("Command3");  // d: cancel all, which keeps only this item from being copied
  rig.loop.whenShows("Form7").press("Command11");
  rig.loop.whenShows("Form10").press("Command1");  // c: all
  rig.loop.whenShows("Form7").press("Command11");
  rig.loop.whenShows("Form7").press("Command11");
  rig.command("Command1_Click");
  EXPECT_FALSE(replaced("e") || replaced("d"));
  EXPECT_TRUE(replaced("c") && replaced("b") && replaced("a"));
  EXPECT_EQ(ops().Form10.AttrAnswer, AttributeAnswer::None);
}

TEST_F(OverwriteTest, TheTargetIsRenamedOutOfTheWay) {
  pair("a");
  ops().policy.renameTarget = [&](const std::string& folder, const std::string& name) {
    EXPECT_EQ(folder, "C:\\To\\");
    EXPECT_TRUE(files().moveFile(folder + name, folder + "kept"));
    form().CurrentItem = "something else";
    return true;
  };
  select({"a"});
  starts("Form3");
  rig.loop.whenShows("Form7").press("Command4");
  rig.command("Command1_Click");
  EXPECT_TRUE(replaced("a"));
  EXPECT_EQ(rig.read("C:\\To\\kept"), "old a");

  // A rename that the user cancels, and one that fails, leave the target alone.
  for (const bool cancelled : {true, false}) {
    pair("a");
    ops().policy.renameTarget = [&](const std::string&, const std::string&) { return !cancelled; };
    select({"a"});
    starts("Form3");
    rig.loop.whenShows("Form7").press("Command4");
    if (!cancelled) rig.loop.whenShows("Form12").press("Command11");
    rig.command("Command1_Click");
    EXPECT_FALSE(replaced("a"));
  }
}

// The user overwrote links of a config folder, and the files behind them could be written from then on.
TEST_F(OverwriteTest, OverwritingALinkLeavesTheFileBehindItAlone) {
  for (const char* answer : {"Command11", "Command6"}) {
    pair("a");
    rig.write("C:\\Behind\\a", "behind");
    protect("C:\\Behind\\a", platform::attribute::ReadOnly);
    std::filesystem::remove(rig.systemPath("C:\\To\\a"));
    std::filesystem::create_symlink("../Behind/a", rig.systemPath("C:\\To\\a"));
    select({"a"});
    starts("Form3");
    rig.loop.whenShows("Form7").press(answer);
    if (answer == std::string("Command11")) rig.loop.whenShows("Form10").press("Command11");
    rig.command("Command1_Click");
    EXPECT_TRUE(replaced("a"));
    EXPECT_EQ(rig.read("C:\\Behind\\a"), "behind");
    EXPECT_EQ(files().attributes("C:\\Behind\\a").valueOr(0), platform::attribute::ReadOnly);
    ASSERT_TRUE(files().deleteFile("C:\\Behind\\a", true));
  }
}

TEST_F(OverwriteTest, TheCloseBoxIsCancel) {
  pair("a");
  pair("b");
  select({"a", "b"});
  starts("Form3");
  rig.loop.whenShows("Form7").closes();
  rig.command("Command1_Click");
  EXPECT_FALSE(replaced("a") || replaced("b"));
}

TEST_F(OverwriteTest, ARenameAsksWithItsOwnLines) {
  pair("a.txt");
  rig.loop.whenShows("Form7")
      .reads("Label1", "OverWrite File:     a.txt")
      .reads("Label2", "Date:  06-05-10  12:00       Size:  9 Bytes")
      .reads("Label3", "With File:     b.txt")
      .reads("Label4", "Date:  06-05-10  12:00       Size:  10 Bytes")
      .press("Command11");
  rig.write("C:\\From\\b.txt", std::string(10, 'b'));
  rig.setDate("C:\\From\\b.txt", 2010, 5, 6);
  EXPECT_EQ(ops().policy.RenameWarning("C:\\From\\a.txt", "C:\\From\\b.txt"), Overwrite::ThisOne);
  rig.loop.whenShows("Form7")
      .reads("Label1", "With Filename:     a.txt")
      .reads("Label2", "Date:  06-05-10  12:00       size:  9 Bytes")
      .reads("Label3", "As New File:        a.txt")
      .press("Command1");
  EXPECT_EQ(ops().policy.RenameWarning("C:\\From\\a.txt", "C:\\From\\a.txt"), Overwrite::Skip);
}

}  // namespace
}  // namespace varnholt::fileops

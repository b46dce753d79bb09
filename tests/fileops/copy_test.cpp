#include "operation_test.hpp"

namespace varnholt::fileops {
namespace {

using CopyTest = OperationTest;

TEST_F(CopyTest, TheDialogTellsWhatIsSelected) {
  rig.write("C:\\From\\a.txt");
  rig.write("C:\\From\\b.txt");
  rig.makeFolder("C:\\From\\Sub");
  const std::string deep = "C:\\" + std::string(60, 'd');
  rig.makeFolder(deep);

  select({"a"});
  rig.loop.whenShows("Form3")
      .reads("Text1", "a.txt")
      .reads("Text2", "Copy 1 selected File(s) / Folder(s)")
      .reads("Text3", "C:\\To\\")
      .reads("Caption", "Copy Item(s)")
      .run([&](controls::Form&) {
        EXPECT_EQ(form().mode(), "CopyMode");
        EXPECT_EQ(left().list.item(rig.rowOf(left(), "a")).ForeColor(), panels::mark_color::Copy);
        EXPECT_TRUE(ops().Form3.Command11.Enabled);
        EXPECT_FALSE(ops().Form3.Command1.Enabled);
      })
      .press("Command2");
  rig.command("Command1_Click");
  EXPECT_EQ(left().list.item(rig.rowOf(left(), "a")).ForeColor(), controls::NoColor);
  EXPECT_EQ(left().list.selectedCount(), 0u);
  EXPECT_TRUE(form().filecollect.empty());

  select({"\\ Sub"});
  rig.loop.whenShows("Form3").reads("Text1", "Folder:  C:\\From\\Sub").press("Command2");
  rig.command("CopyItems_Click");

  select({"a", "b"}, "C:\\From", deep);
  rig.loop.whenShows("Form3")
      .reads("Text1", "MultiCopy Selected !")
      .reads("Text2", "Copy 2 selected File(s) / Folder(s)")
      .reads("Text3", "..." + std::string(46, 'd') + "\\")
      .press("Command2");
  rig.command("Command1_Click");
  EXPECT_FALSE(rig.exists("C:\\To\\a.txt"));
}

TEST_F(CopyTest, CopiesFilesAndTreesAndListsTheTarget) {
  rig.write("C:\\From\\a.txt", "alpha");
  rig.setDate("C:\\From\\a.txt", 2001, 2, 3);
  rig.write("C:\\From\\Sub\\deep\\b.txt", "beta");
  select({"a", "\\ Sub"});
  std::vector<std::string> captions;
  rig.loop.onTurn = [&] { captions.push_back(ops().Form3.Caption); };
  starts("Form3");
  rig.command("Command1_Click");
  EXPECT_EQ(rig.read("C:\\To\\a.txt"), "alpha");
  EXPECT_EQ(rig.read("C:\\To\\Sub\\deep\\b.txt"), "beta");
  EXPECT_EQ(files().info("C:\\To\\a.txt")->modified, files().info("C:\\From\\a.txt")->modified);
  EXPECT_TRUE(rig.exists("C:\\From\\a.txt"));
  EXPECT_EQ(rig.names(right()), (std::vector<std::string>{"\\ Sub| ", "a|txt"}));
  // Taken from the end of the collection, which is in list order.
  EXPECT_EQ(captions, (std::vector<std::string>{"Copy Item(s), - Processing... 1 => 2 Item(s)",
                                                "Copy Item(s), - Processing... 2 => 2 Item(s)"}));
  EXPECT_EQ(ops().Copy.tally().ItemsDone, 2u);
  EXPECT_EQ(ops().Copy.tally().BytesDone, 9);
  EXPECT_TRUE(left().list.hasFocus());
  EXPECT_FALSE(ops().Form3.isRunning());
  EXPECT_EQ(form().ProgressBar1.Value.get(), 0);
}

TEST_F(CopyTest, WithNothingSelectedItSaysSoAndOpensNothing) {
  rig.write("C:\\From\\a.txt");
  select({});
  rig.loop.whenShows("Form13").reads("Label1", " No Items selected. ! ").closes();
  rig.command("Command1_Click");
  EXPECT_FALSE(rig.app().dispatcher.busy);
}

TEST_F(CopyTest, OntoItselfEndsAtThatItem) {
  rig.write("C:\\From\\a.txt");
  rig.write("C:\\From\\b.txt");
  select({"a", "b"}, "C:\\From", "C:\\From");
  starts("Form3");
  rig.loop.whenShows("Form12").reads("Label1", "Cannot Copy Item to Itself !\r").press("Command11");
  rig.command("Command1_Click");
}

TEST_F(CopyTest, AFolderIntoItselfIsRefusedAndTheOthersAreStillCopied) {
  rig.write("C:\\From\\Data\\inside.txt");
  rig.makeFolder("C:\\From\\Data\\Sub");
  rig.makeFolder("C:\\From\\Data2");
  rig.write("C:\\From\\z.txt", "z");
  const std::string refusal = "Cannot Copy Or Move Item : \r\\C:\\From\\Data\rInto Itself !\r";
  // A target whose name only begins like the source's is refused too.
  for (const char* target : {"C:\\From\\Data", "C:\\From\\Data\\Sub", "C:\\From\\Data2"}) {
    select({"\\ Data"}, "C:\\From", target);
    starts("Form3");
    rig.loop.whenShows("Form12").reads("Label1", refusal).press("Command11");
    rig.command("Command1_Click");
    EXPECT_FALSE(rig.exists(std::string(target) + "\\Data"));
  }
  select({"\\ Data", "z"}, "C:\\From", "C:\\From\\Data\\Sub");
  starts("Form3");
  rig.loop.whenShows("Form12").reads("Label1", refusal).press("Command11");
  rig.command("Command1_Click");
  EXPECT_EQ(rig.read("C:\\From\\Data\\Sub\\z.txt"), "z");

  select({"\\ Data", "z"}, "C:\\From", "C:\\From");
  // The file comes first, from the end of the collection, and ends it all.
  starts("Form3");
  rig.loop.whenShows("Form12").reads("Label1", "Cannot Copy Item to Itself !\r").press("Command11");
  rig.command("Command1_Click");
}

TEST_F(CopyTest, AnExistingFolderIsAskedAboutWhateverAllWasAnswered) {
  rig.write("C:\\From\\Sub\\new.txt", "new");
  rig.write("C:\\To\\Sub\\old.txt", "old");
  rig.write("C:\\From\\a.txt", "new");
  rig.write("C:\\To\\a.txt", "old");
  const std::string question = "Folder:  C:\\To\\Sub\r\rAlready Exist !, OverWrite ?";
  select({"\\ Sub", "a"});
  starts("Form3");
  rig.loop.whenShows("Form7").press("Command6");
  rig.loop.whenShows("Form11").reads("Label1", question).press("Command1");
  rig.command("Command1_Click");
  EXPECT_EQ(rig.read("C:\\To\\a.txt"), "new");
  EXPECT_FALSE(rig.exists("C:\\To\\Sub\\new.txt"));

  select({"\\ Sub"});
  starts("Form3");
  rig.loop.whenShows("Form11").reads("Label1", question).press("Command11");
  rig.command("Command1_Click");
  EXPECT_EQ(rig.read("C:\\To\\Sub\\new.txt"), "new");
  EXPECT_EQ(rig.read("C:\\To\\Sub\\old.txt"), "old");
}

TEST_F(CopyTest, StopTakesEffectBehindTheItem) {
  for (const char* name : {"a", "b", "c"})
    rig.write(std::string("C:\\From\\") + name);
  select({"a", "b", "c"});
  rig.loop.onTurn = [&] { ops().Form3.Command1.press(); };
  starts("Form3");
  rig.loop.whenShows("Form12").reads("Label1", "Copy Process Aborted. !\r").press("Command11");
  rig.command("Command1_Click");
  EXPECT_EQ(rig.names(right()), std::vector<std::string>{"c|"});
  EXPECT_EQ(ops().Form3.Caption.get(), "Copy Item(s)");
  EXPECT_FALSE(ops().Form3.StopFlag);
  EXPECT_FALSE(rig.app().dispatcher.busy);
}

TEST_F(CopyTest, WhileItRunsOnlyStopWorks) {
  rig.write("C:\\From\\a");
  select({"a"});
  rig.loop.onTurn = [&] {
    Form3& dialog = ops().Form3;
    if (!dialog.isRunning()) return;
    for (controls::Button* button : {&dialog.Command11, &dialog.Command2, &dialog.Command3, &dialog.Command4})
      EXPECT_FALSE(button->Enabled) << button->name();
    dialog.closeFromUser();
    EXPECT_TRUE(dialog.Visible);
    rig.command("Command4_Click");
  };
  starts("Form3");
  rig.loop.whenShows("Form12").reads("Label1", "Copy Process Aborted. !\r").press("Command11");
  rig.command("Command1_Click");
  EXPECT_TRUE(rig.exists("C:\\From\\a"));
}

TEST_F(CopyTest, AnItemThatDoesNotArriveIsAskedAbout) {
  for (const bool goOn : {true, false}) {
    rig.write("C:\\From\\b");
    rig.write("C:\\From\\a");
    select({"a", "b"});
    ASSERT_TRUE(files().deleteFile("C:\\From\\b", true));
    starts("Form3");
    rig.loop.whenShows("Form11")
        .reads("Label1", "Varnholt Was Not Able To Create File/Folder On Target !\r"
                         "Unknown Reason, But Media Not Accessable !\rb :  No such file or directory")
        .press(goOn ? "Command11" : "Command1");
    rig.command("Command1_Click");
    EXPECT_EQ(rig.exists("C:\\To\\a"), goOn);
    (void)files().deleteFile("C:\\To\\a", true);
  }
}

TEST_F(CopyTest, TheTargetIsBrowsedForAndThePanelGoesBack) {
  rig.write("C:\\From\\a.txt", "a");
  rig.makeFolder("C:\\Elsewhere");
  struct Case {
    bool onCancel, onExecute, execute;
    std::string shownAfter;
  };
  for (const Case& each : {Case{false, false, true, "C:\\Elsewhere\\"}, Case{false, true, true, "C:\\To\\"},
                           Case{true, false, true, "C:\\Elsewhere\\"}, Case{true, false, false, "C:\\To\\"},
                           Case{false, true, false, "C:\\Elsewhere\\"}}) {
    (void)files().deleteFile("C:\\Elsewhere\\a.txt", true);
    select({"a"});
    rig.loop.whenShows("Form3")
        .press("Command4")
        .reads("Text3", "C:\\Elsewhere\\")
        .press(each.execute ? "Command11" : "Command2");
    rig.loop.whenShows("Form35").run([&](controls::Form&) {
      auto& browser = rig.app().Form35;
      browser.Text1.Text = "C:\\Elsewhere";
      if (each.onCancel) browser.Check1.toggleFromUser();
      if (each.onExecute) browser.Check2.toggleFromUser();
      browser.Command1.press();
    });
    rig.command("Command1_Click");
    EXPECT_EQ(rig.exists("C:\\Elsewhere\\a.txt"), each.execute);
    EXPECT_FALSE(rig.exists("C:\\To\\a.txt"));
    EXPECT_EQ(right().path(), each.shownAfter);
  }
}

TEST_F(CopyTest, DroppedFilesOfAnotherProgramGoWhereTheyAreDropped) {
  rig.write("D:\\drop\\x.txt", "x");
  rig.write("D:\\drop\\tree\\y.txt", "y");
  select({});
  controls::DropEvent event{{"D:\\drop\\x.txt", "D:\\drop\\tree"}, {}, nullptr, false};
  rig.loop.whenShows("Form3").reads("Text1", "MultiCopy Selected !").reads("Text3", "C:\\From\\").press("Command11");
  left().list.OLEDragDrop(event);
  EXPECT_TRUE(event.accepted);
  EXPECT_EQ(rig.read("C:\\From\\x.txt"), "x");
  EXPECT_EQ(rig.read("C:\\From\\tree\\y.txt"), "y");
  EXPECT_TRUE(form().View1Active());
}

}  // namespace
}  // namespace varnholt::fileops

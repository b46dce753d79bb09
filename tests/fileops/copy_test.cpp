#include "operation_test.hpp"

namespace varnholt::fileops {
namespace {

using CopyTest = OperationTest;

TEST_F(CopyTest, TheDialogTellsWhatIsSelected) {
  write({"From\\a.txt", "From\\b.txt"});
  const std::string deep = "C:\\" + std::string(60, 'd');
  for (const std::string& folder : {std::string("C:\\From\\Sub"), deep})
    rig.makeFolder(folder);
  select({"a"});
  const auto color = [&] { return left().list.item(rig.rowOf(left(), "a")).ForeColor(); };
  rig.loop.whenShows("Form3")
      .reads({"Text1|a.txt", "Text2|Copy 1 selected File(s) / Folder(s)", "Text3|C:\\To\\", "Caption|Copy Item(s)"})
      .run([&](controls::Form&) {
        EXPECT_EQ(form().mode(), "CopyMode");
        EXPECT_EQ(color(), panels::mark_color::Copy);
        EXPECT_TRUE(ops().Form3.Command11.Enabled && !ops().Form3.Command1.Enabled);
      })
      .press("Command2");
  rig.command("Command1_Click");
  EXPECT_EQ(color(), controls::NoColor);
  EXPECT_TRUE(form().filecollect.empty() && left().list.selectedIds().empty());
  select({"\\ Sub"});
  rig.loop.whenShows("Form3").reads("Text1", "Folder:  C:\\From\\Sub").press("Command2");
  rig.command("CopyItems_Click");
  select({"a", "b"}, {.to = deep});
  rig.loop.whenShows("Form3")
      .reads("Text1", "MultiCopy Selected !")
      .reads("Text3", "..." + std::string(46, 'd') + "\\")
      .press("Command2");
  rig.command("Command1_Click");
}

TEST_F(CopyTest, CopiesFilesAndTreesAndListsTheTarget) {
  rig.write("C:\\From\\a.txt", "alpha");
  rig.write("C:\\From\\Sub\\deep\\b.txt", "beta");
  Names captions;
  rig.loop.onTurn = [&] { captions.push_back(ops().Form3.Caption); };
  copy({"a", "\\ Sub"});
  EXPECT_EQ(rig.read("C:\\To\\a.txt") + rig.read("C:\\To\\Sub\\deep\\b.txt"), "alphabeta");
  EXPECT_TRUE(rig.exists("C:\\From\\a.txt"));
  EXPECT_EQ(rig.names(right()), (Names{"\\ Sub| ", "a|txt"}));
  // Taken from the end of the collection, which is in list order.
  EXPECT_EQ(captions,
            (Names{"Copy Item(s), - Processing... 1 => 2 Item(s)", "Copy Item(s), - Processing... 2 => 2 Item(s)"}));
  EXPECT_EQ(ops().Copy.tally().ItemsDone, 2u);
  EXPECT_EQ(ops().Copy.tally().BytesDone, 9);
  EXPECT_TRUE(left().list.hasFocus());
  EXPECT_FALSE(ops().Form3.isRunning() || rig.app().dispatcher.busy);
  EXPECT_EQ(form().ProgressBar1.Value.get(), 0);
}

TEST_F(CopyTest, AFolderIntoItselfIsRefusedAndTheOthersAreStillCopied) {
  write({"From\\Data\\inside.txt", "From\\Data\\Sub\\x", "From\\Data2\\x", "From\\z.txt"});
  const auto refused = told("Cannot Copy Or Move Item : \r\\C:\\From\\Data\rInto Itself !");
  // A target whose name only begins like the source's is refused too.
  for (const char* target : {"C:\\From\\Data", "C:\\From\\Data\\Sub", "C:\\From\\Data2"}) {
    copy({"\\ Data", "z"}, {refused}, {.to = target});
    EXPECT_FALSE(rig.exists(std::string(target) + "\\Data"));
    EXPECT_TRUE(rig.exists(std::string(target) + "\\z.txt"));
  }
  // A file comes first, from the end of the collection, and ends it all.
  copy({"\\ Data", "z"}, {told("Cannot Copy Item to Itself !")}, {.to = "C:\\From"});
}

TEST_F(CopyTest, AnExistingFolderIsAskedAboutWhateverAllWasAnswered) {
  for (const char* name : {"Sub\\new.txt", "a.txt"})
    rig.write(std::string("C:\\From\\") + name, "new");
  rig.write("C:\\To\\Sub\\old.txt", "old");
  rig.write("C:\\To\\a.txt", "old");
  const std::string question = "Folder:  C:\\To\\Sub\r\rAlready Exist !, OverWrite ?";
  copy({"\\ Sub", "a"}, {existing(All), no(question)});
  EXPECT_EQ(rig.read("C:\\To\\a.txt"), "new");
  EXPECT_FALSE(rig.exists("C:\\To\\Sub\\new.txt"));
  copy({"\\ Sub"}, {yes(question)});
  EXPECT_EQ(rig.read("C:\\To\\Sub\\new.txt") + rig.read("C:\\To\\Sub\\old.txt"), "newold");
}

TEST_F(CopyTest, WhileItRunsOnlyStopWorksAndTakesEffectBehindTheItem) {
  write({"From\\a", "From\\b", "From\\c"});
  rig.loop.onTurn = [&] {
    Form3& dialog = ops().Form3;
    for (controls::Button* button : {&dialog.Command11, &dialog.Command2, &dialog.Command3, &dialog.Command4})
      EXPECT_FALSE(button->Enabled) << button->name();
    EXPECT_EQ(dialog.cancelButton, dialog.Command2.name()) << "Esc does nothing";
    rig.command("Command4_Click");
    dialog.closeFromUser();  // as Stop
    EXPECT_TRUE(dialog.Visible);
  };
  copy({"a", "b", "c"}, {told("Copy Process Aborted. !")});
  EXPECT_EQ(rig.names(right()), Names{"c|"});
  EXPECT_EQ(left().list.count(), 3u);
  EXPECT_EQ(ops().Form3.Caption.get(), "Copy Item(s)");
  EXPECT_FALSE(ops().Form3.StopFlag || rig.app().dispatcher.busy);
}

TEST_F(CopyTest, AnItemThatDoesNotArriveIsAskedAbout) {
  const std::string question = "Varnholt Was Not Able To Create File/Folder On Target !\r"
                               "Unknown Reason, But Media Not Accessable !\rb :  No such file or directory";
  for (const bool goOn : {true, false}) {
    write({"From\\a", "From\\b"});
    select({"a", "b"});
    ASSERT_TRUE(files().deleteFile("C:\\From\\b", true));
    start("Command1_Click", {{"Form3"}}, {goOn ? yes(question) : no(question)});
    EXPECT_EQ(rig.exists("C:\\To\\a"), goOn);
    (void)files().deleteFile("C:\\To\\a", true);
  }
}

TEST_F(CopyTest, TheTargetIsBrowsedForAndThePanelGoesBack) {
  rig.write("C:\\From\\a.txt", "a");
  rig.makeFolder("C:\\Elsewhere");
  // What is checked, what is done with the copy, and where the panel is then.
  for (const auto& [onCancel, onExecute, execute, shownAfter] : {std::tuple{false, false, true, "C:\\Elsewhere\\"},
                                                                 {false, true, true, "C:\\To\\"},
                                                                 {true, false, true, "C:\\Elsewhere\\"},
                                                                 {true, false, false, "C:\\To\\"},
                                                                 {false, true, false, "C:\\Elsewhere\\"}}) {
    (void)files().deleteFile("C:\\Elsewhere\\a.txt", true);
    select({"a"});
    rig.loop.whenShows("Form3")
        .press("Command4")
        .reads("Text3", "C:\\Elsewhere\\")
        .press(execute ? "Command11" : "Command2");
    auto& browser = rig.app().Form35;
    const auto browses = [&, onCancel = onCancel, onExecute = onExecute] {
      browser.Text1.Text = "C:\\Elsewhere";
      if (onCancel) browser.Check1.toggleFromUser();
      if (onExecute) browser.Check2.toggleFromUser();
    };
    rig.command("Command1_Click", {{"Form35", "Command1", "", browses}});
    EXPECT_EQ(rig.exists("C:\\Elsewhere\\a.txt"), execute);
    EXPECT_FALSE(rig.exists("C:\\To\\a.txt"));
    EXPECT_EQ(right().path(), shownAfter);
  }
}

}  // namespace
}  // namespace varnholt::fileops

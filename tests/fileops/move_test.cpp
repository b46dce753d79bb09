#include "operation_test.hpp"
#include "support/own_mounts.hpp"

namespace varnholt::fileops {
namespace {

class MoveTest : public OperationTest {
 protected:
  void alerts(const std::string& text) { rig.loop.whenShows("Form12").reads("Label1", text + "\r").press("Command11"); }
};

TEST_F(MoveTest, MovesFilesAndFoldersAndListsBothPanels) {
  rig.write("C:\\From\\a.txt", "a");
  rig.write("C:\\From\\Sub\\b.txt", "b");
  rig.write("C:\\From\\stays.txt");
  select({"a", "\\ Sub"});
  starts("Form5");
  rig.command("Command3_Click");
  EXPECT_EQ(rig.names(left()), std::vector<std::string>{"stays|txt"});
  EXPECT_EQ(rig.names(right()), (std::vector<std::string>{"\\ Sub| ", "a|txt"}));
  EXPECT_EQ(rig.read("C:\\To\\Sub\\b.txt"), "b");
  EXPECT_FALSE(rig.exists("C:\\From\\a.txt") || rig.exists("C:\\From\\Sub"));
  EXPECT_FALSE(ops().Form5.MoveRunning);
}

TEST_F(MoveTest, TheDialogTellsWhatIsSelected) {
  rig.write("C:\\From\\a.txt");
  rig.write("C:\\From\\b.txt");
  select({"a", "b"});
  rig.loop.whenShows("Form5")
      .reads("Text1", "MultiMove Selected !")
      .reads("Text2", "Move 2 selected File(s) / Folder(s)")
      .reads("Text3", "C:\\To\\")
      .run([&](controls::Form&) { EXPECT_EQ(form().mode(), "MoveMode"); })
      .press("Command2");
  rig.command("MoveItems_Click");
  EXPECT_TRUE(rig.exists("C:\\From\\a.txt"));
}

TEST_F(MoveTest, NothingIsEverOverwritten) {
  rig.write("C:\\From\\a", "new");
  rig.write("C:\\To\\a", "old");
  rig.write("C:\\From\\z", "z");
  rig.write("C:\\From\\Sub\\new");
  rig.write("C:\\To\\Sub\\old");
  select({"\\ Sub", "a", "z"});
  starts("Form5");
  alerts("File Already exist on Target, - Cannot Move!");
  alerts("Folder Exist on Target, - Cannot Move!");
  rig.command("Command3_Click");
  EXPECT_EQ(rig.read("C:\\From\\a"), "new");
  EXPECT_EQ(rig.read("C:\\To\\a"), "old");
  EXPECT_TRUE(rig.exists("C:\\From\\Sub\\new"));
  EXPECT_FALSE(rig.exists("C:\\To\\Sub\\new"));
  EXPECT_EQ(rig.read("C:\\To\\z"), "z");
}

TEST_F(MoveTest, RefusalsOfFolders) {
  rig.makeFolder("C:\\From\\Data\\Sub");
  rig.write("C:\\From\\z", "z");
  const std::string into = "Cannot Copy Or Move Item : \r\\C:\\From\\Data\rInto Itself !";
  select({"\\ Data", "z"}, "C:\\From", "C:\\From\\Data\\Sub");
  starts("Form5");
  alerts(into);
  rig.command("Command3_Click");
  EXPECT_TRUE(rig.exists("C:\\From\\Data\\Sub\\z"));

  select({"\\ Data"}, "C:\\From", "C:\\From");
  starts("Form5");
  alerts("Cannot Move Folder to Itself !");
  rig.command("Command3_Click");

  rig.write("C:\\From\\y", "y");
  rig.makeFolder("D:\\To");
  select({"\\ Data", "y"}, "C:\\From", "D:\\To");
  starts("Form5");
  alerts("Cannot Move Folder to Another Drive !\rUse Delete after Copy Instead !");
  rig.command("Command3_Click");
  EXPECT_TRUE(rig.exists("C:\\From\\Data"));
  EXPECT_EQ(rig.read("D:\\To\\y"), "y");
  EXPECT_FALSE(rig.exists("C:\\From\\y"));
}

TEST_F(MoveTest, AFolderStaysOnItsVolumeUnderOneLetterToo) {
  const auto mounted = test::ScopedMount::memory(rig.systemPath("C:\\To"));
  if (!mounted) GTEST_SKIP() << "no mounts are permitted here";
  rig.write("C:\\From\\Data\\x", "x");
  rig.write("C:\\From\\y", "y");
  select({"\\ Data", "y"});
  starts("Form5");
  alerts("Cannot Move Folder to Another Drive !\rUse Delete after Copy Instead !");
  rig.command("Command3_Click");
  EXPECT_EQ(rig.names(left()), std::vector<std::string>{"\\ Data| "});
  EXPECT_EQ(rig.read("C:\\From\\Data\\x"), "x");
  EXPECT_EQ(rig.names(right()), std::vector<std::string>{"y|"});
}

TEST_F(MoveTest, StopLeavesTheItemInHandAlone) {
  for (const char* name : {"a", "b", "c"})
    rig.write(std::string("C:\\From\\") + name);
  select({"a", "b", "c"});
  int turns = 0;
  rig.loop.onTurn = [&] {
    if (++turns == 2) ops().Form5.Command1.press();
  };
  starts("Form5");
  alerts("Move Process Aborted. !");
  rig.command("Command3_Click");
  EXPECT_EQ(rig.names(left()), (std::vector<std::string>{"a|", "b|"}));
  EXPECT_EQ(rig.names(right()), std::vector<std::string>{"c|"});
}

TEST_F(MoveTest, AnItemThatDoesNotArriveIsAskedAbout) {
  rig.write("C:\\From\\a");
  rig.write("C:\\From\\b");
  select({"a", "b"});
  ASSERT_TRUE(files().deleteFile("C:\\From\\b", true));
  starts("Form5");
  rig.loop.whenShows("Form11").press("Command1");
  rig.command("Command3_Click");
  EXPECT_TRUE(rig.exists("C:\\From\\a"));
}

TEST_F(MoveTest, AVanishedDriveIsRefusedInFrontOfTheDialog) {
  rig.write("C:\\From\\a");
  rig.makeFolder("D:\\To");
  select({"a"}, "C:\\From", "D:\\To");
  std::filesystem::rename(rig.scratch / "second", rig.scratch / "away");
  alerts("Drive(s) Not ready !\rFunction Exits !");
  rig.command("Command3_Click");
  EXPECT_TRUE(rig.exists("C:\\From\\a"));
  EXPECT_FALSE(rig.app().dispatcher.busy);
}

}  // namespace
}  // namespace varnholt::fileops

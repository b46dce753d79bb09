#include "operation_test.hpp"
#include "support/own_mounts.hpp"

namespace varnholt::fileops {
namespace {

using MoveTest = OperationTest;

const auto ToAnotherDrive = told("Cannot Move Folder to Another Drive !\rUse Delete after Copy Instead !");

TEST_F(MoveTest, MovesFilesAndFoldersAndListsBothPanels) {
  write({"From\\a.txt", "From\\stays.txt", "From\\Sub\\b.txt"});
  select({"a", "\\ Sub"});
  rig.loop.whenShows("Form5")
      .reads("Text1", "MultiMove Selected !")
      .reads("Text2", "Move 2 selected File(s) / Folder(s)")
      .reads("Text3", "C:\\To\\")
      .run([&](controls::Form&) { EXPECT_EQ(form().mode(), "MoveMode"); })
      .press("Command11");
  rig.command("MoveItems_Click");
  EXPECT_EQ(rig.names(left()), Names{"stays|txt"});
  EXPECT_EQ(rig.names(right()), (Names{"\\ Sub| ", "a|txt"}));
  EXPECT_TRUE(rig.exists("C:\\To\\Sub\\b.txt") && !ops().Form5.MoveRunning);
}

TEST_F(MoveTest, NothingIsEverOverwritten) {
  rig.write("C:\\From\\a", "new");
  rig.write("C:\\To\\a", "old");
  write({"From\\z", "From\\Sub\\new", "To\\Sub\\old"});
  move({"\\ Sub", "a", "z"},
       {told("File Already exist on Target, - Cannot Move!"), told("Folder Exist on Target, - Cannot Move!")});
  EXPECT_EQ(rig.read("C:\\From\\a") + rig.read("C:\\To\\a"), "newold");
  EXPECT_TRUE(rig.exists("C:\\From\\Sub\\new") && rig.exists("C:\\To\\z"));
  EXPECT_FALSE(rig.exists("C:\\To\\Sub\\new") || rig.exists("C:\\From\\z"));
}

TEST_F(MoveTest, RefusalsOfFolders) {
  write({"From\\Data\\Sub\\x", "From\\z", "From\\y"});
  rig.makeFolder("D:\\To");
  move({"\\ Data", "z"}, {told("Cannot Copy Or Move Item : \r\\C:\\From\\Data\rInto Itself !")},
       {.to = "C:\\From\\Data\\Sub"});
  EXPECT_TRUE(rig.exists("C:\\From\\Data\\Sub\\z"));
  move({"\\ Data"}, {told("Cannot Move Folder to Itself !")}, {.to = "C:\\From"});
  move({"\\ Data", "y"}, {ToAnotherDrive}, {.to = "D:\\To"});
  EXPECT_TRUE(rig.exists("C:\\From\\Data") && rig.exists("D:\\To\\y"));
  EXPECT_FALSE(rig.exists("C:\\From\\y"));
}

TEST_F(MoveTest, AFolderStaysOnItsVolumeUnderOneLetterToo) {
  const auto mounted = test::ScopedMount::memory(rig.systemPath("C:\\To"));
  if (!mounted) GTEST_SKIP() << "no mounts are permitted here";
  write({"From\\Data\\x", "From\\y"});
  move({"\\ Data", "y"}, {ToAnotherDrive});
  EXPECT_EQ(rig.names(left()), Names{"\\ Data| "});
  EXPECT_TRUE(rig.exists("C:\\From\\Data\\x"));
  EXPECT_EQ(rig.names(right()), Names{"y|"});
}

TEST_F(MoveTest, AVanishedDriveIsRefusedInFrontOfTheDialog) {
  write({"From\\a"});
  rig.makeFolder("D:\\To");
  select({"a"}, {.to = "D:\\To"});
  std::filesystem::rename(rig.scratch / "second", rig.scratch / "away");
  start("Command3_Click", {told("Drive(s) Not ready !\rFunction Exits !")}, {});
  EXPECT_TRUE(rig.exists("C:\\From\\a"));
  EXPECT_FALSE(rig.app().dispatcher.busy);
}

}  // namespace
}  // namespace varnholt::fileops

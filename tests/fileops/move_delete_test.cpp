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
      .reads({"Text1|MultiMove Selected !", "Text2|Move 2 selected File(s) / Folder(s)", "Text3|C:\\To\\"})
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

TEST_F(MoveTest, AVanishedDriveIsRefusedInFrontOfTheDialogAlsoByADelete) {
  write({"From\\a"});
  rig.makeFolder("D:\\To");
  for (const auto& [handler, drive] :
       {std::pair{"Command3_Click", 'D'}, {"Command3_Click", 'C'}, {"Command4_Click", 'C'}}) {
    rig.drives->away = {};
    select({"a"}, {.to = "D:\\To"});
    rig.drives->away = {drive};
    start(handler, {told("Drive(s) Not ready !\rFunction Exits !")}, {});
  }
  EXPECT_TRUE(rig.exists("C:\\From\\a"));
}

class DeleteTest : public OperationTest {
 protected:
  static test::Answer asksFolder(const std::string& folder, const char* button) {
    return {"Form11", button, "Folder is NOT Emty !\rDeleting  " + folder + "\r Subfolders and Files ?"};
  }
};

/// A drive of which every call must be one that windows can wait for.
class SlowDrive : public platform::ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  bool folderExists(const std::string& path) const override { return asked(path), base_.folderExists(path); }
  platform::Result<void> copyFile(const std::string& from, const std::string& to, bool overwrite,
                                  const platform::Progress& progress) override {
    return asked(to), base_.copyFile(from, to, overwrite, progress);
  }
  platform::Result<void> moveFile(const std::string& from, const std::string& to,
                                  const platform::Progress& progress) override {
    return asked(from), base_.moveFile(from, to, progress);
  }
  platform::Result<void> deleteFile(const std::string& path, bool force) override {
    return asked(path), base_.deleteFile(path, force);
  }
  const test::ScriptedLoop* loop = nullptr;

 private:
  void asked(const std::string& path) const {
    EXPECT_TRUE(!loop || loop->blocked > 0 || !path.starts_with("D:")) << path;
  }
};

TEST_F(DeleteTest, ADriveThatDoesNotAnswerHoldsUpNoWindow) {
  use<SlowDrive>().loop = &rig.loop;
  for (const char* file : {"D:\\From\\a.txt", "D:\\From\\b.txt", "D:\\From\\c.txt"})
    rig.write(file);
  rig.makeFolder("D:\\To");
  const Places places{"D:\\From", "D:\\To"};
  copy({"a"}, {}, places);
  move({"b"}, {}, places);
  remove({"c"}, {}, places);
  rig.write("D:\\Tree\\y.txt");
  rig.loop.whenShows("Form3").reads({"Text1|MultiCopy Selected !", "Text3|D:\\From\\"}).press("Command11");
  ops().dropFiles(left(), {"D:\\To\\b.txt", "D:\\Tree"}, false);
  EXPECT_TRUE(rig.exists("D:\\To\\a.txt") && rig.exists("D:\\To\\b.txt") && rig.exists("D:\\From\\b.txt"));
  EXPECT_TRUE(rig.exists("D:\\From\\Tree\\y.txt") && form().View1Active());
  EXPECT_FALSE(rig.exists("D:\\From\\c.txt"));
}

TEST_F(DeleteTest, TheDialogTellsWhereItDeletesAndAnythingButYesDeletesNothing) {
  write({"From\\a.txt", "From\\b.txt"});
  select({"a"});
  rig.loop.whenShows("Form4")
      .reads({"Text2|a.txt", "Text3|C:\\From\\", "Text1|Delete 1 selected File(s) / Folder(s)"})
      .run([&](controls::Form&) {
        EXPECT_EQ(left().list.item(rig.rowOf(left(), "a")).ForeColor(), panels::mark_color::Delete);
      })
      .press("Command3")
      .reads("Label4", "Size of selected Item(s) :  1   Bytes")
      .press("Command2");
  rig.command("Command4_Click");
  const std::string question = "Warning!,- Direct deleting  2 File(s)/Folder(s) ? \rPlease use options ...";
  for (const auto& answer : {no(question), test::Answer{"Form11", "", question}}) {
    select({"a", "b"});
    rig.loop.whenShows("Form4").reads("Text2", "MultiDelete Selected !").press("Command11");
    rig.command("Deleteitems_Click", {answer});
  }
  EXPECT_TRUE(rig.exists("C:\\From\\a.txt") && rig.exists("C:\\From\\b.txt"));
}

TEST_F(DeleteTest, DeletesFilesLinksAndEmptyFoldersWithOneQuestion) {
  write({"From\\a.txt", "From\\b.txt", "From\\z.txt", "Kept\\file"});
  rig.makeFolder("C:\\From\\Empty\\below");
  std::filesystem::create_directory_symlink(rig.systemPath("C:\\Kept"), rig.systemPath("C:\\From\\Link"));
  remove({"a", "\\ Empty", "\\ Link"});
  EXPECT_EQ(rig.names(left()), (Names{"b|txt", "z|txt"}));
  EXPECT_TRUE(rig.exists("C:\\Kept\\file"));
  EXPECT_TRUE(left().list.SelectedItem()) << "the row that follows has the focus";
  EXPECT_TRUE(left().list.hasFocus());
}

TEST_F(DeleteTest, FoldersWithContentsAreAskedAboutUntilAllIsAnswered) {
  write({"From\\F1\\file", "From\\F2\\file", "From\\F3\\file", "From\\F4\\file"});
  const auto allOffered = [&](bool offered, test::Answer answer) {
    answer.before = [this, offered] { EXPECT_EQ(rig.app().dialogs.Form11.Command2.Visible, offered); };
    return answer;
  };
  select({"\\ F1", "\\ F2", "\\ F3", "\\ F4"});
  start("Command4_Click", {{"Form4"}, allOffered(false, yes())},
        {allOffered(true, asksFolder("C:\\From\\F4", "Command1")), asksFolder("C:\\From\\F3", "Command11"),
         asksFolder("C:\\From\\F2", "Command2")});
  EXPECT_EQ(rig.names(left()), Names{"\\ F4| "});
  remove({"\\ F4"}, {asksFolder("C:\\From\\F4", "Command1")});  // the answer does not reach the next operation
  EXPECT_TRUE(rig.exists("C:\\From\\F4\\file"));
}

TEST_F(DeleteTest, AttributesAreAskedAboutAndTheAnswersHold) {
  write({"From\\a", "From\\b", "From\\c", "From\\d", "From\\e", "From\\plain"});
  for (const char* name : {"a", "b", "c", "d", "e"})
    protect(std::string("C:\\From\\") + name);
  remove({"a", "b", "c", "d", "e", "plain"},
         {isProtected(Anyway, "Current File:  e\r Are marked:  Readonly\rPlease use Command Options !"),
          isProtected(SkipIt), isProtected(CancelAll)});
  EXPECT_EQ(rig.names(left()), (Names{"a|", "b|", "c|", "d|"}));
  remove({"a", "b", "c"}, {isProtected(AnywayAll)});
  EXPECT_EQ(rig.names(left()), Names{"d|"});
}

TEST_F(DeleteTest, WhatCannotBeDeletedIsAskedAbout) {
  // A value that is not listed gets no question, and read-only it stays.
  write({"From\\five", "From\\a"});
  protect("C:\\From\\five", 5);
  const std::string question = "Varnholt Was Not Able To Delete File:  \rfive  On Target !"
                               "Unknown Reason, But Media Not Accessable/ReadOnly !";
  remove({"a", "five"}, {no(question)});
  EXPECT_TRUE(rig.exists("C:\\From\\a"));
  remove({"a", "five"}, {yes(question)});
  EXPECT_EQ(rig.names(left()), Names{"five|"});
}

TEST_F(DeleteTest, AConfirmedQuestionLeavesItsDialogWithABarThatTellsOfWork) {
  auto& dialog = rig.app().fileops.Form4;
  for (const bool open : {false, true}) {
    dialog.Visible = open;
    rig.loop.whenShows("Form11").press("Command11");
    EXPECT_TRUE(rig.app().dialogs.AskRetry("Delete ?"));
    EXPECT_EQ(dialog.ProgressBar1.Visible, open);
    EXPECT_EQ(dialog.Label5.Caption.get(), open ? "Processing..." : "");
  }
}

TEST_F(DeleteTest, APanelInADeletedFolderIsLeftOnOneThatExists) {
  write({"From\\Sub\\file"});
  remove({"\\ Sub"}, {asksFolder("C:\\From\\Sub", "Command11")}, {.to = "C:\\From\\Sub"});
  EXPECT_EQ(right().path(), "C:\\From\\");
}

}  // namespace
}  // namespace varnholt::fileops

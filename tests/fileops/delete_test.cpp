#include "operation_test.hpp"
#include "platform/forwarding_file_system.hpp"

namespace varnholt::fileops {
namespace {

class DeleteTest : public OperationTest {
 protected:
  void confirms(int count, const std::string& button = "Command11") {
    rig.loop.whenShows("Form11")
        .reads("Label1",
               "Warning!,- Direct deleting  " + std::to_string(count) + " File(s)/Folder(s) ? \rPlease use options ...")
        .run([&](controls::Form&) { EXPECT_FALSE(rig.app().dialogs.Form11.Command2.Visible); })
        .press(button);
  }
  test::ScriptedLoop::Step& asksFolder(const std::string& folder) {
    return rig.loop.whenShows("Form11")
        .reads("Label1", "Folder is NOT Emty !\rDeleting  " + folder + "\r Subfolders and Files ?")
        .run([&](controls::Form&) { EXPECT_TRUE(rig.app().dialogs.Form11.Command2.Visible); });
  }
  /// Steps are nested: the dialog stays open while its button works.
  void run() { rig.command("Command4_Click"); }
};

/// A drive of which every call must be one that windows can wait for.
class SlowDrive : public platform::ForwardingFileSystem {
 public:
  SlowDrive(platform::FileSystem& base, const test::ScriptedLoop& loop) : ForwardingFileSystem(base), loop_(loop) {}
  platform::Result<platform::EntryInfo> info(const std::string& path) const override {
    return asked(path), base_.info(path);
  }
  bool fileExists(const std::string& path) const override { return asked(path), base_.fileExists(path); }
  bool folderExists(const std::string& path) const override { return asked(path), base_.folderExists(path); }
  platform::Result<std::uint64_t> fileSize(const std::string& path) const override {
    return asked(path), base_.fileSize(path);
  }
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

 private:
  void asked(const std::string& path) const { EXPECT_TRUE(loop_.blocked > 0 || !path.starts_with("D:")) << path; }
  const test::ScriptedLoop& loop_;
};

TEST_F(DeleteTest, ADriveThatDoesNotAnswerHoldsUpNoWindow) {
  rig.useFiles([this](platform::FileSystem& real) { return std::make_unique<SlowDrive>(real, rig.loop); });
  for (const char* file : {"D:\\From\\a.txt", "D:\\From\\b.txt", "D:\\From\\c.txt"})
    rig.write(file);
  rig.makeFolder("D:\\To");
  rig.startLeft();
  select({"a"}, "D:\\From", "D:\\To");
  starts("Form3");
  rig.command("Command1_Click");
  select({"b"}, "D:\\From", "D:\\To");
  starts("Form5");
  rig.command("Command3_Click");
  select({"c"}, "D:\\From", "D:\\To");
  starts("Form4");
  confirms(1);
  run();
  starts("Form3");
  ops().dropFiles(left(), {"D:\\To\\b.txt"}, false);
  EXPECT_TRUE(rig.exists("D:\\To\\a.txt") && rig.exists("D:\\To\\b.txt") && rig.exists("D:\\From\\b.txt"));
  EXPECT_FALSE(rig.exists("D:\\From\\c.txt"));
}

TEST_F(DeleteTest, TheDialogTellsWhereItDeletes) {
  rig.write("C:\\From\\a.txt");
  rig.write("C:\\From\\b.txt");
  select({"a"});
  rig.loop.whenShows("Form4")
      .reads("Text2", "a.txt")
      .reads("Text3", "C:\\From\\")
      .reads("Text1", "Delete 1 selected File(s) / Folder(s)")
      .run([&](controls::Form&) {
        EXPECT_EQ(left().list.item(rig.rowOf(left(), "a")).ForeColor(), panels::mark_color::Delete);
      })
      .press("Command3")
      .reads("Label4", "Size of selected Item(s) :  1   Bytes")
      .press("Command2");
  run();
  select({"a", "b"});
  rig.loop.whenShows("Form4").reads("Text2", "MultiDelete Selected !").press("Command2");
  rig.command("Deleteitems_Click");
  EXPECT_TRUE(rig.exists("C:\\From\\a.txt"));
}

TEST_F(DeleteTest, DeletesFilesAndEmptyFoldersWithOneQuestion) {
  rig.write("C:\\From\\a.txt");
  rig.makeFolder("C:\\From\\Empty\\below");
  rig.write("C:\\From\\b.txt");
  rig.write("C:\\From\\z.txt");
  select({"a", "\\ Empty"});
  starts("Form4");
  confirms(2);
  run();
  EXPECT_EQ(rig.names(left()), (std::vector<std::string>{"b|txt", "z|txt"}));
  // The row that follows has the focus.
  ASSERT_TRUE(left().list.SelectedItem());
  EXPECT_TRUE(left().list.hasFocus());
}

TEST_F(DeleteTest, AnythingButYesDeletesNothing) {
  rig.write("C:\\From\\a.txt");
  select({"a"});
  starts("Form4");
  confirms(1, "Command1");
  run();
  EXPECT_TRUE(rig.exists("C:\\From\\a.txt"));
  select({"a"});
  starts("Form4");
  rig.loop.whenShows("Form11").closes();
  run();
  EXPECT_TRUE(rig.exists("C:\\From\\a.txt"));
}

TEST_F(DeleteTest, FoldersWithContentsAreAskedAboutUntilAllIsAnswered) {
  for (const char* name : {"1", "2", "3", "4"})
    rig.write("C:\\From\\F" + std::string(name) + "\\file");
  select({"\\ F1", "\\ F2", "\\ F3", "\\ F4"});
  starts("Form4");
  confirms(4);
  asksFolder("C:\\From\\F4").press("Command1");
  asksFolder("C:\\From\\F3").press("Command11");
  asksFolder("C:\\From\\F2").press("Command2");
  run();
  EXPECT_EQ(rig.names(left()), std::vector<std::string>{"\\ F4| "});
  // The answer does not reach the next operation.
  select({"\\ F4"});
  starts("Form4");
  confirms(1);
  asksFolder("C:\\From\\F4").press("Command1");
  run();
  EXPECT_TRUE(rig.exists("C:\\From\\F4\\file"));
}

TEST_F(DeleteTest, AttributesAreAskedAboutAndTheAnswersHold) {
  for (const char* name : {"a", "b", "c", "d", "e"}) {
    const std::string path = std::string("C:\\From\\") + name;
    rig.write(path);
    ASSERT_TRUE(files().setAttributes(path, platform::attribute::ReadOnly));
  }
  rig.write("C:\\From\\plain");
  select({"a", "b", "c", "d", "e", "plain"});
  starts("Form4");
  confirms(6);
  rig.loop.whenShows("Form10")
      .reads("Label1", "Current File:  e\r Are marked:  Readonly\rPlease use Command Options !")
      .press("Command11");
  rig.loop.whenShows("Form10").press("Command2");  // d: skip
  rig.loop.whenShows("Form10").press("Command3");  // c: cancel all
  run();
  EXPECT_EQ(rig.names(left()), (std::vector<std::string>{"a|", "b|", "c|", "d|"}));

  select({"a", "b", "c"});
  starts("Form4");
  confirms(3);
  rig.loop.whenShows("Form10").press("Command1");  // c: all
  run();
  EXPECT_EQ(rig.names(left()), std::vector<std::string>{"d|"});
}

TEST_F(DeleteTest, WhatCannotBeDeletedIsAskedAbout) {
  // A value that is not listed gets no question, and read-only it stays.
  rig.write("C:\\From\\five");
  ASSERT_TRUE(files().setAttributes("C:\\From\\five", 5));
  rig.write("C:\\From\\a");
  const std::string question = "Varnholt Was Not Able To Delete File:  \rfive  On Target !"
                               "Unknown Reason, But Media Not Accessable/ReadOnly !";
  select({"a", "five"});
  starts("Form4");
  confirms(2);
  rig.loop.whenShows("Form11").reads("Label1", question).press("Command1");
  run();
  EXPECT_TRUE(rig.exists("C:\\From\\a"));
  select({"a", "five"});
  starts("Form4");
  confirms(2);
  rig.loop.whenShows("Form11").reads("Label1", question).press("Command11");
  run();
  EXPECT_EQ(rig.names(left()), std::vector<std::string>{"five|"});
}

TEST_F(DeleteTest, ALinkToAFolderGoesAloneAndUnasked) {
  rig.write("C:\\Kept\\file");
  std::filesystem::create_directory_symlink(rig.systemPath("C:\\Kept"), rig.systemPath("C:\\From\\Link"));
  select({"\\ Link"});
  starts("Form4");
  confirms(1);
  run();
  EXPECT_FALSE(rig.exists("C:\\From\\Link"));
  EXPECT_TRUE(rig.exists("C:\\Kept\\file"));
}

TEST_F(DeleteTest, StopLeavesTheRest) {
  for (const char* name : {"a", "b", "c"})
    rig.write(std::string("C:\\From\\") + name);
  select({"a", "b", "c"});
  int turns = 0;
  rig.loop.onTurn = [&] {
    if (++turns == 2) ops().Form4.Command1.press();
  };
  starts("Form4");
  confirms(3);
  rig.loop.whenShows("Form12").reads("Label1", "Delete Process Aborted. !\r").press("Command11");
  run();
  EXPECT_EQ(rig.names(left()), (std::vector<std::string>{"a|", "b|"}));
}

TEST_F(DeleteTest, APanelInADeletedFolderIsLeftOnOneThatExists) {
  rig.write("C:\\From\\Sub\\file");
  select({"\\ Sub"}, "C:\\From", "C:\\From\\Sub");
  starts("Form4");
  confirms(1);
  asksFolder("C:\\From\\Sub").press("Command11");
  run();
  EXPECT_EQ(right().path(), "C:\\From\\");
}

}  // namespace
}  // namespace varnholt::fileops

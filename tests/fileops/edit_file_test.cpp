#include "operation_test.hpp"

namespace varnholt::fileops {
namespace {

class EditFileTest : public OperationTest {
 protected:
  void SetUp() override {
    shell = &rig.useRecordingShell();
    OperationTest::SetUp();
    rig.write("C:\\From\\a.txt", "a");
    rig.makeFolder("C:\\From\\Sub");
    select({});
  }
  /// Files that were opened in the editor.
  std::vector<std::string> edited() {
    std::vector<std::string> files;
    for (const auto& [command, folder] : shell->started) {
      const auto at = command.find("notepad.exe\" \"");
      EXPECT_NE(at, std::string::npos) << command;
      files.push_back(command.substr(at + 14, command.size() - at - 15));
    }
    return files;
  }
  void types(const std::string& name) {
    rig.loop.whenShows("Form32").run([this, name](controls::Form&) {
      ops().Form32.Text1.typeFromUser(name);
      ops().Form32.Command11.press();
    });
  }

  test::RecordingShell* shell = nullptr;
};

TEST_F(EditFileTest, TheFileInFocusIsEdited) {
  rig.click(left(), "a");
  rig.command("Command2_Click");
  EXPECT_EQ(edited(), std::vector<std::string>{"C:\\From\\a.txt"});
  rig.click(left(), "\\ Sub");
  EXPECT_FALSE(form().Command2.Enabled);
  rig.loop.whenShows("Form13").reads("Label1", " No Items selected. ! ").closes();
  rig.command("EditFile_Click");
}

TEST_F(EditFileTest, AFileIsMadeListedAndEdited) {
  types(" new.txt ");
  rig.command("Command13_Click");
  EXPECT_TRUE(rig.exists("C:\\From\\new.txt"));
  EXPECT_EQ(rig.names(left()), (std::vector<std::string>{"\\ Sub| ", "a|txt", "new|txt"}));
  EXPECT_EQ(edited(), std::vector<std::string>{"C:\\From\\new.txt"});
  EXPECT_FALSE(rig.app().dispatcher.busy);
}

TEST_F(EditFileTest, NamesThatMakeNoFileAreToldAndAskedForAgain) {
  rig.loop.whenShows("Form32").reads("Caption", "Make File").run([this](controls::Form&) {
    auto& dialog = ops().Form32;
    EXPECT_EQ(form().mode(), "EditMode");
    dialog.Command11.press();
    EXPECT_EQ(dialog.Text1.Text.get(), "Key in Valid File Name !.");
    dialog.Command11.press();
    EXPECT_TRUE(dialog.Visible);
    dialog.Command1.press();
    EXPECT_EQ(dialog.Text1.Text.get(), "");
    rig.loop.whenShows("Form12").reads("Label1", "[ ?InValid Chr. In Filename !, \r").press("Command11");
    dialog.Text1.typeFromUser("what?.txt");
    dialog.Command11.press();
    EXPECT_TRUE(dialog.Visible);
    dialog.Command2.press();
  });
  rig.command("Makefile_Click");
  EXPECT_TRUE(shell->started.empty());
}

TEST_F(EditFileTest, AnExistingFileIsReplacedOnlyWhenTheUserAgrees) {
  for (const bool agrees : {false, true}) {
    types("a.txt");
    rig.loop.whenShows("Form11")
        .reads("Label1", "File:  a.txt\rAlready Exist !, OverWrite ?")
        .press(agrees ? "Command11" : "Command1");
    rig.command("Command13_Click");
    EXPECT_EQ(rig.read("C:\\From\\a.txt"), agrees ? "" : "a");
  }
  types("Sub");
  rig.loop.whenShows("Form12").reads("Label1", "Folder:  Sub\rAlready Exist !\r").press("Command11");
  rig.command("Command13_Click");
  EXPECT_EQ(edited(), std::vector<std::string>{"C:\\From\\a.txt"});
}

}  // namespace
}  // namespace varnholt::fileops

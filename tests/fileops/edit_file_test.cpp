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
  Names edited() {
    Names files;
    for (const auto& [command, folder] : shell->started) {
      const auto at = command.find("notepad.exe\" \"");
      EXPECT_NE(at, std::string::npos) << command;
      files.push_back(command.substr(at + 14, command.size() - at - 15));
    }
    return files;
  }
  test::Answer types(const std::string& name) {
    return {"Form32", "Command11", "", [this, name] { ops().Form32.Text1.typeFromUser(name); }};
  }

  test::RecordingShell* shell = nullptr;
};

TEST_F(EditFileTest, TheFileInFocusIsEdited) {
  rig.click(left(), "a");
  rig.command("Command2_Click");
  EXPECT_EQ(edited(), Names{"C:\\From\\a.txt"});
  rig.click(left(), "\\ Sub");
  EXPECT_FALSE(form().Command2.Enabled);
  start("EditFile_Click", {test::noticed(" No Items selected. ! ")}, {});
}

TEST_F(EditFileTest, AFileIsMadeListedAndEdited) {
  start("Command13_Click", {types(" new.txt ")}, {});
  EXPECT_TRUE(rig.exists("C:\\From\\new.txt"));
  EXPECT_EQ(rig.names(left()), (Names{"\\ Sub| ", "a|txt", "new|txt"}));
  EXPECT_EQ(edited(), Names{"C:\\From\\new.txt"});
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
    rig.loop.meets({told("[ ?InValid Chr. In Filename !, ")});
    dialog.Text1.typeFromUser("what?.txt");
    dialog.Command11.press();
    EXPECT_TRUE(dialog.Visible);
    dialog.Command2.press();
  });
  rig.command("Makefile_Click");
  EXPECT_TRUE(shell->started.empty());
}

TEST_F(EditFileTest, AnExistingFileIsReplacedOnlyWhenTheUserAgrees) {
  const std::string question = "File:  a.txt\rAlready Exist !, OverWrite ?";
  for (const bool agrees : {false, true}) {
    start("Command13_Click", {types("a.txt"), agrees ? yes(question) : no(question)}, {});
    EXPECT_EQ(rig.read("C:\\From\\a.txt"), agrees ? "" : "a");
  }
  start("Command13_Click", {types("Sub"), told("Folder:  Sub\rAlready Exist !")}, {});
  EXPECT_EQ(edited(), Names{"C:\\From\\a.txt"});
}

}  // namespace
}  // namespace varnholt::fileops

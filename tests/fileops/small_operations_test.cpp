#include "fileops/stranded.hpp"
#include "operation_test.hpp"

namespace varnholt::fileops {
namespace {

using controls::MessageAnswer;

TEST_F(OperationTest, NamesThatMakeNoFolderAreToldAndTheDialogStays) {
  write({"From\\file", "From\\there\\x"});
  select({});
  const auto keys = [&](const std::string& name) {
    ops().Form2.Text1.typeFromUser(name);
    ops().Form2.Command11.press();
  };
  const std::string asked = "New Folder Creation As :    C:\\From\\";
  rig.loop.whenShows("Form2").reads("Caption", "New Folder").run([&](controls::Form&) {
    EXPECT_EQ(form().mode(), "FolderMode");
    for (const char* nothing : {"", "  ", "\\"}) {
      rig.loop.whenBox("Alert !", MessageAnswer::Ok, "Please key in new Foldername !");
      keys(nothing);
    }
    rig.loop.whenBox("Alert !", MessageAnswer::Ok, "New folder already Exist !      ");
    keys("there");
    for (const char* refused : {"file", "two\\levels", "sl/ash"}) {
      rig.loop.whenBox("New Folder", MessageAnswer::Ok, asked + refused);
      rig.loop.whenBox("Alert", MessageAnswer::Ok, "Cannot Create New Folder");
      keys(refused);
    }
    rig.loop.whenBox("New Folder", MessageAnswer::Cancel, asked + "abc");
    keys("abc\\");
    EXPECT_FALSE(rig.exists("C:\\From\\abc"));
    EXPECT_TRUE(ops().Form2.Visible);
    rig.loop.whenBox("New Folder", MessageAnswer::Ok, asked + "abc");
    keys("abc\\");
  });
  rig.command("Command11_Click");
  EXPECT_EQ(rig.names(left()), (Names{"\\ abc| ", "\\ there| ", "file|"}));
}

TEST_F(OperationTest, FilesForTheDesktopGoThereAndAskBeforeTheyReplace) {
  auto& faulty = use<test::FaultyFileSystem>();
  rig.useShellFolder("Desktop", "C:\\Gone");
  write({"From\\a.txt", "From\\b.txt", "From\\Sub\\x"});
  select({"a"});
  for (const char* handler : {"CopyDesktop_Click", "Copyfrom_desktop_Click"})
    start(handler, {test::noticed(".. \\Desktop Folder Do Not Exist !")}, {});

  rig.makeFolder("C:\\Desk");
  rig.useShellFolder("Desktop", "C:\\Desk");
  faulty.noSpace = true;
  start("CopyDesktop_Click", {test::noticed("Copy Failed To Desktop !")}, {});
  EXPECT_FALSE(rig.exists("C:\\Desk\\a.txt"));
  faulty.noSpace = false;
  rig.write("C:\\Desk\\b.txt", "old");
  select({"\\ Sub", "a", "b"});
  start("CopyDesktop_Click", {test::no("File:  b.txt\rAlready Exist !, OverWrite ?")},
        {test::noticed("Copy to Desktop Done !")});
  EXPECT_TRUE(rig.exists("C:\\Desk\\a.txt") && !rig.exists("C:\\Desk\\Sub"));
  EXPECT_EQ(rig.read("C:\\Desk\\b.txt"), "old");
  start("CopyDesktop_Click", {test::no(), test::yes()}, {test::noticed("Copy to Desktop Done !")});
  EXPECT_NE(rig.read("C:\\Desk\\b.txt"), "old");

  select({"a"}, {.from = "C:\\Desk"});
  start("CopyDesktop_Click", {test::noticed("Copy to Desktop Done !")}, {});
  select({"\\ Sub"});
  start("CopyDesktop_Click", {test::noticed(" No Items selected. ! ")}, {});
  rig.command("Copyfrom_desktop_Click");
  EXPECT_EQ(left().path(), "C:\\Desk\\");
  EXPECT_EQ(form().Caption.get(), "Varnholt -  C:\\Desk");
}

class SwapTest : public OperationTest {
 protected:
  void SetUp() override {
    OperationTest::SetUp();
    for (const char* name : {"left", "both", "blocked"})
      rig.write(std::string("C:\\From\\") + name, "from the left");
    for (const char* name : {"right", "both", "blocked"})
      rig.write(std::string("C:\\To\\") + name, "from the right");
    rig.makeFolder("C:\\From\\Sub");
  }
  std::string work(const std::string& name = {}) { return rig.platform->programFolder + "\\SwapTmp" + name; }
};

TEST_F(SwapTest, FilesOfBothSidesChangePlacesAndNothingIsOverwritten) {
  select({"\\ Sub", "left", "both", "blocked"});
  for (const char* row : {"right", "both"})
    rig.click(right(), row, {.ctrl = true});
  start("ExFiles_Click", {test::noticed("All Available/Selected Files Swapped ! ")}, {{"Form12", "Command11"}});
  EXPECT_EQ(rig.names(left()), (Names{"\\ Sub| ", "blocked|", "both|", "right|"}));
  EXPECT_EQ(rig.names(right()), (Names{"blocked|", "both|", "left|"}));
  EXPECT_EQ(rig.read("C:\\From\\both") + rig.read("C:\\To\\both"), "from the rightfrom the left");
  EXPECT_EQ(rig.read("C:\\From\\blocked"), "from the left");
  EXPECT_FALSE(rig.exists(work()));
}

class FullRightSide : public platform::ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  platform::Result<void> moveFile(const std::string& from, const std::string& to,
                                  const platform::Progress& progress) override {
    if (to.starts_with("C:\\To\\")) return platform::Error{platform::ErrorCode::NoSpace, to, "No space left on device"};
    return base_.moveFile(from, to, progress);
  }
};

TEST_F(SwapTest, AFileWithoutRoomOnTheOtherSideGoesBackAndIsToldWhereItStands) {
  use<FullRightSide>();
  select({"left"});
  start("ExFiles_Click", {test::noticed("All Available/Selected Files Swapped ! ")}, {{"Form12", "Command11"}});
  const auto told = files().readFile(rig.programFolder() + "\\LeftOut.txt", 1000);
  EXPECT_EQ(told.valueOr(""), "C:\\From\\left\tNo space left on device\r\n");
  EXPECT_TRUE(rig.exists("C:\\From\\left"));
}

TEST_F(SwapTest, WhatCannotBeSwappedIsTold) {
  select({});
  start("ExFiles_Click", {test::noticed("No Item(s) Selected !")}, {});
  select({"\\ Sub"});
  start("ExFiles_Click", {test::noticed("No Item(s) To Swap !")}, {});
  select({"left"}, {.from = "C:\\From", .to = "C:\\From"});
  start("ExFiles_Click", {test::noticed("Cannot Swap To Itself !")}, {});
  rig.drives->away = {'C'};
  start("ExFiles_Click", {test::told("Drive(s) Not ready !\rFunction Exits !")}, {});
}

// What a killed copy of the program leaves is its note, which nobody holds any more, and the files on their way.
TEST_F(SwapTest, FilesThatAKilledSwapLeftAreBroughtBackAndTold) {
  rig.write(work("\\home"), "a");
  rig.write(work("\\taken"), "b");
  rig.write(work("\\stays"), "c");
  for (const char* there : {"From\\taken", "From\\stays", "To\\stays"})
    rig.write(std::string("C:\\") + there, "other");
  std::vector<platform::Detour> detours;
  for (const char* name : {"\\home", "\\taken", "\\stays", "\\never"})
    detours.push_back({work(name), std::string("C:\\From") + name, std::string("C:\\To") + name});
  auto note = rig.platform->detours.note(detours);
  ASSERT_TRUE(note);
  const std::string stays = "\r" + work("\\stays") + "  (from C:\\From\\stays)";
  const std::string interrupted = "A Move Or Swap Was Interrupted. Its Files Stand Here Now :";
  bringBackStranded(rig.app().desk);
  EXPECT_TRUE(rig.exists(work("\\home"))) << "the swap is still at work";

  (*note)->keep();
  note->reset();
  rig.loop.meets({test::told(interrupted + "\rC:\\From\\home\rC:\\To\\taken" + stays)});
  bringBackStranded(rig.app().desk);
  EXPECT_EQ(rig.read("C:\\From\\home") + rig.read("C:\\To\\taken"), "ab");
  EXPECT_EQ(rig.read(work("\\stays")), "c");
  ASSERT_TRUE(rig.platform->files.deleteFile("C:\\From\\stays", true));
  rig.loop.meets({test::told(interrupted + "\rC:\\From\\stays")});
  bringBackStranded(rig.app().desk);
  bringBackStranded(rig.app().desk);
}

class AsNewNameTest : public OperationTest {
 protected:
  void SetUp() override {
    OperationTest::SetUp();
    rig.write("C:\\From\\a.txt", "text");
    protect("C:\\From\\a.txt", platform::attribute::Hidden);
    rig.menu("HidSysfiles").Checked = true;
  }
  std::string tmp(const std::string& name) { return rig.platform->programFolder + "\\Tmp\\" + name; }
  /// Opens the dialog on the file, gives this name in it (none: cancels), and presses that button of the dialog.
  void as(bool moving, const std::string& name, const char* press, const Answers& answers = {}) {
    select({"a"});
    auto& asks = rig.loop.whenShows(moving ? "Form5" : "Form3");
    asks.run([=, this](controls::Form&) {
      TargetForm& dialog = moving ? static_cast<TargetForm&>(ops().Form5) : ops().Form3;
      rig.loop.whenShows("Form32")
          .reads("Caption", moving ? "Move Item As" : "Copy Item As")
          .reads("Text1", "a.txt")
          .run([&](controls::Form&) {
            EXPECT_EQ(rig.read(tmp("a.txt")), "text");
            EXPECT_EQ(rig.exists("C:\\From\\a.txt"), !moving);
            ops().Form32.Text1.typeFromUser(name);
          })
          .press(name.empty() ? "Command2" : "Command11");
      dialog.Command5.press();
      EXPECT_EQ(dialog.Command5.Enabled.get(), name.empty());
      EXPECT_EQ(dialog.item.Text.get(), name.empty() ? "a.txt" : name);
      rig.loop.meets(answers);
    });
    asks.press(press);
    rig.command(moving ? "Command3_Click" : "Command1_Click");
  }
};

TEST_F(AsNewNameTest, AFileGoesUnderItsNewNameWithAllThatItIs) {
  as(false, "b.txt", "Command11");
  EXPECT_EQ(rig.read("C:\\To\\b.txt") + rig.read("C:\\From\\a.txt"), "texttext");
  as(false, "B.TXT", "Command11");
  as(true, "a.txt", "Command11");
  EXPECT_EQ(rig.read("C:\\To\\a.txt"), "text");
  EXPECT_EQ(files().attributes("C:\\To\\a.txt").valueOr(0), platform::attribute::Hidden);
  EXPECT_FALSE(rig.exists("C:\\From\\a.txt"));
}

TEST_F(AsNewNameTest, AMoveThatIsGivenUpBringsTheFileBackUnderItsOldName) {
  rig.write("C:\\To\\there.txt", "other");
  const auto isBack = [&] {
    EXPECT_EQ(rig.read("C:\\From\\a.txt"), "text");
    EXPECT_EQ(files().attributes("C:\\From\\a.txt").valueOr(0), platform::attribute::Hidden);
    EXPECT_TRUE(rig.platform->detours.waiting().empty());
  };
  as(true, "", "Command2");
  isBack();
  as(true, "b.txt", "Command2");
  isBack();
  as(true, "there.txt", "Command11", {test::told("File Already exist on Target, - Cannot Move!")});
  isBack();
  EXPECT_EQ(rig.read("C:\\To\\there.txt"), "other");
}

TEST_F(AsNewNameTest, AFileThatCannotGoBackStaysInTheWorkFolderUntilItCan) {
  rig.loop.giveTurn();
  select({"a"});
  const auto names = [this] {
    rig.write("C:\\From\\a.txt", "somebody else's");
    ops().Form32.Text1.typeFromUser("b.txt");
  };
  const auto asks = [&] {
    rig.loop.meets({{"Form32", "Command11", "", names}});
    ops().Form5.Command5.press();
    rig.loop.meets({told("Cancel Function After Move As Failed!, Get Your File In Varnholt Folder \\Tmp")});
  };
  rig.command("Command3_Click", {{"Form5", "Command2", "", asks}});
  EXPECT_EQ(rig.read(tmp("b.txt")), "text");
  ASSERT_TRUE(files().deleteFile("C:\\From\\a.txt", true));
  rig.restart();
  rig.splashGoes();
  rig.loop.meets({test::told("A Move Or Swap Was Interrupted. Its Files Stand Here Now :\rC:\\From\\a.txt")});
  ASSERT_TRUE(rig.app().Main());
  rig.loop.giveTurn();
  EXPECT_EQ(rig.read("C:\\From\\a.txt"), "text");
}

class EditFileTest : public OperationTest {
 protected:
  void SetUp() override {
    shell = &rig.useRecordingShell();
    OperationTest::SetUp();
    rig.write("C:\\From\\a.txt", "a");
    rig.makeFolder("C:\\From\\Sub");
    select({});
  }
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

TEST_F(EditFileTest, TheFileInFocusIsEditedAndAFileIsMadeListedAndEdited) {
  rig.click(left(), "a");
  rig.command("Command2_Click");
  rig.click(left(), "\\ Sub");
  EXPECT_FALSE(form().Command2.Enabled);
  start("EditFile_Click", {test::noticed(" No Items selected. ! ")}, {});
  start("Command13_Click", {types(" new.txt ")}, {});
  EXPECT_EQ(rig.names(left()), (Names{"\\ Sub| ", "a|txt", "new|txt"}));
  EXPECT_EQ(edited(), (Names{"C:\\From\\a.txt", "C:\\From\\new.txt"}));
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
  rig.scratch.file("home/From/kept", "kept").link("home/From/link", "kept");
  start("Command13_Click", {types("link"), yes("File:  link\rAlready Exist !, OverWrite ?")}, {});
  EXPECT_EQ(rig.read("C:\\From\\kept") + rig.read("C:\\From\\link"), "kept")
      << "what a link leads to is not asked about";
}

}  // namespace
}  // namespace varnholt::fileops

#include "support/app_rig.hpp"

namespace varnholt::app {
namespace {

using panels::Panel;
namespace key = controls::key;

class NavigationTest : public test::AppTest {
 protected:
  void SetUp() override {
    for (const char* folder : {"C:\\one\\deep", "C:\\two", "C:\\three", "D:\\data\\x"})
      rig.makeFolder(folder);
    rig.write("C:\\one\\letter.txt");
    rig.startLeft();
  }
  panels::Navigation& navigation() { return rig.app().navigation; }
  void go(const char* folder) { ASSERT_TRUE(navigation().GoToDirection(folder)) << folder; }
  std::string focusedText(Panel& panel) {
    const auto item = panel.list.SelectedItem();
    return item ? item->Text() : "none";
  }
};

TEST_F(NavigationTest, BackAndForwardWalkThePlacesAndTellTheirButtons) {
  const auto press = [&](controls::Button& button) {
    button.press();
    return left().path() + (form().Command23.Enabled ? " back" : "") + (form().Command22.Enabled ? " forward" : "");
  };
  EXPECT_EQ(press(form().Command23), "C:\\");
  go("C:\\one");
  go("C:\\two");
  go("C:\\two");  // where the panel is already is no step
  EXPECT_EQ(press(form().Command23), "C:\\one\\ back forward");
  EXPECT_EQ(press(form().Command23), "C:\\ forward");
  EXPECT_EQ(press(form().Command22), "C:\\one\\ back forward");
  EXPECT_EQ(form().Text1.Text.get(), "C:\\one");
  EXPECT_EQ(press(form().Command22), "C:\\two\\ back");
  EXPECT_FALSE(form().Command25.Enabled) << "the right panel has places of its own";
  go("C:\\three");
  std::filesystem::remove(rig.systemPath("C:\\two"));
  EXPECT_EQ(press(form().Command23).substr(0, 9), "C:\\three\\") << "over a folder that is gone it stays put";
  EXPECT_EQ(press(form().Command23), "C:\\one\\ back forward");
  for (int number = 0; number < 60; ++number)
    go(number % 2 ? "C:\\one" : "C:\\three");
  int steps = 0;
  for (; form().Command23.Enabled && steps < 100; ++steps)
    form().Command23.press();
  EXPECT_EQ(steps, 48) << "49 places, the panel's own among them";
  go("D:\\data");
  form().Command23.press();
  EXPECT_EQ(form().Drive1.Text->front(), 'C') << "the drive list goes along";
}

TEST_F(NavigationTest, ParentsWithAndWithoutHistory) {
  go("C:\\one\\deep");
  form().Command18.press();
  EXPECT_EQ(left().path(), "C:\\one\\");
  EXPECT_EQ(focusedText(left()), "\\ deep") << "the row of the folder left";
  form().Command18.press();
  form().Command18.press();
  EXPECT_EQ(left().path(), "C:\\");
  go("D:\\data\\x");
  form().Command8.press();
  EXPECT_EQ(left().path(), "C:\\") << "with history: where the panel came from";
  go("D:\\data\\x");
  form().Command6.press();
  EXPECT_EQ(left().path(), "D:\\");
  rig.command("ResetHomeDrive_Click");
  EXPECT_EQ(left().path() + right().path(), "C:\\C:\\");
}

TEST_F(NavigationTest, TheTitleAndTheHistoryBoxNameTheActivePanelsFolder) {
  const auto title = [&] { return form().Caption.get() + " | " + form().ImageCombo1.Text.get(); };
  go("D:\\data");
  form().Command6.press();
  EXPECT_EQ(title(), "Varnholt -  D:\\ | ") << "no history holds this folder";
  ASSERT_TRUE(navigation().goTo(right(), "C:\\one"));
  EXPECT_EQ(title(), "Varnholt -  D:\\ | ") << "the other panel has moved";
  right().list.pressFromUser({}, {});
  EXPECT_EQ(title(), "Varnholt -  C:\\one | C:\\one") << "a click below the rows";
  EXPECT_EQ(form().Text2.Text.get(), "C:\\one");
  rig.command("ResetHomeDrive_Click");
  EXPECT_EQ(title(), "Varnholt -  C:\\ | ");
}

TEST_F(NavigationTest, TheStatusBarSpeaksOfTheItemInHand) {
  const auto said = [&](Panel& active) {
    active.list.SetFocus();
    return status(panels::status::Line) + "/" + status(panels::status::SelectedCount);
  };
  rig.doubleClick(left(), "\\ one");
  rig.click(left(), "letter");
  EXPECT_EQ(said(left()), "Archive/1  Item(s) Selected");
  EXPECT_EQ(said(right()), "/") << "nothing is in hand there";
  EXPECT_EQ(said(left()), "Archive/1  Item(s) Selected");
  rig.key(left(), key::Left);
  EXPECT_EQ(said(left()), "Folder  [Normal]/1  Item(s) Selected");
  EXPECT_FALSE(form().Command2.Enabled);
  go("C:\\two");
  EXPECT_EQ(said(left()), "/");
}

TEST_F(NavigationTest, AnotherDriveShowsItsRootOrItsLastFolder) {
  go("D:\\data");
  go("C:\\one");
  form().Drive1.chooseFromUser(1);
  EXPECT_EQ(left().path(), "D:\\");
  form().Drive1.chooseFromUser(0);
  rig.menu("WinStart").choose();
  go("D:\\data");
  form().Drive1.chooseFromUser(0);
  form().Drive1.chooseFromUser(1);
  EXPECT_EQ(left().path(), "D:\\data\\");
  EXPECT_TRUE(rig.menu("WinStart").Enabled);
  EXPECT_EQ(right().path(), "C:\\");
}

TEST_F(NavigationTest, APlaceThatIsGoneIsToldAndThePanelStays) {
  go("C:\\two");
  rig.command("store_Click", {test::noticed(" Location Stored In Memory ! ")});
  go("C:\\three");
  form().ImageCombo1.chooseFromUser(0);
  EXPECT_EQ(left().path(), "C:\\two\\");
  go("C:\\three");
  rig.command("viewlastexit_Click");
  EXPECT_EQ(left().path(), "C:\\two\\");
  go("C:\\three");
  std::filesystem::remove(rig.systemPath("C:\\two"));
  std::filesystem::remove_all(rig.systemPath("D:\\"));
  rig.loop.meets({test::told("Invalid Path, - Folder Do Not Exist !"),
                  test::told("Location has Changed and NOT Valid !"),
                  test::told("Drive Not Ready !, - Press Ok or Esc-key")});
  form().ImageCombo1.chooseFromUser(0);
  rig.command("viewlastexit_Click");
  form().Drive1.chooseFromUser(1);
  EXPECT_EQ(left().path(), "C:\\three\\");
  EXPECT_EQ(form().Drive1.Text.get().substr(0, 2), "C:");
}

TEST_F(NavigationTest, TheHistoryHoldsEachFolderOnceAndFiftyAtMost) {
  for (int number = 0; number < 55; ++number) {
    const std::string folder = "C:\\many\\" + std::to_string(number);
    rig.makeFolder(folder);
    go(folder.c_str());
  }
  go("C:\\MANY\\54");
  EXPECT_EQ(form().ImageCombo1.Items->size(), 50u);
  EXPECT_EQ(form().ImageCombo1.Items.get().front().text, "C:\\many\\5");

  rig.command("savefolder_his_Click", {test::noticed("Folder History Stored in File !")});
  rig.command("ClearHis_Click");
  EXPECT_TRUE(form().ImageCombo1.Items->empty());
  rig.loop.whenShows("Form13").reads({"Caption|Information", "Label1|No Folder History To Store !"}).closes();
  rig.command("savefolder_his_Click");
}

TEST_F(NavigationTest, AFolderThatIsGoneIsNotEnteredAndLeftByARefresh) {
  std::filesystem::remove(rig.systemPath("C:\\two"));
  const auto row = rig.rowOf(left(), "\\ two");
  left().list.pressFromUser(row, {});
  left().list.doubleClickFromUser(row);
  EXPECT_EQ(left().path(), "C:\\");
  EXPECT_EQ(rig.names(left()), (Names{"\\ one| ", "\\ three| "}));
  rig.makeFolder("C:\\one\\two\\three");
  go("C:\\one\\two\\three");
  std::filesystem::remove_all(rig.systemPath("C:\\one\\two"));
  rig.command("refrechview_Click");
  EXPECT_EQ(left().path(), "C:\\one\\");
  EXPECT_EQ(rig.loop.screen().MousePointer, controls::pointer::Default);
  EXPECT_EQ(form().ProgressBar1.Value, 0.0);
}

TEST_F(NavigationTest, KeysWalkAPanelOnBothSides) {
  constexpr controls::Modifiers None{}, Ctrl{false, true, false}, Alt{false, false, true};
  const std::tuple<int, controls::Modifiers, const char*> steps[] = {
      {key::Right, Ctrl, "C:\\"},     {key::Right, None, "C:\\one\\"}, {key::Left, Alt, "C:\\"},
      {key::Right, Alt, "C:\\one\\"}, {key::Back, None, "C:\\"},       {key::Enter, None, "C:\\one\\"},
      {key::Left, None, "C:\\"},      {key::F3, None, "C:\\one\\"},    {key::Space, None, "C:\\one\\"}};
  for (Panel* panel : {&left(), &right()}) {
    panel->list.SetFocus();
    rig.click(*panel, "\\ one");
    for (const auto& [code, modifiers, folder] : steps) {
      rig.key(*panel, code, modifiers);
      EXPECT_EQ(panel->path(), folder) << code;
      if (modifiers.alt) rig.click(*panel, folder == std::string("C:\\") ? "\\ one" : "\\ deep");
    }
    rig.menu("RLC").choose();
    rig.key(*panel, key::Space);
    EXPECT_EQ(panel->path(), "C:\\") << "Space leaves when it may";
    EXPECT_EQ(focusedText(*panel), "\\ one");
    rig.menu("PreFolder").choose();
    EXPECT_FALSE(form().panelRecall(panel->side).empty());
  }
}

TEST_F(NavigationTest, EscClearsTheViewUnlessAPictureIsOpen) {
  rig.click(left(), "\\ one");
  form().Text3.Visible = true;
  for (const bool picture : {true, false}) {
    form().Picture1.Visible = picture;
    rig.key(left(), key::Esc);
    EXPECT_EQ(form().Text3.Visible, picture);
    EXPECT_EQ(left().list.selectedCount(), picture ? 1u : 0u);
  }
}

TEST_F(NavigationTest, TheCommandLineShowsTheItemAndHidesByEsc) {
  rig.click(left(), "\\ one");
  rig.key(left(), key::Enter, {false, true, false});
  EXPECT_TRUE(form().Text3.Visible);
  EXPECT_EQ(form().Text3.Text.get(), "C:\\One");
  EXPECT_TRUE(form().Text3.hasFocus());
  form().Text3.DblClick();
  EXPECT_EQ(form().Text3.Text.get(), "");
  controls::KeyEvent escape{key::Esc, {}, false};
  form().Text3.KeyDown(escape);
  EXPECT_FALSE(form().Text3.Visible);
  EXPECT_TRUE(left().list.hasFocus());
}

class OpeningTest : public NavigationTest {
 protected:
  void registerType(const std::string& extension, const std::string& command) {
    constexpr auto Root = platform::RegistryRoot::ClassesRoot;
    rig.registerText(Root, "." + extension, "", extension + "file");
    rig.registerText(Root, extension + "file\\shell\\open\\command", "", command);
  }
  void enterLine(const char* line) {
    form().Text3.Text = line;
    controls::KeyEvent enter{key::Enter, {}, false};
    form().Text3.KeyDown(enter);
  }
};

TEST_F(OpeningTest, MarksOfACommandBecomeTheQuotedPath) {
  rig.app().program.folders.SystemRoot = "C:\\Windows";
  const std::string file = "\"C:\\my %1.txt\"";
  const std::pair<const char*, std::string> rows[] = {{"edit.exe %1 /x", "edit.exe " + file + " /x"},
                                                      {"edit.exe \"%1\" %L", "edit.exe " + file + ' ' + file},
                                                      {"%systemroot%\\edit.exe", "C:\\Windows\\edit.exe " + file}};
  for (const auto& [command, expanded] : rows)
    EXPECT_EQ(rig.app().opener.PathChange(command, "C:\\my %1.txt"), expanded);
}

TEST_F(OpeningTest, TheCommandLineStartsWhatIsTyped) {
  rig.loop.meets({test::told()});
  enterLine("/bin/true-is-not-there");
  auto& shell = rig.useRecordingShell();
  rig.startLeft();
  enterLine("C:\\make.sh C:\\made.txt");
  enterLine(" \"c:\\ONE\" ");
  ASSERT_EQ(shell.started.size(), 2u);
  EXPECT_EQ(shell.started[0], std::pair(std::string("C:\\make.sh C:\\made.txt"), left().path()));
  EXPECT_TRUE(shell.started[1].first.ends_with("\\explorer.exe\" \"C:\\one\"")) << "a path in quotes is one";
}

TEST_F(OpeningTest, AFileOpensByItsTypeAndIsNoted) {
  auto& shell = rig.useRecordingShell();
  registerType("xyz", "C:\\viewer.sh %1");
  rig.write("C:\\two words.XYZ");
  rig.startLeft();
  rig.doubleClick(left(), "two words");
  EXPECT_EQ(shell.started.back(), (std::pair<std::string, std::string>{"C:\\viewer.sh \"C:\\two words.XYZ\"", "C:\\"}));
  EXPECT_EQ(rig.app().histories.files.entries(), std::vector<std::string>{"C:\\two words.XYZ"});
}

TEST_F(OpeningTest, AnUnknownTypeAndAFileThatIsGoneAreToldAndNothingRuns) {
  rig.write("C:\\a.no-such-type-7");
  rig.loop.meets({test::told("File Extension NOT registrated !\rMake one from Controlpanel ,Tools, FolderOptions."),
                  test::told("File/Folder Path NOT Valid !")});
  rig.app().opener.open("C:\\a.no-such-type-7");
  rig.app().opener.open("C:\\b.no-such-type-7");
  EXPECT_TRUE(rig.app().histories.files.entries().empty());
}

TEST_F(OpeningTest, AnOpenerThatFailsEndsInTheAlternateMethod) {
  registerType("xyz", "C:\\gone.exe %1");
  rig.write("C:\\a.xyz");
  const std::string explorer = rig.app().program.folders.windir + "explorer.exe";
  ASSERT_TRUE(files().deleteFile(explorer, true));
  rig.loop.meets({test::told("Trying Alternate Opening Method ! ....."),
                  test::told("Cannot Find Explorer.exe, - Function Exits")});
  rig.app().opener.open("C:\\a.xyz");
  EXPECT_EQ(*files().readFile(rig.programFolder() + "\\Temp.Url"),
            "[Default]\r\nBASEURL=file://C:\\a.xyz\r\n[InternetShortcut]\r\nURL=file:///C:\\a.xyz\r\n");
}

TEST_F(NavigationTest, APathTypedIntoAPathLineGoesThere) {
  rig.write("D:\\Deep\\b.txt");
  const auto types = [&](const std::string& path, int key) {
    form().Text2.SetFocus();
    form().Text2.typeFromUser(path);
    controls::KeyEvent event{key, {}, false};
    form().Text2.KeyDown(event);
  };
  for (const auto& [typed, folder] :
       {std::pair{"d:", "D:\\"}, {" \"d:\\DEEP\" ", "D:\\Deep\\"}, {"d:\\deep\\B.TXT", "D:\\Deep\\"}}) {
    types(typed, controls::key::Enter);
    EXPECT_EQ(right().path(), folder) << typed;
    EXPECT_TRUE(right().list.hasFocus() && form().View2Active());
  }
  EXPECT_EQ(selected(right()), Names{"b.txt"}) << "the file of the path";
  EXPECT_EQ(focusedText(right()), "b");
  rig.loop.meets({test::told("File/Folder Path NOT Valid !"), test::told("File/Folder Path NOT Valid !")});
  types("C:\\" + std::string(4000, 'x'), controls::key::Enter);
  types("D:\\no such", controls::key::Enter);
  EXPECT_EQ(form().Text2.Text.get(), "D:\\no such");
  EXPECT_TRUE(form().Text2.hasFocus());
  types("D:\\no such", controls::key::Esc);
  EXPECT_EQ(form().Text2.Text.get() + "|" + left().path(), "D:\\Deep|C:\\");
}

TEST_F(NavigationTest, ADriveThatGoesAwayTakesItsPanelHome) {
  ASSERT_TRUE(rig.app().navigation.goTo(right(), "D:\\"));
  const auto shown = [&] {
    std::string letters;
    for (const auto& item : form().Drive2.Items.get())
      letters += item.text.front();
    return letters;
  };
  EXPECT_EQ(shown(), "CDZ");
  rig.drives->away = {'D'};
  form().Activate();
  EXPECT_EQ(shown(), "CZ");
  EXPECT_EQ(right().path(), "C:\\");
  EXPECT_EQ(form().Drive2.Text->front(), 'C');
  rig.drives->away.clear();
  rig.command("refrechview_Click");
  EXPECT_EQ(shown(), "CDZ");
  EXPECT_EQ(right().path(), "C:\\");

  // The system tells of it, and no command is disturbed.
  auto& dispatcher = rig.app().dispatcher;
  rig.drives->away = {'D'};
  dispatcher.busy = true;
  rig.drives->mounted();
  rig.loop.giveTurn();
  EXPECT_EQ(shown(), "CDZ");
  dispatcher.commandDone();
  rig.loop.giveTurn();
  EXPECT_EQ(shown(), "CZ");
  rig.drives->away.clear();
  rig.drives->mounted();
  rig.loop.giveTurn();
  EXPECT_EQ(shown(), "CDZ");
}

}  // namespace
}  // namespace varnholt::app

#include "support/app_rig.hpp"

namespace varnholt::places {
namespace {

using test::click;
using test::key;

class PresetsTest : public test::AppTest {
 protected:
  void SetUp() override {
    for (const char* folder : {"C:\\Work\\Drafts", "C:\\Photos", "D:\\Backup"})
      rig.makeFolder(folder);
    rig.startLeft();
  }
  Presets& presets() { return rig.app().presets; }
  std::string paths() { return left().path() + " " + right().path(); }
  std::string file() const { return rig.programFolder() + "\\Preset.Ini"; }
  std::string kept() {
    const auto bytes = rig.platform->files.readFile(file());
    return bytes ? *bytes : "none";
  }
  std::string stored(const char* section, const char* key) {
    return rig.platform->settings.get("presets", section, key);
  }
  static Names rows(const controls::ListView& list) { return test::rowsOf(list, 2); }

  void inStatic(const std::function<void(Form20&)>& acts, const std::vector<test::Answer>& answers = {}) {
    inDialog(
        "Command12_Click", "Form20", [this, acts] { acts(presets().Form20); }, answers, "Command3");
  }
  test::Answer names(const std::string& name, const std::string& text) {
    const auto types = [this, name, text] {
      presets().Form21.Text1.typeFromUser(name);
      presets().Form21.Text2.typeFromUser(text);
    };
    return {"Form21", "Command11", "", types};
  }
  /// Makes a preset of the folders that the panels show.
  void make(const std::string& name, const std::string& text = "") {
    inStatic([](Form20& dialog) { dialog.Command2.press(); }, {names(name, text)});
  }
  void inDynamic(const std::function<void(Form34&)>& acts) {
    inDialog(
        "DynPresets_Click", "Form34", [this, acts] { acts(presets().Form34); }, {}, "Command3");
  }
};

TEST_F(PresetsTest, ANewPresetIsKeptInCapitalsAndOutlivesTheProgram) {
  show("C:\\Work", "D:\\Backup");
  make(" Weekly ", "the WEEKLY backup");
  EXPECT_EQ(kept(), "WEEKLY\r\n");
  EXPECT_EQ(stored("WEEKLY", "view1path") + stored("WEEKLY", "view2path"), "C:\\Work\\D:\\Backup\\");
  EXPECT_EQ(rig.form().mode(), "PresetMode");
  make("ärger");
  EXPECT_EQ(kept(), "WEEKLY\r\nÄRGER\r\n");

  ASSERT_TRUE(rig.platform->files.writeFile(file(), kept() + "weekly \n  \n"));
  rig.restart();
  rig.startLeft();
  inStatic([](Form20& dialog) { EXPECT_EQ(rows(dialog.ListView1), (Names{"WEEKLY|The Weekly Backup", "ÄRGER|"})); });
}

TEST_F(PresetsTest, ANameIsTakenOnce) {
  make("  ", "no name makes none");
  make("mine");
  const std::string own = " is kept by the program itself.";
  for (const auto& [taken, reason] : {std::pair<const char*, std::string>{"MINE", ""},
                                      {"mine ", ""},
                                      {"mİne", ""},
                                      {"default", "\rDEFAULT" + own},
                                      {"Mem", "\rMEM" + own},
                                      {"memrecall", "\rMEMRECALL" + own}}) {
    inStatic([&, taken = taken, reason = reason](Form20& dialog) {
      rig.loop.whenShows("Form21")
          .run([&](controls::Form&) { presets().Form21.Text1.typeFromUser(taken); })
          .press("Command11")
          .run([&](controls::Form& names) {
            EXPECT_TRUE(names.Visible && presets().Form21.Text1.hasFocus());
            EXPECT_EQ(presets().Form21.Text1.Text.get(), "");
          })
          .press("Command3");
      rig.loop.meets({test::told("\rPresetName already exist !" + reason)});
      dialog.Command2.press();
      EXPECT_EQ(dialog.ListView1.count(), 1u);
    });
  }
  EXPECT_EQ(kept(), "MINE\r\n");
}

TEST_F(PresetsTest, AListThatCannotBeWrittenAndAWindowsFolderThatIsGoneAreTold) {
  auto& files = rig.use<test::FaultyFileSystem>();
  rig.startLeft();
  const auto makes = [&](Form20& dialog) {
    files.noSpace = true;
    dialog.Command2.press();
    EXPECT_EQ(dialog.ListView1.count(), 0u);
  };
  inStatic(makes, {names("home", ""), test::told("Presets Not Stored !, - No space left on device")});
  EXPECT_EQ(stored("HOME", "view1path"), "");
  files.vanishes = rig.app().program.folders.windir;
  rig.loop.whenBox("Alert !", controls::MessageAnswer::Ok,
                   "%windir% folder not found !, - make/set [windir=windows folder] Entvirontvariable");
  rig.command("Command12_Click");
}

TEST_F(PresetsTest, EnterAndDoubleClickTakeBothPanelsThere) {
  show("C:\\Work", "D:\\Backup");
  make("work");
  ASSERT_TRUE(rig.platform->settings.save("presets", "WORK", "view2path", "d:\\BACKUP"));  // as it was spelled once
  for (const bool byKey : {true, false}) {
    show("C:\\Photos", "C:\\Photos");
    const auto before = rows(presets().Form34.ListView1);
    inStatic([&](Form20& dialog) {
      click(dialog.ListView1, 0);
      EXPECT_EQ(dialog.Caption.get(), "Static Preset View,  WORK");
      byKey ? key(dialog.ListView1, controls::key::Enter) : dialog.ListView1.doubleClickFromUser(0);
      EXPECT_FALSE(dialog.Visible);
    });
    EXPECT_EQ(paths(), "C:\\Work\\ D:\\Backup\\");
    EXPECT_EQ(rig.form().Caption.get(), "Varnholt -  C:\\Work");
    EXPECT_EQ(rows(presets().Form34.ListView1), before) << "the pair was there, and no half of it was added";
    for (panels::Panel* panel : {&left(), &right()}) {
      EXPECT_TRUE(panel->forwardStack.empty());
      EXPECT_EQ(panel->backStack.count(), 1u) << "nothing to go back to";
      EXPECT_FALSE(panel->controls.Back.Enabled);
    }
  }
}

TEST_F(PresetsTest, APresetWithAVanishedFolderSaysSoAndMovesNothing) {
  show("C:\\Work\\Drafts", "D:\\Backup");
  make("drafts");
  show("C:\\Photos", "C:\\Photos");
  make("photos");
  std::filesystem::remove_all(rig.systemPath("C:\\Work\\Drafts"));
  const auto tries = [&](Form20& dialog) {
    controls::ListView& list = dialog.ListView1;
    const auto gone = list.item(0), valid = list.item(1);
    EXPECT_EQ(gone.SmallIcon(), BrokenIcon);
    EXPECT_EQ(valid.SmallIcon(), ValidIcon);
    EXPECT_NE(gone.ForeColor(), valid.ForeColor());
    EXPECT_EQ(list.rowToolTip(gone), "Left:  C:\\Work\\Drafts  (gone)\rRight:  D:\\Backup");
    list.doubleClickFromUser(0);
    EXPECT_TRUE(dialog.Visible);
  };
  inStatic(tries, {test::told("Preset has changed and NOT Valid !")});
  EXPECT_EQ(paths(), "C:\\Photos\\ C:\\Photos\\");
}

TEST_F(PresetsTest, LastExitReturnsToTheFoldersOfTheLastRun) {
  show("C:\\Work", "D:\\Backup");
  rig.command("exit_program_Click");
  rig.restart();
  rig.startLeft();
  inStatic([](Form20& dialog) { dialog.Command11.press(); });
  EXPECT_EQ(paths(), "C:\\Work\\ D:\\Backup\\");
  EXPECT_EQ(rig.form().Caption.get(), "Varnholt -  C:\\Work") << "the left panel is the active one";
  EXPECT_EQ(rig.form().ImageCombo1.Text.get(), "C:\\Work");
  EXPECT_EQ(rows(presets().Form34.ListView1), (Names{"C:\\|C:\\", "C:\\Work|D:\\Backup"}));
}

TEST_F(PresetsTest, DeletingAsksAndLeavesTheOthersAndWhatIsNoPreset) {
  for (const char* name : {"one", "two", "three"})
    make(name, name);
  rig.app().program.settings.save(core::setting::view1path, "C:\\Photos\\");
  ASSERT_TRUE(rig.platform->files.writeFile(file(), kept() + "default\r\n"));
  const auto deletes = [&](controls::Button Form20::*button, const char* what, const char* answer) {
    const auto acts = [button](Form20& dialog) {
      click(dialog.ListView1, 1);
      (dialog.*button).press();
      if (dialog.ListView1.count() == 0) (dialog.*button).press();  // nothing is left to ask about
    };
    inStatic(acts, {{"Form11", answer, "You are about to DELETE " + std::string(what) + ", - Continue ?\r"}});
  };
  deletes(&Form20::Command1, "Selected Preset", "Command1");
  EXPECT_EQ(kept(), "ONE\r\nTWO\r\nTHREE\r\ndefault\r\n");
  deletes(&Form20::Command1, "Selected Preset", "Command11");
  EXPECT_EQ(kept(), "ONE\r\nTHREE\r\nDEFAULT\r\n");
  EXPECT_EQ(stored("TWO", "Text") + stored("THREE", "Text"), "Three");
  deletes(&Form20::Command4, "all Presets", "Command1");
  EXPECT_EQ(kept(), "ONE\r\nTHREE\r\nDEFAULT\r\n");
  deletes(&Form20::Command4, "all Presets", "Command11");
  EXPECT_EQ(kept(), "none");
  EXPECT_EQ(stored("ONE", "view1path"), "");
  EXPECT_EQ(stored("default", "view1path"), "C:\\Photos\\") << "the folders of the last exit are no preset";
}

TEST_F(PresetsTest, EachVisitedPairStandsOnceWhateverItsCase) {
  show("C:\\Work", "D:\\Backup");
  const Names pairs{"C:\\|C:\\", "C:\\Work|C:\\", "C:\\Work|D:\\Backup"};
  EXPECT_EQ(rows(presets().Form34.ListView1), pairs);
  show("C:\\Work", "D:\\Backup");
  left().setPath("c:\\WORK");
  presets().Form34.DynPresetAdd();
  EXPECT_EQ(rows(presets().Form34.ListView1), pairs);
  inDynamic([](Form34& dialog) { dialog.Check1.toggleFromUser(); });
  show("C:\\Photos", "D:\\Backup");
  EXPECT_EQ(rows(presets().Form34.ListView1), pairs) << "recording is off";
  EXPECT_EQ(rig.platform->settings.get("kelvarton", "LastCommand", "Command"), "64");
}

TEST_F(PresetsTest, AVisitedPairIsOpenedAgainUnlessItIsGone) {
  show("C:\\Work\\Drafts", "D:\\Backup");
  show("C:\\Photos", "C:\\Photos");
  const auto invalid = test::told("Preset has changed and NOT Valid !");
  inDynamic([&](Form34& dialog) {
    controls::ListView& list = dialog.ListView1;
    click(list, 2);
    EXPECT_EQ(dialog.Label1.Caption.get() + dialog.Label2.Caption.get(), "C:\\Work\\DraftsD:\\Backup");
    key(list, controls::key::Enter);
    EXPECT_TRUE(dialog.Visible && list.hasFocus());
    EXPECT_EQ(paths(), "C:\\Work\\Drafts\\ D:\\Backup\\");
    EXPECT_EQ(rig.form().Caption.get(), "Varnholt -  C:\\Work\\Drafts");
  });
  rig.command("Command23_Click");
  EXPECT_EQ(left().path(), "C:\\Photos\\") << "the way back is kept";
  show("C:\\Photos", "C:\\Photos");
  std::filesystem::remove_all(rig.systemPath("C:\\Work\\Drafts"));
  inDynamic([&](Form34& dialog) {
    controls::ListView& list = dialog.ListView1;
    EXPECT_EQ(list.item(2).SmallIcon(), BrokenIcon);
    EXPECT_EQ(list.item(0).SmallIcon(), ValidIcon);
    click(list, 2);
    rig.loop.meets({invalid, invalid});
    list.doubleClickFromUser(2);
    dialog.Command1.press();
    dialog.Command11.press();
    EXPECT_EQ(list.count(), 0u);
    EXPECT_EQ(dialog.Label1.Caption.get(), "");
    dialog.Command1.press();
  });
  EXPECT_EQ(paths(), "C:\\Photos\\ C:\\Photos\\");
}

TEST_F(PresetsTest, SortingIsSwitchedOnAndOff) {
  show("C:\\Work", "D:\\Backup");
  show("C:\\Photos", "D:\\Backup");
  controls::ListView& list = presets().Form34.ListView1;
  const Names visited = rows(list);
  const auto sorted = [&](int number) {
    list.headerFromUser(number);
    return rows(list).front();
  };
  inDynamic([&](Form34& dialog) {
    EXPECT_EQ(sorted(1), visited.front()) << "sorting is off";
    dialog.Check2.toggleFromUser();
    EXPECT_EQ(rows(list), (Names{"C:\\|C:\\", "C:\\Photos|D:\\Backup", "C:\\Work|C:\\", "C:\\Work|D:\\Backup"}));
    EXPECT_EQ(list.ColumnHeaders.get()[0].Icon, SortedUpIcon);
    EXPECT_EQ(sorted(1).substr(0, 7), "C:\\Work");
    EXPECT_EQ(list.ColumnHeaders.get()[0].Icon, SortedDownIcon);
    dialog.Check2.toggleFromUser();
    EXPECT_EQ(list.ColumnHeaders.get()[0].Icon, 0);
    EXPECT_EQ(rows(list), visited);
  });
}

}  // namespace
}  // namespace varnholt::places

#include "support/app_rig.hpp"

#include "app/arguments.hpp"
#include "core/diagnostic_log.hpp"
#include "core/program_files.hpp"

namespace varnholt::app {
namespace {

using controls::MessageAnswer;
using test::AppRig;
using test::ScopedVariable;

class StartTest : public test::AppTest {
 protected:
  std::string setting(const core::SettingKey& key) { return core::Settings(rig.platform->settings).get(key); }
  std::string programFile(std::string_view literal) { return rig.programFolder() + std::string(literal); }
  void keep(std::string_view literal, const std::string& text) {
    ASSERT_TRUE(files().writeFile(programFile(literal), text));
  }
  std::string readProgramFile(std::string_view literal) { return files().readFile(programFile(literal)).valueOr(""); }
  void closeWindow() { form().closeFromUser(); }
};

TEST_F(StartTest, AFirstStartHasEveryDefault) {
  rig.write("C:\\letter.txt");
  rig.splashGoes();
  ASSERT_TRUE(rig.app().Main());
  rig.loop.whenShows("frmTip").reads("Caption", "Varnholt StartUp Tip !").press("cmdOK");
  form().Activate();
  form().Activate();

  EXPECT_EQ(left().path() + form().Text2.Text.get() + form().ImageCombo1.Text.get(), "C:\\C:\\C:\\");
  EXPECT_EQ(rig.names(left()), Names{"letter|txt"});
  EXPECT_EQ(status(panels::status::ActiveView) + form().mode(), "View2ActiveSelectMode");
  EXPECT_EQ(status(panels::status::Time) + status(panels::status::Date), "Time: 14:05:07Date: 09-03-2007");
  for (const char* on : {"PreFolder", "DateTime24", "DateModi", "AutoSaveHis", "TipStart", "Viewall", "BlueBlack"})
    EXPECT_TRUE(rig.menu(on).Checked) << on;
  for (const char* off : {"RLC", "HidSysfiles", "DateTime12", "LockOnLast", "IncludeFolder", "ValCopyMove", "GridLines",
                          "ShiftColors", "ShiftColorOther", "Auto_Save"})
    EXPECT_FALSE(rig.menu(off).Checked) << off;
  EXPECT_FALSE(rig.menu("LockOnLast").Enabled);
  EXPECT_EQ(rig.menu("Viewfilter").Caption.get(), "|  View Filter:  All Files  (*.*) - Excl. Hidden and System Files.");
  for (const auto folder : {core::program_file::VDT_Projects, core::program_file::Favorites, core::program_file::Tmp})
    EXPECT_TRUE(files().folderExists(programFile(folder))) << folder;
}

TEST_F(StartTest, ANarrowScreenIsAWarningAndNoMore) {
  rig.loop.screen().width = 9'990;
  rig.loop.whenShows("Form13").reads({"Caption|Alert", "Label1|Monitor Width to Small !"}).run([&](auto&) {
    EXPECT_EQ(form().Timer2.Interval, 2000);
    form().Timer2.Tick();
  });
  EXPECT_TRUE(rig.start());
  EXPECT_TRUE(form().Visible);
}

TEST_F(StartTest, AWindowsFolderThatIsNotThereEndsTheProgramAndAShortNameOfOneDoesNot) {
  {
    const ScopedVariable windir("windir", "C:\\gone");
    rig.restart();
    rig.loop.whenBox("Alert !", MessageAnswer::Ok,
                     "Windows Folder NOT Found or NOT Valid !, - make/set [windir=windows folder] Entvirontvariable !");
    EXPECT_FALSE(rig.app().Main());
    EXPECT_FALSE(form().Visible);
  }
  const ScopedVariable windir("windir", "C:\\");
  rig.restart();
  EXPECT_TRUE(rig.start());
  EXPECT_EQ(rig.app().program.folders.windir, rig.platform->environment.windowsFolder() + "\\");
}

TEST_F(StartTest, OtherVariablesThatNameNoFolderAreToldOnly) {
  const ScopedVariable temporary("tmp", "C:\\no tmp"), root("SystemRoot", "C:\\no root"), programs("ProgramFiles", "");
  rig.restart();
  rig.splashGoes();
  for (const std::string what : {"%SystemRoot% Folder Not Found !, - make/set [SystemRoot= windows folder]",
                                 "%tmp% Folder Not Found !, - make/set [tmp=tmp folder]"})
    rig.loop.whenBox("Alert !", MessageAnswer::Ok, what + " Entvirontvariable");
  EXPECT_TRUE(rig.app().Main());
  const auto& folders = rig.app().program.folders;
  EXPECT_TRUE(folders.tmp.empty() && folders.ProgramFiles.empty() && !folders.temp.empty());
}

TEST_F(StartTest, WithoutItsDriveBothPanelsStartOnTheFirstThatThereIs) {
  rig.write("D:\\photo.jpg");
  rig.drives->away = {'C'};
  rig.splashGoes();
  rig.loop.meets({test::told("Drive C: Not Found !\rBoth Views Start On Drive D:")});
  ASSERT_TRUE(rig.app().Main());
  for (const panels::Panel* panel : {&left(), &right()}) {
    EXPECT_EQ(rig.names(*panel), std::vector<std::string>{"photo|jpg"});
    EXPECT_EQ(panel->controls.Drive.Text.get(), "D:");
  }
  EXPECT_EQ(form().InitFolder, "D:\\");
}

TEST_F(StartTest, TheLogIsWrittenOnceAndNeverAgain) {
  ASSERT_TRUE(rig.start());
  const std::string log = readProgramFile(core::program_file::Log);
  EXPECT_TRUE(log.starts_with("[VnVersion]     " + core::programVersion() +
                              "\r\n[Curdate]       09-03-2007\r\n[Windir]        "))
      << log;
  EXPECT_NE(log.find("\r\n[Platform]      2\r\n[OSVersion]     6.0\r\n[OSBuild]       6002\r\n[Install. Path] "),
            std::string::npos);
  EXPECT_NE(log.find("[FreeSpace]     ~ "), std::string::npos);
  EXPECT_TRUE(log.ends_with(" MB Free\r\n")) << log;
  keep(core::program_file::Log, "mine");
  rig.restart();
  ASSERT_TRUE(rig.start());
  EXPECT_EQ(readProgramFile(core::program_file::Log), "mine");
}

TEST_F(StartTest, TheTipShowsAtEachStartUntilItsBoxIsChecked) {
  for (const bool checkBox : {false, true}) {
    rig.splashGoes();
    rig.loop.whenShows("frmTip")
        .run([&](controls::Form& form) {
          if (checkBox) dynamic_cast<controls::CheckBox&>(*form.control("LoadTip")).toggleFromUser();
        })
        .press("cmdOK");
    ASSERT_TRUE(rig.app().Main());
    form().Activate();
    EXPECT_EQ(rig.menu("TipStart").Checked, !checkBox);
    closeWindow();
    rig.restart();
  }
  EXPECT_EQ(setting(core::setting::Tip_State), "1");
  rig.splashGoes();
  ASSERT_TRUE(rig.app().Main());
  form().Activate();
  EXPECT_FALSE(rig.menu("TipStart").Checked);
}

TEST_F(StartTest, WhatTheUserChoseIsThereAtTheNextStart) {
  ASSERT_TRUE(rig.start());
  const Names chosen{"HidSysfiles", "DateCreate", "DateTime12",    "GridLines",  "ShiftColors",
                     "BrownBlack",  "RLC",        "IncludeFolder", "LockOnLast", "Auto_Save"};
  for (const std::string& entry : chosen)
    rig.menu(entry).choose();
  EXPECT_TRUE(rig.menu("ColorMenu").Enabled) << "as soon as lines are shifted";
  left().list.widthFromUser(0, 1234);
  rig.menu("SavColumnH").choose();
  form().Left = 300;
  form().Width = 9000.5;
  form().WindowState = controls::WindowState::Maximized;
  rig.app().Form9.Top = 450;
  closeWindow();
  EXPECT_TRUE(rig.loop.quitAsked);

  rig.restart();
  ASSERT_TRUE(rig.start());
  for (const std::string& entry : chosen)
    EXPECT_TRUE(rig.menu(entry).Checked) << entry;
  EXPECT_FALSE(rig.menu("BlueBlack").Checked);
  EXPECT_EQ(rig.menu("Viewfilter").Caption.get(), "|  View Filter:  All Files  (*.*)");
  EXPECT_EQ(form().ListView1.ColumnHeaders.get()[3].Text, "Date Created:");
  EXPECT_EQ(form().ListView1.ColumnHeaders.get()[0].Width, 1234);
  EXPECT_TRUE(form().ListView1.GridLines);
  EXPECT_TRUE(form().ListView1.Picture->ends_with("\\line34db.jpg"));
  EXPECT_EQ(form().Left, 300.0);
  EXPECT_EQ(form().Width, 9000.5);
  EXPECT_TRUE(form().WindowState == controls::WindowState::Maximized);
  EXPECT_EQ(rig.app().Form9.Top, 450.0);
  EXPECT_EQ(setting(core::setting::MainViewState), "3");
  EXPECT_EQ(setting(core::setting::view1path), "C:\\");
}

TEST_F(StartTest, ABadStoredNumberCostsOnlyItsOwnValue) {
  core::Settings settings(rig.platform->settings);
  settings.save(core::setting::Left, "12x");
  settings.save(core::setting::Top, "345,5");
  settings.save(core::setting::Skintype, "-3");
  settings.save(core::setting::W1Col1, "900");
  settings.save(core::setting::W1Col2, "wide");
  settings.save(core::setting::W1Col3, "1e30");
  ASSERT_TRUE(rig.start());
  EXPECT_EQ(form().Left, 0.0);
  EXPECT_EQ(form().Top, 345.5);
  EXPECT_EQ(rig.app().program.init.Skintype, "0");
  EXPECT_EQ(form().ListView1.ColumnHeaders.get()[0].Width, 900);
  for (const std::size_t column : {1u, 2u})
    EXPECT_EQ(form().ListView1.ColumnHeaders.get()[column].Width, panels::panelColumns()[column].Width);
}

TEST_F(StartTest, HistoriesComeBackWithoutWhatIsGone) {
  rig.makeFolder("C:\\here");
  keep(core::program_file::DirHis, "C:\\here\r\nC:\\vanished\\\n\r\nc:\\HERE\\\r\n\xFF\x00 garbage\r\n");
  // No path is that long, and a box that shows it holds up the program.
  keep(core::program_file::FileHis, std::string(100'000, 'x') + "\r\nC:\\a.txt\r\nC:\\b.txt");
  ASSERT_TRUE(rig.start());
  EXPECT_EQ(rig.app().histories.folders.entries(), std::vector<std::string>{"C:\\here\\"});
  EXPECT_EQ(form().ImageCombo1.Items->size(), 1u);
  EXPECT_EQ(rig.app().histories.files.entries(), (std::vector<std::string>{"C:\\a.txt", "C:\\b.txt"}));

  closeWindow();
  EXPECT_EQ(readProgramFile(core::program_file::DirHis), "C:\\here\\\r\n");
  EXPECT_EQ(readProgramFile(core::program_file::FileHis), "C:\\a.txt\r\nC:\\b.txt\r\n");
  EXPECT_EQ(readProgramFile(core::program_file::GetFolders), "C:\\\r\n");
}

TEST_F(StartTest, TwoRunningCopiesLoseNoneOfEachOthersHistory) {
  keep(core::program_file::FileHis, "C:\\old.txt\r\nC:\\taken out.txt\r\n");
  keep(core::program_file::GetFolders, "C:\\\r\nD:\\was\\\r\n");
  ASSERT_TRUE(rig.start());
  AppRig other(rig.scratch.path());
  ASSERT_TRUE(other.start());
  rig.app().histories.files.add("C:\\ours.txt");
  rig.app().histories.files.remove("C:\\taken out.txt");
  other.app().histories.files.add("C:\\theirs.txt");
  other.app().histories.files.add("c:\\OURS.txt");
  other.app().histories.noteLastFolder("D:\\theirs");
  other.app().histories.noteLastFolder("E:\\theirs");
  other.form().closeFromUser();
  closeWindow();
  EXPECT_EQ(readProgramFile(core::program_file::FileHis), "C:\\old.txt\r\nC:\\theirs.txt\r\nC:\\ours.txt\r\n");
  EXPECT_EQ(readProgramFile(core::program_file::GetFolders), "C:\\\r\nD:\\theirs\\\r\nE:\\theirs\\\r\n");
}

TEST_F(StartTest, FoldersOfTheCommandLineAreShownLeftAndRight) {
  rig.write("C:\\Photos\\coast.jpg");
  rig.makeFolder("D:\\Old");
  rig.startLeft();
  rig.app().openFolders({rig.systemPath("C:\\Photos\\coast.jpg"), "D:\\old"});
  EXPECT_EQ(left().path(), "C:\\Photos\\");
  EXPECT_EQ(right().path(), "D:\\Old\\");
  EXPECT_EQ(form().Caption.get() + status(3), "Varnholt -  C:\\PhotosView1Active");
  rig.loop.meets({test::told("Folder Not Found !\rC:\\gone")});
  rig.app().openFolders({rig.systemPath("C:\\gone")});
  EXPECT_EQ(left().path(), "C:\\Photos\\");
}

TEST(Arguments, AreAnsweredWithoutAWindowOrNameFolders) {
  using List = std::vector<std::string>;
  for (const auto& [arguments, begins, code] : std::initializer_list<std::tuple<List, std::string, int>>{
           {{"--help"}, "Usage: varnholt [LEFT [RIGHT]]", 0},
           {{"/tmp", "--version"}, "Varnholt " + core::programVersion() + "\n", 0},
           {{"--nonsense"}, "varnholt: no such option: --nonsense\nUsage", 2}}) {
    const auto answer = answerWithoutWindow(arguments);
    ASSERT_TRUE(answer) << begins;
    EXPECT_TRUE(answer->text.starts_with(begins)) << answer->text;
    EXPECT_EQ(answer->exitCode, code);
  }
  for (const auto& arguments : {List{}, List{"/a"}, List{"/a", "/b"}, List{"-platform", "xcb", "/a", "/b"},
                                List{"a", "b", "c"}, List{"--", "--help"}})
    EXPECT_FALSE(answerWithoutWindow(arguments));
  const std::string here = std::filesystem::current_path();
  EXPECT_EQ(foldersNamed({"c:\\x", "--", "--odd"}), (List{"C:\\x", here + "/--odd"}));
  EXPECT_EQ(foldersNamed({"/a/../b", "."}).front(), "/b");
  EXPECT_EQ(foldersNamed({"file:///a%20b/%c3%a4", "file://elsewhere/a"}),
            (List{"/a b/\xC3\xA4", here + "/file:/elsewhere/a"}));
}

TEST_F(StartTest, WithoutAutoSaveTheHistoriesStayAsTheyAre) {
  keep(core::program_file::FileHis, "C:\\a.txt\r\n");
  ASSERT_TRUE(rig.start());
  rig.app().histories.files.add("C:\\new.txt");
  rig.menu("AutoSaveHis").choose();
  closeWindow();
  EXPECT_EQ(readProgramFile(core::program_file::FileHis), "C:\\a.txt\r\n");
  EXPECT_EQ(setting(core::setting::FolderHistory), "0");
}

TEST_F(StartTest, MissingLineImagesAreToldAndLeaveTheGrid) {
  ASSERT_TRUE(files().deleteFile(programFile(core::program_file::Line34dg), true));
  core::Settings(rig.platform->settings).save(core::setting::MainViewState, "3");
  rig.splashGoes();
  rig.loop.meets({test::noticed("\rImage File Line34*.Jpg missing In App. Folder !")});
  ASSERT_TRUE(rig.app().Main());
  EXPECT_TRUE(rig.menu("GridLines").Checked);
  EXPECT_FALSE(rig.menu("ShiftColors").Checked);
  rig.loop.meets({test::told("Image File Line34*.Jpg missing In App. Folder !")});
  rig.menu("ShiftColors").choose();
  EXPECT_FALSE(rig.menu("ShiftColors").Checked);
}

TEST_F(StartTest, ResettingToDefaultsAsksFirst) {
  core::Settings(rig.platform->settings).save(core::setting::Hight, 6000.0);
  ASSERT_TRUE(rig.start());
  rig.menu("Auto_Save").choose();
  const std::string text = "Varnholt Resets To Default Positions/Size !\rProgram Shut Down... !";
  for (const auto answer : {MessageAnswer::Cancel, MessageAnswer::Ok}) {
    rig.loop.whenBox("Alert !", answer, text);
    rig.menu("ReturnDefault").choose();
    EXPECT_EQ(rig.loop.quitAsked, answer == MessageAnswer::Ok);
    EXPECT_EQ(setting(core::setting::Hight), answer == MessageAnswer::Ok ? "" : "6000");
  }
  EXPECT_EQ(setting(core::setting::AutoPosition), "1") << "the choice is not one of the positions";
}

TEST_F(StartTest, UninstallingNeedsTwoConfirmations) {
  ASSERT_TRUE(rig.start());
  const test::Answer first = test::yes(
      "Warning: Are you About to Prepare for Uninstall. !\rAll Program related settings/data will be deleted !\r"
      "Program will shut down afterwards !\rARE YOU SURE ?");
  rig.loop.meets({first, {"Form11", ""}});
  rig.menu("Peruninstall").choose();
  EXPECT_FALSE(rig.loop.quitAsked);
  EXPECT_TRUE(files().folderExists(programFile(core::program_file::Notes)));

  const std::string mine = programFile(core::program_file::Collections) + "\\mine.txt";
  ASSERT_TRUE(files().writeFile(mine, "mine"));
  rig.loop.meets({first, test::yes("All Personal program data are Lost !\rUninstall program from windows control panel "
                                   "afterwards.\rARE YOU QUIT SURE ?")});
  const auto namesMine = [&] { EXPECT_NE(rig.app().dialogs.Form12.Label1.Caption->find(mine), std::string::npos); };
  rig.loop.meets({{"Form12", "Command11", "", namesMine}});
  rig.loop.meets({test::noticed("System Cleaned before Uninstall !")});
  rig.menu("Peruninstall").choose();
  EXPECT_TRUE(rig.loop.quitAsked);
  EXPECT_TRUE(files().fileExists(mine) && files().fileExists(programFile(core::program_file::Line34)));
  EXPECT_FALSE(files().folderExists(programFile(core::program_file::Notes)));
  EXPECT_FALSE(files().fileExists(programFile(core::program_file::Log)));
  EXPECT_EQ(setting(core::setting::Tip_State), "0") << "the store is empty again";
}

TEST_F(StartTest, UninstallingLeavesTheUsersOwnFilesAndNamesThem) {
  // Portable use in a home folder: some of the folders were the user's before the program came.
  auto portable = *rig.platform;
  portable.ownsProgramFolder = false;
  auto& files = portable.files;
  const auto at = [&](const char* name) { return programFile(name); };
  const auto write = [&](const char* name, const char* text) { ASSERT_TRUE(files.writeFile(at(name), text)) << name; };
  ASSERT_TRUE(files.createFolder(at("\\Notes")));
  core::program_file::makeFolders(portable);
  ASSERT_TRUE(files.createFolder(at("\\SwapTmp\\half a swap")));
  ASSERT_TRUE(files.createFolder(at("\\Favorites\\Work")));
  for (const char* ours : {"\\Bookmarks\\a.Bmk", "\\VDT_Projects\\Default.Pro", "\\Favorites\\Work\\a.url"})
    write(ours, "x");
  write("\\FileHis.Dat", "C:\\a.txt\r\n");
  write("\\Preset.Ini", "HOME\r\n");
  const Names users = {at("\\Temp.Url"), at("\\Favorites\\list.txt"), at("\\Notes"), at("\\Tmp\\moved once.txt"),
                       at("\\SwapTmp\\half a swap")};
  write("\\Temp.Url", "my own address");
  write("\\Favorites\\list.txt", "mine");
  write("\\Notes\\diary.txt", "Dear diary");
  write("\\Notes\\letter.rtf", "written elsewhere");
  write("\\Tmp\\moved once.txt", "the only copy");

  EXPECT_EQ(core::program_file::deleteUserData(portable), users);
  for (const auto& kept : users)
    EXPECT_TRUE(files.fileExists(kept) || files.folderExists(kept)) << kept;
  for (const char* name : {"\\Notes\\diary.txt", "\\Notes\\letter.rtf"})
    EXPECT_TRUE(files.fileExists(at(name))) << name;
  for (const char* gone : {"\\Bookmarks", "\\VDT_Projects", "\\Favorites\\Work", "\\Collections"})
    EXPECT_FALSE(files.folderExists(at(gone))) << gone;
  EXPECT_FALSE(files.fileExists(at("\\FileHis.Dat")) || files.fileExists(at("\\Preset.Ini")));
}

TEST_F(StartTest, LeavingCleansOnlyTheProgramsOwnTemporaryFiles) {
  rig.makeFolder("C:\\tmp folder");
  const ScopedVariable temporary("tmp", "C:\\tmp folder");
  rig.restart();
  write({"tmp folder\\vnh0001.tmp", "tmp folder\\other.tmp"});
  rig.makeFolder("C:\\tmp folder\\vnhfolder");
  ASSERT_TRUE(rig.start());
  form().Command10.press();
  EXPECT_FALSE(rig.exists("C:\\tmp folder\\vnh0001.tmp"));
  EXPECT_TRUE(rig.exists("C:\\tmp folder\\other.tmp"));
  EXPECT_TRUE(rig.exists("C:\\tmp folder\\vnhfolder"));
  EXPECT_TRUE(rig.loop.quitAsked);
}

}  // namespace
}  // namespace varnholt::app

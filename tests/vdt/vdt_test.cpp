#include "core/text_file.hpp"
#include "support/app_rig.hpp"
#include "support/mutations.hpp"

namespace varnholt::vdt {
namespace {

namespace key = controls::key;
constexpr const char* Exists = "Item Already Exist in VDT.. !";

class VDTTest : public test::AppTest {
 protected:
  void SetUp() override {
    rig.useRecordingShell();
    write({"Data\\a.txt", "Data\\b", "Data\\Old\\c.txt"});
    rig.makeFolder("C:\\To");
    rig.startLeft();
    show("C:\\Data", "C:\\To");
    rig.command("LocalDesk_Click");
  }
  VDT& vdt() { return rig.app().vdt; }
  controls::ListView& list() { return form().ListView3; }
  Names rows() {
    Names found;
    for (std::uint32_t row = 0; row < list().count(); ++row)
      found.push_back(list().cell(row, 0) + "|" + list().cell(row, 1) +
                      (list().source().icon(list().idAt(row)) == GoneIcon ? "|gone" : ""));
    return found;
  }
  void drop(const Names& files, const controls::Control* source = nullptr) {
    controls::DropEvent event{files, {}, source};
    list().OLEDragDrop(event);
    EXPECT_TRUE(event.accepted);
  }
  void dropRow(const std::string& row) {
    rig.click(left(), row);
    drop({"whatever is dragged"}, &left().list);
  }
  void click(std::uint32_t row, controls::Modifiers modifiers = {}) { test::click(list(), row, modifiers); }
  void press(int code, controls::Modifiers modifiers = {}) { test::key(list(), code, modifiers); }
  std::string project(const char* name) { return rig.programFolder() + "\\VDT_Projects\\" + name; }
  void load(const std::string& bytes) {
    rig.write(project("Default.Pro"), bytes);
    vdt().projects.VdtProjectLoad();
  }
  std::string saved() {
    EXPECT_TRUE(vdt().projects.VdtProjectSave());
    return rig.read(project(vdt().projects.current().c_str()));
  }
};

TEST_F(VDTTest, ADropFromAPanelAddsTheItemInFocusAndOneFromAnotherProgramAll) {
  clickAll({"\\ Old", "b", "a"});
  drop({"three", "are", "dragged"}, &left().list);
  dropRow("\\ Old");
  rig.loop.meets({test::noticed(Exists)});
  dropRow("\\ Old");
  const Names fromPanel{"C:\\Data\\|a.txt", "C:\\Data\\Old\\|<Folder>"};
  EXPECT_EQ(rows(), fromPanel);
  click(0);
  rig.loop.meets({test::noticed(Exists)});
  drop({"C:\\", "C:\\Data\\a.txt", "C:\\Data\\A.TXT", "C:\\Data\\b"});
  EXPECT_EQ(rows(), (Names{fromPanel[0], fromPanel[1], "C:\\|<Folder>", "C:\\Data\\|A.TXT", "C:\\Data\\|b"}));
  EXPECT_TRUE(list().item(0).Selected() && list().focusedRow() == 0u) << "what was marked stays marked";
  EXPECT_TRUE(rig.menu("Clear_Vd").Enabled && rig.menu("DelItems_Vd").Enabled && rig.menu("CopyVDT").Enabled);
  rig.command("LocalDesk_Click");
  EXPECT_FALSE(rig.menu("Clear_Vd").Enabled || rig.menu("DelItems_Vd").Enabled || form().VDT_Aktive);
  EXPECT_TRUE(left().list.hasFocus());
}

TEST_F(VDTTest, WhileItHasTheKeyboardNothingReachesThePanelsSelection) {
  load("C:\\Data\\a.txt\r\nC:\\Data\\gone.txt\r\nC:\\Data\\Old\\<Folder>\r\n");
  std::string told;
  form().events.VDT_Aktive.listen([&](bool active) { told += active ? "on " : "off "; });
  rig.click(left(), "\\ Old");
  ASSERT_FALSE(form().Command2.Enabled || rig.menu("EditFile").Enabled) << "a folder cannot be edited";
  click(1);
  EXPECT_EQ(status(3), "1  Item(s) Selected, View1Active");
  EXPECT_EQ(form().Caption.get(), "Varnholt - ShortCut To : C:\\Data\\");
  press(key::Up);
  EXPECT_EQ(form().Caption.get(), "Varnholt - ShortCut To : C:\\Data\\a.txt");
  press('A', {false, true, false});
  press(key::F8);
  EXPECT_EQ(status(3), "3  Item(s) Selected, View1Active");
  EXPECT_EQ(selected(left()), Names{"Old"});
  for (const char* entry : {"CopyItems", "Deleteitems", "EditFile", "selectall", "Inversel", "Recallprevius"})
    EXPECT_FALSE(rig.menu(entry).Enabled) << entry;
  EXPECT_FALSE(form().Command1.Enabled || form().Command15.Enabled);
  rig.command("Clear_Vd_Click", {test::no()});
  EXPECT_TRUE(form().VDT_Aktive && rig.menu("CopyVDT").Enabled) << "a dialog is no other control";
  left().list.SetFocus();
  EXPECT_TRUE(form().Command1.Enabled && rig.menu("selectall").Enabled && !form().VDT_Aktive);
  EXPECT_FALSE(form().Command2.Enabled || rig.menu("EditFile").Enabled || rig.menu("CopyVDT").Enabled);
  EXPECT_EQ(told + status(3), "on off View1Active");
  rig.command("GoToVDT_Click");
  EXPECT_TRUE(list().hasFocus());
  press(key::Esc);
  EXPECT_TRUE(left().list.hasFocus());
}

TEST_F(VDTTest, DeleteTakesPointersAndNeverWhatTheyPointTo) {
  rig.command("DelItems_Vd_Click");
  rig.command("Clear_Vd_Click");
  load("C:\\Data\\a.txt\r\nC:\\Data\\b\r\nC:\\Data\\Old\\<Folder>\r\n");
  click(0);
  click(1, {false, true, false});
  const std::string question = "You are about to Delete \r2 Selected ShortCut(s)\rAre you Sure ?";
  rig.loop.meets({test::no(question), test::yes(question)});
  press(key::Delete);
  EXPECT_EQ(rows().size(), 3u);
  form().Command4.press();
  form().Command4.MouseUp({});
  EXPECT_EQ(rows(), Names{"C:\\Data\\Old\\|<Folder>"});
  EXPECT_TRUE(rig.exists("C:\\Data\\a.txt") && list().hasFocus() && list().item(0).Selected());
  rig.command("Clear_Vd_Click", {test::yes("You are about to Clear All ShortCut(s)\rAre you Sure ?")});
  EXPECT_EQ(saved(), "\r\n");
  EXPECT_FALSE(rig.menu("Clear_Vd").Enabled);
}

TEST_F(VDTTest, OpensTheFileGoesToTheFolderAndTellsWhatIsGone) {
  load("C:\\Data\\a.txt\r\nC:\\Data\\gone.txt\r\nC:\\Data\\Old\\<Folder>\r\n");
  click(0);
  press(key::F3);
  EXPECT_NE(rig.read(rig.programFolder() + "\\Temp.Url").find("URL=file:///C:\\Data\\a.txt\r\n"), std::string::npos);
  EXPECT_EQ(rig.app().mostUsed.entries.at(0).name, "a.txt");
  click(1);
  rig.loop.meets({test::noticed("File/Folder Path Not Available..!")});
  press(key::Enter);
  click(2);
  list().doubleClickFromUser(2);
  EXPECT_EQ(left().path(), "C:\\Data\\Old\\");
  EXPECT_TRUE(list().hasFocus() && form().VDT_Aktive);
  EXPECT_EQ(rig.app().histories.folders.entries().back(), "C:\\Data\\Old\\");
}

TEST_F(VDTTest, CopiesSelectedFilesWhereNothingHasTheirNameAndOverwritesNothing) {
  write({"Data\\there.txt", "More\\a.txt"});
  rig.write("C:\\To\\there.txt", "kept");
  load("C:\\Data\\a.txt\r\nC:\\More\\a.txt\r\nC:\\Data\\there.txt\r\nC:\\Data\\gone.txt\r\nC:\\Data\\Old\\<Folder>\r\n"
       "C:\\Data\\b\r\n");
  right().list.SetFocus();
  click(4);
  rig.command("CopyVDT_Click");
  click(0);
  click(4, {true, false, false});
  rig.command("CopyVDT_Click", {test::yes("Are you sure you want to Copy 4 selected file(s) From VDT ?\r"
                                          "(Only NON Existing files on target are Copied !)\rTo: C:\\To\\")});
  EXPECT_EQ(rig.names(right()), (Names{"a|txt", "there|txt"}));
  EXPECT_EQ(rig.read("C:\\To\\there.txt") + rig.read("C:\\To\\a.txt"), "keptx");
  EXPECT_EQ(list().selectedCount(), 0u);
  EXPECT_EQ(list().foreColor(0), controls::NoColor);
  EXPECT_TRUE(std::ranges::count(list().PopupEntries(), &rig.menu("CopyVDT")));
}

TEST_F(VDTTest, RowsThatADriveTakesAwayBehindAQuestionTakeNoOthersAlong) {
  const auto answers = [&] { vdt().pointers.remove({0}); };
  for (const char* command : {"CopyVDT_Click", "DelItems_Vd_Click"}) {
    load("C:\\Data\\gone.txt\r\nC:\\Data\\Old\\c.txt\r\nC:\\Data\\a.txt\r\n");
    click(1);
    rig.command(command, {{"Form11", "Command11", "", answers}});
  }
  EXPECT_TRUE(rig.exists("C:\\Data\\c.txt"));
  EXPECT_EQ(rows(), Names{"C:\\Data\\|a.txt"});
}

TEST_F(VDTTest, AHeadSortsAndTheNextClickTurnsTheOrderWhicheverItIsOn) {
  load("C:\\Data\\b\r\nC:\\Data\\Old\\<Folder>\r\nC:\\Data\\a.txt\r\n");
  const auto lines = [&] { return vdt().pointers.lines(); };
  const Names asRead = lines(), foldersFirst{asRead[1], asRead[2], asRead[0]};
  list().ColumnClick(2);
  EXPECT_EQ(lines(), foldersFirst);
  list().ColumnClick(1);
  EXPECT_EQ(lines(), foldersFirst) << "descending";
  EXPECT_EQ(list().ColumnHeaders->at(0).Icon, 12);
  list().ColumnClick(1);
  EXPECT_EQ(lines(), (Names{asRead[2], asRead[0], asRead[1]}));
}

TEST_F(VDTTest, LinesAreReadForWhatTheyAreWorthAndWrittenByteForByte) {
  rig.loop.meets({{"Form12"}});
  load("C:\\Data\\a.txt\r\nC:\\Data\\Ol");
  EXPECT_EQ(rows().size(), 2u);
  EXPECT_TRUE(rig.exists(project("Default.Pro.damaged-1")) && !rig.exists(project("Default.Pro"))) << "it was cut off";
  rig.write("C:\\x.txt");
  rig.write("D:\\\xFF.txt");
  const std::string gone = "C:\\Data\\note.txt\r\n",
                    lines = "C:\\x.txt\r\nC:\\<Folder>\r\n" + gone + "D:\\None\\<Folder>\r\nD:\\\xFF.txt\r\n";
  load(lines);
  EXPECT_EQ(rows(), (Names{"C:\\|x.txt", "C:\\|<Folder>", "C:\\Data\\|note.txt|gone", "D:\\None\\|<Folder>|gone",
                           "D:\\|\xFF.txt"}));
  EXPECT_EQ(saved(), lines);
  load("\xEF\xBB\xBF"
       "abc\nC:\\y.txt\nc:\\DATA\\A.txt\nC:\\Data\\old\\<Folder>\nC:\\Data\\Old<Folder>\nno drive at all\n");
  EXPECT_EQ(rows(), (Names{"C:\\Data\\|a.txt", "C:\\Data\\Old\\|<Folder>", "C:\\Data\\Old\\|<Folder>",
                           "|no drive at all|gone"}));
  test::forMutationsOf(lines, {"<Folder>", "\r\n", "\n", "\\", "c:\\", "\xEF\x80\x8A"}, [](const std::string& bytes) {
    for (const std::string& line : core::splitEntries(bytes)) {
      const auto pointer = pointerOf(line);
      ASSERT_TRUE(!pointer || pointerOf(pointer->key()) == pointer) << line;
    }
  });
}

TEST_F(VDTTest, TheDialogStoresTheProjectOpensAnotherAndBeginsNewOnes) {
  load("C:\\Data\\b\r\n");
  rig.write(project("x?.PRO"), "C:\\Data\\a.txt\r\n");
  rig.write(project("no.txt"));
  dropRow("\\ Old");
  rig.command("LocalDesk_Click");
  auto& dialog = vdt().Form44;
  rig.loop.whenShows("Form44")
      .reads("Label1", "Open Project:")
      .run([&](auto&) {
        EXPECT_EQ(rig.read(project("Default.Pro")), "C:\\Data\\b\r\nC:\\Data\\Old\\<Folder>\r\n");
        ASSERT_EQ(dialog.Combo1.Items->size(), 2u);
        EXPECT_FALSE(dialog.Command1.Enabled || dialog.Text1.Visible || dialog.Image1.Visible);
        dialog.Combo1.chooseFromUser(dialog.Combo1.Items->at(0).text == "x?.PRO" ? 0 : 1);
      })
      .press("Command1");
  rig.command("OpenPro_Click");
  EXPECT_EQ(rows(), Names{"C:\\Data\\|a.txt"});
  EXPECT_EQ(list().ColumnHeaders->at(0).Text, "Virtual DeskTop (x?.PRO),  -  Path:");
  EXPECT_TRUE(list().Visible && left().list.hasFocus());

  const auto type = [&](const char* name) { return [&dialog, name](auto&) { dialog.Text1.typeFromUser(name); }; };
  rig.loop.whenShows("Form44")
      .reads("Label1", "Project Name:")
      .press("Command1")
      .reads("Text1", "Key in Valid File Name !.")
      .press("Command1")
      .run(type("..\\a"))
      .press("Command1")
      .reads("Text1", "FileName NOT Valid !")
      .run(type(" Default "))
      .press("Command1")
      .run([&](auto&) { EXPECT_EQ(rows().size(), 1u); })
      .run(type("New"))
      .press("Command1");
  rig.command("NewPro_Click", {test::told("[ \\InValid Chr. In Filename !, "),
                               test::no("Project \rDefault.Pro Already Exits !, - Overwrite ?")});
  EXPECT_EQ(vdt().projects.current(), "New.Pro");
  EXPECT_TRUE(rows().empty() && !rig.exists(project("New.Pro")));

  rig.command("LocalDesk_Click");
  rig.loop.whenShows("Form44").press("Command2");
  rig.command("OpenPro_Click");
  EXPECT_EQ(rig.read(project("New.Pro")), "\r\n");
  EXPECT_FALSE(list().Visible);
  rig.command("DeletePro_Click");
  EXPECT_EQ(left().path(), rig.programFolder() + "\\VDT_Projects\\");
  EXPECT_TRUE(rig.exists(project("New.Pro")));
}

TEST_F(VDTTest, AProjectThatCannotBeStoredIsToldToTheUserWhoLeaves) {
  auto& disk = rig.use<test::FaultyFileSystem>();
  rig.startLeft();
  disk.noSpace = true;
  std::string files = "Could Not Be Stored :\r";
  for (const char* name : {"DirHis", "FileHis", "GetFolders", "OpenHis", "MostUsed", "FolderSearchHis", "GetQF"})
    files += std::string("\r") + name + ".Dat:  no space left on device";
  rig.loop.meets({test::told(files), test::told("Cannot Save Project !\rDefault.Pro :  No space left on device")});
  form().closeFromUser();
}

TEST_F(VDTTest, TheNextStartShowsTheListAsItWasLeft) {
  dropRow("a");
  rig.command("VDTstartup_Click");
  form().closeFromUser();
  EXPECT_EQ(rig.read(project("Default.Pro")), "C:\\Data\\a.txt\r\n");
  std::filesystem::remove(rig.systemPath("C:\\Data\\a.txt"));
  rig.restart();
  rig.startLeft();
  EXPECT_EQ(rows(), Names{"C:\\Data\\|a.txt|gone"});
  EXPECT_TRUE(list().Visible && rig.menu("VDTstartup").Checked && !list().Sorted());
  EXPECT_FALSE(rig.menu("CmdLine").Enabled);
  // Another running copy of the program has stored its own list since.
  rig.write(project("Default.Pro"), "C:\\Data\\b\r\n");
  vdt().store();
  EXPECT_EQ(rig.read(project("Default.Pro")), "C:\\Data\\b\r\n") << "nothing has changed here";
  drop({"C:\\Data\\b"});
  vdt().store();
  EXPECT_EQ(rig.read(project("Default.Pro")), "C:\\Data\\a.txt\r\nC:\\Data\\b\r\n");
}

/// Calls beside the window are held until the test lets their drives answer.
class HeldLoop : public test::ScriptedLoop {
 public:
  void runBeside(std::function<void()> call, std::function<void()> done) override {
    held.push_back([call = std::move(call), done = std::move(done)] { call(), done(); });
  }
  void answerFirst() {
    const auto call = held.front();
    held.erase(held.begin());
    call();
  }
  std::vector<std::function<void()>> held;
};

TEST(VDTTargetsTest, ADriveThatDoesNotAnswerIsAskedOnceAndItsRowsAreTakenByTheirText) {
  test::AppRig rig;
  rig.write("D:\\There\\a.txt");
  HeldLoop loop;
  controls::Form window(loop, "window");
  controls::ListView view(window, "view");
  view.setSorted(false);
  controls::Timer timer(window, "timer");
  core::MessageDialogs dialogs(loop, timer);
  core::Program program{loop, *rig.platform, dialogs};
  PointerList list(view);
  Targets targets(program, list);
  list.take({*pointerOf("C:\\a.txt"), *pointerOf("D:\\there\\a.txt"), *pointerOf("D:\\None\\<Folder>")});
  targets.ask(true);
  ASSERT_EQ(loop.held.size(), 2u);
  EXPECT_TRUE(list.isThere(0) && list.isThere(1) && list.isThere(2));
  for (int clicks = 0; clicks < 3; ++clicks)
    targets.ask(false);
  EXPECT_EQ(loop.held.size(), 2u);
  std::swap(loop.held[0], loop.held[1]);
  loop.answerFirst();
  EXPECT_EQ(list.at(1).key(), "D:\\There\\a.txt");
  EXPECT_TRUE(list.isThere(1) && !list.isThere(2) && list.count() == 3u);
  // Rows that have gone meanwhile get no answer of others.
  list.remove({1});
  while (!loop.held.empty())
    loop.answerFirst();
  EXPECT_EQ(list.lines(), (std::vector<std::string>{"D:\\None\\<Folder>"})) << "the short line was rubbish";
  EXPECT_FALSE(list.isThere(0));
}

}  // namespace
}  // namespace varnholt::vdt

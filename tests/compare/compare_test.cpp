#include "compare/compare.hpp"
#include "support/app_rig.hpp"
#include "support/windows_program.hpp"

namespace varnholt::compare {
namespace {

using test::noticed;

constexpr std::int64_t T = 1'700'000'000;

/// A file of one side: its bytes and its seconds after T.
struct Side {
  std::string bytes;
  std::int64_t at = 0;
};

std::string program(std::uint32_t major) { return test::windowsProgram(true, major << 16, 0); }

class CompareTest : public test::AppTest {
 protected:
  void SetUp() override {
    rig.makeFolder("C:\\L");
    rig.makeFolder("D:\\R");
    rig.startLeft();
  }
  void file(const std::string& name, const std::optional<Side>& left, const std::optional<Side>& right) {
    for (const auto& [folder, side] : {std::pair{"C:\\L\\", left}, {"D:\\R\\", right}}) {
      if (!side) continue;
      rig.write(folder + name, side->bytes);
      ASSERT_TRUE(files().setModified(folder + name, {T + side->at, 0}));
    }
  }
  Form30& dialog() { return rig.app().compare.Form30; }
  void open(const std::function<void()>& act) {
    show("C:\\L", "D:\\R");
    inDialog("Com_Sync_Click", "Form30", act);
  }
  void execute(const std::vector<test::Answer>& answers = {}) {
    rig.loop.meets(answers);
    dialog().Command11.press();
  }
  static Names rows(controls::ListView& list) {
    Names texts;
    for (std::uint32_t row = 0; row < list.count(); ++row)
      texts.push_back(list.cell(row, 0) + " " + list.cell(row, 1));
    return texts;
  }
  Names toRight() { return rows(dialog().ListView1); }
  Names toLeft() { return rows(dialog().ListView2); }
};

TEST_F(CompareTest, EachFileHasTheFirstReasonThatHolds) {
  file("alike.txt", Side{"1"}, Side{"1"});
  file("A.TXT", {}, Side{"2"});
  file("a.txt", Side{"1"}, {});
  file("dir", Side{"1"}, {});
  rig.makeFolder("D:\\R\\dir");
  file("old.txt", Side{"1", -50}, Side{"22"});
  file("size.txt", Side{"1"}, Side{"22"});
  file("three.txt", Side{"1", 3}, Side{"1"});
  file("two.txt", Side{"1", 2}, Side{"22"});
  file("v.exe", Side{program(9)}, Side{program(10), 9});
  file("hidden.txt", Side{"1"}, {});
  setAttributes("C:\\L\\hidden.txt", platform::attribute::Hidden);
  open([&] {
    execute();
    EXPECT_EQ(toRight(), (Names{"a.txt Missing", "dir Missing", "three.txt Date", "v.exe Version"}));
    EXPECT_EQ(toLeft(), (Names{"A.TXT Missing", "old.txt Date", "v.exe Date"}));
    EXPECT_EQ(dialog().StatusBar1.panel(2) + dialog().StatusBar1.panel(3),
              "To Right Panel:   4 File(s)To Left Panel:   3 File(s)");
    EXPECT_TRUE(dialog().report());

    dialog().Check3.toggleFromUser();
    EXPECT_TRUE(toRight().empty() && dialog().StatusBar1.panel(3).empty());
    dialog().Check5.toggleFromUser();
    execute();
    EXPECT_EQ(toRight(), (Names{"a.txt Missing", "dir Missing", "old.txt Size", "size.txt Size", "three.txt Date",
                                "two.txt Size", "v.exe Version"}));
    for (controls::CheckBox* test : {&dialog().Check4, &dialog().Check6, &dialog().Check10})
      test->toggleFromUser();
    execute();
    EXPECT_EQ(toRight(), (Names{"old.txt Size", "size.txt Size", "two.txt Size"}));
    dialog().Check2.toggleFromUser();
    execute();
    EXPECT_EQ(toLeft(), (Names{"old.txt Size", "size.txt Size", "two.txt Size"}));
    EXPECT_TRUE(toRight().empty());
    dialog().Check5.toggleFromUser();
    rig.form().setMode("CompareMode");
    execute({noticed("No Compare Options are Checked !")});
    EXPECT_EQ(rig.form().mode(), "CompareMode") << "nothing was done to the panels";
  });
}

TEST_F(CompareTest, WhatStandsAgainstARunIsTold) {
  rig.makeFolder("C:\\L\\Sub");
  open([&] {
    execute({noticed("No Files to Execute In Folders !")});
    file("a", Side{"1"}, Side{"1"});
    execute({noticed("No Files To Execute, - ok !")});
    dialog().ImageCombo1.typeFromUser("C:\\L\\Sub");
    execute({noticed("Apply settings before Execute !.")});
    dialog().ImageCombo1.typeFromUser("D:\\R\\");
    execute({noticed("Folder Cannot Compare/Sync. Itself !")});
    dialog().ImageCombo1.typeFromUser("C:\\Gone");
    rig.loop.meets({noticed("\rInvalid Path, - Folder Do Not Exist !")});
    dialog().Command1.press();
    EXPECT_EQ(left().path(), "C:\\L\\");
    dialog().ImageCombo1.typeFromUser("c:\\l\\sub");
    dialog().Command1.press();
    EXPECT_EQ(left().path(), "C:\\L\\Sub\\");
  });
  EXPECT_EQ(rig.app().histories.compareLeft.entries(), (Names{"C:\\L\\", "C:\\L\\Sub\\"}));
}

TEST_F(CompareTest, TheBoxesHangOnEachOther) {
  const auto shown = [&] {
    std::string text;
    for (const char* name : {"Check1", "Check2", "Check3", "Check4", "Check7", "Check8"}) {
      const auto& box = dynamic_cast<controls::CheckBox&>(*dialog().control(name));
      if (box.Value && box.Visible) text += name[5];
    }
    for (const auto& [arrow, sign] : {std::pair{&dialog().Image2, ">"}, {&dialog().Image3, "<"}})
      if (arrow->Visible) text += sign;
    return text;
  };
  open([&] {
    EXPECT_EQ(shown(), "37><");
    // The first one is disabled, and the seventh the last of its pair.
    for (const auto row : test::Rows{"Check1|37><", "Check3|147>", "Check2|247<", "Check7|247<", "Check8|248<",
                                     "Check8|247<", "Check2|37><"}) {
      dynamic_cast<controls::CheckBox&>(*dialog().control(test::Row(row).first)).toggleFromUser();
      EXPECT_EQ(shown(), test::Row(row).second) << row;
    }
  });
}

TEST_F(CompareTest, ASyncReplacesWhatItTellsAndKeepsTheRestInItsList) {
  file("new", Side{"left"}, {});
  file("dir", Side{"left"}, {});
  rig.makeFolder("D:\\R\\dir");
  file("protected", Side{"left", 9}, Side{"right"});
  setAttributes("D:\\R\\protected", platform::attribute::ReadOnly);
  file("link", Side{"left", 9}, {});
  file("kept", {}, Side{"linked"});
  file("toDir", Side{"left"}, {});
  rig.scratch.link("second/R/link", "kept").link("second/R/toDir", "dir");
  open([&] {
    dialog().Check3.toggleFromUser();
    dialog().Check8.toggleFromUser();
    const char* const question = "\rAre you sure you want to Synchronize selected Folders, Left to Right ?";
    execute({test::no(question)});
    EXPECT_FALSE(rig.exists("D:\\R\\new"));
    EXPECT_TRUE(toRight().empty()) << "what a sync has found does not stay for reading";
    execute({{"Form11", "", question}});  // the close box is no refusal
    EXPECT_EQ(toRight(), (Names{"dir Missing", "toDir Missing"}));
    EXPECT_EQ(dialog().StatusBar1.panel(2), "Not Copied:   2 File(s)");
    EXPECT_NE(dialog().ListView1.rowToolTip(dialog().ListView1.item(0)), "");
  });
  EXPECT_EQ(rig.read("D:\\R\\new") + rig.read("D:\\R\\protected") + rig.read("D:\\R\\link"), "leftleftleft");
  EXPECT_EQ(rig.read("D:\\R\\kept"), "linked") << "nothing is written through a link";
  EXPECT_EQ(files().attributes("D:\\R\\protected").valueOr(0) & platform::attribute::ReadOnly, 0u);
  EXPECT_EQ(rig.names(right()).size(), 6u) << "the panel shows the result";
}

TEST_F(CompareTest, AFileThatBothSidesWantEndsAsTheLeftOne) {
  file("v.exe", Side{program(2)}, Side{program(1), 9});
  const std::string leftBytes = rig.read("C:\\L\\v.exe");
  const platform::Date date{1'000'000'000, 5};
  ASSERT_TRUE(files().setModified("C:\\L", date));
  open([&] {
    dialog().Check8.toggleFromUser();
    dialog().Check9.toggleFromUser();
    execute({test::yes("\rAre You Sure You Want To Synchronize Selected Folders ?\r"
                       "Notice: System and Hidden Files are Chosen Synchronized !")});
  });
  EXPECT_EQ(rig.read("C:\\L\\v.exe"), leftBytes);
  EXPECT_EQ(rig.read("D:\\R\\v.exe"), leftBytes);
  for (const char* folder : {"C:\\L", "D:\\R"})
    EXPECT_EQ(files().info(folder)->modified, date) << folder;
}

TEST_F(CompareTest, WhatHasChangedInTheTargetSinceTheCompareIsNotReplaced) {
  file("new", Side{"left"}, {});
  file("newer", Side{"left", 9}, Side{"right"});
  file("as told", Side{"left", 9}, Side{"right"});
  auto question = test::yes();
  question.before = [&] {
    for (const char* name : {"new", "newer"})
      file(name, {}, Side{"meanwhile", 20});
  };
  open([&] {
    dialog().Check8.toggleFromUser();
    execute({question});
    EXPECT_EQ(toRight(), (Names{"new Missing", "newer Date"}));
  });
  EXPECT_EQ(rig.read("D:\\R\\new") + rig.read("D:\\R\\newer") + rig.read("D:\\R\\as told"), "meanwhilemeanwhileleft");
}

TEST_F(CompareTest, ASyncToTheLeftBringsNothingToTheRight) {
  file("new", {}, Side{"right"});
  file("newer", Side{"left"}, Side{"right", 9});
  file("older", Side{"left", 9}, Side{"right"});
  file("only left", Side{"left"}, {});
  open([&] {
    for (controls::CheckBox* box : {&dialog().Check3, &dialog().Check2, &dialog().Check8})
      box->toggleFromUser();
    execute({test::yes("\rAre you sure you want to Synchronize selected Folders, Right to Left ?")});
  });
  EXPECT_EQ(rig.read("C:\\L\\new") + rig.read("C:\\L\\newer") + rig.read("C:\\L\\older"), "rightrightleft");
  EXPECT_EQ(rig.read("D:\\R\\older") + rig.read("D:\\R\\only left"), "right");
}

TEST_F(CompareTest, AFullVolumeLeavesTheOldFileAndSaysSo) {
  auto& faulty = rig.use<test::FaultyFileSystem>();
  SetUp();
  file("a", Side{"left", 9}, Side{"right"});
  open([&] {
    dialog().Check8.toggleFromUser();
    faulty.noSpace = true;
    execute({test::yes()});
    EXPECT_EQ(toRight(), (Names{"a Date"}));
    dialog().Check3.toggleFromUser();
    EXPECT_TRUE(toRight().empty());
  });
  EXPECT_EQ(rig.read("D:\\R\\a"), "right");
}

TEST_F(CompareTest, ARowTellsItsFile) {
  file("a.exe", Side{program(1)}, {});
  file("empty", Side{""}, {});
  open([&] {
    execute();
    const auto details = [&](std::uint32_t row) {
      controls::MouseEvent mouse{controls::MouseButton::Left, {}};
      dialog().ListView1.pressFromUser(row, mouse);
      dialog().ListView1.releaseFromUser(mouse);
      return dialog().Text1.Text.get();
    };
    EXPECT_EQ(details(0).substr(0, 15), "Name: a.exe ,Si");
    EXPECT_NE(details(0).find(",  Version: 1.0.0.0"), std::string::npos);
    EXPECT_EQ(details(1), "Name: empty ,Size:  Bytes,  Date: 14-11-23  22:13:20,  Version: NA");
    dialog().ListView1.headerFromUser(1);
    EXPECT_EQ(toRight(), (Names{"empty Missing", "a.exe Missing"}));
    const int turned = dialog().ListView1.ColumnHeaders->front().Icon;
    execute();
    EXPECT_NE(dialog().ListView1.ColumnHeaders->front().Icon, turned);
  });
}

TEST_F(CompareTest, OnePanelFollowsTheOther) {
  rig.makeFolder("C:\\R");
  struct Case {
    const char *command, *left, *right, *nowLeft, *nowRight;
    std::vector<test::Answer> answers;
  };
  for (const Case& each : {Case{"LeftToRight_Click", "C:\\L", "D:\\R", "D:\\R\\", "D:\\R\\", {}},
                           Case{"RigthToLeft_Click", "C:\\L", "D:\\R", "C:\\L\\", "C:\\L\\", {}},
                           Case{"SourceToTarget_Click", "C:\\L", "D:\\R", "C:\\L\\", "C:\\L\\", {}},
                           Case{"TargetFolder_Click", "C:\\R", "D:\\", "C:\\R\\", "D:\\R\\", {}},
                           Case{"TargetFolder_Click",
                                "C:\\R",
                                "C:\\L",
                                "C:\\R\\",
                                "C:\\L\\",
                                {noticed("\rDrives Must Be Different, - Function Exits !")}},
                           Case{"TargetFolder_Click",
                                "C:\\L",
                                "D:\\R",
                                "C:\\L\\",
                                "D:\\R\\",
                                {noticed("\rSource Folder Do Not Exits on Target !\rFunction Exits !")}}}) {
    SCOPED_TRACE(each.command);
    show(each.left, each.right);
    rig.loop.meets(each.answers);
    rig.command(each.command);
    EXPECT_EQ(left().path() + right().path(), std::string(each.nowLeft) + each.nowRight);
    EXPECT_FALSE(rig.app().dispatcher.busy);
  }
}

TEST_F(CompareTest, TheLineCompareFollowsTheItemInHand) {
  file("alike", Side{"1", 2}, Side{"1"});
  file("other", Side{"1", 3}, Side{"1"});
  file("single", Side{"1"}, {});
  rig.makeFolder("C:\\L\\Sub");
  show("C:\\L", "D:\\R");
  auto& window = rig.app().compare.Form42;
  rig.command("LLComp_Click");
  const auto told = [&](const char* row) {
    rig.click(left(), row);
    std::string text = window.Caption.get().substr(12) + ": ";
    for (std::uint32_t at = 0; at < window.ListView1.count(); ++at)
      text += window.ListView1.cell(at, 0) + " " + window.ListView1.cell(at, 1) + ";";
    for (const auto& header : window.ListView1.ColumnHeaders.get())
      text += std::to_string(header.Icon);
    return text;
  };
  EXPECT_EQ(told("alike"), ", - Files Equal  [Accepted Time Diff. = 2 sec.]: Clicked alike;Target alike;02222");
  EXPECT_EQ(told("other"), ", - Files NOT Equal: Clicked other;Target other;02232");
  EXPECT_EQ(told("single"), ": Clicked single;Target No Match Found;00000");
  EXPECT_EQ(told("\\ Sub"), ": Clicked Only File Compare !;00000");
  rig.command("LLComp_Click");
  EXPECT_FALSE(window.Visible);
}

}  // namespace
}  // namespace varnholt::compare

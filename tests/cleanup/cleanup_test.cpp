#include "cleanup/cleanup.hpp"
#include "core/program_files.hpp"
#include "support/app_rig.hpp"
#include "support/tree_snapshot.hpp"

namespace varnholt::cleanup {
namespace {

using test::noticed;

class CleanUpTest : public test::AppTest {
 protected:
  void SetUp() override {
    rig.makeFolder("C:\\In");
    rig.startLeft();
  }
  Form16& dialog() { return rig.app().cleanup.Form16; }
  void open(const std::function<void()>& act) {
    show("C:\\In", "C:\\");
    inDialog("Command17_Click", "Form16", act);
    EXPECT_FALSE(rig.app().dispatcher.busy);
  }
  void openHere(const std::function<void()>& act) {
    open([&] {
      dialog().Command4.press();
      dialog().Check10.toggleFromUser();
      act();
    });
  }
  Names scan(const std::vector<test::Answer>& answers = {}) {
    rig.loop.meets(answers);
    dialog().Command1.press();
    return rows();
  }
  Names rows() {
    Names paths;
    auto& list = dialog().ListView1;
    for (std::uint32_t row = 0; dialog().hitRows() && row < list.count(); ++row)
      paths.push_back(list.cell(row, column::Path) + "|" + list.cell(row, column::Name) + "|" +
                      list.cell(row, column::Ext));
    return paths;
  }
  void select(const std::vector<std::uint32_t>& rows) {
    controls::MouseEvent mouse{controls::MouseButton::Left, {}};
    for (const std::uint32_t row : rows) {
      dialog().ListView1.pressFromUser(row, mouse);
      dialog().ListView1.releaseFromUser(mouse);
      mouse.modifiers.ctrl = true;
    }
  }
  void clean(const char* which, const std::vector<test::Answer>& answers = {}) {
    rig.loop.whenShows("Form23").press(which);
    rig.loop.meets(answers);
    dialog().Command3.press();
  }
  std::string told() { return dialog().Text1.Text; }
  Names left() const {
    Names names;
    for (const auto& [name, facts] : test::snapshot(rig.systemPath("C:\\In")))
      if (!facts.isFolder()) names.push_back(name);
    return names;
  }
};

TEST_F(CleanUpTest, TheWalkFindsLevelByLevelWhatThePatternsName) {
  for (const char* name : {"b.tmp", "A.BAK", "data.bak", "x.log", "One\\DATA.bak", "One\\Two\\data.BAK", "One\\.tmp",
                           "z\\y.old", "1\\2\\3\\4\\5\\6\\7\\8\\in.chk", "1\\2\\3\\4\\5\\6\\7\\8\\9\\out.chk"})
    rig.write(std::string("C:\\In\\") + name);
  rig.scratch.link("home/In/l.tmp", "b.tmp").link("home/In/ring.tmp", ".").pipe("home/In/pipe.tmp");
  openHere([&] {
    dialog().Text2.typeFromUser("*.TMP, [ ,?.old");
    EXPECT_EQ(scan(), (Names{"C:\\In|A|Bak", "C:\\In|B|Tmp", "C:\\In|B|Tmp", "C:\\In|Data|Bak", "C:\\In|L|Tmp",
                             "C:\\In|L|Tmp", "C:\\In\\One||Tmp", "C:\\In\\One||Tmp", "C:\\In\\One|Data|Bak",
                             "C:\\In\\Z|Y|Old", "C:\\In\\Z|Y|Old", "C:\\In\\1\\2\\3\\4\\5\\6\\7\\8|In|Chk"}));
    EXPECT_EQ(told(), "Scanning has ended and found 8 Items to Clean!");
    EXPECT_EQ(dialog().Caption.get(), "CleanUp-Search - C:\\In\\A.BAK");
    dialog().Text2.typeFromUser("*.none");
    for (int press = 0; press < 2; ++press)
      dialog().Command5.press();
    dialog().Command5.press();
    EXPECT_TRUE(scan().empty());
    EXPECT_EQ(told(), "Scanning has ended, - No Items to Clean !");
    EXPECT_FALSE(dialog().Command3.Enabled);
  });
  open([&] { EXPECT_EQ(dialog().Text2.Text.get(), "*.none"); });
}

TEST_F(CleanUpTest, SizesAreBoundsThatDoNotCount) {
  rig.write("C:\\In\\TWO.TMP", std::string(2'000'000, 'x'));
  rig.write("C:\\In\\small.tmp", "x");
  struct Case {
    const char *more, *less;
    std::size_t found;
    const char* refusal;
  };
  openHere([&] {
    dialog().Text2.typeFromUser("*.none");
    dialog().Check9.toggleFromUser();
    for (const Case& each : {Case{"2", "", 0, ""},
                             {"1.9", "", 1, ""},
                             {"", "2", 1, ""},
                             {"1", "2.1", 1, ""},
                             {"", "", 0, "File Size Value NOT Valid !"},
                             {"2", "2", 0, "FileSize Input Data Equal !"},
                             {"3", "2", 0, "FileSize Input Data Mismatch !"}}) {
      dialog().Text3.typeFromUser(each.more);
      dialog().Text4.typeFromUser(each.less);
      EXPECT_EQ(scan(*each.refusal ? std::vector{noticed(each.refusal)} : std::vector<test::Answer>{}).size(),
                each.found)
          << each.more << " to " << each.less;
    }
    rig.loop.meets({test::told("Input Not Numeric !")});
    dialog().Text3.typeFromUser("two");
    EXPECT_TRUE(scan({noticed("File Size Value NOT Valid !")}).empty());
    dialog().Check9.toggleFromUser();
    dialog().Text2.typeFromUser("*.");
    EXPECT_TRUE(scan({noticed("UserPattern NOT Valid !")}).empty());
    dialog().Command4.press();  // what is not shown does not count
    EXPECT_EQ(scan().size(), 2u);
    dialog().Command5.press();
    EXPECT_TRUE(scan({noticed("No Scan values Selected !")}).empty());
  });
}

TEST_F(CleanUpTest, ASelectionGoesAndTheRestStays) {
  write({"In\\a.tmp", "In\\b.tmp", "In\\c.tmp", "In\\keep.txt"});
  setAttributes("C:\\In\\a.tmp", platform::attribute::ReadOnly);
  openHere([&] {
    dialog().Text2.typeFromUser("*.none");
    ASSERT_EQ(scan().size(), 3u);
    select({0, 2});
    clean("Command3");
    EXPECT_EQ(left().size(), 4u);
    clean("Command1");
    EXPECT_EQ(left(), (Names{"b.tmp", "keep.txt"}));
    EXPECT_EQ(rows(), (Names{"C:\\In|B|Tmp"}));
    clean("Command2", {test::no("\rCleaning Up 3 Files!, - FreeSpace Achived : 3 Bytes")});
    scan();
    clean("Command1");
    EXPECT_TRUE(rows().empty() && !dialog().Command3.Enabled);
  });
}

TEST_F(CleanUpTest, AllGoesOnlyWhenTheAnswerIsNotNo) {
  write({"In\\a.tmp", "In\\b.bak"}, "12345");
  const char* const question = "\rCleaning Up 2 Files!, - FreeSpace Achived : 10 Bytes";
  openHere([&] {
    dialog().Text2.typeFromUser("*.none");
    scan();
    clean("Command2", {test::no(question)});
    EXPECT_EQ(told(), "CleanUp Canceled . . . . . , - Make a new scan to CleanUp !");
    dialog().Command3.press();
    EXPECT_EQ(told(), "Nothing to Clean,- make a new scan !");
    dialog().Timer1.Tick();
    EXPECT_TRUE(rows().empty() && !dialog().Command8.Enabled);
    EXPECT_EQ(left().size(), 2u);
    scan();
    clean("Command2", {test::yes(question)});
    EXPECT_EQ(told(), "System Cleaned !");
  });
  EXPECT_TRUE(left().empty());
}

TEST_F(CleanUpTest, WhatHasChangedSinceTheScanIsAskedAbout) {
  write({"In\\a.tmp", "In\\b.tmp"}, "12345");
  openHere([&] {
    dialog().Text2.typeFromUser("*.none");
    scan();
    rig.write("C:\\In\\b.tmp", "somebody works here");
    clean("Command2", {test::yes(), test::no("1 File(s) have changed since the scan. Delete them too ?\rb.tmp")});
    EXPECT_EQ(told(), "System NOT Cleaned proberly !, - Try Another Scan.. (1 File(s) still there)");
    EXPECT_EQ(left(), (Names{"b.tmp"}));
  });
}

// A folder of the scan that was swapped for a link since leads elsewhere, and links go as links.
TEST_F(CleanUpTest, NothingOutsideOfTheScannedFolderIsTouched) {
  rig.write("C:\\In\\Sub\\a.tmp", "x");
  rig.write("C:\\Out\\a.tmp", "somebody else's");
  rig.scratch.link("home/In/l.tmp", "../Out/a.tmp");
  openHere([&] {
    dialog().Text2.typeFromUser("*.none");
    ASSERT_EQ(scan().size(), 2u);
    std::filesystem::remove_all(rig.systemPath("C:\\In\\Sub"));
    rig.scratch.link("home/In/Sub", "../Out");
    clean("Command2", {test::yes(), test::yes()});
  });
  EXPECT_TRUE(rig.exists("C:\\Out\\a.tmp"));
  EXPECT_EQ(left(), (Names{"Sub"}));
}

TEST_F(CleanUpTest, TheListIsStillThereBehindALookAtAFilesFolder) {
  rig.write("C:\\In\\Sub\\a.tmp", "x");
  show("C:\\In", "C:\\");
  inDialog("Command17_Click", "Form16", [&] {
    ASSERT_EQ(scan(), Names{"C:\\In\\Sub|A|Tmp"});
    dialog().Command6.press();
  });
  EXPECT_EQ(rig.form().Panel1.path(), "C:\\In\\Sub\\");
  inDialog("Command17_Click", "Form16", [&] { clean("Command1"); });
  EXPECT_FALSE(rig.exists("C:\\In\\Sub\\a.tmp"));
  EXPECT_EQ(rig.form().Panel1.list.count(), 0u);
  open([&] { EXPECT_TRUE(rows().empty()); });
}

TEST_F(CleanUpTest, ACollectionHoldsTheRowsAsTheyAreSorted) {
  rig.write("C:\\In\\small.tmp", "x");
  rig.write("C:\\In\\A large.tmp", "xxx");
  rig.write("C:\\In\\a Large.tmp", "its twin");
  core::program_file::makeFolders(*rig.platform);
  openHere([&] {
    dialog().Text2.typeFromUser("*.none");
    scan();
    dialog().ListView1.headerFromUser(4);
    dialog().Text5.typeFromUser("Left");
    rig.loop.meets({noticed("Saved As:  ...\\Left.Col")});
    dialog().Command8.press();
    rig.loop.meets({test::no("\rCollection File:  Left.Col\rAlready Exist !, - OverWrite ?")});
    dialog().Command8.press();
    ASSERT_TRUE(files().deleteFile("C:\\In\\A large.tmp", false));
    rig.loop.meets({noticed("\rFile Path NOT Valid !")});
    dialog().Command6.press();
  });
  EXPECT_EQ(rig.read(rig.programFolder() + "\\Collections\\Left.Col"),
            "C:\\In\\a Large.tmp\r\nC:\\In\\A Large.Tmp\r\nC:\\In\\Small.Tmp\r\n");
}

TEST_F(CleanUpTest, EachClickOnAHeadTurnsTheOrderRoundAndFilesOfOneDayKeepTheirs) {
  const std::int64_t noon = 1'700'049'600;
  for (const auto& [name, at] : {std::pair{"a.tmp", noon}, {"b.tmp", noon + 60}, {"c.tmp", noon - 200'000}}) {
    rig.write(std::string("C:\\In\\") + name, "x");
    ASSERT_TRUE(files().setModified(std::string("C:\\In\\") + name, {at, 0}));
  }
  openHere([&] {
    dialog().Text2.typeFromUser("*.none");
    scan();
    dialog().ListView1.headerFromUser(5);
    EXPECT_EQ(rows(), (Names{"C:\\In|A|Tmp", "C:\\In|B|Tmp", "C:\\In|C|Tmp"}));
    dialog().ListView1.headerFromUser(2);
    EXPECT_EQ(rows(), (Names{"C:\\In|A|Tmp", "C:\\In|B|Tmp", "C:\\In|C|Tmp"}));
    dialog().ListView1.headerFromUser(2);
    EXPECT_EQ(rows(), (Names{"C:\\In|C|Tmp", "C:\\In|B|Tmp", "C:\\In|A|Tmp"}));
    dialog().ListView1.headerFromUser(5);
    EXPECT_EQ(rows(), (Names{"C:\\In|C|Tmp", "C:\\In|B|Tmp", "C:\\In|A|Tmp"}));
  });
}

}  // namespace
}  // namespace varnholt::cleanup

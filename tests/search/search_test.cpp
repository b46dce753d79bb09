#include "support/app_rig.hpp"

#include "search/name_match.hpp"

namespace varnholt::search {
namespace {

class SearchTest : public test::AppTest {
 protected:
  Search& search() { return rig.app().search; }
  std::string kept(const char* name) { return files().readFile(rig.programFolder() + name).valueOr("none"); }
  void startAgain() {
    rig.app().state.StoreProgramState();
    rig.restart();
    rig.startLeft();
  }
};

class FindFolderTest : public SearchTest {
 protected:
  using Answer = Form37::Answer;

  void SetUp() override {
    for (const char* folder :
         {"C:\\Work\\Old\\Photos", "C:\\Work\\Photos", "C:\\Work\\Photos of us", "C:\\Else\\Photos"})
      rig.makeFolder(folder);
    rig.startLeft();
    show("C:\\Work", "D:\\");
  }
  void open(const std::function<void(Form36&)>& acts) {
    inDialog("QuickFindFolder_Click", "Form36", [this, acts] { acts(search().Form36); });
  }
  void matches(const std::string& path, const char* button) {
    rig.loop.whenShows("Form37").reads("Text1", path).press(button);
  }
  void find(Form36& dialog, const std::string& word) {
    dialog.Combo1.typeFromUser(word);
    dialog.Command4.press();
  }
  static void choose(controls::CheckBox& box, bool on) {
    if ((box.Value != 0) != on) box.toggleFromUser();
  }
};

TEST_F(FindFolderTest, ContinueGoesOnInTheWalkAndAcceptGoesThere) {
  open([&](Form36& dialog) {
    for (const char* path : {"C:\\Else\\Photos", "C:\\Work\\Old\\Photos"})
      matches(path, "Command3");
    matches("C:\\Work\\Photos", "Command1");
    EXPECT_FALSE(dialog.Command4.Enabled || dialog.Command5.Enabled || dialog.Command3.Enabled);
    EXPECT_EQ(dialog.Text1.Text.get(), "C:\\");
    find(dialog, " photos ");
    EXPECT_FALSE(dialog.Visible);
  });
  EXPECT_EQ(left().path(), "C:\\Work\\Photos\\");
  EXPECT_EQ(rig.app().histories.folders.entries().back(), "C:\\Work\\Photos\\");
  EXPECT_EQ(rig.app().presets.Form34.ListView1.cell(rig.app().presets.Form34.ListView1.count() - 1, 0),
            "C:\\Work\\Photos");
}

TEST_F(FindFolderTest, CancelEndsTheScanAloneAndNoMatchIsTold) {
  open([&](Form36& dialog) {
    matches("C:\\Else\\Photos", "Command2");
    find(dialog, "photos");
    EXPECT_TRUE(dialog.Visible && dialog.Command4.hasFocus());
    EXPECT_EQ(dialog.Caption.get(), "Quick Find Folder, - No Match Found/Accepted !");
    EXPECT_TRUE(dialog.Image2.Visible);
    EXPECT_EQ(dialog.Text1.Text.get(), "C:\\") << "where the next scan starts";
    find(dialog, "nowhere");
    EXPECT_TRUE(dialog.Image2.Visible && dialog.Check4.Enabled && !dialog.Command3.Enabled);
  });
  EXPECT_EQ(left().path(), "C:\\Work\\");
}

TEST_F(FindFolderTest, StopAndTheCloseBoxEndTheWalk) {
  for (const bool closes : {false, true}) {
    open([&](Form36& dialog) {
      // In front of the question about a match.
      rig.loop.onTurn = [&, closes] { closes ? dialog.closeFromUser() : dialog.Command3.press(); };
      find(dialog, "photos");
      rig.loop.onTurn = {};
      EXPECT_TRUE(dialog.Visible);
    });
  }
}

TEST_F(FindFolderTest, TheStartIsTheDriveOrTheActiveFolderAndSubsMayBeLeftOut) {
  open([&](Form36& dialog) {
    matches("C:\\Work\\Old\\Photos", "Command3");
    matches("C:\\Work\\Photos", "Command3");
    choose(dialog.Check2, true);
    EXPECT_EQ(dialog.Check1.Value.get(), 0);
    EXPECT_EQ(dialog.Text1.Text.get(), "C:\\Work\\");
    choose(dialog.Check2, false);
    EXPECT_EQ(dialog.Check2.Value.get(), 1) << "one is always on";
    find(dialog, "photos");
  });
  open([&](Form36& dialog) {
    matches("C:\\Work\\Photos", "Command3");
    EXPECT_EQ(dialog.Check2.Value.get(), 1) << "as it was left";
    choose(dialog.Check4, false);
    find(dialog, "photos");
    choose(dialog.Check1, true);
    dialog.Drive1.chooseFromUser(1);
    EXPECT_EQ(dialog.Text1.Text.get(), "D:\\");
  });
  rig.makeFolder("D:\\1\\2\\3\\4\\5\\6\\7\\8\\9\\deep\\deep");
  open([&](Form36& dialog) {
    matches("D:\\1\\2\\3\\4\\5\\6\\7\\8\\9\\deep", "Command3");
    choose(dialog.Check4, true);
    find(dialog, "deep");
  });
}

TEST_F(FindFolderTest, WordsAreKeptOnceAndCanBeForgotten) {
  open([&](Form36& dialog) {
    for (const char* word : {"one", "two", "ONE"})
      find(dialog, word);
  });
  startAgain();
  EXPECT_EQ(kept("\\FolderSearchHis.Dat"), "one\r\ntwo\r\n");
  open([&](Form36& dialog) {
    dialog.Combo1.chooseFromUser(0);
    dialog.Command5.press();
    ASSERT_EQ(dialog.Combo1.Items->size(), 1u);
    EXPECT_EQ(dialog.Combo1.Items->front().text, "two");
    rig.loop.meets({test::no("You Are About To Reset Your SearchStrings !"), test::yes()});
    for (const bool stays : {true, false}) {
      dialog.Command1.press();
      EXPECT_EQ(dialog.Combo1.Items->empty(), !stays);
    }
  });
  startAgain();
  EXPECT_EQ(kept("\\FolderSearchHis.Dat"), "");
}

TEST_F(FindFolderTest, TheTitleOfAMatchFollowsTheFocus) {
  auto& dialog = search().Form37;
  for (const auto& [button, word] :
       {std::pair{&dialog.Command1, "Accept"}, {&dialog.Command2, "Cancel"}, {&dialog.Command3, "Continue"}}) {
    button->SetFocus();
    EXPECT_EQ(dialog.Caption.get(), std::string("Match Found !, - ") + word);
  }
}

TEST(FolderWords, MatchTheEndOrTheWholePath) {
  const std::string path = "C:\\Work\\Old [1]\\Photos*2024";
  const std::string endless(10'000, 'a');
  for (const auto& [word, atEnd, anywhere] : {std::tuple{"photos*2024", true, true},
                                              {"2024", true, true},
                                              {"old", false, true},
                                              {"[", false, true},
                                              {"*", true, true},
                                              {"work*####", true, true},
                                              {"w?rk", false, true},
                                              {"a*b?c#", false, false},
                                              {endless.c_str(), false, false}}) {
    EXPECT_EQ(FolderWord(word, false).matches(path), atEnd) << word;
    EXPECT_EQ(FolderWord(word, true).matches(path), anywhere) << word;
  }
}

class FindItemTest : public SearchTest {
 protected:
  void SetUp() override {
    for (const char* folder : {"C:\\Work\\beta", "C:\\Work\\gamma"})
      rig.makeFolder(folder);
    write({"Work\\alpha.txt", "Work\\Beta.txt", "Work\\better", "Work\\zeta.txt"});
    rig.startLeft();
    show("C:\\Work", "D:\\");
    rig.command("QuickFind_Click");
  }
  Form47& dialog() { return search().Form47; }
  std::string told() { return dialog().StatusBar1.panel(2) + "|" + dialog().StatusBar1.panel(3); }
  void type(const std::string& text) { dialog().Text1.typeFromUser(text); }
};

TEST_F(FindItemTest, GoesToTheFirstThatBeginsSoAndOnToTheNext) {
  type("be");
  EXPECT_EQ(selected(left()), Names{"Beta.txt"});
  EXPECT_EQ(dialog().Caption.get(), "Quick Find Item, - Match Found !");
  EXPECT_EQ(told(), "Row 4|Found  Beta.txt");
  dialog().Command3.press();
  EXPECT_EQ(selected(left()), Names{"better"});
  dialog().Command3.press();
  EXPECT_EQ(selected(left()), Names{"better"}) << "behind the last one the selection stays";
  EXPECT_EQ(told(), "-|None");
  EXPECT_EQ(dialog().Caption.get(), "Quick Find Item.");
  EXPECT_FALSE(dialog().Command1.Enabled || dialog().Command3.Enabled);
  type("b?T");
  EXPECT_EQ(selected(left()), Names{"Beta.txt"});
  type("  ");
  EXPECT_EQ(told(), "-|None");
}

TEST_F(FindItemTest, FoldersAndFilesExcludeEachOther) {
  dialog().Check1.toggleFromUser();
  type("beta");
  EXPECT_EQ(selected(left()), Names{"beta"});
  EXPECT_EQ(form().CurrentItem, "C:\\Work\\beta");
  dialog().Check1.toggleFromUser();
  EXPECT_EQ(dialog().Check1.Value.get(), 1) << "one is always on";
  dialog().Check3.toggleFromUser();
  EXPECT_EQ(dialog().Check1.Value.get(), 0);
  EXPECT_EQ(selected(left()), Names{"Beta.txt"});
  dialog().closeFromUser();
  rig.command("QuickFolderInView_Click");
  EXPECT_EQ(dialog().Check1.Value.get(), 1);
}

TEST_F(FindItemTest, OpensWhatWasFoundAndFollowsThePanels) {
  rig.command("QuickFolderInView_Click");
  type("gam");
  dialog().Command1.press();
  EXPECT_EQ(left().path(), "C:\\Work\\gamma\\");
  EXPECT_EQ(told(), "-|None");
  show("C:\\Work", "C:\\Work");
  right().list.SetFocus();
  dialog().Command3.press();
  EXPECT_EQ(selected(right()), Names{"gamma"});
}

TEST_F(FindItemTest, AHitIsRecordedOnceWhenTheTypingRestsOrItIsUsed) {
  type("b");
  type("bett");
  dialog().Timer1.Tick();
  dialog().Check1.toggleFromUser();
  type("be");
  type("bet");
  dialog().Command1.press();
  show("C:\\Work", "D:\\");
  type("beta");
  dialog().Timer1.Tick();
  type("gamma");
  dialog().closeFromUser();
  dialog().Timer1.Tick();
  startAgain();
  EXPECT_EQ(kept("\\GetQF.Dat"), "C:\\Work\\better\r\n|Fold|C:\\Work\\beta\r\n|Fold|C:\\Work\\gamma\r\n");

  show("D:\\", "D:\\");
  for (const auto& [row, name] : {std::pair{0u, "gamma"}, {2u, "better"}}) {
    inDialog("FoundHistory_Click", "Form48", [this, row = row] {
      auto& list = search().Form48.ListView1;
      EXPECT_EQ(list.cell(0, 0) + list.cell(0, 1), "C:\\Work\\gamma<Folder>");
      list.focusRow(row);
      search().Form48.Command2.press();
      EXPECT_FALSE(search().Form48.Visible);
    });
    EXPECT_EQ(left().path(), "C:\\Work\\");
    EXPECT_EQ(selected(left()), Names{name});
  }
  rig.loop.meets({{"Form48", "Command3", "", [this] {
                     search().Form48.Command1.press();
                     EXPECT_EQ(search().Form48.ListView1.count(), 0u);
                   }}});
  rig.command("FoundHistory_Click");
  startAgain();
  EXPECT_EQ(kept("\\GetQF.Dat"), "");
}

TEST(TypedLetters, FitNamesByTheirKind) {
  using Kind = NameMatch::Kind;
  struct Row {
    const char *letters, *name;
    bool begins, anywhere, orWhole;
  };
  for (const Row& row : {Row{"RE", "readme", true, true, true},
                         {"me", "readme", false, true, true},
                         {"r?a", "readme", true, false, false},
                         {"?????????", "readme", false, false, false},
                         {"r*", "readme", false, false, true},
                         {"readme.", "readme", true, true, true},
                         {"*.", "readme", false, false, true},
                         {"\xC3\x84?c",
                          "\xC3\xA4\xC3\xB6"
                          "cd",
                          true, false, false},
                         {"[", "a[b", false, true, true}}) {
    const auto fits = [&](Kind kind) { return NameMatch(row.letters, kind)(row.name, true); };
    EXPECT_EQ(fits(Kind::Beginning), row.begins) << row.letters;
    EXPECT_EQ(fits(Kind::Anywhere), row.anywhere) << row.letters;
    EXPECT_EQ(fits(Kind::AnywhereOrWhole), row.orWhole) << row.letters;
  }
}

TEST(FoundNames, AreCutBehindThirtyFiveLetters) {
  EXPECT_EQ(endOf(std::string(35, 'n'), 35), std::string(35, 'n'));
  EXPECT_EQ(endOf("x\xC3\xA4" + std::string(34, 'n'), 35), "... \xC3\xA4" + std::string(34, 'n'));
}

}  // namespace
}  // namespace varnholt::search

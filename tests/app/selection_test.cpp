#include "support/app_rig.hpp"

namespace varnholt::app {
namespace {

namespace status = panels::status;
constexpr controls::Modifiers Ctrl{false, true, false}, Shift{true, false, false};

class SelectionTest : public test::AppTest {
 protected:
  void SetUp() override {
    rig.makeFolder("C:\\Folder");
    rig.write("C:\\Folder\\inside.bin", std::string(5000, 'x'));
    rig.write("C:\\a.txt", std::string(1000, 'x'));
    rig.write("C:\\b.txt", std::string(234, 'x'));
    rig.write("C:\\empty", "");
    rig.startLeft();
  }
  Names collected() {
    Names paths;
    for (const core::Item& item : form().filecollect.items())
      paths.push_back(item.path);
    return paths;
  }
};

TEST_F(SelectionTest, AClickCollectsWhatIsSelectedAndSaysSo) {
  rig.click(left(), "a");
  rig.click(left(), "\\ Folder", Ctrl);
  EXPECT_EQ(collected(), (Names{"C:\\Folder", "a.txt"}));
  EXPECT_EQ(status(status::SelectedCount) + "|" + status(status::Line), "2  Item(s) Selected|Folder  [Normal]");
  EXPECT_TRUE(left().list.item(rig.rowOf(left(), "a")).Ghosted());
  rig.click(left(), "empty");
  EXPECT_EQ(collected(), Names{"empty"});
  EXPECT_EQ(form().CurrentItem, "empty");
  EXPECT_EQ(status(status::Line), "Archive");
  EXPECT_FALSE(left().list.item(rig.rowOf(left(), "a")).Ghosted());
  rig.click(left(), "b");
  rig.click(left(), "\\ Folder", Shift);
  EXPECT_EQ(collected(), (Names{"C:\\Folder", "a.txt", "b.txt"})) << "in the order of the list";
  rig.menu("Psi").choose();
  EXPECT_EQ(status(status::SelectedCount), "");
  rig.menu("selectall").choose();
  EXPECT_EQ(status(status::SelectedCount), "");
}

TEST_F(SelectionTest, KeysSelectAsClicksDo) {
  rig.click(left(), "a");
  rig.key(left(), controls::key::Down, Shift);
  EXPECT_EQ(status(status::SelectedCount), "2  Item(s) Selected");
  EXPECT_EQ(collected(), (Names{"a.txt", "b.txt"}));
  rig.key(left(), controls::key::Home);
  EXPECT_EQ(status(status::SelectedCount) + "|" + status(status::Line), "1  Item(s) Selected|Folder  [Normal]");
  EXPECT_FALSE(form().Command2.Enabled || rig.menu("EditFile").Enabled) << "a folder is in hand";
  rig.key(left(), controls::key::Down);
  EXPECT_TRUE(form().Command2.Enabled && rig.menu("EditFile").Enabled);
  EXPECT_EQ(form().CurrentItem, "a.txt");
  rig.menu("Inversel").choose();
  EXPECT_EQ(selected(left()), (Names{"b.txt", "empty"})) << "rows that keys have left bear no mark";
  rig.key(left(), 'A', Ctrl);
  EXPECT_EQ(left().list.selectedCount(), 3u);
  rig.key(left(), controls::key::Multiply, Shift);
  EXPECT_EQ(left().list.selectedCount(), 0u);
}

TEST_F(SelectionTest, ReCallKnowsWhatKeysHaveSelectedAndNotWhatTheyHavePassed) {
  rig.key(left(), controls::key::Home);
  rig.key(left(), controls::key::Down);
  rig.key(left(), controls::key::Down, Shift);
  rig.app().listing.View1ClearItems();
  form().Command16.press();
  EXPECT_EQ(selected(left()), (Names{"a.txt", "b.txt"}));
  EXPECT_EQ(form().panelRecall(panels::Side::Left).names().size(), 2u);
}

TEST_F(SelectionTest, ALongNameIsCutBetweenItsCharactersInTheTreeWindow) {
  std::string base = "a";
  for (int count = 0; count < 55; ++count)
    base += "ø";
  rig.write("C:\\" + base + ".txt");
  rig.write("C:\\b" + base + ".txt");
  rig.menu("refrechview").choose();
  rig.menu("Treeon").choose();
  for (const auto& [row, shown] : {std::pair(base, base), std::pair("b" + base, "...\\" + base)}) {
    rig.click(left(), row);
    const std::string line = rig.app().Form9.StatusBar1.panel(panels::tree_status::Item);
    EXPECT_TRUE(line.starts_with(shown + ".txt  ")) << line;
  }
}

TEST_F(SelectionTest, SelectAllLeavesFoldersOutUnlessTheyAreIncluded) {
  rig.loop.meets({test::noticed(" No Items selected. ! ")});
  rig.menu("Selsize").choose();
  rig.menu("selectall").choose();
  EXPECT_EQ(selected(left()), (Names{"a.txt", "b.txt", "empty"}));
  EXPECT_EQ(status(status::SizeReport), "3 Item(s) ,  In 1,234 Bytes");
  rig.menu("IncludeFolder").choose();
  rig.menu("selectall").choose();
  EXPECT_EQ(selected(left()), (Names{"Folder", "a.txt", "b.txt", "empty"}));
  EXPECT_EQ(status(status::SizeReport), "4 Item(s) ,  In 6,234 Bytes");
  rig.menu("Selsize").choose();
  EXPECT_EQ(status(status::Line), "Size of selected Item(s) :  6,234   Bytes");
  EXPECT_EQ(collected().front(), "C:\\Folder");
  EXPECT_EQ(form().mode(), "SelectMode");
}

TEST_F(SelectionTest, InverseTurnsTheSelectionRound) {
  const auto inverse = [&] {
    rig.menu("Inversel").choose();
    return selected(left());
  };
  rig.click(left(), "a");
  EXPECT_EQ(inverse(), (Names{"b.txt", "empty"}));
  EXPECT_EQ(status(status::SizeReport), "2 Item(s) ,  In 234 Bytes");
  EXPECT_EQ(inverse(), Names{"a.txt"});
  rig.click(left(), "b", Ctrl);
  EXPECT_EQ(inverse(), Names{"empty"});
  EXPECT_EQ(status(status::SizeReport), "1 Item(s) ,  In 0 Bytes") << "a sum of zero is a number too";
  rig.click(left(), "a");
  rig.menu("IncludeFolder").choose();
  EXPECT_EQ(inverse(), (Names{"Folder", "b.txt", "empty"}));
}

TEST_F(SelectionTest, ReCallBringsBackNamesThatAreStillThere) {
  form().Command16.press();
  EXPECT_EQ(status(status::SelectedCount), "0 Recall Items Selected !");
  clickAll({"a", "\\ Folder"});
  rig.click(left(), "empty");
  std::filesystem::remove(rig.systemPath("C:\\empty"));
  rig.app().listing.View1ClearItems();
  form().Command16.press();
  EXPECT_EQ(selected(left()), (Names{"Folder", "a.txt"}));
  EXPECT_EQ(collected(), (Names{"C:\\Folder", "a.txt"}));
  EXPECT_EQ(status(status::SelectedCount) + "|" + form().mode(), "2  Item(s) Selected|RecallMode");
}

TEST_F(SelectionTest, TheLastSetAloneComesBackToo) {
  clickAll({"a"});
  clickAll({"b", "empty"});
  rig.key(left(), controls::key::Up);
  rig.app().listing.View1ClearItems();
  rig.command("selectall_Click");
  rig.menu("Recallprevius").choose();
  EXPECT_EQ(selected(left()), (Names{"b.txt", "empty"}));
  EXPECT_EQ(status(status::SizeReport), "") << "the sum was that of all";
}

TEST_F(SelectionTest, ResetEmptiesTheRecallOfItsSideAndKeepsTheRow) {
  rig.click(left(), "a");
  form().ListView2.SetFocus();
  rig.click(right(), "b");
  form().Command27.press();
  EXPECT_TRUE(form().panelRecall(panels::Side::Right).empty());
  EXPECT_FALSE(form().panelRecall(panels::Side::Left).empty());
  EXPECT_EQ(selected(right()), Names{"b.txt"});
  EXPECT_EQ(status(status::Line), "Archive") << "it is still in hand";
}

TEST_F(SelectionTest, AFullRecallDropsTheOldestAndSaysSo) {
  for (int number = 0; number < 2001; ++number)
    rig.write("C:\\many\\" + std::to_string(10'000 + number));
  rig.menu("refrechview").choose();
  rig.doubleClick(left(), "\\ many");
  rig.app().selection.ResetRecall_Click();
  rig.key(left(), controls::key::Home);
  rig.key(left(), controls::key::End, Shift);
  EXPECT_EQ(form().panelRecall(panels::Side::Left).names().size(), 2000u);
  EXPECT_EQ(form().panelRecall(panels::Side::Left).names().front(), "10001");
  EXPECT_EQ(status(status::Line),
            "Recall Bufffer Full ! - Auto Pop out in progress, (Apply Reset to increase speed !)");
}

TEST_F(SelectionTest, TheRecallFolderIsKeptAndTakenBackTo) {
  rig.doubleClick(left(), "\\ Folder");
  rig.menu("Recall").choose();
  form().Command18.press();
  rig.menu("Undo_recall").choose();
  EXPECT_EQ(left().path(), "C:\\Folder\\");
  form().Command18.press();
  std::filesystem::remove_all(rig.systemPath("C:\\Folder"));
  rig.loop.meets({test::told("Location has Changed and NOT Valid !")});
  rig.menu("Undo_recall").choose();
  EXPECT_EQ(left().path(), "C:\\");
}

TEST_F(SelectionTest, TheLastCommandIsRememberedUnlessLocked) {
  const auto stored = [&] { return core::Settings(rig.platform->settings).get(core::setting::LastCommandNumber); };
  rig.command("selectall_Click");
  EXPECT_EQ(stored(), "15");
  rig.loop.meets({test::noticed(" No Items selected. ! ")});
  left().list.selectNone();
  rig.menu("RenFileFolder").choose();
  EXPECT_EQ(stored(), "9") << "by its menu entry as by its button";
  rig.command("Command16_Click");
  EXPECT_EQ(stored(), "6");
  rig.menu("RLC").choose();
  rig.menu("LockOnLast").choose();
  rig.command("selectall_Click");
  EXPECT_EQ(stored(), "6");
  left().list.selectNone();
  rig.command("RunLastCommand_Click");
  EXPECT_EQ(form().mode(), "RecallMode");
}

TEST_F(SelectionTest, SourceAndTargetFollowTheActivePanel) {
  ASSERT_TRUE(rig.app().navigation.goTo(right(), "C:\\Folder"));
  form().CurrentItem = "a.txt";
  rig.app().dispatcher.Fileident();
  EXPECT_EQ(form().SourcePath + " " + form().TargetPath, "C:\\a.txt C:\\Folder\\");
  form().ListView2.SetFocus();
  form().CurrentItem = "C:\\Folder\\x";
  rig.app().dispatcher.Fileident();
  EXPECT_EQ(form().SourcePath + " " + form().TargetPath, "C:\\Folder\\x C:\\");
  form().setActive({});
  rig.loop.meets({test::told("System Error !, No Views Active, Restart Varnholt !")});
  rig.app().dispatcher.Fileident();
}

TEST_F(SelectionTest, ADropOnAButtonWithNothingSelectedSaysSo) {
  controls::DropEvent drop{{"C:\\a.txt"}, {}, &form().ListView1, false}, own = drop, noFile{{}, {}, nullptr, false};
  rig.loop.meets({test::noticed(" No Items selected. ! ")});
  form().Command4.OLEDragDrop(drop);
  EXPECT_TRUE(drop.accepted);
  for (controls::DropEvent* refused : {&noFile, &own}) {
    form().ListView1.OLEDragDrop(*refused);
    EXPECT_FALSE(refused->accepted) << "a panel takes nothing from itself";
  }
}

TEST_F(SelectionTest, ADropOntoAFolderThatHasVanishedTakesItsRowAway) {
  rig.makeFolder("C:\\Gone");
  show("C:\\", "D:\\");
  rig.click(left(), "a");
  std::filesystem::remove(rig.systemPath("C:\\Gone"));
  controls::DropEvent drop{{"C:\\a.txt"}, {}, &form().ListView1, false, "C:\\Gone"};
  form().ListView1.OLEDragDrop(drop);
  EXPECT_FALSE(drop.accepted || left().rowOfName("Gone"));
  EXPECT_TRUE(form().filecollect.empty() && right().path() == "D:\\");
}

}  // namespace
}  // namespace varnholt::app

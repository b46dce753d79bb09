#include "support/app_rig.hpp"

namespace varnholt::appearance {
namespace {

class CommandTreeTest : public test::AppTest {
 protected:
  void SetUp() override {
    write({"Work\\a.txt", "Work\\Sub\\b.txt", "Work\\sub\\c.txt"});
    rig.startLeft();
    show("C:\\Work", "D:\\");
    rig.menu("Commands").choose();
  }
  Form22& window() { return rig.app().commandTree.Form22; }
  controls::TreeNode& node(const std::string& fullPath) {
    auto* found = window().TreeNodetest(fullPath);
    if (!found) throw std::runtime_error("no node " + fullPath);
    return *found;
  }
  std::string shown() { return window().Text1.Text; }
};

TEST_F(CommandTreeTest, TheTreeIsOpenDownToTheActiveFolderAndItsNodesAreReadOnce) {
  EXPECT_EQ(shown(), "C:\\Work");
  EXPECT_EQ(window().TreeView1.selected(), &node("\\Work"));
  EXPECT_EQ(node("\\Work").children.size(), 2u) << "Sub and sub are two";
  rig.makeFolder("C:\\Work\\later");
  window().TreeView1.clickFromUser(node("\\Work"));
  window().TreeView1.clickFromUser(node("\\Work"));
  EXPECT_EQ(node("\\Work").children.size(), 3u);
  EXPECT_EQ(node("\\Work\\later").fullPath(), "\\Work\\later");
}

TEST_F(CommandTreeTest, AClickNamesTheFolderAndADoubleClickGoesThere) {
  window().TreeView1.clickFromUser(node("\\Work\\Sub"));
  EXPECT_EQ(shown() + "|" + window().F22Path, "C:\\Work\\Sub|C:\\Work\\Sub");
  EXPECT_EQ(left().path(), "C:\\Work\\");
  window().TreeView1.DblClick();
  EXPECT_EQ(left().path(), "C:\\Work\\Sub\\");

  window().TreeView1.clickFromUser(node("\\Work\\sub"));
  ASSERT_TRUE(files().deleteFolder("C:\\Work\\sub", true));
  window().TreeView1.DblClick();
  EXPECT_EQ(shown() + "|" + left().path(), "Folder Do Not Exists !|C:\\Work\\Sub\\");
  window().TreeView1.clickFromUser(node("\\Work\\sub"));
  EXPECT_EQ(shown() + "|" + window().F22Path, "Folder Path|");
}

TEST_F(CommandTreeTest, ItFollowsTheActivePanel) {
  rig.click(left(), "\\ Sub");
  EXPECT_FALSE(window().Command6.Enabled);
  EXPECT_EQ(window().Image2.Picture.get(), window().Image2.Fallback.get());
  rig.click(left(), "a");
  EXPECT_TRUE(window().Command6.Enabled);
  EXPECT_EQ(window().Image2.Picture.get(), "C:\\Work\\a.txt");
  EXPECT_TRUE(window().Command10.Enabled && window().Command10.Caption.get() == "Parent Folder");
  window().Command10.press();
  EXPECT_EQ(left().path() + "|" + shown(), "C:\\|C:\\");
  EXPECT_FALSE(window().Command10.Enabled);
  EXPECT_EQ(window().Command10.Caption.get(), "Root Folder") << "why it is gray";
  right().list.SetFocus();
  EXPECT_EQ(shown() + "|" + window().F22Path, "D:\\|D:\\");
  EXPECT_EQ(window().TreeView1.roots().front()->Text, "\\");
}

TEST_F(CommandTreeTest, ItsButtonsRunTheMainWindowsCommands) {
  const std::pair<controls::Button*, const char*> dialogs[] = {{&window().Command1, "Form3"},
                                                               {&window().Command2, "Form5"},
                                                               {&window().Command3, "Form4"},
                                                               {&window().Command4, "Form14"}};
  for (const auto& [button, dialog] : dialogs) {
    rig.click(left(), "a");
    rig.loop.whenShows(dialog).closes();
    button->press();
    rig.loop.expectAllReached();
  }
  window().Command9.press();
  EXPECT_EQ(selected(left()), Names{"a.txt"});
  window().Command12.press();
  EXPECT_FALSE(window().TreeView1.Visible);
  EXPECT_EQ(window().Command11.Enabled.get(), form().commands.find("QuickFolderInView_Click") != nullptr);
  window().Command1.SetFocus();
  window().Command2.SetFocus();
  EXPECT_TRUE(!window().Command1.FontUnderline && window().Command2.FontUnderline);
}

TEST_F(CommandTreeTest, ItClosesByItsButtonAndWhenTheVirtualDeskTopGetsTheKeyboard) {
  window().Image1.press();
  EXPECT_FALSE(window().Visible);
  const auto row = left().list.item(rig.rowOf(left(), "a"));
  left().list.setForeColor(row.id(), panels::mark_color::Selection);
  rig.menu("Commands").choose();
  EXPECT_EQ(selected(left()), Names{"a.txt"});
  form().events.VDT_Aktive(true);
  EXPECT_FALSE(window().Visible);
}

}  // namespace
}  // namespace varnholt::appearance

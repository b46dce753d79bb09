#include "support/app_rig.hpp"

#include "core/rtf.hpp"

namespace varnholt::places {
namespace {

using controls::RichText;
using test::Answer;

class NotesTest : public test::AppTest {
 protected:
  void SetUp() override { rig.startLeft(); }
  Form46& notes() { return rig.app().notes.Form46; }
  std::string folder() const { return rig.programFolder() + "\\Notes\\"; }
  std::string kept(const std::string& name) { return files().readFile(folder() + name).valueOr("none"); }
  void keep(const std::string& name, const std::string& bytes) {
    ASSERT_TRUE(files().writeFile(folder() + name, bytes));
  }
  std::string text() { return notes().RichTextBox1.Document().plain(); }
  Names rows() { return test::rowsOf(notes().ListView1); }
  void click(const std::string& name, controls::Modifiers modifiers = {}) {
    const Names names = rows();
    const auto row = std::ranges::find(names, name);
    ASSERT_NE(row, names.end()) << name;
    test::click(notes().ListView1, static_cast<std::uint32_t>(row - names.begin()), modifiers);
  }
  void type(const std::string& text) { notes().RichTextBox1.typeFromUser(RichText::of(text)); }
  /// What the user does and meets; a text that is still unsaved at the end is given up.
  void inNotes(const std::function<void()>& acts, const std::vector<Answer>& meets = {}) {
    inDialog("MyNotes_Click", "Form46", acts, meets, "Command3");
  }
  const std::string lossQuestion = "Your Note Is Not Saved !\rLeave It ?";
  const std::string beyond = "{\\rtf1 a{\\pict 00}}";
};

TEST_F(NotesTest, ANoteIsSavedUnderItsNameAndComesBackOnAClick) {
  RichText written;
  written.append("Buy ", {});
  written.append("bread", {true, false, true, 36, 0x0000FF});
  inNotes([&] {
    EXPECT_EQ(notes().Text1.Text.get() + "|" + text(), "My Note Name|Write your Note Here:");
    notes().RichTextBox1.typeFromUser(written);
    notes().Text1.typeFromUser(" shopping ");
    notes().Command1.press();
    EXPECT_EQ(notes().Text1.Text.get(), "My Note Name");
    EXPECT_EQ(rows(), Names{"shopping.Rtf"});
    type("other");
    notes().Command1.press();
    click("shopping.Rtf");
    EXPECT_EQ(notes().RichTextBox1.Document(), written);
    EXPECT_EQ(notes().Text1.Text.get(), "shopping");
    notes().Text1.DblClick();
    EXPECT_EQ(notes().Text1.Text.get(), "");
    click("shopping.Rtf");
    EXPECT_EQ(notes().Text1.Text.get(), "shopping") << "a click on the note that is shown names it again";
  });
  EXPECT_EQ(kept("My Note Name.Rtf"), core::writeRtf(RichText::of("other")));
}

TEST_F(NotesTest, CtrlWithALetterPressesTheButtonOfThatLook) {
  inNotes([&] {
    std::string pressed;
    for (const auto& [code, button] :
         {std::pair{'B', &notes().Command5}, {'I', &notes().Command6}, {'U', &notes().Command7}}) {
      button->Click = [&pressed, code = code] { pressed += code; };
      controls::KeyEvent event{code, {.ctrl = true}};
      notes().KeyDown(event);
      EXPECT_TRUE(event.handled);
    }
    EXPECT_EQ(pressed, "BIU");
  });
}

TEST_F(NotesTest, ABadNameAndARefusedQuestionWriteNothing) {
  keep("a.Rtf", core::writeRtf(RichText::of("before")));
  const std::string exists = "Note:  \ra   Already Exist !\rDo You Want To OverWrite ?";
  inNotes(
      [&] {
        type("after");
        for (const auto& [name, shown] : {std::pair<const char*, const char*>{"  ", "Key File Name!"},
                                          {"Key File Name!", "Key File Name!"},
                                          {"../up", "../up"},
                                          {"a", "a"}}) {
          notes().Text1.typeFromUser(name);
          notes().Command11.press();
          EXPECT_TRUE(notes().Visible) << name;
          EXPECT_EQ(notes().Text1.Text.get(), shown);
        }
        EXPECT_EQ(core::readRtf(kept("a.Rtf")).text.plain(), "before");
        notes().Command11.press();
        EXPECT_FALSE(notes().Visible);
      },
      {test::told("[ /InValid Chr. In Filename !, "), test::no(exists), test::yes(exists)});
  EXPECT_EQ(core::readRtf(kept("a.Rtf")).text.plain(), "after");
}

TEST_F(NotesTest, ANoteThatHoldsMoreIsSavedOverOnlyWhenTheUserSaysSo) {
  keep("a.rtf", beyond);
  const std::string more =
      "Note:  \ra   Holds More Than Text And Its Look !\rPictures, tables, fonts and alike are lost. Save ?";
  inNotes(
      [&] {
        click("a.rtf");
        EXPECT_EQ(text(), "a");
        notes().Command1.press();
        EXPECT_EQ(kept("a.rtf"), beyond);
        notes().Command1.press();
        EXPECT_EQ(kept("a.rtf"), core::writeRtf(RichText::of("a")));
      },
      {test::yes(), test::no(more), test::yes(), test::yes(more)});
}

TEST_F(NotesTest, AFileThatCouldNotBeReadToItsEndIsSetAsideAndTold) {
  keep("a.Rtf", "{\\rtf1 cut {off");
  keep("a.Rtf.damaged-1", "earlier");
  inNotes(
      [&] {
        click("a.Rtf");
        EXPECT_EQ(text(), "cut off");
        notes().Command1.press();
      },
      {test::yes(), test::told("a.Rtf could not be read to its end.\rIt is kept as  " + folder() + "a.Rtf.damaged-2")});
  EXPECT_EQ(kept("a.Rtf.damaged-2"), "{\\rtf1 cut {off");
  EXPECT_EQ(kept("a.Rtf"), core::writeRtf(RichText::of("cut off")));
}

TEST_F(NotesTest, AChangedTextIsNotLostWithoutAQuestion) {
  keep("a.Rtf", core::writeRtf(RichText::of("first")));
  keep("b.Rtf", core::writeRtf(RichText::of("second")));
  inNotes(
      [&] {
        click("a.Rtf");
        type("changed");
        click("b.Rtf");
        EXPECT_EQ(text() + "|" + notes().ListView1.SelectedItem()->Text(), "changed|a.Rtf");
        click("a.Rtf");  // its own row asks nothing
        notes().Command3.press();
        EXPECT_TRUE(notes().Visible);
        click("b.Rtf");
        EXPECT_EQ(text(), "second");
        type("again");
        notes().closeFromUser();
        EXPECT_TRUE(notes().Visible);
      },
      {test::no(lossQuestion), test::no(lossQuestion), test::yes(lossQuestion), test::no(lossQuestion),
       test::yes(lossQuestion)});
  EXPECT_EQ(core::readRtf(kept("a.Rtf")).text.plain(), "first");
}

TEST_F(NotesTest, DeleteTakesWhatIsSelectedAndDeleteAllFilesOfTheFolderAlone) {
  for (const char* name : {"a.Rtf", "b.Rtf", "c.rtf", "other.txt", "Sub\\d.Rtf"}) {
    (void)files().createFolder(folder() + "Sub");
    keep(name, core::writeRtf({}));
  }
  write({"target"});
  rig.scratch.link("data/Notes/link.Rtf", rig.systemPath("C:\\target"));
  inNotes(
      [&] {
        click("a.Rtf");
        click("b.Rtf", {false, true, false});
        notes().Command2.press();
        EXPECT_EQ(rows(), (Names{"c.rtf", "link.Rtf"}));
        EXPECT_EQ(notes().Text1.Text.get(), "My Note Name");
        notes().Command4.press();
        EXPECT_EQ(rows().size(), 2u);
        notes().Command4.press();
        EXPECT_EQ(rows().size(), 0u);
      },
      {test::no("You Are About To Delete All Notes !\rAre You Sure ?"), test::yes()});
  EXPECT_TRUE(rig.exists("C:\\target"));
  EXPECT_NE(kept("Sub\\d.Rtf"), "none");
  EXPECT_EQ(kept("other.txt"), "none");
  EXPECT_NE(kept(".varnholt"), "none");
}

TEST_F(NotesTest, ADoubleClickOpensTheFileThatIsStillThere) {
  keep("a.Rtf", core::writeRtf({}));
  inNotes(
      [&] {
        click("a.Rtf");
        ASSERT_TRUE(files().deleteFile(folder() + "a.Rtf", true));
        notes().ListView1.DblClick();
      },
      {test::told("Invalid Path, - File Do Not Exist !")});
}

}  // namespace
}  // namespace varnholt::places

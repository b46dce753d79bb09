#include "controls/menu.hpp"
#include "controls/standard.hpp"
#include "support/scripted_loop.hpp"

namespace varnholt::controls {
namespace {

class FormTest : public testing::Test {
 protected:
  test::ScriptedLoop loop;
  Form form{loop, "Form"};
  TextBox Text1{form, "Text1"};
  Button Command1{form, "Command1"};
};

TEST_F(FormTest, LoadsAtItsFirstShowAndAgainAfterUnloading) {
  int loads = 0, unloads = 0;
  form.Load = [&] { ++loads; };
  form.Unload = [&] { ++unloads; };
  form.Show();
  form.Hide();
  form.Show();
  EXPECT_EQ(loads, 1);
  form.UnloadForm();
  form.UnloadForm();
  EXPECT_EQ(unloads, 1);
  EXPECT_FALSE(form.Visible);
  form.Show();
  EXPECT_EQ(loads, 2);
}

TEST_F(FormTest, FocusMovesOnceAndIsRefusedToWhatCannotHaveIt) {
  std::string heard;
  Text1.GotFocus = [&] { heard += "text+ "; };
  Text1.LostFocus = [&] { heard += "text- "; };
  Command1.GotFocus = [&] { heard += "button+ "; };
  Text1.SetFocus();
  Text1.SetFocus();
  Command1.SetFocus();
  Text1.Enabled = false;
  Text1.SetFocus();
  EXPECT_EQ(heard, "text+ text- button+ ");
  EXPECT_TRUE(Command1.hasFocus());
}

TEST_F(FormTest, WhatIsDisabledHiddenOrLockedDoesNotAnswerTheUser) {
  int clicks = 0;
  MenuItem entry{form, "entry", nullptr};
  CheckBox box{form, "Check1"};
  ComboBox combo{form, "Combo1"};
  combo.AddItem("one");
  Command1.Click = entry.Click = box.Click = combo.Click = [&] { ++clicks; };
  Command1.Enabled = entry.Enabled = box.Enabled = combo.Enabled = false;
  Command1.press();
  entry.choose();
  box.toggleFromUser();
  combo.chooseFromUser(0);
  Text1.Locked = true;
  Text1.typeFromUser("typed");
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(box.Value, 0);
  EXPECT_EQ(combo.ListIndex, -1);
  EXPECT_EQ(Text1.Text.get(), "");
}

TEST_F(FormTest, AComboTellsAnotherChoiceOnce) {
  ComboBox combo{form, "Combo1"};
  std::string heard;
  combo.Change = [&] { heard += "another "; };
  combo.Click = [&] { heard += "clicked "; };
  for (const char* text : {"a", "b"})
    combo.AddItem(text);
  combo.chooseFromUser(1);
  combo.chooseFromUser(1);
  EXPECT_EQ(heard + combo.Text.get(), "another clicked clicked b");
}

TEST_F(FormTest, AHandlerMayUnloadItsOwnFormOrReplaceItself) {
  form.Show();
  int second = 0;
  Command1.Click = [&] {
    Command1.Click = [&] { ++second; };
    form.UnloadForm();
  };
  Command1.press();
  EXPECT_FALSE(form.Visible);
  Command1.press();
  EXPECT_EQ(second, 1);
}

}  // namespace
}  // namespace varnholt::controls

#include "core/message_dialogs.hpp"

#include "support/scripted_loop.hpp"

namespace varnholt::core {
namespace {

class MessageDialogsTest : public testing::Test {
 protected:
  test::ScriptedLoop loop;
  controls::Form owner{loop, "Form1"};
  controls::Timer Timer2{owner, "Timer2"};
  MessageDialogs dialogs{loop, Timer2};
};

TEST_F(MessageDialogsTest, AnAlertTellsThatItHasClosedHoweverItCloses) {
  int closed = 0;
  dialogs.Form12.closed.push_back([&] { ++closed; });
  loop.whenShows("Form12").reads("Label1", "Something\r").press("Command11");
  dialogs.alert("Something");
  loop.whenShows("Form12").closes();
  dialogs.alert("Else");
  EXPECT_EQ(closed, 2);
  EXPECT_EQ(dialogs.Form12.cancelButton, "Command11") << "Esc acts as the button";
}

TEST_F(MessageDialogsTest, ANoticeGoesByAClickWhichStopsItsTimer) {
  loop.whenShows("Form13").reads({"Caption|Information", "Label1|Done"}).run([&](controls::Form& form) {
    EXPECT_TRUE(Timer2.Enabled);
    form.Click();
  });
  dialogs.inform("Done");
  EXPECT_FALSE(Timer2.Enabled);
}

}  // namespace
}  // namespace varnholt::core

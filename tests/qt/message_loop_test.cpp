#include "core/message_dialogs.hpp"
#include "drawn.hpp"
#include "qt/blocking_call.hpp"
#include "qt/leave_signals.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <future>

namespace varnholt::test {
namespace {

using core::Answer;

/// A form with the timer that closes notices, as the main window has it.
struct Owner : controls::Form {
  explicit Owner(controls::MessageLoop& loop) : Form(loop, "Owner") {}
  controls::Timer Timer2{*this, "Timer2"};
};

class MessageLoop : public testing::Test {
 protected:
  qt::QtMessageLoop loop;
  Owner owner{loop};
  core::MessageDialogs dialogs{loop, owner.Timer2};

  /// What the user does once the form is on the screen.
  void whenShown(controls::Form& form, std::function<void(QWidget*)> act) {
    loop.later([this, &form, act = std::move(act)] {
      if (form.Visible) return act(windowOf(loop, form));
      whenShown(form, act);
    });
  }
  void press(QWidget* window, const char* button) {
    if (auto* widget = usable<QPushButton>(window, button)) QTest::mouseClick(widget, Qt::LeftButton);
  }
};

TEST_F(MessageLoop, AQuestionIsAnsweredByKeysAndABlindEnterDoesNoHarmWhateverTheLastAnswerWas) {
  using Act = std::function<void(QWidget*)>;
  const auto key = [](Qt::Key code) {
    return [code](QWidget* window) { QTest::keyClick(window->focusWidget(), code); };
  };
  const std::initializer_list<std::pair<Act, Answer>> rows{
      {key(Qt::Key_Return), Answer::No},
      {[this](QWidget* window) { press(window, "Command11"); }, Answer::Yes},
      {key(Qt::Key_Return), Answer::No},
      {[](QWidget* window) {
         auto* execute = usable<QPushButton>(window, "Command11");
         execute->setFocus();
         QTest::keyClick(execute, Qt::Key_Return);
       },
       Answer::Yes},
      {key(Qt::Key_Escape), Answer::No},
      {[](QWidget* window) { window->close(); }, Answer::None}};
  for (const auto& [act, answer] : rows) {
    whenShown(dialogs.Form11, act);
    EXPECT_EQ(dialogs.ask("Delete all ?"), answer);
  }
}

TEST_F(MessageLoop, ANoticeClosesByItsTimerWhileAnotherDialogStandsOnIt) {
  owner.Timer2.Interval = 20;
  whenShown(dialogs.Form13, [&](QWidget*) {
    whenShown(dialogs.Form12, [&](QWidget* alert) {
      EXPECT_TRUE(waitFor([&] { return !dialogs.Form13.Visible; }));
      press(alert, "Command11");
    });
    dialogs.alert("On top");
  });
  dialogs.inform("Done !");
  EXPECT_FALSE(dialogs.Form13.Visible);
  EXPECT_FALSE(owner.Timer2.Enabled);
}

TEST_F(MessageLoop, ADialogThatIsShownAgainWhileAnotherStandsOnItIsStillWaitedFor) {
  std::string events;
  whenShown(dialogs.Form12, [&](QWidget*) {
    whenShown(dialogs.Form11, [&](QWidget*) {
      dialogs.Form12.Visible = false;
      loop.flush();
      dialogs.Form12.Visible = true;
      loop.flush();
      dialogs.Form11.Hide();
    });
    dialogs.ask("On top");
    events += "answered ";
    // Some turns later, so that a loop that wrongly ends has ended by then.
    QTimer::singleShot(30, &loop, [&] {
      events += "pressed ";
      press(windowOf(loop, dialogs.Form12), "Command11");
    });
  });
  dialogs.alert("Below");
  EXPECT_EQ(events, "answered pressed ");
}

TEST_F(MessageLoop, AQuestionThatComesAgainAtOnceHasTheKeyboard) {
  for (int round = 0; round < 3; ++round) {
    whenShown(dialogs.Form11, [&](QWidget* window) {
      ASSERT_TRUE(QTest::qWaitForWindowActive(window));
      press(window, "Command1");
    });
    dialogs.ask("Overwrite this ?");
    whenShown(dialogs.Form11, [&](QWidget* window) {
      EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() != nullptr; }));
      EXPECT_EQ(QApplication::focusWidget(), window->findChild<QPushButton*>("Command1"));
      press(window, "Command1");
    });
    dialogs.ask("Overwrite that ?");
  }
}

TEST_F(MessageLoop, ADialogDoesNotStandOnAWindowThatHasJustGone) {
  core::Form12 beside(loop);
  beside.Show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(windowOf(loop, beside)));
  beside.Visible = false;
  whenShown(dialogs.Form11, [&](QWidget* window) {
    EXPECT_EQ(window->windowHandle()->transientParent(), nullptr);
    press(window, "Command1");
  });
  dialogs.ask("Go on ?");
}

TEST_F(MessageLoop, AButtonThatClosesItsWindowIsPressedOnceByADoubleClickAndNotByEnterThatStaysDown) {
  core::Form12 form(loop);
  int presses = 0;
  form.Command11.Click = [&] { ++presses, form.Hide(); };
  form.Show();
  auto* button = usable<QPushButton>(windowOf(loop, form), "Command11");
  QKeyEvent heldDown(QEvent::KeyPress, Qt::Key_Return, {}, {}, true);
  QCoreApplication::sendEvent(button, &heldDown);
  EXPECT_EQ(presses, 0);
  QTest::mouseClick(button, Qt::LeftButton);
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(presses, 1);
}

TEST_F(MessageLoop, AFormMayEndInItsOwnHandler) {
  auto form = std::make_unique<core::Form12>(loop);
  form->Label1.Caption = "Going away";
  form->Command11.Click = [&] { form.reset(); };
  form->Show();
  auto* button = usable<QPushButton>(windowOf(loop, *form), "Command11");
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_FALSE(form);
  QCoreApplication::processEvents();
}

TEST_F(MessageLoop, QuittingEndsOpenDialogs) {
  whenShown(dialogs.Form12, [&](QWidget*) { loop.quit(); });
  loop.later([&] { dialogs.alert("Still open"); });
  EXPECT_EQ(loop.exec(), 0);
}

TEST_F(MessageLoop, ADialogStandsInTheMiddleOfItsCallerAndOnTheScreen) {
  core::Form12 caller(loop);
  caller.Show();
  QWidget* below = windowOf(loop, caller);
  below->move(5, 300);
  ASSERT_TRUE(QTest::qWaitForWindowActive(below));
  whenShown(dialogs.Form11, [&](QWidget* window) {
    EXPECT_TRUE(window->screen()->availableGeometry().contains(window->geometry()));
    EXPECT_LE(std::abs(window->geometry().center().y() - below->geometry().center().y()), 2);
    press(window, "Command1");
  });
  dialogs.ask(
      "A question that is somewhat wider than the window on which it stands, so that it would begin left of it");
}

TEST_F(MessageLoop, EnterInABoxNeverDoesHarm) {
  using namespace controls;
  using BoxCase = std::tuple<MessageIcon, MessageButtons, MessageAnswer, MessageAnswer>;  // answers of Enter and Esc
  for (const auto& [icon, buttons, enter, escape] : std::initializer_list<BoxCase>{
           {MessageIcon::Critical, MessageButtons::Ok, MessageAnswer::Ok, MessageAnswer::Ok},
           {MessageIcon::Question, MessageButtons::OkCancel, MessageAnswer::Ok, MessageAnswer::Cancel},
           {MessageIcon::Critical, MessageButtons::OkCancel, MessageAnswer::Cancel, MessageAnswer::Cancel},
           {MessageIcon::Exclamation, MessageButtons::OkCancel, MessageAnswer::Cancel, MessageAnswer::Cancel},
           {MessageIcon::Exclamation, MessageButtons::YesNo, MessageAnswer::No, MessageAnswer::No}}) {
    for (const auto& [key, answer] : {std::pair{Qt::Key_Return, enter}, std::pair{Qt::Key_Escape, escape}}) {
      loop.later([key = key] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        EXPECT_EQ(box->text(), QStringLiteral("First line\n<b>second</b>"));
        QTest::keyClick(box, key);
      });
      EXPECT_EQ(loop.show({"Alert !", "First line\r<b>second</b>", icon, buttons}), answer);
    }
  }
}

/// Counts paint events of one widget.
class PaintCounter : public QObject {
 public:
  explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints;
    return false;
  }
  std::atomic<int> paints = 0;
};

TEST_F(MessageLoop, WindowsKeepPaintingAndInputWaitsWhileALongCallRuns) {
  int presses = 0;
  bool running = true, laterRan = false, looksPressed = false;
  dialogs.Form12.Command11.Click = [&] { ++presses; };
  dialogs.Form12.Show();
  QWidget* window = windowOf(loop, dialogs.Form12);
  auto* button = usable<QPushButton>(window, "Command11");
  PaintCounter counter(*window);

  loop.runBlocking([&] {
    // From the helper thread as an accessibility tool or the window system would: into the queue of the window.
    const auto post = [&](QEvent::Type type, Qt::MouseButtons down) {
      const auto at = QPointF(button->rect().center());
      QCoreApplication::postEvent(
          button, new QMouseEvent(type, at, button->mapToGlobal(at), Qt::LeftButton, down, Qt::NoModifier));
    };
    post(QEvent::MouseButtonPress, Qt::LeftButton);
    const auto act = [&] {
      looksPressed = button->isDown();
      window->update();
      button->click();
      loop.later([&] { laterRan = running; });
    };
    QMetaObject::invokeMethod(window, act, Qt::QueuedConnection);
    post(QEvent::MouseButtonRelease, Qt::NoButton);
    const int before = counter.paints;
    while (counter.paints == before)
      std::this_thread::yield();
  });
  running = false;
  EXPECT_EQ(presses, 0) << "input must wait until the handler is back";
  EXPECT_TRUE(waitFor([&] { return presses == 2; })) << presses << " of a click and a press by assistive technology";
  EXPECT_FALSE(looksPressed) << "nor may the widget change for it";
  EXPECT_FALSE(laterRan);
}

/// A dialog with a button that ends a long call, and one that waits.
struct Stoppable : core::Form11 {
  explicit Stoppable(controls::MessageLoop& loop) : Form11(loop) {
    Command1.Caption = "&Stop";
    Command11.Caption = "&Execute";
    Command1.Click = [this] { stopped = true; };
    Command11.Click = [this] { ++others; };
    QueryUnload = [](bool& keep) { keep = true; };
  }
  std::atomic<bool> stopped = false;
  int others = 0;
};

TEST_F(MessageLoop, TheStopButtonAloneWorksWhileALongCallRuns) {
  using Act = std::function<void(QWidget*)>;
  const auto key = [](Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
    return [=](QWidget* window) { QTest::keyClick(window->windowHandle(), code, modifiers); };
  };
  const auto click = [](const char* name) {
    return [=](QWidget* window) {
      auto* button = window->findChild<QPushButton*>(name);
      QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, button->mapTo(window, button->rect().center()));
    };
  };
  const std::initializer_list<std::pair<const char*, Act>> ways{
      {"its key", key(Qt::Key_S, Qt::AltModifier)},
      {"a click", click("Command1")},
      {"Enter on it", key(Qt::Key_Return)},
      {"Space on it", key(Qt::Key_Space)},
      {"Esc", key(Qt::Key_Escape)},
      {"the close box", [](QWidget* window) { window->close(); }},
      {"assistive technology", [](QWidget* window) { window->findChild<QPushButton*>("Command1")->click(); }}};
  for (const auto& [way, act] : ways) {
    Stoppable dialog(loop);
    dialog.Show();
    QWidget* window = windowOf(loop, dialog);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    window->findChild<QPushButton*>("Command1")->setFocus();
    std::atomic<int> ticks = 0;
    const auto call = [&, act = act] {
      const auto user = [&] {
        window->findChild<QPushButton*>("Command11")->click();
        QTest::keyClick(window->windowHandle(), Qt::Key_E, Qt::AltModifier);
        act(window);
      };
      QMetaObject::invokeMethod(window, user, Qt::QueuedConnection);
      for (int waited = 0; waited < 400 && (!dialog.stopped || ticks == 0); ++waited)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    };
    loop.runBlocking(call, {[&] { ++ticks; }, &dialog.Command1});
    EXPECT_TRUE(dialog.stopped) << way;
    EXPECT_GT(ticks, 0);
    EXPECT_EQ(dialog.others, 0) << "a button that must wait";
    EXPECT_TRUE(waitFor([&] { return dialog.others > 0; })) << way;
  }
}

TEST_F(MessageLoop, ACallBesideTheWindowHoldsUpNobody) {
  auto answer = std::make_shared<std::promise<void>>();
  std::thread::id told;
  loop.runBeside([answer] { answer->get_future().wait(); }, [&] { told = std::this_thread::get_id(); });
  bool other = false;
  loop.runBeside([] {}, [&] { other = true; });
  EXPECT_TRUE(waitFor([&] { return other; })) << "one that does not answer keeps no other waiting";
  EXPECT_EQ(told, std::thread::id());
  EXPECT_TRUE(loop.hasCallsBeside());
  answer->set_value();
  EXPECT_TRUE(waitFor([&] { return told == std::this_thread::get_id(); }));
}

TEST_F(MessageLoop, TheCloseBoxLeavesADriveThatDoesNotAnswer) {
  std::promise<void> answer;
  bool stored = false;
  loop.setLeave([&] {
    loop.runBlocking([&] { stored = true; });  // storing the state calls the platform, too
    answer.set_value();
  });
  whenShown(dialogs.Form12, [&](QWidget* window) {
    // A dialog may be closed for less than the end of the program: the user is asked.
    std::function<void()> answerQuestion = [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (!box) return QTimer::singleShot(20, window, answerQuestion);
      QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    };
    QTimer::singleShot(60, window, [&, window] {
      QCoreApplication::postEvent(window, new QCloseEvent);
      answerQuestion();
    });
    loop.runBlocking([&] { answer.get_future().wait(); });
  });
  dialogs.alert("Deleting");
  EXPECT_TRUE(stored);
}

TEST_F(MessageLoop, TimersTickWithoutAWindowWaitForALongCallAndStop) {
  int ticks = 0;
  owner.Timer2.Tick = [&] { ++ticks; };
  owner.Timer2.Interval = 1;
  owner.Timer2.Enabled = true;
  const auto ticksAgain = [&] { return waitFor([&, before = ticks] { return ticks > before; }); };
  EXPECT_TRUE(ticksAgain());
  const int before = ticks;
  loop.runBlocking([] { std::this_thread::sleep_for(std::chrono::milliseconds(80)); });
  EXPECT_EQ(ticks, before);
  EXPECT_TRUE(ticksAgain());
  owner.Timer2.Enabled = false;
  const int last = ticks;
  QTest::qWait(20);
  EXPECT_EQ(ticks, last);
}

TEST_F(MessageLoop, TheHourglassShowsAtTheNextTurn) {
  loop.screen().MousePointer = controls::pointer::Hourglass;
  loop.giveTurn();
  loop.flush();
  ASSERT_TRUE(QApplication::overrideCursor());
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  loop.screen().MousePointer = controls::pointer::Default;
  loop.flush();
  EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(MessageLoop, TheEndOfTheSessionIsNotLeftToTheWindows) {
  qt::LeaveSignals ends;
  int asked = 0;
  ends.leave = [&] { ++asked; };
  QEvent end(QEvent::Quit);
  QCoreApplication::sendEvent(qApp, &end);
  EXPECT_EQ(asked, 1);
}

}  // namespace
}  // namespace varnholt::test

#pragma once

#include "controls/message_loop.hpp"
#include "controls/standard.hpp"

#include <functional>
#include <string>
#include <vector>

namespace varnholt::core {

/// What a question was answered. None: the window's close box.
enum class Answer { None = 0, Yes = 1, No = 2, All = 3 };

/// "Alert !": a question with Execute and Cancel, and a third button that only one question shows.
class Form11 : public controls::Form {
 public:
  explicit Form11(controls::MessageLoop& loop);

  controls::Label Label1{*this, "Label1"};
  controls::Button Command11{*this, "Command11"};
  controls::Button Command1{*this, "Command1"};
  controls::Button Command2{*this, "Command2"};

  Answer AlertAnswer = Answer::None;
  /// Execute was pressed, and the dialog still stands: the delete dialog behind it shows that work goes on.
  std::function<void()> executed;

 private:
  void Command11_Click();
  void Command1_Click();
  void Command2_Click();
  void finish(Answer answer);
};

/// "Alert": a text and one button.
class Form12 : public controls::Form {
 public:
  explicit Form12(controls::MessageLoop& loop);

  controls::Label Label1{*this, "Label1"};
  controls::Button Command11{*this, "Command11"};
  /// Told when the alert closes; the file operations clear their stop flags here.
  std::vector<std::function<void()>> closed;

 private:
  void Command11_Click();
};

/// "Information !": a notice that goes away by a click, Esc or after two seconds.
class Form13 : public controls::Form {
 public:
  explicit Form13(controls::MessageLoop& loop);

  controls::Label Label1{*this, "Label1"};
};

/// The shared message dialogs, each used in its fixed way.
class MessageDialogs {
 public:
  /// `Timer2` is the main window's timer that closes the notice.
  MessageDialogs(controls::MessageLoop& loop, controls::Timer& Timer2);

  /// The question `text`; true for Execute alone.
  bool AskRetry(const std::string& text, const std::string& caption = "Alert !");
  /// The same with the answer told apart.
  Answer ask(const std::string& text, const std::string& caption = "Alert !");
  /// Form12 with the text and a line break behind it.
  void alert(const std::string& text);
  /// Form13 with the text, closed by a click, Esc or by `Timer2`.
  void inform(const std::string& text, const std::string& caption = "Information");
  /// The platform's box with a critical icon and the title "Alert !".
  void critical(const std::string& text);

  /// The tick of `Timer2`.
  void Timer2_Timer();

  controls::MessageLoop& loop() const { return loop_; }

  core::Form11 Form11;
  core::Form12 Form12;
  core::Form13 Form13;

 private:
  controls::MessageLoop& loop_;
  controls::Timer& Timer2_;
};

}  // namespace varnholt::core

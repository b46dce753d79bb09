#pragma once

#include "controls/message_loop.hpp"
#include "controls/standard.hpp"

#include <atomic>
#include <string>

namespace varnholt::fileops {

/// The texts in which the dialogs of the operations differ.
struct OperationWords {
  std::string form;     ///< "Form3"
  std::string verb;     ///< "Copy"
  std::string caption;  ///< "Copy Item(s)"
  std::string button, buttonTip;
  bool itemIsText2 = false;  ///< the item in hand stands in Text2 and the summary in Text1, else the other way round
};

/// What the loop of an operation shows of itself: a progress line, a bar, and a button that stops it.
class ProgressForm : public controls::Form {
 public:
  controls::Label Label5{*this, "Label5"};  ///< "Processing...", "Overall: 50%"
  controls::ProgressBar ProgressBar1{*this, "ProgressBar1"};

  const OperationWords words;
  /// The user asked to stop. The loop looks at it once an item, and long calls look on their own thread.
  std::atomic<bool> StopFlag = false;

  virtual controls::Button& stopButton() = 0;
  /// The item in hand.
  virtual void showItem(const std::string& line) = 0;
  /// The item of that number, from 1, is the next.
  virtual void showCount(std::size_t number, std::size_t of);
  /// True from the start of the loop to its ending: only the stop button works then.
  bool isRunning() const { return running_; }
  void setRunning(bool running);
  void showProgress(const std::string& line);
  void hideProgress();

 protected:
  ProgressForm(controls::MessageLoop& loop, OperationWords words);
  /// Buttons of the derived dialog that rest while the loop runs.
  virtual void rest(bool /*running*/) {}

 private:
  bool running_ = false;
};

/// What the dialogs of copy, move and delete have in common: the item in hand, a summary, a folder, a size line and a
/// progress line, and buttons to start, stop, cancel and calculate.
class OperationForm : public ProgressForm {
 public:
  controls::TextBox Text1{*this, "Text1"}, Text2{*this, "Text2"}, Text3{*this, "Text3"};
  controls::Label Label4{*this, "Label4"};         ///< size of the selection
  controls::Button Command11{*this, "Command11"};  ///< start
  controls::Button Command1{*this, "Command1"};    ///< stop
  controls::Button Command2{*this, "Command2"};    ///< cancel
  controls::Button Command3{*this, "Command3"};    ///< calculate the size

  /// The box with the item in hand, and the one with the summary.
  controls::TextBox &item, &summary;

  controls::Button& stopButton() override { return Command1; }
  void showItem(const std::string& line) override { item.Text = line; }

 protected:
  OperationForm(controls::MessageLoop& loop, OperationWords words);
  void rest(bool running) override;
};

/// The dialogs with a target: it can be browsed for, and one file can go there under a new name.
class TargetForm : public OperationForm {
 public:
  controls::Button Command4{*this, "Command4"};  ///< browse
  controls::Button Command5{*this, "Command5"};  ///< under a new name

 protected:
  TargetForm(controls::MessageLoop& loop, OperationWords words);
  void rest(bool running) override {
    OperationForm::rest(running);
    Command4.Enabled = !running;
    if (running) Command5.Enabled = false;
  }
};

class Form3 : public TargetForm {
 public:
  explicit Form3(controls::MessageLoop& loop);
};

class Form5 : public TargetForm {
 public:
  explicit Form5(controls::MessageLoop& loop);
  /// A move is at work: on one drive it needs no room.
  bool MoveRunning = false;
};

class Form4 : public OperationForm {
 public:
  explicit Form4(controls::MessageLoop& loop);
};

}  // namespace varnholt::fileops

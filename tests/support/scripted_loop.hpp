#pragma once

#include "controls/message_loop.hpp"
#include "controls/standard.hpp"
#include "support/testing.hpp"

#include <deque>

namespace varnholt::test {

/// A dialog that comes up, the button that is pressed in it, what its "Label1" reads where that is given, and what is
/// looked at or done before.
struct Answer {
  std::string dialog, button = "Command11", text = {};
  std::function<void()> before = {};
};
inline Answer yes(std::string text = {}) { return {"Form11", "Command11", std::move(text)}; }
inline Answer no(std::string text = {}) { return {"Form11", "Command1", std::move(text)}; }
/// An alert, and a notice that goes by itself.
inline Answer told(std::string text = {}) { return {"Form12", "Command11", text.empty() ? text : text + "\r"}; }
inline Answer noticed(std::string text) { return {"Form13", "", std::move(text)}; }

/// A message loop in which a script plays the user. Steps are met in their order: a dialog or box that the next step
/// does not expect fails the test, and so does a step that is never reached or a dialog that its step leaves open.
class ScriptedLoop : public controls::MessageLoop {
 public:
  ScriptedLoop();
  ~ScriptedLoop() override { expectAllReached(); }

  /// One expected dialog or box, and what the user does in it.
  class Step {
   public:
    Step& press(std::string button);
    Step& run(std::function<void(controls::Form&)> action) { return actions.push_back(std::move(action)), *this; }
    /// Compares the text of a label, a text box or the caption ("Caption").
    Step& reads(std::string control, std::string text);
    /// The same of several, each a row "Label1|its text".
    Step& reads(Rows rows);
    Step& closes() {
      return run([](controls::Form& form) { form.closeFromUser(); });
    }

   private:
    friend class ScriptedLoop;
    std::string window;
    bool isBox = false;
    controls::MessageAnswer answer = controls::MessageAnswer::Ok;
    std::string boxText;
    std::vector<std::function<void(controls::Form&)>> actions;
  };

  Step& whenShows(std::string form);
  /// These dialogs one after the other. Without a button the close box is used.
  void meets(const std::vector<Answer>& answers);
  /// A message box of that title; a text that is not empty is compared.
  Step& whenBox(std::string title, controls::MessageAnswer answer, std::string text = {});
  /// Fails for steps not reached, and forgets them. The destructor does it too.
  void expectAllReached();

  void giveTurn() override;
  void runModal(controls::Form& form) override;
  void runBlocking(const std::function<void()>& call, const controls::Meanwhile& meanwhile) override;
  void runBeside(std::function<void()> call, std::function<void()> done) override {
    ++blocked;
    call();
    --blocked;
    done();
  }
  /// The tick of the call that is running: what the user is shown meanwhile.
  void tickMeanwhile() { meanwhile_.tick(); }
  /// The one button that works while it runs.
  void stopMeanwhile() { meanwhile_.stop ? meanwhile_.stop->press() : ADD_FAILURE() << "no button stops it"; }
  controls::MessageAnswer show(const controls::MessageBox& box) override;
  void quit() override { quitAsked = true; }
  void later(std::function<void()> call) override { pending_.push_back(std::move(call)); }
  /// The program that asked for them has ended.
  void forgetLaterCalls() { pending_.clear(); }
  void attach(controls::Form& form) override { forms_.push_back(&form); }
  void changed(controls::Form&) override {}
  void detach(controls::Form& form) override { std::erase(forms_, &form); }

  /// The attached form of that name, null when there is none.
  controls::Form* form(const std::string& name) const;

  int turns = 0;
  int blocked = 0;  ///< calls under way that may wait for a drive: no window waits for it
  bool quitAsked = false;
  /// Called at each turn: what the user does while a handler works.
  std::function<void()> onTurn;

 private:
  std::unique_ptr<Step> next(const std::string& window, bool isBox);

  std::deque<std::unique_ptr<Step>> steps_;
  std::vector<controls::Form*> forms_;
  std::deque<std::function<void()>> pending_;
  controls::Meanwhile meanwhile_;
};

}  // namespace varnholt::test

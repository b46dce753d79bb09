#include "support/scripted_loop.hpp"

namespace varnholt::test {

using Step = ScriptedLoop::Step;

Step& Step::press(std::string button) {
  return run([button = std::move(button)](controls::Form& form) {
    auto* control = dynamic_cast<controls::Button*>(form.control(button));
    ASSERT_TRUE(control) << form.name() << " has no button " << button;
    ASSERT_TRUE(control->Enabled && control->Visible) << form.name() << "." << button << " cannot be pressed";
    control->press();
  });
}

Step& Step::reads(std::string control, std::string text) {
  return run([control = std::move(control), text = std::move(text)](controls::Form& form) {
    if (control == "Caption") {
      EXPECT_EQ(form.Caption.get(), text);
    } else if (auto* label = dynamic_cast<controls::Label*>(form.control(control))) {
      EXPECT_EQ(label->Caption.get(), text);
    } else if (auto* box = dynamic_cast<controls::TextBox*>(form.control(control))) {
      EXPECT_EQ(box->Text.get(), text);
    } else {
      ADD_FAILURE() << form.name() << " has nothing to read named " << control;
    }
  });
}

Step& Step::reads(Rows rows) {
  for (const auto row : rows)
    reads(Row(row).first, std::string(row.substr(row.find('|') + 1)));
  return *this;
}

ScriptedLoop::ScriptedLoop() {
  screen_.width = 1280 * controls::TwipsPerPixel;
  screen_.height = 800 * controls::TwipsPerPixel;
}

Step& ScriptedLoop::whenShows(std::string form) {
  steps_.push_back(std::make_unique<Step>());
  steps_.back()->window = std::move(form);
  return *steps_.back();
}

void ScriptedLoop::meets(const std::vector<Answer>& answers) {
  for (const Answer& each : answers) {
    Step& step = whenShows(each.dialog);
    if (!each.text.empty()) step.reads("Label1", each.text);
    if (each.before) step.run([before = each.before](controls::Form&) { before(); });
    each.button.empty() ? step.closes() : step.press(each.button);
  }
}

Step& ScriptedLoop::whenBox(std::string title, controls::MessageAnswer answer, std::string text) {
  Step& step = whenShows(std::move(title));
  step.isBox = true;
  step.answer = answer;
  step.boxText = std::move(text);
  return step;
}

void ScriptedLoop::expectAllReached() {
  for (const auto& step : steps_)
    ADD_FAILURE() << "never reached: " << (step->isBox ? "box " : "form ") << step->window;
  steps_.clear();
}

std::unique_ptr<Step> ScriptedLoop::next(const std::string& window, bool isBox) {
  if (steps_.empty() || steps_.front()->window != window || steps_.front()->isBox != isBox) return nullptr;
  auto step = std::move(steps_.front());
  steps_.pop_front();
  return step;
}

void ScriptedLoop::giveTurn() {
  ++turns;
  if (onTurn) onTurn();
  for (auto calls = std::exchange(pending_, {}); !calls.empty(); calls.pop_front())
    calls.front()();
}

void ScriptedLoop::runBlocking(const std::function<void()>& call, const controls::Meanwhile& meanwhile) {
  if (blocked > 0) return call();
  meanwhile_ = meanwhile;
  ++blocked;
  call();
  --blocked;
  meanwhile_ = {};
}

void ScriptedLoop::runModal(controls::Form& form) {
  form.Visible = true;
  form.Activate();
  auto step = next(form.name(), false);
  if (!step) {
    std::string texts;
    for (auto* control : form.controls())
      if (auto* label = dynamic_cast<controls::Label*>(control)) texts += " | " + label->Caption.get();
    ADD_FAILURE() << "nobody expected " << form.name() << " \"" << form.Caption.get() << "\"" << texts;
    form.Visible = false;
    return;
  }
  for (const auto& action : step->actions)
    action(form);
  if (form.Visible) {
    ADD_FAILURE() << form.name() << " is still open after its step";
    form.Visible = false;
  }
}

controls::MessageAnswer ScriptedLoop::show(const controls::MessageBox& box) {
  auto step = next(box.title, true);
  if (!step) {
    ADD_FAILURE() << "nobody expected the box \"" << box.title << "\": " << box.text;
    return controls::MessageAnswer::Cancel;
  }
  if (!step->boxText.empty()) {
    EXPECT_EQ(box.text, step->boxText);
  }
  return step->answer;
}

controls::Form* ScriptedLoop::form(const std::string& name) const {
  auto found = std::ranges::find_if(forms_, [&](const controls::Form* each) { return each->name() == name; });
  return found == forms_.end() ? nullptr : *found;
}

}  // namespace varnholt::test

#include "controls/form.hpp"

#include "controls/message_loop.hpp"

#include <algorithm>

namespace varnholt::controls {

Control::Control(Form& form, std::string name, Kind kind) : form_(form), name_(std::move(name)), kind_(kind) {
  form_.add(*this);
  form_.noteChanged(*this);
}

Control::~Control() { form_.remove(*this); }

void Control::markChanged() {
  if (std::exchange(changed_, true)) return;
  form_.noteChanged(*this);
}

void Control::SetFocus() {
  if (!Visible || !Enabled) return;
  form_.focusMoved(this);
  form_.markChanged();
}

bool Control::hasFocus() const { return form_.focused() == this; }

Form::Form(MessageLoop& loop, std::string name) : loop_(loop), name_(std::move(name)) { loop_.attach(*this); }

Form::~Form() { loop_.detach(*this); }

void Form::Show() {
  ensureLoaded();
  Visible = true;
}

void Form::ShowModal() {
  ensureLoaded();
  loop_.runModal(*this);
}

void Form::Hide() {
  Visible = false;
  focused_ = nullptr;
}

void Form::UnloadForm() {
  if (!loaded_) return;
  bool keep = false;
  QueryUnload(keep);
  if (keep) return;
  Visible = false;
  loaded_ = false;
  focused_ = nullptr;
  Unload();
}

void Form::ensureLoaded() {
  if (loaded_) return;
  loaded_ = true;
  Load();
}

Control* Form::control(std::string_view name) const {
  auto found = std::ranges::find_if(controls_, [&](const Control* each) { return each->name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

void Form::focusMoved(Control* control) {
  if (control == focused_) return;
  Control* before = std::exchange(focused_, control);
  if (before) before->LostFocus();
  if (control && focused_ == control) control->GotFocus();
}

void Form::remove(Control& control) {
  std::erase(controls_, &control);
  std::erase(changedControls_, &control);
  if (focused_ == &control) focused_ = nullptr;
  markChanged();
}

void Form::markChanged() {
  changed_ = true;
  loop_.changed(*this);
}

void Form::noteChanged(Control& control) {
  changedControls_.push_back(&control);
  loop_.changed(*this);
}

}  // namespace varnholt::controls

#include "controls/standard.hpp"

namespace varnholt::controls {

void TextBox::prompt(std::string words) {
  prompt_ = std::move(words);
  Text = prompt_;
  selectRequest_ = true;
  markChanged();
  SetFocus();
}

void ComboBox::AddItem(std::string text, std::string icon) {
  auto items = Items.get();
  items.push_back({std::move(text), std::move(icon)});
  Items = std::move(items);
}

void ComboBox::Clear() {
  Items = std::vector<Item>{};
  choose(-1);
}

void ComboBox::choose(int index) {
  const bool valid = index >= 0 && index < static_cast<int>(Items->size());
  ListIndex = valid ? index : -1;
  Text = valid ? Items.get()[static_cast<std::size_t>(index)].text : std::string();
}

void ComboBox::chooseFromUser(int index) {
  if (!Enabled || !Visible) return;
  const bool another = index != ListIndex.get();
  choose(index);
  if (another) Change();
  Click();
}

void ComboBox::typeFromUser(std::string text) {
  if (!Enabled || !Editable) return;
  ListIndex.takeFromUser(-1);
  Text.takeFromUser(std::move(text));
  Change();
}

void Slider::slideFromUser(int value) {
  if (!Enabled) return;
  Value = std::min(std::max(value, Min.get()), Max.get());
  Change();
}

StatusBar::StatusBar(Form& form, std::string name, int panels)
    : Control(form, std::move(name), Kind::StatusBar), panels_(static_cast<std::size_t>(panels)) {}

void StatusBar::setPanel(int number, std::string text) {
  auto& held = panels_.at(static_cast<std::size_t>(number - 1));
  if (held == text) return;
  held = std::move(text);
  markChanged();
}

}  // namespace varnholt::controls

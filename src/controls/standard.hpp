#pragma once

#include "controls/form.hpp"

#include <string>
#include <utility>
#include <vector>

/// The plain kinds of control. What the user does arrives through the functions named ...FromUser, which both the
/// drawing side and tests call, so that a test presses the real thing.
namespace varnholt::controls {

class Label : public Control {
 public:
  Label(Form& form, std::string name) : Control(form, std::move(name), Kind::Label) {}
  Property<std::string> Caption{*this};  ///< a carriage return is a line break
};

class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name) : Control(form, std::move(name), Kind::TextBox) {}
  Property<std::string> Text{*this};
  Property<bool> Locked{*this, false};  ///< shown and selectable, not changed by the user
  Property<int> MaxLength{*this, 0};    ///< 0: no limit
  Event<> Change;
  void typeFromUser(std::string text) {
    if (Locked || !Enabled) return;
    Text.takeFromUser(std::move(text));
    Change();
  }
  /// Puts in words that ask for others, and gives it the keyboard: what is typed takes their place.
  void prompt(std::string words);

  // --- For the drawing side --------------------------------------------------------------------------------------
  /// The words that ask for others, as long as nobody has typed.
  bool isPrompting() const { return !prompt_.empty() && Text.get() == prompt_; }
  /// The text is to be selected, once.
  bool takeSelectRequest() { return std::exchange(selectRequest_, false); }

 private:
  std::string prompt_;
  bool selectRequest_ = false;
};

class Button : public Control {
 public:
  Button(Form& form, std::string name) : Control(form, std::move(name), Kind::Button) {}
  Property<std::string> Caption{*this};        ///< "&" marks the mnemonic
  Property<std::string> Icon{*this};           ///< icon of the program's family, by name; empty: none
  Property<bool> FontUnderline{*this, false};  ///< the mark of a command that awaits its target
  /// Presses it: nothing on a disabled or invisible button.
  void press() {
    if (Enabled && Visible) Click();
  }
};

class CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string name) : Control(form, std::move(name), Kind::CheckBox) {}
  Property<std::string> Caption{*this};
  Property<int> Value{*this, 0};  ///< 0 or 1
  void toggleFromUser() {
    if (!Enabled || !Visible) return;
    Value = Value ? 0 : 1;
    Click();
  }
};

/// A drop-down list, also the drive list and the image combo.
class ComboBox : public Control {
 public:
  ComboBox(Form& form, std::string name) : Control(form, std::move(name), Kind::ComboBox) {}
  struct Item {
    std::string text;
    std::string icon;  ///< icon of the program's family, by name; empty: none
    bool operator==(const Item&) const = default;
  };
  Property<std::vector<Item>> Items{*this};
  Property<int> ListIndex{*this, -1};  ///< -1: nothing chosen
  Property<std::string> Text{*this};   ///< of the edit field, or of the chosen item
  Property<bool> Editable{*this, false};
  Event<> Change;  ///< another item was chosen or the edit field changed

  void AddItem(std::string text, std::string icon = {});
  void Clear();
  /// Chooses without firing.
  void choose(int index);
  /// Chooses as the user does: fires Change when another item is chosen, then Click.
  void chooseFromUser(int index);
  /// The user typed into the edit field.
  void typeFromUser(std::string text);
};

class ProgressBar : public Control {
 public:
  ProgressBar(Form& form, std::string name) : Control(form, std::move(name), Kind::ProgressBar) {}
  Property<double> Min{*this, 0}, Max{*this, 100}, Value{*this, 0};
};

class Slider : public Control {
 public:
  Slider(Form& form, std::string name) : Control(form, std::move(name), Kind::Slider) {}
  Property<int> Min{*this, 0}, Max{*this, 10}, Value{*this, 0};
  Property<int> SmallChange{*this, 1}, LargeChange{*this, 5};  ///< a step by arrow keys, by page keys
  Event<> Change;
  void slideFromUser(int value);
};

/// The status bar of a window, with panels numbered from 1.
class StatusBar : public Control {
 public:
  StatusBar(Form& form, std::string name, int panels);
  const std::string& panel(int number) const { return panels_.at(static_cast<std::size_t>(number - 1)); }
  void setPanel(int number, std::string text);
  int panelCount() const { return static_cast<int>(panels_.size()); }

 private:
  std::vector<std::string> panels_;
};

class PictureBox : public Control {
 public:
  PictureBox(Form& form, std::string name) : Control(form, std::move(name), Kind::PictureBox) {}
  Property<std::string> Picture{*this};      ///< program path of the image, read beside the window; empty: none
  Property<std::string> Fallback{*this};     ///< drawn where Picture names no picture; program path; empty: nothing
  Property<std::string> PictureData{*this};  ///< bytes of an image file, drawn instead of Picture; empty: none
  Property<std::string> IconName{*this};     ///< a desktop theme icon instead of a picture; empty: none
  Property<bool> Stretch{*this, false};      ///< fitted to the area, in its own proportions
};

/// Ticks on the loop's thread while enabled and its interval is above 0. It is not enabled at first: one that nobody
/// needs must not wake the machine.
class Timer : public Control {
 public:
  Timer(Form& form, std::string name) : Control(form, std::move(name), Kind::Timer) { Enabled = false; }
  Property<int> Interval{*this, 0};  ///< milliseconds
  Event<> Tick;
};

/// A month of days to pick one from.
class MonthView : public Control {
 public:
  MonthView(Form& form, std::string name) : Control(form, std::move(name), Kind::MonthView) {}
  struct Day {
    int year = 2000, month = 1, day = 1;
    bool operator==(const Day&) const = default;
  };
  Property<Day> Value{*this};
  Event<> DateClick;
  void pickFromUser(Day day) {
    Value.takeFromUser(day);
    DateClick();
  }
};

/// Named numbers as a pie or as bars. Points are numbered from 0.
class Chart : public Control {
 public:
  Chart(Form& form, std::string name) : Control(form, std::move(name), Kind::Chart) {}
  enum class Type { Pie, Bar };
  struct Value {
    std::string label;
    double number = 0;      ///< drawn as nothing when it is below 0
    Color color = NoColor;  ///< NoColor: one of the chart's own, in turn
    bool operator==(const Value&) const = default;
  };
  Property<std::vector<Value>> Values{*this};
  Property<Type> ChartType{*this, Type::Pie};
  Property<std::string> Title{*this};
  Property<int> SelectedPoint{*this, -1};  ///< drawn apart from the others; -1: none
  Event<int> PointSelected;
  /// The user chooses a point.
  void selectFromUser(int point) {
    if (point < 0 || point >= static_cast<int>(Values->size())) return;
    SelectedPoint = point;
    PointSelected(point);
  }
};

}  // namespace varnholt::controls

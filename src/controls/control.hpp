#pragma once

#include "controls/input.hpp"
#include "controls/property.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::controls {

class Form;

/// What a control is, for the adapter that draws it.
enum class Kind {
  Label,
  TextBox,
  Button,
  CheckBox,
  ComboBox,
  ListView,
  TreeView,
  StatusBar,
  ProgressBar,
  Slider,
  MonthView,
  RichTextBox,
  PictureBox,
  Chart,
  Timer,
  MenuItem,
};

/// Files that were dropped on a control.
struct DropEvent {
  std::vector<std::string> files;  ///< program paths; what is no file is not dropped at all
  Modifiers modifiers;
  const class Control* source = nullptr;  ///< the list of ours in which the drag began; null: another program
  bool accepted = false;                  ///< set by a handler that takes the files
  std::string folder{};                   ///< of the row that they were dropped onto; empty: onto no such row
};

/// Colours are blue-green-red numbers (0xBBGGRR), as they are stored.
using Color = std::uint32_t;
/// Draws with whatever colour the theme gives.
inline constexpr Color NoColor = 0xFFFFFFFF;

/// A control of a form. It is a member of its form and leaves it when it ends; its name is unique in the form.
class Control : public Changing {
 public:
  Control(Form& form, std::string name, Kind kind);
  ~Control() override;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }
  Kind kind() const { return kind_; }
  Form& form() const { return form_; }

  Property<bool> Visible{*this, true};
  Property<bool> Enabled{*this, true};
  Property<std::string> ToolTipText{*this};
  /// What assistive technology calls the control; empty: the drawing side finds a readable name of its own.
  Property<std::string> AccessibleName{*this};
  Property<int> MousePointer{*this, pointer::Default};
  Property<Color> BackColor{*this, NoColor};
  Property<Color> ForeColor{*this, NoColor};
  /// Drawn with the accent of the active one of several like it.
  Property<bool> Accented{*this, false};

  Event<> Click;
  Event<> DblClick;
  Event<> GotFocus;
  Event<> LostFocus;
  Event<KeyEvent&> KeyDown;
  Event<KeyEvent&> KeyUp;
  Event<const MouseEvent&> MouseDown;
  Event<const MouseEvent&> MouseUp;
  Event<> MouseMove;
  /// Files are dropped on the control. Without a handler it takes no drops.
  Event<DropEvent&> OLEDragDrop;

  /// Gives the control the keyboard: its form's focused control hears LostFocus, this one GotFocus. Nothing happens
  /// to a control that is disabled, invisible or focused already.
  void SetFocus();
  bool hasFocus() const;

  void markChanged() override;
  /// Reads and clears the mark.
  bool takeChanged() { return std::exchange(changed_, false); }

 private:
  Form& form_;
  std::string name_;
  Kind kind_;
  bool changed_ = true;
};

}  // namespace varnholt::controls

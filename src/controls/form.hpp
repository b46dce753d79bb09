#pragma once

#include "controls/control.hpp"

#include <string>
#include <vector>

namespace varnholt::controls {

class MessageLoop;

/// The window states by the numbers of the original platform.
enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

/// A length in twips: 1/1440 inch, 15 a pixel. The unit of stored positions and column widths.
using Twips = double;
inline constexpr Twips TwipsPerPixel = 15;

/// A window. It is made without a widget; the drawing side makes one when it is first shown.
class Form : public Changing {
 public:
  Form(MessageLoop& loop, std::string name);
  ~Form() override;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& name() const { return name_; }
  MessageLoop& loop() const { return loop_; }

  Property<std::string> Caption{*this};
  Property<bool> Visible{*this, false};
  Property<controls::WindowState> WindowState{*this, controls::WindowState::Normal};
  /// Where the window stands. 0 width: the designed size, and the designed place without Left and Top.
  Property<Twips> Left{*this, 0}, Top{*this, 0}, Width{*this, 0}, Height{*this, 0};
  /// Background picture, program path; empty: the theme's surface.
  Property<std::string> Picture{*this};

  Event<> Load;      ///< before the first show after creation or unload
  Event<> Activate;  ///< the window has become the active one
  Event<> Resize;
  Event<bool&> QueryUnload;  ///< before unloading; set the argument to keep the window
  Event<> Unload;
  Event<> Click;             ///< beside all controls that take clicks themselves: on its ground and its texts
  Event<KeyEvent&> KeyDown;  ///< seen before the focused control (key preview)

  /// Shows and goes on.
  void Show();
  /// Shows and returns when the form is hidden or unloaded.
  void ShowModal();
  /// Shown again, the form does not go on from the button that was pressed last.
  void Hide();
  /// Asks QueryUnload, hides, fires Unload. The next show loads again.
  void UnloadForm();
  /// What the window's close box does.
  void closeFromUser() { UnloadForm(); }
  bool isLoaded() const { return loaded_; }

  /// The button that Enter and Esc stand for, by control name; empty: none.
  std::string defaultButton, cancelButton;

  const std::vector<Control*>& controls() const { return controls_; }
  /// Null when the form has no control of that name.
  Control* control(std::string_view name) const;
  Control* focused() const { return focused_; }
  /// The drawing side's report that the widget of `control` has taken the keyboard (null: none of ours).
  void focusMoved(Control* control);

  void markChanged() override;
  bool takeChanged() { return std::exchange(changed_, false); }
  /// Controls changed since the last call, each once.
  std::vector<Control*> takeChangedControls() { return std::exchange(changedControls_, {}); }

 private:
  friend class Control;
  void add(Control& control) { controls_.push_back(&control); }
  void remove(Control& control);
  void noteChanged(Control& control);
  void ensureLoaded();

  MessageLoop& loop_;
  std::string name_;
  std::vector<Control*> controls_;
  std::vector<Control*> changedControls_;
  Control* focused_ = nullptr;
  bool loaded_ = false;
  bool changed_ = true;
};

}  // namespace varnholt::controls

#pragma once

namespace varnholt::controls {

/// Which of the modifier keys are down.
struct Modifiers {
  bool shift = false, ctrl = false, alt = false;
};

/// Virtual key codes (winuser.h, VK_*), the numbers in which handlers speak. Letters and digits are their ASCII codes.
/// Plus, minus and star have one code wherever they stand on the keyboard.
namespace key {
inline constexpr int Back = 8, Tab = 9, Enter = 13, Shift = 16, Ctrl = 17, Alt = 18, Esc = 27, Space = 32;
inline constexpr int PageUp = 33, PageDown = 34, End = 35, Home = 36, Left = 37, Up = 38, Right = 39, Down = 40;
inline constexpr int Insert = 45, Delete = 46, Menu = 93, Multiply = 106, Add = 107, Subtract = 109;
inline constexpr int F1 = 112, F3 = 114, F5 = 116, F6 = 117, F7 = 118, F8 = 119, F10 = 121;
}  // namespace key

struct KeyEvent {
  int code = 0;
  Modifiers modifiers;
  bool handled = false;  ///< set by a handler: the control's own treatment of the key is passed over
};

enum class MouseButton { Left = 1, Right = 2, Middle = 4 };

struct MouseEvent {
  MouseButton button = MouseButton::Left;
  Modifiers modifiers;
};

/// `Screen.MousePointer` and alike, by the numbers of the original platform.
namespace pointer {
inline constexpr int Default = 0, Hourglass = 11;
}

}  // namespace varnholt::controls

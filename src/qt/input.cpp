#include "qt/input.hpp"

#include <utility>

namespace varnholt::qt {
namespace {

struct KeyCode {
  int qt;
  int code;
};

// Virtual key codes: winuser.h, VK_*.
constexpr KeyCode Codes[] = {
    {Qt::Key_Backspace, controls::key::Back},
    {Qt::Key_Tab, controls::key::Tab},
    {Qt::Key_Backtab, controls::key::Tab},
    {Qt::Key_Return, controls::key::Enter},
    {Qt::Key_Enter, controls::key::Enter},
    {Qt::Key_Shift, controls::key::Shift},
    {Qt::Key_Control, controls::key::Ctrl},
    {Qt::Key_Alt, controls::key::Alt},
    {Qt::Key_Escape, controls::key::Esc},
    {Qt::Key_Space, controls::key::Space},
    {Qt::Key_PageUp, controls::key::PageUp},
    {Qt::Key_PageDown, controls::key::PageDown},
    {Qt::Key_End, controls::key::End},
    {Qt::Key_Home, controls::key::Home},
    {Qt::Key_Left, controls::key::Left},
    {Qt::Key_Up, controls::key::Up},
    {Qt::Key_Right, controls::key::Right},
    {Qt::Key_Down, controls::key::Down},
    {Qt::Key_Insert, controls::key::Insert},
    {Qt::Key_Delete, controls::key::Delete},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Menu, controls::key::Menu},
    {Qt::Key_Asterisk, controls::key::Multiply},
    {Qt::Key_Plus, controls::key::Add},
    {Qt::Key_Minus, controls::key::Subtract},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
};

constexpr int NumpadDigit0 = 96, NumpadPoint = 110, NumpadDivide = 111;

int numpadCode(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return NumpadDigit0 + key - Qt::Key_0;
  switch (key) {
  case Qt::Key_Period:
  case Qt::Key_Comma:
    return NumpadPoint;
  case Qt::Key_Slash:
    return NumpadDivide;
  }
  return 0;
}

int codeOf(const QKeyEvent& event) {
  const int key = event.key();
  if (event.modifiers() & Qt::KeypadModifier)
    if (const int code = numpadCode(key)) return code;
  for (const auto& [qt, code] : Codes)
    if (qt == key) return code;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return controls::key::F1 + key - Qt::Key_F1;
  const bool letterOrDigit = (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
  return letterOrDigit ? key : 0;
}

}  // namespace

controls::Modifiers modifiersOf(Qt::KeyboardModifiers modifiers) {
  return {modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::ControlModifier),
          modifiers.testFlag(Qt::AltModifier)};
}

controls::KeyEvent keyOf(const QKeyEvent& event) {
  controls::KeyEvent key;
  key.code = codeOf(event);
  key.modifiers = modifiersOf(event.modifiers());
  return key;
}

controls::MouseEvent mouseOf(const QMouseEvent& event) {
  controls::MouseEvent mouse;
  if (event.button() == Qt::RightButton) mouse.button = controls::MouseButton::Right;
  if (event.button() == Qt::MiddleButton) mouse.button = controls::MouseButton::Middle;
  mouse.modifiers = modifiersOf(event.modifiers());
  return mouse;
}

Qt::CursorShape cursorOf(int pointer) {
  constexpr std::pair<int, Qt::CursorShape> Shapes[] = {
      {2, Qt::CrossCursor},   {3, Qt::IBeamCursor},      {5, Qt::SizeAllCursor}, {6, Qt::SizeBDiagCursor},
      {7, Qt::SizeVerCursor}, {8, Qt::SizeFDiagCursor},  {9, Qt::SizeHorCursor}, {10, Qt::UpArrowCursor},
      {11, Qt::WaitCursor},   {12, Qt::ForbiddenCursor}, {13, Qt::BusyCursor},   {14, Qt::WhatsThisCursor},
  };
  for (const auto& [number, shape] : Shapes)
    if (number == pointer) return shape;
  return Qt::ArrowCursor;
}

}  // namespace varnholt::qt

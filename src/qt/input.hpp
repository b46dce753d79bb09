#pragma once

#include "controls/input.hpp"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>

/// Input of the toolkit in the words of the controls.
namespace varnholt::qt {

controls::Modifiers modifiersOf(Qt::KeyboardModifiers modifiers);
/// Virtual key code and modifiers. Code 0: a key that no handler knows a number for.
controls::KeyEvent keyOf(const QKeyEvent& event);
controls::MouseEvent mouseOf(const QMouseEvent& event);

/// The cursor of a pointer number of the original platform; numbers without one give the arrow.
Qt::CursorShape cursorOf(int pointer);

}  // namespace varnholt::qt

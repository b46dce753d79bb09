#pragma once

#include "core/program.hpp"
#include "panels/form1.hpp"

#include <functional>
#include <string>

namespace varnholt::panels {

/// The colours by which rows tell which function will take them, as blue-green-red numbers.
namespace mark_color {
inline constexpr controls::Color Copy = 0x00FF00, Move = 0x00FFFF, Delete = 0x0000FF, Rename = 0xFFFF00;
inline constexpr controls::Color Selection = 0x0080FF;  ///< selected by a filter
inline constexpr controls::Color Trouble = 0x7A8CF2;    ///< what cannot be done, or is gone
}  // namespace mark_color

/// Where buttons, menu entries, keys and drops lead to their handlers, and what is remembered of the last one.
class Dispatcher {
 public:
  Dispatcher(Form1& form, core::Program& program) : form_(form), program_(program) {}

  /// Runs the command of that handler, as its button, menu entry and key do. While one works, all others are refused
  /// before they touch anything.
  void perform(const std::string& handler);
  /// Runs the command whose number was remembered last.
  void runLast();

  /// Works out source and target of `CurrentItem` by the active panel.
  void Fileident();
  void resetval();
  /// What every command on a panel's items begins with. False: refused, also silently while the Virtual DeskTop has the
  /// keyboard.
  bool panelPreCheck();
  /// The common closing step of such a command.
  void commandDone();
  /// Marks the selected rows of the active panel in the colour of the function that will take them; `colorreset1` and
  /// `colorreset2` undo it.
  void copycolor() { markSelected(mark_color::Copy); }
  void movecolor() { markSelected(mark_color::Move); }
  void deletecolor() { markSelected(mark_color::Delete); }
  void RenameColor() { markSelected(mark_color::Rename); }

  /// True from panelPreCheck to commandDone, and while a loop gives the message loop a turn.
  bool busy = false;

  /// A command on a panel's items passed its pre-checks; a command has done its closing step.
  controls::Signal<> commandBegins, commandEnded;

  void LockOnLast_Click();
  void PreFolder_Click() { chooseMemory(true); }
  void RLC_Click() { chooseMemory(false); }

 private:
  /// Rows of another colour than the default keep it.
  void markSelected(controls::Color color);
  void chooseMemory(bool preFolder);
  void saveLastCommand(int number);

  Form1& form_;
  core::Program& program_;
};

}  // namespace varnholt::panels

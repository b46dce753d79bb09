#pragma once

#include "core/program.hpp"
#include "panels/form1.hpp"

#include <functional>
#include <string>

namespace varnholt::panels {

/// Where buttons, menu entries, keys and drops lead to their handlers, and what is remembered of the last one.
class Dispatcher {
 public:
  Dispatcher(Form1& form, core::Program& program) : form_(form), program_(program) {}

  /// Hangs a handler on its row of the command table. While a command works, all others are refused before they touch
  /// anything.
  void bind(const std::string& handler, std::function<void()> run);
  /// Runs the command of that handler as its button would.
  void perform(const std::string& handler);
  /// Runs the command whose number was remembered last.
  void runLast();

  /// Works out source and target of `CurrentItem` by the active panel.
  void Fileident();
  void resetval();
  /// What every command on a panel's items begins with. False: refused.
  bool panelPreCheck();
  /// The common closing step of such a command.
  void commandDone();
  /// Gives the rows that carry `Selected` the function's colour.
  void colorSelected(const std::string& color);

  /// True from panelPreCheck to commandDone, and while a loop gives the message loop a turn.
  bool busy = false;
  bool VDTActive = false;

  std::function<void()> resetPictureView;
  std::function<void()> UpdateClock;

  void LockOnLast_Click();
  void PreFolder_Click() { chooseMemory(true); }
  void RLC_Click() { chooseMemory(false); }

 private:
  void chooseMemory(bool preFolder);
  void saveLastCommand(int number);

  Form1& form_;
  core::Program& program_;
};

}  // namespace varnholt::panels

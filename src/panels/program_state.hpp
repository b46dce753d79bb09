#pragma once

#include "core/program.hpp"
#include "panels/form1.hpp"
#include "panels/histories.hpp"
#include "panels/tree_window.hpp"

#include <functional>
#include <string>
#include <vector>

namespace varnholt::panels {

/// What is kept from one run to the next, and the ways out of the program.
class ProgramState {
 public:
  ProgramState(Form1& form, Form9& Form9, core::Program& program, Histories& histories)
      : form_(form), Form9_(Form9), program_(program), histories_(histories) {}

  /// Collects the state from the menus and writes it, the histories and the files of the other rooms.
  void StoreProgramState();

  void Program_pos_Click();
  /// Both windows' positions from the store; a bad or missing number leaves its value alone.
  void RestorePositions();
  void restoreTreeWindow();
  /// As the main window was when its position was stored: maximized or normal.
  controls::WindowState storedWindowState() const;
  void SavColumnH_Click();
  void ResetCol_Click();
  /// Widths from the store: all ten, or none.
  void restoreColumns();

  void exit_program_Click();
  /// The user leaves: he is told what could not be stored.
  void Command10_Click();
  void Form_QueryUnload();
  /// The system ends the program, and nobody may be there to read anything.
  void leave();
  void ReturnDefault_Click();
  void Peruninstall_Click();

  /// Gives the focus back to the active panel.
  std::function<void()> FocusView;
  /// Writes the files of the rooms.
  std::function<void()> store;
  /// How the writing of a file at the program's end went: the user is told of what failed.
  void noteStored(const platform::Result<void>& stored);
  /// What rooms could not write of what the user would miss, in words for him.
  std::vector<std::string> notStored;

 private:
  void collectFromMenus();
  platform::Result<void> storePositions();
  void tellNotStored();
  void tellKept(const std::vector<std::string>& kept);
  void close();
  void end();

  Form1& form_;
  Form9& Form9_;
  core::Program& program_;
  Histories& histories_;
  std::vector<std::string> filesNotStored_;  ///< name:  reason
  bool ended_ = false;
  bool positionsReset_ = false;  ///< saving them at this exit would undo it
};

}  // namespace varnholt::panels

#pragma once

#include "fileops/name_dialog.hpp"
#include "panels/desk.hpp"

namespace varnholt::fileops {

/// Edits the file in focus, and makes new files.
class EditFile {
 public:
  EditFile(panels::Desk& desk, Form32& dialog) : desk_(desk), dialog_(dialog) {}

  /// Opens the file in focus in the system's editor.
  void Command2_Click();
  /// Makes an empty file in the active panel and opens it in the editor.
  void Command13_Click();

 private:
  void makeFile(panels::Panel& panel, const std::string& name);

  panels::Desk& desk_;
  Form32& dialog_;
};

}  // namespace varnholt::fileops

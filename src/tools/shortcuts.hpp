#pragma once

#include "panels/desk.hpp"

#include <string>

namespace varnholt::tools {

/// Small commands that hand over to the system's own tools, each of which is tested for before it is started.
class Shortcuts {
 public:
  explicit Shortcuts(panels::Desk& desk) : desk_(desk) {}

  /// A command prompt in the active panel's folder.
  void Dos_Click();
  void Readme_Click();
  void IPconfig_Click();
  void IPconfignew_Click();
  void winexpl_Click();
  void winexplBoth_Click();
  void regedit_Click();
  void OutlookExpress_Click();
  void InternetB_Click();
  void attackdrive_Click() { driveDialog("map"); }
  void Detachdrive_Click() { driveDialog("disconnect"); }
  void WinShutDown_Click();

 private:
  void prompt(const std::string& command, const char* missing);
  /// False: it is missing, and the user is told.
  bool explorer(const std::string& argument, const char* missing = "Explorer.exe Not Found !");
  void driveDialog(const char* which);

  panels::Desk& desk_;
};

}  // namespace varnholt::tools

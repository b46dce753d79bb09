#pragma once

#include "panels/desk.hpp"

#include <functional>

namespace varnholt::panels {

/// What the main window does when it is set up and when it first becomes active, in its order.
class MainWindowStart {
 public:
  explicit MainWindowStart(Desk& desk) : d_(desk) {}

  void Form_Load();
  void Form_Activate();
  /// Settings become menus (`ProgInit`).
  void ApplyInitState();
  void LoadHistoryFiles();

  /// The files of the rooms are read.
  std::function<void()> load;

 private:
  void startFolders();
  /// The drive, or the first there is, which is told.
  std::string existingDrive(const std::string& drive);
  void setColumns();
  void applyCommands();
  void showFolderHistory();

  Desk& d_;
  bool activated_ = false;
  bool tipShown_ = false;
};

}  // namespace varnholt::panels

#pragma once

#include "core/program.hpp"
#include "core/start_windows.hpp"
#include "panels/active_panel.hpp"
#include "panels/drive_lists.hpp"
#include "panels/form1.hpp"
#include "panels/histories.hpp"
#include "panels/list_looks.hpp"
#include "panels/listing.hpp"
#include "panels/program_state.hpp"
#include "panels/view_choices.hpp"

#include <functional>

namespace varnholt::panels {

/// What the main window does when it is set up and when it first becomes active, in its order.
class MainWindowStart {
 public:
  struct Parts {
    Form1& form;
    core::Program& program;
    Listing& listing;
    ActivePanel& active;
    ListLooks& looks;
    ViewChoices& choices;
    ProgramState& state;
    Histories& histories;
    DriveLists& drives;
    core::frmTip& tip;
  };
  explicit MainWindowStart(Parts parts) : p_(parts) {}

  void Form_Load();
  void Form_Activate();
  /// Settings become menus (`ProgInit`).
  void ApplyInitState();
  void LoadHistoryFiles();

  /// Lists the panel's folder as the place it has just entered.
  std::function<void(Panel&)> enter;

 private:
  void startFolders();
  /// The drive, or the first there is, which is told.
  std::string existingDrive(const std::string& drive);
  void setColumns();
  void applyCommands();
  void showFolderHistory();

  Parts p_;
  bool activated_ = false;
  bool tipShown_ = false;
};

}  // namespace varnholt::panels

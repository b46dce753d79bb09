#pragma once

#include "appearance/skins.hpp"
#include "core/program.hpp"
#include "core/start_windows.hpp"
#include "fileops/fileops.hpp"
#include "filters/filters.hpp"
#include "panels/active_panel.hpp"
#include "panels/browse_dialog.hpp"
#include "panels/dispatcher.hpp"
#include "panels/drive_lists.hpp"
#include "panels/drops.hpp"
#include "panels/file_opener.hpp"
#include "panels/form1.hpp"
#include "panels/histories.hpp"
#include "panels/icons.hpp"
#include "panels/list_looks.hpp"
#include "panels/listing.hpp"
#include "panels/main_window_start.hpp"
#include "panels/navigation.hpp"
#include "panels/panel_keys.hpp"
#include "panels/panel_shortcuts.hpp"
#include "panels/program_state.hpp"
#include "panels/selection.hpp"
#include "panels/tree_window.hpp"
#include "panels/view_choices.hpp"
#include "places/presets.hpp"
#include "rename/rename.hpp"
#include "tools/about.hpp"
#include "tools/system_shortcuts.hpp"

namespace varnholt::app {

/// The whole program: builds every object, ties commands and events to their handlers, and starts it. Everything is a
/// member, in the order in which one builds on the other, so that a test can reach what it looks at.
class App {
 public:
  App(controls::MessageLoop& loop, platform::Platform& platform);

  /// Brings the program up: screen, settings, environment, splash, skin, main window. False: it cannot go on, the user
  /// was told, and nothing is shown.
  bool Main();
  /// Shows folders in the panels, the first left, the second right: paths of the system or of the program; a file
  /// stands for its folder. What cannot be shown is told.
  void openFolders(const std::vector<std::string>& folders);

  panels::Form1 Form1;
  panels::Form9 Form9;
  core::MessageDialogs dialogs;
  core::Program program;
  core::frmSplash frmSplash;
  core::frmTip frmTip;
  panels::Histories histories;
  panels::Listing listing;
  panels::ActivePanel activePanel;
  panels::ListLooks looks;
  panels::ViewChoices choices;
  panels::ProgramState state;
  panels::DriveLists drives;
  panels::Navigation navigation;
  panels::Selection selection;
  panels::FileOpener opener;
  panels::Icons icons;
  panels::Dispatcher dispatcher;
  panels::PanelKeys keys;
  panels::Drops drops;
  panels::TreeWindow trees;
  panels::Form35 Form35;
  fileops::FileOps fileops;
  filters::Filters filters;
  places::Presets presets;
  rename::Rename rename;
  tools::form8 form8;
  tools::SystemShortcuts shortcuts;
  appearance::NewSkin NewSkin;
  panels::MainWindowStart start;

 private:
  void bindCommands();
  void bindPanel(panels::Panel& panel);
  /// The keyboard has come to the panel's list.
  void activated(panels::Panel& panel);
  void bindMainWindow();
  void bindButtonDrops();
  void bindHooks();
  void drawButtons();
  void tellStartNotices();
};

}  // namespace varnholt::app

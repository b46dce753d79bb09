#pragma once

#include "appearance/command_tree.hpp"
#include "appearance/picture_view.hpp"
#include "appearance/skins.hpp"
#include "basket/basket.hpp"
#include "cleanup/cleanup.hpp"
#include "compare/compare.hpp"
#include "core/program.hpp"
#include "core/start_windows.hpp"
#include "fileops/fileops.hpp"
#include "filters/filters.hpp"
#include "panels/desk.hpp"
#include "panels/drops.hpp"
#include "panels/icons.hpp"
#include "panels/main_window_start.hpp"
#include "panels/panel_commands.hpp"
#include "panels/panel_keys.hpp"
#include "panels/panel_shortcuts.hpp"
#include "places/notes.hpp"
#include "places/opened_items.hpp"
#include "places/presets.hpp"
#include "places/saved_places.hpp"
#include "properties/properties.hpp"
#include "rename/rename.hpp"
#include "search/search.hpp"
#include "tools/tools.hpp"
#include "vdt/vdt.hpp"
#include "zip/zip.hpp"

#include <array>

namespace varnholt::app {

/// The whole program: builds the panels' objects and the desk of them, the rooms that work at it, and starts it. All
/// are members, in the order in which one builds on the other, so that a test can reach what it looks at. What a room
/// brings is asked of the room.
class App {
 public:
  App(controls::MessageLoop& loop, platform::Platform& platform);
  ~App();

  /// Brings the program up: screen, settings, environment, splash, skin, main window. False: it cannot go on, the user
  /// was told, and nothing is shown.
  bool Main();
  /// The dialogs of the rooms and those that all share.
  std::vector<controls::Form*> allDialogs();
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
  panels::MostUsed mostUsed;
  panels::FileOpener opener;
  panels::Icons icons;
  panels::Dispatcher dispatcher;
  panels::TreeWindow trees;
  panels::Form35 Form35;
  panels::Desk desk;
  panels::PanelKeys keys;
  panels::Drops drops;
  panels::MainWindowStart start;

  panels::PanelCommands panelCommands;
  appearance::NewSkin NewSkin;
  appearance::PictureView pictureView;
  appearance::CommandTree commandTree;
  tools::Tools tools;
  fileops::FileOps fileops;
  basket::Basket basket;
  rename::Rename rename;
  properties::Properties properties;
  filters::Filters filters;
  places::Presets presets;
  places::SavedPlaces savedPlaces;
  places::OpenedItems openedItems;
  places::Notes notes;
  vdt::VDT vdt;
  search::Search search;
  compare::Compare compare;
  cleanup::CleanUp cleanup;
  zip::Zip zip;

 private:
  /// In the order of their entries in the menus.
  std::array<panels::Room*, 19> rooms() {
    return {&NewSkin, &panelCommands, &tools,   &pictureView, &commandTree, &fileops,     &basket,
            &rename,  &properties,    &filters, &presets,     &savedPlaces, &openedItems, &notes,
            &vdt,     &search,        &compare, &cleanup,     &zip};
  }
  void addCommands();
  void drawButtons();
  void bindPanel(panels::Panel& panel);
  void bindMainWindow();
  void bindButtonDrops();
  void bindHooks();
  void bindHelp();
  void dress();
  void tellStartNotices();
};

}  // namespace varnholt::app

#pragma once

#include "core/program.hpp"
#include "core/start_windows.hpp"
#include "panels/active_panel.hpp"
#include "panels/browse_dialog.hpp"
#include "panels/dispatcher.hpp"
#include "panels/drive_lists.hpp"
#include "panels/file_opener.hpp"
#include "panels/form1.hpp"
#include "panels/histories.hpp"
#include "panels/list_looks.hpp"
#include "panels/listing.hpp"
#include "panels/most_used.hpp"
#include "panels/navigation.hpp"
#include "panels/program_state.hpp"
#include "panels/selection.hpp"
#include "panels/tree_window.hpp"
#include "panels/view_choices.hpp"

namespace varnholt::panels {

/// What a subsystem works with: the program, the main window, and all that the panels can do. It lives as long as they.
struct Desk {
  core::Program& program;
  Form1& form;
  Histories& histories;
  Listing& listing;
  ActivePanel& active;
  ListLooks& looks;
  ViewChoices& choices;
  ProgramState& state;
  DriveLists& drives;
  Navigation& navigation;
  Selection& selection;
  MostUsed& mostUsed;
  FileOpener& opener;
  Dispatcher& dispatcher;
  TreeWindow& trees;
  Form35& browser;
  core::frmTip& tip;

  platform::FileSystem& files() const { return program.files(); }
  int& pointer() const { return program.loop.screen().MousePointer; }
};

}  // namespace varnholt::panels

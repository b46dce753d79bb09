#pragma once

#include "core/program.hpp"
#include "panels/active_panel.hpp"
#include "panels/drive_lists.hpp"
#include "panels/form1.hpp"
#include "panels/histories.hpp"
#include "panels/listing.hpp"

#include <functional>
#include <string>

namespace varnholt::panels {

/// Moves the panels from folder to folder. A panel never stays on a folder that does not exist.
class Navigation {
 public:
  Navigation(Form1& form, core::Program& program, Listing& listing, ActivePanel& active, Histories& histories,
             DriveLists& drives)
      : form_(form), program_(program), listing_(listing), active_(active), histories_(histories), drives_(drives) {
    form_.events.activated.listen([this](Panel&, bool) { showPlace(); });
  }

  // --- The stacks of places --------------------------------------------------------------------------------------
  /// A folder that is the newest entry already is none to go back to.
  void fstack_push(Panel& panel) {
    if (panel.backStack.newest() != panel.path()) panel.backStack.push(panel.path());
  }
  /// Lists the panel's folder as the place just entered; its entry stays on the back stack.
  void enter(Panel& panel);
  /// One step back: a newest entry that is the panel's own folder goes first; a folder that is gone is dropped and the
  /// panel stays.
  void fstack_pop(Panel& panel);
  void pushlok(Panel& panel);
  /// Takes the newest forward place as the panel's folder; false when there is none that still exists.
  bool poplok(Panel& panel);
  void Browseback(Panel& panel);
  void Browseforward(Panel& panel);
  /// "Return to Parent Folder With History": by the trail of folders entered, then selects the row of the folder left.
  void Prevfolder(Panel& panel);
  /// "Return to Parent Folder Without History".
  void parentFolder(Panel& panel);

  // --- Going somewhere -------------------------------------------------------------------------------------------
  /// The active panel goes to a folder; a path of a file goes to its folder and selects it. False: there is no such
  /// folder, and the panel stays.
  bool GoToDirection(const std::string& target);
  bool goTo(Panel& panel, const std::string& folder);
  /// To a folder that a stored text names, in whatever letter case. False: it is not there, and the panel stays.
  bool goToStored(Panel& panel, const std::string& stored);
  /// Shows a folder for a while: no history hears of it. False: there is no such folder, and the panel stays.
  bool visit(Panel& panel, const std::string& folder);
  /// Both panels go to folders that are there; title and history box are the active one's.
  void goToPair(const std::string& left, const std::string& right);
  /// A panel whose folder is gone goes to the nearest one above that is there, or home.
  void leaveVanished();
  /// Into the folder of a row.
  void enterFolder(Panel& panel, controls::ListItem item);
  void rootFolder(Panel& panel);
  void rootreset_Click();
  void ResetHomeDrive_Click();
  void ImageCombo1_Click();
  /// Both drive lists show the panels' drives.
  void ViewDriveSelection() { drives_.ViewDriveSelection(); }
  /// `Drive1_Change`, `Drive2_Change`: another drive was chosen in the panel's drive list.
  void DriveChange(Panel& panel);

  // --- Stored places and history ---------------------------------------------------------------------------------
  void store_Click();
  /// The active panel goes to the stored folder.
  void memfolder();
  void viewlastexit_Click() { memfolder(); }
  /// Both panels go to the folders of the last exit.
  void Presetfolder();
  void Folderhis_store(const Panel& panel);
  void savefolder_his_Click();
  void ClearHis_Click();

  /// The window's title and the history box name the active panel's folder.
  void showPlace();

  /// Selects the row alone, and gives it the focus.
  void selectRow(Panel& panel, controls::ListItem item);

  /// The click routine of the active panel.
  std::function<void()> ClickPane;

 private:
  void list(Panel& panel);
  void noteFolder(Panel& panel);
  void selectFolderRow(Panel& panel, const std::string& folder);
  /// The panel goes to a folder above or before its own, and selects the row of the one it has left.
  void moveUp(Panel& panel, const std::string& target);
  void browseButtons(Panel& panel);
  std::string folderForDrive(const std::string& drive) const;
  bool exists(const std::string& folder) const;
  /// The folder that a stored text names, as the disk spells it; empty: it is not there.
  std::string spelled(const std::string& stored) const;

  Form1& form_;
  core::Program& program_;
  Listing& listing_;
  ActivePanel& active_;
  Histories& histories_;
  DriveLists& drives_;
};

}  // namespace varnholt::panels

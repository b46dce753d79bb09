#pragma once

#include "appearance/picture_view.hpp"
#include "panels/desk.hpp"
#include "panels/room.hpp"
#include "vdt/pointer_list.hpp"
#include "vdt/project_dialog.hpp"
#include "vdt/projects.hpp"
#include "vdt/simple_copy.hpp"
#include "vdt/targets.hpp"

#include <string>
#include <utility>
#include <vector>

namespace varnholt::vdt {

/// The Virtual DeskTop: a list of pointers to files and folders, kept in projects. While it has the keyboard
/// (`VDT_Aktive`), commands on what is selected in the panels are switched off.
class VDT : public panels::Room {
 public:
  VDT(panels::Desk& desk, appearance::PictureView& pictures);
  VDT(const VDT&) = delete;
  VDT& operator=(const VDT&) = delete;

  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form44}; }
  void load() override;
  void store() override;

  // --- The list --------------------------------------------------------------------------------------------------
  void ListView3_Click();
  void ListView3_DblClick();
  void ListView3_KeyDown(controls::KeyEvent& event);
  void ListView3_KeyUp(const controls::KeyEvent& event);
  void ListView3_GotFocus();
  void ListView3_LostFocus();
  void ListView3_OLEDragDrop(controls::DropEvent& event);
  void listview3_columnclick(int number);

  // --- Commands --------------------------------------------------------------------------------------------------
  void DelItems_Vd_Click();
  void Clear_Vd_Click();
  /// Shows or hides the list.
  void LocalDesk_Click();
  /// The keyboard goes to the list, which is shown for that, or from there back to the panel.
  void GoToVDT_Click();
  void VDTstartup_Click();
  void CopyVDT_Click();
  void NewPro_Click();
  void OpenPro_Click();
  void DeletePro_Click();

 private:
  panels::Desk& desk_;
  appearance::PictureView& pictures_;

 public:
  PointerList pointers;
  Targets targets;
  Projects projects;
  vdt::Form44 Form44;

 private:
  controls::ListView& list() const { return desk_.form.ListView3; }
  void bind();
  /// The entries of the menus follow the rows.
  void updateMenu();
  void showHeader();
  void showList();
  /// The title names the row in focus.
  void statusLine();
  /// Title, picture and icon follow the row in focus.
  void showItem();
  void showCount();
  void selectAll();
  bool open(const Pointer& pointer);

  bool addFocusedItem();
  bool addFiles(const std::vector<std::string>& files);

  /// Switches what acts on the panels' selection off, or back to what it was.
  void switchCommands(bool vdtIsActive);
  std::vector<controls::Control*> switchedControls() const;

  SimpleCopy copy_;
  std::vector<std::pair<controls::Control*, bool>>
      before_;  ///< whether they were enabled when the list got the keyboard
};

}  // namespace varnholt::vdt

#pragma once

#include "core/program.hpp"
#include "panels/form1.hpp"

#include <functional>
#include <optional>
#include <string>

namespace varnholt::panels {

/// Reads folders into the panels, keeps their order, and brings them up to date after something has changed on the
/// disk. Each routine exists once; the two given names of a side pass their panel on.
class Listing {
 public:
  Listing(Form1& form, core::Program& program) : form_(form), program_(program) {}

  /// Lists the panel's folder into its list. A folder that cannot be read gives an empty list.
  void filedir(Panel& panel);
  void filedir1() { filedir(form_.Panel1); }
  void filedir2() { filedir(form_.Panel2); }
  /// Clears the list and lists again; the selection is lost. In a folder that was listed before the keyboard goes on
  /// from its item or, where that is gone, from what has taken its row.
  void ViewClearItems(Panel& panel);
  void View1ClearItems() { ViewClearItems(form_.Panel1); }
  void View2ClearItems() { ViewClearItems(form_.Panel2); }
  void ViewRenew();
  /// Where both panels are listed in one go and show one folder, it is read once, and they share what was read.
  void bothPanels(const std::function<void()>& list);

  /// After an operation of the active panel whose target was the other one.
  void viewupdate();
  /// Lists both panels, if they show one folder: first the one that is not active, so that the active panel's focus row
  /// survives.
  void UpdateBothViews();
  /// After a change in `folder`: lists the panels that show it.
  void ViewUpdateAll(const std::string& folder);
  /// Lists the active panel again and keeps its current item.
  void viewrefresh();

  /// A click on a column header, numbered from 1.
  void ColumnClick(Panel& panel, int number);
  void ListView1_ColumnClick(int number) { ColumnClick(form_.Panel1, number); }
  void ListView2_ColumnClick(int number) { ColumnClick(form_.Panel2, number); }

  /// Clears the cut look of the active side's rows.
  void resetv1v2();
  /// Both lists get their full height: the command line is hidden.
  void viewHightreset();
  void colorreset(Panel& panel) { panel.list.clearColors(); }
  void colorreset1() { colorreset(form_.Panel1); }
  void colorreset2() { colorreset(form_.Panel2); }
  void ColorReset();
  /// The focus goes to the active panel's list, and its selected item is made visible.
  void FocusView();

  /// Empties the collect buffers; the selection hangs it on.
  std::function<void()> resetcollect;
  /// Makes the test of the View Filter for one listing; empty: all pass.
  std::function<FileTest()> viewFilter;

 private:
  /// The test of which files the panels show, for one listing; empty when they show all.
  /// The test also notes when the chosen view leaves a file out.
  FileTest fileTest(bool& hidesFiles) const;
  RowFormat rowFormat(const Panel& panel) const;
  void keepCurrentItem(Panel& panel);
  platform::Result<platform::ListingPtr> read(const std::string& folder);
  void pbar_beregning(std::size_t counter, std::size_t total);

  Form1& form_;
  core::Program& program_;
  struct Read {
    std::string folder;
    platform::ListingPtr listing;
  };
  std::optional<Read> read_;  ///< while both panels are listed in one go
};

/// The icons by which rows and headers are numbered.
std::map<int, std::string> panelImageList();

/// The six columns of a panel, with the design-time widths.
std::vector<controls::ColumnHeader> panelColumns();

}  // namespace varnholt::panels

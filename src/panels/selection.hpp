#pragma once

#include "core/program.hpp"
#include "panels/active_panel.hpp"
#include "panels/form1.hpp"
#include "panels/listing.hpp"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace varnholt::panels {

/// What is selected in the panels, what is collected from it for commands, and the Recall that brings it back.
class Selection {
 public:
  Selection(Form1& form, core::Program& program, Listing& listing, ActivePanel& active)
      : form_(form), program_(program), listing_(listing), active_(active) {
    form_.events.itemChanged.listen([this](Panel& panel) { showItem(panel); });
    form_.events.activated.listen([this](Panel& panel, bool another) {
      if (another) showItem(panel);
    });
    form_.events.folderChanged.listen([this] { letRowsGo(); });
  }

  // --- Clicks ----------------------------------------------------------------------------------------------------
  void ListView1_Click() { Click(form_.Panel1); }
  void ListView2_Click() { Click(form_.Panel2); }
  void Click(Panel& panel);
  /// Keys or the right button have done what a click does; `builds`: they added to a selection or took from it. A row
  /// that keys only pass is not kept for the Recall, or a walk through a folder would push all else out of it.
  void KeySelect(Panel& panel, bool builds);
  /// The status bar and the commands follow the item in hand of the panel, or that there is none. Nothing while the
  /// other panel is the active one.
  void showItem(Panel& panel);
  /// The click routine of the active panel.
  void ClickPane();
  /// The words of the item's attributes in the status line.
  void fileatrib(Panel& panel, controls::ListItem item);

  // --- Collecting ------------------------------------------------------------------------------------------------
  /// Takes a row among the collected items, and among the names for the Recall while these are kept.
  void collect(Panel& panel, controls::ListItem item);
  /// Number and size of what is selected in the status bar.
  void reportSelected(Panel& panel);
  /// The selection walk of a command: every row that carries `Selected` goes into `filecollect`.
  void ViewClickCopy(Panel& panel);
  void resetcollect() { form_.filecollect.reset(); }
  /// Marks, selection and colours of the active list off; the Recall stays.
  void ResetView();
  void ResetView(Panel& panel);
  /// `resetcollect`, both lists as by ResetView, the file filter's line cleared.
  void ResetAll();
  void nonselect() { NoItemsSelected(" No Items selected. ! "); }
  void NoItemsSelected(const std::string& text) { program_.dialogs.inform(text); }

  // --- Selection commands ----------------------------------------------------------------------------------------
  void selectall_Click();
  void Inversel_Click();
  void Selsize_Click();
  void IncludeFolder_Click();
  void Psi_Click();

  // --- Recall ----------------------------------------------------------------------------------------------------
  void Command16_Click();
  /// Selects again what the last click had selected.
  void Recallprevius_Click();
  void Command27_Click();
  void Recall_Click();
  void Undo_recall_Click() { memundo(); }
  void memundo();
  void ResetRecall_Click();

  /// The active panel goes to the folder; false when it does not exist.
  std::function<bool(Panel&, const std::string&)> goTo;

 private:
  struct Sum {
    std::uint64_t bytes = 0;
    bool exact = true;
  };
  /// Which of the selected rows are kept for the Recall.
  enum class Keeping { All, NewOnes, None };
  /// What clicks and keys have in common: item in hand, marks and collected items follow what is selected.
  void follow(Panel& panel, Keeping keeping);
  void currentItem(Panel& panel, controls::ListItem item);
  /// The selection is no longer the file filter's: its line gives way to that of the view.
  void clearFilterLine();
  void collectSelected(Panel& panel, Keeping keeping);
  static RowSet selectedRows(Panel& panel);
  void letRowsGo();
  /// Selects and marks the rows that a test takes, where none is selected, and collects them.
  void select(Panel& panel, const std::function<bool(controls::ListItem)>& takes);
  void keepForRecall(Panel& panel, controls::ListItem item);
  void tellRecallFull();
  /// What the status bar and the commands make of the item in hand; empty: there is none.
  void chooseItem(Panel& panel, std::optional<controls::ListItem> item);
  void addSize(Panel& panel, controls::ListItem item, Sum& sum);
  Sum sizeOfSelected(Panel& panel);
  void report(std::uint64_t count, const Sum& sum);
  void showCount(std::uint64_t count);
  bool includesFolders() const { return form_.Menu.checked("IncludeFolder"); }
  /// Selects the rows of these names, and collects them.
  void recall(Panel& panel, const std::unordered_set<std::string_view>& names);

  Form1& form_;
  core::Program& program_;
  Listing& listing_;
  ActivePanel& active_;
  // A side each.
  FileCollect lastSet_[2];  ///< what was selected last by other than walking
  bool walked_[2] = {};     ///< keys have walked to the selected row, and it is not kept yet
};

}  // namespace varnholt::panels

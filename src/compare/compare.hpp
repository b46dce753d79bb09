#pragma once

#include "compare/compare_dialog.hpp"
#include "compare/comparison.hpp"
#include "compare/line_compare.hpp"
#include "compare/panel_pair.hpp"
#include "panels/room.hpp"
#include "places/presets.hpp"

#include <vector>

namespace varnholt::compare {

/// Holds the folders of the two panels against each other, and makes them alike.
class Compare : public panels::Room {
 public:
  Compare(panels::Desk& desk, places::Presets& presets);
  Compare(const Compare&) = delete;
  Compare& operator=(const Compare&) = delete;

  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form30, &Form42}; }
  void Com_Sync_Click();
  /// The same on a pair of folders that the user chooses among the presets.
  void Comp_SyncBatch_Click();

 private:
  panels::Desk& desk_;
  places::Presets& presets_;

 public:
  compare::Form30 Form30;
  compare::Form42 Form42;
  Comparison comparison;
  PanelPair panelPair;
};

}  // namespace varnholt::compare

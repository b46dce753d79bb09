#include "compare/compare.hpp"

namespace varnholt::compare {

Compare::Compare(panels::Desk& desk, places::Presets& presets)
    : desk_(desk), presets_(presets), Form30(desk), Form42(desk), comparison(desk, Form30), panelPair(desk) {}

void Compare::Com_Sync_Click() {
  desk_.form.setMode("CompareMode");
  desk_.active.UpdateClock();
  comparison.open();
}

void Compare::Comp_SyncBatch_Click() {
  presets_.Command12_Click();
  Com_Sync_Click();
}

}  // namespace varnholt::compare

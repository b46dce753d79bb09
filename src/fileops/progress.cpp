#include "fileops/progress.hpp"

#include <algorithm>
#include <cmath>

namespace varnholt::fileops {

void pbar_beregning(panels::Form1& form, const Tally& tally) {
  if (tally.SelectedCount == 0 || tally.ItemsDone > tally.SelectedCount) return;
  form.ProgressBar1.Value = static_cast<double>(tally.ItemsDone) / static_cast<double>(tally.SelectedCount) * 100;
}

void PogressCal(const panels::Form1& form, ProgressForm& dialog, const Tally& tally) {
  if (tally.BytesDone <= 0) return;
  controls::ProgressBar& bar = dialog.ProgressBar1;
  bar.Max = tally.BytesDone;
  if (tally.ItemsTotal >= 2) {
    const double share = std::trunc(form.ProgressBar1.Value / form.ProgressBar1.Max * 100);
    dialog.Label5.Caption = "Overall: " + std::to_string(static_cast<int>(share)) + "%";
  }
  // The steps in between would be gone before they are drawn.
  bar.Value = bar.Max.get();
}

void showShareOfItem(panels::Form1& form, ProgressForm& dialog, const Tally& tally, double bytes, double share) {
  share = std::clamp(share, 0.0, 1.0);
  dialog.ProgressBar1.Max = std::max(tally.BytesDone + bytes, 1.0);
  dialog.ProgressBar1.Value = bytes > 0 ? tally.BytesDone + bytes * share : dialog.ProgressBar1.Max * share;
  if (tally.SelectedCount == 0) return;
  form.ProgressBar1.Value =
      (static_cast<double>(tally.ItemsDone) + share) / static_cast<double>(tally.SelectedCount) * 100;
}

}  // namespace varnholt::fileops

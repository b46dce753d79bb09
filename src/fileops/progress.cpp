#include "fileops/progress.hpp"

#include <algorithm>
#include <cmath>

namespace varnholt::fileops {

void pbar_beregning(panels::Form1& form) {
  if (form.SelectedCount == 0 || form.ItemsDone > form.SelectedCount) return;
  form.ProgressBar1.Value = static_cast<double>(form.ItemsDone) / static_cast<double>(form.SelectedCount) * 100;
}

void PogressCal(panels::Form1& form, OperationForm& dialog) {
  if (form.BytesDone <= 0) return;
  form.OperationBar = &dialog.ProgressBar1;
  controls::ProgressBar& bar = *form.OperationBar;
  bar.Max = form.BytesDone;
  if (form.ItemsTotal >= 2) {
    const double share = std::trunc(form.ProgressBar1.Value / form.ProgressBar1.Max * 100);
    dialog.Label5.Caption = "Overall: " + std::to_string(static_cast<int>(share)) + "%";
  }
  // The steps in between would be gone before they are drawn.
  bar.Value = bar.Max.get();
}

void showShareOfItem(panels::Form1& form, OperationForm& dialog, double bytes, double share) {
  share = std::clamp(share, 0.0, 1.0);
  dialog.ProgressBar1.Max = std::max(form.BytesDone + bytes, 1.0);
  dialog.ProgressBar1.Value = bytes > 0 ? form.BytesDone + bytes * share : dialog.ProgressBar1.Max * share;
  if (form.SelectedCount == 0) return;
  form.ProgressBar1.Value =
      (static_cast<double>(form.ItemsDone) + share) / static_cast<double>(form.SelectedCount) * 100;
}

}  // namespace varnholt::fileops

#include "fileops/progress.hpp"

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

}  // namespace varnholt::fileops

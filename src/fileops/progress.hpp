#pragma once

#include "fileops/operation_dialogs.hpp"
#include "panels/form1.hpp"

namespace varnholt::fileops {

/// `pbar_beregning`: the main window's bar shows the share of handled items.
void pbar_beregning(panels::Form1& form);

/// `PogressCal`: the dialog's bar shows the item as done and, of two or more items, the overall share. Nothing as long
/// as no byte is done.
void PogressCal(panels::Form1& form, OperationForm& dialog);

/// Both bars on the way through an item of so many bytes: between what they show before it and after it.
void showShareOfItem(panels::Form1& form, OperationForm& dialog, double bytes, double share);

}  // namespace varnholt::fileops

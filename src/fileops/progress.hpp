#pragma once

#include "fileops/operation_dialogs.hpp"
#include "panels/form1.hpp"
#include "platform/file_system.hpp"

#include <functional>

namespace varnholt::fileops {

/// A call of the platform that tells how far it is, and asks whether it is to go on.
using LongCall = std::function<platform::Result<void>(const platform::Progress&)>;
/// How such a call is made by a window that has a button to stop it.
using Stoppable = std::function<platform::Result<void>(const LongCall&)>;

/// What the loop of an operation counts.
struct Tally {
  std::size_t SelectedCount = 0;  ///< selected items when its dialog opened
  std::size_t ItemsDone = 0, ItemsTotal = 0;
  double BytesDone = 0;  ///< sum of the sizes handled
};

/// `pbar_beregning`: the main window's bar shows the share of handled items.
void pbar_beregning(panels::Form1& form, const Tally& tally);

/// `PogressCal`: the dialog's bar shows the item as done and, of two or more items, the overall share. Nothing as long
/// as no byte is done.
void PogressCal(const panels::Form1& form, ProgressForm& dialog, const Tally& tally);

/// Both bars on the way through an item of so many bytes: between what they show before it and after it.
void showShareOfItem(panels::Form1& form, ProgressForm& dialog, const Tally& tally, double bytes, double share);

}  // namespace varnholt::fileops

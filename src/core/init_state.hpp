#pragma once

#include "core/settings.hpp"

#include <string>

namespace varnholt::core {

/// The start-up state: each value lives all run long as the text that the store holds, and is compared as text.
struct InitState {
  std::string Skintype, LastCommand, LockCommand, SelectFolders, ValidateCM, DateTimeFormat, DateSystem, FolderHistory,
      MainViewState, GetColorState, GetColorMenu, VDTViewState, AutoPosition, VDT_State, Tip_State, WinStart;
};

/// Reads the state; a missing value gets its default. Without a stored clock format the region's own clock decides.
InitState LoadInitSettings(const Settings& settings, bool regionHasTwelveHourClock);

/// Adds the state's values to a batch.
void StoreInitSettings(const InitState& state, Settings::Batch& batch);

}  // namespace varnholt::core

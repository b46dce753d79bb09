#include "core/init_state.hpp"

#include <utility>

namespace varnholt::core {
namespace {

constexpr std::pair<const SettingKey*, std::string InitState::*> Fields[] = {
    {&setting::Skintype, &InitState::Skintype},           {&setting::LastCommand, &InitState::LastCommand},
    {&setting::LockCommand, &InitState::LockCommand},     {&setting::SelectFolders, &InitState::SelectFolders},
    {&setting::ValidateCM, &InitState::ValidateCM},       {&setting::DateTimeFormat, &InitState::DateTimeFormat},
    {&setting::DateSystem, &InitState::DateSystem},       {&setting::FolderHistory, &InitState::FolderHistory},
    {&setting::MainViewState, &InitState::MainViewState}, {&setting::GetColorState, &InitState::GetColorState},
    {&setting::GetColorMenu, &InitState::GetColorMenu},   {&setting::VDTViewState, &InitState::VDTViewState},
    {&setting::AutoPosition, &InitState::AutoPosition},   {&setting::VDT_State, &InitState::VDT_State},
    {&setting::Tip_State, &InitState::Tip_State},         {&setting::WinStart, &InitState::WinStart},
};

}  // namespace

InitState LoadInitSettings(const Settings& settings, bool regionHasTwelveHourClock) {
  InitState state;
  for (const auto& [key, field] : Fields)
    state.*field = settings.get(*key);
  if (state.DateTimeFormat.empty()) state.DateTimeFormat = regionHasTwelveHourClock ? "1" : "0";
  // A damaged value reads as what is shown for it, so that the menus tell the same.
  if (state.DateTimeFormat != "1") state.DateTimeFormat = "0";
  if (state.DateSystem != "2" && state.DateSystem != "3") state.DateSystem = "1";
  return state;
}

void StoreInitSettings(const InitState& state, Settings::Batch& batch) {
  for (const auto& [key, field] : Fields)
    batch.add(*key, state.*field);
}

}  // namespace varnholt::core

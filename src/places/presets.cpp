#include "places/presets.hpp"

#include <utility>

namespace varnholt::places {

Presets::Presets(panels::Desk& desk) : desk_(desk), Form21(desk.program), Form20(desk, Form21), Form34(desk) {
  desk_.form.events.folderChanged.listen([this] { DynPresetAdd(); });
  Form20.asOneMove = [this](const std::function<bool()>& move) { return asOneMove(move); };
  Form34.asOneMove = Form20.asOneMove;
  Form20.Presetfolder = [this] {
    asOneMove([this] {
      desk_.navigation.Presetfolder();
      return true;
    });
  };
}

void Presets::Command12_Click() {
  desk_.form.setMode("PresetMode");
  Form20.open();
}

void Presets::DynPresets_Click() {
  Form34.ListView1.SetFocus();
  Form34.ShowModal();
}

void Presets::DynPresetAdd() {
  if (!moving_) Form34.DynPresetAdd();
}

bool Presets::asOneMove(const std::function<bool()>& move) {
  moving_ = true;
  const bool done = move();
  moving_ = false;
  if (done) DynPresetAdd();
  return done;
}

}  // namespace varnholt::places

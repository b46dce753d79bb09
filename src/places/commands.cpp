#include "places/presets.hpp"

namespace varnholt::places {

void Presets::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "Command12_Click",
       .button = "Command12",
       .caption = "Presets",
       .toolTip = "Open Dialog for Preset setup (Ctrl+P)",
       .icon = "presets",
       .number = 11,
       .run = [this] { Command12_Click(); }},
      {.handler = "presetsetup_Click",
       .toolTip = "Open Dialog for Preset setup (Ctrl+P)",
       .icon = "presets",
       .heading = "Places",
       .menuText = "Open Static Presets",
       .shortcut = "Ctrl+P",
       .newGroup = true,
       .run = [this] { desk_.dispatcher.perform("Command12_Click"); }},
      {.handler = "DynPresets_Click",
       .toolTip = "The pairs of folders visited since the program started",
       .icon = "history",
       .heading = "Places",
       .menuText = "&Dynamic Presets...",
       .number = 64,
       .run = [this] { DynPresets_Click(); }},
  });
}

}  // namespace varnholt::places

#pragma once

#include "controls/input.hpp"
#include "controls/menu.hpp"
#include "panels/main_menu.hpp"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::panels {

/// A key that chooses a menu entry while a panel's list has the keyboard.
struct PanelShortcut {
  int code;
  controls::Modifiers modifiers;
  std::string_view shown;  ///< as the menus show it: "Shift+F6"
  std::string_view entry;  ///< the menu entry's name
};

/// All of them. An entry's keys stand together, the one to remember first.
std::span<const PanelShortcut> panelShortcuts();

/// The row for a key that goes down; null when the key is none of these.
const PanelShortcut* panelShortcut(const controls::KeyEvent& event);

/// The keys of a menu entry as the menus show them.
std::vector<std::string> keysOf(std::string_view entry);

/// The entries that the menu key and the right button show over a panel: what can be done with the selection, as far as
/// it is built. Null stands for a separator.
std::vector<controls::MenuItem*> selectionMenu(MainMenu& menu);

}  // namespace varnholt::panels

#include "panels/panel_shortcuts.hpp"

#include <algorithm>
#include <array>

namespace varnholt::panels {
namespace {

namespace key = controls::key;
constexpr controls::Modifiers None{}, Shift{true, false, false}, Ctrl{false, true, false}, Alt{false, false, true};

constexpr auto Shortcuts = std::to_array<PanelShortcut>({
    {key::F3, None, "F3", "OpenSelected"},
    {key::F5, None, "F5", "CopyItems"},
    {key::F6, None, "F6", "MoveItems"},
    {key::F6, Shift, "Shift+F6", "RenFileFolder"},
    {key::F7, None, "F7", "Foldermake"},
    {key::F8, None, "F8", "Deleteitems"},
    {key::Delete, None, "Del", "Deleteitems"},
    {key::Insert, None, "Ins", "MarkItem"},
    {'A', Ctrl, "Ctrl+A", "selectall"},
    {key::Add, None, "+", "Filepatt"},
    {key::Subtract, None, "-", "Filepatt"},
    {key::Multiply, None, "*", "Inversel"},
    {key::Tab, None, "Tab", "OtherPanel"},
    {key::Back, None, "Backspace", "ParentWithHistory"},
    {key::Left, Alt, "Alt+Left", "BrowseBack"},
    {key::Right, Alt, "Alt+Right", "BrowseForward"},
});

constexpr std::string_view Separator;
constexpr auto SelectionMenu = std::to_array<std::string_view>({
    "OpenSelected", "EditFile",      Separator,     "CopyItems",    "MoveItems", "WinCopy", "WinPaste",
    Separator,      "RenFileFolder", "Deleteitems", "multiAtribut", "Fdetails",  Separator, "Foldermake",
    "Makefile",     Separator,       "selectall",   "Inversel",     "Filepatt",
});

// On some keyboards the signs are typed with Shift.
bool sameModifiers(int code, const controls::Modifiers& wanted, const controls::Modifiers& held) {
  const bool isSign = code == key::Add || code == key::Subtract || code == key::Multiply;
  return wanted.ctrl == held.ctrl && wanted.alt == held.alt && (isSign || wanted.shift == held.shift);
}

}  // namespace

std::span<const PanelShortcut> panelShortcuts() { return Shortcuts; }

const PanelShortcut* panelShortcut(const controls::KeyEvent& event) {
  const auto found = std::ranges::find_if(Shortcuts, [&](const PanelShortcut& row) {
    return row.code == event.code && sameModifiers(row.code, row.modifiers, event.modifiers);
  });
  return found == Shortcuts.end() ? nullptr : &*found;
}

std::vector<std::string> keysOf(std::string_view entry) {
  std::vector<std::string> keys;
  for (const PanelShortcut& row : Shortcuts)
    if (row.entry == entry) keys.emplace_back(row.shown);
  return keys;
}

std::vector<controls::MenuItem*> selectionMenu(MainMenu& menu) {
  std::vector<controls::MenuItem*> entries;
  for (const std::string_view name : SelectionMenu) {
    const bool separates = name == Separator;
    if (separates && (entries.empty() || !entries.back())) continue;
    if (separates || menu.has(std::string(name))) entries.push_back(separates ? nullptr : &menu[std::string(name)]);
  }
  if (!entries.empty() && !entries.back()) entries.pop_back();
  return entries;
}

}  // namespace varnholt::panels

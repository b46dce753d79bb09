#include "panels/main_menu.hpp"

#include "panels/panel_commands.hpp"
#include "panels/panel_shortcuts.hpp"

#include <algorithm>
#include <utility>

namespace varnholt::panels {
namespace {

std::string headingName(const std::string& path) {
  const auto names = headingNames();
  const auto found = std::ranges::find(names, path, &HeadingName::first);
  return found == names.end() ? "Heading " + path : std::string(found->second);
}

std::string above(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

}  // namespace

controls::MenuItem& MainMenu::make(const std::string& name, controls::MenuItem* parent) {
  auto& held = byName_[name];
  held = std::make_unique<controls::MenuItem>(form_, name, parent);
  return *held;
}

controls::MenuItem* MainMenu::heading(const std::string& path) {
  if (path.empty()) return nullptr;
  const std::string name = headingName(path);
  if (has(name)) return byName_[name].get();
  controls::MenuItem* parent = heading(above(path));
  controls::MenuItem& item = make(name, parent);
  item.Caption = (parent ? "" : "&") + path.substr(path.rfind('/') + 1);
  return &item;
}

/// The headings of the bar come first, so that their order does not hang on which room adds its rows when.
void MainMenu::makeBar(const CommandTable& commands) {
  for (const HeadingName& known : headingNames()) {
    const std::string path(known.first);
    const auto isBelow = [&](const Command& each) { return each.heading.substr(0, each.heading.find('/')) == path; };
    if (std::ranges::any_of(commands.commands(), isBelow)) heading(path);
  }
}

void MainMenu::addEntry(const Command& command) {
  if (command.newGroup) {
    const bool beginsMenu = !has(headingName(command.heading));
    addSeparator(heading(beginsMenu ? above(command.heading) : command.heading));
  }
  controls::MenuItem& item = make(entryName(command), heading(command.heading));
  item.Caption = command.menuText;
  item.Shortcut = command.shortcut;
  item.PanelKeys = keysOf(item.name());
  item.Icon = command.icon;
  item.ToolTipText = command.toolTip;
  item.Click = [this, handler = command.handler] { perform(handler); };
}

void MainMenu::addSeparator(controls::MenuItem* menu) {
  if (menu && !menu->children().empty()) make("Separator " + std::to_string(++separators_), menu).Caption = "-";
}

void MainMenu::addLine(const Command& command) {
  controls::MenuItem& item = make(entryName(command), nullptr);
  item.Caption = command.menuText;
  item.ToolTipText = command.toolTip;
  item.RightAligned = true;
  item.Visible = !std::exchange(hasLine_, true);
}

void MainMenu::build(const CommandTable& commands) {
  makeBar(commands);
  for (const Command& command : commands.commands()) {
    if (command.heading == RightEndOfBar) {
      addLine(command);
    } else if (!command.heading.empty()) {
      addEntry(command);
    }
  }
}

controls::MenuItem& MainMenu::operator[](const std::string& name) {
  const auto found = byName_.find(name);
  if (found != byName_.end()) return *found->second;
  unknown_.insert(name);
  controls::MenuItem& item = make(name, nullptr);
  item.Visible = false;
  return item;
}

}  // namespace varnholt::panels

#include "panels/main_menu.hpp"

#include "panels/panel_commands.hpp"
#include "panels/panel_shortcuts.hpp"

#include <algorithm>
#include <utility>

namespace varnholt::panels {
namespace {

std::string entryName(const Command& command) {
  if (!command.menu.empty()) return command.menu;
  const auto end = command.handler.rfind("_Click");
  return command.handler.substr(0, end);
}

std::string headingName(const std::string& path) {
  const auto names = headingNames();
  const auto found = std::ranges::find(names, path, &HeadingName::first);
  return found == names.end() ? "Heading " + path : std::string(found->second);
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
  const auto slash = path.rfind('/');
  controls::MenuItem* parent = slash == std::string::npos ? nullptr : heading(path.substr(0, slash));
  controls::MenuItem& item = make(name, parent);
  item.Caption = (parent ? "" : "&") + path.substr(slash == std::string::npos ? 0 : slash + 1);
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
  controls::MenuItem* parent = heading(command.heading);
  if (command.menuText == "-") {
    make("Separator " + std::to_string(++separators_), parent).Caption = "-";
    return;
  }
  controls::MenuItem& item = make(entryName(command), parent);
  item.Caption = command.menuText;
  item.Shortcut = command.shortcut;
  item.PanelKeys = keysOf(item.name());
  item.Icon = command.icon;
  item.Enabled = static_cast<bool>(command.run);
  item.ToolTipText = command.run ? command.toolTip : command.toolTip + std::string(NotYetBuilt);
  item.Click = command.run;
}

void MainMenu::addLine(const Command& command) {
  controls::MenuItem& item = make(entryName(command), nullptr);
  item.Caption = command.menuText;
  item.ToolTipText = command.toolTip;
  item.RightAligned = true;
  item.Visible = !std::exchange(hasLine_, true);
  item.Click = command.run;
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

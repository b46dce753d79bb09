#include "panels/main_menu.hpp"

namespace varnholt::panels {
namespace {

std::string entryName(const Command& command) {
  if (!command.menu.empty()) return command.menu;
  const auto end = command.handler.rfind("_Click");
  return command.handler.substr(0, end);
}

}  // namespace

controls::MenuItem& MainMenu::make(const std::string& name, controls::MenuItem* parent) {
  auto& held = byName_[name];
  held = std::make_unique<controls::MenuItem>(form_, name, parent);
  return *held;
}

controls::MenuItem* MainMenu::heading(const std::string& path) {
  if (path.empty()) return nullptr;
  const std::string name = "Heading " + path;
  if (has(name)) return byName_[name].get();
  const auto slash = path.rfind('/');
  controls::MenuItem* parent = slash == std::string::npos ? nullptr : heading(path.substr(0, slash));
  controls::MenuItem& item = make(name, parent);
  item.Caption = (parent ? "" : "&") + path.substr(slash == std::string::npos ? 0 : slash + 1);
  return &item;
}

void MainMenu::build(const CommandTable& commands) {
  for (const Command& command : commands.commands()) {
    if (command.heading.empty()) continue;
    controls::MenuItem* parent = heading(command.heading);
    if (command.menuText == "-") {
      make("Separator " + std::to_string(++separators_), parent).Caption = "-";
      continue;
    }
    controls::MenuItem& item = make(entryName(command), parent);
    item.Caption = command.menuText;
    item.Shortcut = command.shortcut;
    item.Icon = command.icon;
    item.Enabled = static_cast<bool>(command.run);
    item.ToolTipText = command.run ? command.toolTip : command.toolTip + std::string(NotYetBuilt);
    item.Click = command.run;
  }
}

controls::MenuItem& MainMenu::operator[](const std::string& name) {
  const auto found = byName_.find(name);
  if (found != byName_.end()) return *found->second;
  controls::MenuItem& item = make(name, nullptr);
  item.Visible = false;
  return item;
}

}  // namespace varnholt::panels

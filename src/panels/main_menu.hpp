#pragma once

#include "controls/menu.hpp"
#include "panels/command_table.hpp"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace varnholt::panels {

/// The menu bar of the main window, made from the command table. Headings stand in the order of headingNames(), entries
/// in the order of the table.
class MainMenu {
 public:
  explicit MainMenu(controls::Form& form) : form_(form) {}
  void build(const CommandTable& commands);
  /// The entry of that name. Asking for one that the table does not have is a bug: it gets a hidden entry of its own,
  /// and is noted for the tests.
  controls::MenuItem& operator[](const std::string& name);
  bool has(const std::string& name) const { return byName_.contains(name); }
  bool checked(const std::string& name) const {
    const auto found = byName_.find(name);
    if (found == byName_.end()) unknown_.insert(name);
    return found != byName_.end() && found->second->Checked;
  }
  /// Runs the command of a handler; hung on by who dispatches.
  std::function<void(const std::string& handler)> perform;
  /// Names that were asked for and that no row of the table has.
  const std::set<std::string>& unknown() const { return unknown_; }

 private:
  controls::MenuItem* heading(const std::string& path);
  controls::MenuItem& make(const std::string& name, controls::MenuItem* parent);
  void makeBar(const CommandTable& commands);
  void addEntry(const Command& command);
  void addSeparator(controls::MenuItem* menu);
  void addLine(const Command& command);

  controls::Form& form_;
  std::map<std::string, std::unique_ptr<controls::MenuItem>> byName_;
  mutable std::set<std::string> unknown_;
  int separators_ = 0;
  bool hasLine_ = false;
};

}  // namespace varnholt::panels

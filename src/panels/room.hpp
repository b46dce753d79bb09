#pragma once

#include "panels/command_table.hpp"

#include <vector>

namespace varnholt::controls {
class Form;
}

namespace varnholt::panels {

/// A subsystem as the program sees it, which asks each one for what it brings and knows no more of it.
class Room {
 public:
  virtual ~Room() = default;
  /// Its commands, each with what it runs, in the order of the menus.
  virtual void addCommands(CommandTable& table) = 0;
  /// Its windows, which wear the skin.
  virtual std::vector<controls::Form*> dialogs() { return {}; }
  /// Reads the files that it keeps, while the main window is set up.
  virtual void load() {}
  /// Writes them at the program's end.
  virtual void store() {}
};

}  // namespace varnholt::panels

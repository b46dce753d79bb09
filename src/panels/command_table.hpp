#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::panels {

/// One command of the main window. A menu entry, a button, a key and a drop all find their handler here.
struct Command {
  std::string handler{};  ///< "Command1_Click"; unique
  std::string button{};   ///< the button's name ("Command1"); empty: none
  std::string caption{};  ///< of the button; empty: it shows its icon alone
  std::string toolTip{};  ///< of the button and of the menu entry
  std::string icon{};     ///< icon of the program's family, by name
  /// Menu heading without mnemonic ("File", or "View/Colors" for a menu in a menu); empty: no entry. RightEndOfBar puts
  /// the entry itself at the right end of the menu bar.
  std::string heading{};
  std::string menu{};      ///< the menu entry's name ("HidSysfiles"); empty: the handler without "_Click"
  std::string menuText{};  ///< "&" marks the mnemonic; "-" draws a separator
  std::string shortcut{};  ///< "Ctrl+N"; empty: none
  int number = 0;          ///< the number that the last-command memory notes; 0: not remembered
  std::string mode{};      ///< mode word; empty: none of its own
  bool checkable = false;
  /// Empty: not built yet. Its entries are disabled, and their tool tip says so.
  std::function<void()> run{};
};

/// The heading of entries that are a line of text at the right end of the menu bar. They share one place: the first of
/// the table shows, the others are hidden until code shows them. Such a line says something even when nothing runs.
inline constexpr std::string_view RightEndOfBar = "|";

/// All commands, in the order of the menus. Each room adds its own rows.
class CommandTable {
 public:
  void add(Command command) { commands_.push_back(std::move(command)); }
  void add(std::vector<Command> commands);
  /// Hangs the handler on a row; false when there is no such row, which is a bug and noted for the tests.
  bool bind(std::string_view handler, std::function<void()> run);
  const Command* find(std::string_view handler) const;
  const std::vector<Command>& commands() const { return commands_; }
  /// Handlers that were to be hung on rows that are not there.
  const std::set<std::string>& unknown() const { return unknown_; }

 private:
  std::vector<Command> commands_;
  std::set<std::string> unknown_;
};

/// Said after the tool tip of a command that has no handler yet.
inline constexpr std::string_view NotYetBuilt = " (not available in this version)";

}  // namespace varnholt::panels

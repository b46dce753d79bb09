#pragma once

#include <functional>
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
  std::string menu{};           ///< the menu entry's name ("HidSysfiles"); empty: the handler without "_Click"
  std::string menuText{};       ///< "&" marks the mnemonic
  std::string shortcut{};       ///< "Ctrl+N"; empty: none
  int number = 0;               ///< the number that the last-command memory notes; 0: not remembered
  std::string after{};          ///< the menu entry right behind which it stands; empty: the end of its menu
  bool newGroup = false;        ///< a line stands above the entry, or above the menu that begins with it
  std::function<void()> run{};  ///< empty only for the lines at the right end of the bar
};

/// The heading of entries that are a line of text at the right end of the menu bar. They share one place: the first of
/// the table shows, the others are hidden until code shows them. Such a line says something even when nothing runs.
inline constexpr std::string_view RightEndOfBar = "|";

/// The name of a command's menu entry.
std::string entryName(const Command& command);

/// All commands, in the order of the menus. Each room adds its own rows.
class CommandTable {
 public:
  void add(std::vector<Command> commands);
  /// Null when no row has the handler.
  const Command* find(std::string_view handler) const;
  Command* find(std::string_view handler);
  const std::vector<Command>& commands() const { return commands_; }

 private:
  std::vector<Command> commands_;
};

}  // namespace varnholt::panels

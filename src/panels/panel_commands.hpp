#pragma once

#include "panels/panel_keys.hpp"
#include "panels/room.hpp"

#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace varnholt::panels {

/// The commands of the panels and of the program itself: start and end, settings, listing, navigation, selection,
/// trees and looks.
class PanelCommands : public Room {
 public:
  PanelCommands(Desk& desk, PanelKeys& keys) : desk_(desk), keys_(keys) {}
  void addCommands(CommandTable& table) override;

 private:
  Desk& desk_;
  PanelKeys& keys_;
};

/// The last ways out of the program, at the ends of their menus: added to the table after the rows of all rooms.
std::vector<Command> closingCommands(Desk& desk);

/// Path of a menu heading, and the control name under which code finds it.
using HeadingName = std::pair<std::string_view, std::string_view>;

/// The headings of the menu bar in their order, and the menus in a menu that code enables or disables. Any other
/// heading is named "Heading " and its path.
std::span<const HeadingName> headingNames();

}  // namespace varnholt::panels

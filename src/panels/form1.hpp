#pragma once

#include "controls/list_view.hpp"
#include "controls/menu.hpp"
#include "controls/message_loop.hpp"
#include "controls/signal.hpp"
#include "controls/standard.hpp"
#include "panels/command_table.hpp"
#include "panels/file_collect.hpp"
#include "panels/main_menu.hpp"
#include "panels/panel.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::panels {

/// The panels of the status bar, by number.
namespace status {
inline constexpr int FileSystem = 1, FreeSpace = 2, ActiveView = 3, Mode = 4, Time = 5, Date = 6;
inline constexpr int SelectedCount = 7, SizeReport = 8, Line = 9;
}  // namespace status

/// What happens in the panels, for everyone who wants to hear of it.
struct PanelEvents {
  /// A panel has the keyboard; `another`: it was not the active one.
  controls::Signal<Panel&, bool> activated;
  controls::Signal<> folderChanged;           ///< a panel shows another folder
  controls::Signal<Panel&> itemChanged;       ///< another row of the panel may be the one in focus
  controls::Signal<Panel&> selectionChanged;  ///< other rows are selected
  controls::Signal<bool> VDT_Aktive;          ///< the Virtual DeskTop gets (true) or loses the keyboard
};

/// The main window: two folder panels with drive lists and path lines, the Virtual DeskTop list, picture boxes, command
/// line, menu and command buttons, and the status bar.
class Form1 : public controls::Form {
 public:
  explicit Form1(controls::MessageLoop& loop);

  // Left panel, right panel. A picture is drawn stretched in the image, or in its own size in the box below that.
  controls::ComboBox Drive1{*this, "Drive1"}, Drive2{*this, "Drive2"};
  controls::Button Command23{*this, "Command23"}, Command25{*this, "Command25"};  ///< Browse Back
  controls::Button Command22{*this, "Command22"}, Command24{*this, "Command24"};  ///< Browse Forward
  controls::Button Command8{*this, "Command8"}, Command9{*this, "Command9"};      ///< Parent with history
  controls::Button Command18{*this, "Command18"}, Command19{*this, "Command19"};  ///< Parent without history
  controls::Button Command6{*this, "Command6"}, Command7{*this, "Command7"};      ///< Root
  controls::TextBox Text1{*this, "Text1"}, Text2{*this, "Text2"};                 ///< path lines
  controls::ListView ListView1{*this, "ListView1"}, ListView2{*this, "ListView2"};
  controls::PictureBox Picture1{*this, "Picture1"}, Picture2{*this, "Picture2"};
  controls::PictureBox Image1{*this, "Image1"}, Image2{*this, "Image2"};

  // Below the panels.
  controls::ListView ListView3{*this, "ListView3"};      ///< the Virtual DeskTop
  controls::PictureBox Picture3{*this, "Picture3"};      ///< icon of the type of the item in focus
  controls::ComboBox ImageCombo1{*this, "ImageCombo1"};  ///< folder history
  controls::TextBox Text3{*this, "Text3"};               ///< command line

  // The command row.
  controls::Button Command1{*this, "Command1"}, Command3{*this, "Command3"}, Command4{*this, "Command4"};
  controls::Button Command11{*this, "Command11"}, Command2{*this, "Command2"}, Command13{*this, "Command13"};
  controls::Button Command14{*this, "Command14"}, Command15{*this, "Command15"}, Command5{*this, "Command5"};
  controls::Button Command16{*this, "Command16"}, Command12{*this, "Command12"}, Command17{*this, "Command17"};
  controls::Button Command26{*this, "Command26"}, Command27{*this, "Command27"}, Command10{*this, "Command10"};

  controls::StatusBar StatusBar1{*this, "StatusBar1", 9};
  controls::ProgressBar ProgressBar1{*this, "ProgressBar1"};
  controls::Timer Timer1{*this, "Timer1"}, Timer2{*this, "Timer2"}, Timer3{*this, "Timer3"};

  CommandTable commands;
  MainMenu Menu{*this};
  PanelEvents events;

  // --- Shared state ----------------------------------------------------------------------------------------------
  Panel Panel1{Side::Left, {ListView1, Text1, Drive1, Command23, Command22, Command8, Command18, Command6}};
  Panel Panel2{Side::Right, {ListView2, Text2, Drive2, Command25, Command24, Command9, Command19, Command7}};
  Panel& panel(Side side) { return side == Side::Left ? Panel1 : Panel2; }
  Panel& otherPanel(const Panel& panel) { return panel.side == Side::Left ? Panel2 : Panel1; }

  /// `View1Active` and `View2Active`: in normal running exactly one is set.
  bool View1Active() const { return activeSide_ == Side::Left; }
  bool View2Active() const { return activeSide_ == Side::Right; }
  void setActive(std::optional<Side> side) { activeSide_ = side; }
  /// Null when neither panel is active.
  Panel* activePanel() { return activeSide_ ? &panel(*activeSide_) : nullptr; }

  std::string InitFolder;  ///< the home folder
  FileCollect filecollect;
  /// The item in hand as it travels, and the paths that `Fileident` makes of it.
  std::string CurrentItem, SourcePath, TargetPath;

  bool VDT_Aktive = false;  ///< the Virtual DeskTop has the keyboard: commands on the panels' items are refused
  bool CtrlHeld = false;    ///< the Ctrl key is down in a panel
  RecallBuffer& panelRecall(Side side) { return recall_[side == Side::Left ? 0 : 1]; }
  /// The mode word: names the running function, shown in the status bar.
  const std::string& mode() const { return mode_; }
  void setMode(std::string_view mode);
  void statusLine(std::string text) { StatusBar1.setPanel(status::Line, std::move(text)); }
  /// The command buttons of the lower row, in their order.
  std::vector<controls::Button*> commandButtons();

 private:
  std::optional<Side> activeSide_;
  std::string mode_;
  RecallBuffer recall_[2];
};

}  // namespace varnholt::panels

#pragma once

#include "controls/list_view.hpp"
#include "controls/menu.hpp"
#include "controls/message_loop.hpp"
#include "controls/standard.hpp"
#include "panels/command_table.hpp"
#include "panels/main_menu.hpp"

#include <array>
#include <memory>
#include <string>

namespace varnholt::panels {

/// The main window: two folder panels with drive lists and path lines, the Virtual DeskTop list, picture boxes, command
/// line, menu and command buttons, and the status bar.
class Form1 : public controls::Form {
 public:
  explicit Form1(controls::MessageLoop& loop);

  // Left panel, right panel.
  controls::ComboBox Drive1{*this, "Drive1"}, Drive2{*this, "Drive2"};
  controls::Button Command23{*this, "Command23"}, Command25{*this, "Command25"};  ///< Browse Back
  controls::Button Command22{*this, "Command22"}, Command24{*this, "Command24"};  ///< Browse Forward
  controls::Button Command8{*this, "Command8"}, Command9{*this, "Command9"};      ///< Parent with history
  controls::Button Command18{*this, "Command18"}, Command19{*this, "Command19"};  ///< Parent without history
  controls::Button Command6{*this, "Command6"}, Command7{*this, "Command7"};      ///< Root
  controls::TextBox Text1{*this, "Text1"}, Text2{*this, "Text2"};                 ///< path lines
  controls::ListView ListView1{*this, "ListView1"}, ListView2{*this, "ListView2"};

  // Below the panels.
  controls::ListView ListView3{*this, "ListView3"};                               ///< the Virtual DeskTop
  controls::PictureBox Picture1{*this, "Picture1"}, Picture2{*this, "Picture2"};  ///< previews
  controls::ComboBox ImageCombo1{*this, "ImageCombo1"};                           ///< folder history
  controls::TextBox Text3{*this, "Text3"};                                        ///< command line

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
};

}  // namespace varnholt::panels

#pragma once

#include "controls/message_loop.hpp"
#include "controls/standard.hpp"

#include <functional>
#include <string>

namespace varnholt::core {

/// The splash: name and version while the program comes up. Closes at its timer's tick, at any key or click.
class frmSplash : public controls::Form {
 public:
  frmSplash(controls::MessageLoop& loop, const std::string& version);

  controls::PictureBox Picture1{*this, "Picture1"};
  controls::Label lblProductName{*this, "lblProductName"};
  controls::Label lblVersion{*this, "lblVersion"};
  controls::Timer Timer1{*this, "Timer1"};
};

/// "Varnholt StartUp Tip !": what the program needs from the user's rights, until the user has seen enough of it.
class frmTip : public controls::Form {
 public:
  explicit frmTip(controls::MessageLoop& loop);

  controls::Label lblTipText{*this, "lblTipText"};
  /// "Do Not Show Tip at Startup"
  controls::CheckBox LoadTip{*this, "LoadTip"};
  controls::Button cmdOK{*this, "cmdOK"};

  /// The box was clicked, or the tip closes: keep its value.
  std::function<void()> keepChoice;
};

}  // namespace varnholt::core

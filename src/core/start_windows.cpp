#include "core/start_windows.hpp"

#include "controls/dress.hpp"

namespace varnholt::core {
namespace {
// Long enough to read two words, short enough that nobody waits for it.
constexpr int SplashMilliseconds = 600;
}  // namespace

core::frmSplash::frmSplash(controls::MessageLoop& loop, const std::string& version) : Form(loop, "frmSplash") {
  Caption = "Varnholt";
  lblProductName.Caption = "Varnholt";
  lblVersion.Caption = "Version " + version;
  Timer1.Interval = SplashMilliseconds;
  Load = [this] { Timer1.Enabled = true; };
  Timer1.Tick = [this] { UnloadForm(); };
  KeyDown = [this](controls::KeyEvent& event) {
    event.handled = true;
    UnloadForm();
  };
  Picture1.Click = [this] { UnloadForm(); };
  Unload = [this] { Timer1.Enabled = false; };
}

core::frmTip::frmTip(controls::MessageLoop& loop) : Form(loop, "frmTip") {
  Caption = "Varnholt StartUp Tip !";
  lblTipText.Caption =
      "Make Sure You Have Admin. Rights To All Your Drives, As Varnholt Needs Full Access To Files And Folders ! "
      "(Read,Write,Modify Ect.). If Not An error Will Force Varnholt To End !!.";
  LoadTip.Caption = "Do Not Show Tip at Startup";
  dress(cmdOK, "&Ok", "Close the tip");
  defaultButton = "cmdOK";
  cancelButton = "cmdOK";
  LoadTip.Click = [this] {
    if (keepChoice) keepChoice();
  };
  Unload = [this] {
    if (keepChoice) keepChoice();
  };
  cmdOK.Click = [this] { UnloadForm(); };
}

}  // namespace varnholt::core

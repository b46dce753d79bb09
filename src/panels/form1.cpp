#include "panels/form1.hpp"

namespace varnholt::panels {

Form1::Form1(controls::MessageLoop& loop) : Form(loop, "Form1") {
  Caption = "Varnholt";
  ListView3.Visible = false;
  Picture1.Visible = false;
  Picture2.Visible = false;
  Text3.Visible = false;
  ImageCombo1.ToolTipText = "Select Folder History supplied From Main Panels !.";
  drawComingButtons();
  Timer1.Interval = 2000;
  Timer3.Enabled = false;
}

void Form1::drawComingButtons() {
  struct Coming {
    controls::Button& button;
    const char *caption, *toolTip, *icon;
  };
  for (const Coming& coming :
       {Coming{Command15, "Properties", "File/Folder Details in Seperate window (Ctrl+U)", "properties"},
        {Command26, "Pview", "Enable/Disable Picture View ( Alt+Bksp)", "picture"}}) {
    coming.button.Caption = coming.caption;
    coming.button.ToolTipText = coming.toolTip + std::string(NotYetBuilt);
    coming.button.Icon = coming.icon;
    coming.button.Enabled = false;
  }
}

void Form1::setMode(std::string_view mode) {
  mode_ = mode;
  StatusBar1.setPanel(status::Mode, mode_);
}

std::vector<controls::Button*> Form1::commandButtons() {
  return {&Command1, &Command3,  &Command4,  &Command11, &Command2,  &Command13, &Command14, &Command15,
          &Command5, &Command16, &Command12, &Command17, &Command26, &Command27, &Command10};
}

}  // namespace varnholt::panels

#include "panels/form1.hpp"

namespace varnholt::panels {

Form1::Form1(controls::MessageLoop& loop) : Form(loop, "Form1") {
  Caption = "Varnholt";
  ListView3.Visible = false;
  for (controls::PictureBox* box : {&Picture1, &Picture2, &Image1, &Image2})
    box->Visible = false;
  Text3.Visible = false;
  ImageCombo1.ToolTipText = "Select Folder History supplied From Main Panels !.";
  Timer1.Interval = 2000;
  Timer1.Enabled = true;
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

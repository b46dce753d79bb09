#include "tools/about.hpp"

#include "controls/dress.hpp"

namespace varnholt::tools {

tools::form8::form8(controls::MessageLoop& loop, const std::string& version) : Form(loop, "form8") {
  Caption = "About Varnholt";
  Label1.Caption = "Varnholt " + version;
  Label1.AccessibleName = "Name and version";
  Label2.Caption = "Two-panel file manager and disk tool.\r\r"
                   "Free software under the GNU General Public License, version 3 or later. It comes without warranty.";
  Label2.AccessibleName = "About the program";
  dress(Command1, "&Ok", "Close");
  defaultButton = "Command1";
  cancelButton = "Command1";
  Command1.Click = [this] { UnloadForm(); };
}

}  // namespace varnholt::tools

#include "tools/ping_dialog.hpp"

#include "controls/dress.hpp"
#include "core/system_tools.hpp"
#include "core/text_character.hpp"

namespace varnholt::tools {

using platform::quoteArgument;

tools::Form39::Form39(panels::Desk& desk) : Form(desk.program.loop, "Form39"), desk_(desk) {
  Caption = "Ping Address";
  dress(Text1, "Address", "Key in Valid IP or Web addr.");
  dress(Command11, "&Ping", "Ask the address for answers");
  dress(Command2, "&Cancel", "Close");
  defaultButton = "Command11";
  cancelButton = "Command2";
  Command11.Click = [this] { Command11_Click(); };
  Command2.Click = [this] { UnloadForm(); };
}

void tools::Form39::PingI_Click() {
  const auto& program = desk_.program;
  if (core::systemTool(program, "system32\\cmd.exe").empty() || core::systemTool(program, "system32\\ping.exe").empty())
    return program.dialogs.alert("Cmd.exe Or Ping.exe In ...\\System32 Not found !");
  Text1.Text = "";
  Text1.SetFocus();
  ShowModal();
}

void tools::Form39::Command11_Click() {
  const std::string address(core::trimmed(Text1.Text.get()));
  if (address.empty()) {
    desk_.program.dialogs.inform("Key In Ping Address Please !");
    return Text1.SetFocus();
  }
  // Behind "--" nothing that the user has typed is an option.
  const std::string prompt = core::systemTool(desk_.program, "system32\\cmd.exe");
  core::startTool(desk_.program, quoteArgument(prompt) + " /K Ping -- " + quoteArgument(address), {});
  UnloadForm();
}

}  // namespace varnholt::tools

#include "tools/networking_dialog.hpp"

#include "controls/dress.hpp"

#include <algorithm>

namespace varnholt::tools {
namespace {

constexpr char Workstation[] = "SYSTEM\\CurrentControlSet\\Services\\lanmanworkstation\\parameters";
constexpr char Tcp[] = "SYSTEM\\CurrentControlSet\\Services\\Tcpip\\Parameters";

}  // namespace

// The most that a slider gives is the most that its tool tip names.
std::array<tools::Form31::Parameter, 5> tools::Form31::parameters() {
  return {{{Slider1, Label1, Label10, Workstation, "MaxCmds", 255, 1, 5,
            "Max value = 255, default = 15 (try small steps as 5 each)"},
           {Slider2, Label2, Label11, Workstation, "MaxThreads", 255, 1, 5,
            "Max value = 255, default = 15 (same as maxcmds, try small steps as 5 each)"},
           {Slider3, Label3, Label12, Workstation, "MaxCollectionCount", 65000, 100, 500,
            "Max value = 65000, default = 15 (try small steps as 500 each)"},
           {Slider4, Label4, Label13, Tcp, "MTU", 1500, 1, 8,
            "Max value = 1500, Dialup Modem = 576 . Cable/Dsl or T1 or more = 1480"},
           {Slider5, Label5, Label14, Tcp, "TCPWindowSize", 300000, 1460, 14600,
            "Max value =300000, dialup Modem = 8760 , Cable/Dsl = 186880, T1 >= 256960"}}};
}

std::array<tools::Form31::Connection, 4> tools::Form31::connections() {
  return {{{Check100, Label100, "Modem1", 576, 8760, "&Dialup Modem",
            "Enable Auto Settings for MaxtransmissionsUnit and MaxTCPwindow as DialUp Modem Systems.",
            "MTU 576\rWindow 8760"},
           {Check101, Label101, "Modem2", 1480, 186880, "Ca&ble/DSL Modem",
            "Enable Auto Settings for MaxtransmissionsUnit and MaxTCPwindow as Cable/DSL Modem Systems.",
            "MTU 1480\rWindow 186880"},
           {Check102, Label102, "Modem3", 1480, 256960, "T&1 Or More",
            "Enable Auto Settings for MaxtransmissionsUnit and MaxTCPwindow as T1 and Lan Systems.",
            "MTU 1480\rWindow 256960"},
           {Check103, Label103, "Modem4", 0, 0, "User De&fined",
            "Enable Manuel Settings of MaxtransmissionsUnit and MaxTCPwindow.", "As the\rsliders stand"}}};
}

tools::Form31::Form31(panels::Desk& desk) : Form(desk.program.loop, "Form31"), desk_(desk) {
  Caption = "Optimize Networking";
  setTexts();
  for (const Parameter& each : parameters()) {
    each.slider.Max = each.most;
    each.slider.SmallChange = each.step;
    each.slider.LargeChange = each.page;
    each.slider.Change = [&slider = each.slider, &moving = each.moving] {
      moving.Caption = std::to_string(slider.Value.get());
    };
  }
  for (std::size_t at = 0; at < connections().size(); ++at)
    connections()[at].box.Click = [this, at] { choose(connections()[at]); };
  Command11.Click = [this] { Command11_Click(); };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { UnloadForm(); };
  defaultButton = "Command11";
  cancelButton = "Command2";
}

void tools::Form31::setTexts() {
  for (const Parameter& each : parameters()) {
    each.slider.AccessibleName = each.name;
    each.slider.ToolTipText = each.toolTip;
    each.moving.AccessibleName = std::string(each.name) + ", new value";
    each.current.AccessibleName = std::string(each.name) + ", current value";
  }
  for (const Connection& each : connections()) {
    dress(each.box, each.caption, each.toolTip);
    addWords(each.box, each.told, each.words);
  }
  dress(Check104, "&Large TCP Window", "Enable Large TCPIP Window, Recommended !.");
  dress(Check105, "TCP.w &Auto Recover", "Enable TCP Window Auto Recover, Recommended !.");
  addWords(Check104, Label104, "(recommended)");
  addWords(Check105, Label105, "(recommended)");
  dress(Command11, "&Execute", "Executes values, Computer restart needed !.");
  dress(Command1, "&Return to Original", "The sliders stand at the stored values again");
  dress(Command2, "&Cancel", "Cancel Operation without changes.");
  StatusBar1.setPanel(1,
                      "Values are kept in the program's own registry; the system's network settings stay as they are.");
}

void tools::Form31::addWords(controls::CheckBox& box, controls::Label& label, const char* words) {
  label.Caption = words;
  label.ToolTipText = box.ToolTipText.get();
  label.Click = [&box] { box.toggleFromUser(); };
}

void tools::Form31::NetOp_Click() {
  readSliders();
  for (const Parameter& each : parameters()) {
    const std::uint32_t number = GetRegistryValue(each.key, each.name);
    each.current.Caption = "Current Value = " + (number ? std::to_string(number) : "Not Present");
  }
  Check104.Value = GetRegistryValue(Tcp, "Tcp1323Opts") == 1;
  Check105.Value = GetRegistryValue(Tcp, "EnablePMTUDiscovery") == 1;
  const auto all = connections();
  const std::string stored = desk_.program.settings.get(core::setting::Modem);
  const auto found = std::ranges::find(all, stored, [](const Connection& each) { return std::string(each.stored); });
  const Connection& chosen = found == all.end() ? all.back() : *found;
  chosen.box.Value = 1;
  choose(chosen);
  ShowModal();
  desk_.listing.FocusView();
}

void tools::Form31::readSliders() {
  for (const Parameter& each : parameters()) {
    const auto number =
        std::min<std::uint32_t>(GetRegistryValue(each.key, each.name), static_cast<std::uint32_t>(each.most));
    each.slider.Value = static_cast<int>(number);
    each.slider.Change();
  }
}

std::uint32_t tools::Form31::GetRegistryValue(const char* key, const char* name) const {
  return std::get<std::uint32_t>(
      desk_.program.registry.GetRegistryValue(platform::RegistryRoot::LocalMachine, key, name, std::uint32_t{0}));
}

void tools::Form31::choose(const Connection& chosen) {
  if (!chosen.box.Value) return;
  for (const Connection& each : connections())
    if (&each.box != &chosen.box) each.box.Value = 0;
  const bool own = chosen.window == 0;
  for (controls::Slider* slider : {&Slider4, &Slider5})
    slider->Enabled = own;
  if (own) return;
  Slider4.Value = chosen.transmission;
  Slider4.Change();
  Slider5.Value = chosen.window;
  Slider5.Change();
}

bool tools::Form31::SetRegValue(const char* key, const char* name, int number) {
  return desk_.program.registry.SetRegValue(platform::RegistryRoot::LocalMachine, key, name,
                                            static_cast<std::uint32_t>(number));
}

void tools::Form31::Command11_Click() {
  const int window = Slider5.Value;
  if (!SetRegValue(Workstation, "MaxCmds", Slider1.Value) || !SetRegValue(Workstation, "MaxThreads", Slider2.Value) ||
      !SetRegValue(Workstation, "MaxCollectionCount", Slider3.Value) || !SetRegValue(Tcp, "TCPWindowSize", window))
    return;
  SetRegValue(Tcp, "GlobalMaxTcpWindowSize", window);
  SetRegValue(Tcp, "MTU", Slider4.Value);
  SetRegValue(Tcp, "Tcp1323Opts", Check104.Value ? 1 : 0);
  SetRegValue(Tcp, "EnablePMTUDiscovery", Check105.Value ? 1 : 0);
  std::string stored;
  for (const Connection& each : connections())
    if (each.box.Value) stored = each.stored;
  desk_.program.settings.save(core::setting::Modem, stored);
  UnloadForm();
}

void tools::Form31::Command1_Click() { readSliders(); }

}  // namespace varnholt::tools

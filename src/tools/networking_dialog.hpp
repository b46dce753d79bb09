#pragma once

#include "controls/standard.hpp"
#include "panels/desk.hpp"

#include <array>
#include <cstdint>

namespace varnholt::tools {

/// "Optimize Networking": seven network parameters as the program's own registry keeps them.
class Form31 : public controls::Form {
 public:
  explicit Form31(panels::Desk& desk);

  controls::CheckBox Check100{*this, "Check100"}, Check101{*this, "Check101"};  ///< dialup modem, cable
  controls::CheckBox Check102{*this, "Check102"}, Check103{*this, "Check103"};  ///< T1 or more, user defined
  controls::CheckBox Check104{*this, "Check104"}, Check105{*this, "Check105"};  ///< large window, auto recover
  controls::Label Label100{*this, "Label100"}, Label101{*this, "Label101"};  ///< what each box does; clicked as it is
  controls::Label Label102{*this, "Label102"}, Label103{*this, "Label103"};
  controls::Label Label104{*this, "Label104"}, Label105{*this, "Label105"};
  controls::Slider Slider1{*this, "Slider1"}, Slider2{*this, "Slider2"}, Slider3{*this, "Slider3"};
  controls::Slider Slider4{*this, "Slider4"}, Slider5{*this, "Slider5"};
  controls::Label Label1{*this, "Label1"}, Label2{*this, "Label2"}, Label3{*this, "Label3"};  ///< of the sliders
  controls::Label Label4{*this, "Label4"}, Label5{*this, "Label5"};
  controls::Label Label10{*this, "Label10"}, Label11{*this, "Label11"}, Label12{*this, "Label12"};  ///< as they are now
  controls::Label Label13{*this, "Label13"}, Label14{*this, "Label14"};
  controls::StatusBar StatusBar1{*this, "StatusBar1", 1};
  controls::Button Command11{*this, "Command11"};  ///< execute
  controls::Button Command1{*this, "Command1"};    ///< back to what is stored
  controls::Button Command2{*this, "Command2"};

  void NetOp_Click();

 private:
  /// A slider with the value that it stands for.
  struct Parameter {
    controls::Slider& slider;
    controls::Label &moving, &current;
    const char *key, *name;
    int most, step, page;
    const char* toolTip;
  };
  std::array<Parameter, 5> parameters();
  /// A kind of connection with the two values that it sets; 0: they stay, and are the user's.
  struct Connection {
    controls::CheckBox& box;
    controls::Label& told;
    const char* stored;
    int transmission, window;
    const char *caption, *toolTip, *words;
  };
  std::array<Connection, 4> connections();

  std::uint32_t GetRegistryValue(const char* key, const char* name) const;
  bool SetRegValue(const char* key, const char* name, int number);
  void setTexts();
  static void addWords(controls::CheckBox& box, controls::Label& label, const char* words);
  void readSliders();
  void choose(const Connection& chosen);
  void Command11_Click();
  void Command1_Click();

  panels::Desk& desk_;
};

}  // namespace varnholt::tools

#pragma once

#include "controls/standard.hpp"
#include "panels/desk.hpp"

namespace varnholt::tools {

/// "Ping Address": asks another machine for answers, in a terminal.
class Form39 : public controls::Form {
 public:
  explicit Form39(panels::Desk& desk);

  controls::TextBox Text1{*this, "Text1"};  ///< the address
  controls::Button Command11{*this, "Command11"};
  controls::Button Command2{*this, "Command2"};

  void PingI_Click();

 private:
  void Command11_Click();

  panels::Desk& desk_;
};

}  // namespace varnholt::tools

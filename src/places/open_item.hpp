#pragma once

#include "controls/standard.hpp"
#include "core/program_files.hpp"
#include "core/shared_lines.hpp"
#include "panels/desk.hpp"

#include <string>

namespace varnholt::places {

/// "Open Item": opens an address, file or folder that is typed or was typed before.
class Form29 : public controls::Form {
 public:
  explicit Form29(panels::Desk& desk);

  controls::ComboBox Combo1{*this, "Combo1"};
  controls::Button Command11{*this, "Command11"};  ///< open
  controls::Button Command1{*this, "Command1"};    ///< empty the box
  controls::Button Command4{*this, "Command4"};    ///< delete what is in the box from the list
  controls::Button Command3{*this, "Command3"};    ///< clear the list
  controls::Button Command2{*this, "Command2"};    ///< cancel

  /// Makes the text of the box the newest of the list.
  void Openhis_store();
  /// `OpenHis.Dat`.
  void load();
  platform::Result<void> store();

 private:
  void setTexts();
  void fill(const std::string& text);
  void Command3_Click();
  void Command4_Click();
  void Command11_Click();
  std::string text() const;
  bool open(const std::string& text);
  bool openPath(const std::string& text);

  panels::Desk& desk_;
  panels::History items_{50};
  core::SharedLines file_{core::program_file::OpenHis, core::SharedLines::Newest::First};
};

}  // namespace varnholt::places

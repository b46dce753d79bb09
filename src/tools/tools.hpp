#pragma once

#include "panels/desk.hpp"
#include "panels/room.hpp"
#include "tools/about.hpp"

namespace varnholt::tools {

/// Small commands that hand over to the system's own tools, each of which is tested for before it is started, and what
/// the program tells of itself.
class Tools : public panels::Room {
 public:
  explicit Tools(panels::Desk& desk);
  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&form8}; }
  void load() override;

  tools::form8 form8;

 private:
  /// A command prompt in the active panel's folder.
  void Dos_Click();
  void Readme_Click();

  panels::Desk& desk_;
};

}  // namespace varnholt::tools

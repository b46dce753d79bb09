#pragma once

#include "core/program.hpp"
#include "panels/form1.hpp"

#include <string>

namespace varnholt::tools {

/// Small commands that hand over to the system's own tools. Each tests that its tool is there before it starts it.
class SystemShortcuts {
 public:
  SystemShortcuts(panels::Form1& form, core::Program& program) : form_(form), program_(program) {}

  /// A command prompt in the active panel's folder.
  void Dos_Click();
  void Readme_Click();

 private:
  panels::Form1& form_;
  core::Program& program_;
};

}  // namespace varnholt::tools

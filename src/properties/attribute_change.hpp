#pragma once

#include "fileops/progress.hpp"
#include "panels/desk.hpp"
#include "properties/attribute_dialog.hpp"

#include <string>
#include <vector>

namespace varnholt::properties {

/// Sets the same attributes on all selected files. Folders and system files stay as they are.
class AttributeChange {
 public:
  AttributeChange(panels::Desk& desk, Form18& dialog);

  void multiAtribut_Click();

 private:
  void open();
  void Command1_Click();
  /// True: it cannot be done here, and the user was told why.
  bool refused();
  void atribsettingsform18();
  void run();
  /// The newest of the collected items that are files, at most as many as one call handles; what is no file is dropped.
  std::vector<std::string> nextFiles();
  void change(const std::vector<std::string>& names);
  void showLine(const std::string& name);

  panels::Desk& desk_;
  Form18& Form18_;
  std::string folder_;  ///< of the items: what the active panel showed at the hand-over
  fileops::Tally tally_;
  std::size_t notChanged_ = 0;
};

}  // namespace varnholt::properties

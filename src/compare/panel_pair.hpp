#pragma once

#include "panels/desk.hpp"

namespace varnholt::compare {

/// The commands that set one panel's folder from the other's.
class PanelPair {
 public:
  explicit PanelPair(panels::Desk& desk) : desk_(desk) {}

  void LeftToRight_Click() { follow(desk_.form.Panel1); }
  void RigthToLeft_Click() { follow(desk_.form.Panel2); }
  void SourceToTarget_Click();
  /// The same folder on the other panel's own drive.
  void TargetFolder_Click();

 private:
  /// This panel goes where the other one is.
  void follow(panels::Panel& panel);
  void toTargetDrive(panels::Panel& source, panels::Panel& target);

  panels::Desk& desk_;
};

}  // namespace varnholt::compare

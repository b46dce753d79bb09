#pragma once

#include "fileops/operation.hpp"

namespace varnholt::fileops {

/// `Form5`: moves what is selected into the folder of the other panel. It never overwrites anything, and a folder stays
/// on its drive.
class Move : public TargetOperation {
 public:
  Move(panels::Desk& desk, Form5& dialog, Space& space, Form32& nameDialog)
      : TargetOperation(desk, dialog, space, nameDialog), form5_(dialog) {}

 protected:
  std::string_view modeWord() const override { return "MoveMode"; }
  bool mayOpen() override;
  Begin mayBegin() override;
  Turn turn() const override { return Turn::BeforeItem; }
  bool moving() const override { return form5_.MoveRunning; }
  bool takesAway() const override { return true; }
  Item file() override;
  Item folder() override;
  platform::BatchResults batch(const std::string& folder, const std::vector<std::string>& names, const std::string& to,
                               const platform::Progress& progress) override;
  void refreshPanels() override;
  void ended(bool normally) override;

 private:
  Item isAnotherDrive();

  Form5& form5_;
  bool stays_ = false;        ///< source and target are on one drive
  bool toItsFolder_ = false;  ///< source and target are one folder, by whatever drives
};

}  // namespace varnholt::fileops

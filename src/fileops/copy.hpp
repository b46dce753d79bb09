#pragma once

#include "fileops/operation.hpp"
#include "fileops/overwrite_policy.hpp"

namespace varnholt::fileops {

/// `Form3`: copies what is selected into the folder of the other panel.
class Copy : public TargetOperation {
 public:
  Copy(panels::Desk& desk, Form3& dialog, Space& space, Form32& nameDialog, OverwritePolicy& policy, Form7& form7,
       Form10& form10)
      : TargetOperation(desk, dialog, space, nameDialog), policy_(policy), form7_(form7), form10_(form10) {}

 protected:
  /// For a copy that brings its own items and target.
  Copy(panels::Desk& desk, ProgressForm& progress, Space& space, OverwritePolicy& policy, Form7& form7, Form10& form10)
      : TargetOperation(desk, progress, space), policy_(policy), form7_(form7), form10_(form10) {}
  std::string_view modeWord() const override { return "CopyMode"; }
  Turn turn() const override { return Turn::AfterItem; }
  Begin mayBegin() override;
  Item file() override;
  Item folder() override;
  platform::BatchResults batch(const std::string& folder, const std::vector<std::string>& names, const std::string& to,
                               const platform::Progress& progress) override;
  void counted() override;
  void refreshPanels() override;
  void ended(bool normally) override;
  /// What a file comes to that is its own target.
  virtual Item ownTarget() const { return Item::EndsAll; }

 private:
  void stieq() { alert("Cannot Copy Item to Itself !"); }
  Item overExisting(std::uint64_t bytes);
  enum class Way { ToFreePlace, Over, OverProtected };
  platform::Result<void> copyFile(std::uint64_t bytes, Way way);
  bool targetExists(const platform::Error& error) const;
  bool mayMerge(const std::string& target);

  OverwritePolicy& policy_;
  Form7& form7_;
  Form10& form10_;
};

}  // namespace varnholt::fileops

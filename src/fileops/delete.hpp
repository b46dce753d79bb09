#pragma once

#include "fileops/operation.hpp"
#include "fileops/overwrite_dialogs.hpp"

namespace varnholt::fileops {

/// `Form4`: deletes what is selected, without a recycle bin.
class Delete : public Operation {
 public:
  Delete(panels::Desk& desk, Form4& dialog, Space& space, Form10& form10);

 protected:
  std::string_view modeWord() const override { return "DeleteMode"; }
  bool mayOpen() override;
  std::string folderShown() const override { return desk_.form.activePanel()->path(); }
  void markRows() override { desk_.dispatcher.deletecolor(); }
  Begin mayBegin() override;
  Turn turn() const override { return Turn::BeforeTaking; }
  Item file() override;
  Item folder() override;
  platform::BatchResults batch(const std::string& folder, const std::vector<std::string>& names, const std::string& to,
                               const platform::Progress& progress) override;
  /// `VerifyDeleted`: the item is gone, or the user goes on with it there.
  bool verify() override;
  void refreshPanels() override;
  void ended(bool normally) override;

 private:
  bool mayDeleteTree();

  Form10& form10_;
};

}  // namespace varnholt::fileops

#pragma once

#include "basket/paste_collection.hpp"
#include "basket/paste_dialog.hpp"
#include "fileops/fileops.hpp"

namespace varnholt::basket {

/// Copies what is in the basket into the active panel's folder, in the order of adding. The basket stays as it is. All
/// that a copy asks, tells and guards holds here, for it is one; but items and target are the paste's own: the panels
/// may be clicked into while it runs.
class Paste : public fileops::Copy {
 public:
  Paste(panels::Desk& desk, fileops::FileOps& fileops, basket::Form43& Form43, const PasteCollection& collection);

  void WinPaste_Click();

 protected:
  std::string_view modeWord() const override { return "PasteMode"; }
  panels::FileCollect& items() override { return items_; }
  std::string targetFolder() const override { return target_; }
  void identify() override;
  bool sourceStands() const override { return true; }
  Begin mayBegin() override;
  Item file() override;
  Item folder() override;
  bool verify() override;
  void refreshPanels() override;
  void ended(bool normally) override;
  Item ownTarget() const override { return Item::PassedOver; }
  Item refused() const override { return Item::PassedOver; }

 private:
  void takeOver();
  /// A failed item of which nothing is there any more is passed over.
  Item passedOver(const char* line);

  basket::Form43& Form43_;
  const PasteCollection& collection_;
  panels::FileCollect items_;
  std::string target_;
  bool whole_ = false;  ///< nobody has ended it before its last item
};

}  // namespace varnholt::basket

#include "basket/paste.hpp"

namespace varnholt::basket {

Paste::Paste(panels::Desk& desk, fileops::FileOps& fileops, basket::Form43& Form43, const PasteCollection& collection)
    : Copy(desk, Form43, fileops.Space, fileops.policy, fileops.Form7, fileops.Form10),
      Form43_(Form43),
      collection_(collection) {}

void Paste::WinPaste_Click() {
  auto& form = desk_.form;
  if (collection_.empty()) {
    form.Caption = "Varnholt - No Items To Paste !";
    return;
  }
  if (!desk_.dispatcher.panelPreCheck()) return;
  form.setMode(modeWord());
  takeOver();
  run();
  items_.reset();
  desk_.listing.ColorReset();
  desk_.listing.FocusView();
  desk_.dispatcher.commandDone();
  desk_.selection.ClickPane();
  if (whole_) form.Caption = "Varnholt, - Paste (Ctrl+V) Done !";
}

// The loop takes from the end.
void Paste::takeOver() {
  items_.reset();
  const auto& all = collection_.items();
  for (auto item = all.rbegin(); item != all.rend(); ++item)
    items_.push(*item);
  target_ = desk_.form.activePanel()->path();
  tally_.SelectedCount = items_.count();
  whole_ = false;
}

void Paste::identify() {
  desk_.form.SourcePath = desk_.form.CurrentItem;
  desk_.form.TargetPath = target_;
}

Paste::Begin Paste::mayBegin() {
  const Begin begin = Copy::mayBegin();
  if (begin != Begin::Loop) return begin;
  whole_ = true;
  Form43_.Label1.Caption = "Target: " + target_;
  Form43_.showItem("");
  Form43_.showCount(1, tally_.SelectedCount);
  Form43_.Show();
  return begin;
}

Paste::Item Paste::file() {
  const std::string source = desk_.form.SourcePath;
  if (!inBatch() && !desk_.files().fileExists(source)) return passedOver("Source File/Folder Do Not Exist !");
  const Item item = Copy::file();
  if (item == Item::EndsLoop) whole_ = false;
  if (failure_ && failure_->code == platform::ErrorCode::NotFound && !desk_.files().fileExists(source))
    return passedOver("Source File/Item Do Not Exist !");
  return item;
}

Paste::Item Paste::folder() {
  if (!desk_.files().folderExists(desk_.form.SourcePath)) return passedOver("Source File/Folder Do Not Exist !");
  return Copy::folder();
}

Paste::Item Paste::passedOver(const char* line) {
  showItem(line);
  leftOut_.add({platform::ErrorCode::NotFound, desk_.form.SourcePath, line});
  return Item::PassedOver;
}

bool Paste::verify() {
  whole_ = Copy::verify();
  return whole_;
}

void Paste::refreshPanels() {
  desk_.listing.ViewClearItems(desk_.form.Panel1);
  desk_.listing.ViewClearItems(desk_.form.Panel2);
}

void Paste::ended(bool normally) {
  whole_ = whole_ && normally;
  Copy::ended(normally);
}

}  // namespace varnholt::basket

#include "fileops/move.hpp"

#include "fileops/progress.hpp"

namespace varnholt::fileops {

bool Move::mayOpen() {
  panels::Panel& source = *context_.form.activePanel();
  if (!driveReady(source) || !driveReady(context_.form.otherPanel(source))) {
    alert("Drive(s) Not ready !\rFunction Exits !");
    return false;
  }
  const auto volume = context_.files().volume(source.path());
  if (volume && volume->fileSystem == "CDFS") {
    alert("Cannot Move From CD-Rom/DVD-Rom !\rFunction Exits !");
    return false;
  }
  return true;
}

Operation::Begin Move::mayBegin() {
  form5_.MoveRunning = true;
  stays_ = context_.form.Panel1.driveRoot() == context_.form.Panel2.driveRoot();
  toItsFolder_ = context_.files().sameEntry(context_.form.Panel1.path(), context_.form.Panel2.path());
  return TargetOperation::mayBegin();
}

Operation::Item Move::file() {
  auto& form = context_.form;
  const std::string source = form.SourcePath, target = context_.target(leaf_);
  showItem("Processing... " + form.CurrentItem);
  if (const auto done = doneInBatch()) {
    succeeded_ = true;
    form.BytesDone += static_cast<double>(*done);
    PogressCal(form, dialog_);
    return Item::Done;
  }
  const std::uint64_t bytes = fileBytes(source);
  // To move a file to where it is would succeed, and is refused all the same.
  const bool isThere = toItsFolder_ && context_.files().fileExists(target);
  platform::Result<void> moved;
  if (!isThere) moved = run(bytes, [&] { return context_.files().moveFile(source, target); });
  if (isThere || (!moved && context_.files().fileExists(target))) {
    alert("File Already exist on Target, - Cannot Move!");
    return Item::Done;
  }
  succeeded_ = moved.ok();
  form.BytesDone += static_cast<double>(bytes);
  PogressCal(form, dialog_);
  return Item::Done;
}

platform::BatchResults Move::batch(const std::string& folder, const std::vector<std::string>& names,
                                   const std::string& to) {
  return context_.files().moveFiles(folder, names, to);
}

Operation::Item Move::folder() {
  auto& form = context_.form;
  const std::string item = form.CurrentItem, target = context_.target(leaf_);
  if (isOwnTarget()) {
    alert("Cannot Move Folder to Itself !");
    return refused();
  }
  if (liesInItem()) {
    stieqopen();
    return refused();
  }
  showItem("Processing... " + item);
  if (!stays_) return isAnotherDrive();
  if (context_.files().folderExists(target)) {
    alert("Folder Exist on Target, - Cannot Move!");
    return Item::PassedOver;
  }
  form.BytesDone += static_cast<double>(context_.folderBytes(item));
  const auto moved = runLong([&] { return context_.files().moveFolder(item, target); });
  // A volume mounted below a folder has no drive letter to tell it by.
  if (!moved && moved.error().code == platform::ErrorCode::NotSupported) return isAnotherDrive();
  succeeded_ = moved.ok();
  PogressCal(form, dialog_);
  RefreshTreeNeeded_ = true;
  return Item::Done;
}

Operation::Item Move::isAnotherDrive() {
  alert("Cannot Move Folder to Another Drive !\rUse Delete after Copy Instead !");
  return Item::PassedOver;
}

void Move::ended(bool /*normally*/) { form5_.MoveRunning = false; }

void Move::refreshPanels() {
  context_.listing.View1ClearItems();
  context_.listing.View2ClearItems();
  context_.listing.ColorReset();
  context_.listing.FocusView();
}

}  // namespace varnholt::fileops

#include "fileops/move.hpp"
#include "fileops/item_in_hand.hpp"

#include "fileops/progress.hpp"

namespace varnholt::fileops {

bool Move::mayOpen() {
  panels::Panel& source = *desk_.form.activePanel();
  if (!driveReady(source) || !driveReady(desk_.form.otherPanel(source))) {
    alert("Drive(s) Not ready !\rFunction Exits !");
    return false;
  }
  const auto volume = desk_.files().volume(source.path());
  if (volume && volume->isCompactDisc()) {
    alert("Cannot Move From CD-Rom/DVD-Rom !\rFunction Exits !");
    return false;
  }
  return true;
}

Operation::Begin Move::mayBegin() {
  form5_.MoveRunning = true;
  stays_ = desk_.form.Panel1.driveRoot() == desk_.form.Panel2.driveRoot();
  toItsFolder_ = desk_.files().sameEntry(desk_.form.Panel1.path(), desk_.form.Panel2.path());
  return TargetOperation::mayBegin();
}

Operation::Item Move::file() {
  auto& form = desk_.form;
  const std::string source = form.SourcePath, target = targetOf(desk_, leaf_);
  showItem("Processing... " + form.CurrentItem);
  if (const auto done = doneInBatch()) {
    tally_.BytesDone += static_cast<double>(*done);
    PogressCal(form, dialog_, tally_);
    return Item::Done;
  }
  const std::uint64_t bytes = fileBytes(source);
  // To move a file to where it is would succeed, and is refused all the same.
  const bool isThere = toItsFolder_ && desk_.files().fileExists(target);
  platform::Result<void> moved;
  if (!isThere)
    moved = runLong({bytes, bytes}, [&](const platform::Progress& progress) {
      return desk_.files().moveFile(source, target, progress);
    });
  const Item item = isThere ? Item::Done : cameOut(moved);
  if (item == Item::Stopped) return item;
  if (isThere || (!moved && desk_.files().fileExists(target))) {
    failure_.reset();
    alert("File Already exist on Target, - Cannot Move!");
    return item;
  }
  tally_.BytesDone += static_cast<double>(bytes);
  PogressCal(form, dialog_, tally_);
  return item;
}

platform::BatchResults Move::batch(const std::string& folder, const std::vector<std::string>& names,
                                   const std::string& to, const platform::Progress& progress) {
  return desk_.files().moveFiles(folder, names, to, progress);
}

Operation::Item Move::folder() {
  auto& form = desk_.form;
  const std::string item = form.CurrentItem, target = targetOf(desk_, leaf_);
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
  if (desk_.files().folderExists(target)) {
    alert("Folder Exist on Target, - Cannot Move!");
    return Item::PassedOver;
  }
  const platform::TreeSize size = treeSize(item);
  if (dialog_.StopFlag) return Item::Stopped;
  const auto moved =
      runLong({size.bytes, 0}, [&](const platform::Progress&) { return desk_.files().moveFolder(item, target); });
  // A volume mounted below a folder has no drive letter to tell it by.
  if (!moved && moved.error().code == platform::ErrorCode::NotSupported) return isAnotherDrive();
  tally_.BytesDone += static_cast<double>(size.bytes);
  PogressCal(form, dialog_, tally_);
  RefreshTreeNeeded_ = true;
  return cameOut(moved);
}

Operation::Item Move::isAnotherDrive() {
  alert("Cannot Move Folder to Another Drive !\rUse Delete after Copy Instead !");
  return Item::PassedOver;
}

void Move::ended(bool /*normally*/) { form5_.MoveRunning = false; }

void Move::refreshPanels() {
  desk_.listing.ViewRenew();
  desk_.listing.ColorReset();
  desk_.listing.FocusView();
}

}  // namespace varnholt::fileops

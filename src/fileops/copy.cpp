#include "fileops/copy.hpp"
#include "fileops/item_in_hand.hpp"

#include "core/text_character.hpp"
#include "fileops/progress.hpp"

namespace varnholt::fileops {
namespace {

using controls::pointer::Default;
using controls::pointer::Hourglass;

constexpr std::size_t LongFolder = 56, LongFolderKept = 45;
constexpr std::size_t LongQuestion = 120;
// A larger file has a call, and a turn of the message loop, of its own.
constexpr std::uint64_t LargestOfBatch = 256 * 1024;

}  // namespace

Operation::Begin Copy::mayBegin() {
  policy_.OverwritePrompt = true;
  return TargetOperation::mayBegin();
}

Operation::Item Copy::file() {
  auto& form = desk_.form;
  if (form.SourcePath == targetOf(desk_, leaf_)) {
    stieq();
    return ownTarget();
  }
  showItem("Processing... " + form.CurrentItem);
  if (const auto done = doneInBatch()) {
    tally_.BytesDone += static_cast<double>(*done);
    return Item::Done;
  }
  const std::uint64_t bytes = fileBytes(form.SourcePath);
  const auto copied = copyFile(bytes, Way::ToFreePlace);
  if (!copied && targetExists(copied.error())) return overExisting(bytes);
  const Item item = cameOut(copied);
  tally_.BytesDone += static_cast<double>(bytes);
  return item;
}

Operation::Item Copy::overExisting(std::uint64_t bytes) {
  const Outcome outcome = policy_.decide(leaf_);
  if (outcome == Outcome::Ends) return Item::EndsLoop;
  if (outcome == Outcome::Skipped) return Item::Done;
  const bool renamed = form7_.OverwriteAnswer == Overwrite::RenameTarget;
  const Way way = outcome == Outcome::CopyOverProtected ? Way::OverProtected : renamed ? Way::ToFreePlace : Way::Over;
  const Item item = outcome == Outcome::CopiedAlready ? Item::Done : cameOut(copyFile(bytes, way));
  tally_.BytesDone += static_cast<double>(bytes);
  return item;
}

platform::BatchResults Copy::batch(const std::string& folder, const std::vector<std::string>& names,
                                   const std::string& to, const platform::Progress& progress) {
  return desk_.files().copyFiles(folder, names, to, LargestOfBatch, progress);
}

// A first try finds out in one call whether anything is in the way. Nothing is replaced but what the user was asked
// about: a target that comes up in between stays.
platform::Result<void> Copy::copyFile(std::uint64_t bytes, Way way) {
  desk_.pointer() = Hourglass;
  const std::string source = desk_.form.SourcePath, target = targetOf(desk_, leaf_);
  return runLong({bytes, bytes}, [&, way](const platform::Progress& progress) {
    auto& files = desk_.files();
    return way == Way::OverProtected ? files.replaceFile(source, target, progress)
                                     : files.copyFile(source, target, way == Way::Over, progress);
  });
}

bool Copy::targetExists(const platform::Error& error) const {
  using platform::ErrorCode;
  return (error.code == ErrorCode::AlreadyThere || error.code == ErrorCode::SameEntry) &&
         desk_.files().fileExists(targetOf(desk_, leaf_));
}

Operation::Item Copy::folder() {
  auto& form = desk_.form;
  const std::string item = form.CurrentItem, target = targetOf(desk_, leaf_);
  const bool isLong = core::characterCount(item) >= LongFolder;
  showItem((isLong ? "Processing.. " : "Processing...  ") +
           (isLong ? std::string(core::lastCharacters(item, LongFolderKept)) : item));
  if (liesInItem()) {
    stieqopen();
    return refused();
  }
  if (isOwnTarget()) {
    stieq();
    return refused();
  }
  const bool isThere = desk_.files().folderExists(target);
  if (isThere && !mayMerge(target)) return Item::PassedOver;
  desk_.pointer() = Hourglass;
  if (!isThere) RefreshTreeNeeded_ = true;
  platform::LeftOuts leftOut;
  const auto copied = runFolder([&](const platform::FolderProgress& progress) {
    return desk_.files().copyFolder(item, target, true, progress, &leftOut);
  });
  return cameOut(copied, leftOut);
}

bool Copy::mayMerge(const std::string& target) {
  desk_.pointer() = Default;
  const core::Answer answer = desk_.program.dialogs.ask(
      "Folder:  " + core::shortened(target, LongQuestion + 1, LongQuestion) + "\r\rAlready Exist !, OverWrite ?");
  return answer == core::Answer::Yes || answer == core::Answer::All;
}

void Copy::counted() {
  if (form10_.AttrAnswer == AttributeAnswer::CancelAll) return;
  if (form10_.AttrAnswer != AttributeAnswer::All) form10_.AttrAnswer = AttributeAnswer::None;
  const bool leftOut = form7_.OverwriteAnswer == Overwrite::Skip || form7_.OverwriteAnswer == Overwrite::RenameTarget;
  dialog_.ProgressBar1.Visible = !leftOut;
  if (!leftOut) PogressCal(desk_.form, dialog_, tally_);
}

void Copy::ended(bool /*normally*/) {
  form7_.OverwriteAnswer = Overwrite::None;
  form10_.AttrAnswer = AttributeAnswer::None;
}

void Copy::refreshPanels() {
  panels::Panel* source = desk_.form.activePanel();
  if (!source) return;
  desk_.listing.ViewClearItems(desk_.form.otherPanel(*source));
  source->list.SetFocus();
}

}  // namespace varnholt::fileops

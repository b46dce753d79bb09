#include "fileops/copy.hpp"

#include "core/text_character.hpp"
#include "fileops/progress.hpp"

namespace varnholt::fileops {
namespace {

using controls::pointer::Default;
using controls::pointer::Hourglass;

constexpr std::size_t LongFolder = 56, LongFolderKept = 45;
constexpr std::size_t LongQuestion = 120;

}  // namespace

Operation::Item Copy::file() {
  auto& form = context_.form;
  if (form.SourcePath == context_.target(leaf_)) {
    stieq();
    return Item::EndsAll;
  }
  showItem("Processing... " + form.CurrentItem);
  const bool targetExists = context_.files().fileExists(context_.target(leaf_));
  const Outcome outcome = targetExists ? policy_.decide(leaf_) : Outcome::Copy;
  if (outcome == Outcome::Ends) return Item::EndsLoop;
  if (outcome == Outcome::Skipped || form.RenameCancelled) return Item::Done;
  const std::uint64_t bytes = fileBytes(form.SourcePath);
  if (outcome == Outcome::Copy) copyFile(bytes, targetExists && form7_.OverwriteAnswer != Overwrite::RenameTarget);
  form.BytesDone += static_cast<double>(bytes);
  return Item::Done;
}

// Nothing is replaced but what the user was asked about: a target that comes up in between stays.
void Copy::copyFile(std::uint64_t bytes, bool overwrite) {
  context_.pointer() = Hourglass;
  const std::string source = context_.form.SourcePath, target = context_.target(leaf_);
  run(bytes, [&] { (void)context_.files().copyFile(source, target, overwrite); });
}

Operation::Item Copy::folder() {
  auto& form = context_.form;
  const std::string item = form.CurrentItem, target = context_.target(leaf_);
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
  const bool targetExists = context_.files().folderExists(target);
  if (targetExists && !mayMerge(target)) return Item::PassedOver;
  context_.pointer() = Hourglass;
  if (!targetExists) RefreshTreeNeeded_ = true;
  context_.program.loop.runBlocking([&] { (void)context_.files().copyFolder(item, target, true); });
  form.BytesDone += static_cast<double>(folderBytes(item));
  return Item::Done;
}

bool Copy::mayMerge(const std::string& target) {
  context_.pointer() = Default;
  const core::Answer answer = context_.program.dialogs.ask(
      "Folder:  " + core::shortened(target, LongQuestion + 1, LongQuestion) + "\r\rAlready Exist !, OverWrite ?");
  return answer == core::Answer::Yes || answer == core::Answer::All;
}

void Copy::counted() {
  if (form10_.AttrAnswer == AttributeAnswer::CancelAll) return;
  if (form10_.AttrAnswer != AttributeAnswer::All) form10_.AttrAnswer = AttributeAnswer::None;
  const bool leftOut = form7_.OverwriteAnswer == Overwrite::Skip || form7_.OverwriteAnswer == Overwrite::RenameTarget;
  dialog_.ProgressBar1.Visible = !leftOut;
  if (!leftOut) PogressCal(context_.form, dialog_);
}

void Copy::ended(bool normally) {
  if (normally) form7_.OverwriteAnswer = Overwrite::None;
  form10_.AttrAnswer = AttributeAnswer::None;
}

void Copy::refreshPanels() {
  panels::Panel* source = context_.form.activePanel();
  if (!source) return;
  context_.listing.ViewClearItems(context_.form.otherPanel(*source));
  source->list.SetFocus();
}

}  // namespace varnholt::fileops

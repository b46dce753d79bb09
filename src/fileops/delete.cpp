#include "fileops/delete.hpp"

#include "core/text_character.hpp"
#include "fileops/progress.hpp"

#include <algorithm>

namespace varnholt::fileops {
namespace {

using controls::pointer::Default;
using controls::pointer::Hourglass;

constexpr std::size_t LongQuestion = 100, LongQuestionKept = 95;

}  // namespace

Delete::Delete(const Context& context, Form4& dialog, Space& space, Form10& form10)
    : Operation(context, dialog), form10_(form10) {
  dialog.Command3.Click = [&space, &dialog] { space.selectsize(dialog); };
}

bool Delete::mayOpen() {
  if (driveReady(*context_.form.activePanel())) return true;
  alert("Drive(s) Not ready !\rFunction Exits !");
  return false;
}

Operation::Begin Delete::mayBegin() {
  auto& dialogs = context_.program.dialogs;
  dialogs.Form11.Command2.Visible = false;
  form10_.AttrAnswer = AttributeAnswer::None;
  if (dialogs.AskRetry("Warning!,- Direct deleting  " + std::to_string(context_.form.SelectedCount) +
                       " File(s)/Folder(s) ? \rPlease use options ..."))
    return Begin::Loop;
  dialog_.Hide();
  context_.selection.ClickPane();
  return Begin::Closed;
}

Operation::Item Delete::folder() {
  auto& form = context_.form;
  const std::string item = form.CurrentItem;
  const platform::TreeSize size = treeSize(item);
  if (dialog_.StopFlag) return Item::Stopped;
  if (size.bytes > 0 && !mayDeleteTree()) return Item::Left;
  showItem("Processing... " + item);
  RefreshTreeNeeded_ = true;
  platform::LeftOuts leftOut;
  const auto deleted = runLong({size.bytes, size.files + size.folders + 1}, [&](const platform::Progress& progress) {
    return context_.files().deleteFolder(item, true, progress, &leftOut);
  });
  form.BytesDone += static_cast<double>(size.bytes);
  PogressCal(form, dialog_);
  return cameOut(deleted, leftOut);
}

bool Delete::mayDeleteTree() {
  auto& dialogs = context_.program.dialogs;
  if (dialogs.Form11.AlertAnswer == core::Answer::All) return true;
  dialog_.hideProgress();
  context_.pointer() = Default;
  dialogs.Form11.Command2.Visible = true;
  const core::Answer answer = dialogs.ask(
      "Folder is NOT Emty !\rDeleting  " +
      core::shortened(context_.form.CurrentItem, LongQuestion + 1, LongQuestionKept) + "\r Subfolders and Files ?");
  dialogs.Form11.Command2.Visible = false;
  context_.pointer() = Hourglass;
  if (answer == core::Answer::Yes || answer == core::Answer::All) {
    dialog_.showProgress("Processing...");
    return true;
  }
  dialog_.ProgressBar1.Visible = true;
  return false;
}

Operation::Item Delete::file() {
  auto& form = context_.form;
  showItem("Processing... " + form.CurrentItem);
  if (const auto done = doneInBatch()) {
    form.BytesDone += static_cast<double>(*done);
    PogressCal(form, dialog_);
    return Item::Done;
  }
  const auto facts = context_.files().info(form.SourcePath);
  const platform::Attributes attributes = facts ? facts->attributes : 0;
  if (attributes != platform::attribute::Archive && form10_.AttrAnswer != AttributeAnswer::All) {
    form10_.AttrAnswer = AttributeAnswer::None;
    context_.pointer() = Default;
    form10_.atribtrap(attributes, form.CurrentItem);
    context_.pointer() = Hourglass;
  }
  if (form10_.AttrAnswer == AttributeAnswer::CancelAll) return Item::EndsLoop;
  if (form10_.AttrAnswer == AttributeAnswer::Skip) {
    form10_.AttrAnswer = AttributeAnswer::None;
    return Item::Left;
  }
  const bool force = form10_.AttrAnswer == AttributeAnswer::ThisItem || form10_.AttrAnswer == AttributeAnswer::All;
  if (form10_.AttrAnswer == AttributeAnswer::ThisItem) form10_.AttrAnswer = AttributeAnswer::None;
  const std::string file = form.SourcePath;
  const auto deleted = runLong({}, [&](const platform::Progress&) { return context_.files().deleteFile(file, force); });
  form.BytesDone += facts ? static_cast<double>(facts->size) : 0;
  PogressCal(form, dialog_);
  return cameOut(deleted);
}

platform::BatchResults Delete::batch(const std::string& folder, const std::vector<std::string>& names,
                                     const std::string& /*to*/, const platform::Progress& progress) {
  return context_.files().deleteFiles(folder, names, progress);
}

bool Delete::verify() {
  const std::string& item = context_.form.SourcePath;
  if (!exists(item)) return true;
  const std::string question = VerifyFolderMode_
                                   ? "Varnholt Was Not Able To Delete Folder:  \r" + context_.form.CurrentItem +
                                         "  On Target !Unknown Reason, But Media Not Accessable/ReadOnly  !"
                                   : "Varnholt Was Not Able To Delete File:  \r" + context_.form.CurrentItem +
                                         "  On Target !Unknown Reason, But Media Not Accessable/ReadOnly !";
  return context_.program.dialogs.AskRetry(question);
}

void Delete::ended(bool /*normally*/) {
  form10_.AttrAnswer = AttributeAnswer::None;
  context_.program.dialogs.Form11.Command2.Visible = false;
  context_.program.dialogs.Form11.AlertAnswer = core::Answer::None;
}

// The row that takes the place of the deleted ones gets the focus, so that the user goes on where he was.
void Delete::refreshPanels() {
  panels::Panel* active = context_.form.activePanel();
  if (!active) return;
  const auto row = active->list.focusedRow();
  active->list.SetFocus();
  context_.listing.viewupdate();
  context_.listing.ViewClearItems(*active);
  if (!row || active->list.count() == 0) return;
  const std::uint32_t next = std::min(*row, active->list.count() - 1);
  active->list.focusRow(next);
  active->list.ensureVisible(next);
}

}  // namespace varnholt::fileops

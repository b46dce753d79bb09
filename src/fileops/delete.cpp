#include "fileops/delete.hpp"

#include "core/text_character.hpp"
#include "fileops/progress.hpp"

namespace varnholt::fileops {
namespace {

using controls::pointer::Default;
using controls::pointer::Hourglass;

constexpr std::size_t LongQuestion = 100, LongQuestionKept = 95;

}  // namespace

Delete::Delete(panels::Desk& desk, Form4& dialog, Space& space, Form10& form10)
    : Operation(desk, dialog), form10_(form10) {
  dialog.Command3.Click = [&space, &dialog] { space.selectsize(dialog); };
}

bool Delete::mayOpen() {
  if (driveReady(*desk_.form.activePanel())) return true;
  alert("Drive(s) Not ready !\rFunction Exits !");
  return false;
}

Operation::Begin Delete::mayBegin() {
  auto& dialogs = desk_.program.dialogs;
  dialogs.Form11.Command2.Visible = false;
  form10_.AttrAnswer = AttributeAnswer::None;
  if (dialogs.AskRetry("Warning!,- Direct deleting  " + std::to_string(tally_.SelectedCount) +
                       " File(s)/Folder(s) ? \rPlease use options ..."))
    return Begin::Loop;
  dialog_.Hide();
  desk_.selection.ClickPane();
  return Begin::Closed;
}

Operation::Item Delete::folder() {
  auto& form = desk_.form;
  const std::string item = form.CurrentItem;
  const platform::TreeSize size = treeSize(item);
  if (dialog_.StopFlag) return Item::Stopped;
  if (size.bytes > 0 && !mayDeleteTree()) return Item::Left;
  showItem("Processing... " + item);
  RefreshTreeNeeded_ = true;
  platform::LeftOuts leftOut;
  const auto deleted = runLong({size.bytes, size.files + size.folders + 1}, [&](const platform::Progress& progress) {
    return desk_.files().deleteFolder(item, true, progress, &leftOut);
  });
  tally_.BytesDone += static_cast<double>(size.bytes);
  PogressCal(form, dialog_, tally_);
  return cameOut(deleted, leftOut);
}

bool Delete::mayDeleteTree() {
  auto& dialogs = desk_.program.dialogs;
  if (dialogs.Form11.AlertAnswer == core::Answer::All) return true;
  dialog_.hideProgress();
  desk_.pointer() = Default;
  dialogs.Form11.Command2.Visible = true;
  const core::Answer answer = dialogs.ask("Folder is NOT Emty !\rDeleting  " +
                                          core::shortened(desk_.form.CurrentItem, LongQuestion + 1, LongQuestionKept) +
                                          "\r Subfolders and Files ?");
  dialogs.Form11.Command2.Visible = false;
  desk_.pointer() = Hourglass;
  if (answer == core::Answer::Yes || answer == core::Answer::All) {
    dialog_.showProgress("Processing...");
    return true;
  }
  dialog_.ProgressBar1.Visible = true;
  return false;
}

Operation::Item Delete::file() {
  auto& form = desk_.form;
  showItem("Processing... " + form.CurrentItem);
  if (const auto done = doneInBatch()) {
    tally_.BytesDone += static_cast<double>(*done);
    PogressCal(form, dialog_, tally_);
    return Item::Done;
  }
  const auto facts = desk_.files().info(form.SourcePath);
  const platform::Attributes attributes = facts ? facts->attributes : 0;
  if (attributes != platform::attribute::Archive && form10_.AttrAnswer != AttributeAnswer::All) {
    form10_.AttrAnswer = AttributeAnswer::None;
    desk_.pointer() = Default;
    form10_.atribtrap(attributes, form.CurrentItem);
    desk_.pointer() = Hourglass;
  }
  if (form10_.AttrAnswer == AttributeAnswer::CancelAll) return Item::EndsLoop;
  if (form10_.AttrAnswer == AttributeAnswer::Skip) {
    form10_.AttrAnswer = AttributeAnswer::None;
    return Item::Left;
  }
  const bool force = form10_.AttrAnswer == AttributeAnswer::ThisItem || form10_.AttrAnswer == AttributeAnswer::All;
  if (form10_.AttrAnswer == AttributeAnswer::ThisItem) form10_.AttrAnswer = AttributeAnswer::None;
  const std::string file = form.SourcePath;
  const auto deleted = runLong({}, [&](const platform::Progress&) { return desk_.files().deleteFile(file, force); });
  tally_.BytesDone += facts ? static_cast<double>(facts->size) : 0;
  PogressCal(form, dialog_, tally_);
  return cameOut(deleted);
}

platform::BatchResults Delete::batch(const std::string& folder, const std::vector<std::string>& names,
                                     const std::string& /*to*/, const platform::Progress& progress) {
  return desk_.files().deleteFiles(folder, names, progress);
}

bool Delete::verify() {
  const std::string& item = desk_.form.SourcePath;
  if (!exists(item)) return true;
  const std::string question = VerifyFolderMode_
                                   ? "Varnholt Was Not Able To Delete Folder:  \r" + desk_.form.CurrentItem +
                                         "  On Target !Unknown Reason, But Media Not Accessable/ReadOnly  !"
                                   : "Varnholt Was Not Able To Delete File:  \r" + desk_.form.CurrentItem +
                                         "  On Target !Unknown Reason, But Media Not Accessable/ReadOnly !";
  return desk_.program.dialogs.AskRetry(question);
}

void Delete::ended(bool /*normally*/) {
  form10_.AttrAnswer = AttributeAnswer::None;
  desk_.program.dialogs.Form11.Command2.Visible = false;
  desk_.program.dialogs.Form11.AlertAnswer = core::Answer::None;
}

void Delete::refreshPanels() {
  panels::Panel* active = desk_.form.activePanel();
  if (!active) return;
  active->list.SetFocus();
  desk_.listing.viewupdate();
  desk_.listing.ViewClearItems(*active);
}

}  // namespace varnholt::fileops

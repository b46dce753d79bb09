#include "fileops/operation.hpp"
#include "fileops/item_in_hand.hpp"

#include "core/item_text.hpp"
#include "core/text_character.hpp"
#include "fileops/progress.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <atomic>
#include <chrono>

namespace varnholt::fileops {
namespace {

namespace paths = platform::paths;
using controls::pointer::Default;
using controls::pointer::Hourglass;

constexpr std::size_t LongPath = 53, LongPathKept = 47;
constexpr std::size_t LongItem = 35, LongName = 60;
// From so many items on files are handled in batches, which grow and shrink so that each takes about as long as the
// screen shows one picture.
constexpr std::size_t LargeSelection = 200, FirstBatch = 16, LargestBatch = 512;
constexpr std::chrono::milliseconds ShortBatch{5}, LongBatch{16};
// Where a batch could do nothing, the next files are likely to be of the same kind.
constexpr std::size_t PauseItems = 16;

std::string shortPath(std::string_view path) { return core::shortened(path, LongPath, LongPathKept); }

}  // namespace

Operation::Operation(panels::Desk& desk, OperationForm& dialog) : desk_(desk), dialog_(dialog), asked_(&dialog) {
  dialog.Command11.Click = [this] { run(); };
  dialog.Command2.Click = [this] { Command2_Click(); };
}

// --- Hand-over -----------------------------------------------------------------------------------------------------

void Operation::start() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  handOver(nullptr);
  close();
}

void Operation::start(const std::vector<core::Item>& items) {
  if (!desk_.dispatcher.panelPreCheck()) return;
  handOver(&items);
  close();
}

void Operation::collect(const std::vector<core::Item>* items) {
  auto& form = desk_.form;
  if (!items) {
    desk_.selection.ViewClickCopy(*form.activePanel());
    return;
  }
  desk_.selection.resetcollect();
  for (const core::Item& item : *items)
    form.filecollect.push(item);
}

void Operation::handOver(const std::vector<core::Item>* items) {
  auto& form = desk_.form;
  collect(items);
  sourceFolder_ = form.activePanel()->path();
  form.setMode(modeWord());
  asked_->Label4.Caption = "";
  tally_.SelectedCount = form.filecollect.count();
  form.CurrentItem = form.filecollect.popc().path;
  desk_.dispatcher.Fileident();
  if (form.CurrentItem.empty()) {
    desk_.selection.ClickPane();
    desk_.selection.nonselect();
    return;
  }
  if (!mayOpen()) return;
  fillDialog();
  if (!items) markRows();
  opening();
  executed_ = false;
  dialog_.ShowModal();
  closed(executed_);
}

void Operation::fillDialog() {
  auto& form = desk_.form;
  const OperationWords& words = dialog_.words;
  dialog_.Caption = words.caption;
  asked_->summary.Text = words.verb + " " + std::to_string(tally_.SelectedCount) + " selected File(s) / Folder(s)";
  if (form.filecollect.count() < 2) {
    if (form.filecollect.popc().isFolder) form.CurrentItem = "Folder:  " + form.CurrentItem;
    const bool isLong = core::characterCount(form.SourcePath) >= LongPath;
    showItem(isLong ? shortPath(form.SourcePath) : form.CurrentItem);
  } else {
    showItem("Multi" + words.verb + " Selected !");
  }
  asked_->Text3.Text = shortPath(folderShown());
}

// The return from the dialog, whatever its outcome; also when it was never shown.
void Operation::close() {
  desk_.selection.resetcollect();
  desk_.dispatcher.resetval();
  showItem("");
  asked_->Text3.Text = "";
  desk_.listing.ColorReset();
  desk_.listing.FocusView();
  desk_.selection.ResetView();
  dialog_.hideProgress();
  dialog_.Hide();
  desk_.dispatcher.commandDone();
}

void Operation::Command2_Click() {
  desk_.dispatcher.busy = false;
  dialog_.Hide();
}

// --- The loop ------------------------------------------------------------------------------------------------------

void Operation::run() {
  const Begin answer = mayBegin();
  if (answer == Begin::Closed) return;
  executed_ = answer == Begin::Loop;
  if (answer == Begin::Ending) return end(Ending::Straight);
  begin();
  const Ending ending = loop();
  if (changed_) changed();
  end(ending);
}

void Operation::begin() {
  dialog_.showProgress("Processing...");
  dialog_.StopFlag = false;
  RefreshTreeNeeded_ = false;
  changed_ = false;
  tally_.ItemsDone = 0;
  tally_.BytesDone = 0;
  tally_.ItemsTotal = items().count();
  batch_.clear();
  batchSize_ = FirstBatch;
  batchPause_ = 0;
  dialog_.setRunning(true);
  desk_.pointer() = Hourglass;
}

Operation::Ending Operation::loop() {
  const auto showCount = [this] { dialog_.showCount(tally_.ItemsDone + 1, tally_.SelectedCount); };
  while (!items().empty()) {
    if (turn() == Turn::BeforeTaking) {
      showCount();
      if (stopAsked()) return Ending::Aborted;
    }
    takeNext();
    if (turn() != Turn::BeforeTaking) showCount();
    if (turn() == Turn::BeforeItem && stopAsked()) return Ending::Aborted;
    if (!sourceStands()) return Ending::Normal;
    const Item item = VerifyFolderMode_ ? folder() : file();
    if (item == Item::EndsAll) return Ending::Straight;
    if (item == Item::EndsLoop) return Ending::Normal;
    if (item == Item::Stopped) return Ending::Aborted;
    if (item != Item::PassedOver) {
      ++tally_.ItemsDone;
      counted();
    }
    if (turn() == Turn::AfterItem && stopAsked()) return Ending::Aborted;
    if (item == Item::Done && !succeeded_ && !verify()) return Ending::Normal;
  }
  return Ending::Normal;
}

void Operation::takeNext() {
  auto& form = desk_.form;
  core::Item item = items().pop();
  form.CurrentItem = std::move(item.path);
  pbar_beregning(form, tally_);
  identify();
  succeeded_ = false;
  failure_.reset();
  VerifyFolderMode_ = item.isFolder;
  leaf_ = std::string(paths::fileName(form.CurrentItem));
}

bool Operation::stopAsked() {
  // What is done cannot be stopped.
  if (!batch_.empty()) return false;
  desk_.program.loop.giveTurn();
  return dialog_.StopFlag;
}

std::string Operation::sourceFolder() const {
  const panels::Panel* source = desk_.form.activePanel();
  return source ? source->path() : std::string();
}

std::string Operation::targetFolder() const {
  const panels::Panel* source = desk_.form.activePanel();
  return source ? desk_.form.otherPanel(*source).path() : std::string();
}

bool Operation::sourceStands() const {
  const panels::Panel* source = desk_.form.activePanel();
  return source && source->path() == sourceFolder_;
}

// --- Batches -------------------------------------------------------------------------------------------------------

std::optional<std::uint64_t> Operation::doneInBatch() {
  if (batch_.empty()) runBatch();
  if (batch_.empty()) return {};
  const std::optional<std::uint64_t> bytes = batch_.front();
  batch_.pop_front();
  if (bytes) (void)cameOut({});
  return bytes;
}

// The files of the folder from the one in hand on.
std::vector<std::string> Operation::nextNames(const std::string& folder, std::size_t count) {
  std::vector<std::string> names{leaf_};
  const bool isSource = folder == sourceFolder();
  const auto& next = items().items();
  for (auto item = next.rbegin(); item != next.rend() && names.size() < count; ++item) {
    const std::string_view path = item->path, name = paths::fileName(path);
    const std::string_view itsFolder = path.substr(0, path.size() - name.size());
    if (item->isFolder || (itsFolder.empty() ? !isSource : itsFolder != folder)) break;
    names.emplace_back(name);
  }
  return names;
}

void Operation::runBatch() {
  if (tally_.ItemsTotal < LargeSelection) return;
  if (batchPause_ > 0) {
    --batchPause_;
    return;
  }
  const auto from = std::chrono::steady_clock::now();
  const std::string folder = paths::parent(desk_.form.SourcePath), to = desk_.form.TargetPath;
  const std::vector<std::string> names = nextNames(folder, batchSize_);
  platform::BatchResults results;
  (void)runLong({}, [&](const platform::Progress& progress) {
    results = batch(folder, names, to, progress);
    return platform::Result<void>();
  });
  for (const auto& result : results)
    batch_.push_back(result ? std::optional(*result) : std::nullopt);
  if (batch_.empty()) batchPause_ = PauseItems;
  const auto took = std::chrono::steady_clock::now() - from;
  if (took < ShortBatch) batchSize_ = std::min(batchSize_ * 2, LargestBatch);
  if (took > LongBatch) batchSize_ = std::max<std::size_t>(batchSize_ / 2, 1);
}

// --- The ending ----------------------------------------------------------------------------------------------------

void Operation::end(Ending ending) {
  if (ending == Ending::Aborted) {
    dialog_.Caption = dialog_.words.verb + " Process Aborted. !";
    alert(dialog_.words.verb + " Process Aborted. !");
  }
  dialog_.Hide();
  ended(ending == Ending::Normal);
  desk_.navigation.leaveVanished();
  refreshPanels();
  if (RefreshTreeNeeded_) desk_.trees.redraw();
  desk_.dispatcher.resetval();
  desk_.selection.resetcollect();
  dialog_.Caption = dialog_.words.caption;
  desk_.pointer() = Default;
  desk_.dispatcher.busy = false;
  VerifyFolderMode_ = false;
  dialog_.StopFlag = false;
  dialog_.setRunning(false);
  leftOut_.tell();
}

// --- Shared --------------------------------------------------------------------------------------------------------

platform::Result<void> Operation::runLong(const Extent& extent, const LongCall& call) {
  platform::Result<void> result;
  std::atomic<std::uint64_t> done = 0;
  const platform::Progress progress = [&](std::uint64_t count) {
    done = count;
    return !dialog_.StopFlag;
  };
  const auto showShare = [&] {
    if (extent.whole == 0) return;
    showShareOfItem(desk_.form, dialog_, tally_, static_cast<double>(extent.bytes),
                    static_cast<double>(done) / static_cast<double>(extent.whole));
  };
  desk_.program.loop.runBlocking([&] { result = call(progress); }, {showShare, &dialog_.stopButton()});
  pbar_beregning(desk_.form, tally_);
  return result;
}

platform::Result<void> Operation::runFolder(const FolderCall& call) {
  platform::Result<void> result;
  std::atomic<double> bytes = 0, share = 0;
  const platform::FolderProgress progress = [&](const platform::FolderAdvance& advance) {
    bytes = static_cast<double>(advance.bytes);
    share = advance.share;
    return !dialog_.StopFlag;
  };
  // What is to come is taken to be like what is done.
  const auto showShare = [&] { showShareOfItem(desk_.form, dialog_, tally_, share > 0 ? bytes / share : 0, share); };
  desk_.program.loop.runBlocking([&] { result = call(progress); }, {showShare, &dialog_.stopButton()});
  pbar_beregning(desk_.form, tally_);
  tally_.BytesDone += bytes;
  return result;
}

platform::TreeSize Operation::treeSize(const std::string& folder) {
  platform::TreeSize size;
  (void)runLong({}, [&](const platform::Progress& progress) {
    size = fileops::treeSize(desk_, folder, progress);
    return platform::Result<void>();
  });
  return size;
}

Operation::Item Operation::cameOut(const platform::Result<void>& result, const platform::LeftOuts& leftOut) {
  const bool stopped = !result && result.error().code == platform::ErrorCode::Stopped;
  succeeded_ = result.ok();
  changed_ = changed_ || result || stopped || !leftOut.empty();
  leftOut_.add(leftOut);
  if (!result && !stopped && leftOut.empty()) failure_ = result.error();
  return stopped ? Item::Stopped : Item::Done;
}

void Operation::noteFailure() {
  if (failure_) leftOut_.add(*failure_);
}

std::uint64_t Operation::fileBytes(const std::string& file) const { return desk_.files().fileSize(file).valueOr(0); }

bool Operation::exists(const std::string& path) const {
  return VerifyFolderMode_ ? desk_.files().folderExists(path) : desk_.files().fileExists(path);
}

bool Operation::driveReady(const panels::Panel& panel) { return desk_.program.driveReady(panel.driveRoot().front()); }

// --- Operations with a target --------------------------------------------------------------------------------------

TargetOperation::TargetOperation(panels::Desk& desk, TargetForm& dialog, Space& space, Form32& nameDialog)
    : Operation(desk, dialog), target_(&dialog), space_(space) {
  asNewName_.emplace(desk, dialog, nameDialog);
  dialog.Command3.Click = [this] { space_.selectsize(*target_); };
  dialog.Command4.Click = [this] { Command4_Click(); };
  dialog.Command5.Click = [this] { Command5_Click(); };
}

void TargetOperation::opening() {
  auto& form = desk_.form;
  initFolder_ = form.otherPanel(*form.activePanel()).path();
  desk_.browser.Check1.Value = 0;
  desk_.browser.Check2.Value = 0;
  const core::Item item = form.filecollect.popc();
  target_->Command5.Enabled =
      form.filecollect.count() == 1 && !item.isFolder && desk_.files().fileExists(form.SourcePath);
}

// The chosen folder becomes the other panel's, so that all tests of the target speak of it.
void TargetOperation::Command4_Click() {
  auto& form = desk_.form;
  panels::Panel* source = form.activePanel();
  const auto folder = desk_.browser.browse(target_->words.caption);
  if (!source || !folder) return;
  if (!desk_.navigation.goTo(form.otherPanel(*source), *folder)) return;
  form.TargetPath = form.otherPanel(*source).path();
  target_->Text3.Text = shortPath(form.TargetPath);
  target_->Command11.SetFocus();
}

// The loop takes the file from the work folder, where it bears its new name.
void TargetOperation::Command5_Click() {
  auto& form = desk_.form;
  const auto file =
      asNewName_->begin(form.SourcePath, takesAway(), [this](const LongCall& call) { return runAlone(call); });
  if (!file) return;
  form.filecollect.reset();
  form.filecollect.push({*file, false});
  target_->Command5.Enabled = false;
  const std::string name(paths::fileName(*file));
  showItem(name);
  target_->Text3.Text = name;
  target_->Command11.SetFocus();
}

// One call in front of the loop, which can be stopped as those of the loop.
platform::Result<void> TargetOperation::runAlone(const LongCall& call) {
  const std::uint64_t bytes = fileBytes(desk_.form.SourcePath);
  tally_.ItemsDone = 0;
  tally_.BytesDone = 0;
  dialog_.StopFlag = false;
  dialog_.showProgress("Processing...");
  dialog_.setRunning(true);
  const auto result = runLong({bytes, bytes}, call);
  dialog_.setRunning(false);
  dialog_.hideProgress();
  dialog_.StopFlag = false;
  target_->Command5.Enabled = true;
  return result;
}

void TargetOperation::closed(bool executed) {
  auto& form = desk_.form;
  if (asNewName_) asNewName_->end();
  const bool goesBack = executed ? desk_.browser.Check2.Value : desk_.browser.Check1.Value;
  panels::Panel& panel = form.otherPanel(*form.activePanel());
  if (goesBack && panel.path() != initFolder_) desk_.navigation.goTo(panel, initFolder_);
}

Operation::Begin TargetOperation::mayBegin() {
  auto& answer = desk_.program.dialogs.Form11.AlertAnswer;
  answer = core::Answer::None;
  const bool SpaceProblem = space_.DiskAvailable(moving(), sourceFolder(), targetFolder());
  if (SpaceProblem && (answer == core::Answer::None || answer == core::Answer::No)) return Begin::Ending;
  if (desk_.form.Menu.checked("ValCopyMove") &&
      !space_.ValidateSpaceNeeded(dialog_, items(), sourceFolder(), targetFolder()))
    return Begin::Ending;
  return Begin::Loop;
}

bool TargetOperation::verify() {
  if (exists(targetOf(desk_, leaf_))) {
    noteFailure();
    return true;
  }
  std::string question = "Varnholt Was Not Able To Create File/Folder On Target !\r"
                         "Unknown Reason, But Media Not Accessable !";
  if (failure_) question += "\r" + core::shortened(leaf_, LongName + 1, LongName) + " :  " + failure_->text;
  return desk_.program.dialogs.AskRetry(question);
}

void TargetOperation::changed() {
  const std::string target = desk_.form.TargetPath;
  bool wait = false;
  (void)runLong({}, [&](const platform::Progress&) {
    const auto volume = desk_.files().volume(target);
    wait = volume && volume->mayBePulledOut();
    return platform::Result<void>();
  });
  wait = wait && !dialog_.StopFlag;
  if (wait) dialog_.showProgress("Processing...");
  const auto written =
      runLong({}, [&](const platform::Progress& progress) { return desk_.files().writeOut(target, wait, progress); });
  if (written || written.error().code == platform::ErrorCode::Stopped) return;
  leftOut_.add({written.error().code, target, "not written out to the medium: " + written.error().text});
}

void TargetOperation::stieqopen() {
  desk_.pointer() = Default;
  const std::string& item = desk_.form.CurrentItem;
  const std::string name =
      core::characterCount(item) > LongItem ? "\\..." + std::string(core::lastCharacters(item, LongItem)) : "\\" + item;
  alert("Cannot Copy Or Move Item : \r" + name + "\rInto Itself !");
}

bool TargetOperation::liesInItem() const {
  const std::string item = platform::foldCase(desk_.form.CurrentItem);
  return platform::foldCase(desk_.form.TargetPath).starts_with(item);
}

bool TargetOperation::isOwnTarget() const {
  return platform::foldCase(desk_.form.CurrentItem) == platform::foldCase(targetOf(desk_, leaf_));
}

}  // namespace varnholt::fileops

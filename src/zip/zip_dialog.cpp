#include "zip/zip_dialog.hpp"

#include "controls/dress.hpp"
#include "controls/placing.hpp"
#include "core/error_words.hpp"
#include "core/text_character.hpp"
#include "core/val_input_rule.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <utility>

namespace varnholt::zip {
namespace {

namespace paths = platform::paths;

constexpr const char* Title = "Zip File Options";
constexpr const char* FolderMark = "< Folder >";
constexpr const char* Empty = "Key in Zip File Name !.";
constexpr std::string_view AllFiles = "*.*";
constexpr const char* StoredAs = "stored as ";
constexpr std::size_t LongTitle = 60;
constexpr std::size_t LastOfBatch = 900;
constexpr std::uint32_t RowsPerTurn = 50;
constexpr int FolderIcon = 1, FileIcon = 2;

/// The path of a row's item. Of a folder, the first column alone is its path.
std::string itemOf(const controls::ListItem& row) {
  return row.Text() + (row.SubItems(1) == FolderMark ? "" : row.SubItems(1));
}

}  // namespace

Form41::Form41(panels::Desk& desk)
    : Form(desk.program.loop, "Form41"), library(desk.program), desk_(desk), work_(desk.program.loop) {
  Caption = Title;
  ListView1.ImageList = std::map<int, std::string>{{FolderIcon, "folder"}, {FileIcon, "file"}};
  ListView1.ColumnHeaders = std::vector<controls::ColumnHeader>{{"Path:", 5400, 0, false}, {"Name:", 3600, 0, false}};
  ListView1.setSorted(false);
  defaultButton = "Command1";
  cancelButton = "Command2";
  setTexts();
  bind();
  setRunning(false);
}

void Form41::setTexts() {
  Label1.Caption = "&Path:";
  Label2.Caption = "Zip &File:";
  Label3.Caption = "Entries In View :  0";
  dress(Text1, "Output path", "Output Path For Compressed Zip File. Use Browse Button To Change Drive/Folder");
  Text1.Locked = true;
  dress(Text2, "Zip file name", "Key Valid Zip File Name, With Extension .Zip");
  dress(Text3, "Progress in words", "How much of the items is in the zip file");
  Text3.Locked = true;
  Text3.Visible = false;
  dress(Check1, "&Recurse SubFolders", "Pack folders with all that is below them");
  dress(Check2, "Store FolderNa&mes", "Names in the archive begin with their folders");
  dress(Command1, "E&xecute", "Make the zip file");
  dress(Command2, "&Cancel", "Exits without any changes.");
  dress(Command3, "&Delete", "Delete Selected Item(s) In View");
  dress(Command4, "&Stop", "Stop Operation !");
  dress(Command5, "&Browse", "Choose the folder for the zip file");
  ListView1.AccessibleName = "Items to zip";
  ListView1.ToolTipText = "Selected Items To Zip. Dbl. Click To Open File.";
  ProgressBar1.AccessibleName = "Progress";
  ProgressBar1.ToolTipText = "How much of the items is in the zip file";
}

void Form41::bind() {
  Load = [this] { Form_Load(); };
  QueryUnload = [this](bool& keep) {
    keep = running_;
    if (keep) Command4_Click();
  };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { UnloadForm(); };
  Command3.Click = [this] { Command3_Click(); };
  Command4.Click = [this] { Command4_Click(); };
  Command5.Click = [this] { Command5_Click(); };
  ListView1.Click = [this] { showTitle(); };
  ListView1.KeySelect = [this](bool) { showTitle(); };
  ListView1.DblClick = [this] { ListView1_DblClick(); };
  ListView1.KeyDown = [this](controls::KeyEvent& event) {
    event.handled = event.code == controls::key::Delete;
    if (event.handled) Command3.press();
  };
  zip_.Progress = [this](const std::string& line) { takeMessage(line); };
  zip_.Service = [this](const std::string&, bool& cancel) {
    ++done_;
    cancel = cancel || !work_.goesOn();
  };
}

bool Form41::open(const std::string& folder, const std::vector<core::Item>& items) {
  made_ = false;
  Text1.Text = folder;
  showRows(folder, items);
  ShowModal();
  library.close();
  return made_;
}

void Form41::Form_Load() {
  if (Text2.Text->empty() || Text2.isPrompting()) Text2.Text = "MyZip.Zip";
  ProgressBar1.Value = 0;
  showTitle();
}

// --- The rows ------------------------------------------------------------------------------------------------------

void Form41::showRows(const std::string& folder, const std::vector<core::Item>& items) {
  ListView1.clear();
  for (const core::Item& item : items) {
    controls::ListItem row =
        ListView1.add(item.isFolder ? paths::withClosing(item.path) : folder, item.isFolder ? FolderIcon : FileIcon);
    row.setSubItem(1, item.isFolder ? FolderMark : item.path);
  }
  const bool hasRows = ListView1.count() > 0;
  if (hasRows) {
    ListView1.selectNone();
    ListView1.item(0).setSelected(true);
    ListView1.focusRow(0);
  } else {
    ListView1.add("No Items In View, Only Files Supported !");
  }
  showCount();
  for (controls::Button* button : {&Command1, &Command3, &Command5})
    button->Enabled = hasRows;
}

void Form41::showCount() { Label3.Caption = "Entries In View :  " + std::to_string(ListView1.count()); }

void Form41::showTitle() {
  Caption = Title;
  const auto row = ListView1.SelectedItem();
  if (!row) return;
  const std::string item = itemOf(*row);
  const bool isLong = core::characterCount(item) > LongTitle;
  Caption = std::string(Title) + ", - " + (isLong ? " ..." + std::string(core::lastCharacters(item, LongTitle)) : item);
}

void Form41::Command3_Click() {
  const auto selected = ListView1.selectedIds();
  if (selected.empty()) return desk_.selection.nonselect();
  if (!desk_.program.dialogs.AskRetry("You are about to Delete \r" + std::to_string(selected.size()) +
                                      " Item(s) !\rAre you Sure ?"))
    return;
  std::vector<bool> goes(ListView1.count());
  for (const std::uint32_t id : selected)
    goes[id] = true;
  struct Row {
    std::string text, name;
    int icon;
  };
  std::vector<Row> stay;
  for (std::uint32_t id = 0; id < ListView1.count(); ++id)
    if (const controls::ListItem row(ListView1, id); !goes[id])
      stay.push_back({row.Text(), row.SubItems(1), row.SmallIcon()});
  ListView1.clear();
  for (const Row& row : stay)
    ListView1.add(row.text, row.icon).setSubItem(1, row.name);
  if (ListView1.count() > 0) ListView1.focusRow(0);
  showCount();
  showTitle();
}

void Form41::ListView1_DblClick() {
  const auto row = ListView1.SelectedItem();
  if (!row) return;
  const std::string item = itemOf(*row);
  if (desk_.files().fileExists(item) || desk_.files().folderExists(item))
    desk_.opener.OpenItemPath(item);
  else
    desk_.program.dialogs.alert("Invalid Path, Folder Or File Do Not Exist !");
}

void Form41::Command5_Click() {
  constexpr controls::Twips Right = 300, Down = -700;
  controls::standBeside(desk_.browser, *this, Right, Down);
  if (const auto folder = desk_.browser.browse({})) Text1.Text = *folder;
  controls::standAsDesigned(desk_.browser);
}

// --- The archive ---------------------------------------------------------------------------------------------------

void Form41::setRunning(bool running) {
  running_ = running;
  for (controls::Control* control :
       std::initializer_list<controls::Control*>{&Command1, &Command2, &Command3, &Command5, &Check1, &Check2})
    control->Enabled = !running;
  // Not greyed: a name that is refused gets the keyboard at once.
  Text2.Locked = running;
  Command4.Enabled = true;
  cancelButton = running ? "Command4" : "Command2";
  desk_.pointer() = running ? controls::pointer::Hourglass : controls::pointer::Default;
}

void Form41::Command4_Click() {
  if (!running_) return UnloadForm();
  stopped_ = true;
  work_.stop();
}

bool Form41::mayWrite(const std::string& folder, const std::string& name) {
  auto& dialogs = desk_.program.dialogs;
  if (name.empty() || name == Empty) {
    Text2.prompt(Empty);
    return false;
  }
  if (const auto refused = core::firstRefusedCharacter(name)) {
    dialogs.alert(core::refusedCharacterText(*refused));
    Text2.SetFocus();
    return false;
  }
  if (platform::foldCase(paths::extension(name)) != "zip") {
    dialogs.alert("Wrong File Extension !, - Only .Zip");
    return false;
  }
  return !desk_.files().fileExists(paths::join(folder, name)) ||
         dialogs.AskRetry("Zip File Name \r" + name + " Already Exist !\rOverwrite/Append ?");
}

void Form41::Command1_Click() {
  setRunning(true);
  stopped_ = false;
  const std::string folder(core::trimmed(Text1.Text.get())), name(core::trimmed(Text2.Text.get()));
  if (!mayWrite(folder, name)) return setRunning(false);
  zip_.setEncrypt(false);
  zip_.setStoreFolderNames(Check2.Value != 0);
  zip_.setRecurseSubDirs(Check1.Value != 0);
  zip_.BasePath = folder;
  zip_.ZipFile = name;
  zip_.ClearFileSpecs();
  if (ListView1.count() == 0) {
    desk_.program.dialogs.alert("No Item(s) To Zip !");
    return setRunning(false);
  }
  failed_ = false;
  messages_.clear();
  rowsDone_ = 0;
  ProgressBar1.Max = ListView1.count();
  Text3.Visible = ListView1.count() >= 2;
  showShare(0);
  const bool success = zipRows();
  setRunning(false);
  ended(success);
}

bool Form41::zipRows() {
  std::size_t batch = 1;
  for (std::uint32_t row = 0; row < ListView1.count(); ++row) {
    if (row % RowsPerTurn == 0) desk_.program.loop.giveTurn();
    if (stopped_) return false;
    addRow(row);
    if (batch > LastOfBatch) {
      Caption = "Buffer Reset, - Writing Zip File !, - Please Wait...";
      if (!zipBatch()) return false;
      zip_.ClearFileSpecs();
      batch = 0;
    }
    ++batch;
  }
  Caption = std::string(Title) + ", - Writing Zip File !, - Please Wait...";
  Label3.Caption = "All Item(s) Processed...";
  return zipBatch();
}

// A row of a file switches both options off for the rest of the run.
void Form41::addRow(std::uint32_t row) {
  const controls::ListItem item = ListView1.item(row);
  std::string spec = item.Text();
  if (item.SubItems(1) == FolderMark) {
    Caption = std::string(Title) + ", - Processing... " + spec;
    spec += AllFiles;
  } else {
    zip_.setRecurseSubDirs(false);
    zip_.setStoreFolderNames(false);
    spec += item.SubItems(1);
    Caption = std::string(Title) + ", - Processing... " + spec;
    Label3.Caption = "Processing Item : " + std::to_string(row + 1) + "  -> " + std::to_string(ListView1.count());
  }
  ListView1.ensureVisible(row);
  zip_.AddFileSpec(spec);
}

// On the thread of the call.
std::uint64_t Form41::partsOfBatch() const {
  const auto& files = desk_.files();
  std::uint64_t parts = 0;
  for (std::size_t at = 0; at < zip_.FileSpecCount() && work_.goesOn(); ++at) {
    const std::string& spec = zip_.FileSpec(at);
    if (!spec.ends_with(AllFiles)) {
      parts += 1 + files.fileSize(spec).valueOr(0) / VnPartLength;
      continue;
    }
    const std::string folder = spec.substr(0, spec.size() - AllFiles.size());
    if (zip_.RecurseSubDirs()) {
      const auto size = files.folderSize(folder, [this](std::uint64_t) { return work_.goesOn(); });
      if (size) parts += size->files + size->bytes / VnPartLength;
    } else if (const auto found = files.findFiles(folder, 1, [](std::string_view, unsigned) { return true; })) {
      for (const platform::FoundFile& file : *found)
        parts += 1 + file.size / VnPartLength;
    }
  }
  return parts;
}

// On the thread of the call. The user has asked for them, and a row of a file has switched that off.
void Form41::noteFoldersLeft() {
  if (!Check1.Value || zip_.RecurseSubDirs()) return;
  for (std::size_t at = 0; at < zip_.FileSpecCount() && work_.goesOn(); ++at) {
    const std::string& spec = zip_.FileSpec(at);
    if (!spec.ends_with(AllFiles)) continue;
    const std::string folder = spec.substr(0, spec.size() - AllFiles.size());
    const auto listing = desk_.files().list(folder);
    if (!listing) continue;
    for (const platform::Entry& each : (*listing)->folders())
      if (!each.isLink)
        takeMessage(desk_.program.platform.toSystem(folder + std::string(each.name)) +
                    "\ta folder below, with files among the items");
  }
}

bool Form41::zipBatch() {
  std::optional<std::int32_t> tried;
  const auto rows = static_cast<double>(zip_.FileSpecCount());
  std::atomic<std::uint64_t> parts = 0;
  done_ = 0;
  const auto tick = [&] {
    const double share = parts == 0 ? 0 : static_cast<double>(done_) / static_cast<double>(parts);
    showShare(rowsDone_ + std::min(share, 1.0) * rows);
  };
  const auto pack = [&] {
    parts = partsOfBatch();
    tried = library.Zip(zip_);
    if (tried == VnSuccess) noteFoldersLeft();
  };
  const bool whole = work_.run(Command4, pack, tick);
  rowsDone_ += rows;
  showShare(rowsDone_);
  if (tried || !whole) return whole && zip_.Success();
  failed_ = true;
  zip_.result = VnFailed;
  desk_.program.dialogs.alert("Zip Function Failed , - Properly To many Items !");
  return false;
}

void Form41::showShare(double rows) {
  ProgressBar1.Value = rows;
  desk_.form.ProgressBar1.Value = rows / ProgressBar1.Max * 100;
  Text3.Text = "Overall: " + std::to_string(static_cast<int>(desk_.form.ProgressBar1.Value)) + "%";
}

void Form41::ended(bool success) {
  auto& dialogs = desk_.program.dialogs;
  showShare(0);
  Text3.Visible = false;
  // The library may have the archive written anew, without what batches have replaced.
  desk_.program.loop.runBlocking([this] { library.close(); });
  if (success) {
    Caption = std::string(Title) + ", - Zip Success";
    dialogs.inform("Zip Function Success, - Menu Close !");
  } else if (!stopped_ && !failed_) {
    dialogs.alert("Zip Function Failed !");
  }
  tellMessages();
  desk_.listing.ViewUpdateAll(zip_.BasePath);
  if (!success && !stopped_) return;
  made_ = success;
  UnloadForm();
}

// On the thread of the call: nobody else looks at them meanwhile.
void Form41::takeMessage(const std::string& line) { messages_.push_back(line); }

void Form41::tellMessages() {
  fileops::LeftOutNotice leftOut(desk_.program);
  std::vector<std::string> renamed;
  for (const std::string& line : messages_) {
    const std::size_t tab = line.rfind('\t');
    const std::string system = line.substr(0, tab), why = tab == std::string::npos ? "" : line.substr(tab + 1);
    std::string path = desk_.program.platform.toProgram(system);
    if (path.empty()) path = system;
    if (why.starts_with(StoredAs))
      renamed.push_back(path + " :  " + why);
    else
      leftOut.add(platform::Error{platform::ErrorCode::Failed, path, why});
  }
  leftOut.tell();
  if (!renamed.empty())
    desk_.program.dialogs.alert(
        core::leftOutText(std::to_string(renamed.size()) + " Item(s) Under Another Name :", renamed));
}

}  // namespace varnholt::zip

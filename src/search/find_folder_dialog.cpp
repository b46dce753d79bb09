#include "search/find_folder_dialog.hpp"

#include "controls/dress.hpp"
#include "core/text_character.hpp"
#include "platform/paths.hpp"

#include <mutex>
#include <utility>

namespace varnholt::search {
namespace {

namespace paths = platform::paths;

constexpr const char* Title = "Quick Find Folder";
constexpr unsigned Levels = 10;

}  // namespace

search::Form36::Form36(panels::Desk& desk, search::Form37& Form37)
    : Form(desk.program.loop, "Form36"), desk_(desk), Form37_(Form37) {
  Caption = Title;
  Combo1.Editable = true;
  Text1.Locked = true;
  Check1.Value = Check4.Value = 1;
  Image1.Visible = Image2.Visible = false;
  Command3.Enabled = false;
  defaultButton = "Command4";
  cancelButton = "Command2";
  setTexts();
  bind();
}

void search::Form36::setTexts() {
  Combo1.AccessibleName = "Search Keywords";
  Combo1.ToolTipText = "Key in your search string, dbl. click clears line.";
  Drive1.AccessibleName = "Drive to scan";
  Drive1.ToolTipText = "Change Drive to Scan for wanted folder.";
  dress(Check1, "Scan From &Root", "Scan from Root Folder and all subfolders on chosen drive.");
  dress(Check2, "Scan From C&urrent Folder", "Start scan from current folder in active view incl. subfolders.");
  dress(Check3, "Search Match In &Whole Path",
        "If cheked match take place in the whole folder path, else only for the sub folder.");
  dress(Check4, "&Incl. Subs", "Include/Exclude SubFolders");
  dress(Text1, "Scanning From", "Indication of search path.");
  Image1.AccessibleName = Image1.ToolTipText = "Scanning ...";
  Image2.AccessibleName = Image2.ToolTipText = "No Match Found !";
  dress(Command4, "&Find", "Find Folder !");
  dress(Command3, "&Stop", "Stop Scanning.");
  dress(Command1, "Rese&t", "Resets Stored Folder Search");
  dress(Command5, "&Delete", "Deletes Current Item In SearchStrings Collection.");
  dress(Command2, "&Cancel", "Cancel Operation");
}

void search::Form36::bind() {
  Load = [this] { Form_Load(); };
  QueryUnload = [this](bool& keep) {
    keep = Command3.Enabled;
    Command3.press();
  };
  Combo1.Change = [this] { setButtons(); };
  Combo1.DblClick = [this] {
    Combo1.choose(-1);
    setButtons();
  };
  Drive1.Change = [this] { showStart(); };
  Check1.Click = [this] { Check1_Click(Check1, Check2); };
  Check2.Click = [this] { Check1_Click(Check2, Check1); };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { UnloadForm(); };
  Command3.Click = [this] {
    ScanStop = true;
    work_.stop();
  };
  Command4.Click = [this] { Command4_Click(); };
  Command5.Click = [this] { Command5_Click(); };
}

// --- Where to look -------------------------------------------------------------------------------------------------

void search::Form36::Form_Load() {
  Caption = Title;
  Image2.Visible = false;
  fillDrives();
  fillWords();
  showStart();
  setButtons();
  Combo1.SetFocus();
}

void search::Form36::fillDrives() {
  const panels::Panel* panel = desk_.form.activePanel();
  const auto& drives = (panel ? *panel : desk_.form.Panel1).controls.Drive.Items.get();
  const std::string before = paths::driveOf(Drive1.Text.get());
  const std::string wanted = before.empty() && panel ? paths::driveOf(panel->path()) : before;
  Drive1.Items = drives;
  int chosen = drives.empty() ? -1 : 0;
  for (int at = 0; at < static_cast<int>(drives.size()); ++at)
    if (paths::driveOf(drives[static_cast<std::size_t>(at)].text) == wanted) chosen = at;
  Drive1.choose(chosen);
}

void search::Form36::Check1_Click(controls::CheckBox& chosen, controls::CheckBox& other) {
  chosen.Value = 1;
  other.Value = 0;
  showStart();
}

void search::Form36::showStart() {
  const panels::Panel* panel = desk_.form.activePanel();
  Text1.Text = Check2.Value && panel ? panel->path() : paths::driveOf(Drive1.Text.get()) + '\\';
}

// --- The words -----------------------------------------------------------------------------------------------------

void search::Form36::SearchWordAdd(const std::string& word) {
  if (words_.add(word)) fillWords();
}

void search::Form36::SearchHistoryLoad() { words_.assign(file_.load(desk_.program)); }

platform::Result<void> search::Form36::SearchHistoryStore() {
  return file_.store(desk_.program, words_.entries(), words_.limit());
}

void search::Form36::fillWords() {
  std::vector<controls::ComboBox::Item> items;
  for (const std::string& word : words_.entries())
    items.push_back({word, ""});
  const std::string text = Combo1.Text.get();
  Combo1.Items = std::move(items);
  Combo1.choose(-1);
  Combo1.Text = text;
}

void search::Form36::setButtons() {
  Command4.Enabled = !core::trimmed(Combo1.Text.get()).empty();
  Command5.Enabled = !words_.entries().empty();
}

void search::Form36::Command1_Click() {
  if (!desk_.program.dialogs.AskRetry("You Are About To Reset Your SearchStrings !")) return;
  words_.clear();
  Combo1.Clear();
  setButtons();
}

void search::Form36::Command5_Click() {
  words_.remove(std::string(core::trimmed(Combo1.Text.get())));
  Combo1.choose(-1);
  fillWords();
  setButtons();
  Combo1.SetFocus();
}

// --- The scan ------------------------------------------------------------------------------------------------------

void search::Form36::Command4_Click() {
  ScanStop = false;
  setRunning(true);
  ScanWord = core::trimmed(Combo1.Text.get());
  SearchWordAdd(ScanWord);
  const std::string start = Text1.Text.get();
  AcceptedFolder.clear();
  scan(start);
  Text1.Text = start;
  setRunning(false);
  ScanFound = ScanEnd = ScanStop = false;
  if (!AcceptedFolder.empty()) return UnloadForm();
  Caption = std::string(Title) + ", - No Match Found/Accepted !";
  Image2.Visible = true;
}

void search::Form36::setRunning(bool running) {
  for (controls::Control* control : std::initializer_list<controls::Control*>{
           &Combo1, &Drive1, &Check1, &Check2, &Check3, &Check4, &Command1, &Command2, &Command4, &Command5})
    control->Enabled = !running;
  Command3.Enabled = running;
  cancelButton = running ? "Command3" : "Command2";
  Image1.Visible = running;
  if (running) {
    Caption = Title;
    Image2.Visible = false;
    Command3.SetFocus();
  } else {
    setButtons();
    Command4.SetFocus();
  }
}

void search::Form36::scan(const std::string& start) {
  ScanPath.clear();
  ScanEnd = !desk_.files().folderExists(start);
  const FolderWord word(ScanWord, Check3.Value != 0);
  while (!ScanEnd && !ScanStop && !ScanFound) {
    const std::string found = nextMatch(start, ScanPath, word);
    ScanEnd = found.empty();
    if (!ScanEnd) FolderMatch(found);
  }
}

std::string search::Form36::nextMatch(const std::string& start, const std::string& after, const FolderWord& word) {
  std::mutex mutex;
  std::string inHand;
  const auto progress = [&](const platform::SearchAdvance& advance) {
    const std::lock_guard lock(mutex);
    inHand = advance.folder;
    return work_.goesOn();
  };
  const auto tick = [&] {
    const std::lock_guard lock(mutex);
    if (!inHand.empty()) Text1.Text = inHand;
  };
  platform::Result<std::string> found = std::string();
  const auto takes = [&](const std::string& path) { return word.matches(path); };
  const unsigned levels = Check4.Value ? Levels : 1;
  const bool whole = work_.run(
      Command3, [&] { found = desk_.files().findFolder(start, levels, takes, after, progress); }, tick);
  return whole && found ? *found : std::string();
}

void search::Form36::FolderMatch(const std::string& path) {
  ScanPath = path;
  Text1.Text = path;
  Form37_.Text1.Text = path;
  loop().giveTurn();
  if (ScanStop) return;
  Form37_.ShowModal();
  switch (Form37_.answer) {
  case Form37::Answer::Accept:
    AcceptedFolder = path;
    if (!GoToFound()) AcceptedFolder.clear();
    ScanFound = true;
    break;
  case Form37::Answer::Cancel:
    ScanFound = ScanStop = true;
    Command4.SetFocus();
    break;
  case Form37::Answer::Continue:
    ScanFound = false;
    break;
  }
}

// The panel's change of folder is told to the histories of folders and of pairs.
bool search::Form36::GoToFound() {
  panels::Panel* panel = desk_.form.activePanel();
  if (!panel || !desk_.navigation.goTo(*panel, AcceptedFolder)) return false;
  desk_.selection.ClickPane();
  return true;
}

}  // namespace varnholt::search

#include "cleanup/scan_dialog.hpp"

#include "controls/dress.hpp"
#include "controls/header_sort.hpp"
#include "core/item_text.hpp"
#include "core/text_character.hpp"
#include "filters/criteria.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <map>
#include <utility>

namespace varnholt::cleanup {
namespace {

namespace paths = platform::paths;

constexpr int SortedUpIcon = 12, SortedDownIcon = 13, NotSortedIcon = 14;
constexpr int NoticeMilliseconds = 1500;
constexpr const char* Title = "CleanUp-Search - ";

}  // namespace

Form23::Form23(controls::MessageLoop& loop) : Form(loop, "Form23") {
  Caption = "Cleanup Options";
  Label1.Caption = "Use options below to select your way of cleaning !";
  Command1.Caption = "&Selected";
  Command1.ToolTipText = "Delete the selected files";
  Command2.Caption = "&All";
  Command2.ToolTipText = "Delete all files of the list";
  Command3.Caption = "&Cancel";
  Command3.ToolTipText = "Exits without any changes.";
  Command3.Click = [this] { UnloadForm(); };
  defaultButton = "Command3";
  cancelButton = "Command3";
}

Form16::Form16(panels::Desk& desk) : Form(desk.program.loop, "Form16"), desk_(desk) {
  ListView1.ImageList = std::map<int, std::string>{{core::FileClass, "file"},
                                                   {SortedUpIcon, "sort-up"},
                                                   {SortedDownIcon, "sort-down"},
                                                   {NotSortedIcon, "sort-none"}};
  ListView1.setSorted(false);
  defaultButton = "Command1";
  cancelButton = "Command2";
  Timer1.Interval = NoticeMilliseconds;
  Image2.Stretch = true;
  setTexts();
  bind();
  setStandard();
}

std::array<Form16::PatternBox, 8> Form16::patternBoxes() {
  return {{{Check1, "*.bak", "Scan for backup files *.Bak", true},
           {Check2, "*.tmp", "Scan for temporary files *.Tmp", true},
           {Check3, "*.syd", "Scan for backup files *.Syd", true},
           {Check4, "*.log",
            "Optional Scan for Log files *.Log, - Warning ! *.Log files are sometimes used i program uninstall "
            "situations So do not delete if you are NOT sure.",
            false},
           {Check5, "*.old", "Scan for old files *.Old", true},
           {Check6, "*.prv", "Scan for ealier used files *.Prv", true},
           {Check7, "*.nav", "Scan for Backup files *.Nav", true},
           {Check8, "*.chk", "Scan for CheckDisk files *.Chk", true}}};
}

void Form16::setTexts() {
  for (const PatternBox& each : patternBoxes())
    dress(each.box, each.pattern, each.toolTip);
  dress(Command1, "&Scan", "Start Scanning of selected drive");
  dress(Command7, "S&top", "Stop Scanning !");
  dress(Command4, "More", "Enable/Disbale Options !");
  dress(Command5, "&Reset", "Reset/set Standard CleanUp Options.");
  dress(Command3, "C&lean", "Select and Delete all Items");
  dress(Command6, "&Go To Location !", "Go to selected file location");
  dress(Command9, "Copy To Windows &Desktop", "Copy Selected File To Windows Desktop. Only One at a time !");
  dress(Command8, "S&ave Collection Set",
        "Load it from Paste Viewer ! And Dont Use Clean if you want to use the set !");
  dress(Command2, "&Cancel", "Chancel Flatraiba");
  constexpr const char* SizeTip = "Numeric value as filesize in MB, floating point as x,x (x.x) Country dependent !. "
                                  "No spaces allowed !, Blank for "
                                  "Disable.";
  dress(Text1, "What is going on", "The file or folder that is looked at, and how a scan has ended");
  dress(Text2, "UserPattern(s)", "UserPattern must be min. 3 digits, seperate your input with \",\"");
  dress(Text3, "More than (MB)", SizeTip);
  dress(Text4, "Less than (MB)", SizeTip);
  dress(Text5, "Collection Name", "Key Valid Filename for selection Set !, without file extension.");
  Text1.Locked = true;
  Label1.Caption = "&UserPattern(s) :";
  Label2.Caption = "Less than (MB):";
  Label3.Caption = "Collection &Name:";
  Check9.Caption = "&More than (MB):";
  Check9.ToolTipText = "Enable/disable filesize option.";
  Check10.Caption = "Current &Folder -> Subfolders";
  Check10.ToolTipText = "Enable/disable Current Folder Scan.";
  Drive1.ToolTipText = "Change Drive to Scan, Only Harddrives Avaiable !";
  Drive1.AccessibleName = "Drive to scan";
  ListView1.ToolTipText = "Click to Select, Dbl. Click to Open item.";
  ListView1.AccessibleName = "Files found";
  ProgressBar1.AccessibleName = "Progress";
  Image2.ToolTipText = "The selected picture";
  Image2.AccessibleName = "Preview";
  Picture1.ToolTipText = "Icon of the selected file's type";
  Picture1.AccessibleName = "File type";
}

void Form16::bind() {
  Load = [this] { Form_Load(); };
  Unload = [this] { Form_Unload(); };
  Activate = [this] { Form_Activate(); };
  QueryUnload = [this](bool& keep) {
    keep = work.running();
    work.stop();
  };
  Command2.Click = [this] { UnloadForm(); };
  Command7.Click = [this] { work.stop(); };
  Command4.Click = [this] { Command4_Click(); };
  Command5.Click = [this] { Command5_Click(); };
  Drive1.Click = [this] { Drive1_Change(); };
  Check9.Click = [this] { Text3.Enabled = Text4.Enabled = Check9.Value != 0; };
  Check10.Click = [this] { Check10_Click(); };
  Text3.Change = [this] { FlotingPointError(Text3); };
  Text4.Change = [this] { FlotingPointError(Text4); };
  ListView1.ColumnClick = [this](int number) { ListView1_ColumnClick(number); };
  Timer1.Tick = [this] {
    Timer1.Enabled = false;
    clearHits();
  };
}

// --- Opening and leaving -------------------------------------------------------------------------------------------

void Form16::Form_Load() {
  ListView1.ColumnHeaders = hitColumns(desk_.program.init.DateSystem);
  const std::string kept = desk_.program.settings.get(core::setting::SCRData);
  Text2.Text = kept.empty() ? "*." : kept;
  Text3.Text = "";
  Text4.Text = "";
  Text5.Text = "";
  Text1.Text = "";
  options_ = true;
  Command4_Click();
  fillDrives();
  clearHits();
  setRunning(false);
  ListView1.add("No Items In View");
  Timer1.Enabled = true;
  Command1.SetFocus();
}

void Form16::Form_Unload() {
  Timer1.Enabled = false;
  desk_.program.settings.save(core::setting::SCRData, Text2.Text.get());
  setStandard();
  Check9.Value = 0;
  clearHits();
  desk_.form.filecollect.reset();
}

const panels::Panel& Form16::activePanel() const {
  const panels::Panel* active = desk_.form.activePanel();
  return active ? *active : desk_.form.Panel1;
}

void Form16::fillDrives() {
  const panels::Panel& panel = activePanel();
  Drive1.Clear();
  int active = -1;
  for (const auto& item : panel.controls.Drive.Items.get()) {
    const bool isActive = paths::driveOf(item.text) == paths::driveOf(panel.path());
    if (isActive) active = static_cast<int>(Drive1.Items->size());
    if (isActive || item.icon == "drive-fixed") Drive1.AddItem(item.text, item.icon);
  }
  Drive1.choose(active);
  Check10.Value = 0;
  Drive1.Enabled = true;
  setRoot(panel.driveRoot());
}

void Form16::setRoot(const std::string& root) {
  root_ = root;
  showCaption();
}

void Form16::Form_Activate() {
  auto headers = ListView1.ColumnHeaders.get();
  if (!headers.empty()) headers[column::Date].Text = core::dateColumnTitle(desk_.program.init.DateSystem);
  ListView1.ColumnHeaders = headers;
  takeRoot();
}

void Form16::showCaption() { Caption = Title + platform::upperCase(root_) + " ..."; }

void Form16::setStandard() {
  for (const PatternBox& each : patternBoxes())
    each.box.Value = each.standard ? 1 : 0;
  boxesOff_ = false;
}

// --- Options -------------------------------------------------------------------------------------------------------

void Form16::Command4_Click() {
  options_ = !options_;
  Command4.Caption = options_ ? "Less" : "More";
  for (controls::Control* control :
       std::initializer_list<controls::Control*>{&Text2, &Check9, &Text3, &Text4, &Check10, &Label1, &Label2})
    control->Visible = options_;
  Text3.Enabled = Text4.Enabled = Check9.Value != 0;
}

void Form16::Command5_Click() {
  if (boxesOff_) return setStandard();
  for (const PatternBox& each : patternBoxes())
    each.box.Value = 0;
  boxesOff_ = true;
}

void Form16::Check10_Click() {
  Drive1.Enabled = !Check10.Value;
  takeRoot();
}

void Form16::takeRoot() {
  if (Check10.Value) return setRoot(activePanel().path());
  // A drive that is gone stands in no box.
  const std::string drive = paths::driveOf(Drive1.Text.get());
  setRoot(drive.empty() ? activePanel().driveRoot() : drive + '\\');
}

void Form16::Drive1_Change() {
  const std::string drive = paths::driveOf(Drive1.Text.get());
  if (!drive.empty() && desk_.program.driveReady(drive.front())) {
    setRoot(drive + '\\');
    Text1.Text = platform::upperCase(root_);
    clearHits();
    return;
  }
  desk_.program.dialogs.inform("\rDrive Not Ready, - Choose Another !\rPress Ok or Esc-key");
  fillDrives();
}

void Form16::FlotingPointError(const controls::TextBox& box) {
  if (!box.Text->empty() && !filters::readNumber(core::trimmed(box.Text.get()), desk_.program.platform.regional))
    desk_.program.dialogs.alert("Input Not Numeric !");
}

// --- The list ------------------------------------------------------------------------------------------------------

void Form16::show(std::shared_ptr<const Hits> hits) {
  const auto volume = desk_.files().volume(hits->root);
  ListView1.setSorted(false);
  ListView1.setRows(std::make_shared<HitRows>(std::move(hits), desk_.program, volume && volume->isDisc()));
}

void Form16::clearHits() {
  ListView1.clear();
  ListView1.setSorted(false);
  ListView1.setSortOrder(controls::SortOrder::Ascending);
  auto headers = ListView1.ColumnHeaders.get();
  for (controls::ColumnHeader& each : headers)
    each.Icon = 0;
  ListView1.ColumnHeaders = std::move(headers);
  showCaption();
  Image2.Picture = "";
  Picture1.IconName = "";
  Picture1.PictureData = "";
  followRows(false);
}

void Form16::followRows(bool running) {
  const bool hasRows = !running && hitRows() && ListView1.count() > 0;
  for (controls::Control* control :
       std::initializer_list<controls::Control*>{&Command3, &Command6, &Command8, &Command9, &Text5})
    control->Enabled = hasRows;
}

void Form16::setRunning(bool running) {
  followRows(running);
  for (controls::Control* control :
       std::initializer_list<controls::Control*>{&Command1, &Command2, &Command4, &Command5, &Text2, &Check10})
    control->Enabled = !running;
  Text3.Enabled = Text4.Enabled = !running && Check9.Value != 0;
  Drive1.Enabled = !running && !Check10.Value;
  letStop(running);
  desk_.pointer() = running ? controls::pointer::Hourglass : controls::pointer::Default;
}

void Form16::letStop(bool running) {
  Command7.Enabled = running;
  cancelButton = running ? "Command7" : "Command2";
}

void Form16::ListView1_ColumnClick(int number) {
  if (!hitRows()) return;
  const int shown = number - 1;
  const int key = shown == column::Size ? column::SizeKey : shown == column::Date ? column::DateKey : shown;
  // As in the panels, where the first click shows the largest and the newest on top.
  const bool descends = ListView1.SortOrder() == controls::SortOrder::Ascending;
  controls::sortShown(ListView1, shown, key, descends, {SortedUpIcon, SortedDownIcon, NotSortedIcon});
}

}  // namespace varnholt::cleanup

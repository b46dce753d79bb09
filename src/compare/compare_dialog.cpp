#include "compare/compare_dialog.hpp"

#include "controls/dress.hpp"
#include "core/format.hpp"
#include "core/item_text.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <utility>

namespace varnholt::compare {
namespace {

namespace paths = platform::paths;
using panels::Side;

constexpr int VersionIcon = 2, MissingIcon = 3, DateIcon = 4, SortedUpIcon = 5, SortedDownIcon = 6, FailedIcon = 7;
constexpr const char *ReportOn = "Rep. On", *ReportOff = "Rep. Off";

int iconFor(const Transfer& row) {
  if (!row.failure.empty()) return FailedIcon;
  if (row.reason == Reason::Missing) return MissingIcon;
  return row.reason == Reason::Date ? DateIcon : VersionIcon;
}

}  // namespace

class Form30::Rows : public controls::RowSource {
 public:
  explicit Rows(std::vector<Transfer> rows) : rows_(std::move(rows)) {}
  std::uint32_t rowCount() const override { return static_cast<std::uint32_t>(rows_.size()); }
  std::string cell(std::uint32_t row, int column) const override {
    return column == 0 ? rows_[row].name : wordFor(rows_[row].reason);
  }
  int icon(std::uint32_t row) const override { return iconFor(rows_[row]); }
  std::string seekText(std::uint32_t row) const override { return rows_[row].name; }
  const Transfer& at(std::uint32_t row) const { return rows_[row]; }

 private:
  std::vector<Transfer> rows_;
};

Form30::Form30(panels::Desk& desk) : Form(desk.program.loop, "Form30"), desk_(desk) {
  Caption = "Compare - Sync. Folders  [Accepted Time Diff. = 2 Sec.]";
  defaultButton = "Command11";
  cancelButton = "Command2";
  for (const auto& [list, title] :
       {std::pair{&ListView1, "Transfer to Right Panel:"}, {&ListView2, "Transfer to Left Panel:"}}) {
    list->ImageList =
        std::map<int, std::string>{{VersionIcon, "not-equal"}, {MissingIcon, "make-file"},    {DateIcon, "date"},
                                   {SortedUpIcon, "sort-up"},  {SortedDownIcon, "sort-down"}, {FailedIcon, "error"}};
    list->ColumnHeaders =
        std::vector<controls::ColumnHeader>{{title, 2600, SortedUpIcon, false}, {"Reason:", 1250, 0, false}};
    list->AccessibleName = title;
    list->ToolTipText = "Click for details, Dbl. Click to Open item.";
    list->setSorted(false);
  }
  setTexts();
  bind();
  setReport(false);
}

void Form30::setTexts() {
  dress(Check1, "Priority: &Left  >>  Right", "Left Panel (source) overwrites right Panel (target).");
  dress(Check2, "Priority: &Right >> Left", "Right Panel (source) overwrites left Panel (traget).");
  dress(Check3, "Priority: &Both (File Exist/Version/Date l.m.)",
        "Synchronize selected folders for missing files,version and date in both panels only.");
  dress(Check4, "&File Exist.", "Compare includes file exist and copy missing files.");
  dress(Check5, "File Si&ze.", "Compare includes file size, and copies Source to target if different.");
  dress(Check6, "File &Date.", "Compare includes file date (last modified) and copies if source newer that target.");
  dress(Check10, "File &Version.", "Compare includes file version, and copies if Source are > target.");
  dress(Check7, "Compare/Report &Only.", "Compares the selected Folders Only.");
  dress(Check8, "Compare and &Sync.", "Compares and Sync. selected folders at once.");
  dress(Check9, "Sync. System and &Hidden Files.",
        "If checked, synchronize System and Hidden Files as well (if possible).");
  dress(Command1, "&Apply", "Apply Folder Selection.");
  dress(Command4, ReportOff, "Toggels Report view On/Off");
  dress(Command11, "&Execute", "Executes Selected Options.");
  dress(Command2, "&Cancel", "Cancel Operation");
  for (controls::ComboBox* box : {&ImageCombo1, &ImageCombo2})
    box->Editable = true;
  ImageCombo1.ToolTipText = "Select Folder from list as Left panel.";
  ImageCombo1.AccessibleName = "Folder of the left panel";
  ImageCombo2.ToolTipText = "Select Folder from list as Right panel.";
  ImageCombo2.AccessibleName = "Folder of the right panel";
  Label1.Caption = "Folder Left Panel.  ";
  Label2.Caption = "Folder Right Panel.  ";
  Image2.ToolTipText = "Sync. Left to Right.";
  Image2.AccessibleName = "Left to right";
  Image3.ToolTipText = "Sync. Right to Left.";
  Image3.AccessibleName = "Right to left";
  Text1.Locked = true;
  Text1.AccessibleName = "Details of the file";
  Text1.ToolTipText = "The file as it stands where it would be copied from";
  ProgressBar1.AccessibleName = "Progress";
  ProgressBar1.Visible = false;
  StatusBar1.setPanel(1, "Syncronnize");
}

void Form30::bind() {
  Load = [this] { Form_Load(); };
  Check1.Click = [this] { Check1_Click(Check1, Check2); };
  Check2.Click = [this] { Check1_Click(Check2, Check1); };
  Check3.Click = [this] { Check3_Click(); };
  for (controls::CheckBox* test : {&Check4, &Check5, &Check6, &Check10})
    test->Click = [this] { ClearResults(); };
  Check7.Click = [this] {
    Check8.Value = Check7.Value ? 0 : Check8.Value;
    if (!Check8.Value) Check7.Value = 1;
  };
  Check8.Click = [this] { Check7.Value = Check8.Value ? 0 : 1; };
  Command4.Click = [this] { setReport(!report_); };
  bindList(Side::Left);
  bindList(Side::Right);
}

void Form30::bindList(Side source) {
  controls::ListView& list = direction(source).list;
  list.ItemClick = [this, source](controls::ListItem) { ListView_Click(direction(source)); };
  list.KeySelect = [this, source](bool) { ListView_Click(direction(source)); };
  list.DblClick = [this, source] { ListView_DblClick(direction(source)); };
  list.ColumnClick = [this, &list](int number) { ListView_ColumnClick(list, number); };
  list.KeyDown = [this, source](controls::KeyEvent& event) {
    if (event.code != controls::key::Enter) return;
    event.handled = true;
    ListView_DblClick(direction(source));
  };
  list.rowToolTip = [&list](controls::ListItem item) {
    const auto* rows = dynamic_cast<const Rows*>(&list.source());
    return rows ? rows->at(item.id()).failure : std::string();
  };
}

Form30::Direction Form30::direction(Side source) {
  panels::Panel &from = desk_.form.panel(source), &to = desk_.form.otherPanel(from);
  if (source == Side::Left) return {ListView1, from, to, 2, "To Right Panel:   "};
  return {ListView2, from, to, 3, "To Left Panel:   "};
}

// --- Opening -------------------------------------------------------------------------------------------------------

void Form30::Form_Load() {
  for (controls::CheckBox* off : {&Check1, &Check2, &Check5, &Check8, &Check9})
    off->Value = 0;
  for (controls::CheckBox* on : {&Check4, &Check6, &Check10, &Check7})
    on->Value = 1;
  setBoth(true);
}

void Form30::prepare() {
  Text1.Visible = false;
  setReport(false);
  setBoth(true);
  ClearResults();
  blankStatus();
  Label1.Caption = "Folder Left Panel.  ";
  Label2.Caption = "Folder Right Panel.  ";
  Command11.SetFocus();
}

void Form30::setReport(bool on) {
  report_ = on;
  Command4.Caption = on ? ReportOn : ReportOff;
  ListView1.Visible = on;
  ListView2.Visible = on;
  if (!on) Text1.Visible = false;
}

void Form30::FolderLabels() {
  struct Named {
    controls::Label& label;
    const char* text;
    const panels::Panel& panel;
  };
  for (const Named& each : {Named{Label1, "Folder Left Panel.  ", desk_.form.Panel1},
                            {Label2, "Folder Right Panel.  ", desk_.form.Panel2}}) {
    const auto drive = desk_.program.drive(each.panel.driveRoot().front());
    each.label.Caption = each.text + ("[ " + (drive ? drive->fileSystem : std::string()) + " ]");
  }
}

// --- Boxes that hang on each other ---------------------------------------------------------------------------------

void Form30::Check1_Click(controls::CheckBox& self, controls::CheckBox& other) {
  if (self.Value) {
    other.Value = 0;
  } else if (!other.Value) {
    setBoth(true);
    blankStatus();
  }
  showArrows();
  ClearResults();
}

void Form30::Check3_Click() {
  setBoth(Check3.Value != 0);
  if (!Check3.Value) (desk_.form.View1Active() ? Check1 : Check2).Value = 1;
  showArrows();
  blankStatus();
  ClearResults();
}

/// The run both ways has its own tests, and no direction to choose.
void Form30::setBoth(bool both) {
  Check3.Value = both ? 1 : 0;
  if (both) Text1.Visible = false;
  for (controls::CheckBox* test : {&Check4, &Check5, &Check6, &Check10}) {
    test->Enabled = !both;
    test->Visible = !both;
  }
  for (controls::CheckBox* way : {&Check1, &Check2}) {
    way->Enabled = !both;
    if (both) way->Value = 0;
  }
  showArrows();
}

void Form30::showArrows() {
  Image2.Visible = Check3.Value || Check1.Value;
  Image3.Visible = Check3.Value || Check2.Value;
}

Tests Form30::tests() const {
  if (Check3.Value) return {};
  return {Check4.Value != 0, Check10.Value != 0, Check6.Value != 0, Check5.Value != 0};
}

// --- Lists ---------------------------------------------------------------------------------------------------------

void Form30::ClearResults() {
  for (controls::ListView* list : {&ListView1, &ListView2}) {
    if (list->count() > 0) list->clear();
    setOrder(*list, false);
  }
  Text1.Visible = false;
}

void Form30::blankStatus() {
  StatusBar1.setPanel(2, "");
  StatusBar1.setPanel(3, "");
}

std::vector<Transfer> Form30::rows(const controls::ListView& list) const {
  std::vector<Transfer> found;
  if (const auto* rows = dynamic_cast<const Rows*>(&list.source()))
    for (std::uint32_t row = 0; row < list.count(); ++row)
      found.push_back(rows->at(list.idAt(row)));
  return found;
}

void Form30::show(const controls::ListView& list, std::vector<Transfer> rows) {
  auto& shown = &list == &ListView1 ? ListView1 : ListView2;
  setOrder(shown, false);
  shown.setRows(std::make_shared<Rows>(std::move(rows)));
}

void Form30::ListView_Click(const Direction& direction) {
  const auto row = direction.list.SelectedItem();
  Text1.Visible = row.has_value();
  if (!row) return;
  const auto& program = desk_.program;
  const std::string name = row->Text(), file = paths::join(direction.source.path(), name);
  const auto info = desk_.files().info(file);
  const std::string version = desk_.files().fileVersion(file).valueOr("");
  const std::string size = info ? core::format("###,###", info->size, program.platform.regional) : std::string();
  const std::string date =
      info ? core::compareDate(program.init.DateTimeFormat, program.platform.clock.local(info->modified))
           : std::string();
  Text1.Text = "Name: " + name + " ,Size: " + size + " Bytes,  Date: " + date +
               ",  Version: " + (version.empty() ? "NA" : version);
}

void Form30::ListView_DblClick(const Direction& direction) {
  const auto row = direction.list.SelectedItem();
  if (!row) return;
  const std::string file = paths::join(direction.source.path(), row->Text());
  desk_.mostUsed.Muf(file);
  desk_.opener.OpenItemPath(file);
}

void Form30::ListView_ColumnClick(controls::ListView& list, int number) {
  list.setSortKey(number - 1);
  setOrder(list, list.SortOrder() == controls::SortOrder::Ascending);
  list.setSorted(true);
}

void Form30::setOrder(controls::ListView& list, bool descends) {
  list.setSorted(false);
  list.setSortOrder(descends ? controls::SortOrder::Descending : controls::SortOrder::Ascending);
  auto headers = list.ColumnHeaders.get();
  headers.front().Icon = descends ? SortedDownIcon : SortedUpIcon;
  list.ColumnHeaders = headers;
}

}  // namespace varnholt::compare

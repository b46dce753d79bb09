#include "tools/disk_graphics.hpp"

#include "controls/dress.hpp"
#include "controls/header_sort.hpp"
#include "core/item_text.hpp"
#include "core/program_files.hpp"
#include "platform/paths.hpp"

#include <algorithm>

namespace varnholt::tools {
namespace {

namespace paths = platform::paths;

constexpr char FolderHead[] = "\\ ";
constexpr int ItemColumn = 0, SizeColumn = 1;
constexpr controls::SortIcons HeaderIcons{1, 2, 3};

}  // namespace

/// The items as rows, numbered as the chart's points are.
class tools::Form45::Rows : public controls::RowSource {
 public:
  Rows(std::shared_ptr<const std::vector<UsageItem>> items, const platform::RegionalFormats& regional)
      : items_(std::move(items)), regional_(regional) {}

  std::uint32_t rowCount() const override { return static_cast<std::uint32_t>(items_->size()); }
  std::string cell(std::uint32_t row, int column) const override {
    const UsageItem& item = (*items_)[row];
    if (column == ItemColumn) return item.text;
    return core::panelSize(item.bytes, regional_);
  }
  int icon(std::uint32_t) const override { return 0; }
  bool numericKeys(int column, std::vector<std::int64_t>& keys) const override {
    if (column != SizeColumn) return false;
    keys.clear();
    for (const UsageItem& item : *items_)
      keys.push_back(static_cast<std::int64_t>(item.bytes));
    return true;
  }

 private:
  std::shared_ptr<const std::vector<UsageItem>> items_;
  const platform::RegionalFormats& regional_;
};

tools::Form45::Form45(panels::Desk& desk, const panels::Icons& icons)
    : Form(desk.program.loop, "Form45"), desk_(desk), icons_(icons) {
  setTexts();
  bind();
}

void tools::Form45::setTexts() {
  Caption = "Disk Usage In Graphics  !";
  dress(Text1, "Folder", "The folder of the items");
  Text1.Locked = true;
  dress(Command1, "&Bar GrapHics.", "A bar for each item");
  dress(Command3, "&Pie GrapHics.", "A slice for each item");
  dress(Command4, "&GoTo Selected Item, In Active View Only !",
        "The active panel goes to the item of the selected row");
  dress(Command2, "&Cancel", "Close");
  MSChart1.AccessibleName = "Sizes of the items";
  MSChart1.ToolTipText = "Click a part to find its item in the list";
  ListView1.AccessibleName = "Items";
  ListView1.ToolTipText = "Dbl Click to open the item";
  Label3.AccessibleName = "Largest item";
  Label4.AccessibleName = "Smallest item";
  Picture1.AccessibleName = "File type";
  Picture1.ToolTipText = "Icon of the selected item's type";
  ProgressBar1.AccessibleName = "Progress";
  cancelButton = "Command2";
}

void tools::Form45::bind() {
  Load = [this] { Form_Load(); };
  Unload = [this] { Form_Unload(); };
  Command1.Click = [this] { setChart(controls::Chart::Type::Bar); };
  Command3.Click = [this] { setChart(controls::Chart::Type::Pie); };
  Command4.Click = [this] { Command4_Click(); };
  Command2.Click = [this] { UnloadForm(); };
  ListView1.MultiSelect = false;
  ListView1.Click = [this] { ListView1_Click(); };
  ListView1.KeySelect = [this](bool) { ListView1_Click(); };
  ListView1.DblClick = [this] { ListView1_DblClick(); };
  ListView1.ColumnClick = [this](int number) { ListView1_ColumnClick(number); };
  ListView1.KeyDown = [this](controls::KeyEvent& event) {
    if (event.code == controls::key::Enter) ListView1_DblClick();
  };
  MSChart1.PointSelected = [this](int point) { selectRow(static_cast<std::uint32_t>(point)); };
  Label3.Click = [this] { selectHolder(Label3); };
  Label4.Click = [this] { selectHolder(Label4); };
  Timer1.Interval = 50;
  Timer1.Tick = [this] {
    if (sizing_) ProgressBar1.Value = std::min(static_cast<double>(sizing_->done), ProgressBar1.Max.get());
  };
  desk_.form.events.selectionChanged.listen([this](panels::Panel&) { ShartCal(); });
  desk_.form.events.activated.listen([this](panels::Panel&, bool another) {
    if (another) ShartCal();
  });
}

void tools::Form45::Form_Load() {
  ListView1.ImageList = std::map<int, std::string>{{1, "sort-up"}, {2, "sort-down"}, {3, "sort-none"}};
  ListView1.ColumnHeaders =
      std::vector<controls::ColumnHeader>{{"Item:", 6000, 3, false}, {"ByteSize:", 2400, 3, true}};
  ListView1.setSorted(false);
}

void tools::Form45::Form_Unload() {
  if (sizing_) desk_.navigation.showPlace();
  giveUp();
  clearResults();
}

// --- Computing -----------------------------------------------------------------------------------------------------

void tools::Form45::DiskGraH_Click() {
  desk_.form.Caption = "Varnholt, - Calculating Size of Data ... Please Wait !";
  Caption = "Calculating Shart Data, - Please Wait...";
  Show();
  compute();
}

void tools::Form45::ShartCal() {
  if (Visible && !leadingPanel_) compute();
}

void tools::Form45::compute() {
  giveUp();
  clearResults();
  panels::Panel* panel = desk_.form.activePanel();
  if (!panel) return;
  folder_ = panel->path();
  Text1.Text = paths::withoutClosing(folder_);
  auto items = std::make_shared<std::vector<UsageItem>>();
  for (const std::uint32_t id : panel->list.selectedIds()) {
    const controls::ListItem row(panel->list, id);
    const std::string name = panel->fileName(row);
    items->push_back({{panel->itemPath(row), panel->isFolder(row)}, panel->isFolder(row) ? FolderHead + name : name});
  }
  const bool enough = items->size() >= 2;
  for (controls::Button* button : {&Command1, &Command3})
    button->Enabled = enough;
  if (!enough) {
    Caption = "Disk Usage In Graphics, - Please Select More Than One Item !";
    return desk_.navigation.showPlace();
  }
  Caption = "Calculating " + std::to_string(items->size()) + " Chart Data, - Please Wait...";
  ProgressBar1.Max = static_cast<double>(items->size());
  items_ = items;
  sizing_ = std::make_shared<Sizing>();
  for (const UsageItem& each : *items)
    sizing_->paths.push_back(each.item.path);
  Timer1.Enabled = true;
  desk_.program.loop.runBeside(
      [sizing = sizing_, &files = desk_.program.platform.files] {
        auto sizes = files.sizes(sizing->paths, [&](std::uint64_t done) {
          sizing->done = done;
          return !sizing->givenUp;
        });
        if (sizes) sizing->sizes = *std::move(sizes);
      },
      [this, sizing = sizing_] {
        if (sizing->givenUp || sizing->sizes.size() != items_->size()) return;
        for (std::size_t at = 0; at < items_->size(); ++at)
          (*items_)[at].bytes = sizing->sizes[at];
        showResults();
      });
}

void tools::Form45::giveUp() {
  if (sizing_) sizing_->givenUp = true;
  sizing_.reset();
  Timer1.Enabled = false;
  ProgressBar1.Value = 0;
}

void tools::Form45::clearResults() {
  items_.reset();
  ListView1.clear();
  MSChart1.Values = std::vector<controls::Chart::Value>();
  MSChart1.SelectedPoint = -1;
  for (controls::Label* label : {&Label3, &Label4}) {
    label->Caption = "";
    label->ToolTipText = "";
  }
  StatusBar1.setPanel(1, "");
  StatusBar1.setPanel(2, "");
  Picture1.Picture = "";
  Picture1.IconName = "";
  Command4.Enabled = false;
}

void tools::Form45::showResults() {
  giveUp();
  ListView1.setRows(std::make_shared<Rows>(items_, desk_.program.platform.regional));
  ListView1.focusRow(0);
  std::vector<controls::Chart::Value> values;
  values.reserve(items_->size());
  for (const UsageItem& each : *items_)
    values.push_back({each.text, static_cast<double>(each.bytes)});
  MSChart1.Values = std::move(values);
  // Of several equal ones the first holds the place; where all are empty there is none.
  const auto largest = std::ranges::max_element(*items_, {}, &UsageItem::bytes),
             smallest = std::ranges::min_element(*items_, {}, &UsageItem::bytes);
  if (largest->bytes > 0) {
    showHolder(Label3, *largest);
    showHolder(Label4, *smallest);
  }
  desk_.form.Caption = "Varnholt, - Calculation Done...";
  Caption = "Disk Usage In Graphics, - " + std::to_string(items_->size()) + " Item(s)";
  Command4.Enabled = true;
}

void tools::Form45::showHolder(controls::Label& label, const UsageItem& holder) {
  label.Caption = holder.text;
  label.ToolTipText = "Item Size In Bytes : " + sizeText(holder.bytes);
}

std::string tools::Form45::sizeText(std::uint64_t bytes) const {
  return core::panelSize(bytes, desk_.program.platform.regional);
}

void tools::Form45::setChart(controls::Chart::Type type) {
  MSChart1.ChartType = type;
  compute();
}

// --- Points and rows -----------------------------------------------------------------------------------------------

void tools::Form45::selectRow(std::uint32_t id) {
  if (id >= ListView1.count()) return;
  ListView1.chooseRow(ListView1.rowOf(id));
  ListView1_Click();
}

void tools::Form45::selectHolder(const controls::Label& label) {
  if (!items_) return;
  const auto holder = std::ranges::find(*items_, label.Caption.get(), &UsageItem::text);
  if (holder != items_->end()) selectRow(static_cast<std::uint32_t>(holder - items_->begin()));
}

const UsageItem* tools::Form45::itemInHand() {
  const auto row = ListView1.SelectedItem();
  return row && items_ && row->id() < items_->size() ? &(*items_)[row->id()] : nullptr;
}

void tools::Form45::ListView1_Click() {
  const UsageItem* item = itemInHand();
  if (!item) return;
  StatusBar1.setPanel(1, item->text);
  StatusBar1.setPanel(2, sizeText(item->bytes) + " Bytes");
  MSChart1.SelectedPoint = static_cast<int>(item - items_->data());
  if (item->item.isFolder)
    Picture1.Picture = core::program_file::path(desk_.program.platform, core::program_file::ProgramIcon);
  else
    icons_.Iconshow(Picture1, item->item.path);
}

void tools::Form45::ListView1_ColumnClick(int number) {
  controls::sortByHeader(ListView1, number - 1, number - 1, HeaderIcons);
}

void tools::Form45::Command4_Click() {
  const UsageItem* item = itemInHand();
  if (!item) return;
  const auto& files = desk_.files();
  const bool there = item->item.isFolder ? files.folderExists(item->item.path) : files.fileExists(item->item.path);
  if (!there) return desk_.program.dialogs.alert("File/Folder Path NOT Valid, - Make New Selection!");
  // The panel's selection changes on its way; what this window shows stays.
  leadingPanel_ = true;
  desk_.navigation.GoToDirection(item->item.path);
  leadingPanel_ = false;
}

void tools::Form45::ListView1_DblClick() {
  const UsageItem* item = itemInHand();
  if (!item) return;
  const std::string& path = item->item.path;
  if (desk_.files().fileExists(path)) {
    desk_.mostUsed.Muf(path);
    desk_.opener.OpenItemPath(path);
  } else if (desk_.files().folderExists(path)) {
    Command4_Click();
  } else {
    desk_.program.dialogs.alert("File/Folder Path NOT Valid!, - Make New Selection.");
  }
}

}  // namespace varnholt::tools

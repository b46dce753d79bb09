#include "places/static_presets.hpp"

#include "controls/dress.hpp"
#include "core/item_text.hpp"
#include "core/text_character.hpp"
#include "panels/dispatcher.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

namespace varnholt::places {
namespace {

constexpr const char* Title = "Static Preset View";

}  // namespace

std::map<int, std::string> presetIcons() {
  return {{ValidIcon, "bookmark-good"},
          {BrokenIcon, "bookmark-broken"},
          {SortedDownIcon, "sort-down"},
          {SortedUpIcon, "sort-up"}};
}

std::string markPair(panels::Desk& desk, controls::ListItem row, const FolderPair& pair) {
  bool allThere = true;
  const auto line = [&](const char* label, const std::string& folder) {
    const bool isThere = desk.files().folderExists(folder);
    allThere = allThere && isThere;
    return label + platform::paths::withoutClosing(folder) + (isThere ? "" : "  (gone)");
  };
  std::string tip = line("Left:  ", pair.left) + "\r" + line("Right:  ", pair.right);
  row.setSmallIcon(allThere ? ValidIcon : BrokenIcon);
  row.setForeColor(allThere ? controls::NoColor : panels::mark_color::Trouble);
  return tip;
}

// --- Form21 --------------------------------------------------------------------------------------------------------

places::Form21::Form21(core::Program& program) : Form(program.loop, "Form21"), program_(program) {
  Caption = "New Preset";
  dress(Text1, "Name of the preset", "Name of the preset; it is kept in capitals.");
  dress(Text2, "Description", "What the preset is for");
  dress(Command11, "&Ok", "Store the preset");
  dress(Command3, "&Cancel", "Cancel Operation");
  defaultButton = "Command11";
  cancelButton = "Command3";
  Activate = [this] { Text1.SetFocus(); };
  Command11.Click = [this] { Command11_Click(); };
  Command3.Click = [this] { UnloadForm(); };
}

std::optional<places::Form21::Preset> places::Form21::ask() {
  taken_.reset();
  Text1.Text = "";
  Text2.Text = "";
  ShowModal();
  return taken_;
}

void places::Form21::Command11_Click() {
  const std::string name = platform::upperCase(core::trimmed(Text1.Text.get()));
  if (isTaken && isTaken(name)) {
    const std::string reason = PresetStore::isReserved(name) ? "\r" + name + " is kept by the program itself." : "";
    program_.dialogs.alert("\rPresetName already exist !" + reason);
    Text1.Text = "";
    Text1.SetFocus();
    return;
  }
  taken_ = Preset{name, core::properCase(core::trimmed(Text2.Text.get()))};
  UnloadForm();
}

// --- Form20 --------------------------------------------------------------------------------------------------------

places::Form20::Form20(panels::Desk& desk, places::Form21& Form21)
    : Form(desk.program.loop, "Form20"), desk_(desk), Form21_(Form21), store_(desk.program) {
  Caption = Title;
  setTexts();
  ListView1.MultiSelect = false;
  ListView1.ImageList = presetIcons();
  ListView1.ColumnHeaders = std::vector<controls::ColumnHeader>{{"Name:", 3000, 0, false}, {"Text:", 5400, 0, false}};
  ListView1.setSorted(false);
  cancelButton = "Command3";
  Load = [this] { Form_Load(); };
  Form21_.isTaken = [this](const std::string& name) {
    if (PresetStore::isReserved(name)) return true;
    for (std::uint32_t row = 0; row < ListView1.count(); ++row)
      if (PresetStore::sameName(ListView1.cell(row, 0), name)) return true;
    return false;
  };
  ListView1.rowToolTip = [this](controls::ListItem row) {
    return row.id() < tips_.size() ? tips_[row.id()] : std::string();
  };
  ListView1.ItemClick = [this](controls::ListItem) { ListView1_Click(); };
  ListView1.DblClick = [this] { activate(); };
  ListView1.KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != controls::key::Enter) return;
    event.handled = true;
    activate();
  };
  Command11.Click = [this] {
    if (Presetfolder) Presetfolder();
  };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { UnloadForm(); };
  Command4.Click = [this] { Command4_Click(); };
}

void places::Form20::setTexts() {
  ListView1.AccessibleName = "Presets";
  ListView1.ToolTipText = "Dbl Click on Item to activate your Preset, or press Enter key.";
  dress(Command11, "Default,&Last Exit", "Return Folder Setup at last Progam Exit !");
  dress(Command2, "&New Preset", "Store Current View In Panel1 and Panel2.");
  dress(Command1, "&Delete Preset", "Delete Selected Preset in View");
  dress(Command4, "Delete &All Presets", "Delete all presets in the view");
  dress(Command3, "&Cancel", "Close without change");
}

void places::Form20::open() {
  if (!desk_.files().folderExists(desk_.program.folders.windir)) {
    desk_.program.dialogs.critical("%windir% folder not found !, - make/set [windir=windows folder] Entvirontvariable");
    return;
  }
  ListView1.SetFocus();
  ShowModal();
}

void places::Form20::Form_Load() {
  Caption = Title;
  showNames();
}

void places::Form20::showNames() {
  ListView1.clear();
  for (const std::string& name : store_.names())
    addRow(name, store_.text(name));
  if (ListView1.count() == 0) return;
  ListView1.item(0).setSelected(true);
  ListView1.focusRow(0);
}

void places::Form20::addRow(const std::string& name, const std::string& text) {
  controls::ListItem row = ListView1.add(name, ValidIcon);
  row.setSubItem(1, text);
  tips_.resize(row.id());
  tips_.push_back(markPair(desk_, row, store_.folders(name)));
}

void places::Form20::ListView1_Click() {
  if (const auto item = ListView1.SelectedItem()) Caption = std::string(Title) + ",  " + item->Text();
}

void places::Form20::activate() {
  const auto item = ListView1.SelectedItem();
  if (!item) return;
  const FolderPair folders = store_.folders(item->Text());
  if (!asOneMove([&] { return goToPair(desk_, folders); })) return;
  for (panels::Panel* panel : {&desk_.form.Panel1, &desk_.form.Panel2}) {
    panel->backStack.clear();
    panel->forwardStack.clear();
    // The place itself, so that the next step back comes here.
    desk_.navigation.fstack_push(*panel);
    panel->controls.Back.Enabled = false;
    panel->controls.Forward.Enabled = false;
  }
  UnloadForm();
}

void places::Form20::Command2_Click() {
  const auto preset = Form21_.ask();
  if (!preset || preset->name.empty()) return;
  if (!store_.add(preset->name, preset->text, {desk_.form.Panel1.path(), desk_.form.Panel2.path()})) return;
  addRow(preset->name, preset->text);
  ListView1.chooseRow(ListView1.count() - 1);
}

void places::Form20::Command1_Click() {
  auto item = ListView1.SelectedItem();
  if (!item) return;
  item->setSelected(true);
  if (!desk_.program.dialogs.AskRetry("You are about to DELETE Selected Preset, - Continue ?\r")) return;
  if (!store_.remove(item->Text())) return;
  Caption = Title;
  showNames();
}

void places::Form20::Command4_Click() {
  if (ListView1.count() == 0) return;
  for (std::uint32_t row = 0; row < ListView1.count(); ++row)
    ListView1.item(row).setSelected(true);
  if (!desk_.program.dialogs.AskRetry("You are about to DELETE all Presets, - Continue ?\r")) return;
  if (!store_.removeAll()) return;
  Caption = Title;
  ListView1.clear();
}

}  // namespace varnholt::places

#include "search/find_item_dialog.hpp"

#include "controls/dress.hpp"
#include "core/text_character.hpp"
#include "platform/paths.hpp"
#include "search/name_match.hpp"

namespace varnholt::search {
namespace {

namespace paths = platform::paths;

constexpr const char* Title = "Quick Find Item.";
constexpr int RestMilliseconds = 1000;
constexpr std::size_t ShownLetters = 35;
// Below the main window, as far as the screen goes: it hides no row.
constexpr controls::Twips FirstWidth = 8'100, FirstHeight = 2'100;

}  // namespace

search::Form47::Form47(panels::Desk& desk, FoundHistory& history)
    : Form(desk.program.loop, "Form47"), desk_(desk), history_(history) {
  Caption = Title;
  Check3.Value = 1;
  Timer1.Interval = RestMilliseconds;
  defaultButton = "Command1";
  cancelButton = "Command2";
  setTexts();
  bind();
  showNothing();
}

void search::Form47::setTexts() {
  dress(Text1, "Letters of the item to find", "Key in Letters for Item To Find");
  dress(Check1, "Folde&r(s)", "Wildcard \"?\" Possible");
  dress(Check3, "Fi&le(s)", "Wildcard \"?\" Possible");
  dress(Check2, "&All String", "Checked=>All String, Not Checked=>From left. No Wildcard");
  Image1.AccessibleName = Image1.ToolTipText = "Match Found !";
  dress(Command1, "&Open Item", "Open the item that was found");
  dress(Command3, "Co&nt..", "Continue To Next Item.");
  dress(Command2, "&Cancel", "Cancel Operation");
}

void search::Form47::bind() {
  Load = [this] { Form_Load(); };
  QueryUnload = [this](bool&) {
    left_ = Left;
    top_ = Top;
    FoundStore();
    rows_.reset();
  };
  Text1.Change = [this] { Text1_Change(); };
  Check1.Click = [this] { chooseKind(Check1.Value || !Check3.Value); };
  Check3.Click = [this] { chooseKind(!Check3.Value && Check1.Value); };
  Check2.Click = [this] { Text1_Change(); };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { UnloadForm(); };
  Command3.Click = [this] { Command3_Click(); };
  Timer1.Tick = [this] { FoundStore(); };
  desk_.form.events.activated.listen([this](panels::Panel&, bool another) {
    if (another) startAnew();
  });
  desk_.form.events.folderChanged.listen([this] { startAnew(); });
}

// --- The window ----------------------------------------------------------------------------------------------------

void search::Form47::open(bool folders) {
  Check1.Value = folders ? 1 : 0;
  Check3.Value = folders ? 0 : 1;
  // Shown anew, it comes to the front and has the keyboard.
  if (Visible) UnloadForm();
  Show();
}

void search::Form47::Form_Load() {
  Text1.Text = "";
  showNothing();
  Text1.SetFocus();
  if (Width <= 0 && desk_.form.Width > 0) {
    left_ = desk_.form.Left;
    top_ = desk_.form.Top + desk_.form.Height;
    Width = FirstWidth;
    Height = FirstHeight;
  }
  Left = left_;
  Top = top_;
}

void search::Form47::chooseKind(bool folders) {
  Check1.Value = folders ? 1 : 0;
  Check3.Value = folders ? 0 : 1;
  Text1_Change();
}

void search::Form47::showNothing() {
  FindHit = false;
  Caption = Title;
  StatusBar1.setPanel(1, Check1.Value ? "Folder(s)" : "File(s)");
  StatusBar1.setPanel(2, "-");
  StatusBar1.setPanel(3, "None");
  Image1.Visible = false;
  Command1.Enabled = Command3.Enabled = false;
}

void search::Form47::startAnew() {
  if (!Visible) return;
  rows_.reset();
  showNothing();
  Command3.Enabled = !typed().empty();
}

// --- Finding -------------------------------------------------------------------------------------------------------

std::string search::Form47::typed() const { return std::string(core::trimmed(Text1.Text.get())); }

void search::Form47::Text1_Change() {
  rows_.reset();
  unrecorded_.reset();
  Timer1.Enabled = false;
  if (typed().empty()) return showNothing();
  if (!FindContinue) QuickFindStep(0, typed(), Check1.Value != 0);
}

void search::Form47::Command3_Click() {
  panels::Panel* panel = desk_.form.activePanel();
  if (!panel) return;
  FoundStore();
  FindContinue = true;
  QuickFindStep(nextRow(*panel), typed(), Check1.Value != 0);
  FindContinue = false;
}

// The list may have been sorted since.
std::uint32_t search::Form47::nextRow(const panels::Panel& panel) const {
  return rows_ && rows_ == panel.rows ? panel.list.rowOf(id_) + 1 : 0;
}

void search::Form47::QuickFindStep(std::uint32_t start, const std::string& text, bool folders) {
  panels::Panel* panel = desk_.form.activePanel();
  if (!panel || !panel->rows || desk_.dispatcher.busy) return showNothing();
  using Kind = NameMatch::Kind;
  NameMatch fits(text, !Check2.Value ? Kind::Beginning : folders ? Kind::Anywhere : Kind::AnywhereOrWhole);
  const panels::PanelRows& rows = *panel->rows;
  constexpr std::uint32_t Ahead = panels::PanelRows::FetchAhead;
  for (std::uint32_t row = start; row < panel->list.count(); ++row) {
    const std::uint32_t id = panel->list.idAt(row);
    if (row + Ahead < panel->list.count()) rows.fetchName(panel->list.idAt(row + Ahead));
    if (rows.isFolder(id) != folders) continue;
    const std::string_view name = rows.entry(id).name;
    if (!fits(name, !folders && paths::extension(name).empty())) continue;
    QuickFindHit(*panel, row);
    return;
  }
  showNothing();
}

void search::Form47::QuickFindHit(panels::Panel& panel, std::uint32_t row) {
  controls::ListItem item = panel.list.item(row);
  panel.list.selectNone();
  item.setSelected(true);
  panel.list.focusRow(row);
  const std::string name = panel.fileName(item);
  Caption = std::string(Title).substr(0, std::string_view(Title).size() - 1) + ", - Match Found !";
  StatusBar1.setPanel(1, Check1.Value ? "Folder(s)" : "File(s)");
  StatusBar1.setPanel(2, "Row " + std::to_string(row + 1));
  StatusBar1.setPanel(3, "Found  " + endOf(name, ShownLetters));
  Image1.Visible = true;
  FindHit = true;
  Command3.Enabled = Command1.Enabled = true;
  rows_ = panel.rows;
  id_ = item.id();
  desk_.selection.ClickPane();
  item.EnsureVisible();
  unrecorded_ = core::Item{panel.itemPath(item), panel.isFolder(item)};
  Timer1.Enabled = false;
  Timer1.Enabled = true;
}

void search::Form47::FoundStore() {
  Timer1.Enabled = false;
  if (unrecorded_) history_.FoundStore(*std::exchange(unrecorded_, {}));
}

void search::Form47::Command1_Click() {
  FoundStore();
  desk_.dispatcher.perform("OpenSelected_Click");
}

}  // namespace varnholt::search

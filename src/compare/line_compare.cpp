#include "compare/line_compare.hpp"

#include "core/format.hpp"
#include "core/item_text.hpp"
#include "core/text_character.hpp"
#include "fileops/overwrite_policy.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>

namespace varnholt::compare {
namespace {

namespace paths = platform::paths;

constexpr int FileIcon = 1, EqualIcon = 2, UnequalIcon = 3;
constexpr const char* Title = "Line Compare";
// About what a text takes in a row.
constexpr controls::Twips Character = 105, BesideText = 360;
// Below the main window, as far as the screen goes: it hides no row.
constexpr controls::Twips FirstWidth = 10'800, FirstHeight = 1'950;

controls::Twips widthOf(const std::string& text) {
  return static_cast<controls::Twips>(core::characterCount(text)) * Character + BesideText;
}

}  // namespace

Form42::Form42(panels::Desk& desk) : Form(desk.program.loop, "Form42"), desk_(desk) {
  Caption = Title;
  ListView1.ImageList =
      std::map<int, std::string>{{FileIcon, "file"}, {EqualIcon, "equal"}, {UnequalIcon, "not-equal"}};
  ListView1.AccessibleName = "The item in hand and its twin";
  ListView1.ToolTipText = "Click a file in a panel: it is compared with the file of its name in the other panel";
  ListView1.setSorted(false);
  headers({});
  Load = [this] { Form_Load(); };
  KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != controls::key::Esc) return;
    event.handled = true;
    UnloadForm();
  };
  desk_.form.events.itemChanged.listen([this](panels::Panel& panel) { showItem(panel); });
}

void Form42::Form_Load() {
  if (desk_.form.Width <= 0) return;  // the main window has not been placed
  Left = desk_.form.Left.get();
  Top = desk_.form.Top + desk_.form.Height;
  Width = FirstWidth;
  Height = FirstHeight;
}

void Form42::LLComp_Click() {
  if (Visible) return UnloadForm();
  Show();
  if (panels::Panel* panel = desk_.form.activePanel()) showItem(*panel);
  desk_.listing.FocusView();
}

void Form42::showItem(panels::Panel& panel) {
  if (!Visible || &panel != desk_.form.activePanel()) return;
  if (const auto row = panel.list.SelectedItem())
    LineCompare(panel.path(), desk_.form.otherPanel(panel).path(),
                panel.isFolder(*row) ? std::string(core::folderRowName(row->Text())) : panel.fileName(*row));
}

void Form42::LineCompare(const std::string& sourceFolder, const std::string& targetFolder, const std::string& name) {
  if (!Visible) return;
  ListView1.clear();
  Caption = Title;
  headers({});
  const auto clicked = factsOf(paths::join(sourceFolder, name));
  if (!clicked) return addNote("Clicked", "Only File Compare !");
  addRow("Clicked", *clicked);
  headers({});
  const auto target = factsOf(paths::join(targetFolder, name));
  if (!target) return addNote("Target", "No Match Found");
  addRow("Target", *target);
  showEqual(*clicked, *target);
}

std::optional<Form42::Facts> Form42::factsOf(const std::string& file) const {
  return desk_.program.loop.ask([&]() -> std::optional<Facts> {
    const auto info = desk_.files().info(file);
    if (!info || info->kind == platform::EntryKind::Folder) return {};
    const std::string version = desk_.files().fileVersion(file).valueOr("");
    return Facts{info->name, version.empty() ? "NA" : version, info->size, info->modified};
  });
}

void Form42::addRow(const char* item, const Facts& facts) {
  const auto& program = desk_.program;
  auto row = ListView1.add(item, FileIcon);
  row.setSubItem(1, facts.name);
  row.setSubItem(2, core::format("###,###", facts.bytes, program.platform.regional));
  row.setSubItem(3, core::compareDate(program.init.DateTimeFormat, program.platform.clock.local(facts.modified)));
  row.setSubItem(4, facts.version);
}

void Form42::addNote(const char* item, const char* note) { ListView1.add(item, FileIcon).setSubItem(1, note); }

void Form42::showEqual(const Facts& clicked, const Facts& target) {
  using fileops::NotNewer;
  const bool equal[] = {platform::foldCase(clicked.name) == platform::foldCase(target.name),
                        clicked.bytes == target.bytes,
                        NotNewer(clicked.modified, target.modified) && NotNewer(target.modified, clicked.modified),
                        clicked.version == target.version};
  std::vector<int> icons{0};
  for (const bool each : equal)
    icons.push_back(each ? EqualIcon : UnequalIcon);
  headers(icons);
  Caption = std::ranges::count(equal, false) == 0 ? "Line Compare, - Files Equal  [Accepted Time Diff. = 2 sec.]"
                                                  : "Line Compare, - Files NOT Equal";
}

void Form42::headers(const std::vector<int>& icons) {
  std::vector<controls::ColumnHeader> headers{{"Item:", 1200, 0, false},
                                              {"Name:", 3000, 0, false},
                                              {"ByteSize:", 1600, 0, true},
                                              {"DateModified:", 2400, 0, false},
                                              {"Version:", 1600, 0, false}};
  for (std::size_t at = 0; at < icons.size(); ++at)
    headers[at].Icon = icons[at];
  for (std::uint32_t row = 0; row < ListView1.count(); ++row)
    for (int column = 0; column < static_cast<int>(headers.size()); ++column) {
      auto& width = headers[static_cast<std::size_t>(column)].Width;
      width = std::max(width, widthOf(ListView1.cell(row, column)));
    }
  ListView1.ColumnHeaders = headers;
}

}  // namespace varnholt::compare

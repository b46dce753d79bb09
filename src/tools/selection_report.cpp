#include "tools/selection_report.hpp"

#include "core/item_text.hpp"
#include "core/program_files.hpp"
#include "platform/paths.hpp"

namespace varnholt::tools {
namespace {

namespace paths = platform::paths;

constexpr char Separator = ',';
constexpr std::string_view LineEnd = "\r\n";

std::string line(std::string_view name, std::string_view size, std::string_view date) {
  return csvField(name) + Separator + csvField(size) + Separator + csvField(date) + std::string(LineEnd);
}

}  // namespace

std::string csvField(std::string_view text) {
  std::string field(text);
  if (!field.empty() && std::string_view("=+-@").find(field.front()) != std::string_view::npos)
    field.insert(0, 1, '\'');
  if (field.find_first_of("\",\r\n") == std::string::npos) return field;
  return platform::quoteArgument(field);
}

void SelectionReport::CommaFile_Click() {
  if (!desk_.form.activePanel()) return;
  panels::Panel& panel = *desk_.form.activePanel();
  if (panel.list.selectedCount() == 0) return desk_.selection.nonselect();
  auto& dialogs = desk_.program.dialogs;
  const std::string folder = paths::withoutClosing(panel.path());
  const std::string name =
      "ItemToFile " + std::string(paths::isRoot(folder) ? folder.substr(0, 1) : paths::fileName(folder)) + ".Csv";
  const std::string path = core::program_file::path(desk_.program.platform, '\\' + name);
  if (!dialogs.AskRetry("Do You Want To Print Selected Items To File As :\r" + name, "Print To File Option !")) return;
  if (!desk_.files().writeFile(path, text(panel))) {
    desk_.program.loop.show({"Alert", "Error !, File Was Not Created !, Check Your Harddrive.",
                             controls::MessageIcon::Exclamation, controls::MessageButtons::Ok});
    return;
  }
  dialogs.inform("Selected Items Printed To File :\r" + path);
}

std::string SelectionReport::text(const panels::Panel& panel) const {
  const auto& clock = desk_.program.platform.clock;
  std::string text =
      "Date: " + core::compareDate(desk_.program.init.DateTimeFormat, clock.local(clock.now())) + std::string(LineEnd);
  text += "Selected Items In Folder: " + panel.path() + std::string(LineEnd) + std::string(LineEnd);
  text +=
      line("Item Name:", "ByteSize:", panel.list.ColumnHeaders.get()[panels::column::Date].Text) + std::string(LineEnd);
  for (std::uint32_t row = 0; row < panel.list.count(); ++row) {
    const auto item = panel.list.item(row);
    if (!item.Selected()) continue;
    const auto& entry = panel.rows->entry(item.id());
    text +=
        line(panel.fileName(item), panel.isFolder(item) ? std::string(panels::FolderMark) : std::to_string(entry.size),
             panel.list.cell(row, panels::column::Date));
  }
  return text;
}

}  // namespace varnholt::tools

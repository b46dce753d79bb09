#include "panels/panel.hpp"

#include "core/item_text.hpp"
#include "platform/paths.hpp"

#include <algorithm>

namespace varnholt::panels {

namespace paths = platform::paths;

void Panel::setPath(std::string_view folder) { path_ = paths::withClosing(folder); }

void Panel::showPath() { controls.Text.Text = paths::withoutClosing(path_); }

std::string Panel::driveRoot() const { return paths::driveOf(path_) + "\\"; }

void Panel::show(std::shared_ptr<const PanelRows> newRows) {
  listed_ = path_;
  rows = std::move(newRows);
  list.setRows(rows);
}

void Panel::clearItems() {
  rows.reset();
  list.clear();
  unreadable.clear();
}

std::string Panel::fileName(controls::ListItem item) const {
  return rows ? std::string(rows->entry(item.id()).name) : std::string();
}

std::string Panel::itemPath(controls::ListItem item) const { return paths::join(path_, fileName(item)); }

core::Item Panel::item(controls::ListItem row) const { return rows ? rows->item(row.id(), path_) : core::Item(); }

std::string Panel::compareText(controls::ListItem item) const {
  return core::rowCompareText(item.Text(), item.SubItems(column::Ext));
}

std::optional<controls::ListItem> Panel::findByCompareText(const std::string& text) const {
  for (std::uint32_t row = 0; row < list.count(); ++row)
    if (controls::ListItem item = list.item(row); compareText(item) == text) return item;
  return {};
}

std::optional<std::uint32_t> Panel::rowOfName(std::string_view name) const {
  for (std::uint32_t row = 0; rows && row < list.count(); ++row)
    if (rows->entry(list.idAt(row)).name == name) return row;
  return {};
}

void Panel::goOnFrom(std::uint32_t row) {
  list.focusRow(row);
  list.ensureVisible(row);
}

void Panel::goOnFrom(std::string_view name) {
  if (const auto row = rowOfName(name)) goOnFrom(*row);
}

std::string Panel::inconsistency() const {
  if (rows && rows.get() != &list.source()) return "the list shows other rows than the panel's";
  std::uint32_t selected = 0;
  std::vector<bool> seen(list.count());
  for (std::uint32_t row = 0; row < list.count(); ++row) {
    const std::uint32_t id = list.idAt(row);
    if (seen[id]) return "a row stands twice in the order";
    seen[id] = true;
    if (list.rowOf(id) != row) return "row and position disagree";
    if (list.isSelected(id)) ++selected;
    if (rows && rows->isFolder(id) != (list.cell(row, column::Size) == FolderMark)) return "a folder without its mark";
  }
  return selected == list.selectedCount() ? "" : "the count of selected rows is wrong";
}

}  // namespace varnholt::panels

#include "vdt/pointer_list.hpp"

#include <algorithm>
#include <utility>

namespace varnholt::vdt {

class PointerList::Rows : public controls::RowSource {
 public:
  struct Row {
    Pointer pointer;
    bool isThere = true;  ///< until it is known better
  };
  std::vector<Row> rows;

  std::uint32_t rowCount() const override { return static_cast<std::uint32_t>(rows.size()); }
  std::string cell(std::uint32_t row, int column) const override {
    const Pointer& pointer = rows[row].pointer;
    return column == 0 ? pointer.Text : column == 1 ? pointer.SubItem : std::string();
  }
  int icon(std::uint32_t row) const override { return rows[row].isThere ? ThereIcon : GoneIcon; }
  std::string seekText(std::uint32_t row) const override {
    const Pointer& pointer = rows[row].pointer;
    return pointer.isFolder() ? pointer.Text : pointer.SubItem;
  }
};

PointerList::PointerList(controls::ListView& list) : list_(list), rows_(std::make_shared<Rows>()) {
  list_.setRows(rows_);
}

std::uint32_t PointerList::count() const { return rows_->rowCount(); }

const Pointer& PointerList::at(std::uint32_t id) const { return rows_->rows[id].pointer; }

bool PointerList::isThere(std::uint32_t id) const { return rows_->rows[id].isThere; }

std::vector<std::string> PointerList::lines() const {
  std::vector<std::string> lines;
  for (std::uint32_t row = 0; row < count(); ++row)
    lines.push_back(at(list_.idAt(row)).key());
  return lines;
}

void PointerList::collectKeys() {
  keys_.clear();
  for (const Rows::Row& row : rows_->rows)
    keys_.insert(row.pointer.key());
}

template <class Change>
void PointerList::changeRows(const Change& change) {
  const auto selected = list_.selectedIds();
  const auto focused = list_.SelectedItem();
  change();
  list_.setRows(rows_);
  for (const std::uint32_t id : selected)
    list_.setSelected(id, true);
  if (focused) list_.focusRow(list_.rowOf(focused->id()));
}

std::size_t PointerList::add(const std::vector<Pointer>& pointers) {
  const std::size_t before = rows_->rows.size();
  changeRows([&] {
    for (const Pointer& pointer : pointers)
      if (keys_.insert(pointer.key()).second) rows_->rows.push_back({pointer});
  });
  return rows_->rows.size() - before;
}

void PointerList::take(std::vector<Pointer> pointers) {
  ++generation_;
  rows_ = std::make_shared<Rows>();
  rows_->rows.reserve(pointers.size());
  for (Pointer& pointer : pointers)
    rows_->rows.push_back({std::move(pointer)});
  list_.setRows(rows_);
  collectKeys();
}

void PointerList::remove(const std::vector<std::uint32_t>& ids) {
  if (ids.empty()) return;
  std::vector<bool> goes(count());
  std::uint32_t row = count();
  for (const std::uint32_t id : ids) {
    goes[id] = true;
    row = std::min(row, list_.rowOf(id));
  }
  ++generation_;
  auto rows = std::make_shared<Rows>();
  std::vector<std::uint32_t> selected;
  for (std::uint32_t id = 0; id < count(); ++id) {
    if (goes[id]) continue;
    if (list_.isSelected(id)) selected.push_back(rows->rowCount());
    rows->rows.push_back(std::move(rows_->rows[id]));
  }
  rows_ = std::move(rows);
  list_.setRows(rows_);
  for (const std::uint32_t id : selected)
    list_.setSelected(id, true);
  collectKeys();
  if (count() > 0) list_.focusRow(std::min(row, count() - 1));
}

void PointerList::note(const std::vector<Finding>& findings) {
  bool respelled = false;
  for (const Finding& found : findings) {
    Rows::Row& row = rows_->rows[found.id];
    row.isThere = found.isThere;
    respelled = respelled || row.pointer != found.pointer;
  }
  list_.markChanged();
  if (!respelled) return;
  changeRows([&] {
    for (const Finding& found : findings)
      rows_->rows[found.id].pointer = found.pointer;
  });
  collectKeys();
}

}  // namespace varnholt::vdt

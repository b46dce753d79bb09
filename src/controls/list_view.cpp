#include "controls/list_view.hpp"

#include <algorithm>
#include <numeric>

namespace varnholt::controls {

/// Rows that were added one by one, with texts of their own.
class ListView::OwnRows : public RowSource {
 public:
  std::uint32_t rowCount() const override { return static_cast<std::uint32_t>(rows_.size()); }
  std::string cell(std::uint32_t row, int column) const override {
    const auto& texts = rows_[row].texts;
    const auto at = static_cast<std::size_t>(column);
    return at < texts.size() ? texts[at] : std::string();
  }
  int icon(std::uint32_t row) const override { return rows_[row].icon; }
  void add(std::string text, int icon) { rows_.push_back({{std::move(text)}, icon}); }
  void setIcon(std::uint32_t row, int icon) { rows_[row].icon = icon; }
  void set(std::uint32_t row, int column, std::string text) {
    auto& texts = rows_[row].texts;
    const auto at = static_cast<std::size_t>(column);
    if (texts.size() <= at) texts.resize(at + 1);
    texts[at] = std::move(text);
  }

 private:
  struct Row {
    std::vector<std::string> texts;
    int icon;
  };
  std::vector<Row> rows_;
};

ListView::ListView(Form& form, std::string name)
    : Control(form, std::move(name), Kind::ListView), own_(std::make_shared<OwnRows>()) {
  source_ = own_;
}

ListView::~ListView() = default;

// --- Rows ----------------------------------------------------------------------------------------------------------

std::uint32_t ListView::count() const { return source_->rowCount(); }

ListItem ListView::item(std::uint32_t row) { return {*this, idAt(row)}; }

std::uint32_t ListView::idAt(std::uint32_t row) const {
  ensureSorted();
  return order_.at(row);
}

std::uint32_t ListView::rowOf(std::uint32_t id) const {
  ensureSorted();
  return position_.at(id);
}

std::string ListView::cell(std::uint32_t row, int column) const { return source_->cell(idAt(row), column); }

void ListView::clear() {
  own_ = std::make_shared<OwnRows>();
  source_ = own_;
  rowsChanged();
}

ListItem ListView::add(std::string text, int icon) {
  if (!own_) clear();
  own_->add(std::move(text), icon);
  marks_.push_back(0);
  if (!colors_.empty()) colors_.push_back(NoColor);
  unsorted();
  return {*this, own_->rowCount() - 1};
}

void ListView::setRows(std::shared_ptr<const RowSource> source) {
  own_.reset();
  source_ = std::move(source);
  rowsChanged();
}

void ListView::rowsChanged() {
  order_.clear();
  marks_.assign(count(), 0);
  colors_.clear();
  selectedCount_ = 0;
  focusedId_.reset();
  anchorId_.reset();
  visibleRequest_.reset();
  onRelease_ = OnRelease::Nothing;
  pressedId_.reset();
  unsorted();
}

// --- Sorting -------------------------------------------------------------------------------------------------------

void ListView::unsorted() {
  needsSort_ = true;
  ++rowsVersion_;
  markChanged();
}

void ListView::setSorted(bool on) {
  if (std::exchange(sorted_, on) != on) unsorted();
}

void ListView::setSortKey(int column) {
  if (std::exchange(sortKey_, column) != column) unsorted();
}

void ListView::setSortOrder(controls::SortOrder order) {
  if (std::exchange(sortOrder_, order) != order) unsorted();
}

void ListView::ensureSorted() const {
  if (!needsSort_) return;
  needsSort_ = false;
  if (!sorted_) order_.clear();
  // Rows that came since the last sort stand behind the others.
  const std::size_t known = order_.size();
  order_.resize(count());
  std::iota(order_.begin() + static_cast<std::ptrdiff_t>(known), order_.end(), static_cast<std::uint32_t>(known));
  if (sorted_) order_ = sortedRows(*source_, sortKey_, sortOrder_ == controls::SortOrder::Descending, order_);
  position_.resize(order_.size());
  for (std::uint32_t row = 0; row < order_.size(); ++row)
    position_[order_[row]] = row;
}

// --- Marks ---------------------------------------------------------------------------------------------------------

void ListView::setSelected(std::uint32_t id, bool on) {
  if (isSelected(id) == on) return;
  marks_[id] ^= SelectedMark;
  on ? ++selectedCount_ : --selectedCount_;
  markChanged();
}

void ListView::setGhosted(std::uint32_t id, bool on) {
  if (isGhosted(id) == on) return;
  marks_[id] ^= GhostedMark;
  markChanged();
}

void ListView::setForeColor(std::uint32_t id, Color color) {
  if (foreColor(id) == color) return;
  if (colors_.empty()) colors_.assign(marks_.size(), NoColor);
  colors_[id] = color;
  markChanged();
}

void ListView::selectNone() {
  if (selectedCount_ == 0) return;
  for (auto& marks : marks_)
    marks &= static_cast<std::uint8_t>(~SelectedMark);
  selectedCount_ = 0;
  markChanged();
}

void ListView::ghostSelected(bool othersKeep) {
  for (auto& marks : marks_) {
    if (marks & SelectedMark) marks |= GhostedMark;
    if (!(marks & SelectedMark) && !othersKeep) marks = 0;
  }
  markChanged();
}

void ListView::clearGhosted() {
  for (auto& marks : marks_)
    marks &= static_cast<std::uint8_t>(~GhostedMark);
  markChanged();
}

void ListView::clearColors() {
  if (colors_.empty()) return;
  colors_.clear();
  markChanged();
}

std::vector<std::uint32_t> ListView::selectedIds() const {
  ensureSorted();
  std::vector<std::uint32_t> ids;
  ids.reserve(selectedCount_);
  if (selectedCount_ == 0) return ids;
  std::ranges::copy_if(order_, std::back_inserter(ids), [&](std::uint32_t id) { return isSelected(id); });
  return ids;
}

// --- The row in focus ----------------------------------------------------------------------------------------------

std::optional<ListItem> ListView::SelectedItem() {
  if (!focusedId_) return {};
  return ListItem(*this, *focusedId_);
}

std::optional<std::uint32_t> ListView::focusedRow() const {
  if (!focusedId_) return {};
  return rowOf(*focusedId_);
}

void ListView::focusRow(std::uint32_t row) {
  focusedId_ = idAt(row);
  anchorId_ = focusedId_;
  markChanged();
}

void ListView::chooseRow(std::uint32_t row) {
  selectOnly(row);
  focusRow(row);
  ensureVisible(row);
}

void ListView::ensureVisible(std::uint32_t row) {
  visibleRequest_ = row;
  markChanged();
}

// --- ListItem ------------------------------------------------------------------------------------------------------

std::string ListItem::Text() const { return view_->source_->cell(id_, 0); }
std::string ListItem::SubItems(int column) const { return view_->source_->cell(id_, column); }
int ListItem::SmallIcon() const { return view_->source_->icon(id_); }
bool ListItem::Selected() const { return view_->isSelected(id_); }
void ListItem::setSelected(bool on) { view_->setSelected(id_, on); }
bool ListItem::Ghosted() const { return view_->isGhosted(id_); }
void ListItem::setGhosted(bool on) { view_->setGhosted(id_, on); }
Color ListItem::ForeColor() const { return view_->foreColor(id_); }
void ListItem::setForeColor(Color color) { view_->setForeColor(id_, color); }
void ListItem::setText(std::string text) { setSubItem(0, std::move(text)); }
void ListItem::setSubItem(int column, std::string text) {
  if (!view_->own_) return;
  view_->own_->set(id_, column, std::move(text));
  view_->unsorted();
}
void ListItem::setSmallIcon(int icon) {
  if (!view_->own_) return;
  view_->own_->setIcon(id_, icon);
  view_->markChanged();
}
std::uint32_t ListItem::row() const { return view_->rowOf(id_); }
void ListItem::EnsureVisible() { view_->ensureVisible(row()); }

}  // namespace varnholt::controls

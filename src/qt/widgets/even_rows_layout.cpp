#include "qt/widgets/even_rows_layout.hpp"

#include "qt/theme.hpp"
#include "qt/widgets/list_view_widget.hpp"

#include <QChildEvent>
#include <QToolButton>

#include <algorithm>

namespace varnholt::qt {
namespace {
// A list of fewer rows is of little use.
constexpr int FewestRows = 8;
}  // namespace

EvenRowsLayout::~EvenRowsLayout() = default;

QLayoutItem* EvenRowsLayout::itemAt(int index) const {
  const auto at = static_cast<std::size_t>(index);
  return index >= 0 && at < items_.size() ? items_[at].get() : nullptr;
}

QLayoutItem* EvenRowsLayout::takeAt(int index) {
  if (!itemAt(index)) return nullptr;
  QLayoutItem* taken = items_[static_cast<std::size_t>(index)].release();
  items_.erase(items_.begin() + index);
  return taken;
}

std::vector<QLayoutItem*> EvenRowsLayout::shown() const {
  std::vector<QLayoutItem*> items;
  for (const auto& item : items_)
    if (!item->isEmpty()) items.push_back(item.get());
  return items;
}

int EvenRowsLayout::gap() const { return theme::Gap / 2; }

QSize EvenRowsLayout::cellSize() const {
  QSize cell;
  for (const QLayoutItem* item : shown())
    cell = cell.expandedTo(item->sizeHint());
  return cell;
}

EvenRowsLayout::Grid EvenRowsLayout::gridFor(int width) const {
  const int count = std::max(1, static_cast<int>(shown().size()));
  const QSize cell = cellSize();
  const int fitting = std::clamp((width + gap()) / std::max(1, cell.width() + gap()), 1, count);
  Grid grid;
  grid.rows = (count + fitting - 1) / fitting;
  grid.columns = (count + grid.rows - 1) / grid.rows;
  grid.cell = QSize(std::max(cell.width(), (width + gap()) / grid.columns - gap()), cell.height());
  return grid;
}

int EvenRowsLayout::heightForWidth(int width) const {
  const QMargins margins = contentsMargins();
  const Grid grid = gridFor(width - margins.left() - margins.right());
  return grid.rows * (grid.cell.height() + gap()) - gap() + margins.top() + margins.bottom();
}

QSize EvenRowsLayout::sizeHint() const {
  const QSize cell = cellSize();
  const int count = static_cast<int>(shown().size());
  return QSize(count * (cell.width() + gap()) - gap(), cell.height()).grownBy(contentsMargins());
}

// Four buttons abreast must always fit: a narrower window is of no use anyway.
QSize EvenRowsLayout::minimumSize() const {
  const QSize cell = cellSize();
  return QSize(4 * (cell.width() + gap()) - gap(), cell.height()).grownBy(contentsMargins());
}

void EvenRowsLayout::setGeometry(const QRect& area) {
  QLayout::setGeometry(area);
  const QRect inner = area.marginsRemoved(contentsMargins());
  const Grid grid = gridFor(inner.width());
  int at = 0;
  for (QLayoutItem* item : shown()) {
    const int column = at % grid.columns, row = at / grid.columns;
    // Cells share the width without rounding gaps at the right end.
    const int left = inner.left() + column * (inner.width() + gap()) / grid.columns;
    const int right = inner.left() + (column + 1) * (inner.width() + gap()) / grid.columns - gap();
    const int top = inner.top() + row * (grid.cell.height() + gap());
    item->setGeometry(QRect(left, top, right - left, grid.cell.height()));
    ++at;
  }
}

EvenRows::EvenRows(QWidget* parent) : QWidget(parent) {
  auto* layout = new EvenRowsLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void EvenRows::childEvent(QChildEvent* event) {
  QWidget::childEvent(event);
  if (event->added() && event->child()->isWidgetType()) layout()->addWidget(static_cast<QWidget*>(event->child()));
}

void EvenRows::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!list_) list_ = window()->findChild<ListViewWidget*>(property("list").toString());
  if (!list_) return;
  list_->viewport()->installEventFilter(this);
  makeRoom();
}

void EvenRows::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  makeRoom();
}

bool EvenRows::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize) makeRoom();
  return false;
}

// What the rows and the list have together stays the same, whichever of them takes more of it.
void EvenRows::makeRoom() {
  if (!list_ || !isVisible()) return;
  const int together = list_->viewport()->height() + height();
  showCaptions(true);
  showCaptions(together - heightForWidth(width()) >= FewestRows * list_->rowHeight());
}

void EvenRows::showCaptions(bool show) {
  for (auto* button : findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly))
    button->setToolButtonStyle(show ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
}

}  // namespace varnholt::qt

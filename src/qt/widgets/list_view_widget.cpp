#include "qt/widgets/list_view_widget.hpp"

#include "qt/icons.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QAccessible>
#include <QHelpEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

namespace varnholt::qt {
namespace {

constexpr int Padding = 6, RowPadding = 3, GhostBar = 3, MarkBar = 3;
// A selected row is that much darker while it has a mark, so that red stays red where it can be read.
constexpr int MarkedDarker = 160;
// The cut look: an icon that is half there.
constexpr double GhostedOpacity = 0.45;
// The toolkit compares each run of selected rows with each of the runs before.
constexpr qsizetype MostSpokenRuns = 1000;

}  // namespace

/// How one row is drawn.
struct ListViewWidget::RowLook {
  std::uint32_t row = 0, id = 0;
  bool selected = false, ghosted = false, focused = false;
  QColor background, text, mark;  ///< mark: the colour of the function that will take the row; invalid: none
};

ListViewWidget::ListViewWidget(QWidget* parent) : QTreeView(parent), header_(new ListHeader(this)) {
  setHeader(header_);
  header_->setSectionsClickable(true);  // the tree has taken that away with its own sorting
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setSelectionMode(QAbstractItemView::MultiSelection);  // of which nobody but assistive technology knows
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setAutoScroll(false);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  setFrameShape(QFrame::NoFrame);
  setColors({theme::listBase(), theme::listBase(), QColor::fromRgb(theme::Text), theme::selection(), Qt::white,
             theme::outline()});
}

void ListViewWidget::setList(controls::ListView& list) {
  list_ = &list;
  model_ = new ListModel(list, this);
  applyRowHeight();
  setModel(model_);
}

void ListViewWidget::setColumnsWidth(int kept, int needed) {
  keptColumns_ = kept;
  neededColumns_ = needed;
}

QSize ListViewWidget::sizeHint() const {
  const QSize size = QTreeView::sizeHint();
  return {std::max(size.width(), keptColumns_ + besideColumns()), size.height()};
}

QSize ListViewWidget::minimumSizeHint() const {
  const QSize size = QTreeView::minimumSizeHint();
  const int rows = property("leastRows").toInt();
  const int height = header_->sizeHint().height() + rows * rowHeight() + 2 * frameWidth();
  return {size.width(), rows > 0 ? height : size.height()};
}

int ListViewWidget::besideColumns() const { return 2 * frameWidth() + verticalScrollBar()->sizeHint().width(); }

bool ListViewWidget::catchUp() {
  const auto change = model_->catchUp();
  if (change == ListModel::Change::Contents) {
    viewport()->update();
    // Assistive technology keeps what it has read of a row until it hears this.
    QAccessibleTableModelChangeEvent reread(this, QAccessibleTableModelChangeEvent::ModelReset);
    if (QAccessible::isActive()) QAccessible::updateAccessibility(&reread);
  }
  return change != ListModel::Change::None;
}

void ListViewWidget::detach() {
  if (model_) model_->detach();
  list_ = nullptr;
}

void ListViewWidget::setColors(const ListColors& colors) {
  colors_ = colors;
  QPalette palette = viewport()->palette();
  if (palette.color(QPalette::Base) != colors.base) {
    palette.setColor(QPalette::Base, colors.base);
    palette.setColor(QPalette::Text, colors.text);
    viewport()->setPalette(palette);
  }
  viewport()->update();
}

int ListViewWidget::rowHeight() const { return std::max(fontMetrics().height(), iconSide()) + 2 * RowPadding; }

int ListViewWidget::iconSide() const { return theme::scaled(16); }

void ListViewWidget::applyRowHeight() {
  if (!model_) return;
  model_->setRowHeight(rowHeight());
  scheduleDelayedItemsLayout();
}

void ListViewWidget::changeEvent(QEvent* event) {
  QTreeView::changeEvent(event);
  if (event->type() == QEvent::FontChange) applyRowHeight();
}

std::optional<std::uint32_t> ListViewWidget::rowAt(int y) const {
  if (!model_ || header_->count() == 0) return {};
  for (int column = 0; column < header_->count(); ++column) {
    if (header_->isSectionHidden(column)) continue;
    const QModelIndex index = indexAt(QPoint(header_->sectionViewportPosition(column) + 1, y));
    if (index.isValid()) return static_cast<std::uint32_t>(index.row());
    return {};
  }
  return {};
}

std::uint32_t ListViewWidget::page() const {
  return static_cast<std::uint32_t>(std::max(1, viewport()->height() / rowHeight()));
}

void ListViewWidget::scrollToRow(std::uint32_t row) {
  if (model_) scrollTo(model_->index(static_cast<int>(row), 0), QAbstractItemView::EnsureVisible);
}

QRect ListViewWidget::placeOfRow(std::uint32_t row) const {
  const QRect cell = visualRect(model_->index(static_cast<int>(row), 0));
  const QRect line(0, cell.top(), viewport()->width(), cell.height());
  return line.translated(viewport()->pos());
}

QPoint ListViewWidget::belowFocusedRow() const {
  const auto row = list_ && model_ ? list_->focusedRow() : std::nullopt;
  if (!row) return viewport()->mapToGlobal(QPoint());
  const QPoint below = placeOfRow(*row).bottomLeft() + QPoint(Padding + iconSide(), 0);
  return mapToGlobal(QPoint(below.x(), std::clamp(below.y(), 0, height())));
}

void ListViewWidget::showFocusedRow() {
  if (!list_ || !model_) return;
  const auto row = list_->focusedRow();
  const QModelIndex index = row ? model_->index(static_cast<int>(*row), 0) : QModelIndex();
  if (index != currentIndex()) selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
}

void ListViewWidget::showSelectedRows() {
  if (!list_ || !model_ || !QAccessible::isActive()) return;
  QItemSelection selected;
  const auto rows = static_cast<std::uint32_t>(model_->rowCount());
  const auto isSelected = [this](std::uint32_t row) { return list_->isSelected(list_->idAt(row)); };
  for (std::uint32_t row = 0; row < rows && selected.size() < MostSpokenRuns; ++row) {
    if (!isSelected(row)) continue;
    const QModelIndex first = model_->index(static_cast<int>(row), 0);
    while (row + 1 < rows && isSelected(row + 1))
      ++row;
    selected.select(first, model_->index(static_cast<int>(row), model_->columnCount() - 1));
  }
  if (selected == selectionModel()->selection()) return;
  const QScopedValueRollback showing(showingSelection_, true);
  selectionModel()->select(selected, QItemSelectionModel::ClearAndSelect);
}

ListViewWidget::RowLook ListViewWidget::lookOf(std::uint32_t row) const {
  RowLook look;
  look.row = row;
  look.id = list_->idAt(row);
  look.selected = list_->isSelected(look.id);
  look.ghosted = list_->isGhosted(look.id);
  look.focused = hasFocus() && list_->focusedRow() == row;
  look.background = look.selected ? colors_.selection : row % 2 ? colors_.stripe : colors_.base;
  const controls::Color own = list_->foreColor(look.id);
  if (own != controls::NoColor) look.mark = theme::colorOf(own);
  if (look.mark.isValid() && look.selected) look.background = colors_.selection.darker(MarkedDarker);
  const QColor plain = look.selected ? colors_.selectionText : colors_.text;
  look.text = theme::readable(look.mark.isValid() ? look.mark : plain, look.background);
  if (!isEnabled()) look.text = QColor::fromRgb(theme::DisabledText);
  return look;
}

void ListViewWidget::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const auto row = static_cast<std::uint32_t>(index.row());
  if (!list_ || row >= list_->count()) return;
  const RowLook look = lookOf(row);
  const QRect line(0, option.rect.top(), viewport()->width(), option.rect.height());
  const bool fullRow = list_->FullRowSelect;
  painter->fillRect(line, fullRow || !look.selected ? look.background : row % 2 ? colors_.stripe : colors_.base);
  for (int column = 0; column < header_->count(); ++column) {
    if (header_->isSectionHidden(column)) continue;
    const QRect cell(header_->sectionViewportPosition(column), line.top(), header_->sectionSize(column), line.height());
    if (!cell.intersects(line)) continue;
    if (!fullRow && look.selected && column == 0) painter->fillRect(cell, look.background);
    drawCell(*painter, cell, look, column);
  }
  if (list_->GridLines) drawGridLines(*painter, line);
  if (look.ghosted) painter->fillRect(line.left(), line.top(), GhostBar, line.height(), QColor::fromRgb(theme::Ghost));
  if (look.mark.isValid()) painter->fillRect(line.left() + GhostBar, line.top(), MarkBar, line.height(), look.mark);
  if (!look.focused) return;
  painter->setPen(theme::accent());
  painter->setBrush(Qt::NoBrush);
  painter->drawRect(line.adjusted(0, 0, -1, -1));
}

void ListViewWidget::drawCell(QPainter& painter, const QRect& cell, const RowLook& look, int column) const {
  QRect area = cell.adjusted(Padding, 0, -Padding, 0);
  if (column == 0) {
    drawIcon(painter, QRect(area.left(), area.center().y() - iconSide() / 2, iconSide(), iconSide()), look);
    area.setLeft(area.left() + iconSide() + Padding);
  }
  if (area.width() <= 0) return;
  const auto& headers = list_->ColumnHeaders.get();
  const auto at = static_cast<std::size_t>(column);
  const bool right = at < headers.size() && headers[at].alignRight;
  painter.setPen(look.text);
  const QString text = toShown(list_->cell(look.row, column));
  painter.drawText(area,
                   static_cast<int>(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft)) | Qt::TextSingleLine,
                   fontMetrics().elidedText(text, Qt::ElideRight, area.width()));
}

void ListViewWidget::drawIcon(QPainter& painter, const QRect& area, const RowLook& look) const {
  const auto& source = list_->source();
  const auto icon = list_->ImageList->find(source.icon(look.id));
  if (icon == list_->ImageList->end()) return;
  painter.setOpacity(look.ghosted ? GhostedOpacity : 1);
  iconNamed(icon->second).paint(&painter, area);
  painter.setOpacity(1);
  const auto emblem = source.emblem(look.id);
  if (emblem == controls::Emblem::None) return;
  const int side = area.width() * 10 / 16;
  const QRect corner(area.right() - side + 2, area.bottom() - side + 2, side, side);
  painter.fillRect(corner, look.background);
  iconNamed(emblem == controls::Emblem::Link ? "link" : "link-gone").paint(&painter, corner);
}

void ListViewWidget::drawGridLines(QPainter& painter, const QRect& row) const {
  painter.setPen(colors_.grid);
  painter.drawLine(row.left(), row.bottom(), row.right(), row.bottom());
  for (int column = 0; column < header_->count(); ++column) {
    if (header_->isSectionHidden(column)) continue;
    const int right = header_->sectionViewportPosition(column) + header_->sectionSize(column) - 1;
    painter.drawLine(right, row.top(), right, row.bottom());
  }
}

void ListViewWidget::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  paintStripes();
  // Where no row is in focus, nothing else tells that the list has the keyboard.
  if (!hasFocus() || !list_ || list_->focusedRow()) return;
  QPainter painter(viewport());
  painter.setPen(theme::accent());
  painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
}

// The stripes go on below the last row, so that a short list looks like a long one.
void ListViewWidget::paintStripes() {
  if (!model_ || colors_.stripe == colors_.base) return;
  const int rows = model_->rowCount();
  const int height = rowHeight();
  const QRect last = rows > 0 ? visualRect(model_->index(rows - 1, 0)) : QRect();
  if (rows > 0 && !last.isValid()) return;
  QPainter painter(viewport());
  int row = rows;
  for (int top = rows > 0 ? last.bottom() + 1 : 0; top < viewport()->height(); top += height, ++row)
    if (row % 2) painter.fillRect(0, top, viewport()->width(), height, colors_.stripe);
}

QString ListViewWidget::cutTextAt(const QPoint& position) const {
  const QModelIndex index = indexAt(position);
  if (!index.isValid()) return {};
  const QString text = index.data().toString();
  const int taken = 2 * Padding + (index.column() == 0 ? iconSide() + Padding : 0);
  return fontMetrics().horizontalAdvance(text) + taken > header_->sectionSize(index.column()) ? text : QString();
}

// A text that does not fit its column is shown whole, above what there is to say of its row. The list's own tip comes
// below the rows alone, where it hides none.
bool ListViewWidget::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  QString tip = toolTip();
  if (const auto row = rowAt(help->pos().y())) {
    std::string text = fromQt(cutTextAt(help->pos()));
    const std::string own = model_->rowToolTip(*row);
    if (!text.empty() && !own.empty()) text += '\r';
    tip = plainToolTip(text + own);
  }
  QToolTip::showText(help->globalPos(), tip, viewport());
  return true;
}

}  // namespace varnholt::qt

#include "qt/icons.hpp"
#include "qt/theme.hpp"
#include "qt/widgets/list_view_widget.hpp"

#include <QIcon>
#include <QPainter>

namespace varnholt::qt {
namespace {
constexpr int Padding = 6, AccentLine = 3, IconGap = 2, Slack = 2;
}

ListHeader::ListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setStretchLastSection(false);
  setMinimumSectionSize(8);
  setFocusPolicy(Qt::NoFocus);
}

void ListHeader::setEmphasis(Emphasis emphasis) {
  if (emphasis_ == emphasis) return;
  emphasis_ = emphasis;
  viewport()->update();
}

QSize ListHeader::sizeHint() const {
  return {QHeaderView::sizeHint().width(), fontMetrics().height() + 2 * Padding + AccentLine};
}

void ListHeader::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(viewport()->rect(), theme::headerBase());
  painter.end();
  QHeaderView::paintEvent(event);
  painter.begin(viewport());
  const QRect line(0, height() - AccentLine, viewport()->width(), AccentLine);
  const bool active = emphasis_ == Emphasis::Active;
  painter.fillRect(line, active ? theme::accent() : theme::headerBase());
}

void ListHeader::paintSection(QPainter* painter, const QRect& section, int logicalIndex) const {
  const QAbstractItemModel* headings = model();
  QRect area = section.adjusted(Padding, 0, -Padding, -AccentLine);
  painter->setPen(theme::outline());
  painter->drawLine(section.right(), section.top() + 4, section.right(), section.bottom() - AccentLine - 4);

  const auto icon = qvariant_cast<QIcon>(headings->headerData(logicalIndex, Qt::Horizontal, Qt::DecorationRole));
  const QString text = headings->headerData(logicalIndex, Qt::Horizontal, Qt::DisplayRole).toString();
  const int side = theme::scaled(12), beside = area.width() - side - IconGap;
  // The sign that a column can be sorted goes before the words of its heading do.
  const bool isSortedBy = icon.cacheKey() != iconNamed("sort-none").cacheKey();
  if (!icon.isNull() && beside >= (isSortedBy ? side : fontMetrics().horizontalAdvance(text) + Slack)) {
    icon.paint(painter, QRect(area.right() - side + 1, area.center().y() - side / 2 + 1, side, side));
    area.setWidth(beside);
  }
  const int align = headings->headerData(logicalIndex, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
  painter->setPen(QColor::fromRgb(emphasis_ == Emphasis::Dimmed ? theme::DimText : theme::Text));
  painter->drawText(area, align | Qt::TextSingleLine, fontMetrics().elidedText(text, Qt::ElideRight, area.width()));
}

}  // namespace varnholt::qt

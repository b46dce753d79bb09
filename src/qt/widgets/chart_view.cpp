#include "qt/widgets/chart_view.hpp"

#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <numeric>

namespace varnholt::qt {
namespace {

constexpr int Padding = 8, Apart = 8, ScaleLines = 4;
constexpr int DescribedPoints = 20;
constexpr double NarrowestBar = 4;
// Neighbours differ in hue and lightness, and each is 3:1 or more on the chart's ground.
constexpr std::array<QRgb, 8> Colors = {0xFF5B9BD5, 0xFFF0A33A, 0xFF7BC47F, 0xFFC792EA,
                                        0xFFE5C558, 0xFF4DB6AC, 0xFFEF7A85, 0xFFA9B1BC};
// In sixteenths of a degree.
constexpr double LinedSlice = 40, FullCircle = 360 * 16;

/// "12 k", "1.4 G": short enough for a scale.
QString brief(double number) {
  int power = 0;
  for (; number >= 1000 && power < 4; ++power)
    number /= 1000;
  const QString digits = QLocale::c().toString(number, 'g', 3);
  return power == 0 ? digits : digits + QLatin1Char(' ') + QLatin1Char(" kMGT"[power]);
}

/// The next larger of 1, 2, 2.5, 5, 10, 20 and so on; at least 1.
double roundStep(double number) {
  if (number <= 1) return 1;
  const double power = std::pow(10, std::floor(std::log10(number)));
  for (const double factor : {1.0, 2.0, 2.5, 5.0})
    if (number <= factor * power) return factor * power;
  return 10 * power;
}

QAccessibleInterface* spokenChart(const QString&, QObject* object) {
  auto* chart = qobject_cast<ChartView*>(object);
  return chart ? new QAccessibleWidget(chart, QAccessible::Chart) : nullptr;
}

}  // namespace

ChartView::ChartView(QWidget* parent) : QWidget(parent) {
  QAccessible::installFactory(spokenChart);  // a factory that is known already is not taken twice
  setFocusPolicy(Qt::StrongFocus);
  scroll_.hide();
  scroll_.setFocusPolicy(Qt::NoFocus);
  scroll_.setAccessibleName(QStringLiteral("Bars in view"));
  connect(&scroll_, &QScrollBar::valueChanged, this, qOverload<>(&QWidget::update));
}

// --- What is shown -------------------------------------------------------------------------------------------------

void ChartView::setPoints(std::vector<Point> points) {
  points_ = std::move(points);
  ends_.clear();
  highest_ = 0;
  double sum = 0;
  for (int point = 0; point < count(); ++point) {
    ends_.push_back(sum += number(point));
    highest_ = std::max(highest_, number(point));
  }
  fitScroll();
  describe();
}

void ChartView::setType(Type type) {
  if (type_ == type) return;
  type_ = type;
  fitScroll();
  describe();
}

void ChartView::setTitle(const QString& title) {
  title_ = title;
  update();
}

void ChartView::setSelected(int point) {
  if (selected_ == point) return;
  selected_ = point;
  showSelected();
  update();
}

double ChartView::number(int point) const {
  const double number = points_[static_cast<std::size_t>(point)].number;
  return std::isfinite(number) ? std::max(0.0, number) : 0;
}

QColor ChartView::colorOf(int point) const {
  const QColor& own = points_[static_cast<std::size_t>(point)].color;
  return own.isValid() ? own : QColor::fromRgb(Colors[static_cast<std::size_t>(point) % Colors.size()]);
}

QString ChartView::share(int point) const {
  return QLocale::c().toString(total() > 0 ? number(point) / total() * 100 : 0, 'f', 1) + QLatin1Char('%');
}

// Slices and bars are no objects of their own for assistive technology, so the chart says what they are.
void ChartView::describe() {
  QStringList parts;
  for (int point = 0; point < std::min(count(), DescribedPoints); ++point)
    parts += points_[static_cast<std::size_t>(point)].label + QLatin1Char(' ') + share(point);
  if (count() > DescribedPoints) parts += QStringLiteral("+ %1").arg(count() - DescribedPoints);
  const QString kind = type_ == Type::Pie ? QStringLiteral("Pie: ") : QStringLiteral("Bars: ");
  setAccessibleDescription(kind + parts.join(QStringLiteral(", ")));
  update();
}

// --- Where it is ---------------------------------------------------------------------------------------------------

QSize ChartView::sizeHint() const { return {theme::scaled(320), theme::scaled(220)}; }
QSize ChartView::minimumSizeHint() const { return {theme::scaled(120), theme::scaled(90)}; }

QRect ChartView::body() const {
  const int title = title_.isEmpty() ? 0 : fontMetrics().height() + Padding;
  return rect().adjusted(Padding, Padding + title, -Padding, -Padding);
}

// The pie leaves the right half to its legend.
QRect ChartView::pieBox() const {
  const QRect area = body();
  const int side = std::max(1, std::min(area.width() / 2, area.height()) - 2 * Apart);
  return {area.left() + Apart, area.center().y() - side / 2, side, side};
}

QRect ChartView::plot() const {
  if (type_ == Type::Pie) return pieBox();
  const int scale = fontMetrics().horizontalAdvance(QStringLiteral("88.8 M")) + Padding;
  const QRect area = body();
  const int bar = NarrowestBar * count() > area.width() - scale ? scroll_.sizeHint().height() : 0;
  return area.adjusted(scale, Padding, 0, -(fontMetrics().height() + Padding + bar));
}

double ChartView::barWidth() const {
  return count() > 0 ? std::max(static_cast<double>(plot().width()) / count(), NarrowestBar) : 0;
}

// Rounded edges meet, whatever fraction of a pixel a bar's width has.
QRect ChartView::barOf(int point) const {
  const QRect area = plot();
  const double width = barWidth();
  const int first = area.left() - scroll_.value();
  const int left = first + static_cast<int>(width * point);
  const int right = first + static_cast<int>(width * (point + 1));
  const int gap = width >= 6 ? static_cast<int>(width / 6) : 0;
  const int height = highest_ > 0 ? static_cast<int>(std::lround(number(point) / highest_ * area.height())) : 0;
  return {left + gap, area.bottom() + 1 - height, std::max(1, right - left - 2 * gap), height};
}

void ChartView::fitScroll() {
  const QRect area = plot();
  const int hidden = type_ == Type::Bar ? static_cast<int>(barWidth() * count()) - area.width() : 0;
  scroll_.setVisible(hidden > 0);
  scroll_.setRange(0, std::max(hidden, 0));
  scroll_.setPageStep(area.width());
  scroll_.setSingleStep(theme::scaled(40));
  const int height = scroll_.sizeHint().height();
  scroll_.setGeometry(area.left(), this->height() - height - 1, area.width(), height);
  showSelected();
}

void ChartView::showSelected() {
  if (selected_ < 0 || selected_ >= count() || scroll_.maximum() == 0) return;
  const QRect bar = barOf(selected_), area = plot();
  if (bar.left() < area.left() || bar.right() > area.right())
    scroll_.setValue(scroll_.value() + bar.center().x() - area.center().x());
}

int ChartView::pointOf(double sum) const {
  return std::min(static_cast<int>(std::ranges::upper_bound(ends_, sum) - ends_.begin()), count() - 1);
}

int ChartView::pointAt(const QPoint& position) const {
  if (count() == 0) return -1;
  const QRectF area = plot();
  if (type_ == Type::Bar) {
    if (!area.contains(position)) return -1;
    return std::min(static_cast<int>((position.x() - area.left() + scroll_.value()) / barWidth()), count() - 1);
  }
  const QPointF from = QPointF(position) - area.center();
  if (total() <= 0 || std::hypot(from.x(), from.y()) > area.width() / 2) return -1;
  const double turn = std::atan2(from.x(), -from.y()) / (2 * std::numbers::pi);
  return pointOf((turn < 0 ? turn + 1 : turn) * total());
}

QPoint ChartView::middleOf(int point) const {
  if (type_ == Type::Bar) {
    const QRect bar = barOf(point);
    return {bar.center().x(), bar.height() > 0 ? bar.center().y() : plot().bottom()};
  }
  const QRectF area = plot();
  const double angle = (start(point) + end(point)) / 2 / total() * 2 * std::numbers::pi;
  return (area.center() + QPointF(std::sin(angle), -std::cos(angle)) * area.width() / 3).toPoint();
}

// --- Drawing -------------------------------------------------------------------------------------------------------

void ChartView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), theme::listBase());
  painter.setPen(hasFocus() ? theme::accent() : theme::outline());
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.setPen(QColor::fromRgb(theme::Text));
  const QRect line(Padding, Padding, width() - 2 * Padding, fontMetrics().height());
  painter.drawText(line, Qt::AlignHCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(title_, Qt::ElideRight, line.width()));
  type_ == Type::Pie ? drawPie(painter) : drawBars(painter);
}

void ChartView::drawSlice(QPainter& painter, double from, double to, const QColor& color, bool apart) const {
  QRectF box = pieBox();
  if (apart) {
    const double angle = (from + to) / 2 / FullCircle * 2 * std::numbers::pi;
    box.translate(std::sin(angle) * Apart, -std::cos(angle) * Apart);
  }
  painter.setBrush(color);
  // A line around a slice that is hardly wider than the line would be all that is seen of it.
  const bool lined = to - from >= LinedSlice;
  painter.setPen(apart ? QPen(Qt::white, 2) : QPen(lined ? theme::listBase() : color, 1));
  // From the top, clockwise; the toolkit counts from the right and the other way.
  const int begin = static_cast<int>(std::lround(FullCircle / 4 - from));
  const int span = static_cast<int>(std::lround(from - to));
  if (to - from >= FullCircle) {
    painter.drawEllipse(box);
  } else {
    painter.drawPie(box, begin, span);
  }
}

void ChartView::drawPie(QPainter& painter) const {
  if (total() <= 0) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(theme::outline());
    painter.drawEllipse(pieBox());
  }
  const bool apart = total() > 0 && selected_ >= 0 && selected_ < count() && number(selected_) > 0;
  const auto at = [this](double sum) { return sum / total() * FullCircle; };
  // What is thinner than a pixel at the rim is drawn together with the next.
  const double thinnest = FullCircle / (std::numbers::pi * pieBox().width());
  double drawn = 0;
  for (int point = 0; point < count() && total() > 0; ++point) {
    const bool last = point + 1 == count() || (apart && point + 1 == selected_);
    const double to = at(end(point));
    const bool own = apart && point == selected_;
    if (!own && !last && to - drawn < thinnest) continue;
    if (!own && to > drawn) drawSlice(painter, drawn, to, colorOf(point), false);
    drawn = to;
  }
  if (apart) drawSlice(painter, at(start(selected_)), at(end(selected_)), colorOf(selected_), true);
  drawLegend(painter);
}

void ChartView::drawLegend(QPainter& painter) const {
  const QRect area = body();
  const int line = fontMetrics().height() + 4, side = fontMetrics().ascent();
  const int left = pieBox().right() + 3 * Apart, width = area.right() - left;
  const int fitting = std::max(1, area.height() / line);
  const std::vector<int> shown = largestPoints(count() > fitting ? fitting - 1 : count());
  int top = area.center().y() - (std::min(count(), fitting) * line) / 2;
  const auto draw = [&](const QString& label, const QString& value) {
    const QRect text(left + side + Padding, top, width - side - Padding, line);
    const int room = text.width() - fontMetrics().horizontalAdvance(value) - Padding;
    painter.drawText(text, Qt::AlignRight | Qt::AlignVCenter, value);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter, fontMetrics().elidedText(label, Qt::ElideMiddle, room));
    top += line;
  };
  for (const int point : shown) {
    painter.fillRect(left, top + 2, side, side, colorOf(point));
    painter.setPen(point == selected_ ? QColor(Qt::white) : QColor::fromRgb(theme::Text));
    draw(points_[static_cast<std::size_t>(point)].label, share(point));
  }
  painter.setPen(QColor::fromRgb(theme::Text));
  if (const auto rest = count() - static_cast<int>(shown.size()); rest > 0) draw({}, QStringLiteral("+ %1").arg(rest));
}

// In the order of the points: those that have room are told, and of too many the largest.
std::vector<int> ChartView::largestPoints(int most) const {
  std::vector<int> points(points_.size());
  std::iota(points.begin(), points.end(), 0);
  if (most >= count()) return points;
  const auto larger = [this](int one, int other) {
    return std::pair(-number(one), one) < std::pair(-number(other), other);
  };
  std::ranges::partial_sort(points, points.begin() + most, larger);
  points.resize(static_cast<std::size_t>(most));
  std::ranges::sort(points);
  return points;
}

void ChartView::drawScale(QPainter& painter) const {
  const QRect area = plot();
  const double step = roundStep(highest_ / ScaleLines);
  for (double value = 0; value <= highest_; value += step) {
    const int y = area.bottom() - static_cast<int>(highest_ > 0 ? area.height() * value / highest_ : 0);
    painter.setPen(theme::gridLine());
    painter.drawLine(area.left(), y, area.right(), y);
    painter.setPen(QColor::fromRgb(theme::DimText));
    painter.drawText(QRect(0, y - fontMetrics().height() / 2, area.left() - Padding, fontMetrics().height()),
                     Qt::AlignRight | Qt::AlignVCenter, brief(value));
  }
}

void ChartView::drawBars(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing, false);
  drawScale(painter);
  const QRect area = plot();
  painter.setClipRect(area);
  for (int point = std::max(pointAt(area.topLeft()), 0); point < count(); ++point) {
    const QRect bar = barOf(point);
    if (bar.left() > area.right()) break;
    painter.fillRect(bar, colorOf(point));
  }
  if (selected_ >= 0 && selected_ < count()) {
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(colorOf(selected_));
    painter.drawRect(barOf(selected_));
  }
  painter.setClipping(false);
  drawBarLabels(painter);
}

// Labels stand under bars that are wide enough to have one; below that only the chosen one has.
void ChartView::drawBarLabels(QPainter& painter) const {
  const QRect area = plot();
  const int room = count() > 0 ? area.width() / count() : 0;
  const bool all = room >= fontMetrics().horizontalAdvance(QStringLiteral("abcdef"));
  const auto draw = [&](int point, const QRect& place) {
    painter.setPen(point == selected_ ? QColor(Qt::white) : QColor::fromRgb(theme::Text));
    painter.drawText(
        place, Qt::AlignHCenter | Qt::AlignTop,
        fontMetrics().elidedText(points_[static_cast<std::size_t>(point)].label, Qt::ElideMiddle, place.width() - 2));
  };
  const int top = area.bottom() + Padding / 2;
  for (int point = 0; all && point < count(); ++point)
    draw(point, QRect(area.left() + room * point, top, room, fontMetrics().height()));
  if (!all && selected_ >= 0 && selected_ < count())
    draw(selected_, QRect(area.left(), top, area.width(), fontMetrics().height()));
}

// --- The user ------------------------------------------------------------------------------------------------------

// Most points of a large chart have no label: pointing tells which one it is.
bool ChartView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    if (const int point = pointAt(help->pos()); point >= 0) {
      const QString name = points_[static_cast<std::size_t>(point)].label + QStringLiteral("   ") + share(point);
      QToolTip::showText(help->globalPos(), plainToolTip(fromQt(name + QLatin1Char('\n') + toolTip())), this);
      return true;
    }
  }
  return QWidget::event(event);
}

void ChartView::resizeEvent(QResizeEvent*) { fitScroll(); }

void ChartView::wheelEvent(QWheelEvent* event) {
  if (scroll_.isVisible()) QCoreApplication::sendEvent(&scroll_, event);
}

// A click on a chart is not one on the window behind it.
void ChartView::mouseReleaseEvent(QMouseEvent* event) { event->accept(); }

void ChartView::mousePressEvent(QMouseEvent* event) {
  const int point = event->button() == Qt::LeftButton ? pointAt(event->position().toPoint()) : -1;
  if (point >= 0) Q_EMIT pointChosen(point);
}

void ChartView::keyPressEvent(QKeyEvent* event) {
  const int last = count() - 1;
  int point = -1;
  switch (event->key()) {
  case Qt::Key_Right:
  case Qt::Key_Down:
    point = std::min(selected_ + 1, last);
    break;
  case Qt::Key_Left:
  case Qt::Key_Up:
    point = std::max(selected_ - 1, 0);
    break;
  case Qt::Key_Home:
    point = 0;
    break;
  case Qt::Key_End:
    point = last;
    break;
  default:
    return QWidget::keyPressEvent(event);
  }
  if (point >= 0 && point <= last) Q_EMIT pointChosen(point);
}

}  // namespace varnholt::qt

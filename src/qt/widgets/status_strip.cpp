#include "qt/widgets/status_strip.hpp"

#include "qt/theme.hpp"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <numeric>

namespace varnholt::qt {
namespace {
// The slack takes what rounding a text's width to whole pixels loses.
constexpr int Padding = 8, TightPadding = 3, Slack = 2, MostSlack = 2;

// The first section begins where the strip does, so that it stands in line with what is above it.
int sidesOf(std::size_t section) { return section == 0 ? 1 : 2; }

QAccessibleInterface* statusBarOf(const QString&, QObject* object) {
  auto* strip = qobject_cast<StatusStrip*>(object);
  return strip ? new QAccessibleWidget(strip, QAccessible::StatusBar) : nullptr;
}
}  // namespace

StatusStrip::StatusStrip(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  QAccessible::installFactory(statusBarOf);  // a factory that is known already is not taken twice
}

void StatusStrip::setTexts(const QStringList& texts) {
  if (texts == texts_) return;
  texts_ = texts;
  widest_.resize(static_cast<std::size_t>(texts.size()));
  for (std::size_t at = 0; at < widest_.size(); ++at) {
    const int needed = std::max(usualWidth(at), neededWidth(at, texts_[static_cast<qsizetype>(at)]));
    // A text that was another matter altogether leaves no hole behind.
    if (widest_[at] < needed || widest_[at] > MostSlack * needed) widest_[at] = needed;
  }
  setAccessibleDescription(texts_.join(QLatin1String(", ")));
  for (auto at = static_cast<qsizetype>(sections_.size()); at < texts_.size(); ++at) {
    sections_.push_back(new QLabel(this));
    sections_.back()->setTextFormat(Qt::PlainText);
  }
  place();
}

// What does not fit is cut where it is drawn, and whole where it is spoken.
void StatusStrip::place() {
  const std::vector<int> widths = sectionWidths();
  int left = 0;
  for (std::size_t at = 0; at < widths.size(); ++at) {
    const QString& text = texts_[static_cast<qsizetype>(at)];
    const QRect inner = QRect(left, 0, widths[at], height()).adjusted(at == 0 ? 0 : padding(), 0, -padding(), 0);
    sections_[at]->setVisible(inner.width() > 0);
    sections_[at]->setGeometry(inner);
    sections_[at]->setText(fontMetrics().elidedText(text, Qt::ElideRight, inner.width()));
    sections_[at]->setAccessibleName(text);
    left += widths[at];
  }
  update();
}

QSize StatusStrip::sizeHint() const {
  return {std::accumulate(widest_.begin(), widest_.end(), 0), fontMetrics().height() + Padding};
}

QSize StatusStrip::minimumSizeHint() const { return {0, sizeHint().height()}; }

int StatusStrip::neededWidth(std::size_t section, const QString& text) const {
  return text.isEmpty() ? 0 : fontMetrics().horizontalAdvance(text) + sidesOf(section) * Padding + Slack;
}

int StatusStrip::usualWidth(std::size_t section) const {
  const QStringList usual = property("usualTexts").toStringList();
  const auto at = static_cast<qsizetype>(section);
  return at < usual.size() ? neededWidth(section, usual[at]) : 0;
}

// Sections stay as wide as their widest text was. Where that does not fit, the room around the texts goes first, then
// what no text of now needs, and then all sections give up the same share.
int StatusStrip::padding() const { return sizeHint().width() > width() ? TightPadding : Padding; }

std::vector<int> StatusStrip::sectionWidths() const {
  std::vector<int> widths = widest_;
  const auto sum = [&widths] { return std::accumulate(widths.begin(), widths.end(), 0); };
  const auto tighten = [this, &widths] {
    for (std::size_t at = 0; at < widths.size(); ++at)
      if (widths[at] > 0) widths[at] -= sidesOf(at) * (Padding - padding());
  };
  tighten();
  if (sum() > width()) {
    for (std::size_t at = 0; at < widths.size(); ++at)
      widths[at] = neededWidth(at, texts_[static_cast<qsizetype>(at)]);
    tighten();
  }
  const int wanted = sum();
  if (wanted > width())
    for (int& each : widths)
      each = each * width() / wanted;
  if (!widths.empty()) widths.back() += width() - sum();
  return widths;
}

void StatusStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(theme::outline());
  int left = 0;
  for (const int width : sectionWidths()) {
    if (left > 0 && width > 0) painter.drawLine(left, 4, left, height() - 5);
    left += width;
  }
}

void StatusStrip::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (event->size().width() == event->oldSize().width()) return place();
  widest_.assign(widest_.size(), 0);
  const QStringList texts = std::exchange(texts_, {});
  setTexts(texts);
}

int StatusStrip::sectionAt(int x) const {
  const auto widths = sectionWidths();
  int right = 0;
  for (std::size_t at = 0; at < widths.size(); ++at)
    if (x < (right += widths[at])) return static_cast<int>(at);
  return -1;
}

// The tool tip of a section is its whole text, so that nothing is lost when it is cut.
bool StatusStrip::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const int at = sectionAt(help->pos().x());
  if (at < 0 || texts_[at].isEmpty()) return QWidget::event(event);
  QToolTip::showText(help->globalPos(), texts_[at], this);
  return true;
}

}  // namespace varnholt::qt

// The controls that show or set a number in a range, and the month.
#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/icons.hpp"
#include "qt/theme.hpp"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCoreApplication>
#include <QItemSelectionModel>
#include <QProgressBar>
#include <QSlider>
#include <QTextCharFormat>
#include <QToolButton>

#include <algorithm>
#include <tuple>
#include <utility>

namespace varnholt::qt {
namespace {

// A bar counts in bytes as well as in items: the widget gets the share, in steps finer than its pixels.
constexpr int BarSteps = 10'000;

class ProgressBarAdapter : public Joined<controls::ProgressBar, QProgressBar> {
 public:
  using Joined::Joined;

 protected:
  QString ownName() const override { return QStringLiteral("Progress"); }

  void updateOwn() override {
    const double range = self.Max - self.Min;
    const double share = range > 0 ? (self.Value - self.Min) / range : 0;
    if (drawn.maximum() != BarSteps) drawn.setRange(0, BarSteps);
    drawn.setValue(static_cast<int>(std::clamp(share, 0.0, 1.0) * BarSteps));
    // While nothing moves, its room is for the texts beside it.
    if (const int working = drawn.property("widthAtWork").toInt()) drawn.setMinimumWidth(share > 0 ? working : 0);
  }
};

class SliderAdapter : public Joined<controls::Slider, QSlider> {
 public:
  SliderAdapter(Host& host, controls::Slider& control, QSlider& widget) : Joined(host, control, widget) {
    connect(&drawn, &QSlider::valueChanged, this, [this](int value) {
      if (updating()) return;
      this->host().fromUser([this, value] { self.slideFromUser(value); });
    });
  }

 protected:
  bool clicksByMouse() const override { return false; }

  void updateOwn() override {
    drawn.setRange(self.Min, self.Max);
    drawn.setSingleStep(self.SmallChange);
    drawn.setPageStep(self.LargeChange);
    drawn.setValue(self.Value);
  }
};

class MonthViewAdapter : public Joined<controls::MonthView, QCalendarWidget> {
 public:
  MonthViewAdapter(Host& host, controls::MonthView& control, QCalendarWidget& widget) : Joined(host, control, widget) {
    drawn.setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    // The names by which the toolkit calls its own parts.
    for (const auto& [part, icon, name] : {std::tuple{"qt_calendar_prevmonth", "back", "Previous month"},
                                           {"qt_calendar_nextmonth", "forward", "Next month"}}) {
      auto* button = drawn.findChild<QToolButton*>(QLatin1String(part));
      if (!button) continue;
      button->setIcon(iconNamed(icon));
      button->setAccessibleName(QLatin1String(name));
      button->setToolTip(QLatin1String(name));
    }
    // Its own ground is the accent, on which the accent of the arrows would be lost.
    if (auto* bar = drawn.findChild<QWidget*>(QStringLiteral("qt_calendar_navigationbar")))
      bar->setBackgroundRole(QPalette::Button);
    connect(&drawn, &QCalendarWidget::clicked, this, &MonthViewAdapter::pick);
    connect(&drawn, &QCalendarWidget::activated, this, &MonthViewAdapter::pick);
    // The day that the keys have gone to looks chosen.
    connect(&drawn, &QCalendarWidget::selectionChanged, this, [this] {
      if (!updating()) pick(drawn.selectedDate());
    });
    // Told behind the change: mouse and keys mark a day, and then it is the current one, too.
    if ((days_ = drawn.findChild<QAbstractItemView*>(QStringLiteral("qt_calendar_calendarview"))))
      connect(days_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &MonthViewAdapter::pickMarked,
              Qt::QueuedConnection);
  }

 protected:
  bool clicksByMouse() const override { return false; }
  QString ownName() const override { return QStringLiteral("Month"); }

  void updateOwn() override {
    // The toolkit's own red of the weekends is hard to read on dark.
    QTextCharFormat weekend;
    weekend.setForeground(theme::readable(Qt::red, theme::field()));
    for (const auto weekday : {Qt::Saturday, Qt::Sunday})
      drawn.setWeekdayTextFormat(weekday, weekend);
    const auto& [year, month, day] = self.Value.get();
    drawn.setSelectedDate(QDate(year, month, day));
    // The days have the keyboard, and are what is spoken.
    if (days_) days_->setAccessibleName(accessibleName());
  }

 private:
  /// Assistive technology marks a day where a user clicks it. The toolkit alone knows its date.
  void pickMarked() {
    const QModelIndexList marked = days_->selectionModel()->selectedIndexes();
    if (abandoned() || marked.isEmpty() || marked.front() == days_->currentIndex()) return;
    const QPointF at = days_->visualRect(marked.front()).center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
      QMouseEvent click(type, at, days_->viewport()->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
      QCoreApplication::sendEvent(days_->viewport(), &click);
    }
  }

  void pick(QDate date) {
    const controls::MonthView::Day day{date.year(), date.month(), date.day()};
    if (self.Value.get() != day) host().fromUser([this, day] { self.pickFromUser(day); });
  }

  QAbstractItemView* days_ = nullptr;
};

}  // namespace

std::unique_ptr<Adapter> joinProgressBar(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<ProgressBarAdapter>(host, control, widget);
}

std::unique_ptr<Adapter> joinSlider(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<SliderAdapter>(host, control, widget);
}

std::unique_ptr<Adapter> joinMonthView(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<MonthViewAdapter>(host, control, widget);
}

}  // namespace varnholt::qt

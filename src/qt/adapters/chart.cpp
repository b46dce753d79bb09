#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"
#include "qt/widgets/chart_view.hpp"

namespace varnholt::qt {
namespace {

class ChartAdapter : public Joined<controls::Chart, ChartView> {
 public:
  ChartAdapter(Host& host, controls::Chart& control, ChartView& widget) : Joined(host, control, widget) {
    connect(&drawn, &ChartView::pointChosen, this,
            [this](int point) { this->host().fromUser([this, point] { self.selectFromUser(point); }); });
  }

 protected:
  QString ownName() const override {
    const QString title = toQt(self.Title.get());
    return title.isEmpty() ? QStringLiteral("Chart") : title;
  }

  void updateOwn() override {
    if (values_ != self.Values.get()) showValues();
    drawn.setType(self.ChartType == controls::Chart::Type::Pie ? ChartView::Type::Pie : ChartView::Type::Bar);
    drawn.setTitle(toQt(self.Title.get()));
    drawn.setSelected(self.SelectedPoint);
  }

 private:
  void showValues() {
    values_ = self.Values.get();
    std::vector<ChartView::Point> points;
    points.reserve(values_.size());
    for (const auto& value : values_)
      points.push_back(
          {toQt(value.label), value.number, value.color == controls::NoColor ? QColor() : theme::colorOf(value.color)});
    drawn.setPoints(std::move(points));
  }

  std::vector<controls::Chart::Value> values_;
};

}  // namespace

std::unique_ptr<Adapter> joinChart(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<ChartAdapter>(host, control, widget);
}

}  // namespace varnholt::qt

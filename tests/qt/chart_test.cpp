#include "controls/standard.hpp"
#include "joined.hpp"
#include "qt/theme.hpp"
#include "qt/widgets/chart_view.hpp"

#include <limits>

namespace varnholt::test {
namespace {

constexpr controls::Color Red = 0x0000FF, Green = 0x00FF00;

class DrawnChart : public Joined {
 protected:
  DrawnChart() {
    join(chart, view);
    view.resize(480, 260);
    view.show();
    chart.PointSelected = [this](int point) { chosen.push_back(point); };
  }
  using Values = std::vector<controls::Chart::Value>;

  QImage draw() {
    Joined::draw();
    return view.grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
  void show(controls::Chart::Type type, Values values) {
    chart.ChartType = type;
    chart.Values = std::move(values);
    chart.SelectedPoint = -1;
    draw();
  }
  int pixels(const QImage& image, const QColor& color) const {
    const QRect plot = view.plot();
    int count = 0;
    for (int y = plot.top(); y <= plot.bottom(); ++y)
      for (int x = plot.left(); x <= plot.right(); ++x)
        count += image.pixelColor(x, y) == color;
    return count;
  }
  void click(const QPoint& at) { QTest::mouseClick(&view, Qt::LeftButton, {}, at); }

  controls::Form form{loop, "ChartForm"};
  controls::Chart chart{form, "Chart1"};
  qt::ChartView view;
  std::vector<int> chosen;
};

constexpr auto Pie = controls::Chart::Type::Pie;
constexpr auto Bar = controls::Chart::Type::Bar;

TEST_F(DrawnChart, SlicesAndBarsAreAsLargeAsTheirNumbersInTheColoursGiven) {
  show(Pie, {{"Used", 3e11, Red}, {"Available", 1e11, Green}});
  QImage image = draw();
  const double red = pixels(image, Qt::red), green = pixels(image, QColor(0, 255, 0));
  EXPECT_NEAR(red / (red + green), 0.75, 0.02);
  const QPoint middle = view.plot().center(), near(4, 4);
  EXPECT_EQ(image.pixelColor(middle - near), QColor(0, 255, 0)) << "the last quarter ends at the top";
  EXPECT_EQ(image.pixelColor(middle + near), QColor(Qt::red));
  show(Bar, {{"a", 10, Red}, {"b", 40, Green}, {"c", 20, Red}});
  image = draw();
  const int bars = pixels(image, QColor(0, 255, 0));
  EXPECT_NEAR(pixels(image, Qt::red), bars * 3 / 4, bars / 10);
  EXPECT_EQ(image.pixelColor(view.middleOf(1).x(), view.plot().top() + 2), QColor(0, 255, 0)) << "up to the top";
}

TEST_F(DrawnChart, AClickOnAPointArrivesOnceAndElsewhereNeverAndKeysWalkThem) {
  for (const auto type : {Pie, Bar}) {
    show(type, {{"a", 10}, {"b", 40}, {"c", 20}});
    for (const int point : {1, 2, 0}) {
      click(view.middleOf(point));
      EXPECT_EQ(chart.SelectedPoint.get(), point);
    }
    click({1, 1});
    EXPECT_EQ(std::exchange(chosen, {}), (std::vector<int>{1, 2, 0}));
  }
  for (const auto key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_End, Qt::Key_Right, Qt::Key_Left, Qt::Key_Home}) {
    QTest::keyClick(&view, key);
    draw();
  }
  EXPECT_EQ(chosen, (std::vector<int>{0, 1, 2, 2, 1, 0}));
}

TEST_F(DrawnChart, AssistiveTechnologyHearsTheTitleAndTheNumbers) {
  chart.Title = "Disk usage";
  show(Pie, {{"Used", 3, Red}, {"Available", 1, Green}});
  EXPECT_EQ(joined.front()->accessibleName(), QStringLiteral("Disk usage"));
  EXPECT_EQ(view.accessibleDescription(), QStringLiteral("Pie: Used 75.0%, Available 25.0%"));
  chart.Title = "";
  EXPECT_EQ(joined.front()->accessibleName(), QStringLiteral("Chart"));
}

TEST_F(DrawnChart, ItsOwnColoursAreToldFromTheGroundAndFromTheirNeighbours) {
  show(Pie, Values(12, {"file", 1}));
  const QColor ground = qt::theme::listBase();
  for (int point = 0; point < 12; ++point) {
    EXPECT_GE(qt::theme::contrast(view.colorOf(point), ground), 3.0) << point;
    EXPECT_NE(view.colorOf(point), view.colorOf((point + 1) % 12)) << point;
  }
  EXPECT_GE(qt::theme::contrast(QColor::fromRgb(qt::theme::DimText), ground), 4.5);
}

TEST_F(DrawnChart, NumbersThatCannotBeDrawnAreNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN(), infinite = std::numeric_limits<double>::infinity();
  for (const auto type : {Pie, Bar}) {
    for (const Values& values :
         {Values{}, Values{{"zero", 0}}, Values{{"less", -5}, {"none", nan}, {"all", infinite}}}) {
      show(type, values);
      click(view.plot().center());
      QTest::keyClick(&view, Qt::Key_Right);
      EXPECT_GT(pixels(draw(), qt::theme::listBase()), 100);
    }
    show(type, {{"less", -5, Red}, {"real", 5, Green}});
    EXPECT_EQ(pixels(draw(), Qt::red), 0);
    EXPECT_GT(pixels(draw(), QColor(0, 255, 0)), 100);
    chosen.clear();
  }
}

TEST_F(DrawnChart, AsManyPointsAsAFolderHasFilesAreDrawnAndHit) {
  Values values(100'000, {"small", 1, Green});
  values[50'000] = {"large", 1e6, Red};
  show(Pie, values);
  EXPECT_GT(pixels(draw(), Qt::red), 50) << "a large one among many is seen";
  EXPECT_GT(pixels(draw(), QColor(0, 255, 0)), 50);
  show(Bar, values);
  EXPECT_EQ(pixels(draw(), Qt::red), 0) << "further on than there is room";
  chart.SelectedPoint = 50'000;
  EXPECT_GT(pixels(draw(), Qt::red), 50) << "the chosen one comes into view";
  for (const int point : {50'000, 49'990}) {
    click(view.middleOf(point));
    EXPECT_EQ(chart.SelectedPoint.get(), point);
  }
}

}  // namespace
}  // namespace varnholt::test

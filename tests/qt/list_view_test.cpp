#include "drawn.hpp"
#include "panels/dispatcher.hpp"
#include "panels/form1.hpp"
#include "qt/theme.hpp"
#include "qt/widgets/list_view_widget.hpp"

#include <QAbstractItemModelTester>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QToolTip>

#include <future>

namespace varnholt::test {
namespace {

/// Rows that are made when somebody looks, and that count how often somebody did.
class NumberedRows : public controls::RowSource {
 public:
  explicit NumberedRows(std::uint32_t count) : count_(count) {}
  std::uint32_t rowCount() const override { return count_; }
  std::string cell(std::uint32_t row, int column) const override {
    ++looks;
    std::string digits = std::to_string(row);
    digits.insert(0, 6 - digits.size(), '0');
    return column == 0 ? "file " + digits : "column " + std::to_string(column);
  }
  int icon(std::uint32_t) const override { return 7; }
  bool numericKeys(int, std::vector<std::int64_t>& keys) const override {
    for (std::uint32_t row = 0; row < count_; ++row)
      keys.push_back(row);
    return true;
  }
  mutable int looks = 0;

 private:
  std::uint32_t count_;
};

class DrawnList : public testing::Test {
 protected:
  DrawnList() {
    list.ImageList = std::map<int, std::string>{{7, "file"}, {13, "sort-up"}};
    list.ColumnHeaders = std::vector<controls::ColumnHeader>{
        {"Name:", 3000, 13, false}, {".Ext", 0, 0, false}, {"ByteSize:", 1500, 0, true}};
    show(20);
  }

  void show(std::uint32_t rows) {
    source = std::make_shared<NumberedRows>(rows);
    list.setRows(source);
    form.Show();
    widget = usable<qt::ListViewWidget>(windowOf(loop, form), "ListView1");
    widget->window()->resize(900, 600);
    widget->setFocus();
    QCoreApplication::processEvents();
  }

  QPoint middleOf(int row) const { return widget->visualRect(widget->model()->index(row, 0)).center(); }
  void click(int row, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(widget->viewport(), button, modifiers, middleOf(row));
    loop.flush();
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(widget, key, modifiers);
    loop.flush();
  }
  std::vector<std::uint32_t> selected() const { return list.selectedIds(); }
  QColor pixel(int row, int x) const {
    const QImage drawn = widget->viewport()->grab().toImage();
    return drawn.pixelColor(x, widget->visualRect(widget->model()->index(row, 0)).bottom() - 1);
  }

  qt::QtMessageLoop loop;
  panels::Form1 form{loop};
  controls::ListView& list = form.ListView1;
  std::shared_ptr<NumberedRows> source;
  qt::ListViewWidget* widget = nullptr;
};

using Rows = std::vector<std::uint32_t>;

TEST_F(DrawnList, AClickBesideTheColumnsMeansItsRowOneBelowTheRowsNoneAndTwoAreOneAndADoubleClick) {
  show(4);
  int clicks = 0, doubles = 0;
  const auto press = [&](const QPoint& at) { QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, at); };
  press(QPoint(widget->viewport()->width() - 4, middleOf(2).y()));
  EXPECT_EQ(selected(), Rows{2});
  press(QPoint(40, widget->viewport()->height() - 4));
  EXPECT_EQ(selected(), Rows{});
  list.Click = [&] { ++clicks; };
  list.DblClick = [&] { ++doubles; };
  press(middleOf(1));
  QTest::mouseDClick(widget->viewport(), Qt::LeftButton, {}, middleOf(1));
  QTest::mouseRelease(widget->viewport(), Qt::LeftButton, {}, middleOf(1));
  EXPECT_EQ(std::pair(clicks, doubles), std::pair(1, 1));
}

TEST_F(DrawnList, AClickDuringALongCallMeansTheRowThatWasThereOrNone) {
  int clicks = 0;
  list.Click = [&] { ++clicks; };
  for (const bool changes : {false, true}) {
    QWindow* window = widget->window()->windowHandle();
    const auto clickRow = [&] {
      QTest::mouseClick(window, Qt::LeftButton, {}, widget->viewport()->mapTo(widget->window(), middleOf(3)));
    };
    std::promise<void> clicked;
    QMetaObject::invokeMethod(
        widget, [&] { clickRow(), clicked.set_value(); }, Qt::QueuedConnection);
    loop.runBlocking([&] { clicked.get_future().wait(); });
    EXPECT_EQ(clicks, 0);
    for (int row = 0; changes && row < 20; ++row)
      row == 0 ? list.clear() : (void)list.add("another");
    QCoreApplication::processEvents();
    EXPECT_EQ(std::exchange(clicks, 0), changes ? 0 : 1);
    EXPECT_EQ(selected(), changes ? Rows{} : Rows{3});
  }
}

TEST_F(DrawnList, ColumnHeadersAreNumberedFromOneAndWidthsComeBack) {
  std::vector<int> clicked;
  list.ColumnClick = [&](int number) { clicked.push_back(number); };
  auto* header = widget->listHeader();
  const QPoint third(header->sectionViewportPosition(2) + 20, header->height() / 2);
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, third);
  QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, third);
  EXPECT_EQ(clicked, (std::vector<int>{3, 3})) << "two quick clicks are two";
  EXPECT_TRUE(header->isSectionHidden(1)) << "no width, no column";
  EXPECT_EQ(header->sectionSize(0), 200);
  header->resizeSection(0, 150);
  EXPECT_EQ(list.ColumnHeaders->at(0).Width, 150 * 15);
}

TEST_F(DrawnList, TheSameLetterAgainGoesOnWhateverLetterItIs) {
  list.clear();
  for (const char* name : {"été", "étude", "étui", "zèbre"})
    list.add(name, 7);
  loop.flush();
  for (const std::uint32_t row : {0u, 1u, 2u, 0u}) {
    QKeyEvent pressed(QEvent::KeyPress, Qt::Key_Eacute, {}, QStringLiteral("é"));
    QCoreApplication::sendEvent(widget, &pressed);
    EXPECT_EQ(list.focusedRow(), row);
  }
}

TEST_F(DrawnList, HandlersSeeKeysFirstAndTheFormBeforeThem) {
  std::vector<std::string> seen;
  form.KeyDown = [&](controls::KeyEvent& event) { seen.push_back("form " + std::to_string(event.code)); };
  list.KeyDown = [&](controls::KeyEvent& event) {
    seen.push_back("list " + std::to_string(event.code));
    event.handled = true;
  };
  list.KeyUp = [&](controls::KeyEvent& event) { seen.push_back("up " + std::to_string(event.code)); };
  click(2);
  key(Qt::Key_Down);
  EXPECT_EQ(seen, (std::vector<std::string>{"form 40", "list 40", "up 40"}));
  EXPECT_EQ(list.focusedRow(), 2u);
}

TEST_F(DrawnList, AHundredThousandRowsAreNeverLookedAtAllTogether) {
  show(100'000);
  widget->viewport()->grab();
  click(3);
  key(Qt::Key_End);
  widget->viewport()->grab();
  for (std::uint32_t row = 0; row < 100'000; row += 2)
    list.setSelected(row, true);
  loop.flush();
  widget->viewport()->grab();
  EXPECT_EQ(list.selectedCount(), 50'001u);
  EXPECT_LT(source->looks, 2'000) << "texts are made for rows on the screen alone";
}

TEST_F(DrawnList, ManyChangesAreOneReset) {
  QSignalSpy resets(widget->model(), &QAbstractItemModel::modelReset);
  list.clear();
  for (int row = 0; row < 5'000; ++row)
    list.add("row " + std::to_string(row), 7);
  list.setSortOrder(controls::SortOrder::Descending);
  EXPECT_EQ(resets.count(), 0);
  loop.flush();
  EXPECT_EQ(resets.count(), 1);
  EXPECT_EQ(widget->model()->index(0, 0).data().toString(), QStringLiteral("row 999"));
}

TEST_F(DrawnList, TheModelKeepsItsPromises) {
  const QAbstractItemModelTester tester(widget->model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
  show(500);
  list.setSortOrder(controls::SortOrder::Descending);
  loop.flush();
  list.clear();
  EXPECT_FALSE(widget->model()->index(3, 0).data().isValid()) << "rows are gone before the view has heard of it";
  loop.flush();
  EXPECT_EQ(widget->model()->rowCount(), 0);
}

TEST_F(DrawnList, SelectedAndMarkedRowsAreToldApartAlsoTogether) {
  list.setSelected(1, true);
  list.setGhosted(2, true);
  list.setSelected(3, true);
  list.setGhosted(3, true);
  loop.flush();
  const QColor selection = qt::theme::selection(), ghost = QColor::fromRgb(qt::theme::Ghost);
  const int middle = widget->listHeader()->sectionSize(0) - 2;
  EXPECT_EQ(pixel(1, middle), selection);
  EXPECT_NE(pixel(1, 1), ghost);
  EXPECT_NE(pixel(2, middle), selection);
  EXPECT_EQ(pixel(2, 1), ghost);
  EXPECT_EQ(pixel(3, middle), selection);
  EXPECT_EQ(pixel(3, 1), ghost);
}

TEST_F(DrawnList, RowsToCopyAndRowsToDeleteAreToldApartAlsoWhenTheyAreSelected) {
  namespace mark = panels::mark_color;
  std::vector<QColor> texts;
  for (const auto color : {mark::Copy, mark::Delete}) {
    list.setSelected(2, true);
    list.setForeColor(2, color);
    loop.flush();
    const int x = widget->listHeader()->sectionViewportPosition(2) - 2;
    const QColor ground = pixel(2, x);
    EXPECT_NE(ground, pixel(1, x)) << "it is still selected";
    EXPECT_EQ(pixel(2, 4), qt::theme::colorOf(color)) << "the bar at its beginning";
    texts.push_back(qt::theme::readable(qt::theme::colorOf(color), ground));
    EXPECT_GE(qt::theme::contrast(texts.back(), ground), 4.5);
  }
  EXPECT_GT(texts[0].green() - texts[0].red(), 150) << "green";
  EXPECT_GT(texts[1].red() - texts[1].green(), 100) << "red";
}

TEST_F(DrawnList, TheTipOfARowTellsWhatThereIsToSayOfItBelowATextThatIsCut) {
  list.rowToolTip = [](controls::ListItem) { return std::string("No room"); };
  for (const auto& [row, width, tip] : {std::tuple{2, 200, "No room"}, {3, 40, "file 000003\nNo room"}}) {
    widget->header()->resizeSection(0, width);
    QHelpEvent help(QEvent::ToolTip, middleOf(row), widget->viewport()->mapToGlobal(middleOf(row)));
    QCoreApplication::sendEvent(widget->viewport(), &help);
    EXPECT_EQ(QToolTip::text(), QLatin1String(tip));
  }
}

TEST_F(DrawnList, AssistiveTechnologyHearsTheMarksAndTheRowInFocus) {
  list.setSelected(4, true);
  list.setGhosted(4, true);
  list.focusRow(4);
  loop.flush();
  EXPECT_EQ(widget->model()->index(4, 0).data(Qt::AccessibleDescriptionRole).toString(),
            QStringLiteral("selected, marked"));
  EXPECT_EQ(widget->currentIndex().row(), 4);
}

TEST_F(DrawnList, TheActivePanelIsAccentedAndTheOtherDimmed) {
  form.ListView1.Accented = true;
  loop.flush();
  auto* other = usable<qt::ListViewWidget>(widget->window(), "ListView2");
  const QImage active = widget->listHeader()->grab().toImage(), dimmed = other->listHeader()->grab().toImage();
  EXPECT_EQ(active.pixelColor(5, active.height() - 2), qt::theme::accent());
  EXPECT_NE(dimmed.pixelColor(5, dimmed.height() - 2), qt::theme::accent());
  EXPECT_LT(other->colors().text.lightness(), widget->colors().text.lightness());
}

}  // namespace
}  // namespace varnholt::test

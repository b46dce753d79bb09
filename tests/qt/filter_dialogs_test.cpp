// The filters in their real windows: typed, clicked and picked as a user does.
#include "drawn_program.hpp"

#include <QAction>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

namespace varnholt::test {
namespace {

class DrawnFilters : public DrawnProgram {
 protected:
  void SetUp() override {
    for (const char* name : {"C:\\a.txt", "C:\\b.doc", "C:\\c.jpg"})
      rig.write(name);
    start();
    QTest::mouseClick(list("ListView1")->viewport(), Qt::LeftButton, {}, middleOf(list("ListView1"), "letter"));
  }
  /// `user` acts once the dialog is there.
  void whenShown(controls::Form& dialog, std::function<void(QWidget*)> user) {
    loop.later([this, &dialog, user = std::move(user)] {
      if (!dialog.Visible) return whenShown(dialog, user);
      user(windowOf(loop, dialog));
    });
  }
  static void press(QWidget* dialog, const char* button) {
    QTest::mouseClick(usable<QPushButton>(dialog, button), Qt::LeftButton);
  }
  static void check(QWidget* dialog, const char* box) {
    QTest::mouseClick(usable<QCheckBox>(dialog, box), Qt::LeftButton, {}, QPoint(8, 8));
  }
  static void type(QWidget* dialog, const char* box, const QString& text) {
    auto* line = usable<QLineEdit>(dialog, box);
    line->selectAll();
    QTest::keyClicks(line, text);
  }
  /// Goes to a day of the month shown, by the keyboard.
  static void pick(QWidget* dialog, const char* month, QDate day) {
    auto* calendar = usable<QCalendarWidget>(dialog, month);
    auto* days = calendar->findChild<QTableView*>();
    days->setFocus();
    while (calendar->selectedDate() != day)
      QTest::keyClick(days, calendar->selectedDate() < day ? Qt::Key_Right : Qt::Key_Left);
    QTest::keyClick(days, Qt::Key_Return);
  }
  void choose(const char* entry) { window->findChild<QAction*>(qt::toQt(entry))->trigger(); }
};

TEST_F(DrawnFilters, TheFileFilterByTheKeyboard) {
  whenShown(app.filters.Form6, [this](QWidget* dialog) {
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("File Filter"));
    EXPECT_EQ(dialog->focusWidget(), dialog->findChild<QWidget*>(QStringLiteral("Text2")));
    QTest::keyClicks(dialog->focusWidget(), QStringLiteral("*.txt,*.doc"));
    EXPECT_FALSE(dialog->findChild<QWidget*>(QStringLiteral("Text3"))->isVisible());
    press(dialog, "Command3");
    loop.flush();
    check(dialog, "Check4");
    type(dialog, "Text1", QStringLiteral("1"));
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
  });
  QTest::keyClick(list("ListView1"), Qt::Key_M, Qt::ControlModifier);
  ASSERT_TRUE(waitFor([this] { return app.Form1.ListView1.selectedCount() == 3 && !app.filters.Form6.Visible; }));
  EXPECT_TRUE(waitFor([this] { return window->focusWidget() == list("ListView1"); }));
}

TEST_F(DrawnFilters, TheViewFilterWithDates) {
  rig.setDate("C:\\a.txt", 2007, 3, 3);
  whenShown(app.filters.Form25, [this](QWidget* dialog) {
    type(dialog, "Text2", QStringLiteral("*.*"));
    whenShown(app.filters.Form24, [this](QWidget* dates) {
      EXPECT_EQ(dates->windowTitle(), QStringLiteral("Date (Regional Format) Filtering"));
      check(dates, "Check1");
      pick(dates, "MonthView1", {2007, 3, 2});
      pick(dates, "MonthView2", {2007, 3, 5});
      loop.flush();
      if (!app.filters.Form24.Visible) return;
      EXPECT_NE(usable<QLabel>(dates, "Label5")->text(), usable<QLabel>(dates, "Label6")->text());
      press(dates, "Command11");
    });
    press(dialog, "Command1");
    loop.flush();
    EXPECT_EQ(usable<QPushButton>(dialog, "Command1")->text(), QStringLiteral("Date On"));
    EXPECT_TRUE(dialog->windowTitle().startsWith(QStringLiteral("View Filter, - Date :  ")));
    EXPECT_EQ(dialog->focusWidget(), dialog->findChild<QWidget*>(QStringLiteral("Command11")));
    press(dialog, "Command11");
  });
  choose("Viewuser");
  ASSERT_TRUE(waitFor([this] { return !app.filters.Form25.Visible && rows("ListView1").size() == 2; }));
  EXPECT_EQ(rows("ListView1"), (std::vector<std::string>{"\\ Photos", "a"}));
  EXPECT_EQ(app.filters.Form25.dates, (filters::DatePair{{2007, 3, 2}, {2007, 3, 5}}));
  choose("Viewall");
  EXPECT_EQ(rows("ListView1").size(), 5u);
}

TEST_F(DrawnFilters, EscLeavesAllThreeDialogs) {
  whenShown(app.filters.Form6, [this](QWidget* dialog) {
    whenShown(app.filters.Form24, [](QWidget* dates) { QTest::keyClick(dates, Qt::Key_Escape); });
    press(dialog, "Command1");
    EXPECT_FALSE(app.filters.Form24.Visible);
    EXPECT_FALSE(app.filters.Form6.datesOn());
    QTest::keyClick(dialog, Qt::Key_Escape);
  });
  QTest::mouseClick(usable<QAbstractButton>(window, "Command5"), Qt::LeftButton);
  ASSERT_TRUE(waitFor([this] { return !app.filters.Form6.Visible; }));
  whenShown(app.filters.Form25, [](QWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
  choose("Viewuser");
  ASSERT_TRUE(waitFor([this] { return !app.filters.Form25.Visible; }));
  EXPECT_EQ(rows("ListView1").size(), 5u);
}

}  // namespace
}  // namespace varnholt::test

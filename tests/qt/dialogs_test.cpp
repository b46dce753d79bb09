// What only real widgets show of the dialogs: the keyboard's way through them, and a window that grows.
#include "drawn_program.hpp"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QToolButton>
#include <QTreeWidget>

namespace varnholt::test {
namespace {

class DrawnDialogs : public DrawnProgram {
 protected:
  /// `user` acts once the form is there, and leaves it if it still is.
  void inDialog(controls::Form& form, const std::function<void(QWidget*)>& user) {
    loop.later([this, &form, user] {
      if (!form.Visible) return inDialog(form, user);
      user(windowOf(loop, form));
      if (form.Visible) form.closeFromUser();
    });
  }
  void keys(QWidget* widget, std::initializer_list<Qt::Key> keys) {
    for (const auto key : keys) {
      QTest::keyClick(widget, key);
      loop.flush();
    }
  }
};

TEST_F(DrawnDialogs, TheKeyboardWalksTheFolderTreeAndTakes) {
  start();
  inDialog(app.Form35, [&](QWidget* dialog) {
    auto* tree = usable<QTreeWidget>(dialog, "TreeView1");
    const auto chosen = [&] { return qt::fromQt(usable<QLineEdit>(dialog, "Text1")->text()); };
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Copy Item(s)"));
    EXPECT_EQ(dialog->focusWidget(), tree);
    keys(tree, {Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up});
    EXPECT_EQ(chosen(), "C:\\");
    EXPECT_FALSE(tree->currentItem()->isExpanded()) << "keys that pass a drive do not read it";
    keys(tree, {Qt::Key_Right, Qt::Key_Down, Qt::Key_Return, Qt::Key_Down});
    EXPECT_EQ(chosen(), "C:\\Photos\\2024");
    EXPECT_TRUE(usable<QPushButton>(dialog, "Command1")->isDefault());
    keys(tree, {Qt::Key_Return, Qt::Key_Return});
  });
  EXPECT_EQ(app.Form35.browse("Copy Item(s)"), "C:\\Photos\\2024\\");
}

TEST_F(DrawnDialogs, TheMaskMakesTheWindowLargerAndSmallerAgainAndEnterPreviews) {
  rig.write("C:\\Photos\\a.txt");
  start();
  enter("ListView1", "Photos");
  inDialog(app.rename.Form14, [&](QWidget* dialog) {
    const auto field = [&](const char* name) { return usable<QLineEdit>(dialog, name); };
    const auto press = [&](const char* button) {
      QTest::mouseClick(usable<QPushButton>(dialog, button), Qt::LeftButton);
      loop.flush();
      QCoreApplication::processEvents();
      loop.flush();
    };
    const QSize narrow = dialog->size();
    EXPECT_EQ(dialog->focusWidget(), field("Text1"));
    EXPECT_TRUE(dialog->findChild<QWidget*>(QStringLiteral("panel_mask"))->isHidden());
    press("Command5");
    EXPECT_GT(dialog->height(), narrow.height());
    EXPECT_GE(dialog->width(), 7000 / 15);
    EXPECT_TRUE(dialog->screen()->availableGeometry().contains(dialog->geometry())) << "all of it is on the screen";
    EXPECT_EQ(dialog->focusWidget(), field("Text2"));
    QTest::keyClick(field("Text2"), Qt::Key_Return);
    loop.flush();
    EXPECT_EQ(app.rename.Form14.Index, 0u) << "Enter in a field of the mask leaves the item in hand alone";
    EXPECT_EQ(usable<qt::ListViewWidget>(dialog, "ListView1")->model()->rowCount(), 1);
    press("Command5");
    EXPECT_LE(dialog->height(), narrow.height() + 8);
    EXPECT_EQ(dialog->focusWidget(), field("Text1"));
  });
  QTest::keyClick(list("ListView1"), Qt::Key_End);
  QTest::mouseClick(usable<QToolButton>(window, "Command14"), Qt::LeftButton);
  loop.flush();
  EXPECT_FALSE(app.rename.Form14.Visible);
  EXPECT_EQ(window->focusWidget(), list("ListView1"));
}

TEST_F(DrawnDialogs, APickedDayArrivesAndEscLeavesFilterAndDates) {
  start();
  inDialog(app.filters.Form6, [&](QWidget* dialog) {
    EXPECT_EQ(dialog->focusWidget(), dialog->findChild<QWidget*>(QStringLiteral("Text2")));
    inDialog(app.filters.Form24, [&](QWidget* dates) {
      auto* calendar = usable<QCalendarWidget>(dates, "MonthView1");
      auto* days = calendar->findChild<QTableView*>();
      days->setFocus();
      keys(days, {Qt::Key_Right, Qt::Key_Return});
      const QDate day = calendar->selectedDate();
      EXPECT_EQ(app.filters.Form24.MonthView1.Value.get(),
                (controls::MonthView::Day{day.year(), day.month(), day.day()}));
      QTest::keyClick(dates, Qt::Key_Escape);
    });
    QTest::mouseClick(usable<QPushButton>(dialog, "Command1"), Qt::LeftButton);
    EXPECT_FALSE(app.filters.Form24.Visible);
    QTest::keyClick(dialog, Qt::Key_Escape);
  });
  QTest::keyClick(list("ListView1"), Qt::Key_M, Qt::ControlModifier);
  EXPECT_TRUE(waitFor([&] { return !app.filters.Form6.Visible; }));
}

}  // namespace
}  // namespace varnholt::test

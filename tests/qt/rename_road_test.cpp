// Renaming through the real windows: keyboard, mouse, and the mask's part that comes and goes.
#include "drawn_program.hpp"

#include <QCheckBox>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>

namespace varnholt::test {
namespace {

class DrawnRename : public DrawnProgram {
 protected:
  void SetUp() override {
    for (const char* name : {"a.txt", "b.txt", "c.txt"})
      rig.write(std::string("C:\\Notes\\") + name, name);
    start();
    enter("ListView1", "Notes");
  }
  /// Chooses Rename for all rows; `user` acts once the dialog is there.
  void rename(const std::function<void()>& user) {
    QTest::keyClick(list("ListView1"), Qt::Key_Home);
    QTest::keyClick(list("ListView1"), Qt::Key_End, Qt::ShiftModifier);
    whenShown(app.rename.Form14, [this, user] {
      dialog = windowOf(loop, app.rename.Form14);
      user();
      if (app.rename.Form14.Visible) app.rename.Form14.closeFromUser();
    });
    QTest::mouseClick(usable<QToolButton>(window, "Command14"), Qt::LeftButton);
    loop.flush();
  }
  void whenShown(controls::Form& form, const std::function<void()>& user) {
    loop.later([this, &form, user] { form.Visible ? user() : whenShown(form, user); });
  }
  QLineEdit* field(const char* name) { return usable<QLineEdit>(dialog, name); }
  void press(const char* button) {
    QTest::mouseClick(usable<QPushButton>(dialog, button), Qt::LeftButton);
    settle();
  }
  void settle() {
    loop.flush();
    QCoreApplication::processEvents();
    loop.flush();
  }
  bool exists(const char* name) { return rig.exists(std::string("C:\\Notes\\") + name); }

  QWidget* dialog = nullptr;
};

TEST_F(DrawnRename, TheKeyboardRenamesOneAfterTheOther) {
  rename([&] {
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Rename Item(s)"));
    EXPECT_EQ(dialog->focusWidget(), field("Text1"));
    for (const char* name : {"first.txt", "second.txt"}) {
      field("Text1")->selectAll();
      QTest::keyClicks(field("Text1"), QLatin1String(name));
      QTest::keyClick(field("Text1"), Qt::Key_Return);
      settle();
      EXPECT_EQ(dialog->focusWidget(), field("Text1"));
    }
    EXPECT_EQ(field("Text1")->text(), QStringLiteral("c.txt"));
    QTest::keyClick(field("Text1"), Qt::Key_PageUp);
    settle();
    EXPECT_EQ(field("Text1")->text(), QStringLiteral("second.txt"));
    QTest::keyClick(field("Text1"), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(app.rename.Form14.Visible);
  });
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_TRUE(exists("first.txt") && exists("second.txt") && exists("c.txt"));
  EXPECT_EQ(rows("ListView1"), (std::vector<std::string>{"c", "first", "second"}));
  EXPECT_EQ(window->focusWidget(), list("ListView1"));
}

TEST_F(DrawnRename, TheMaskMakesTheWindowLargerAndSmallerAgain) {
  rename([&] {
    const QSize narrow = dialog->size();
    EXPECT_TRUE(dialog->findChild<QWidget*>(QStringLiteral("panel_mask"))->isHidden());
    press("Command5");
    EXPECT_GT(dialog->height(), narrow.height());
    EXPECT_GE(dialog->width(), 7000 / 15);
    EXPECT_TRUE(dialog->screen()->availableGeometry().contains(dialog->geometry())) << "all of it is on the screen";
    EXPECT_EQ(dialog->focusWidget(), field("Text2"));
    press("Command5");
    EXPECT_LE(dialog->height(), narrow.height() + 8);
    EXPECT_EQ(dialog->focusWidget(), field("Text1"));
  });
}

TEST_F(DrawnRename, AllFilesAreRenamedBehindTheirPreview) {
  rename([&] {
    press("Command5");
    QTest::mouseClick(usable<QCheckBox>(dialog, "Check2"), Qt::LeftButton, {}, QPoint(8, 8));
    settle();
    QTest::keyClicks(field("Text3"), QStringLiteral("Coast-"));
    field("Text5")->selectAll();
    QTest::keyClicks(field("Text5"), QStringLiteral("9"));
    EXPECT_TRUE(usable<QPushButton>(dialog, "Command7")->isDefault());
    QTest::keyClick(field("Text5"), Qt::Key_Return);
    settle();
    EXPECT_EQ(app.rename.Form14.Index, 0u) << "Enter in a field of the mask leaves the item in hand alone";
    auto* preview = usable<qt::ListViewWidget>(dialog, "ListView1");
    ASSERT_EQ(preview->model()->rowCount(), 3);
    EXPECT_EQ(preview->model()->index(2, 0).data().toString().trimmed(), QStringLiteral("c.txt"));
    EXPECT_EQ(preview->model()->index(2, 1).data().toString(), QStringLiteral("Coast-11.txt"));
    EXPECT_FALSE(exists("Coast-11.txt"));
    whenShown(app.dialogs.Form11, [&] { app.dialogs.Form11.Command11.press(); });
    press("Command6");
  });
  EXPECT_TRUE(exists("Coast-9.txt") && exists("Coast-10.txt") && exists("Coast-11.txt"));
  EXPECT_EQ(rows("ListView1"), (std::vector<std::string>{"Coast-10", "Coast-11", "Coast-9"}));
}

}  // namespace
}  // namespace varnholt::test

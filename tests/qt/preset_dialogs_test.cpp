// Presets in their real windows.
#include "drawn_program.hpp"

#include <QAction>
#include <QLabel>
#include <QPushButton>

namespace varnholt::test {
namespace {

class DrawnPresets : public DrawnProgram {
 protected:
  void SetUp() override {
    start();
    enter("ListView1", "Photos");
    ASSERT_EQ(pathShown("Text1"), "C:\\Photos");
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
};

TEST_F(DrawnPresets, APresetIsMadeAndActivatedByTheKeyboard) {
  whenShown(app.presets.Form20, [this](QWidget* dialog) {
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Static Preset View"));
    whenShown(app.presets.Form21, [](QWidget* make) {
      EXPECT_EQ(make->focusWidget(), make->findChild<QWidget*>(QStringLiteral("Text1")));
      QTest::keyClicks(make->focusWidget(), QStringLiteral("photos"));
      QTest::keyClick(make->focusWidget(), Qt::Key_Return);
    });
    press(dialog, "Command2");
    loop.flush();
    ASSERT_EQ(app.presets.Form20.ListView1.count(), 1u);
    QTest::keyClick(dialog, Qt::Key_Escape);
  });
  QTest::keyClick(list("ListView1"), Qt::Key_P, Qt::ControlModifier);
  ASSERT_TRUE(waitFor([this] { return !app.presets.Form20.Visible; }));

  app.navigation.goTo(app.Form1.Panel1, "C:\\");
  whenShown(app.presets.Form20, [](QWidget* dialog) {
    auto* names = usable<qt::ListViewWidget>(dialog, "ListView1");
    EXPECT_EQ(dialog->focusWidget(), names);
    EXPECT_EQ(names->model()->index(0, 0).data().toString(), QStringLiteral("PHOTOS"));
    QTest::keyClick(names, Qt::Key_Return);
  });
  QTest::mouseClick(usable<QAbstractButton>(window, "Command12"), Qt::LeftButton);
  ASSERT_TRUE(waitFor([this] { return !app.presets.Form20.Visible; }));
  EXPECT_EQ(pathShown("Text1"), "C:\\Photos");
}

TEST_F(DrawnPresets, AVisitedPairIsClickedAndOpened) {
  whenShown(app.presets.Form34, [this](QWidget* dialog) {
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Dynamic Preset View"));
    auto* pairs = usable<qt::ListViewWidget>(dialog, "ListView1");
    ASSERT_EQ(pairs->model()->rowCount(), 2);
    const QPoint first = pairs->visualRect(pairs->model()->index(0, 0)).center();
    QTest::mouseClick(pairs->viewport(), Qt::LeftButton, {}, first);
    loop.flush();
    EXPECT_EQ(usable<QLabel>(dialog, "Label1")->accessibleName(), QStringLiteral("C:\\"));
    press(dialog, "Command1");
    loop.flush();
    EXPECT_TRUE(dialog->isVisible());
    QTest::keyClick(dialog, Qt::Key_Escape);
  });
  window->findChild<QAction*>(QStringLiteral("DynPresets"))->trigger();
  ASSERT_TRUE(waitFor([this] { return !app.presets.Form34.Visible; }));
  EXPECT_EQ(pathShown("Text1"), "C:\\");
}

}  // namespace
}  // namespace varnholt::test

// The folder tree that copy, move and zip take a target from, in its real window.
#include "drawn_program.hpp"

#include <QApplication>
#include <QCheckBox>
#include <QPushButton>
#include <QTreeWidget>

namespace varnholt::test {
namespace {

class DrawnBrowse : public DrawnProgram {
 protected:
  /// Browses from the main window; `user` acts once the dialog is there.
  std::optional<std::string> browse(const std::function<void()>& user) {
    std::function<void()> act = [&] {
      if (!app.Form35.Visible) return loop.later(act);
      dialog = windowOf(loop, app.Form35);
      tree = usable<QTreeWidget>(dialog, "TreeView1");
      user();
      if (app.Form35.Visible) app.Form35.closeFromUser();
    };
    loop.later(act);
    return app.Form35.browse("Copy Item(s)");
  }
  QTreeWidgetItem* item(QTreeWidgetItem* parent, const QString& text) {
    loop.flush();
    for (int at = 0; parent && at < parent->childCount(); ++at)
      if (parent->child(at)->text(0).contains(text)) return parent->child(at);
    ADD_FAILURE() << "no node " << qPrintable(text);
    return tree->topLevelItem(0);
  }
  void click(QTreeWidgetItem* node) {
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualItemRect(node).center());
    loop.flush();
  }
  void press(const char* button) { QTest::mouseClick(usable<QPushButton>(dialog, button), Qt::LeftButton); }
  std::string chosen() { return qt::fromQt(usable<QLineEdit>(dialog, "Text1")->text()); }

  QWidget* dialog = nullptr;
  QTreeWidget* tree = nullptr;
};

TEST_F(DrawnBrowse, ClicksChooseAndEnterTakes) {
  start();
  const auto taken = browse([&] {
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Copy Item(s)"));
    EXPECT_EQ(dialog->focusWidget(), tree);
    click(item(tree->topLevelItem(0), QStringLiteral("(C:)")));
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Browse For Folder On Ready Drives.."));
    click(item(item(tree->topLevelItem(0), QStringLiteral("(C:)")), QStringLiteral("Photos")));
    EXPECT_EQ(chosen(), "C:\\Photos");
    EXPECT_TRUE(usable<QPushButton>(dialog, "Command1")->isDefault());
    QTest::keyClick(tree, Qt::Key_Return);
  });
  EXPECT_EQ(taken, "C:\\Photos\\");
  EXPECT_FALSE(dialog->isVisible());
}

TEST_F(DrawnBrowse, TheKeyboardWalksAndOpens) {
  start();
  const auto taken = browse([&] {
    const auto press = [&](std::initializer_list<Qt::Key> keys) {
      for (const auto key : keys) {
        QTest::keyClick(tree, key);
        loop.flush();
      }
    };
    press({Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up});
    EXPECT_EQ(chosen(), "C:\\");
    EXPECT_FALSE(tree->currentItem()->isExpanded()) << "keys that pass a drive do not read it";
    press({Qt::Key_Right, Qt::Key_Down, Qt::Key_Return, Qt::Key_Down});
    EXPECT_EQ(chosen(), "C:\\Photos\\2024");
    press({Qt::Key_Return, Qt::Key_Return});
  });
  EXPECT_EQ(taken, "C:\\Photos\\2024\\");
}

TEST_F(DrawnBrowse, EscAndTheCancelButtonTakeNothing) {
  start();
  for (const bool byKey : {true, false}) {
    EXPECT_FALSE(browse([&] {
      click(item(tree->topLevelItem(0), QStringLiteral("(C:)")));
      byKey ? QTest::keyClick(tree, Qt::Key_Escape) : press("Command3");
    }));
    EXPECT_FALSE(dialog->isVisible());
  }
}

TEST_F(DrawnBrowse, TheBoxesAreStatedInTheTitle) {
  start();
  browse([&] {
    for (const char* box : {"Check2", "Check1"})
      QTest::mouseClick(usable<QCheckBox>(dialog, box), Qt::LeftButton, {}, QPoint(8, 8));
    loop.flush();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Copy Item(s) & Return On Execute & Return On Cancel"));
    press("Command3");
  });
}

}  // namespace
}  // namespace varnholt::test

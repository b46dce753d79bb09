#pragma once

#include "drawn.hpp"
#include "qt/widgets/list_view_widget.hpp"
#include "support/app_rig.hpp"

#include <QLineEdit>

namespace varnholt::test {

/// The whole program on temporary folders, in its real windows.
class DrawnProgram : public testing::Test {
 protected:
  DrawnProgram() {
    loop.dragAndDrop().setPaths({rig.platform->toSystem, rig.platform->toProgram});
    rig.write("C:\\Photos\\2024\\coast.jpg", "picture");
    rig.write("C:\\letter.txt", "Dear all");
    rig.write("D:\\backup.zip", "zip");
  }

  /// Starts the program; a key sends the splash away.
  void start() {
    core::Settings(rig.platform->settings).save(core::setting::Tip_State, "1");
    loop.later([this] {
      QWidget* splash = windowOf(loop, app.frmSplash);
      QTest::keyClick(splash, Qt::Key_Space);
    });
    ASSERT_TRUE(app.Main());
    window = windowOf(loop, app.Form1);
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  }

  qt::ListViewWidget* list(const char* name) { return usable<qt::ListViewWidget>(window, name); }
  std::vector<std::string> rows(const char* name) {
    loop.flush();
    std::vector<std::string> texts;
    const auto* model = list(name)->model();
    for (int row = 0; row < model->rowCount(); ++row)
      texts.push_back(qt::fromQt(model->index(row, 0).data().toString()));
    return texts;
  }
  QPoint middleOf(qt::ListViewWidget* widget, const std::string& text) {
    loop.flush();
    const auto* model = widget->model();
    for (int row = 0; row < model->rowCount(); ++row)
      if (model->index(row, 0).data().toString().contains(qt::toQt(text)))
        return widget->visualRect(model->index(row, 0)).center();
    ADD_FAILURE() << "no row " << text;
    return {};
  }
  void enter(const char* name, const std::string& folder) {
    auto* widget = list(name);
    QTest::mouseClick(widget->viewport(), Qt::LeftButton, {}, middleOf(widget, folder));
    QTest::keyClick(widget, Qt::Key_Return);
  }
  std::string pathShown(const char* name) {
    loop.flush();
    return qt::fromQt(usable<QLineEdit>(window, name)->text());
  }

  /// `user` acts once the form is there, and leaves it if it still is.
  void inDialog(controls::Form& form, const std::function<void(QWidget*)>& user) {
    loop.later([this, &form, user] {
      if (!form.Visible) return inDialog(form, user);
      user(windowOf(loop, form));
      if (form.Visible) form.closeFromUser();
    });
  }

  AppRig rig;
  qt::QtMessageLoop loop;
  app::App app{loop, *rig.platform};
  QWidget* window = nullptr;
};

}  // namespace varnholt::test

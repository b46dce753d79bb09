#pragma once

#include "app/app.hpp"
#include "qt/run_program.hpp"
#include "qt/widgets/list_view_widget.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <functional>
#include <string>

namespace varnholt::bench {

/// Notes that a widget was painted.
class Painted : public QObject {
 public:
  explicit Painted(QObject* watched) { watched->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    seen = seen || event->type() == QEvent::Paint;
    return false;
  }
  bool seen = false;
};

/// The whole program on a display, both panels on one folder, 1280 by 800 pixels. It is measured once its main window
/// is there, and then ends.
class DrawnProgram : public qt::RunningProgram {
 public:
  DrawnProgram(qt::QtMessageLoop& loop, const std::string& folder)
      : DrawnProgram(loop, folder, [](platform::Platform& real) { return real; }) {}
  /// On a system of which `changed` has changed something.
  DrawnProgram(qt::QtMessageLoop& loop, const std::string& folder,
               const std::function<platform::Platform(platform::Platform& real)>& changed)
      : loop_(loop),
        host_(platform::makePlatformHost(folders(folder))),
        platform_(changed(host_->platform())),
        app_(loop, platform_) {
    core::Settings(host_->platform().settings).save(core::setting::Tip_State, "1");
    loop_.setPictureReader([&files = host_->platform().files](const std::string& path, std::uint64_t most) {
      const auto bytes = files.readBeginning(path, most);
      return bytes ? std::optional(*bytes) : std::nullopt;
    });
    app_.frmSplash.Timer1.Interval = 1;
    loop.later([this] { begin(); });
    app_.Main();
  }
  void storeState() override {}
  void leave() override { loop_.quit(); }

 protected:
  virtual void measureAll() = 0;

  controls::ListView& list() { return app_.Form1.ListView1; }
  void run(const char* handler) { app_.dispatcher.perform(handler); }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, modifiers);
      QCoreApplication::sendEvent(widget_, &event);
    }
  }
  void settle() {
    loop_.flush();
    for (int turn = 0; turn < 5; ++turn)
      QCoreApplication::processEvents();
  }

  qt::QtMessageLoop& loop_;

 private:
  platform::HostFolders folders(const std::string& folder) const {
    platform::HostFolders folders;
    folders.data = kept_.path().toStdString();
    folders.drives = "C=" + folder;
    return folders;
  }
  void begin() {
    if (!app_.Form1.Visible) return loop_.later([this] { begin(); });
    loop_.flush();
    for (QWidget* top : QApplication::topLevelWidgets())
      if (auto* found = top->findChild<qt::ListViewWidget*>(QStringLiteral("ListView1"))) widget_ = found;
    widget_->window()->resize(1280, 800);
    list().SetFocus();
    settle();
    measureAll();
    loop_.quit();
  }

  QTemporaryDir kept_;
  std::unique_ptr<platform::PlatformHost> host_;
  platform::Platform platform_;

 protected:
  app::App app_;
  qt::ListViewWidget* widget_ = nullptr;  ///< the left panel's list
};

/// Runs a DrawnProgram of that kind on a folder of the system.
template <class Program>
int measureDrawn(int argc, char** argv) {
  if (argc < 2) return 2;
  return qt::runProgram(
      argc, argv, [] {}, [&](auto& loop, const auto&) { return std::make_unique<Program>(loop, argv[1]); });
}

}  // namespace varnholt::bench

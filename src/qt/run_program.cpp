#include "qt/run_program.hpp"

#include "qt/icons.hpp"
#include "qt/theme.hpp"

#include <QApplication>
#include <QTimer>

#include <chrono>

namespace varnholt::qt {
namespace {
constexpr std::chrono::milliseconds IconDelay{150};
}

int runProgram(int argc, char** argv, const std::function<std::shared_ptr<void>(QtMessageLoop&)>& start) {
  QApplication::setApplicationName(QStringLiteral("varnholt"));
  QGuiApplication::setDesktopFileName(QStringLiteral("varnholt"));
  // Fusion is set below; without a name here the toolkit would first load the desktop's own style.
  QApplication::setStyle(new theme::Style);
  const QApplication application(argc, argv);
  theme::apply();
  // Window managers get the icon drawn in four sizes, which takes as long as the first window itself: it comes after.
  QTimer::singleShot(IconDelay, &application, [] { QApplication::setWindowIcon(iconNamed("varnholt")); });
  QtMessageLoop loop;
  std::shared_ptr<void> program;
  loop.later([&] { program = start(loop); });
  return loop.exec();
}

}  // namespace varnholt::qt

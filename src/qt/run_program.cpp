#include "qt/run_program.hpp"

#include "platform/shared_library.hpp"
#include "qt/icons.hpp"
#include "qt/leave_signals.hpp"
#include "qt/theme.hpp"

#include <QApplication>
#include <QDBusConnection>
#include <QLoggingCategory>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <thread>
#include <utility>

namespace varnholt::qt {
namespace {
constexpr std::chrono::milliseconds IconDelay{150};

// The toolkit reads the configuration of the fonts with the first text, a fifth of the time to the first window; where
// the library is another, the toolkit still does.
void readFontConfiguration() {
  const auto library = platform::SharedLibrary::ofSystem("libfontconfig.so.1");
  if (auto* const read = library.call<int()>("FcInit")) read();
}

// The toolkit ends the process where it stands when its display is gone. All that comes before is what it says of that.
std::function<void()> displayGone;
QtMessageHandler tell = nullptr;
bool hasDisplay = false;

void listenForTheDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  // It would abort like a crash, and advise to install it anew.
  if (type == QtFatalMsg && !hasDisplay) {
    std::fputs("varnholt: no window can be opened: start it in a desktop session, or name a display in DISPLAY or "
               "WAYLAND_DISPLAY\n",
               stderr);
    std::_Exit(EXIT_FAILURE);
  }
  tell(type, context, text);
  const bool isGone = text.startsWith(QLatin1String("The X11 connection broke")) ||
                      text.startsWith(QLatin1String("The Wayland connection broke"));
  if (isGone && displayGone && QThread::currentThread() == qApp->thread()) std::exchange(displayGone, nullptr)();
}
}  // namespace

int runProgram(int argc, char** argv, const std::function<void()>& prepare, const StartProgram& start) {
  // A picture that is cut off or no longer wanted is a matter of its box, and no line on a terminal.
  QLoggingCategory::setFilterRules(QStringLiteral("qt.gui.imageio*=false"));
  QApplication::setApplicationName(QStringLiteral("varnholt"));
  QGuiApplication::setDesktopFileName(QStringLiteral("varnholt"));
  // Fusion is set below; without a name here the toolkit would first load the desktop's own style.
  QApplication::setStyle(new theme::Style);
  // One after the other: both at once would take the core from the thread that connects to the display.
  std::thread beside([&] {
    prepare();
    readFontConfiguration();
  });
  tell = qInstallMessageHandler(listenForTheDisplay);
  // The toolkit takes its own arguments out.
  const QApplication application(argc, argv);
  hasDisplay = true;
  // The toolkit's bridge to assistive technology asks for the bus with the first window, and waits until it answers.
  const std::jthread bus([] { QDBusConnection::sessionBus(); });
  // The texts are English, and speak of a left and a right panel: a desktop's own translations, where they are loaded,
  // would mirror them.
  QGuiApplication::setLayoutDirection(Qt::LeftToRight);
  beside.join();
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  theme::apply();
  // Window managers get the icon drawn in four sizes, which takes as long as the first window itself: it comes after.
  QTimer::singleShot(IconDelay, &application, [] { QApplication::setWindowIcon(iconNamed("varnholt")); });
  QtMessageLoop loop;
  std::unique_ptr<RunningProgram> program;
  const auto store = [&] {
    if (program) program->storeState();
  };
  // Destructors would wait for what is at work, and a handler on the stack cannot be left in another way.
  const auto leaveNow = [&](int code = EXIT_SUCCESS) {
    store();
    std::_Exit(code);
  };
  loop.setLeave([&] { leaveNow(); });
  displayGone = [&] {
    loop.runNoEvents();
    leaveNow(EXIT_FAILURE);
  };
  LeaveSignals signals;
  signals.store = store;
  signals.leave = [&] { program && !loop.isBusy() ? program->leave() : leaveNow(); };
  loop.later([&] { program = start(loop, arguments); });
  const int code = loop.exec();
  displayGone = nullptr;
  if (loop.hasCallsBeside()) std::_Exit(code);  // a drive that does not answer holds up a call that uses the program
  program.reset();
  return code;
}

}  // namespace varnholt::qt

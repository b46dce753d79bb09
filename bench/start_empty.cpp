// The peer of start_ours: an empty main window, from its start to its first paint.

#include "first_paint.hpp"

#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  new varnholt::bench::FirstPaint(QString());
  QMainWindow window;
  window.resize(1240, 760);
  window.show();
  return application.exec();
}

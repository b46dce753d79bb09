// The real widgets on the offscreen platform.
#include "qt/theme.hpp"

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir runtime;
  qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QStandardPaths::setTestModeEnabled(true);
  const QApplication application(argc, argv);
  varnholt::qt::theme::apply();
  return RUN_ALL_TESTS();
}

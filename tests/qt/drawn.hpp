#pragma once

#include "qt/qt_message_loop.hpp"
#include "qt/text.hpp"
#include "support/testing.hpp"

#include <QBuffer>
#include <QImage>
#include <QTest>
#include <QWidget>

namespace varnholt::test {

/// Waits until the condition holds; the limit only ends a run that hangs.
template <class Condition>
bool waitFor(Condition condition) {
  return QTest::qWaitFor(condition, 10'000);
}

/// A picture's file, of one colour all over.
inline std::string redPicture(const QSize& size, const char* format = "PNG", Qt::GlobalColor color = Qt::red) {
  QImage red(size, QImage::Format_RGB32);
  red.fill(color);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  red.save(&buffer, format);
  return bytes.toStdString();
}

/// The widget that draws the form. Fails the test when it is not on the screen.
inline QWidget* windowOf(qt::QtMessageLoop& loop, controls::Form& form) {
  loop.flush();
  auto* window = loop.windowOf(form);
  EXPECT_TRUE(window && window->widget().isVisible()) << form.name() << " is not shown";
  return window ? &window->widget() : nullptr;
}

/// The widget of that name, as a user could use it: fails the test when it is missing, hidden, disabled, or of another
/// kind.
template <class W>
W* usable(QWidget* window, const std::string& name) {
  auto* widget = window ? window->findChild<W*>(qt::toQt(name)) : nullptr;
  EXPECT_TRUE(widget) << "no such widget: " << name;
  if (!widget) return nullptr;
  EXPECT_TRUE(widget->isVisible()) << name << " is hidden";
  EXPECT_TRUE(widget->isEnabled()) << name << " is disabled";
  return widget;
}

}  // namespace varnholt::test

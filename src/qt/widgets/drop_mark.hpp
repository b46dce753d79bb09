#pragma once

#include "qt/theme.hpp"

#include <QPainter>
#include <QWidget>

namespace varnholt::qt {

/// The frame around what would take a drop. Lies over a widget and lets everything through to it.
class DropMark : public QWidget {
  Q_OBJECT
 public:
  explicit DropMark(QWidget* over) : QWidget(over) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(over->rect());
    show();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    constexpr int Line = 3;
    QPainter painter(this);
    painter.setPen(QPen(theme::accent(), Line, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(Line / 2, Line / 2, -Line / 2 - 1, -Line / 2 - 1));
  }
};

}  // namespace varnholt::qt

#pragma once

#include <QColor>
#include <QScrollBar>
#include <QWidget>

#include <vector>

namespace varnholt::qt {

/// Draws named numbers as a pie or as bars, of which those that have no room are scrolled to. It is painted here rather
/// than by a chart library: a chart of all files of a folder has as many points as the folder has files, and points are
/// chosen by keyboard as well as by mouse.
class ChartView : public QWidget {
  Q_OBJECT
 public:
  struct Point {
    QString label;
    double number = 0;
    QColor color = {};  ///< invalid: one of the chart's own
  };
  enum class Type { Pie, Bar };

  explicit ChartView(QWidget* parent = nullptr);
  void setPoints(std::vector<Point> points);
  void setType(Type type);
  void setTitle(const QString& title);
  void setSelected(int point);  ///< -1: none

  /// The point drawn there; -1: none.
  int pointAt(const QPoint& position) const;
  /// Somewhere in the middle of a point, which may be a bar out of view.
  QPoint middleOf(int point) const;
  /// The area of the slices or bars.
  QRect plot() const;
  QColor colorOf(int point) const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void pointChosen(int point);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int count() const { return static_cast<int>(points_.size()); }
  double number(int point) const;
  double total() const { return ends_.empty() ? 0 : ends_.back(); }
  double start(int point) const { return point > 0 ? ends_[static_cast<std::size_t>(point - 1)] : 0; }
  double end(int point) const { return ends_[static_cast<std::size_t>(point)]; }
  QString share(int point) const;
  int pointOf(double sum) const;
  QRect body() const;
  QRect pieBox() const;
  double barWidth() const;
  QRect barOf(int point) const;
  void fitScroll();
  void showSelected();
  void drawPie(QPainter& painter) const;
  void drawSlice(QPainter& painter, double from, double to, const QColor& color, bool apart) const;
  void drawLegend(QPainter& painter) const;
  std::vector<int> largestPoints(int most) const;
  void drawBars(QPainter& painter) const;
  void drawScale(QPainter& painter) const;
  void drawBarLabels(QPainter& painter) const;
  void describe();

  std::vector<Point> points_;
  std::vector<double> ends_;  ///< sums of the numbers up to and with each point
  double highest_ = 0;
  Type type_ = Type::Pie;
  QString title_;
  int selected_ = -1;
  QScrollBar scroll_{Qt::Horizontal, this};  ///< of the bars, in pixels
};

}  // namespace varnholt::qt

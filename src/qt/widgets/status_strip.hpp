#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

class QLabel;

namespace varnholt::qt {

/// The sections of a status bar, side by side. A section is as wide as its text, and while the window keeps its size it
/// shrinks only when less than half of it is needed, so that a ticking clock moves nothing; the last section takes the
/// rest. The dynamic property "usualTexts" names texts, one a section, that have room from the beginning. What does not
/// fit is cut with an ellipsis. Assistive technology finds each section as a text of its own.
class StatusStrip : public QWidget {
  Q_OBJECT
 public:
  explicit StatusStrip(QWidget* parent = nullptr);
  void setTexts(const QStringList& texts);
  const QStringList& texts() const { return texts_; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  std::vector<int> sectionWidths() const;
  int neededWidth(std::size_t section, const QString& text) const;
  int usualWidth(std::size_t section) const;
  int padding() const;
  int sectionAt(int x) const;
  void place();

  QStringList texts_;
  std::vector<int> widest_;
  std::vector<QLabel*> sections_;
};

}  // namespace varnholt::qt

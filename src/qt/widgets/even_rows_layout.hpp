#pragma once

#include <QLayout>
#include <QWidget>

#include <memory>
#include <vector>

namespace varnholt::qt {

class ListViewWidget;

/// Buttons of equal size in as many even rows as the width asks for: a row that would not fit is split in two rows of
/// the same length rather than leaving one button alone.
class EvenRowsLayout : public QLayout {
  Q_OBJECT
 public:
  using QLayout::QLayout;
  ~EvenRowsLayout() override;

  void addItem(QLayoutItem* item) override { items_.emplace_back(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& area) override;

 private:
  struct Grid {
    int columns = 1, rows = 1;
    QSize cell;
  };
  std::vector<QLayoutItem*> shown() const;
  Grid gridFor(int width) const;
  QSize cellSize() const;
  int gap() const;

  std::vector<std::unique_ptr<QLayoutItem>> items_;
};

/// Holds the tool buttons that a form gives it in even rows, in the order of their creation. Where the list named by
/// the dynamic property "list" would keep fewer than eight rows, the captions go, and the icons stand in one row.
class EvenRows : public QWidget {
  Q_OBJECT
 public:
  explicit EvenRows(QWidget* parent = nullptr);
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void childEvent(QChildEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void makeRoom();
  void showCaptions(bool show);

  ListViewWidget* list_ = nullptr;
};

}  // namespace varnholt::qt

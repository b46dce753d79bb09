#pragma once

#include "controls/list_view.hpp"
#include "qt/emphasis.hpp"
#include "qt/widgets/list_model.hpp"

#include <QHeaderView>
#include <QTreeView>

#include <optional>

namespace varnholt::qt {

/// The colours of one list as it is drawn now.
struct ListColors {
  QColor base, stripe;  ///< equal without a line picture
  QColor text, selection, selectionText, grid;
};

/// Column headings in the colours of the lists, with the accent line of the active panel below them.
class ListHeader : public QHeaderView {
  Q_OBJECT
 public:
  explicit ListHeader(QWidget* parent = nullptr);
  void setEmphasis(Emphasis emphasis);
  QSize sizeHint() const override;

 protected:
  void paintSection(QPainter* painter, const QRect& section, int logicalIndex) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  Emphasis emphasis_ = Emphasis::Plain;
};

/// Draws the rows of a list view in report form. What mouse and keys do is the control's: the adapter takes them
/// before this widget sees them.
class ListViewWidget : public QTreeView {
  Q_OBJECT
 public:
  explicit ListViewWidget(QWidget* parent = nullptr);

  void setList(controls::ListView& list);
  ListHeader* listHeader() const { return header_; }
  void setColors(const ListColors& colors);
  const ListColors& colors() const { return colors_; }
  /// What the columns take as they are kept, and what they need to be read.
  void setColumnsWidth(int kept, int needed);
  /// As wide as all columns are, beside a scroll bar.
  QSize sizeHint() const override;
  /// Not below the rows that the dynamic property "leastRows" counts.
  QSize minimumSizeHint() const override;
  /// As wide as all columns can be read in.
  int neededWidth() const { return neededColumns_ + besideColumns(); }
  /// Shows the rows that the control has now. False: they are those that were shown.
  bool catchUp();
  /// The control goes away: shows nothing and reads nothing more.
  void detach();

  /// The row at a height of the viewport; none below the last row.
  std::optional<std::uint32_t> rowAt(int y) const;
  /// Height of a row, in pixels.
  int rowHeight() const;
  /// Whole rows that fit.
  std::uint32_t page() const;
  void scrollToRow(std::uint32_t row);
  /// Where the row is in this widget.
  QRect placeOfRow(std::uint32_t row) const;
  /// The place on the screen for a menu of the row in focus; without one, the corner of the rows.
  QPoint belowFocusedRow() const;
  /// Tells assistive technology, and draws, which row the keyboard is on.
  void showFocusedRow();
  /// Tells assistive technology which rows are selected: it may change that in the selection model.
  void showSelectedRows();
  /// True while the selection model is brought up to the control.
  bool isShowingSelection() const { return showingSelection_; }

 protected:
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paintEvent(QPaintEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  /// Mouse and keys select nothing here.
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& /*index*/,
                                                       const QEvent* /*event*/) const override {
    return QItemSelectionModel::NoUpdate;
  }

 private:
  void paintStripes();
  struct RowLook;
  RowLook lookOf(std::uint32_t row) const;
  void drawCell(QPainter& painter, const QRect& cell, const RowLook& look, int column) const;
  void drawIcon(QPainter& painter, const QRect& area, const RowLook& look) const;
  void drawGridLines(QPainter& painter, const QRect& row) const;
  int besideColumns() const;
  int iconSide() const;
  void applyRowHeight();
  QString cutTextAt(const QPoint& position) const;

  controls::ListView* list_ = nullptr;
  ListModel* model_ = nullptr;
  ListHeader* header_;
  ListColors colors_;
  int keptColumns_ = 0, neededColumns_ = 0;
  bool showingSelection_ = false;
};

}  // namespace varnholt::qt

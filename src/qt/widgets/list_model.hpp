#pragma once

#include "controls/list_view.hpp"

#include <QAbstractTableModel>

namespace varnholt::qt {

/// The rows of a list view, read in place: nothing is copied, and only rows that somebody looks at are formatted.
class ListModel : public QAbstractTableModel {
  Q_OBJECT
 public:
  explicit ListModel(controls::ListView& list, QObject* parent = nullptr);

  /// What a change of the control means for a view. As many rows in another order have the same places: the view need
  /// not lay out a million of them again, only draw them.
  enum class Change { None, Contents, Size };
  /// Catches up with the control; a reset when it has another number of rows or columns.
  Change catchUp();
  /// The rows may go away at any time: reads nothing more.
  void detach();
  void setRowHeight(int height) { rowHeight_ = height; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  std::string rowToolTip(std::uint32_t row) const;

 private:
  bool hasRow(int row) const;

  controls::ListView* list_;
  int rows_ = 0, columns_ = 0, rowHeight_ = 20;
  unsigned version_ = 0;
};

}  // namespace varnholt::qt

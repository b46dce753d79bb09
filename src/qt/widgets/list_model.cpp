#include "qt/widgets/list_model.hpp"

#include "qt/icons.hpp"
#include "qt/text.hpp"

#include <QSize>

namespace varnholt::qt {

ListModel::ListModel(controls::ListView& list, QObject* parent)
    : QAbstractTableModel(parent),
      list_(&list),
      rows_(static_cast<int>(list.count())),
      columns_(static_cast<int>(list.ColumnHeaders->size())),
      version_(list.rowsVersion()) {}

ListModel::Change ListModel::catchUp() {
  const int columns = static_cast<int>(list_->ColumnHeaders->size());
  if (version_ == list_->rowsVersion() && columns == columns_) return Change::None;
  version_ = list_->rowsVersion();
  const int rows = static_cast<int>(list_->count());
  if (rows == rows_ && columns == columns_) return Change::Contents;
  beginResetModel();
  rows_ = rows;
  columns_ = columns;
  endResetModel();
  return Change::Size;
}

void ListModel::detach() {
  beginResetModel();
  list_ = nullptr;
  rows_ = columns_ = 0;
  endResetModel();
}

int ListModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int ListModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : columns_; }

// Between a change of the control and the next turn the view may still ask for rows that are gone.
bool ListModel::hasRow(int row) const { return list_ && row >= 0 && static_cast<std::uint32_t>(row) < list_->count(); }

QVariant ListModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::SizeHintRole) return QSize(0, rowHeight_);
  if (!index.isValid() || !hasRow(index.row())) return {};
  const auto row = static_cast<std::uint32_t>(index.row());
  if (role == Qt::DisplayRole) return toShown(list_->cell(row, index.column()));
  if (index.column() != 0) return {};
  const std::uint32_t id = list_->idAt(row);
  if (role == Qt::AccessibleTextRole) return toShown(list_->source().spokenText(id));
  if (role != Qt::AccessibleDescriptionRole) return {};
  QStringList marks;
  if (list_->isSelected(id)) marks += QStringLiteral("selected");
  if (list_->isGhosted(id)) marks += QStringLiteral("marked");
  if (const std::string tip = rowToolTip(row); !tip.empty()) marks += toQt(tip);
  return marks.join(QLatin1String(", "));
}

std::string ListModel::rowToolTip(std::uint32_t row) const {
  return hasRow(static_cast<int>(row)) && list_->rowToolTip ? list_->rowToolTip(list_->item(row)) : std::string();
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || !list_ || section < 0) return {};
  const auto& headers = list_->ColumnHeaders.get();
  if (static_cast<std::size_t>(section) >= headers.size()) return {};
  const auto& header = headers[static_cast<std::size_t>(section)];
  if (role == Qt::DisplayRole) return toQt(header.Text);
  if (role == Qt::TextAlignmentRole)
    return static_cast<int>(Qt::AlignVCenter | (header.alignRight ? Qt::AlignRight : Qt::AlignLeft));
  if (role != Qt::DecorationRole) return {};
  const auto icon = list_->ImageList->find(header.Icon);
  return icon == list_->ImageList->end() ? QVariant() : QVariant(iconNamed(icon->second));
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
  return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
}

}  // namespace varnholt::qt

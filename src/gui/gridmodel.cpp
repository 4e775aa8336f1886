#include "gridmodel.h"

namespace hfc {

GridModel::GridModel(Control* grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(grid), cache_(256) {
    rows_ = int(grid_->rowCount());
    columns_ = grid_->columns();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(columns_.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || !index.isValid() || index.row() >= rows_) return {};
    QStringList* row = cache_.object(index.row());
    if (!row) {
        row = new QStringList(grid_->row(size_t(index.row())));
        cache_.insert(index.row(), row);
    }
    return row->value(index.column());
}

QVariant GridModel::headerData(int section, Qt::Orientation o, int role) const {
    if (role != Qt::DisplayRole) return {};
    if (o == Qt::Horizontal) return columns_.value(section);
    return section + 1;
}

bool GridModel::sync() {
    cache_.clear();
    const int now = int(grid_->rowCount());
    if (grid_->columns() != columns_ || now < rows_) {
        beginResetModel();
        columns_ = grid_->columns();
        rows_ = now;
        endResetModel();
        return now > 0;
    }
    // Rows may have changed in place as well: the view repaints what it shows.
    if (rows_ > 0 && !columns_.isEmpty())
        emit dataChanged(index(0, 0), index(rows_ - 1, int(columns_.size()) - 1));
    if (now == rows_) return false;
    beginInsertRows({}, rows_, now - 1);
    rows_ = now;
    endInsertRows();
    return true;
}

} // namespace hfc

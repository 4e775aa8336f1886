#include "gridmodel.h"

#include "binder.h"

#include <QKeyEvent>
#include <QLineEdit>

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
    if ((role != Qt::DisplayRole && role != Qt::EditRole) || !index.isValid() ||
        index.row() >= rows_)
        return {};
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

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags f = QAbstractTableModel::flags(index);
    if (index.isValid() && grid_->extra(QStringLiteral("editable")) == QLatin1String("1"))
        f |= Qt::ItemIsEditable;
    return f;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid() || !(flags(index) & Qt::ItemIsEditable))
        return false;
    const QString text = value.toString();
    if (text != data(index, Qt::EditRole).toString())
        emit edited(index.row(), index.column(), text);
    return true;
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

GridCellDelegate::GridCellDelegate(KeyFilter filter, QObject* parent)
    : QStyledItemDelegate(parent), filter_(std::move(filter)) {}

QWidget* GridCellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const {
    QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (editor) editor->installEventFilter(const_cast<GridCellDelegate*>(this));
    return editor;
}

bool GridCellDelegate::eventFilter(QObject* editor, QEvent* event) {
    auto* line = qobject_cast<QLineEdit*>(editor);
    if (line && event->type() == QEvent::KeyPress) {
        auto* ke = static_cast<QKeyEvent*>(event);
        const QString t = ke->text();
        if (t.size() == 1 && Binder::typesCharacter(ke)) {
            const int ascii = filter_(t[0].unicode());
            if (ascii == 0) return true;
            if (ascii != t[0].unicode()) {
                line->insert(QString(QChar(ascii)));
                return true;
            }
        }
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

} // namespace hfc

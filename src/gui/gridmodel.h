#pragma once
// A table model over a grid control. The view asks only for the rows it shows, and the model
// reads them from the control then, so a log of many thousands of QSOs costs the screen what a
// screenful costs; a change adds rows at the end or repaints, never rebuilds the table.
#include "forms/control.h"

#include <QAbstractTableModel>
#include <QCache>
#include <QStyledItemDelegate>
#include <functional>

namespace hfc {

class GridModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit GridModel(Control* grid, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation o, int role) const override;
    // A grid its window lets the operator edit: a cell's new text goes to the window, which
    // stores it and changes the control, and the table follows from there.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    // Brings the model in step after the control changed; true when rows were added.
    bool sync();

  signals:
    void edited(int row, int column, const QString& value);

  private:
    Control* grid_;
    int rows_ = 0;
    QStringList columns_;
    mutable QCache<int, QStringList> cache_; // rows lately shown
};

// The cell editor of an editable grid: each typed character goes through the window's key
// handler first (which may change it, or drop it with 0), as the keys of its boxes do.
class GridCellDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    using KeyFilter = std::function<int(int keyAscii)>;
    GridCellDelegate(KeyFilter filter, QObject* parent);
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;

  protected:
    bool eventFilter(QObject* editor, QEvent* event) override;

  private:
    KeyFilter filter_;
};

} // namespace hfc

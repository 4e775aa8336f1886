#pragma once
// A table model over a grid control. The view asks only for the rows it shows, and the model
// reads them from the control then, so a log of many thousands of QSOs costs the screen what a
// screenful costs; a change adds rows at the end or repaints, never rebuilds the table.
#include "forms/control.h"

#include <QAbstractTableModel>
#include <QCache>

namespace hfc {

class GridModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit GridModel(Control* grid, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation o, int role) const override;

    // Brings the model in step after the control changed; true when rows were added.
    bool sync();

  private:
    Control* grid_;
    int rows_ = 0;
    QStringList columns_;
    mutable QCache<int, QStringList> cache_; // rows lately shown
};

} // namespace hfc

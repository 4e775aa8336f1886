#include "forms/otchet/boundrow.h"

#include "data/db.h"
#include "forms/control.h"

#include <QStringList>

namespace hfc {

BoundRow::BoundRow(Db& db, LogStore::Sheet sheet, QObject* parent)
    : QObject(parent), store_(db), sheet_(sheet) {}

void BoundRow::bind(Control* box, const QString& column) {
    bindings_.push_back({box, column, box->text()});
    // A Control signals any property change; only a new text is stored.
    connect(box, &Control::changed, this, [this, box] { changed(box); });
}

QStringList BoundRow::columns() const {
    QStringList cols;
    for (const Binding& b : bindings_) cols << b.column;
    return cols;
}

void BoundRow::load() {
    try {
        const QStringList row = store_.readSheet(sheet_, columns());
        if (row.isEmpty()) return;
        const bool wasHeld = held_;
        held_ = true;
        for (size_t i = 0; i < bindings_.size(); ++i) {
            bindings_[i].stored = row.value(int(i));
            bindings_[i].box->setText(bindings_[i].stored);
        }
        held_ = wasHeld;
    } catch (const DbError&) {
        // The boxes keep what they showed.
    }
}

void BoundRow::store() {
    QStringList values;
    for (const Binding& b : bindings_) values << b.box->text();
    try {
        store_.writeSheet(sheet_, columns(), values);
        for (Binding& b : bindings_) b.stored = b.box->text();
    } catch (const DbError&) {
    }
}

void BoundRow::changed(Control* box) {
    if (held_) return;
    for (Binding& b : bindings_) {
        if (b.box != box || b.stored == box->text()) continue;
        try {
            store_.ensureSheet(sheet_, columns());
            store_.writeSheet(sheet_, {b.column}, {box->text()});
            b.stored = box->text();
        } catch (const DbError&) {
            // Not stored; the next edit or activation tries again.
        }
    }
}

} // namespace hfc

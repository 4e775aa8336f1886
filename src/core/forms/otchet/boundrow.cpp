#include "forms/otchet/boundrow.h"

#include "data/db.h"
#include "forms/control.h"

#include <QStringList>

namespace hfc {

BoundRow::BoundRow(Db& db, const QString& table, QObject* parent)
    : QObject(parent), db_(db), table_(table) {}

void BoundRow::bind(Control* box, const QString& column) {
    bindings_.push_back({box, column, box->text()});
    // A Control signals any property change; only a new text is stored.
    connect(box, &Control::changed, this, [this, box] { changed(box); });
}

void BoundRow::ensureRow() {
    if (db_.exists(QStringLiteral("SELECT 1 FROM %1 LIMIT 1").arg(table_))) return;
    QStringList cols, blanks;
    for (const Binding& b : bindings_) {
        cols << b.column;
        blanks << QStringLiteral("''");
    }
    db_.exec(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                 .arg(table_, cols.join(','), blanks.join(',')));
}

void BoundRow::load() {
    QStringList cols;
    for (const Binding& b : bindings_) cols << b.column;
    try {
        ensureRow();
        const Rows rows =
            db_.query(QStringLiteral("SELECT %1 FROM %2 LIMIT 1").arg(cols.join(','), table_));
        if (rows.empty()) return;
        const bool wasHeld = held_;
        held_ = true;
        for (size_t i = 0; i < bindings_.size(); ++i) {
            bindings_[i].stored = rows[0].value(int(i));
            bindings_[i].box->setText(bindings_[i].stored);
        }
        held_ = wasHeld;
    } catch (const DbError&) {
        // The boxes keep what they showed.
    }
}

void BoundRow::store() {
    QStringList sets, values;
    for (const Binding& b : bindings_) {
        values << b.box->text();
        sets << QStringLiteral("%1 = ?%2").arg(b.column).arg(values.size());
    }
    try {
        ensureRow();
        db_.run(QStringLiteral("UPDATE %1 SET %2").arg(table_, sets.join(QStringLiteral(", "))),
                values);
        for (Binding& b : bindings_) b.stored = b.box->text();
    } catch (const DbError&) {
    }
}

void BoundRow::changed(Control* box) {
    if (held_) return;
    for (Binding& b : bindings_) {
        if (b.box != box || b.stored == box->text()) continue;
        try {
            ensureRow();
            db_.run(QStringLiteral("UPDATE %1 SET %2 = ?1").arg(table_, b.column), {box->text()});
            b.stored = box->text();
        } catch (const DbError&) {
            // Not stored; the next edit or activation tries again.
        }
    }
}

} // namespace hfc

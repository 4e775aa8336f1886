#include "log/workedcalls.h"

#include "data/schema.h"

#include <sqlite3.h>

namespace hfc {

void WorkedCalls::clear() {
    bands_.clear();
    order_.clear();
}

void WorkedCalls::add(const QString& call, const QString& band) {
    if (call.isEmpty() || call == kPlaceholderCall) return;
    auto it = bands_.find(call);
    if (it == bands_.end()) {
        it = bands_.insert(call, {});
        order_ << call;
    }
    it->insert(band);
}

Worked WorkedCalls::check(const QString& call, const QString& band) const {
    const auto it = bands_.constFind(call);
    if (it == bands_.constEnd()) return Worked::No;
    return it->contains(band) ? Worked::OnBand : Worked::InContest;
}

WorkedCalls::Version WorkedCalls::versionOf(Db& db) {
    Version v;
    v.handle = db.handle();
    v.changes = sqlite3_total_changes64(v.handle);
    v.data = db.scalar(QStringLiteral("PRAGMA data_version")).toLongLong();
    return v;
}

void WorkedCalls::sync(Db& db, const QString& contest) {
    const Version now = versionOf(db);
    if (contest == contest_ && now == seen_) return;
    // Only QSOs added through this connection since the last look: each write was one new row.
    const bool ownInserts = contest == contest_ && seen_.handle == now.handle &&
                            seen_.data == now.data && now.changes > seen_.changes;
    if (ownInserts) {
        const Rows rows = db.query(QStringLiteral("SELECT rowid, ccall, bband, ps2 FROM tbllog "
                                                  "WHERE rowid > ?1 ORDER BY rowid"),
                                   {QString::number(lastRowid_)});
        if (qint64(rows.size()) == now.changes - seen_.changes) {
            for (const QStringList& r : rows) {
                lastRowid_ = r[0].toLongLong();
                if (r[3] == contest) add(r[1], r[2]);
            }
            seen_ = now;
            return;
        }
    }
    clear();
    contest_ = contest;
    ++fullReads_;
    lastRowid_ = db.scalar(QStringLiteral("SELECT max(rowid) FROM tbllog")).toLongLong();
    Stmt& s = db.prepared(
        QStringLiteral("SELECT ccall, bband FROM tbllog WHERE ps2 = ?1 ORDER BY rowid"), {contest});
    while (s.step()) add(s.text(0), s.text(1));
    s.reset();
    seen_ = now;
}

QString workedName(Worked w) {
    switch (w) {
    case Worked::OnBand:
        return QStringLiteral("band");
    case Worked::InContest:
        return QStringLiteral("contest");
    case Worked::No:
        break;
    }
    return {};
}

} // namespace hfc

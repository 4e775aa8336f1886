#include "log/workedcalls.h"

#include "data/schema.h"

#include <QSet>
#include <algorithm>
#include <sqlite3.h>

namespace hfc {

namespace {
// Announced rows kept while nobody looks (a window left alone while the station's QSOs pour
// in); past that the next look reads the contest anew.
constexpr qsizetype kAnnouncedRows = 50000;
constexpr size_t kAnnouncedWrites = 1000;
// Past this many changed rows one read of the contest costs less than reading them one by one.
constexpr qsizetype kRowsOneByOne = 2000;
} // namespace

void WorkedCalls::clear() {
    bands_.clear();
    rows_.clear();
    order_.clear();
}

void WorkedCalls::add(const QString& call, const QString& band) {
    if (call.isEmpty() || call == kPlaceholderCall) return;
    auto it = bands_.find(call);
    if (it == bands_.end()) {
        it = bands_.insert(call, {});
        order_ << call;
    }
    ++(*it)[band];
}

void WorkedCalls::remove(const QString& call, const QString& band) {
    const auto it = bands_.find(call);
    if (it == bands_.end()) return;
    const auto b = it->find(band);
    if (b == it->end()) return;
    if (--*b > 0) return;
    it->erase(b);
    if (!it->isEmpty()) return;
    bands_.erase(it);
    order_.removeOne(call);
    ++removals_;
}

void WorkedCalls::setRow(qint64 rowid, const QString& call, const QString& band) {
    dropRow(rowid);
    if (call.isEmpty() || call == kPlaceholderCall) return;
    rows_.insert(rowid, {call, band});
    add(call, band);
}

void WorkedCalls::dropRow(qint64 rowid) {
    const auto it = rows_.find(rowid);
    if (it == rows_.end()) return;
    remove(it->first, it->second);
    rows_.erase(it);
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

void WorkedCalls::announce(sqlite3* handle, qint64 before, qint64 after,
                           const QList<qint64>& rowids) {
    if (after == before || announcedLost_) return;
    // Writes one after another (the usual case: nothing unannounced in between) are one entry.
    if (!announced_.empty() && announced_.back().handle == handle &&
        announced_.back().after == before) {
        announced_.back().after = after;
        announced_.back().rowids += rowids;
    } else {
        announced_.push_back({handle, before, after, rowids});
    }
    if (announced_.size() > kAnnouncedWrites || announced_.back().rowids.size() > kAnnouncedRows) {
        announced_.clear();
        announcedLost_ = true;
    }
}

void WorkedCalls::sync(Db& db, const QString& contest, NamedCommits* elsewhere) {
    const Version now = versionOf(db);
    if (contest == contest_ && now == seen_) {
        announced_.clear();
        return;
    }
    // The file changed under us: explained only by commits named beforehand.
    QList<qint64> named;
    const bool dataKnown = seen_.data == now.data || (elsewhere && elsewhere->take(named));
    const bool sameLog =
        contest == contest_ && seen_.handle == now.handle && dataKnown && !announcedLost_;
    if (!sameLog || !syncKnown(db, now, named)) fullRead(db, contest);
    announced_.clear();
    announcedLost_ = false;
    seen_ = now;
}

// The changes since the last look, when each one is accounted for: the announced writes, and
// the rest one new row each (QSOs of our own). False when they are not: the caller reads anew.
bool WorkedCalls::syncKnown(Db& db, const Version& now, const QList<qint64>& elsewhere) {
    qint64 known = 0;
    QSet<qint64> touched(elsewhere.begin(), elsewhere.end());
    for (const Announced& a : announced_) {
        if (a.handle != now.handle || a.before < seen_.changes || a.after > now.changes)
            return false;
        known += a.after - a.before;
        for (qint64 id : a.rowids) touched.insert(id);
    }
    const qint64 unknown = now.changes - seen_.changes - known;
    if (unknown < 0 || touched.size() + unknown > kRowsOneByOne) return false;
    Rows fresh;
    if (unknown > 0) {
        fresh = db.query(QStringLiteral("SELECT rowid, ccall, bband, ps2 FROM tbllog "
                                        "WHERE rowid > ?1 ORDER BY rowid"),
                         {QString::number(lastRowid_)});
        const auto own = std::count_if(fresh.begin(), fresh.end(), [&](const QStringList& r) {
            return !touched.contains(r[0].toLongLong());
        });
        if (own != unknown) return false;
    }
    QList<qint64> ids(touched.begin(), touched.end());
    std::sort(ids.begin(), ids.end());
    for (qint64 id : ids) {
        Stmt& s =
            db.prepared(QStringLiteral("SELECT ccall, bband, ps2 FROM tbllog WHERE rowid = ?1"),
                        {QString::number(id)});
        if (s.step() && s.text(2) == contest_)
            setRow(id, s.text(0), s.text(1));
        else
            dropRow(id);
        s.reset();
        lastRowid_ = std::max(lastRowid_, id);
    }
    for (const QStringList& r : fresh) {
        const qint64 id = r[0].toLongLong();
        if (touched.contains(id)) continue;
        if (r[3] == contest_) setRow(id, r[1], r[2]);
        lastRowid_ = std::max(lastRowid_, id);
    }
    return true;
}

void WorkedCalls::fullRead(Db& db, const QString& contest) {
    clear();
    contest_ = contest;
    ++fullReads_;
    lastRowid_ = db.scalar(QStringLiteral("SELECT max(rowid) FROM tbllog")).toLongLong();
    Stmt& s = db.prepared(
        QStringLiteral("SELECT rowid, ccall, bband FROM tbllog WHERE ps2 = ?1 ORDER BY rowid"),
        {contest});
    while (s.step()) setRow(s.text(0).toLongLong(), s.text(1), s.text(2));
    s.reset();
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

#include "log/logtally.h"
#include "data/schema.h"

#include <sqlite3.h>

namespace hfc {

namespace {

// The same statements serve the whole contest and one band: the band filter is the only
// difference, so both read the same covering index.
QString perBand(const char* head, const char* where, bool oneBand, int bandParam) {
    QString sql = QLatin1String(head) + QLatin1String(" FROM tbllog WHERE ") + QLatin1String(where);
    if (oneBand) sql += QStringLiteral(" AND bband = ?%1").arg(bandParam);
    return sql + QStringLiteral(" GROUP BY bband");
}

std::optional<qint64> sumOf(const QString& text) {
    if (text.isEmpty()) return std::nullopt;
    return text.toLongLong();
}

void add(std::optional<qint64>& to, std::optional<qint64> v) {
    if (v) to = to.value_or(0) + *v;
}

} // namespace

LogTally::Version LogTally::version() {
    Version v;
    v.handle = db_.handle();
    if (!v.handle) return v;
    v.changes = sqlite3_total_changes64(v.handle);
    v.data = db_.scalar(QStringLiteral("PRAGMA data_version")).toLongLong();
    return v;
}

bool LogTally::acceptOwnWrite() {
    if (!valid_) return false;
    Version now = version();
    Version expected = seen_;
    ++expected.changes;
    if (!(now == expected)) {
        valid_ = false;
        return false;
    }
    seen_ = now;
    return true;
}

void LogTally::ownWrites(const QStringList& bands) {
    if (!valid_) return;
    const Version now = version();
    if (now.handle != seen_.handle) {
        valid_ = false;
        return;
    }
    seen_ = now;
    for (const QString& b : bands) {
        if (b.isEmpty()) {
            valid_ = false; // rows without a band are only in the totals: count anew
            return;
        }
        stale_.insert(b);
    }
}

void LogTally::sync(const QString& contest, bool withPoints) {
    const Version now = version();
    if (valid_ && contest == contest_ && (withPoints_ || !withPoints) && now == seen_) {
        const QSet<QString> stale = std::exchange(stale_, {});
        for (const QString& b : stale) countBand(b);
        return;
    }
    valid_ = false;
    contest_ = contest;
    withPoints_ = withPoints;
    stale_.clear();
    countAll();
    seen_ = now;
    valid_ = true;
}

void LogTally::addRows(const Rows& qsos, const Rows& mults, const Rows& mults2, const Rows& sums) {
    // Rows without a band and rows with an empty one share the key "": only the totals read it.
    for (const QStringList& r : qsos) bands_[r[0]].qsos += r[1].toLongLong();
    for (const QStringList& r : mults) bands_[r[0]].mults += r[1].toLongLong();
    for (const QStringList& r : mults2) bands_[r[0]].mults2 += r[1].toLongLong();
    for (const QStringList& r : sums) {
        Band& b = bands_[r[0]];
        add(b.points, sumOf(r[1]));
        add(b.points2, sumOf(r[2]));
    }
}

void LogTally::countAll() {
    ++fullCounts_;
    bands_.clear();
    count(false, QString());
}

void LogTally::countBand(const QString& bband) {
    bands_.remove(bband);
    count(true, bband);
}

// The per-band counts of the whole contest, or of one band (its text the last parameter).
void LogTally::count(bool oneBand, const QString& bband) {
    QStringList c{contest_};
    QStringList q{contest_, QString(kPlaceholderCall)};
    if (oneBand) {
        c << bband;
        q << bband;
    }
    const int cBand = oneBand ? 2 : 0, qBand = oneBand ? 3 : 0;
    const Rows qsos =
        db_.query(perBand("SELECT bband, COUNT(*)", "ps2 = ?1 AND ccall <> ?2", oneBand, qBand), q);
    const Rows mults = db_.query(perBand("SELECT bband, COUNT(DISTINCT mult)",
                                         "ps2 = ?1 AND length(mult) > 0", oneBand, cBand),
                                 c);
    const Rows mults2 = db_.query(
        perBand("SELECT bband, COUNT(DISTINCT ps)", "ps2 = ?1 AND length(ps) > 0", oneBand, cBand),
        c);
    Rows sums;
    if (withPoints_)
        sums = db_.query(perBand("SELECT bband, SUM(CAST(point AS INTEGER)), "
                                 "SUM(CAST(point2 AS INTEGER))",
                                 "ps2 = ?1", oneBand, cBand),
                         c);
    addRows(qsos, mults, mults2, sums);
}

void LogTally::inserted(qint64 rowid) {
    if (!acceptOwnWrite()) return;
    // What the new row adds, decided by SQL itself so that comparisons and casts are exactly
    // those of the full count: a multiplier is new when no other row of the band carries it.
    const Rows r = db_.query(
        QStringLiteral(
            "SELECT n.ps2 = ?3, n.bband, n.bband IS NULL OR n.bband = '', n.ccall <> ?2, "
            "length(n.mult) > 0 AND NOT EXISTS (SELECT 1 FROM tbllog o WHERE o.ps2 = n.ps2 "
            "AND o.bband = n.bband AND o.mult = n.mult AND o.rowid <> n.rowid), "
            "length(n.ps) > 0 AND NOT EXISTS (SELECT 1 FROM tbllog o WHERE o.ps2 = n.ps2 "
            "AND o.bband = n.bband AND o.ps = n.ps AND o.rowid <> n.rowid), "
            "CAST(n.point AS INTEGER), CAST(n.point2 AS INTEGER) "
            "FROM tbllog n WHERE n.rowid = ?1"),
        {QString::number(rowid), QString(kPlaceholderCall), contest_});
    if (r.empty() || r[0][0] != QLatin1String("1")) return;
    const QStringList& n = r[0];
    if (n[2] != QLatin1String("0")) {
        valid_ = false; // rows without a band share a key; count them afresh
        return;
    }
    Band& b = bands_[n[1]];
    b.qsos += n[3] == QLatin1String("1");
    b.mults += n[4] == QLatin1String("1");
    b.mults2 += n[5] == QLatin1String("1");
    if (withPoints_) {
        add(b.points, sumOf(n[6]));
        add(b.points2, sumOf(n[7]));
    }
}

void LogTally::touched(const QStringList& bands) {
    if (!acceptOwnWrite()) return;
    for (const QString& b : bands) {
        if (b.isEmpty()) {
            valid_ = false;
            return;
        }
        stale_.insert(b);
    }
}

qint64 LogTally::qsos() const {
    qint64 n = 0;
    for (const Band& b : bands_) n += b.qsos;
    return n;
}

std::optional<qint64> LogTally::points() const {
    std::optional<qint64> p;
    for (const Band& b : bands_) add(p, b.points);
    return p;
}

} // namespace hfc

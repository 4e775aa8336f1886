#include "log/logstore.h"

#include "data/schema.h"
#include "log/logcolumns.h"
#include "log/logtally.h"
#include "log/workedcalls.h"

#include <sqlite3.h>

namespace hfc {

namespace {

const QString kPlaceholder = QString(kPlaceholderCall);

QString id(qint64 rowid) {
    return QString::number(rowid);
}

// The scope of a first multiplier as an SQL condition; its value, if any, goes to params and is
// numbered after them.
QString scopeSql(const LogStore::Scope& s, QStringList& params) {
    switch (s.within) {
    case LogStore::Within::Contest:
        return {};
    case LogStore::Within::SentReport:
        params << s.value;
        return QStringLiteral(" AND rsts = ?%1").arg(params.size());
    case LogStore::Within::Band:
        break;
    }
    params << s.value;
    return QStringLiteral(" AND bband = ?%1").arg(params.size());
}

const QString& sheetTable(LogStore::Sheet t) {
    static const QString station = QStringLiteral("tbltit"), score = QStringLiteral("rezult");
    return t == LogStore::Sheet::Station ? station : score;
}

} // namespace

LogStore::LogStore(Db& db) : db_(db) {}
LogStore::~LogStore() = default;

LogStore::KnownWrites::KnownWrites(LogStore& s) : s_(s) {
    if (s_.knownDepth_++ > 0) return;
    s_.knownBefore_ = sqlite3_total_changes64(s_.db_.handle());
    s_.knownRows_.clear();
}

LogStore::KnownWrites::~KnownWrites() {
    if (--s_.knownDepth_ > 0) return;
    // Without a worked-call set yet there is nobody to tell: its first look reads the contest.
    if (s_.worked_)
        s_.worked_->announce(s_.db_.handle(), s_.knownBefore_,
                             sqlite3_total_changes64(s_.db_.handle()), s_.knownRows_);
    s_.knownRows_.clear();
}

// --- rows ---

qint64 LogStore::insert(const LogRow& r) {
    static const QString sql = [] {
        QStringList marks;
        for (size_t i = 1; i <= logRowColumns().size(); ++i) marks << QStringLiteral("?%1").arg(i);
        return QStringLiteral("INSERT INTO tbllog (") + logSelectList() +
               QStringLiteral(") VALUES (") + marks.join(QStringLiteral(", ")) + QLatin1Char(')');
    }();
    KnownWrites known(*this);
    db_.run(sql, logRowValues(r));
    const qint64 rowid = sqlite3_last_insert_rowid(db_.handle());
    known.touched(rowid);
    return rowid;
}

void LogStore::update(qint64 rowid, const LogRow& r) {
    static const QString sql = [] {
        QStringList sets;
        int i = 0;
        for (const LogColumn& c : logRowColumns())
            sets << c.name + QStringLiteral(" = ?%1").arg(++i);
        return QStringLiteral("UPDATE tbllog SET ") + sets.join(QStringLiteral(", ")) +
               QStringLiteral(" WHERE rowid = ?%1").arg(i + 1);
    }();
    KnownWrites known(*this);
    known.touched(rowid);
    db_.run(sql, logRowValues(r) << id(rowid));
}

void LogStore::remove(qint64 rowid) {
    KnownWrites known(*this);
    known.touched(rowid);
    db_.run(QStringLiteral("DELETE FROM tbllog WHERE rowid = ?1"), {id(rowid)});
}

LogRow LogStore::row(qint64 rowid) {
    return findRow(rowid).value_or(LogRow{});
}

std::optional<LogRow> LogStore::findRow(qint64 rowid) {
    static const QString sql = QStringLiteral("SELECT ") + logSelectList() +
                               QStringLiteral(" FROM tbllog WHERE rowid = ?1");
    Stmt& s = db_.prepared(sql, {id(rowid)});
    std::optional<LogRow> r;
    if (s.step()) r = logRowFrom(s);
    s.reset();
    return r;
}

QString LogStore::bandOf(qint64 rowid) {
    return db_.scalar(QStringLiteral("SELECT bband FROM tbllog WHERE rowid = ?1"), {id(rowid)});
}

void LogStore::setField(qint64 rowid, const QString& column, const QString& value) {
    // The column's name comes from the fixed list, never from the caller's text.
    const LogColumn* c = logColumnNamed(column);
    if (!c) return;
    KnownWrites known(*this);
    known.touched(rowid);
    db_.run(QStringLiteral("UPDATE tbllog SET %1 = ?1 WHERE rowid = ?2").arg(c->name),
            {value, id(rowid)});
}

QStringList LogStore::fields(qint64 rowid, const QStringList& columns) {
    QStringList names;
    for (const QString& n : columns)
        if (const LogColumn* c = logColumnNamed(n)) names << c->name;
    const Rows r = db_.query(QStringLiteral("SELECT %1 FROM tbllog WHERE rowid = ?1")
                                 .arg(names.join(QStringLiteral(", "))),
                             {id(rowid)});
    return r.empty() ? QStringList() : r[0];
}

std::vector<qint64> LogStore::rowids(const QString& contest) {
    std::vector<qint64> out;
    Stmt& s = db_.prepared(QStringLiteral("SELECT rowid FROM tbllog WHERE ps2 = ?1 ORDER BY rowid"),
                           {contest});
    while (s.step()) out.push_back(s.text(0).toLongLong());
    s.reset();
    return out;
}

std::vector<qint64> LogStore::allRowids() {
    std::vector<qint64> out;
    Stmt& s = db_.prepared(QStringLiteral("SELECT rowid FROM tbllog ORDER BY rowid"));
    while (s.step()) out.push_back(s.text(0).toLongLong());
    s.reset();
    return out;
}

// --- the entry line ---

QStringList LogStore::partialList(Partial p, const QString& contest, const QString& band,
                                  const QString& begin, const QString& report) {
    // "Begins with" as an index range: [begin, begin + U+FFFF). A GLOB with a bound pattern
    // would make SQLite re-prepare the statement on every keystroke.
    const QString end = begin + QChar(0xFFFF);
    switch (p) {
    case Partial::SameCall:
        return db_.column(QStringLiteral("SELECT ccall FROM tbllog WHERE ps2 = ?1 AND ccall = ?2 "
                                         "ORDER BY rowid"),
                          {contest, begin});
    case Partial::BeginsWithReport:
        return db_.column(QStringLiteral("SELECT DISTINCT ccall FROM tbllog WHERE ps2 = ?1 "
                                         "AND ccall >= ?2 AND ccall < ?3 AND rstr = ?4 "
                                         "ORDER BY ccall"),
                          {contest, begin, end, report});
    case Partial::OnBandWithReport:
        return db_.column(QStringLiteral("SELECT DISTINCT ccall FROM tbllog WHERE ps2 = ?1 "
                                         "AND bband = ?2 AND ccall >= ?3 AND ccall < ?4 "
                                         "AND rstr = ?5 ORDER BY ccall"),
                          {contest, band, begin, end, report});
    case Partial::OnBand:
        break;
    }
    return db_.column(QStringLiteral("SELECT DISTINCT ccall FROM tbllog WHERE ps2 = ?1 "
                                     "AND bband = ?2 AND ccall >= ?3 AND ccall < ?4 "
                                     "ORDER BY ccall"),
                      {contest, band, begin, end});
}

Rows LogStore::timeList(const QString& contest, const QString& band, const QString& begin) {
    const QString end = begin + QChar(0xFFFF);
    if (band.isEmpty())
        return db_.query(QStringLiteral("SELECT ccall, ttime FROM tbllog WHERE ps2 = ?1 "
                                        "AND ccall >= ?2 AND ccall < ?3 ORDER BY ccall, ttime"),
                         {contest, begin, end});
    return db_.query(QStringLiteral("SELECT ccall, ttime FROM tbllog WHERE ps2 = ?1 "
                                    "AND bband = ?2 AND ccall >= ?3 AND ccall < ?4 "
                                    "ORDER BY ccall, ttime"),
                     {contest, band, begin, end});
}

Rows LogStore::earlierQsos(const QString& contest, const QString& call) {
    if (call.isEmpty()) return {};
    return db_.query(QStringLiteral("SELECT ccall, ddate, ttime, bband, rsts1, rsts2, rstr1, "
                                    "rstr2, mult, ps, point, point2, ps1 FROM tbllog "
                                    "WHERE ps2 = ?1 AND ccall = ?2 ORDER BY rowid"),
                     {contest, call});
}

bool LogStore::callWorked(const QString& contest, const QString& call) {
    return db_.exists(QStringLiteral("SELECT 1 FROM tbllog WHERE ps2 = ?1 AND ccall = ?2 LIMIT 1"),
                      {contest, call});
}

QStringList LogStore::callsOnBand(const QString& contest, const QString& band) {
    return db_.column(
        QStringLiteral("SELECT DISTINCT ccall FROM tbllog WHERE ps2 = ?1 AND bband = ?2"),
        {contest, band});
}

Rows LogStore::pointsInputs(const QString& contest) {
    return db_.query(
        QStringLiteral("SELECT rowid, ccall, bband, ps1, rstr1, rstr2, rsts1, ttime, point, PRF "
                       "FROM tbllog WHERE ps2 = ?1 AND ccall <> ?2"),
        {contest, kPlaceholder});
}

void LogStore::setPoints(const std::vector<std::pair<QString, QString>>& changed) {
    db_.begin();
    try {
        for (const auto& [rowid, points] : changed)
            db_.run(QStringLiteral("UPDATE tbllog SET point = ?1 WHERE rowid = ?2"),
                    {points, rowid});
        db_.commit();
    } catch (const DbError&) {
        db_.rollback();
        throw;
    }
}

// --- multipliers ---

bool LogStore::firstMultWorked(const QString& contest, const QString& mult, const Scope& s) {
    QStringList params{mult, contest};
    lastSql_ = QStringLiteral("SELECT 1 FROM tbllog WHERE mult = ?1 AND ps2 = ?2") +
               scopeSql(s, params) + QStringLiteral(" LIMIT 1");
    return db_.exists(lastSql_, params);
}

bool LogStore::secondMultWorked(const QString& contest, const QString& ps, const QString& band) {
    lastSql_ =
        QStringLiteral("SELECT 1 FROM tbllog WHERE ps = ?1 AND ps2 = ?2 AND bband = ?3 LIMIT 1");
    return db_.exists(lastSql_, {ps, contest, band});
}

QStringList LogStore::firstMults(const QString& contest, const Scope& s) {
    QStringList params{contest};
    const QString sql =
        QStringLiteral("SELECT DISTINCT mult FROM tbllog WHERE ps2 = ?1") + scopeSql(s, params);
    return db_.column(sql, params);
}

QStringList LogStore::firstMultsInOrder(const QString& contest, const Scope& s) {
    QStringList params{contest};
    lastSql_ = QStringLiteral("SELECT mult FROM tbllog WHERE ps2 = ?1") + scopeSql(s, params) +
               QStringLiteral(" AND NOT (length(mult) = 0) ORDER BY rowid");
    return db_.column(lastSql_, params);
}

QStringList LogStore::secondMultsOnBand(const QString& contest, const QString& band) {
    return db_.column(
        QStringLiteral("SELECT DISTINCT ps FROM tbllog WHERE ps2 = ?1 AND bband = ?2"),
        {contest, band});
}

QStringList LogStore::secondMultsSorted(const QString& contest, const QString& band) {
    if (band.isEmpty())
        return db_.column(QStringLiteral("SELECT DISTINCT ps FROM tbllog WHERE ps2 = ?1 "
                                         "AND length(ps) > 0 ORDER BY ps"),
                          {contest});
    return db_.column(QStringLiteral("SELECT ps FROM tbllog WHERE ps2 = ?1 AND "
                                     "bband = ?2 AND length(ps) > 0 ORDER BY ps"),
                      {contest, band});
}

bool LogStore::reportInHour(const QString& contest, const QString& report, const QString& hour) {
    return db_.exists(QStringLiteral("SELECT 1 FROM tbllog WHERE ps2 = ?1 AND rstr1 = ?2 "
                                     "AND substr(ttime, 1, 2) = ?3 LIMIT 1"),
                      {contest, report, hour});
}

bool LogStore::districtWorked(const QString& contest, const QString& district) {
    // a UK exchange is the serial followed by the district's letters
    return db_.exists(QStringLiteral("SELECT 1 FROM tbllog WHERE ps2 = ?1 "
                                     "AND rstr2 GLOB '*[0-9]' || ?2 LIMIT 1"),
                      {contest, district});
}

bool LogStore::countryWorked(const QString& contest, const QString& strana) {
    return db_.exists(QStringLiteral("SELECT 1 FROM tbllog WHERE ps2 = ?1 AND contr = ?2 LIMIT 1"),
                      {contest, strana});
}

// --- the newest rows ---

// From the end of the table, as lastReceived: through an index on the contest SQLite sorted every
// row of the contest after each QSO (190 ms at 100k).
Rows LogStore::recentTimes(const QString& contest) {
    return db_.query(QStringLiteral("SELECT ddate, ttime FROM tbllog NOT INDEXED WHERE ps2 = ?1 "
                                    "AND ccall <> ?2 ORDER BY rowid DESC LIMIT 1000"),
                     {contest, kPlaceholder});
}

// Read back from the end of the table: the newest row is nearly always the contest's. An index
// on the contest would make SQLite sort all of its rows instead.
QString LogStore::lastReceived(const QString& contest) {
    return db_.scalar(QStringLiteral("SELECT rstr2 FROM tbllog NOT INDEXED WHERE ps2 = ?1 "
                                     "ORDER BY rowid DESC LIMIT 1"),
                      {contest});
}

Rows LogStore::lastCallAndTime(const QString& contest) {
    return db_.query(QStringLiteral("SELECT ccall, ttime FROM tbllog NOT INDEXED WHERE ps2 = ?1 "
                                    "ORDER BY rowid DESC LIMIT 1"),
                     {contest});
}

QString LogStore::lastFreqOnBand(const QString& contest, const QString& band) {
    return db_.scalar(QStringLiteral("SELECT freq FROM tbllog WHERE ps2 = ?1 AND bband = ?2 AND "
                                     "length(freq) > 0 ORDER BY rowid DESC LIMIT 1"),
                      {contest, band});
}

qint64 LogStore::othersQsos(const QString& node, const QString& contest) {
    return db_
        .scalar(QStringLiteral("SELECT count(*) FROM mqqso m JOIN tbllog t ON t.rowid = "
                               "CAST(m.qrowid AS INTEGER) WHERE m.del = '0' AND m.origin <> ?1 "
                               "AND t.ps2 = ?2 AND t.ccall <> ?3"),
                {node, contest, kPlaceholder})
        .toLongLong();
}

void LogStore::forEachExchange(
    const std::function<void(const QString&, const QString&, const QString&)>& f) {
    Stmt& s = db_.prepared(QStringLiteral("SELECT ccall, ps2, rstr2 FROM tbllog WHERE "
                                          "ccall <> ?1 AND length(rstr2) > 0 ORDER BY rowid"),
                           {kPlaceholder});
    while (s.step()) f(s.text(0), s.text(1), s.text(2));
    s.reset();
}

// --- totals ---

LogTally& LogStore::tally() {
    if (!tally_) tally_ = std::make_unique<LogTally>(db_);
    return *tally_;
}

void LogStore::forgetTally() {
    tally_.reset();
}

WorkedCalls& LogStore::worked(const QString& contest) {
    if (!worked_) worked_ = std::make_unique<WorkedCalls>();
    worked_->sync(db_, contest, &named_);
    return *worked_;
}

// --- clearing and QTC ---

bool LogStore::hasRows() {
    return db_.exists(QStringLiteral("SELECT 1 FROM tbllog LIMIT 1"));
}

bool LogStore::hasQtcRows() {
    return db_.exists(QStringLiteral("SELECT 1 FROM tbllogTemp LIMIT 1"));
}

void LogStore::clear() {
    db_.exec(QStringLiteral("DELETE FROM tbllog"));
}

void LogStore::clearQtc() {
    db_.exec(QStringLiteral("DELETE FROM tbllogTemp"));
}

void LogStore::copyContestToQtc(const QString& contest) {
    db_.run(QStringLiteral("INSERT INTO tbllogTemp SELECT * FROM tbllog WHERE ps2 = ?1"),
            {contest});
}

void LogStore::addQtcLines(const QList<QtcLine>& lines) {
    db_.begin();
    try {
        for (const QtcLine& l : lines)
            db_.run(QStringLiteral("INSERT INTO tbllogTemp (rstr1, ccall, ttime, bband, ddate, "
                                   "ps2, contr) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7)"),
                    {l.nr, l.call, l.time, l.band, l.date, l.head, l.tail});
        db_.commit();
    } catch (...) {
        db_.rollback();
        throw;
    }
}

qint64 LogStore::qtcCount() {
    // the QTC frame leaves ps1 empty; rows with a mode there are copies of log rows
    return db_.scalar(QStringLiteral("SELECT count(*) FROM tbllogTemp WHERE ifnull(ps1, '') = ''"))
        .toLongLong();
}

Rows LogStore::iaruRows() {
    return db_.query(QStringLiteral(
        "SELECT ccall, ddate, ttime, bband, rstr, rsts, contr, QTH, PRF, ps1 FROM tbllog"));
}

// --- reports ---

QList<LogRow> LogStore::readRows(const QString& sql) {
    QList<LogRow> rows;
    Stmt& st = db_.prepared(sql);
    while (st.step()) rows.append(logRowFrom(st));
    st.reset();
    return rows;
}

QList<LogRow> LogStore::rowsInReportOrder() {
    static const QString sql = QStringLiteral("SELECT ") + logSelectList() +
                               QStringLiteral(" FROM tbllog ORDER BY cdate(ddate), ttime, rsts2");
    return readRows(sql);
}

QList<LogRow> LogStore::rowsInEntryOrder() {
    static const QString sql =
        QStringLiteral("SELECT ") + logSelectList() + QStringLiteral(" FROM tbllog ORDER BY rowid");
    return readRows(sql);
}

QList<LogRow> LogStore::qtcRows() {
    static const QString sql = QStringLiteral("SELECT ") + logSelectList() +
                               QStringLiteral(" FROM tbllogTemp ORDER BY rowid");
    return readRows(sql);
}

void LogStore::forEachScoreRow(const QString& contest, qint64 afterRowid,
                               const std::function<void(ScoreFields&)>& f) {
    // By rowid, not by the contest's index: after each QSO only the rows past the last one seen
    // are read, whatever the size of the log.
    Stmt& st = db_.prepared(
        QStringLiteral("SELECT rowid, ccall, bband, ps1, rstr1, rstr2, PRF, mult, point, point2 "
                       "FROM tbllog WHERE +ps2 = ?1 AND rowid > ?2 AND ccall <> ?3 ORDER BY rowid"),
        {contest, id(afterRowid), kPlaceholder});
    ScoreFields r;
    while (st.step()) {
        r.rowid = st.text(0).toLongLong();
        r.call = st.text(1);
        r.band = st.text(2);
        r.mode = st.text(3);
        r.report = st.text(4);
        r.exchange = st.text(5);
        r.prefix = st.text(6);
        r.mult = st.text(7);
        r.points = st.text(8).toLongLong();
        r.points2 = st.text(9).toLongLong();
        f(r);
    }
    st.reset();
}

Rows LogStore::bandCounts(const QString& contest, const QStringList& sixBands) {
    // A call stored as a single double quote is a placeholder, not a QSO.
    return db_.query(
        QStringLiteral("SELECT bband, sum(ccall <> ?7), sum(length(mult) > 0), "
                       "sum(length(ps) > 0), sum(point) FROM tbllog "
                       "WHERE bband IN (?1, ?2, ?3, ?4, ?5, ?6) AND ps2 = ?8 GROUP BY bband"),
        QStringList(sixBands) << kPlaceholder << contest);
}

QString LogStore::firstDate() {
    return db_.scalar(
        QStringLiteral("SELECT ddate FROM tbllog ORDER BY cdate(ddate), ttime, rsts2 LIMIT 1"));
}

QString LogStore::lastDate() {
    return db_.scalar(QStringLiteral(
        "SELECT ddate FROM tbllog ORDER BY cdate(ddate) DESC, ttime DESC, rsts2 DESC LIMIT 1"));
}

// --- the one-row tables ---

void LogStore::ensureSheet(Sheet t, const QStringList& columns) {
    const QString& table = sheetTable(t);
    if (db_.exists(QStringLiteral("SELECT 1 FROM %1 LIMIT 1").arg(table))) return;
    QStringList blanks;
    for (qsizetype i = 0; i < columns.size(); ++i) blanks << QStringLiteral("''");
    db_.exec(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                 .arg(table, columns.join(','), blanks.join(',')));
}

QStringList LogStore::readSheet(Sheet t, const QStringList& columns) {
    ensureSheet(t, columns);
    const Rows rows = db_.query(
        QStringLiteral("SELECT %1 FROM %2 LIMIT 1").arg(columns.join(','), sheetTable(t)));
    return rows.empty() ? QStringList() : rows[0];
}

void LogStore::writeSheet(Sheet t, const QStringList& columns, const QStringList& values) {
    ensureSheet(t, columns);
    QStringList sets;
    for (qsizetype i = 0; i < columns.size(); ++i)
        sets << QStringLiteral("%1 = ?%2").arg(columns[i]).arg(i + 1);
    db_.run(QStringLiteral("UPDATE %1 SET %2").arg(sheetTable(t), sets.join(QStringLiteral(", "))),
            values);
}

std::optional<std::pair<QString, QString>> LogStore::stationCallAndTitle() {
    const Rows r = db_.query(QStringLiteral("SELECT ccall, contest FROM tbltit LIMIT 1"));
    if (r.empty()) return std::nullopt;
    return std::pair{r[0][0], r[0][1]};
}

QString LogStore::stationTitle() {
    return db_.scalar(QStringLiteral("SELECT contest FROM tbltit LIMIT 1"));
}

void LogStore::setStationCall(const QString& call) {
    db_.run(QStringLiteral("UPDATE tbltit SET ccall = ?1"), {call});
}

void LogStore::setStationTitle(const QString& title) {
    db_.run(QStringLiteral("UPDATE tbltit SET contest = ?1"), {title});
}

} // namespace hfc

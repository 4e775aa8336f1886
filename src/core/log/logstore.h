#pragma once
// The contest log's one store: every statement on the log (tbllog), the QTC table (tbllogTemp),
// the station data (tbltit) and the score sheet (rezult) is here, each prepared once and kept by
// the connection. Windows and reports ask it by what they want to know; none of them holds SQL
// on the log. Throws DbError as the connection does.
#include "data/db.h"
#include "log/logrow.h"
#include "log/namedcommits.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace hfc {

class LogTally;
class WorkedCalls;

class LogStore {
  public:
    explicit LogStore(Db& db);
    ~LogStore();
    LogStore(const LogStore&) = delete;
    LogStore& operator=(const LogStore&) = delete;

    Db& db() { return db_; }
    // The statement the last multiplier question ran (the scripts show it as lastsql).
    const QString& lastSql() const { return lastSql_; }

    // Writes that say which rows of tbllog they change, from construction to destruction:
    // every change made meanwhile on the connection is to a row named with touched() or
    // outside tbllog (the shared log's bookkeeping). The worked calls then read just those
    // rows instead of the whole contest. May nest; the by-rowid writes below name their rows.
    class KnownWrites {
      public:
        explicit KnownWrites(LogStore& s);
        ~KnownWrites();
        KnownWrites(const KnownWrites&) = delete;
        KnownWrites& operator=(const KnownWrites&) = delete;
        void touched(qint64 rowid) { s_.knownRows_ << rowid; }

      private:
        LogStore& s_;
    };

    // --- rows ---
    // The new row's rowid. Every column is written; the row is on disk when this returns.
    qint64 insert(const LogRow& r);
    void update(qint64 rowid, const LogRow& r); // every column of one row
    void remove(qint64 rowid);
    LogRow row(qint64 rowid);                    // an empty row when there is none
    std::optional<LogRow> findRow(qint64 rowid); // none when there is no such row
    QString bandOf(qint64 rowid);
    // One column of one row; column must be one of the log's columns (else nothing happens).
    void setField(qint64 rowid, const QString& column, const QString& value);
    // The named columns of one row, in the order named; empty when the row is gone.
    QStringList fields(qint64 rowid, const QStringList& columns);
    std::vector<qint64> rowids(const QString& contest); // entry order
    std::vector<qint64> allRowids();                    // every contest's, in entry order

    // --- the entry line ---
    // Which calls the partial list under the call box shows.
    enum class Partial {
        SameCall,         // exactly this call, every band, in entry order
        BeginsWithReport, // beginning so, every band, with this received report
        OnBandWithReport, // beginning so, on this band, with this received report
        OnBand,           // beginning so, on this band
    };
    QStringList partialList(Partial p, const QString& contest, const QString& band,
                            const QString& begin, const QString& report = {});
    // Call and time of the QSOs whose call begins so: on the band, or on any band (empty band).
    Rows timeList(const QString& contest, const QString& band, const QString& begin);
    // Every QSO with the call: call, date, time, band, rsts1, rsts2, rstr1, rstr2, mult, ps,
    // point, point2, ps1.
    Rows earlierQsos(const QString& contest, const QString& call);
    bool callWorked(const QString& contest, const QString& call);
    QStringList callsOnBand(const QString& contest, const QString& band); // distinct
    // rowid, call, band, ps1, rstr1, rstr2, rsts1, ttime, point, PRF of every QSO.
    Rows pointsInputs(const QString& contest);
    // New points of rows (rowid, points) in one transaction: all of them or none.
    void setPoints(const std::vector<std::pair<QString, QString>>& changed);

    // --- multipliers ---
    // Where a first multiplier counts once: in the whole contest, per sent report, per band.
    enum class Within { Contest, SentReport, Band };
    struct Scope {
        Within within = Within::Contest;
        QString value; // the sent report or the band
    };
    bool firstMultWorked(const QString& contest, const QString& mult, const Scope& s);
    bool secondMultWorked(const QString& contest, const QString& ps, const QString& band);
    QStringList firstMults(const QString& contest, const Scope& s);             // distinct
    QStringList firstMultsInOrder(const QString& contest, const Scope& s);      // non-empty, logged
    QStringList secondMultsOnBand(const QString& contest, const QString& band); // distinct
    // Non-empty second multipliers, sorted: distinct over the contest, or every one on a band.
    QStringList secondMultsSorted(const QString& contest, const QString& band = {});

    // What the points rules ask of earlier QSOs.
    bool reportInHour(const QString& contest, const QString& report, const QString& hour);
    bool districtWorked(const QString& contest, const QString& district);
    bool countryWorked(const QString& contest, const QString& strana);

    // --- the newest rows ---
    // Date and time, newest first, no placeholders; no further back than an hour can hold: even
    // a multi-operator station does not log a thousand QSOs in an hour.
    Rows recentTimes(const QString& contest);
    QString lastReceived(const QString& contest); // rstr2 of the newest row
    Rows lastCallAndTime(const QString& contest); // call, time of the newest row
    QString lastFreqOnBand(const QString& contest, const QString& band);
    // QSOs of the contest (no placeholders) that the shared log's link says came from another
    // computer than node.
    qint64 othersQsos(const QString& node, const QString& contest);
    // Every row with a received exchange, in entry order: call, contest, exchange.
    void
    forEachExchange(const std::function<void(const QString&, const QString&, const QString&)>& f);

    // --- the running totals and the worked calls, kept between lookups ---
    LogTally& tally();
    void forgetTally(); // after the file behind the connection changed
    WorkedCalls& worked(const QString& contest);
    // Where a writer on another connection to this file names its commits (see NamedCommits).
    NamedCommits& namedCommits() { return named_; }

    // --- clearing and the QTC table ---
    bool hasRows();
    bool hasQtcRows();
    void clear();    // every row of every contest
    void clearQtc(); // the QTC table
    void copyContestToQtc(const QString& contest);
    struct QtcLine {
        QString nr, call, time, band, date, head, tail;
    };
    void addQtcLines(const QList<QtcLine>& lines); // in one transaction
    qint64 qtcCount();                             // QTC lines (not copied log rows)
    // call, date, time, band, rstr, rsts, contr, QTH, PRF, ps1 of every row (the IARU transfer)
    Rows iaruRows();

    // --- reports ---
    QList<LogRow> rowsInReportOrder(); // by date value, then time text, then sent exchange
    QList<LogRow> rowsInEntryOrder();
    QList<LogRow> qtcRows();
    // A QSO as the claimed score reads it.
    struct ScoreFields {
        qint64 rowid = 0;
        QString call, band, mode, report, exchange, prefix, mult;
        qint64 points = 0, points2 = 0;
    };
    // The contest's QSOs past afterRowid, in rowid order, handed over one at a time: a count of
    // the whole log reads every row, so no list of text rows is built in between.
    void forEachScoreRow(const QString& contest, qint64 afterRowid,
                         const std::function<void(ScoreFields&)>& f);
    // band, QSOs, first multipliers, second multipliers, point sum; for the bands named.
    Rows bandCounts(const QString& contest, const QStringList& sixBands);
    QString firstDate(); // in report order; empty for an empty log
    QString lastDate();

    // --- the one-row tables: station data and score sheet ---
    enum class Sheet { Station, Score };
    // A blank row with these columns '' when the table has none.
    void ensureSheet(Sheet t, const QStringList& columns);
    QStringList readSheet(Sheet t, const QStringList& columns); // creates a blank row if none
    void writeSheet(Sheet t, const QStringList& columns, const QStringList& values);
    std::optional<std::pair<QString, QString>> stationCallAndTitle(); // none without a row
    QString stationTitle();
    void setStationCall(const QString& call);
    void setStationTitle(const QString& title);

  private:
    QList<LogRow> readRows(const QString& sql);

    Db& db_;
    QString lastSql_;
    std::unique_ptr<LogTally> tally_;
    std::unique_ptr<WorkedCalls> worked_;
    NamedCommits named_;
    int knownDepth_ = 0; // KnownWrites open
    qint64 knownBefore_ = 0;
    QList<qint64> knownRows_;
};

} // namespace hfc

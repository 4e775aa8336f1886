#pragma once
// QSO points by contest: one rule function per contest code, looked up in a table. The window
// gathers what a rule may read into QsoFacts and applies the returned PointsResult to its boxes.
#include <QString>
#include <optional>

namespace hfc {

// Earlier QSOs of the current contest, for the rules whose points depend on them. The window
// offers them only when a QSO is entered, never on a keystroke in the callsign box.
class LogLookup {
  public:
    virtual ~LogLookup() = default;
    // chemp: an earlier QSO whose received report is report, in the clock hour hour ("hh").
    virtual bool reportInHour(const QString& report, const QString& hour) const = 0;
    // rsgb: an earlier QSO with this UK district (the letters of the exchange).
    virtual bool districtWorked(const QString& district) const = 0;
    // rsgb: an earlier QSO with this country (callstrana).
    virtual bool countryWorked(const QString& strana) const = 0;
};

// What a points rule may look at: the contest, the QSO's band and mode, the worked station as
// resolved from its call, the received exchange as typed, and the own station.
struct QsoFacts {
    QString contest; // contestcode
    QString band;    // curband
    QString mode;    // "CW" or "SSB"
    QString call;
    QString pref;     // callpref: the entity prefix
    QString kont;     // callkont: the continent
    QString strana;   // callstrana
    QString prf;      // callprf: the call's prefix cut ("UA3")
    QString report;   // lblrstr: received report
    QString exchange; // txtrstr: received exchange
    // the own station, resolved from TXTNCALL like a worked call
    QString ownCall, ownPref, ownKont, ownPrf;
    QString myexch;                 // the own fixed exchange typed at selection
    QString sentReport;             // lblrsts: in "chemp" the own championship zone
    QString time;                   // txttime, "hh:mm:ss"
    const LogLookup* log = nullptr; // set when the QSO is entered
};

// What a rule decides. Unset points leave the box as it was.
struct PointsResult {
    std::optional<QString> points;  // txtpoint
    std::optional<QString> points2; // txtpoint2
    bool clearMult = false;         // empty txtmult: the QSO brings no first multiplier
    bool clearMult2 = false;        // empty txtmult2
};

using PointsRule = PointsResult (*)(const QsoFacts&);

// The rule of a contest code, or nullptr when the code has none (the points stay as they are).
// "raem" and "uba" score through their own procedures and have none.
PointsRule pointsRule(const QString& contest);

} // namespace hfc

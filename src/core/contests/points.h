#pragma once
// QSO points by contest: one rule function per contest code, looked up in a table. The window
// gathers what a rule may read into QsoFacts and applies the returned PointsResult to its boxes.
#include <QString>
#include <optional>

namespace hfc {

// What a points rule may look at: the contest, the QSO's band and mode, the worked station as
// resolved from its call, and the received exchange as typed.
struct QsoFacts {
    QString contest; // contestcode
    QString band;    // curband
    QString mode;    // "CW" or "SSB"
    QString call;
    QString pref;     // callpref: the entity prefix
    QString kont;     // callkont: the continent
    QString strana;   // callstrana
    QString report;   // lblrstr: received report
    QString exchange; // txtrstr: received exchange
};

// What a rule decides. Unset points leave the box as it was.
struct PointsResult {
    std::optional<QString> points;  // txtpoint
    std::optional<QString> points2; // txtpoint2
    bool clearMult = false;         // empty txtmult: the QSO brings no first multiplier
    bool clearMult2 = false;        // empty txtmult2
    bool invalid = false;           // the exchange is not acceptable: "Неверно"
};

using PointsRule = PointsResult (*)(const QsoFacts&);

// The rule of a contest code, or nullptr when the code has none (the points stay as they are).
PointsRule pointsRule(const QString& contest);

} // namespace hfc

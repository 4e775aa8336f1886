#pragma once
// The QSO being entered, as typed values: what the entry line shows and what Enter stores.
#include "data/db.h"

#include <QString>
#include <QStringList>

namespace hfc {

struct QsoDraft {
    // What the lookups found against this QSO; a repeat and a too-early QSO are still logged,
    // an invalid exchange waits for a correction or a second Enter.
    enum class Mark { None, Repeat, TooEarly, Invalid };

    QString call, band, mode, date, time;
    QString country, prefix; // as the country lookup named them (contr, PRF)
    // The rest of what the lookup found: the country's own prefix, the continent, the zones,
    // the district code of a Russian call.
    QString dxccPrefix, continent, itu, cq, district;
    QString sentReport, sentExchange; // rsts1, rsts2
    QString rcvdReport, rcvdExchange; // rstr1, rstr2
    // What the QSO's multipliers would be, new or not (a prefix, a country, a zone, the
    // exchange); mult and mult2 are these when they are new to the log, else empty.
    QString multCandidate, psCandidate;
    QString mult, mult2; // the new multipliers this QSO brings; empty: none
    QString points, points2;
    QString freq; // kHz from the radio; empty without one
    Mark mark = Mark::None;

    QStringList partial; // the partial list: calls worked that begin so; the first is current
    Rows timeList;       // call and time of those QSOs, for the time rules
};

} // namespace hfc

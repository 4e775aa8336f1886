#pragma once
// How the standard formats name each of the logger's contests: the CONTEST: name a Cabrillo
// robot expects and the ADIF CONTEST_ID, per mode where the sponsor splits them, and how the
// exchange boxes of a log row map onto the sponsor's QSO template. Sources and the names we had
// to choose are listed in docs/exports.md.
#include "contests/contestdef.h"

#include <QString>
#include <QStringList>

namespace hfc {

enum class QsoMode { Cw, Ssb };

using ExchangeLayout = contests::ExchangeLayout;

// The names and layout of a contest code (case as the catalogue spells it), or nullptr.
const contests::StandardIds* standardContest(const QString& contestcode);

// True when the contest sends serial numbers, false when the own exchange is fixed (zone,
// oblast, age, ...): the definition's sent exchange. Unknown codes are taken to send serials.
bool sendsSerial(const QString& contestcode);

// Cabrillo CONTEST: name for a log in that mode; empty for a code outside the table.
QString cabrilloContestName(const QString& contestcode, QsoMode mode);

// ADIF CONTEST_ID of a QSO in that mode; empty for a code outside the table.
QString adifContestId(const QString& contestcode, QsoMode mode);

} // namespace hfc

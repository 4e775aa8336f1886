#pragma once
// How the standard formats name each of the logger's contests: the CONTEST: name a Cabrillo
// robot expects and the ADIF CONTEST_ID, per mode where the sponsor splits them, and how the
// exchange boxes of a log row map onto the sponsor's QSO template. Sources and the names we had
// to choose are listed in docs/exports.md.
#include <QString>
#include <QStringList>

namespace hfc {

enum class QsoMode { Cw, Ssb };

// Where the report and the serial number sit in the two exchange boxes of each side
// (rsts1/rsts2 sent, rstr1/rstr2 received).
enum class ExchangeLayout {
    ReportExchange, // report, then the exchange (serial, zone, district, ...)
    SerialExchange, // no report: serial, then a second element (coordinates, passed-on number)
    ExchangeSerial, // no report: a first element, then the serial
};

struct StandardContest {
    const char* code;
    const char* cabrilloCw;  // CONTEST: of a CW log
    const char* cabrilloSsb; // and of a phone log
    const char* adifCw;      // CONTEST_ID of a CW QSO
    const char* adifSsb;
    ExchangeLayout layout;
    bool rcvdSerial; // the received exchange may hold a serial number
};

// The entry of a contest code (case as the catalogue spells it), or nullptr.
const StandardContest* standardContest(const QString& contestcode);

// The contest codes of the table, in catalogue order.
QStringList standardContestCodes();

// True when the contest sends serial numbers, false when the own exchange is fixed (zone,
// oblast, age, ...): the catalogue's fixexch switch. Unknown codes are taken to send serials.
bool sendsSerial(const QString& contestcode);

// Cabrillo CONTEST: name for a log in that mode; empty for a code outside the table.
QString cabrilloContestName(const QString& contestcode, QsoMode mode);

// ADIF CONTEST_ID of a QSO in that mode; empty for a code outside the table.
QString adifContestId(const QString& contestcode, QsoMode mode);

} // namespace hfc

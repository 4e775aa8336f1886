#pragma once
// What the standard exports read from a stored log row: whether it is a QSO at all, its real
// mode, band, time and exchange parts.
#include "log/logrow.h"
#include "reports/standard/contestids.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace hfc {

// A row with a worked call; an empty call and the single double quote that marks a placeholder
// row are not QSOs.
bool isLoggedQso(const LogRow& r);

// Mode of emission. A repeated QSO stores "DUPE" instead of its mode; its reports tell the mode:
// a three-figure report ("599") is CW, a two-figure one ("59") phone.
QsoMode qsoMode(const LogRow& r);

// True for the six band texts of the band selector ("1,8", "3,5", "7", "14", "21", "28").
bool isContestBand(const QString& bband);

// Lower band edge in kHz for the six bands; another band text read as MHz ("10,1" → 10100);
// 0 when the text is not a number.
int bandKhz(const QString& bband);

// The QSO's frequency in kHz as the radio gave it, when it lies in the band the QSO is logged on;
// 0 when there is none (no radio, or a reading outside that band).
double qsoKhz(const LogRow& r);

// ADIF band enumeration value ("20m") of a band text, empty when the frequency is in no band.
QString adifBand(const QString& bband);

// Cabrillo CATEGORY-BAND value ("20M") of one of the six bands, empty for any other text.
QString cabrilloBandCategory(const QString& bband);

// UTC date and time of the QSO; invalid when either text is not a date or time.
QDateTime qsoDateTime(const LogRow& r);

// The rows in time order; rows without a valid date or time keep their place after the others.
// Equal times keep their given order.
QList<LogRow> inTimeOrder(const QList<LogRow>& rows);

// Free text as the exports write it: Latin ASCII, runs of blanks made one, none at the ends.
QString asciiText(const QString& text);
// The same without any blank (bands, numbers, file names).
QString asciiNoBlanks(const QString& text);
// A call sign as the exports write it: Latin ASCII, no blanks, upper case.
QString asciiCall(const QString& text);

// "HHMM" of a stored "hh:mm" (or "hh:mm:ss", or already "HHMM") time; empty when it is none.
QString hhmmOf(const QString& ttime);

} // namespace hfc

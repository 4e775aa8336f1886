#pragma once
// Log dates are stored as the operator saw them, "dd.mm.yy". These helpers turn them into calendar
// values for sorting and for the export formats.
#include <QDate>
#include <QString>

namespace hfc {

// "dd.mm.yy" (also "d.m.yy" and four-digit years) to a date; years 00-29 are 2000-2029 and
// 30-99 are 1930-1999. Returns an invalid QDate for text that is not such a date.
QDate dateFromDdate(const QString& ddate);

// "YYYY-MM-DD" sort key of a stored date; text that is not a date sorts after all dates, as is.
QString ddateSortKey(const QString& ddate);

// Renders a stored date with a format ("yyyy-MM-dd", "yyyyMMdd"); text that is not a date is
// returned unchanged, so nothing the operator typed is lost in an export.
QString formatDdate(const QString& ddate, const QString& format);

// Renders a stored "hh:mm" (or "hh:mm:ss") time as "HHMM"; other text is returned unchanged.
QString formatTtimeHHMM(const QString& ttime);

} // namespace hfc

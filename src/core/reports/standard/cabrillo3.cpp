#include "reports/standard/cabrillo3.h"
#include "contests/contestdef.h"
#include "reports/standard/contestids.h"
#include "reports/standard/programinfo.h"
#include "reports/standard/qsofields.h"
#include "text/dates.h"

#include <QSet>

namespace hfc {

namespace {

// Cabrillo 3.0 limits on the free-text tags.
constexpr int kNameMax = 75;
constexpr int kAddressLineMax = 45;
constexpr int kAddressLinesMax = 6;

// CREATED-BY when the operator leaves it empty: "hfcontest 0.1".
QString defaultCreatedBy() {
    return QLatin1String(kProgramId) + QLatin1Char(' ') + QLatin1String(kProgramVersion);
}

QString ljust(const QString& s, int width) {
    return s.leftJustified(width, QLatin1Char(' '));
}
QString rjust(const QString& s, int width) {
    return s.rightJustified(width, QLatin1Char(' '));
}

QList<LogRow> contestQsos(const QString& contestcode, const QList<LogRow>& rows) {
    QList<LogRow> out;
    for (const LogRow& r : rows)
        if (r.ps2 == contestcode && isLoggedQso(r)) out.append(r);
    return out;
}

QString cabrilloMode(QsoMode m) {
    return m == QsoMode::Cw ? QStringLiteral("CW") : QStringLiteral("PH");
}

// Ties go to CW.
QsoMode mostUsedMode(const QList<LogRow>& qsos) {
    int cw = 0, ssb = 0;
    for (const LogRow& r : qsos) (qsoMode(r) == QsoMode::Cw ? cw : ssb)++;
    return ssb > cw ? QsoMode::Ssb : QsoMode::Cw;
}

// The radio's frequency in whole kHz (cut, not rounded: rounding up could put a QSO at a band's
// top edge past it); without one, the band's lower edge.
QString frequency(const LogRow& r) {
    if (const double radio = qsoKhz(r); radio > 0) return QString::number(qint64(radio));
    const QString& bband = r.bband;
    const int khz = bandKhz(bband);
    if (khz > 0) return QString::number(khz);
    // Not a frequency: shown as typed so the operator sees which QSO it is; the check list
    // reports it before writing.
    const QString typed = asciiNoBlanks(bband);
    return typed.isEmpty() ? QStringLiteral("0") : typed;
}

QString dateText(const QString& ddate) {
    return asciiText(formatDdate(ddate, QStringLiteral("yyyy-MM-dd")));
}

QString timeText(const QString& ttime) {
    const QString hhmm = hhmmOf(ttime);
    return hhmm.isEmpty() ? asciiText(ttime) : hhmm;
}

QString leadingWholeNumber(const QString& text) {
    const QString t = text.trimmed();
    qsizetype n = 0;
    while (n < t.size() && t.at(n).isDigit()) ++n;
    QString digits = t.left(n);
    while (digits.size() > 1 && digits.startsWith(QLatin1Char('0'))) digits.remove(0, 1);
    return digits.isEmpty() ? QStringLiteral("0") : digits;
}

QString qsoLine(const QString& ownCall, const LogRow& r) {
    QString line = QStringLiteral("QSO: ") + rjust(frequency(r), 5);
    line += QLatin1Char(' ') + cabrilloMode(qsoMode(r));
    line += QLatin1Char(' ') + dateText(r.ddate);
    line += QLatin1Char(' ') + timeText(r.ttime);
    line += QLatin1Char(' ') + ljust(ownCall, 13);
    line += QLatin1Char(' ') + ljust(asciiText(r.rsts1), 3);
    line += QLatin1Char(' ') + ljust(asciiText(r.rsts2), 6);
    line += QLatin1Char(' ') + ljust(asciiText(r.ccall).toUpper(), 13);
    line += QLatin1Char(' ') + ljust(asciiText(r.rstr1), 3);
    line += QLatin1Char(' ') + ljust(asciiText(r.rstr2), 6);
    return line.trimmed();
}

bool isQtcRow(const LogRow& r) {
    return r.ps1.isEmpty() && !r.ccall.trimmed().isEmpty() &&
           !(r.ps2 + r.contr).trimmed().isEmpty();
}

// Mode of the QSO with the other station on the QTC's band, the last one not after the QTC;
// without such a QSO the mode most of the log was made in.
QsoMode qtcMode(const LogRow& q, const QList<LogRow>& qsosInTimeOrder, QsoMode fallback) {
    const QDateTime at = qsoDateTime(q);
    const LogRow* found = nullptr;
    for (const LogRow& r : qsosInTimeOrder) {
        if (r.ccall != q.ccall || r.bband != q.bband) continue;
        const QDateTime t = qsoDateTime(r);
        if (found && at.isValid() && t.isValid() && t > at) break;
        found = &r;
    }
    return found ? qsoMode(*found) : fallback;
}

// The QTC number as "series/count"; a number typed without the count gets the number of lines
// stored under it.
QString qtcSerial(const LogRow& q, const QList<LogRow>& qtcs) {
    const QString nr = asciiNoBlanks(q.rstr1);
    if (nr.contains(QLatin1Char('/'))) return nr;
    int count = 0;
    for (const LogRow& o : qtcs)
        if (o.rstr1 == q.rstr1 && o.ccall == q.ccall && o.ddate == q.ddate && o.ttime == q.ttime &&
            o.bband == q.bband)
            ++count;
    return nr + QLatin1Char('/') + QString::number(count);
}

QString qtcLine(const QString& ownCall, QtcRole role, const LogRow& q, const QString& serial,
                QsoMode mode) {
    const QString other = asciiText(q.ccall).toUpper();
    const QString sender = role == QtcRole::Sent ? ownCall : other;
    const QString receiver = role == QtcRole::Sent ? other : ownCall;
    // The passed-on QSO: its time, call and serial, separated by blanks as typed.
    QStringList parts = asciiText(q.ps2 + q.contr).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QString time, call, nr;
    if (!parts.isEmpty()) time = parts.takeFirst();
    if (parts.size() >= 2) nr = parts.takeLast();
    call = parts.join(QString());
    const QString hhmm = hhmmOf(time);
    if (!hhmm.isEmpty()) time = hhmm;

    QString line = QStringLiteral("QTC: ") + rjust(frequency(q), 5);
    line += QLatin1Char(' ') + cabrilloMode(mode);
    line += QLatin1Char(' ') + dateText(q.ddate);
    line += QLatin1Char(' ') + timeText(q.ttime);
    line += QLatin1Char(' ') + ljust(sender, 13);
    line += QLatin1Char(' ') + ljust(serial, 8);
    line += QLatin1Char(' ') + ljust(receiver, 13);
    line += QLatin1Char(' ') + ljust(time, 4);
    line += QLatin1Char(' ') + ljust(call, 13);
    line += QLatin1Char(' ') + nr;
    return line.trimmed();
}

class AsciiLines {
  public:
    void tag(const char* name, const QString& value) {
        line(QLatin1String(name) + QStringLiteral(": ") + value);
    }
    void line(const QString& text) { text_ += text + QLatin1String("\r\n"); }
    QByteArray bytes() const { return text_.toLatin1(); }

  private:
    QString text_;
};

} // namespace

QStringList cabrillo3Choices(Cabrillo3Category which) {
    switch (which) {
    case Cabrillo3Category::Operator:
        return {"SINGLE-OP", "MULTI-OP", "CHECKLOG"};
    case Cabrillo3Category::Assisted:
        return {"NON-ASSISTED", "ASSISTED"};
    case Cabrillo3Category::Band:
        return {"ALL", "160M", "80M", "40M", "20M", "15M", "10M"};
    case Cabrillo3Category::Mode:
        return {"CW", "SSB", "MIXED"};
    case Cabrillo3Category::Power:
        return {"LOW", "HIGH", "QRP"};
    case Cabrillo3Category::Station:
        return {"FIXED", "PORTABLE", "MOBILE", "EXPEDITION", "HQ", "SCHOOL"};
    case Cabrillo3Category::Transmitter:
        return {"ONE", "TWO", "LIMITED", "UNLIMITED", "SWL"};
    }
    return {};
}

Cabrillo3Header cabrillo3Defaults(const StationBoxes& st, const QString& contestcode,
                                  const QList<LogRow>& rows) {
    Cabrillo3Header h;
    h.callsign = st.tcall.trimmed();
    h.operators = h.callsign;
    h.claimedScore = st.trezult;
    h.name = st.tname;
    for (const QString& a : {st.tadres, st.tgor, st.tstr})
        if (!a.trimmed().isEmpty()) h.address << a.trimmed();
    h.createdBy = defaultCreatedBy();

    const QList<LogRow> qsos = contestQsos(contestcode, rows);
    QSet<QString> bands;
    bool cw = false, ssb = false;
    for (const LogRow& r : qsos) {
        const QString band = cabrilloBandCategory(r.bband);
        if (!band.isEmpty()) bands.insert(band);
        (qsoMode(r) == QsoMode::Cw ? cw : ssb) = true;
    }
    h.categoryBand = bands.size() == 1 ? *bands.begin() : QStringLiteral("ALL");
    h.categoryMode = cw && ssb ? QStringLiteral("MIXED")
                     : ssb     ? QStringLiteral("SSB")
                               : QStringLiteral("CW");
    h.contest = cabrilloContestName(contestcode, mostUsedMode(qsos));
    return h;
}

QByteArray cabrillo3File(const Cabrillo3Header& header, const QString& contestcode,
                         const QList<LogRow>& rows, const QList<LogRow>& qtcRows) {
    const QList<LogRow> qsos = inTimeOrder(contestQsos(contestcode, rows));
    const QsoMode logMode = header.categoryMode == QLatin1String("SSB")  ? QsoMode::Ssb
                            : header.categoryMode == QLatin1String("CW") ? QsoMode::Cw
                                                                         : mostUsedMode(qsos);
    QString contest = asciiText(header.contest);
    if (contest.isEmpty()) contest = cabrilloContestName(contestcode, logMode);
    if (contest.isEmpty()) contest = asciiText(contestcode).toUpper();

    const QString ownCall = asciiCall(header.callsign);
    AsciiLines out;
    out.tag("START-OF-LOG", QStringLiteral("3.0"));
    out.tag("CALLSIGN", ownCall);
    out.tag("CONTEST", contest);
    out.tag("CATEGORY-OPERATOR", asciiText(header.categoryOperator));
    out.tag("CATEGORY-ASSISTED", asciiText(header.categoryAssisted));
    out.tag("CATEGORY-BAND", asciiText(header.categoryBand));
    out.tag("CATEGORY-MODE", asciiText(header.categoryMode));
    out.tag("CATEGORY-POWER", asciiText(header.categoryPower));
    out.tag("CATEGORY-STATION", asciiText(header.categoryStation));
    out.tag("CATEGORY-TRANSMITTER", asciiText(header.categoryTransmitter));
    out.tag("CLAIMED-SCORE", leadingWholeNumber(header.claimedScore));
    const QString operators = asciiText(header.operators);
    out.tag("OPERATORS", operators.isEmpty() ? ownCall : operators);
    out.tag("NAME", asciiText(header.name).left(kNameMax));
    int addressLines = 0;
    for (const QString& a : header.address) {
        const QString line = asciiText(a).left(kAddressLineMax).trimmed();
        if (line.isEmpty() || addressLines == kAddressLinesMax) continue;
        out.tag("ADDRESS", line);
        ++addressLines;
    }
    QString createdBy = asciiText(header.createdBy);
    if (createdBy.isEmpty()) createdBy = defaultCreatedBy();
    out.tag("CREATED-BY", createdBy);

    for (const LogRow& r : qsos) out.line(qsoLine(ownCall, r));

    if (contests::def(contestcode).qtc) {
        QList<LogRow> qtcs;
        for (const LogRow& q : qtcRows)
            if (isQtcRow(q)) qtcs.append(q);
        qtcs = inTimeOrder(qtcs);
        const QsoMode fallback = mostUsedMode(qsos);
        for (const LogRow& q : qtcs)
            out.line(qtcLine(ownCall, header.qtcRole, q, qtcSerial(q, qtcs),
                             qtcMode(q, qsos, fallback)));
    }
    out.line(QStringLiteral("END-OF-LOG:"));
    return out.bytes();
}

QString standardExportFileName(const QString& ownCall, const QString& extension) {
    QString base = asciiNoBlanks(ownCall);
    for (QChar& c : base)
        if (!c.isLetterOrNumber() && c != QLatin1Char('-')) c = QLatin1Char('_');
    if (base.isEmpty()) base = QStringLiteral("log");
    return base + QLatin1Char('.') + extension;
}

} // namespace hfc

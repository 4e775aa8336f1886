#include "reports/standard/adif3.h"
#include "reports/standard/contestids.h"
#include "reports/standard/qsofields.h"
#include "text/dates.h"

namespace hfc {

namespace {

bool allDigits(const QString& s) {
    if (s.isEmpty()) return false;
    for (const QChar c : s)
        if (!c.isDigit()) return false;
    return true;
}

// ADIF Integer text of a serial: "001" → "1".
QString serialNumber(const QString& digits) {
    qsizetype i = 0;
    while (i + 1 < digits.size() && digits.at(i) == QLatin1Char('0')) ++i;
    return digits.mid(i);
}

class Record {
  public:
    void field(const char* name, const QString& value) {
        if (value.isEmpty()) return;
        if (!text_.isEmpty()) text_ += QLatin1Char(' ');
        text_ += QLatin1Char('<') + QLatin1String(name) + QLatin1Char(':') +
                 QString::number(value.size()) + QLatin1Char('>') + value;
    }
    QString text() const { return text_; }

  private:
    QString text_;
};

// One side of the exchange: the report, the serial when the contest sends one and it is a number,
// and the whole exchange when it says more than the serial.
struct Side {
    QString report, serial, exchange;
};

Side side(const contests::StandardIds* contest, bool serialExpected, const QString& plainReport,
          const QString& first, const QString& second) {
    const ExchangeLayout layout = contest ? contest->layout : ExchangeLayout::ReportExchange;
    Side s;
    QStringList items;
    QString serialItem;
    switch (layout) {
    case ExchangeLayout::ReportExchange:
        s.report = first.trimmed().isEmpty() ? plainReport : first;
        items << second;
        serialItem = second;
        break;
    case ExchangeLayout::SerialExchange:
        s.report = plainReport;
        items << first << second;
        serialItem = first;
        break;
    case ExchangeLayout::ExchangeSerial:
        s.report = plainReport;
        items << first << second;
        serialItem = second;
        break;
    }
    s.report = asciiText(s.report);
    serialItem = asciiText(serialItem);
    QStringList said;
    for (const QString& item : items)
        if (!asciiText(item).isEmpty()) said << asciiText(item);
    if (serialExpected && allDigits(serialItem)) s.serial = serialNumber(serialItem);
    if (s.serial.isEmpty() || said.size() > 1) s.exchange = said.join(QLatin1Char(' '));
    return s;
}

QString record(const Adif3Options& options, const LogRow& r) {
    const contests::StandardIds* contest = standardContest(r.ps2);
    const QsoMode mode = qsoMode(r);
    const Side sent = side(contest, sendsSerial(r.ps2), r.rsts, r.rsts1, r.rsts2);
    const Side rcvd = side(contest, !contest || contest->rcvdSerial, r.rstr, r.rstr1, r.rstr2);

    Record rec;
    rec.field("CALL", asciiCall(r.ccall));
    const QDate date = dateFromDdate(r.ddate);
    if (date.isValid()) rec.field("QSO_DATE", date.toString(QStringLiteral("yyyyMMdd")));
    rec.field("TIME_ON", hhmmOf(r.ttime));
    rec.field("BAND", adifBand(r.bband));
    // MHz to the radio's 100 Hz: "21.0255"; "21.025" when the last figure is 0.
    if (const double khz = qsoKhz(r); khz > 0) {
        QString mhz = QString::number(khz / 1000.0, 'f', 4);
        if (mhz.endsWith(QLatin1Char('0'))) mhz.chop(1);
        rec.field("FREQ", mhz);
    }
    rec.field("MODE", mode == QsoMode::Cw ? QStringLiteral("CW") : QStringLiteral("SSB"));
    rec.field("RST_SENT", sent.report);
    rec.field("RST_RCVD", rcvd.report);
    rec.field("STX", sent.serial);
    rec.field("SRX", rcvd.serial);
    rec.field("STX_STRING", sent.exchange);
    rec.field("SRX_STRING", rcvd.exchange);
    rec.field("CONTEST_ID", adifContestId(r.ps2, mode));
    rec.field("STATION_CALLSIGN", asciiCall(options.stationCallsign));
    rec.field("OPERATOR", asciiCall(options.operatorCall));
    return rec.text() + QStringLiteral(" <EOR>");
}

} // namespace

QByteArray adif3File(const Adif3Options& options, const QList<LogRow>& rows) {
    const QDateTime created = options.createdUtc.toUTC();
    const QString version = asciiText(options.programVersion);
    QString out;
    // A header must not begin with "<"; its free text is for people reading the file.
    out += QStringLiteral("ADIF export of %1 %2, created %3 UTC\r\n")
               .arg(QLatin1String(kProgramId), version,
                    created.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
    Record header;
    header.field("ADIF_VER", QLatin1String(kAdifVersion));
    header.field("PROGRAMID", QLatin1String(kProgramId));
    header.field("PROGRAMVERSION", version);
    header.field("CREATED_TIMESTAMP", created.toString(QStringLiteral("yyyyMMdd HHmmss")));
    out += header.text() + QStringLiteral("\r\n<EOH>\r\n");
    for (const LogRow& r : rows)
        if (isLoggedQso(r)) out += record(options, r) + QStringLiteral("\r\n");
    return out.toLatin1();
}

} // namespace hfc

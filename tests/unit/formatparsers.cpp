#include "formatparsers.h"

#include <QDate>
#include <QRegularExpression>
#include <QSet>

namespace fmt {

namespace {

bool allAscii(const QByteArray& b, QStringList& errors) {
    for (qsizetype i = 0; i < b.size(); ++i) {
        const unsigned char c = b[i];
        if ((c < 32 || c > 126) && c != '\r' && c != '\n') {
            errors << QStringLiteral("byte %1 at %2 is not ASCII text").arg(c).arg(i);
            return false;
        }
    }
    return true;
}

QSet<QString> words(const char* list) {
    const QStringList w = QString::fromLatin1(list).split(QLatin1Char(' '));
    return QSet<QString>(w.begin(), w.end());
}

// Cabrillo 3.0 tags, and the values the category tags allow.
const QSet<QString> kTags = words(
    "START-OF-LOG END-OF-LOG ADDRESS ADDRESS-CITY ADDRESS-STATE-PROVINCE ADDRESS-POSTALCODE "
    "ADDRESS-COUNTRY CALLSIGN CATEGORY-ASSISTED CATEGORY-BAND CATEGORY-MODE CATEGORY-OPERATOR "
    "CATEGORY-POWER CATEGORY-STATION CATEGORY-TIME CATEGORY-TRANSMITTER CATEGORY-OVERLAY "
    "CERTIFICATE CLAIMED-SCORE CLUB CONTEST CREATED-BY EMAIL GRID-LOCATOR LOCATION NAME OFFTIME "
    "OPERATORS SOAPBOX QSO X-QSO QTC DEBUG");

const QMap<QString, QSet<QString>> kCategoryValues = {
    {"CATEGORY-ASSISTED", words("ASSISTED NON-ASSISTED")},
    {"CATEGORY-BAND", words("ALL 160M 80M 40M 20M 15M 10M 6M 4M 2M 222 432 902 1.2G 2.3G 3.4G 5.7G "
                            "10G 24G 47G 75G 122G 134G 241G LIGHT VHF-3-BAND VHF-FM-ONLY")},
    {"CATEGORY-MODE", words("CW DIGI FM RTTY SSB MIXED")},
    {"CATEGORY-OPERATOR", words("SINGLE-OP MULTI-OP CHECKLOG")},
    {"CATEGORY-POWER", words("HIGH LOW QRP")},
    {"CATEGORY-STATION", words("DISTRIBUTED FIXED MOBILE PORTABLE ROVER ROVER-LIMITED "
                               "ROVER-UNLIMITED EXPEDITION HQ SCHOOL EXPLORER")},
    {"CATEGORY-TRANSMITTER", words("ONE TWO LIMITED UNLIMITED SWL")},
};

const QSet<QString> kQsoModes = words("CW PH FM RY DG");

bool isDate(const QString& s) {
    return QDate::fromString(s, QStringLiteral("yyyy-MM-dd")).isValid();
}

bool isHhmm(const QString& s) {
    static const QRegularExpression re(QStringLiteral("^([01][0-9]|2[0-3])[0-5][0-9]$"));
    return re.match(s).hasMatch();
}

bool isNumber(const QString& s) {
    static const QRegularExpression re(QStringLiteral("^[0-9]+$"));
    return re.match(s).hasMatch();
}

// Frequency, mode, date and time: the start of every QSO and QTC line.
void checkLineStart(const QStringList& f, const QString& line, QStringList& errors) {
    if (!isNumber(f[0])) errors << QStringLiteral("frequency in: ") + line;
    if (!kQsoModes.contains(f[1])) errors << QStringLiteral("mode in: ") + line;
    if (!isDate(f[2])) errors << QStringLiteral("date in: ") + line;
    if (!isHhmm(f[3])) errors << QStringLiteral("time in: ") + line;
}

} // namespace

QString CabrilloLog::tag(const QString& name) const {
    for (const auto& t : tags)
        if (t.first == name) return t.second;
    return {};
}

QStringList CabrilloLog::all(const QString& name) const {
    QStringList out;
    for (const auto& t : tags)
        if (t.first == name) out << t.second;
    return out;
}

CabrilloLog readCabrillo3(const QByteArray& file, int sentFields, int rcvdFields) {
    CabrilloLog log;
    allAscii(file, log.errors);
    if (!file.endsWith("\r\n")) log.errors << QStringLiteral("last line does not end in CR LF");
    QStringList lines = QString::fromLatin1(file).split(QStringLiteral("\r\n"));
    if (lines.last().isEmpty()) lines.removeLast();
    for (const QString& l : lines)
        if (l.contains(QLatin1Char('\n')) || l.contains(QLatin1Char('\r')))
            log.errors << QStringLiteral("line break other than CR LF in: ") + l;
    if (lines.isEmpty() || lines.first() != QLatin1String("START-OF-LOG: 3.0"))
        log.errors << QStringLiteral("first line is not START-OF-LOG: 3.0");
    if (lines.isEmpty() || lines.last() != QLatin1String("END-OF-LOG:"))
        log.errors << QStringLiteral("last line is not END-OF-LOG:");

    for (const QString& line : lines) {
        const qsizetype colon = line.indexOf(QLatin1Char(':'));
        if (colon <= 0) {
            log.errors << QStringLiteral("not a tag line: ") + line;
            continue;
        }
        const QString tag = line.left(colon);
        QString value = line.mid(colon + 1);
        if (!value.isEmpty() && !value.startsWith(QLatin1Char(' ')))
            log.errors << QStringLiteral("no blank after the colon: ") + line;
        value = value.trimmed();
        if (!kTags.contains(tag) && !tag.startsWith(QLatin1String("X-")))
            log.errors << QStringLiteral("unknown tag: ") + tag;
        const QStringList f = value.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        if (tag == QLatin1String("QSO")) {
            if (f.size() != 6 + sentFields + rcvdFields) {
                log.errors << QStringLiteral("field count of: ") + line;
                continue;
            }
            checkLineStart(f, line, log.errors);
            CabrilloQso q{f[0], f[1], f[2], f[3], f[4], f[5 + sentFields], {}, {}};
            q.sent = f.mid(5, sentFields);
            q.rcvd = f.mid(6 + sentFields, rcvdFields);
            log.qsos << q;
        } else if (tag == QLatin1String("QTC")) {
            // freq mo date time call qserial/qcount call qtc-time qtc-call qtc-serial
            if (f.size() != 10) {
                log.errors << QStringLiteral("field count of: ") + line;
                continue;
            }
            checkLineStart(f, line, log.errors);
            static const QRegularExpression serial(QStringLiteral("^[0-9]+/[0-9]+$"));
            if (!serial.match(f[5]).hasMatch()) log.errors << QStringLiteral("qserial: ") + line;
            if (!isHhmm(f[7])) log.errors << QStringLiteral("qtc time: ") + line;
            log.qtcs << CabrilloQtc{f[0], f[1], f[2], f[3], f[4], f[5], f[6], f[7], f[8], f[9]};
        } else if (tag != QLatin1String("START-OF-LOG") && tag != QLatin1String("END-OF-LOG")) {
            log.tags << qMakePair(tag, value);
            if (kCategoryValues.contains(tag) && !kCategoryValues[tag].contains(value))
                log.errors << QStringLiteral("value not allowed: ") + line;
            if (tag == QLatin1String("CLAIMED-SCORE") && !isNumber(value))
                log.errors << QStringLiteral("score is not a whole number: ") + line;
            if (tag == QLatin1String("ADDRESS") && value.size() > 45)
                log.errors << QStringLiteral("address line over 45 characters: ") + line;
            if (tag == QLatin1String("NAME") && value.size() > 75)
                log.errors << QStringLiteral("name over 75 characters: ") + line;
        }
    }
    if (log.all(QStringLiteral("ADDRESS")).size() > 6)
        log.errors << QStringLiteral("more than 6 address lines");
    for (const char* required : {"CALLSIGN", "CONTEST"})
        if (log.tag(QLatin1String(required)).isEmpty())
            log.errors << QStringLiteral("no ") + QLatin1String(required);
    return log;
}

AdifFile readAdif(const QByteArray& file) {
    AdifFile out;
    allAscii(file, out.errors);
    const QString text = QString::fromLatin1(file);
    // A file whose first character is "<" has no header; otherwise the header runs to <EOH>.
    bool inHeader = !text.startsWith(QLatin1Char('<'));
    if (inHeader) out.preamble = text.left(text.indexOf(QLatin1Char('<')));
    AdifFields current;
    qsizetype pos = 0;
    while (true) {
        const qsizetype open = text.indexOf(QLatin1Char('<'), pos);
        if (open < 0) break;
        const qsizetype close = text.indexOf(QLatin1Char('>'), open);
        if (close < 0) {
            out.errors << QStringLiteral("unclosed data specifier at %1").arg(open);
            break;
        }
        const QStringList parts = text.mid(open + 1, close - open - 1).split(QLatin1Char(':'));
        const QString name = parts[0].toUpper();
        pos = close + 1;
        if (parts.size() == 1) {
            if (name == QLatin1String("EOH") && inHeader) {
                out.header = current;
                inHeader = false;
            } else if (name == QLatin1String("EOR") && !inHeader) {
                out.records << current;
            } else {
                out.errors << QStringLiteral("unexpected <%1>").arg(parts[0]);
            }
            current.clear();
            continue;
        }
        bool ok = false;
        const int length = parts[1].toInt(&ok);
        if (!ok || length < 0 || parts.size() > 3 || pos + length > text.size()) {
            out.errors << QStringLiteral("bad data specifier <%1>").arg(parts.join(':'));
            break;
        }
        if (current.contains(name)) out.errors << QStringLiteral("field twice: ") + name;
        current.insert(name, text.mid(pos, length));
        pos += length;
    }
    if (!current.isEmpty()) out.errors << QStringLiteral("fields after the last <EOR>");
    if (inHeader) out.errors << QStringLiteral("header without <EOH>");
    return out;
}

QStringList checkAdifRecord(const AdifFields& r) {
    static const QSet<QString> bands =
        words("2190m 630m 560m 160m 80m 60m 40m 30m 20m 17m 15m 12m 10m 8m 6m 5m 4m 2m 1.25m 70cm");
    static const QSet<QString> modes = words("AM CW FM SSB RTTY PSK MFSK FT8");
    QStringList errors;
    for (const char* required : {"CALL", "QSO_DATE", "TIME_ON", "BAND", "MODE"})
        if (!r.contains(QLatin1String(required)))
            errors << QStringLiteral("no ") + QLatin1String(required);
    if (r.contains("QSO_DATE") &&
        !QDate::fromString(r["QSO_DATE"], QStringLiteral("yyyyMMdd")).isValid())
        errors << QStringLiteral("QSO_DATE ") + r["QSO_DATE"];
    if (r.contains("TIME_ON") && !isHhmm(r["TIME_ON"].left(4)))
        errors << QStringLiteral("TIME_ON ") + r["TIME_ON"];
    if (r.contains("BAND") && !bands.contains(r["BAND"].toLower()))
        errors << QStringLiteral("BAND ") + r["BAND"];
    if (r.contains("MODE") && !modes.contains(r["MODE"].toUpper()))
        errors << QStringLiteral("MODE ") + r["MODE"];
    for (const char* integer : {"STX", "SRX"})
        if (r.contains(QLatin1String(integer)) && !isNumber(r[QLatin1String(integer)]))
            errors << QLatin1String(integer) + QStringLiteral(" is not an Integer");
    return errors;
}

} // namespace fmt

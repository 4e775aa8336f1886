#pragma once
// The logbook and QTC table of the standard-export tests, read from tests/data/standard.
#include "log/logrow.h"
#include "testfiles.h"

#include <QFile>
#include <QList>
#include <QRegularExpression>
#include <QString>
#include <gtest/gtest.h>

inline QByteArray standardDataFile(const char* name) {
    return hfc::test::testDataFile("standard", name);
}

// ccall|ddate|ttime|bband|rsts|rstr|rsts1|rsts2|rstr1|rstr2|ps1|ps2|contr, one row a line.
inline QList<hfc::LogRow> standardRows(const char* name) {
    QList<hfc::LogRow> rows;
    for (const QString& line : QString::fromUtf8(standardDataFile(name)).split('\n')) {
        if (line.isEmpty() || line.startsWith('#')) continue;
        const QStringList f = line.split('|');
        EXPECT_EQ(f.size(), 13) << line.toStdString();
        if (f.size() != 13) continue;
        hfc::LogRow r;
        r.ccall = f[0], r.ddate = f[1], r.ttime = f[2], r.bband = f[3], r.rsts = f[4];
        r.rstr = f[5], r.rsts1 = f[6], r.rsts2 = f[7], r.rstr1 = f[8], r.rstr2 = f[9];
        r.ps1 = f[10], r.ps2 = f[11], r.contr = f[12];
        rows.append(r);
    }
    return rows;
}

// What a contest robot refuses in any Cabrillo 3.0 file: bytes other than ASCII text, a line end
// other than CR LF, a missing START-OF-LOG/END-OF-LOG frame, a line that is no "TAG: value".
inline QStringList cabrilloFormatErrors(const QByteArray& file) {
    QStringList errors;
    for (const char c : file)
        if ((uchar(c) < 32 || uchar(c) > 126) && c != '\r' && c != '\n') {
            errors << QStringLiteral("not ASCII");
            break;
        }
    if (file.count('\n') != file.count("\r\n") || !file.endsWith("\r\n"))
        errors << QStringLiteral("a line end other than CR LF");
    QStringList lines = QString::fromLatin1(file).split(QStringLiteral("\r\n"));
    lines.removeLast();
    if (lines.value(0) != "START-OF-LOG: 3.0" || lines.value(lines.size() - 1) != "END-OF-LOG:")
        errors << QStringLiteral("no START-OF-LOG/END-OF-LOG frame");
    static const QRegularExpression tagLine(QStringLiteral("^[A-Z-]+:( .*)?$"));
    for (const QString& l : lines)
        if (!tagLine.match(l).hasMatch()) errors << QStringLiteral("not a tag line: ") + l;
    return errors;
}

// The values of one Cabrillo tag, in file order.
inline QStringList cabrilloTag(const QByteArray& file, const QString& tag) {
    QStringList values;
    for (const QString& line : QString::fromLatin1(file).split(QStringLiteral("\r\n")))
        if (line.startsWith(tag + ": ")) values << line.mid(tag.size() + 2);
    return values;
}

#pragma once
// The logbook and QTC table of the standard-export tests, read from tests/data/standard.
#include "reports/logrow.h"

#include <QFile>
#include <QList>
#include <QString>
#include <gtest/gtest.h>

inline QByteArray standardDataFile(const char* name) {
    QFile f(QStringLiteral(HFC_TEST_DATA "/standard/") + QLatin1String(name));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << name;
    return f.readAll();
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

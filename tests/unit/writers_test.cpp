#include "reports/writers.h"
#include "text/codepage.h"
#include "text/columns.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace hfc;

namespace {

// ccall, ddate, ttime, bband, rsts, rstr, rsts1, rsts2, rstr1, rstr2, mult, ps, point, point2, ps1
LogRow row(const char* ccall, const char* ddate, const char* ttime, const char* bband,
           const char* rst, const char* rsts1, const char* rsts2, const char* rstr1,
           const char* rstr2, const char* mult, const char* ps, const char* point,
           const char* point2, const char* ps1) {
    LogRow r;
    r.ccall = QString::fromUtf8(ccall), r.ddate = QString::fromUtf8(ddate);
    r.ttime = QString::fromUtf8(ttime), r.bband = QString::fromUtf8(bband);
    r.rsts = r.rstr = QString::fromUtf8(rst);
    r.rsts1 = QString::fromUtf8(rsts1), r.rsts2 = QString::fromUtf8(rsts2);
    r.rstr1 = QString::fromUtf8(rstr1), r.rstr2 = QString::fromUtf8(rstr2);
    r.mult = QString::fromUtf8(mult), r.ps = QString::fromUtf8(ps);
    r.point = QString::fromUtf8(point), r.point2 = QString::fromUtf8(point2);
    r.ps1 = QString::fromUtf8(ps1);
    return r;
}

// Month and year boundaries, an empty call, bands outside the table ("10,1", ""), short, long,
// empty and Cyrillic exchanges, second counts above and below zero.
QList<LogRow> fixtureLog() {
    return {
        row("DL1ABC", "30.11.02", "12:05", "14", "599", "599", "001", "599", "14", "DL", "14", "3",
            "0", "CW"),
        row("OK1XYZ", "30.11.02", "12:07", "14", "599", "599", "002", "599", "15", "OK", "15", "3",
            "", "CW"),
        row("UA9AA", "30.11.02", "23:59", "21", "59", "59", "003", "59", "17", "UA9", "17", "1",
            "2", "SSB"),
        row("", "01.12.02", "00:00", "21", "59", "59", "004", "59", "5", "", "", "0", "", "SSB"),
        row("RK3AAA", "01.12.02", "00:15", "7", "599", "599", "005", "599", "1", "UA", "16", "1",
            "1", "CW"),
        row("JA1ZZZ", "01.12.02", "01:30", "3,5", "599", "599", "006", "599", "25", "JA", "25", "3",
            "0", "CW"),
        row("W1AW", "01.12.02", "02:00", "1,8", "599", "599", "007", "599", "05", "K", "05", "3",
            "12", "CW"),
        row("VK2ABC", "01.12.02", "02:10", "10,1", "599", "599", "008", "599", "30", "VK", "30",
            "3", "0", "CW"),
        row("SP5XYZ", "31.12.02", "23:58", "28", "59", "59", "009", "59", "15", "SP", "15", "1",
            "0", "SSB"),
        row("G4ABC", "01.01.03", "00:01", "28", "59", "59", "010", "59", "14", "G", "14", "1", "0",
            "SSB"),
        row("F5ZZZ", "01.01.03", "00:02", "28", "59", "59", "011", "59", "1234567", "F", "14", "1",
            "0", "SSB"),
        row("EA3AAA/P", "01.01.03", "00:03", "14", "599", "599", "0123456789", "599", "14", "EA",
            "14", "3", "0", "CW"),
        row("UA3ABCDEFGHIJKLMN", "01.01.03", "00:04", "14", "599", "599", "013", "599", "16", "",
            "", "1", "0", "CW"),
        row("RN6AA", "01.01.03", "00:10", "7", "", "", "014", "", "16", "", "", "1", "", "CW"),
        row("R3A", "01.01.03", "00:11", "", "599", "599", "015", "599", "16", "", "", "1", "",
            "CW"),
        row("UR5ABC", "01.01.03", "00:12", "21", "59", "59", "016", "59", "16", "UR", "ABCD", "1",
            "5", "SSB"),
        row("YL2AA", "01.01.03", "00:13", "21", "59", "59", "017", "59", "15", "YL", "15", "1",
            "-1", "SSB"),
        row("ES1AA", "01.01.03", "00:14", "21", "59", "59", "018", "59", "15", "ES", "15", "12345",
            "abc", "DUPE"),
        row("RA3AA", "01.01.03", "00:15", "3,5", "59", "59", "019", "59", "МО", "", "", "2", "",
            "SSB"),
        row("UA0AAA", "02.01.03", "09:05", "14", "599", "599", "020", "599", "18", "UA0", "18", "3",
            "0", "CW"),
    };
}

StationBoxes station() {
    StationBoxes st;
    st.tcall = "RZ3DXX/QRP/MM2"; // longer than the 13-character own-call column
    st.trezult = "12345";
    st.tname = QString::fromUtf8("Иван Петров");
    st.tadres = QString::fromUtf8("ул. Ленина, 5");
    st.tgor = QString::fromUtf8("Москва");
    st.tstr = QString::fromUtf8("Россия");
    st.tcont = QString::fromUtf8("Чемпионат России");
    st.tpod = "SO-CW";
    st.Text4 = "30.11.02-02.01.03";
    return st;
}

QByteArray golden(const char* name) {
    QFile f(QStringLiteral(HFC_TEST_DATA "/writers/") + QLatin1String(name));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << name;
    return f.readAll();
}

// Byte comparison, reported line by line so a failing column is easy to find.
void expectSameFile(const QByteArray& actual, const QByteArray& expected) {
    const QList<QByteArray> a = actual.split('\n'), e = expected.split('\n');
    for (qsizetype i = 0; i < std::min(a.size(), e.size()); ++i)
        EXPECT_EQ(fromWin1251(a[i]).toStdString(), fromWin1251(e[i]).toStdString())
            << "line " << i + 1;
    EXPECT_EQ(a.size(), e.size());
    EXPECT_TRUE(actual == expected);
}

} // namespace

TEST(Writers, FixtureLogMatchesGoldenFiles) {
    const QList<LogRow> log = fixtureLog();
    expectSameFile(cabrilloFile(station(), log), golden("cabrillo.golden"));
    expectSameFile(adifFile(log), golden("adif.golden"));
    expectSameFile(logListing("cqww", log), golden("loglisting.golden"));

    SummaryBoxes s;
    s.st = station();
    const char* tq[7] = {"12", "34", "5", "0", "123456", "7", "99"};
    const char* tdx[7] = {"3", "10", "1", "0", "12", "2", "99"};
    const char* tz[7] = {"1", "2", "0", "0", "5", "1", "99"};
    const char* tp[7] = {"36", "100", "5", "0", "999999", "21", "99"};
    for (int i = 0; i < 7; ++i)
        s.tq[i] = tq[i], s.tdx[i] = tdx[i], s.tz[i] = tz[i], s.tp[i] = tp[i];
    s.tqtot = "123514", s.tdxtot = "28", s.tztot = "9", s.tptot = "1000161";
    s.Text3 = "28", s.Text2 = "9", s.Text1 = "1000161", s.st.trezult = "37005957";
    expectSameFile(summarySheet(s), golden("summary.golden"));
}

TEST(Writers, ChempListingChangesOnlyTheHeading) {
    const QByteArray english = logListing("cqww", fixtureLog());
    const QByteArray chemp = logListing("chemp", fixtureLog());
    const QString heading = fromWin1251(chemp.left(chemp.indexOf("\r\n")));
    EXPECT_EQ(heading, QString::fromUtf8("   DATE    UTC  MHZ  CALL         Передан        "
                                         "Пренятый      Зоны  Корр Связи "));
    EXPECT_EQ(heading.size(), 80);
    EXPECT_EQ(chemp.mid(chemp.indexOf("\r\n")), english.mid(english.indexOf("\r\n")));
}

TEST(Writers, EmptyLogAndEmptyBoxes) {
    EXPECT_TRUE(cabrilloFile(station(), {}).isEmpty());
    EXPECT_EQ(adifFile({}), QByteArray("<adif_ver:4>1.0<eoh>\r\n"));
    EXPECT_EQ(logListing("lzo", {}),
              QByteArray("   DATE    UTC  MHZ  CALL         RST SEND        RST RECEIVE      DXCC  "
                         "ZONE POINTS \r\n"));
    const QList<QByteArray> sum = summarySheet(SummaryBoxes{}).split('\n');
    ASSERT_EQ(sum.size(), 21); // 20 lines and the empty rest after the last line end
    EXPECT_EQ(sum[0], "CONTEST: \r");
    EXPECT_EQ(sum[1], "Date :\r");
    EXPECT_EQ(sum[5], "NAME: \r");
    EXPECT_EQ(sum[11], "1,8                     \r");
    EXPECT_EQ(sum[17], "Total                     \r");
    EXPECT_EQ(sum[18], "Rezult : ( + ) *  = \r");
}

TEST(Writers, CharactersOutsideWin1251BecomeQuestionMarks) {
    StationBoxes st = station();
    st.tname = QString::fromUtf8("Jerzy Głąb 中 \U0001F600 €");
    const QByteArray cab = cabrilloFile(st, fixtureLog().mid(0, 1));
    EXPECT_TRUE(cab.contains("\r\nNAME: Jerzy G??b ? ? \x88\r\n"));
    EXPECT_TRUE(cab.contains("\r\nADDRESS: \xCC\xEE\xF1\xEA\xE2\xE0\r\n")); // "Москва"
}

// An independent reader: what a contest robot would do with the file.
TEST(Writers, CabrilloReadsBackAsQsoRecords) {
    const QList<QByteArray> lines = cabrilloFile(station(), fixtureLog()).split('\n');
    int qsos = 0;
    QMap<QByteArray, int> modes;
    for (QByteArray line : lines) {
        line = line.trimmed();
        QList<QByteArray> tok = line.split(' ');
        tok.removeAll(QByteArray());
        if (tok.value(0) != "QSO:") continue;
        ++qsos;
        modes[tok[2]]++;
        EXPECT_EQ(tok[3].size(), 10) << line.constData(); // YYYY-MM-DD
        EXPECT_EQ(tok[5], "RZ3DXX/QRP/MM");
    }
    EXPECT_EQ(qsos, 20);
    EXPECT_EQ(modes.value("CW"), 11);
    EXPECT_EQ(modes.value("PH"), 8);
    EXPECT_EQ(modes.value("DUPE"), 1);
    EXPECT_EQ(lines.value(lines.size() - 2), "END-OF-LOG:\r");
}

TEST(Writers, HelpersForFoldersAndColumns) {
    EXPECT_EQ(withTrailingSlash("/tmp/out"), "/tmp/out/");
    EXPECT_EQ(withTrailingSlash("/tmp/out/"), "/tmp/out/");
    EXPECT_EQ(withTrailingSlash("/"), "/");
    EXPECT_EQ(padCut("", 3, 4), "   ");
    EXPECT_EQ(padCut("12345678", 6), "123456");
    EXPECT_EQ(leadingNumber(" 12abc"), 12);
    EXPECT_EQ(leadingNumber("-1"), -1);
    EXPECT_EQ(leadingNumber("0.5"), 0.5);
    EXPECT_EQ(leadingNumber("abc"), 0);
    EXPECT_EQ(leadingNumber("."), 0);
}

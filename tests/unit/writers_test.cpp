#include "reports/writers.h"
#include "testfiles.h"
#include "text/codepage.h"
#include "text/columns.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace hfc;

namespace {

QByteArray dataFile(const char* name) {
    return hfc::test::testDataFile("writers", name);
}

// The fixture log, one QSO a line in UTF-8, fields separated by "|".
QList<LogRow> fixtureLog() {
    QList<LogRow> log;
    for (const QString& line : QString::fromUtf8(dataFile("log.psv")).split('\n')) {
        if (line.isEmpty() || line.startsWith('#')) continue;
        const QStringList f = line.split('|');
        EXPECT_EQ(f.size(), 14) << line.toStdString();
        LogRow r;
        r.ccall = f[0], r.ddate = f[1], r.ttime = f[2], r.bband = f[3], r.rsts = r.rstr = f[4];
        r.rsts1 = f[5], r.rsts2 = f[6], r.rstr1 = f[7], r.rstr2 = f[8], r.mult = f[9];
        r.ps = f[10], r.point = f[11], r.point2 = f[12], r.ps1 = f[13];
        log.append(r);
    }
    return log;
}

StationBoxes station() {
    StationBoxes st;
    st.tcall = "RZ3DXX/QRP/MM2"; // longer than the 13-character own-call column
    st.trezult = "12345", st.tpod = "SO-CW", st.Text4 = "30.11.02-02.01.03";
    st.tname = "Иван Петров", st.tadres = "ул. Ленина, 5", st.tgor = "Москва";
    st.tstr = "Россия", st.tcont = "Чемпионат России";
    return st;
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
    expectSameFile(cabrilloFile(station(), log), dataFile("cabrillo.golden"));
    expectSameFile(adifFile(log), dataFile("adif.golden"));
    expectSameFile(logListing("cqww", log), dataFile("loglisting.golden"));

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
    expectSameFile(summarySheet(s), dataFile("summary.golden"));
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
    EXPECT_EQ(logListing("lzo", {}).count("\r\n"), 1); // the heading alone
    const QList<QByteArray> sum = summarySheet(SummaryBoxes{}).split('\n');
    ASSERT_EQ(sum.size(), 21); // 20 lines and the empty rest after the last line end
    EXPECT_EQ(sum[0], "CONTEST: \r");
    EXPECT_EQ(sum[18], "Rezult : ( + ) *  = \r");
}

TEST(Writers, CharactersOutsideWin1251BecomeQuestionMarks) {
    StationBoxes st = station();
    st.tname = QString::fromUtf8("Jerzy Głąb 中 \U0001F600 €");
    const QByteArray cab = cabrilloFile(st, fixtureLog().mid(0, 1));
    EXPECT_TRUE(cab.contains("\r\nNAME: Jerzy G??b ? ? \x88\r\n"));
    EXPECT_TRUE(cab.contains("\r\nADDRESS: \xCC\xEE\xF1\xEA\xE2\xE0\r\n")); // "Москва"
}

TEST(Writers, HelpersForFoldersAndColumns) {
    EXPECT_EQ(withTrailingSlash("/tmp/out"), "/tmp/out/");
    EXPECT_EQ(withTrailingSlash("/"), "/");
    EXPECT_EQ(padCut("", 3, 4), "   ");
    EXPECT_EQ(leadingNumber(" 12abc"), 12);
    EXPECT_EQ(leadingNumber("-1"), -1);
    EXPECT_EQ(leadingNumber("abc"), 0);
}

#include "reports/standard/cabrillo3.h"
#include "reports/standard/contestids.h"
#include "standardfixture.h"

using namespace hfc;

namespace {

StationBoxes station(const char* call, const char* score, const char* name, const char* street,
                     const char* town, const char* country) {
    StationBoxes st;
    st.tcall = call, st.trezult = score, st.tname = QString::fromUtf8(name);
    st.tadres = QString::fromUtf8(street), st.tgor = QString::fromUtf8(town);
    st.tstr = QString::fromUtf8(country);
    return st;
}

void expectSameLines(const QByteArray& actual, const QByteArray& expected) {
    const QList<QByteArray> a = actual.split('\n'), e = expected.split('\n');
    for (qsizetype i = 0; i < std::min(a.size(), e.size()); ++i)
        EXPECT_EQ(a[i].toStdString(), e[i].toStdString()) << "line " << i + 1;
    EXPECT_EQ(a.size(), e.size());
}

QByteArray exportContest(const StationBoxes& st, const char* code) {
    const QList<LogRow> log = standardRows("log.psv");
    return cabrillo3File(cabrillo3Defaults(st, code, log), code, log, standardRows("qtc.psv"));
}

} // namespace

TEST(Cabrillo3, GoldenLogsOfThreeContests) {
    expectSameLines(
        exportContest(
            station("RZ3DXX", "12345", "Иван Петров", "ул. Ленина, 5", "Москва", "Россия"), "cqww"),
        standardDataFile("cqww.cbr"));
    expectSameLines(exportContest(station("RZ3DXX", "", "Пётр Щукин", "", "Москва", ""), "rudx"),
                    standardDataFile("rdxc.cbr"));
    expectSameLines(
        exportContest(station("UA9CDE", "840", "Сергей Жуков", "а/я 15", "Екатеринбург", "Россия"),
                      "wae"),
        standardDataFile("wae.cbr"));
}

TEST(Cabrillo3, WpxLogOutsideTheSixBandsIsStillReadable) {
    // The band "10,1" is written as its frequency, the call's Cyrillic look-alikes as their
    // transliteration; the check list reports both before writing.
    const QByteArray file = exportContest(station("rz3dxx", "1", "", "", "", ""), "wpx");
    EXPECT_EQ(cabrilloFormatErrors(file), QStringList());
    EXPECT_EQ(cabrilloTag(file, "QSO").size(), 2);
    EXPECT_TRUE(file.contains("QSO: 10100 CW 2021-05-07 1005 RZ3DXX        599 002    UA3KHYZ"));
    EXPECT_TRUE(file.contains("CONTEST: CQ-WPX-CW\r\n"));
}

TEST(Cabrillo3, LongTextsStayWithinTheFormat) {
    const QList<LogRow> log = standardRows("log.psv");
    Cabrillo3Header h =
        cabrillo3Defaults(station("R3A/P", "98 765 points", "Анна", "", "", ""), "cqww", log);
    h.operators = "R3A UA3AAA";
    h.name = QString(90, QChar(u'Ж'));
    h.address = {QString(60, 'x'), "", "2", "3", "4", "5", "6", "7"};
    const QByteArray file = cabrillo3File(h, "cqww", log, {});
    EXPECT_EQ(cabrilloFormatErrors(file), QStringList());
    const auto tag = [&](const char* name) { return cabrilloTag(file, name).join('|'); };
    EXPECT_EQ(tag("CLAIMED-SCORE"), "98"); // a whole number
    EXPECT_EQ(tag("OPERATORS") + " " + tag("CALLSIGN"), "R3A UA3AAA R3A/P");
    // at most six address lines of 45 characters, a name of 75
    EXPECT_EQ(cabrilloTag(file, "ADDRESS"),
              QStringList({QString(45, 'x'), "2", "3", "4", "5", "6"}));
    EXPECT_TRUE(tag("NAME").startsWith("ZHZHZH") && tag("NAME").size() <= 75)
        << tag("NAME").toStdString();
    // A phone log of a contest with names per mode gets the phone name.
    h.contest.clear();
    h.categoryMode = "SSB";
    EXPECT_TRUE(cabrillo3File(h, "cqww", log, {}).contains("CONTEST: CQ-WW-SSB\r\n"));
}

TEST(Cabrillo3, DefaultsFollowTheLog) {
    const QList<LogRow> log = standardRows("log.psv");
    const StationBoxes st = station("RZ3DXX", "0", "", "", "", "");
    const Cabrillo3Header rdxc = cabrillo3Defaults(st, "rudx", log);
    QList<LogRow> phone = {log[12]}; // one SSB QSO of RDXC on 14
    EXPECT_EQ(cabrillo3Defaults(st, "rudx", phone).categoryMode, "SSB");
    EXPECT_EQ(cabrillo3Choices(Cabrillo3Category::Operator).first(), rdxc.categoryOperator);
}

TEST(Cabrillo3, QtcLinesFollowTheRoleAndAreOnlyForWae) {
    const QList<LogRow> log = standardRows("log.psv");
    const QList<LogRow> qtcs = standardRows("qtc.psv");
    Cabrillo3Header h = cabrillo3Defaults(station("DL0XX", "1", "", "", "", ""), "wae", log);
    h.qtcRole = QtcRole::Received;
    const QByteArray file = cabrillo3File(h, "wae", log, qtcs);
    EXPECT_EQ(cabrilloFormatErrors(file), QStringList());
    // freq mode date time sender serial/count receiver qtc-time qtc-call qtc-serial
    const QStringList lines = cabrilloTag(file, "QTC");
    ASSERT_EQ(lines.size(), 4);
    const QStringList first = lines[0].simplified().split(' '),
                      last = lines[3].simplified().split(' ');
    ASSERT_EQ(first.size(), 10);
    EXPECT_EQ(first[4] + " " + first[6], "DL2CCC DL0XX");
    EXPECT_EQ(last[8] + " " + last[9], "DL2CCC 100");
    EXPECT_FALSE(cabrillo3File(h, "cqww", log, qtcs).contains("QTC:"));
}

TEST(Cabrillo3, AFileNameWithoutACall) {
    EXPECT_EQ(standardExportFileName("", "adi"), "log.adi");
}

#include "reports/standard/lint.h"
#include "standardfixture.h"
#include "text/translit.h"

using namespace hfc;

TEST(LintLog, ListsWhatARobotWouldRejectWithTheQso) {
    const QList<LintIssue> issues = lintLog(standardRows("log.psv"));
    const QStringList want = {
        // Entered after the dupe at 00:12 but made the evening before.
        "6 27.11.20 23:59 OH2BH: время раньше, чем у предыдущей связи (28.11.20 00:12 DL1ABC)",
        "18 01.05.21 06:00 LZ1AB: не заполнен принятый контрольный номер",
        "20 07.05.21 10:05 UА3ХYZ: в позывном знаки «АХ»",
        "20 07.05.21 10:05 UА3ХYZ: неизвестный диапазон «10,1»"};
    ASSERT_EQ(issues.size(), want.size());
    for (qsizetype i = 0; i < issues.size(); ++i) // the row, then the message's beginning
        EXPECT_TRUE((QString::number(issues[i].row) + " " + issues[i].message).startsWith(want[i]))
            << issues[i].message.toStdString();
    EXPECT_EQ(issues[0].ccall, "OH2BH");
}

TEST(LintLog, EmptySentExchangeBadTimesAndOrderAcrossContests) {
    LogRow a;
    a.ccall = "DL1ABC", a.ddate = "01.01.21", a.ttime = "12:00", a.bband = "14";
    a.rsts1 = a.rstr1 = "599", a.rsts2 = "001", a.rstr2 = "005", a.ps1 = "CW", a.ps2 = "wpx";
    LogRow b = a; // another contest, earlier: not out of order against a
    b.ps2 = "wae", b.ttime = "11:00", b.rsts2 = " ";
    LogRow c = a; // a bad time is reported, and is not compared
    c.ttime = "1a:00";
    LogRow d = a;
    d.ttime = "11:59";
    const QList<LintIssue> issues = lintLog({a, b, c, d});
    ASSERT_EQ(issues.size(), 3);
    EXPECT_EQ(issues[0].kind, LintIssue::Kind::EmptySent);
    EXPECT_EQ(issues[0].row, 1);
    EXPECT_EQ(issues[1].kind, LintIssue::Kind::BadDateTime);
    EXPECT_EQ(issues[2].kind, LintIssue::Kind::OutOfOrder);
    EXPECT_EQ(issues[2].row, 3);
}

TEST(LintLog, QtcLinesMustBeTimeCallAndSerial) {
    QList<LogRow> qtcs = standardRows("qtc.psv");
    EXPECT_TRUE(lintQtcs(qtcs).isEmpty());
    qtcs[1].ps2 = "0002OK1XYZ 010", qtcs[1].contr.clear();
    qtcs[2].rstr1.clear();
    const QList<LintIssue> issues = lintQtcs(qtcs);
    ASSERT_EQ(issues.size(), 2);
    EXPECT_EQ(issues[0].row, 1);
    EXPECT_EQ(issues[1].row, 2);
    EXPECT_EQ(issues[1].kind, LintIssue::Kind::BadQtc);
}

TEST(Transliteration, RussianByTheIcaoTableOtherNonAsciiAsQuestionMarks) {
    const struct {
        const char* in;
        const char* out;
    } cases[] = {
        {"Иван Петров", "Ivan Petrov"},
        {"Щукин", "Shchukin"},
        {"ул. ЖУКОВА, д. 5", "ul. ZHUKOVA, d. 5"},
        {"Ёлкин Юрий Объездной", "Elkin Iurii Obieezdnoi"},
        {"Україна, Ґ", "Ukraina, G"},
        {"№5\tZürich €", "N5 Z?rich ?"},
        {"R3A/P 599", "R3A/P 599"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(toAsciiLatin(QString::fromUtf8(c.in)).toStdString(), c.out) << c.in;
}

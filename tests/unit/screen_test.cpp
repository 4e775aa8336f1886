// The main screen around the entry line: rates from the log, the multiplier window following
// the band, the status line of the keys, the log check and the grids after a clearing (the
// contest finder is in the entry_screen scenario).
#include "entryfixture.h"

#include "data/rates.h"
#include "keyer/serialkeyport.h"
#include "reports/hourly.h"

using namespace hfc;
using namespace hfc::test;

namespace {
QDateTime t(int h, int m) {
    return QDateTime(QDate(2002, 11, 30), QTime(h, m), Qt::UTC);
}
} // namespace

TEST(Rates, LastHourAndLastTenFromTheTimesOfTheLog) {
    const QDateTime now = t(12, 5);
    // newest first; 11:05 itself is an hour ago and no longer counts
    const QList<QDateTime> times = {t(12, 4), t(12, 0), t(11, 30), t(11, 6), t(11, 5), t(10, 0)};
    EXPECT_EQ(rateLastHour(times, now), 4);
    EXPECT_EQ(rateLastTen(times, now), 6 * 60 / 125);
    // ten QSOs in the last five minutes: 120 an hour; only the last ten count
    QList<QDateTime> run;
    for (int i = 0; i < 10; ++i) run << t(12, 4 - i / 2);
    run << t(9, 0) << t(8, 0);
    EXPECT_EQ(rateLastTen(run, now), 10 * 60 / 5);
    // all in the current minute: no division by zero
    EXPECT_EQ(rateLastTen({now, now}, now), 120);
    EXPECT_FALSE(qsoTime("31.02.02", "12:00").isValid());
}

TEST(Hourly, QsosPerHourAndBandWithTheQuietHoursBetween) {
    const auto row = [](const char* call, const char* band, const char* date, const char* time) {
        LogRow r;
        r.ccall = call, r.bband = band, r.ddate = date, r.ttime = time;
        return r;
    };
    const QList<HourRow> h = qsosByHour(
        {row("DL1ABC", "14", "30.11.02", "12:00"), row("G4ABC", "14", "30.11.02", "12:59"),
         row("\"", "14", "30.11.02", "12:30"), row("K1ZZ", "21", "30.11.02", "14:10"),
         row("JA1A", "7", "bad", "14:10"), row("W1AW", "28", "05.12.02", "10:00")});
    ASSERT_EQ(h.size(), 4); // 12, 13 (quiet), 14, then days later without the empty hours
    EXPECT_EQ(h[0].hour, "30.11.02 12");
    EXPECT_EQ(QList({h[0].perBand[3], h[0].total, h[1].total}), QList({2, 2, 0}));
    EXPECT_EQ(h[2].perBand[4], 1);
    EXPECT_EQ(h[3].hour, "05.12.02 10");
}

TEST_F(EntryFixture, RatesComeFromTheLogAndSurviveARestart) {
    form->contestcode = "cqww";
    for (const char* tm : {"10:00", "11:05", "11:06", "11:30", "12:00", "12:04"})
        addRow("DL1ABC", "14", "cqww", {}, {}, {}, tm);
    addRow("OK1XYZ", "14", "wpx", {}, {}, {}, "12:04"); // another contest

    Env env = form->env();
    ContestForm again(env);
    again.Form_Load();
    ui.queueInput(QString("16"));
    again.fire("mnucqww_Click");
    EXPECT_EQ(again.lblrate60->text(), "4");
    // the clock moves on: the rate of the last hour falls without a new QSO
    clock.set(QDateTime(QDate(2002, 11, 30), QTime(14, 0)),
              QDateTime(QDate(2002, 11, 30), QTime(12, 31)));
    again.Timer1_Timer();
    EXPECT_EQ(again.lblrate60->text(), "2");
}

TEST_F(EntryFixture, FunctionKeysWithoutAChosenKeyerSayItOnTheStatusLine) {
    SerialKeyPort serial({"/nonexistent/ttyS0"});
    Env env = form->env();
    env.port = &serial;
    ContestForm station(env);
    station.Form_Load();
    station.pressKey(keys::F2 + 1); // F3
    EXPECT_TRUE(station.lblstatus->text().contains("Ключ не выбран"));
    EXPECT_TRUE(ui.takeShown().isEmpty());
    station.click(station.Option1[0]);
    EXPECT_TRUE(station.keyerChosen);
}

TEST_F(EntryFixture, LogCheckListsRepeatsAndRefusedExchangesInAWindow) {
    form->contestcode = "cqww";
    db.contest.exec("INSERT INTO tbllog (ccall, bband, ps2, ttime, ddate, rsts, rstr2, ps1) "
                    "VALUES ('DL1ABC', '14', 'cqww', '12:00', '30.11.02', '599', '14', 'CW'), "
                    "('DL1ABC', '14', 'cqww', '12:01', '30.11.02', '599', '14', 'CW'), "
                    "('DL1ABC', '14', 'cqww', '12:02', '30.11.02', '59', '14', 'SSB'), "
                    "('K1ZZ', '14', 'cqww', '12:03', '30.11.02', '599', '99', 'CW')");
    form->fire("mnuprow_Click");
    const QString report = form->subForm("prow")->control("txtprow")->text();
    EXPECT_TRUE(holds(
        report, {"Повторы: 1", "12:01 DL1ABC 14: повтор QSO в 12:00 — не отмечен DUPE",
                 "Обмен, не прошедший проверку: 1", "K1ZZ 14: обмен «99» не проходит проверку"}));
}

TEST_F(EntryFixture, AfterAClearingTheGridsShowTheLogAsItIs) {
    form->contestcode = "cqww";
    addRow("DL1ABC", "14", "cqww");
    form->refreshLogGrid();
    form->txtcall->setText("DL1ABC");
    form->wwodcall();
    ASSERT_EQ(form->DBGrid3->rowCount(), 1u);
    ASSERT_EQ(form->DBGrid1->rowCount(), 1u);
    ui.queueAnswer(Ui::Answer::Yes);
    form->fire("mnudelet_Click");
    EXPECT_EQ(form->DBGrid3->rowCount() + form->DBGrid1->rowCount(), 0u);
    EXPECT_FALSE(marked());
}

// The rates and the hourly table from the log's times (the rates on the window and the log check:
// the entry_screen scenario).
#include "entryfixture.h"

#include "data/rates.h"
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

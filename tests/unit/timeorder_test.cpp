// The export's time order: across midnight and years by the real time, not the text; rows with a
// broken date or time after the others in their order; equal times in entry order.
#include "reports/standard/qsofields.h"

#include <gtest/gtest.h>

using namespace hfc;

TEST(TimeOrder, RealTimeFirstBrokenRowsLastEqualTimesInEntryOrder) {
    auto row = [](const char* call, const char* date, const char* time) {
        LogRow r;
        r.ccall = call;
        r.ddate = date;
        r.ttime = time;
        return r;
    };
    const QList<LogRow> rows = {row("BAD1", "32.01.24", "10:00"),  row("B", "01.01.25", "00:01"),
                                row("A", "31.12.24", "23:59"),     row("BAD2", "01.01.25", "25:00"),
                                row("C1", "01.01.25", "00:01:30"), row("C2", "01.01.25", "0001"),
                                row("E", "01.01.99", "12:00")};
    QStringList calls;
    for (const LogRow& r : inTimeOrder(rows)) calls << r.ccall;
    EXPECT_EQ(calls, QStringList({"E", "A", "B", "C1", "C2", "BAD1", "BAD2"}));
}

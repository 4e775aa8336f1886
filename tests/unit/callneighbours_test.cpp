#include "station/scp.h"

#include <gtest/gtest.h>

using namespace hfc;

// The index must find what a scan over every call with isOneOff finds, for edits in the head,
// in the tail, and at either end, and never the call itself; also for a call that came in with
// a character no call is typed with (an import, an edit in the log).
TEST(CallNeighbours, FindsWhatAScanFinds) {
    const QStringList logged = {"UA3ABC", "UA3ABD", "UA3AB",  "UA3ABCD", "RA3ABC",
                                "UA3XBC", "UB3ABC", "A3ABC",  "DL1ABC",  "UA9ABC",
                                "K1ABC",  "UA3AXC", "UA3AB_", "UA3AAB"};
    // Enough more calls that the table grows several times, many of them one off each other.
    QStringList more;
    for (int i = 0; i < 3000; ++i) more << QStringLiteral("UA%1B").arg(i);
    CallNeighbours n;
    for (const QString& c : logged + more) n.add(c);
    n.add("UA3ABC"); // again: listed once
    EXPECT_EQ(n.size(), logged.size() + more.size());
    for (const QString typed :
         {"UA3ABC", "UA3AB", "A3ABC", "K1AB", "DL1ABD", "UA3XBC", "UA3AAC", "UA12B", "UA299"}) {
        SCOPED_TRACE(typed.toStdString());
        QStringList scan;
        for (const QString& c : logged + more)
            if (isOneOff(typed, c)) scan << c;
        std::sort(scan.begin(), scan.end());
        EXPECT_EQ(n.oneOff(typed), scan);
    }
    n.clear();
    EXPECT_TRUE(n.oneOff("UA3ABC").isEmpty());
}

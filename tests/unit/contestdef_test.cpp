// The contests' definitions as a whole: every row names a contest of its own, says what it asks
// and sends consistently, and carries the lists and ids its other fields rely on.
#include "contests/contestdef.h"
#include "reports/standard/contestids.h"

#include <QRegularExpression>
#include <QSet>
#include <cstring>
#include <gtest/gtest.h>

using namespace hfc;
using namespace hfc::contests;

TEST(ContestDefs, EveryRowIsAContestOfItsOwnAndConsistent) {
    const auto all = catalogue();
    ASSERT_EQ(all.size(), 43u);
    QSet<QString> codes, items, captions;
    static const QRegularExpression cabrillo(QStringLiteral("^[A-Z0-9]+(-[A-Z0-9]+)*$"));
    static const QRegularExpression adif(QStringLiteral("^[ -~]+$"));
    for (const ContestDef& c : all) {
        SCOPED_TRACE(c.code);
        codes << QLatin1String(c.code);
        items << QLatin1String(c.menuItem);
        captions << QString::fromUtf8(c.caption);
        EXPECT_GT(std::strlen(c.title), 0u);
        // the lookups find the row itself
        EXPECT_EQ(&def(QLatin1String(c.code)), &c);
        EXPECT_EQ(byMenuItem(QLatin1String(c.menuItem)), &c);

        // A fixed exchange is the answer to the selection's question; RAEM asks for the own
        // coordinates it sends besides its serial.
        EXPECT_EQ(c.prompt != nullptr, c.promptTitle != nullptr);
        EXPECT_EQ(c.prompt != nullptr,
                  c.sent == SentExchange::Fixed || c.second == SecondSent::Serial);

        // The multiplier window: boxes where there is a window, within the window's 103, and a
        // list of codes exactly where the boxes show one (one box may stay empty).
        EXPECT_EQ(c.window == WindowKind::None, c.boxes == 0);
        EXPECT_LE(c.boxes, 103);
        EXPECT_EQ(c.window == WindowKind::CodeList, c.list.codes != nullptr);
        if (c.list.codes) {
            ASSERT_GT(c.list.width, 0);
            const int listed = int(std::strlen(c.list.codes) - size_t(c.list.first)) / c.list.width;
            EXPECT_TRUE(listed == c.boxes || listed + 1 == c.boxes) << listed;
            EXPECT_FALSE(windowBox(c, c.boxes - 2).isEmpty());
        }
        for (int i = 0; c.window == WindowKind::Numbered && i < c.boxes; ++i)
            EXPECT_EQ(windowBox(c, i).toInt(), i + 1);

        // A serial number keeps its zeros: only zones and years are compared as numbers.
        if (c.numericExchange) {
            EXPECT_NE(c.chars, ExchangeChars::Serial);
        }
        // A list of the exact call makes every earlier QSO a repeat: the time rule of such a
        // contest comes on top of it and does not replace it.
        if (c.partial == PartialList::ExactCall) {
            EXPECT_TRUE(c.repeatByList);
        }
        // A points total per band replaces the multiplier columns in the report as well.
        EXPECT_EQ(c.totals == Totals::PointsPerBand, c.report.rule == ReportScore::Rule::Sum);
        EXPECT_TRUE(c.contestClass >= 1 && c.contestClass <= 4);

        for (QsoMode m : {QsoMode::Cw, QsoMode::Ssb}) {
            EXPECT_TRUE(cabrillo.match(cabrilloContestName(c.code, m)).hasMatch());
            EXPECT_TRUE(adif.match(adifContestId(c.code, m)).hasMatch());
        }
    }
    EXPECT_EQ(codes.size(), 43);
    EXPECT_EQ(items.size(), 43);
    EXPECT_EQ(captions.size(), 43);
}

TEST(ContestDefs, ACodeWithoutARowGetsTheDefaults) {
    EXPECT_EQ(find("hi hi"), nullptr);
    EXPECT_EQ(find("es"), nullptr) << "codes are compared as the catalogue spells them";
    EXPECT_FALSE(def("hi hi").countsPoints());
    EXPECT_TRUE(sendsSerial("hi hi"));
    EXPECT_EQ(cabrilloContestName("hi hi", QsoMode::Cw), "");
    EXPECT_EQ(standardContest("hi hi"), nullptr);
    EXPECT_FALSE(sendsSerial("cqww"));
    EXPECT_TRUE(sendsSerial("cqm")); // keeps what the contest before sent, a serial by default
}

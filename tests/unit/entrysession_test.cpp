// The entry line's use cases on a temporary log, without a window: each test states the log
// before, what the operator types, and the draft or the log after.
#include "data/databases.h"
#include "entry/entrysession.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace hfc;
using Mark = QsoDraft::Mark;

namespace {

struct EntrySessionTest : ::testing::Test {
    QTemporaryDir dir;
    Databases db;
    std::unique_ptr<LogStore> log;
    std::unique_ptr<EntrySession> s;

    void SetUp() override {
        QString error;
        ASSERT_TRUE(db.open(dir.path(), error)) << error.toStdString();
        log = std::make_unique<LogStore>(db.contest);
        s = std::make_unique<EntrySession>(*log);
        contest("cqww");
    }
    void contest(const QString& code) { s->setContest(code, entryRulesFor(code)); }

    void logged(const char* call, const char* band, const char* time) {
        LogRow r;
        r.ccall = call, r.bband = band, r.ttime = time, r.ps1 = "CW", r.ps2 = s->contest();
        log->insert(r);
    }
    // The operator on band at time types call.
    Mark type(const char* call, const char* band = "14", const char* time = "12:30") {
        QsoDraft& d = s->draft();
        d.band = band, d.mode = "CW", d.date = "30.11.02", d.time = time;
        s->callChanged(call);
        return s->markByRules();
    }
    QStringList stored(const char* columns) {
        const Rows r = db.contest.query(
            QString("SELECT %1 FROM tbllog ORDER BY rowid DESC LIMIT 1").arg(columns));
        return r.empty() ? QStringList() : r[0];
    }
};

// The repeat and time rules of each kind, one earlier QSO on an empty log at a time.
TEST_F(EntrySessionTest, RepeatAndTimeRulesOfEachKind) {
    struct Case {
        const char *contest, *call, *band, *time; // the earlier QSO
        const char *typed, *onBand, *at;
        Mark mark;
    };
    const Case cases[] = {
        {"cqww", "DL1ABC", "14", "12:00", "DL1ABC", "14", "12:30", Mark::Repeat},
        {"cqww", "DL1ABC", "7", "12:00", "DL1ABC", "14", "12:30", Mark::None},
        // LZ: thirty minutes on any band, no plain repeat, no wrap at midnight
        {"lzo", "LZ1AA", "7", "12:00", "LZ1AA", "14", "12:29", Mark::TooEarly},
        {"lzo", "LZ2BB", "14", "23:50", "LZ2BB", "14", "00:10", Mark::TooEarly},
        // the championship: the exact call on any band once per clock hour
        {"chemp", "UA3ABC", "7", "12:10", "UA3ABC", "14", "13:05", Mark::Repeat},
        {"chemp", "UA3AAA", "14", "12:10", "UA3AAA", "14", "12:50", Mark::TooEarly},
        // ES: one QSO per band and clock hour
        {"ES", "ES1AA", "14", "12:01", "ES1AA", "14", "13:00", Mark::None},
        {"ES", "ES1AA", "14", "12:01", "ES1AA", "7", "12:30", Mark::None},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.contest) + " " + c.call + " " + c.band + " " + c.time +
                     ", then " + c.typed + " " + c.onBand + " " + c.at);
        db.contest.exec("DELETE FROM tbllog");
        contest(c.contest);
        logged(c.call, c.band, c.time);
        EXPECT_EQ(type(c.typed, c.onBand, c.at), c.mark);
    }
}

// The log's first rule for a contester: a repeat is logged, as DUPE worth nothing.
TEST_F(EntrySessionTest, ARepeatIsStoredAsDupeWorthNothingAnotherBandAsAQso) {
    logged("DL1ABC", "14", "12:00");
    type("DL1ABC");
    s->draft().mult = "DL", s->draft().points = "3";
    s->commit();
    EXPECT_EQ(stored("ccall, ps1, mult, point"), QStringList({"DL1ABC", "DUPE", "", "0"}));
    type("DL1ABC", "7");
    s->draft().points = "3";
    s->commit();
    EXPECT_EQ(stored("ccall, bband, ps1, point"), QStringList({"DL1ABC", "7", "CW", "3"}));
}

TEST_F(EntrySessionTest, ARefusedInsertKeepsTheDraftToStoreAgain) {
    db.contest.exec("CREATE TRIGGER refuse BEFORE INSERT ON tbllog "
                    "BEGIN SELECT RAISE(ABORT, 'disk full'); END");
    type("DL1ABC");
    s->draft().rcvdExchange = "14", s->draft().points = "3";
    EXPECT_THROW(s->commit(), DbError);
    EXPECT_EQ(QStringList({s->draft().call, s->draft().rcvdExchange, s->draft().points}),
              QStringList({"DL1ABC", "14", "3"}));
    EXPECT_EQ(db.contest.scalar("SELECT count(*) FROM tbllog"), "0");

    db.contest.exec("DROP TRIGGER refuse");
    s->commit();
    EXPECT_EQ(stored("ccall, rstr2, point"), QStringList({"DL1ABC", "14", "3"}));
}

// The country prefix and continent stay for the next call the prefix table does not know; the
// country, zones and multiplier candidates were this QSO's alone.
TEST_F(EntrySessionTest, AfterACommitTheNextQsoKeepsBandModeWhatWasSentAndTheFallbackCountry) {
    type("DL1ABC");
    QsoDraft& c = s->draft();
    c.sentExchange = "15", c.rcvdExchange = "14";
    c.dxccPrefix = "DL", c.continent = "EU", c.prefix = "DL1", c.country = "FED. REP. OF G";
    c.cq = "14", c.multCandidate = "DL", c.psCandidate = "14";
    s->commit();
    s->next();
    const QsoDraft& d = s->draft();
    EXPECT_EQ(QStringList({d.call, d.rcvdExchange, d.band, d.mode, d.sentExchange}),
              QStringList({"", "", "14", "CW", "15"}));
    EXPECT_EQ(QStringList({d.dxccPrefix, d.continent, d.prefix}), QStringList({"DL", "EU", "DL1"}));
    EXPECT_EQ(d.country + d.cq + d.multCandidate + d.psCandidate, "");
}

} // namespace

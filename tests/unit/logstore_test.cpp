// The log store on a fresh data folder: each column lands in its own field both ways, edits
// touch only what they name, and the one-row tables keep what is written.
#include "data/databases.h"
#include "log/logcolumns.h"
#include "log/logstore.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace hfc;

namespace {

struct LogStoreTest : ::testing::Test {
    QTemporaryDir dir;
    Databases db;
    std::unique_ptr<LogStore> store;

    void SetUp() override {
        QString error;
        ASSERT_TRUE(db.open(dir.path(), error)) << error.toStdString();
        store = std::make_unique<LogStore>(db.contest);
    }

    // A row whose every column holds its own name, written by name, not through the store.
    void insertNamedRow(const QString& table) {
        const QStringList cols = {"ccall",  "ddate", "ttime", "bband", "mode", "rsts", "rstr",
                                  "rsts1",  "rsts2", "rstr1", "rstr2", "mult", "ps",   "point",
                                  "point2", "contr", "PRF",   "QTH",   "ps1",  "ps2",  "freq"};
        QStringList marks;
        for (int i = 1; i <= cols.size(); ++i) marks << QString("?%1").arg(i);
        db.contest.run(
            QString("INSERT INTO %1 (%2) VALUES (%3)").arg(table, cols.join(','), marks.join(',')),
            cols);
    }
};

// Spelled out field by field on purpose, not through the column list: a reader or a column list
// that maps a column to the wrong field (rsts into rstr) fails here.
void expectEachFieldFromItsColumn(const LogRow& r) {
    EXPECT_EQ(QStringList({r.ccall,  r.ddate, r.ttime, r.bband, r.mode, r.rsts, r.rstr,
                           r.rsts1,  r.rsts2, r.rstr1, r.rstr2, r.mult, r.ps,   r.point,
                           r.point2, r.contr, r.prf,   r.qth,   r.ps1,  r.ps2,  r.freq}),
              QStringList({"ccall",  "ddate", "ttime", "bband", "mode", "rsts", "rstr",
                           "rsts1",  "rsts2", "rstr1", "rstr2", "mult", "ps",   "point",
                           "point2", "contr", "PRF",   "QTH",   "ps1",  "ps2",  "freq"}));
}

TEST_F(LogStoreTest, EveryReaderTakesEachColumnIntoItsOwnField) {
    insertNamedRow("tbllog");
    insertNamedRow("tbllogTemp");
    for (const QList<LogRow>& rows :
         {store->rowsInEntryOrder(), store->rowsInReportOrder(), store->qtcRows()}) {
        ASSERT_EQ(rows.size(), 1);
        expectEachFieldFromItsColumn(rows[0]);
    }
    expectEachFieldFromItsColumn(store->row(1));
}

TEST_F(LogStoreTest, InsertAndUpdateWriteEachFieldIntoItsOwnColumn) {
    LogRow r;
    for (const LogColumn& c : logRowColumns()) r.*c.field = c.name;
    r.prf = "PRF", r.qth = "QTH"; // spelled as the table spells them
    const qint64 rowid = store->insert(r);
    EXPECT_EQ(store->rowids("ps2"), std::vector<qint64>{rowid});
    const auto check = [&] {
        const Rows got = db.contest.query("SELECT rsts, rstr, rsts2, rstr2, PRF, ps, ps2, freq "
                                          "FROM tbllog WHERE rowid = ?1",
                                          {QString::number(rowid)});
        ASSERT_EQ(got.size(), 1u);
        EXPECT_EQ(got[0],
                  QStringList({"rsts", "rstr", "rsts2", "rstr2", "PRF", "ps", "ps2", "freq"}));
    };
    check();
    // An edit of every column writes the same row back, not another one.
    store->update(rowid, store->row(rowid));
    check();
    EXPECT_EQ(db.contest.scalar("SELECT count(*) FROM tbllog"), "1");
}

TEST_F(LogStoreTest, AnEditTouchesOnlyTheNamedColumnOfTheNamedRow) {
    LogRow a, b;
    a.ccall = "DL1ABC", a.bband = "14", a.ps2 = "cq";
    b.ccall = "UA3AAA", b.bband = "7", b.ps2 = "cq";
    const qint64 ra = store->insert(a), rb = store->insert(b);

    store->setField(ra, "BBAND", "21"); // names as the grid gives them, any case
    EXPECT_EQ(store->bandOf(ra), "21");
    EXPECT_EQ(store->bandOf(rb), "7");
    // Not a column of the log: nothing is written, whatever the text holds.
    store->setField(ra, "ccall = 'X', bband", "28");
    EXPECT_EQ(store->fields(ra, {"ccall", "bband"}), QStringList({"DL1ABC", "21"}));

    store->remove(ra);
    EXPECT_TRUE(store->fields(ra, {"ccall"}).isEmpty());
    EXPECT_EQ(store->rowids("cq"), std::vector<qint64>{rb});
}

TEST_F(LogStoreTest, PartialListsByScope) {
    const auto add = [&](const char* call, const char* band, const char* rstr) {
        LogRow r;
        r.ccall = call, r.bband = band, r.rstr = rstr, r.ps2 = "cq";
        store->insert(r);
    };
    add("DL1ABC", "14", "599");
    add("DL1ABD", "7", "579");
    add("DL1ABC", "7", "599");
    add("DL2XX", "14", "599");
    using P = LogStore::Partial;
    EXPECT_EQ(store->partialList(P::OnBand, "cq", "14", "DL1"), QStringList({"DL1ABC"}));
    EXPECT_EQ(store->partialList(P::OnBand, "cq", "7", "DL1"), QStringList({"DL1ABC", "DL1ABD"}));
    EXPECT_EQ(store->partialList(P::OnBandWithReport, "cq", "7", "DL1", "579"),
              QStringList({"DL1ABD"}));
    EXPECT_EQ(store->partialList(P::BeginsWithReport, "cq", "", "DL", "599"),
              QStringList({"DL1ABC", "DL2XX"}));
    EXPECT_EQ(store->partialList(P::SameCall, "cq", "", "DL1ABC"),
              QStringList({"DL1ABC", "DL1ABC"}));
    EXPECT_TRUE(store->partialList(P::OnBand, "other", "14", "DL1").isEmpty());
}

TEST_F(LogStoreTest, SheetsKeepWhatIsWrittenInTheirOneRow) {
    db.contest.exec("DELETE FROM tbltit");
    EXPECT_FALSE(store->stationCallAndTitle());
    EXPECT_EQ(store->readSheet(LogStore::Sheet::Station, {"ccall", "contest"}),
              QStringList({"", ""})); // a blank row is made
    store->setStationCall("R3A");
    store->writeSheet(LogStore::Sheet::Station, {"contest"}, {"CQ WW"});
    const auto tit = store->stationCallAndTitle();
    ASSERT_TRUE(tit);
    EXPECT_EQ(tit->first, "R3A");
    EXPECT_EQ(store->stationTitle(), "CQ WW");
    EXPECT_EQ(db.contest.scalar("SELECT count(*) FROM tbltit"), "1");
}

} // namespace

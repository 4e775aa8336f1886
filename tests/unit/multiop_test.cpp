// The shared log without a network: events made from log rows, applied on another computer in
// any order and any number of times, concurrent edits and deletes, changes the link missed,
// and payloads that must be refused.
#include "data/db.h"
#include "data/schema.h"
#include "log/logstore.h"
#include "station/multiopstore.h"

#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace hfc;
using multiop::QsoEvent;

namespace {

// One computer: its own log database and its bookkeeping.
struct Node {
    QTemporaryDir dir;
    Db db;
    std::unique_ptr<LogStore> logStore;
    std::unique_ptr<MultiOpStore> store;

    explicit Node(const QString& name, const QString& logid = "test") {
        db.open(dir.path() + "/dbcontest.sqlite", true);
        for (const TableDef& t : databaseFiles()[0].tables)
            if (t.name == "tbllog") db.exec(createTableSql(t));
        logStore = std::make_unique<LogStore>(db);
        store = std::make_unique<MultiOpStore>(*logStore, logid, name);
        store->open();
    }
    qint64 log(const QString& call, const QString& band = "14") {
        db.run("INSERT INTO tbllog (ccall, bband, ps2, ttime) VALUES (?1, ?2, 'cqww', '12:00')",
               {call, band});
        return db.scalar("SELECT max(rowid) FROM tbllog").toLongLong();
    }
    // What the broker would carry away: the outbox, now delivered.
    std::vector<QsoEvent> peek() {
        std::vector<QsoEvent> out;
        for (const auto& o : store->outbox()) out.push_back(*multiop::decode(o.payload, "test"));
        return out;
    }
    std::vector<QsoEvent> send() {
        const auto out = peek();
        QList<qint64> ids;
        for (const auto& o : store->outbox()) ids << o.id;
        store->delivered(ids);
        return out;
    }
    Rows rows() {
        return db.query("SELECT ccall, bband, ps2, ttime, rstr2 FROM tbllog ORDER BY ccall");
    }
};

} // namespace

TEST(MultiOpStore, OthersEventsInAnyOrderAndRepeatedGiveTheSameRows) {
    Node a("run"), b("mult");
    a.log("DL1ABC");
    const qint64 edited = a.log("F5XYZ");
    a.log("OK1RR", "21");
    a.store->collectAll();
    a.db.run("UPDATE tbllog SET rstr2 = '15' WHERE rowid = ?1", {QString::number(edited)});
    a.store->collect({edited});
    std::vector<QsoEvent> events = a.send();
    // Three QSOs: the undelivered insert of the edited one was replaced by its edit.
    ASSERT_EQ(events.size(), 3u);

    // b logs its own QSO meanwhile and hears a's events shuffled, some twice.
    b.log("SP9XX", "7");
    b.store->collectAll();
    std::vector<QsoEvent> shuffled = events;
    shuffled.insert(shuffled.end(), events.begin(), events.begin() + 2);
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(7));
    const auto applied = b.store->apply(shuffled);
    EXPECT_GE(applied.changed(), 3);
    a.store->apply(b.send());

    EXPECT_EQ(a.rows(), b.rows());
    EXPECT_EQ(b.rows().size(), 4u);
    EXPECT_EQ(b.db.scalar("SELECT rstr2 FROM tbllog WHERE ccall = 'F5XYZ'"), "15");
    // Nothing more to say after hearing each other.
    EXPECT_EQ(b.store->apply(events).changed(), 0);
    EXPECT_EQ(b.store->outboxSize(), 0);
}

// A batch the disk refused is not held as applied: when the same events come again (the
// broker's retained copies at the next connection) they are written.
TEST(MultiOpStore, ABatchThatDidNotCommitIsAppliedWhenItComesAgain) {
    Node a("run"), b("mult");
    a.log("DL1ABC");
    a.log("F5XYZ");
    a.store->collectAll();
    const std::vector<QsoEvent> events = a.send();
    // The second QSO's write fails, as on a full disk, after the first was written.
    b.db.exec("CREATE TRIGGER refuse BEFORE INSERT ON tbllog WHEN NEW.ccall = 'F5XYZ' "
              "BEGIN SELECT RAISE(ABORT, 'disk full'); END");
    EXPECT_THROW(b.store->apply(events), DbError);
    b.db.exec("DROP TRIGGER refuse");
    EXPECT_EQ(b.store->apply(events).changed(), 2);
    EXPECT_EQ(a.rows(), b.rows());
}

TEST(MultiOpStore, ConcurrentEditsEndAtTheSameWinnerAndTheLoserIsNotSent) {
    Node a("a"), b("b");
    const qint64 row = a.log("DL1ABC");
    a.store->collectAll();
    b.store->apply(a.send());
    const QString brow = b.db.scalar("SELECT rowid FROM tbllog");

    a.db.run("UPDATE tbllog SET ccall = 'DL1ABD' WHERE rowid = ?1", {QString::number(row)});
    a.store->collect({row});
    b.db.run("UPDATE tbllog SET ccall = 'DL1ABE' WHERE rowid = ?1", {brow});
    b.store->collect({brow.toLongLong()});
    // Same version on both; the node name breaks the tie: b wins.
    const auto fromA = a.peek(); // not yet delivered when b's edit arrives
    EXPECT_EQ(b.store->apply(fromA).answered, 1);
    EXPECT_EQ(b.store->outboxSize(), 1); // its own edit still to go, now also as the answer
    a.store->apply(b.send());
    EXPECT_EQ(a.rows(), b.rows());
    EXPECT_EQ(a.db.scalar("SELECT ccall FROM tbllog"), "DL1ABE");
    EXPECT_EQ(a.store->outboxSize(), 0); // a's losing edit was dropped, not sent after b's
}

TEST(MultiOpStore, DeleteLeavesATombstoneThatAnOlderInsertCannotUndo) {
    Node a("a"), b("b"), late("c");
    const qint64 row = a.log("DL1ABC");
    a.log("OK1RR");
    a.store->collectAll();
    const auto inserts = a.send();
    b.store->apply(inserts);

    a.db.run("DELETE FROM tbllog WHERE rowid = ?1", {QString::number(row)});
    a.store->collect({row});
    const auto tomb = a.send();
    ASSERT_EQ(tomb.size(), 1u);
    EXPECT_TRUE(tomb[0].deleted);
    b.store->apply(tomb);
    EXPECT_EQ(b.rows(), a.rows());

    // A late computer hears the tombstone before the old insert: the QSO stays deleted, and
    // the old insert is answered with the tombstone so the broker keeps the newer state.
    late.store->apply(tomb);
    const auto answer = late.store->apply({inserts[0]});
    EXPECT_EQ(QList({answer.changed(), answer.answered}), QList({0, 1}));
    late.store->apply({inserts[1]});
    EXPECT_EQ(late.rows(), a.rows());
    EXPECT_EQ(late.rows().size(), 1u);
}

TEST(MultiOpStore, ChangesMadeWhileNotLookingAreFoundAtTheNextStart) {
    Node a("a");
    const qint64 kept = a.log("DL1ABC");
    const qint64 gone = a.log("OK1RR");
    a.store->collectAll();
    a.send();
    // The program died after these writes and before it made events of them.
    a.log("SP9XX");
    a.db.run("UPDATE tbllog SET bband = '21' WHERE rowid = ?1", {QString::number(kept)});
    a.db.run("DELETE FROM tbllog WHERE rowid = ?1", {QString::number(gone)});
    MultiOpStore restarted(*a.logStore, "test", "a");
    restarted.open();
    EXPECT_EQ(restarted.collectAll(), 3);
    EXPECT_EQ(restarted.collectAll(), 0);
    Node b("b");
    b.store->apply(a.peek());
    // b only heard the restart's events: the edit and the new QSO, and a tombstone.
    EXPECT_EQ(b.rows(),
              Rows({{"DL1ABC", "21", "cqww", "12:00", ""}, {"SP9XX", "14", "cqww", "12:00", ""}}));
    // The uid counter went on from where it was: no uid is ever reused.
    QStringList uids = a.db.column("SELECT uid FROM mqqso");
    uids.removeDuplicates();
    EXPECT_EQ(uids.size(), 3);
}

TEST(MultiOpStore, AClearedLogIsNotADeleteOfTheStationsQsos) {
    Node a("a");
    a.log("DL1ABC");
    a.store->collectAll();
    a.send();
    a.db.exec("DELETE FROM tbllog");
    EXPECT_EQ(a.store->collectAll(), 0);
    EXPECT_EQ(a.store->outboxSize(), 0);
}

TEST(MultiOpEvent, MalformedOrForeignPayloadsAreRefused) {
    QsoEvent e;
    e.logid = "test", e.uid = "a-1", e.origin = "a", e.seq = 1, e.stamp = {3, "a"};
    e.fields = {{"ccall", "DL1ABC'); DROP TABLE tbllog; --"}, {"bband", "14"}};
    const QByteArray good = multiop::encode(e);
    const auto back = multiop::decode(good, "test");
    ASSERT_TRUE(back);
    EXPECT_EQ(back->fields, e.fields);
    EXPECT_EQ(back->stamp, e.stamp);

    QString why;
    EXPECT_FALSE(multiop::decode(good, "other", &why));
    EXPECT_EQ(why, "another log");
    const auto changed = [&](const char* from, const char* to) {
        return QByteArray(good).replace(from, to);
    };
    for (const QByteArray& bad :
         {QByteArray("{not json"), QByteArray("[1,2]"), changed("\"a-1\"", "\"a/#\""),
          changed("\"14\"", "14"), changed("\"ver\":\"3\"", "\"ver\":\"x\""),
          QByteArray(20000, ' ')})
        EXPECT_FALSE(multiop::decode(bad, "test")) << bad.left(80).toStdString();
    // A column the log does not have is not taken.
    EXPECT_EQ(multiop::decode(changed("\"bband\"", "\"evil\""), "test")->fields.size(), 1);

    // Stored literally, through bound parameters.
    Node n("n");
    n.store->apply({*back});
    EXPECT_EQ(n.db.scalar("SELECT ccall FROM tbllog"), "DL1ABC'); DROP TABLE tbllog; --");
}

// The band totals kept between recounts must always equal the plain queries over the log,
// whatever wrote to it: the window's own commits and edits, a script's SQL, another connection.
#include "formfixture.h"

#include <QRandomGenerator>

using namespace hfc;
using hfc::test::FormFixture;

namespace {

const QStringList Bands = {"1,8", "3,5", "7", "14", "21", "28", "sat"};

struct LogTallyTest : FormFixture {
    QRandomGenerator rng{20021130};

    QString pick(const QStringList& from) { return from[rng.bounded(int(from.size()))]; }

    // The panel as plain per-band queries give it: QSOs and the two multiplier columns, which
    // the championship fills with its two point sums instead.
    QStringList expectedPanel(const QString& contest) {
        const QString columns =
            contest == "chemp" ? "SUM(CAST(point AS INTEGER)), SUM(CAST(point2 AS INTEGER))"
                               : "COUNT(DISTINCT NULLIF(mult, '')), COUNT(DISTINCT NULLIF(ps, ''))";
        QStringList out;
        qint64 q = 0, m = 0, m1 = 0;
        for (const QString& band : Bands) {
            const QStringList r = db.contest.query("SELECT SUM(ccall <> '\"'), " + columns +
                                                       " FROM tbllog WHERE bband = ?1 AND ps2 = ?2",
                                                   {band, contest})[0];
            const qint64 qb = r[0].toLongLong(), mb = r[1].toLongLong(), m1b = r[2].toLongLong();
            out << QString("%1/%2/%3").arg(qb).arg(mb).arg(m1b);
            q += qb, m += mb, m1 += m1b;
        }
        if (contest == "lzo" || contest == "bal")
            m = db.contest
                    .scalar("SELECT SUM(CAST(point AS INTEGER)) FROM tbllog WHERE ps2 = ?1",
                            {contest})
                    .toLongLong();
        out << QString("total %1/%2/%3").arg(q).arg(m).arg(m1);
        out << "serial count " +
                   QString::number(db.contest.count(
                       "SELECT ccall FROM tbllog WHERE ps2 = ?1 AND ccall <> '\"'", {contest}));
        return out;
    }

    QStringList shownPanel() {
        QStringList out;
        for (int b = 0; b < 7; ++b)
            out << QString("%1/%2/%3")
                       .arg(text(QString("qsoband(%1)").arg(b)))
                       .arg(text(QString("multband(%1)").arg(b)))
                       .arg(text(QString("multband1(%1)").arg(b)));
        out << QString("total %1/%2/%3").arg(text("qsotot"), text("multtot"), text("multtot1"));
        out << "serial count " + text("TXTRSTS2");
        return out;
    }

    // One QSO through the entry line, as the operator commits it.
    void commit(const QString& contest) {
        form->cmbband_Click(rng.bounded(7));
        form->txtcall->setText(rng.bounded(12) == 0 ? "\"" : pick({"DL1A", "UA3B", "K1C", "F5D"}));
        form->setMult(pick({"", "DL", "UA", "K", "F", "JA"}));
        form->setMult2(pick({"", "14", "16", "05"}));
        form->setPoints(pick({"", "0", "1", "3", "10", "x"}));
        form->setPoints2(pick({"", "1", "2"}));
        form->contestcode = rng.bounded(8) == 0 ? QString("wpx") : contest;
        form->wwodadd();
        form->contestcode = contest;
    }

    void editInGrid() {
        form->refreshLogGrid();
        const int rows = int(form->DBGrid3->rows().size());
        if (rows == 0) return;
        const QString field = pick({"mult", "ps", "bband", "ccall", "point", "point2"});
        QString value;
        if (field == "bband")
            value = pick(Bands);
        else if (field == "ccall")
            value = pick({"\"", "OH2A"});
        else
            value = pick({"", "DL", "14", "5", "X"});
        form->DBGrid3_Edit(rng.bounded(rows), field, value);
    }

    void runOps(const QString& contest, int steps) {
        Db other; // another program on the same data folder
        other.open(db.filePath("dbcontest.sqlite"), false);
        for (int i = 0; i < steps; ++i) {
            const int op = rng.bounded(10);
            if (op < 5) {
                commit(contest);
            } else if (op < 7) {
                editInGrid();
            } else if (op == 7) {
                db.contest.run("DELETE FROM tbllog WHERE rowid IN (SELECT rowid FROM tbllog "
                               "ORDER BY random() LIMIT 1)");
            } else if (op == 8) {
                other.run("INSERT INTO tbllog (ccall, bband, ps2, mult, ps, point, point2) "
                          "VALUES ('OK1X', ?1, ?2, 'OK', '15', '2', '1')",
                          {pick(Bands), contest});
            } else {
                addRow("SP2Y", pick(Bands), contest, pick({"SP", ""}), "15", "4");
            }
            form->txtcall_GotFocus();
            ASSERT_EQ(shownPanel(), expectedPanel(contest))
                << contest.toStdString() << " step " << i;
        }
    }
};

} // namespace

TEST_F(LogTallyTest, PanelAgreesWithThePlainQueriesAfterEveryKindOfWrite) {
    for (const char* contest : {"cqww", "chemp", "lzo", "bal"}) {
        form->contestcode = contest;
        runOps(contest, 120);
    }
}

TEST_F(LogTallyTest, ACommittedQsoIsAddedWithoutCountingTheWholeLog) {
    form->contestcode = "cqww";
    for (int i = 0; i < 20; ++i) addRow("UA1A", "14", "cqww", "UA", "16");
    form->cmbband_Click(3);
    form->txtcall_GotFocus();
    const int counted = form->tally().fullCounts();
    for (int i = 0; i < 5; ++i) {
        commit("cqww");
        form->txtcall_GotFocus();
        editInGrid();
        form->txtcall_GotFocus();
    }
    EXPECT_EQ(form->tally().fullCounts(), counted);
    EXPECT_EQ(shownPanel(), expectedPanel("cqww"));
    // a write the tally was not told about is noticed
    addRow("DL9Z", "7", "cqww", "DL", "14");
    form->txtcall_GotFocus();
    EXPECT_EQ(form->tally().fullCounts(), counted + 1);
    EXPECT_EQ(text("qsoband(2)"), expectedPanel("cqww")[2].section('/', 0, 0));
}

// Committing the entry line: the stored row, what is not stored, the entry line's reset and the
// log grid. A whole session of commits by Enter, repeats included, is the cqww_session scenario
// (SSB's 59 the session_restart scenario) and the hand count of claimedscore_test.cpp.
#include "entryfixture.h"

using namespace hfc;
using CommitTest = hfc::test::EntryFixture;

namespace {
const QString RowSql = "SELECT point, point2, ps2, ccall, ddate, bband, rsts, rstr, ps1, ttime, "
                       "rstr1, rstr2, rsts1, rsts2, mult, ps, contr, PRF, mode, QTH FROM tbllog";
}

TEST_F(CommitTest, EveryFieldOfTheRowComesFromTheEntryLine) {
    form->contestcode = "cqww";
    typeCall("DL1ABC");
    form->txtdate->setText("30.11.02");
    form->txttime->setText("12:05:33");
    form->lblrsts->setText("599");
    form->txtrsts->setText("16");
    form->lblrstr->setText("579");
    form->txtrstr->setText("14");
    // Points and multipliers corrected by hand, typed into their boxes as the operator would; a
    // box changed behind the window's back (as a view might) is not what is stored.
    for (const auto& [box, value] :
         {std::pair{"txtmult", "DL"}, {"txtmult2", "14"}, {"txtpoint", "1"}, {"txtpoint2", "2"}}) {
        form->setFocus(box);
        form->control(box)->setText("");
        form->typeText(value);
    }
    form->txtpoint->setText("7");
    form->click("cmbAdd");
    const Rows rows = db.contest.query(RowSql);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0],
              QStringList({"1",   "2",  "cqww",           "DL1ABC", "30.11.02", "14",  "599",
                           "599", "CW", "12:05",          "579",    "14",       "599", "16",
                           "DL",  "14", "FED. REP. OF G", "DL1",    "",         ""}));
    EXPECT_EQ(form->focusName(), "txtcall");
}

TEST_F(CommitTest, NothingIsStoredWithoutACallOrWithAnEmptyExchange) {
    form->txtrstr->setText("16");
    form->setPoints("3");
    form->click("cmbAdd");
    EXPECT_EQ(logRows(), 0);
    EXPECT_EQ(text("txtrstr"), "16");
    EXPECT_EQ(form->qsorun, 0);
    // Enter in an empty exchange box
    form->txtrstr->setText("");
    typeCall("DL1ABC\r");
    form->typeText("\r");
    EXPECT_EQ(logRows(), 0);
    EXPECT_EQ(form->focusName(), "txtrstr");
    form->typeText("x\b\r"); // typed and taken back
    EXPECT_EQ(logRows(), 0);
}

TEST_F(CommitTest, TheEntryLineIsResetForTheNextQso) {
    form->contestcode = "chemp";
    typeCall("UA3ABC");
    form->lblrstr->setText("2");
    form->txtrstr->setText("2001");
    form->setMult("MA");
    form->setPoints("11");
    form->wwodadd();
    for (const char* box : {"txtcall", "txtrsts", "txtrstr", "txtmult", "txtmult2", "txtpoint",
                            "txtpoint2", "txtstran5", "lblrstr"})
        EXPECT_EQ(text(box), "") << box;
    EXPECT_EQ(form->draft().country + form->draft().cq + form->draft().itu, "");
    EXPECT_FALSE(marked());
}

TEST_F(CommitTest, LogGridShowsThisContestNewestLastAndEditsTheRightRow) {
    form->contestcode = "cqww";
    addRow("DL1ABC", "14", "cqww");
    addRow("OK1XYZ", "14", "wpx");
    addRow("G4ABC", "21", "cqww");
    form->refreshLogGrid();
    typeCall("F5ABC");
    form->wwodadd();
    QStringList calls;
    for (const QStringList& r : form->DBGrid3->rows()) calls << r[0];
    EXPECT_EQ(calls, QStringList({"DL1ABC", "G4ABC", "F5ABC"}));

    form->DBGrid3_Edit(1, "ccall", "g4abd");
    form->DBGrid3_Edit(1, "Принят", "14a");
    EXPECT_EQ(form->DBGrid3->rows()[1][0] + form->DBGrid3->rows()[1][2], "G4ABD14A");
    EXPECT_EQ(db.contest.query("SELECT ccall, rstr2 FROM tbllog WHERE bband = '21'")[0],
              QStringList({"G4ABD", "14A"}));
    EXPECT_EQ(db.contest.scalar("SELECT ccall FROM tbllog WHERE ps2 = 'wpx'"), "OK1XYZ");
    // unknown columns and rows change nothing
    form->DBGrid3_Edit(1, "nosuch", "X");
    form->DBGrid3_Edit(7, "ccall", "X");
    EXPECT_EQ(db.contest.count("SELECT rowid FROM tbllog WHERE ccall = 'X'"), 0);
}

// A logged QSO survives a power cut only if every commit waits for the disk.
TEST_F(CommitTest, TheLogWaitsForTheDiskOnEveryCommit) {
    EXPECT_EQ(db.contest.scalar("PRAGMA journal_mode"), "wal");
    EXPECT_EQ(db.contest.scalar("PRAGMA synchronous"), "2"); // FULL; NORMAL (1) may lose a QSO
}

// A refused write must not pass for a logged QSO: the entry line stays as typed, the operator is
// told in words, and the rate counters do not move; once the cause is gone, Enter logs it.
TEST_F(CommitTest, ARefusedWriteKeepsTheQsoInTheEntryLine) {
    form->contestcode = "cqww";
    typeCall("DL1ABC");
    form->txtrsts->setText("16");
    form->txtrstr->setText("14");
    form->setMult("DL");
    form->setPoints("3");
    const QDateTime last = form->lastqso, bandstart = form->bandstart;
    const int hour = form->hourcount;
    // A store that takes no writes (a full disk is played on a small mount in diskfaults_test).
    db.contest.scalar("PRAGMA query_only=1");
    clock.advance(60);
    ui.queueAnswer(Ui::Answer::Ok);
    form->setFocus("txtrstr");
    form->typeText("\r");
    const QStringList shown = ui.takeShown();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_TRUE(shown[0].contains("DL1ABC НЕ записано") && shown[0].contains("только для чтения"))
        << shown[0].toStdString();
    EXPECT_EQ(logRows(), 0);
    for (const auto& [box, typed] :
         {std::pair{"txtcall", "DL1ABC"}, {"txtrsts", "16"}, {"txtrstr", "14"}, {"txtmult", "DL"}})
        EXPECT_EQ(text(box), typed) << box;
    EXPECT_EQ(form->focusName(), "txtrstr");
    EXPECT_EQ(QList({form->qsorun, form->hourcount}), QList({0, hour}));
    EXPECT_EQ(QList({form->lastqso, form->bandstart}), QList({last, bandstart}));
    db.contest.scalar("PRAGMA query_only=0");
    form->typeText("\r");
    EXPECT_EQ(db.contest.query("SELECT ccall, rstr2, mult FROM tbllog"),
              Rows({{"DL1ABC", "14", "DL"}}));
    EXPECT_EQ(form->qsorun, 1);
    EXPECT_EQ(form->lastqso, clock.localNow());
    EXPECT_EQ(text("txtcall"), "");
}

// The lists beside the call box and the call history in the logging window: what typing shows,
// the marks of worked calls, the exchange and name from the history, and the history written from
// the log (a call taken from a list: ScpPanelsGui).
#include "entryfixture.h"
#include "log/workedcalls.h"
#include "testfiles.h"

#include <QDir>

namespace {

struct ScpFormTest : hfc::test::EntryFixture {
    void SetUp() override {
        EntryFixture::SetUp();
        // A small list of the data folder's own, so that what the lists hold is plain to see.
        hfc::test::writeFile(dir.path() + "/MASTER.SCP",
                             "# test\nDL1AB\nDL1ABC\nDL1AC\nDL2AB\nK1ABC\nUA3ABC\nUA3ABD\n");
        hfc::test::writeFile(dir.path() + "/callhistory.txt", "!!Order!!,Call,Name,CQZone,Exch1\n"
                                                              "DL1AB,Hans,15,B06\nK1ABC,Joe,5,\n");
        form->loadStationFiles();
    }
    void choose(const char* item, const QString& exchange = {}) {
        if (!exchange.isEmpty()) ui.queueInput(exchange);
        ASSERT_TRUE(form->call(QString(item) + "_Click", {}));
        ui.takeShown(); // the contest's question
        form->cmbband_Click(3);
    }
    QStringList items(const char* list) { return form->control(list)->items(); }
    QString marks(const char* list) { return form->control(list)->extra("marks"); }
};

} // namespace

TEST_F(ScpFormTest, PartialFromTheSecondCharacterOneOffFromTheThird) {
    typeCall("DL");
    EXPECT_TRUE(items("lstnp1").isEmpty());
    typeCall("1AB"); // anywhere in the call, not only at its start
    EXPECT_EQ(items("lstscp"), QStringList({"DL1AB", "DL1ABC", "K1ABC"}));
    typeCall("DL1AD");
    EXPECT_TRUE(items("lstscp").isEmpty());
    EXPECT_EQ(items("lstnp1"), QStringList({"DL1AB", "DL1AC"}));
    form->scpmax = 1; // no more than the panel holds
    typeCall("DL");
    EXPECT_EQ(items("lstscp"), QStringList({"DL1AB"}));
}

TEST_F(ScpFormTest, WorkedCallsFollowEditsAndClearingsOfTheLog) {
    addRow("DL1AB", "14", "hi hi");
    hfc::WorkedCalls& w = form->workedCalls();
    EXPECT_EQ(w.check("DL1AB", "14"), hfc::Worked::OnBand);
    const int reads = w.fullReads();
    typeCall("DL1AC");
    form->wwodadd();
    EXPECT_EQ(form->workedCalls().check("DL1AC", "14"), hfc::Worked::OnBand);
    EXPECT_EQ(w.fullReads(), reads); // a QSO of our own is added, not read again
    form->cmbband_Click(2);          // nor is the band kept for the next start, which is no QSO
    typeCall("DL1AE");
    form->setFocus("txtrstr");
    form->setFocus("txtcall"); // the totals and the next serial
    typeCall("DL1AF");
    EXPECT_EQ(w.fullReads(), reads);
    db.contest.run("UPDATE tbllog SET bband = '7' WHERE ccall = 'DL1AB'");
    EXPECT_EQ(form->workedCalls().check("DL1AB", "14"), hfc::Worked::InContest);
    db.contest.run("DELETE FROM tbllog");
    EXPECT_EQ(form->workedCalls().check("DL1AB", "7"), hfc::Worked::No);
    EXPECT_TRUE(form->workedCalls().calls().isEmpty());
}

TEST_F(ScpFormTest, HistoryFillsTheContestsExchangeAndShowsTheName) {
    choose("mnucqww", "16");
    // UA3ABC: no entry, the prefix table's zone; DL1AB: the history's zone wins over the
    // table's 14; K1ABC: a one-digit zone as the table writes it
    for (const auto& [call, shown] :
         {std::pair{"UA3ABC", "16|"}, {"DL1AB", "15|Hans"}, {"K1ABC", "05|Joe"}}) {
        typeCall(call);
        EXPECT_EQ(texts({"txtrstr", "lblname"}), shown);
    }
}

TEST_F(ScpFormTest, AnExchangeFromTheHistoryGoesWhenTheCallChanges) {
    choose("mnuwag");
    typeCall("DL1AB");
    EXPECT_EQ(text("txtrstr"), "B06");
    form->typeText("C"); // DL1ABC has no entry: B06 was DL1AB's
    EXPECT_EQ(text("txtrstr") + text("lblname"), "");
    // What the operator typed stays.
    typeCall("DL1AB");
    form->txtrstr->setText("X11");
    form->setFocus("txtcall");
    form->typeText("C");
    EXPECT_EQ(text("txtrstr"), "X11");
}

TEST_F(ScpFormTest, MenuWritesTheHistoryFromTheLogKeepingTheFile) {
    choose("mnucqww", "16");
    for (const auto& [call, zone] : {std::pair{"UA9AA", "17"}, {"DL1AB", "14"}, {"UA9AA", "18"}}) {
        typeCall(call);
        form->txtrstr->setText(zone);
        form->wwodadd();
    }
    addRow("R1AB", "14", "rudx"); // an oblast from another contest's log
    db.contest.run("UPDATE tbllog SET rstr2 = 'SP' WHERE ccall = 'R1AB'");
    addRow("W1AW", "14", "rudx"); // a DX station's serial number is no oblast
    db.contest.run("UPDATE tbllog SET rstr2 = '001' WHERE ccall = 'W1AW'");
    ui.queueAnswer(hfc::Ui::Answer::Ok);
    form->call("mnuhistory_Click", {});
    const QStringList shown = ui.takeShown();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_TRUE(shown[0].contains("Позывных из журнала: 3, всего: 4")) << shown[0].toStdString();
    EXPECT_EQ(hfc::test::readFile(dir.path() + "/callhistory.txt"),
              "!!Order!!,Call,Name,CQZone,Exch1,Loc1\n"
              "DL1AB,Hans,14,B06,\n" // the log's zone; the name and DOK kept
              "K1ABC,Joe,5,,\n"
              "R1AB,,,,SP\n"
              "UA9AA,,18,,\n"); // the later QSO wins
    typeCall("UA9AA");          // read back at once
    EXPECT_EQ(text("txtrstr"), "18");
}

TEST_F(ScpFormTest, AHistoryThatCannotBeReadIsNotReplaced) {
    QDir(dir.path()).remove("callhistory.txt");
    ASSERT_TRUE(QDir(dir.path()).mkdir("callhistory.txt")); // a folder where the file should be
    ui.queueAnswer(hfc::Ui::Answer::Ok);
    form->call("mnuhistory_Click", {});
    const QStringList shown = ui.takeShown();
    ASSERT_EQ(shown.size(), 1);
    EXPECT_TRUE(shown[0].contains("История позывных не записана")) << shown[0].toStdString();
    EXPECT_TRUE(QFileInfo(dir.path() + "/callhistory.txt").isDir());
}

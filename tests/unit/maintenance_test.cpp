// Transfer into the station log and clearing (with its backup). The transfer itself is played
// through in the transfer_clear scenario.
#include "formfixture.h"
#include "testfiles.h"

#include <QDir>
#include <QFile>

using namespace hfc;
using hfc::test::FormFixture;
using hfc::test::writeFile;

struct MaintenanceTest : FormFixture {
    void SetUp() override {
        FormFixture::SetUp();
        // two contests' rows: the transfer and the clearing take every contest
        for (const char* c : {"cqww", "wae"})
            db.contest.run("INSERT INTO tbllog (ccall, ddate, ttime, bband, mode, rsts, rstr, "
                           "mult, point, contr, PRF, QTH, ps1, ps2) VALUES ('UA3ABC', '30.11.02', "
                           "'12:01', '14', 'CW', '59916', '59914', 'UA', '1', '14', 'UA3', 'MA', "
                           "'x1', ?1)",
                           {c});
        db.contest.run("INSERT INTO tbllogTemp (ccall, ps2, contr) VALUES ('DL1AA', '1200 UA3A', "
                       "'599')");
    }
    int rows(Db& d, const char* table) {
        return d.count(QStringLiteral("SELECT * FROM %1").arg(table));
    }
    QStringList backups() {
        return QDir(dir.path() + "/backup").entryList({"*.sqlite"}, QDir::Files, QDir::Name);
    }
    // The log's and the QTC table's row counts.
    QString counts() {
        return QString("%1 %2").arg(rows(db.contest, "tbllog")).arg(rows(db.contest, "tbllogTemp"));
    }
};

// Both answered yes, and yes then no, are in the transfer_clear scenario.
TEST_F(MaintenanceTest, ClearingWithoutTransferAsksBothAndEmptiesBothTables) {
    ui.queueAnswer(Ui::Answer::No);
    ui.queueAnswer(Ui::Answer::Yes);
    form->cmbvur_Click();
    EXPECT_EQ(ui.takeShown().size(), 2) << "the transfer asked, then the clearing";
    EXPECT_EQ(rows(db.iaru, "tbllog1"), 0);
    EXPECT_EQ(counts(), "0 0");
}

TEST_F(MaintenanceTest, ClearingLeavesAReadableDatedBackupAndNeverOverwritesOne) {
    ui.queueAnswer(Ui::Answer::Yes);
    form->mnudelet_Click();
    EXPECT_EQ(rows(db.contest, "tbllog"), 0);
    ASSERT_EQ(backups(), QStringList({"dbcontest-20021130-150500.sqlite"}));
    {
        Db copy;
        copy.open(dir.path() + "/backup/dbcontest-20021130-150500.sqlite", false);
        EXPECT_EQ(copy.column("SELECT ps2 FROM tbllog ORDER BY ps2"), QStringList({"cqww", "wae"}));
        EXPECT_EQ(copy.count("SELECT * FROM tbllogTemp"), 1);
        EXPECT_EQ(copy.scalar("PRAGMA integrity_check"), "ok");
    }
    // a second clearing in the same second keeps the first copy
    addRow("DL1AA", "7", "cqww");
    ui.queueAnswer(Ui::Answer::Yes);
    form->mnudelet_Click();
    EXPECT_EQ(backups(), QStringList({"dbcontest-20021130-150500-2.sqlite",
                                      "dbcontest-20021130-150500.sqlite"}));
    Db first; // opened after the second clearing: its file as that left it
    first.open(dir.path() + "/backup/dbcontest-20021130-150500.sqlite", false);
    EXPECT_EQ(first.count("SELECT * FROM tbllog"), 2);
}

TEST_F(MaintenanceTest, NoBackupNoDeletion) {
    writeFile(dir.path() + "/backup", "in the way"); // the folder cannot be made
    for (auto a : {Ui::Answer::Yes, Ui::Answer::No, Ui::Answer::Yes, Ui::Answer::Ok})
        ui.queueAnswer(a);
    form->cmbvur_Click();
    const QStringList shown = ui.takeShown();
    ASSERT_EQ(shown.size(), 3);
    EXPECT_TRUE(shown[2].startsWith("msgbox\tНе удалось сохранить копию базы соревнований"))
        << shown[2].toStdString();
    EXPECT_EQ(counts(), "2 1");
    // the menu's own QTC clearing is refused the same way
    ui.queueAnswer(Ui::Answer::Ok);
    form->mnuQTC_Click();
    EXPECT_EQ(rows(db.contest, "tbllogTemp"), 1);
}

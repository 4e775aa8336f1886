// The standard exports of the report window and of `hfcontest export`: the files are the pure
// writers' bytes for the log and QTC table, the category boxes reach the header, and the check
// list shows what a robot would flag without stopping the writing.
#include "exportcommand.h"
#include "formfixture.h"
#include "forms/otchet/otchetform.h"
#include "reports/standard/adif3.h"
#include "reports/standard/cabrillo3.h"
#include "reports/standard/lint.h"
#include "reports/standard/qsofields.h"
#include "standardfixture.h"
#include "testfiles.h"

#include <QFile>
#include <QTemporaryDir>

using namespace hfc;
using hfc::test::FormFixture;
using hfc::test::readFile;

namespace {

struct StandardExportTest : FormFixture {
    QList<LogRow> log = standardRows("log.psv"); // in the order the QSOs were entered
    QList<LogRow> qtcs = standardRows("qtc.psv");
    QTemporaryDir out;

    void SetUp() override {
        FormFixture::SetUp();
        for (const LogRow& r : log) insert("tbllog", r);
        for (const LogRow& r : qtcs) insert("tbllogTemp", r);
        db.contest.run("UPDATE tbltit SET ccall = 'UA9CDE', nname = 'Сергей Жуков', "
                       "ADRESSTRIT = 'а/я 15', adregor = 'Екатеринбург'");
    }
    void insert(const QString& table, const LogRow& r) {
        db.contest.run("INSERT INTO " + table +
                           " (ccall, ddate, ttime, bband, rsts, rstr, rsts1, rsts2, rstr1, rstr2, "
                           "ps1, ps2, contr) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, "
                           "?11, ?12, ?13)",
                       {r.ccall, r.ddate, r.ttime, r.bband, r.rsts, r.rstr, r.rsts1, r.rsts2,
                        r.rstr1, r.rstr2, r.ps1, r.ps2, r.contr});
    }
    OtchetForm* open(const QString& code) {
        form->contestcode = code;
        form->cmbotchet_Click();
        auto* w = static_cast<OtchetForm*>(form->subForm("otchet"));
        w->txtput->setText(out.path());
        return w;
    }
    StationBoxes station(OtchetForm* w) {
        StationBoxes st;
        st.tcall = "UA9CDE", st.trezult = w->trezult->text();
        st.tname = QString::fromUtf8("Сергей Жуков"), st.tadres = QString::fromUtf8("а/я 15");
        st.tgor = QString::fromUtf8("Екатеринбург");
        return st;
    }
    QStringList lintMessages() {
        QStringList m;
        for (const LintIssue& i : lintLog(log)) m << i.message;
        for (const LintIssue& i : lintQtcs(qtcs)) m << i.message;
        return m;
    }
};

TEST_F(StandardExportTest, CategoryBoxesStartFromTheLogAndReachTheHeader) {
    OtchetForm* w = open("rudx");
    EXPECT_EQ(w->cmbcatmode->text(), "MIXED");
    w->cmbcatpower->setText("HIGH");
    w->cmbcatop->setText("multi-op"); // typed in lower case
    w->cmbcattx->setText("TWO");
    w->cmbcatassist->setText("ASSISTED");
    w->cmbcatstation->setText("PORTABLE");
    w->cmbcatband->setText("2M"); // not a value the format allows: the log's value stands
    w->cmbcab3_Click();
    const QByteArray written = readFile(out.path() + "/UA9CDE.log");
    EXPECT_EQ(cabrilloFormatErrors(written), QStringList());
    QStringList tags;
    for (const char* t : {"CATEGORY-POWER", "CATEGORY-OPERATOR", "CATEGORY-TRANSMITTER",
                          "CATEGORY-ASSISTED", "CATEGORY-STATION", "CATEGORY-BAND", "NAME"})
        tags << cabrilloTag(written, t);
    EXPECT_EQ(tags, QStringList({"HIGH", "MULTI-OP", "TWO", "ASSISTED", "PORTABLE", "20M",
                                 "Sergei Zhukov"}));
    w = open("cqww");
    EXPECT_EQ(w->cmbcatpower->text(), "LOW"); // a new activation starts from the log again
    EXPECT_FALSE(w->cmbqtcrole->visible());   // QTCs are WAE's alone
}

TEST_F(StandardExportTest, CabrilloButtonWritesThePureWritersBytesWithTheChosenQtcRole) {
    OtchetForm* w = open("wae");
    EXPECT_TRUE(w->cmbqtcrole->visible());
    ASSERT_EQ(w->cmbqtcrole->items().size(), 2);
    EXPECT_EQ(w->cmbqtcrole->text(), w->cmbqtcrole->items()[0]);
    w->cmbqtcrole->setText(w->cmbqtcrole->items()[1]);
    w->cmbcab3_Click();
    Cabrillo3Header h = cabrillo3Defaults(station(w), "wae", log);
    h.qtcRole = QtcRole::Received;
    EXPECT_EQ(readFile(out.path() + "/UA9CDE.log"), cabrillo3File(h, "wae", log, qtcs));
    EXPECT_TRUE(ui.takeShown().isEmpty());
}

TEST_F(StandardExportTest, AdifButtonWritesTheWholeLogInDateOrder) {
    clock.set(QDateTime(QDate(2021, 5, 8), QTime(9, 0)),
              QDateTime(QDate(2021, 5, 8), QTime(6, 0), Qt::UTC));
    db.contest.run("UPDATE tbltit SET ccall = 'R3A/P'");
    OtchetForm* w = open("cqww");
    w->cmbadif3_Click();
    const QString path = out.path() + "/R3A_P.adi";

    Adif3Options options;
    options.stationCallsign = "R3A/P";
    options.createdUtc = QDateTime(QDate(2021, 5, 8), QTime(6, 0), Qt::UTC);
    const QByteArray file = readFile(path);
    EXPECT_EQ(file, adif3File(options, inTimeOrder(log))); // no two QSOs share a time
    EXPECT_EQ(file.count("<EOR>"), 19); // every contest; the placeholder and empty call left out
    EXPECT_TRUE(file.contains("<CREATED_TIMESTAMP:15>20210508 060000"));
}

TEST_F(StandardExportTest, CheckListShowsWhatARobotWouldFlagAndDoesNotStopWriting) {
    LogRow badQtc = qtcs[0]; // a QTC line without its serial
    badQtc.ps2 = "0007 DL1ABC", badQtc.contr = "";
    qtcs << badQtc;
    insert("tbllogTemp", badQtc);
    OtchetForm* w = open("cqww");
    const QStringList expected = lintMessages();
    EXPECT_EQ(w->lstlint->items(), expected); // what each says: standard_lint_test.cpp
    EXPECT_EQ(expected.filter("08.08.20 00:31 DL2CCC: ").size(), 1); // the QTC line added here

    // A QSO logged while the window is open shows up when a standard button is pressed.
    LogRow late = log[0];
    late.ccall = "OK2AB", late.ddate = "27.11.20", late.ttime = "23:00", late.rstr2 = "";
    insert("tbllog", late);
    w->cmbadif3_Click();
    EXPECT_TRUE(w->lastWriteOk);
    ASSERT_EQ(w->lstlint->items().size(), expected.size() + 2); // empty exchange, out of order
    EXPECT_EQ(w->lstlint->items().filter("27.11.20 23:00 OK2AB: ").size(), 2);
    w->cmbcab3_Click();
    EXPECT_TRUE(w->lastWriteOk);
    EXPECT_EQ(db.contest.count("SELECT * FROM tbllog"), log.size() + 1);
}

struct StandardCommandTest : StandardExportTest {
    QString outText, errText;
    int run(QStringList args) {
        outText.clear(), errText.clear();
        QTextStream o(&outText), e(&errText);
        args = QStringList{"--data-dir", dir.path(), "--to", cli.path()} + args;
        const int rc = runExportCommand(args, o, e);
        o.flush(), e.flush();
        return rc;
    }
    QTemporaryDir cli;
};

TEST_F(StandardCommandTest, WritesTheWindowsFilesAndWarnsWithTheCheckList) {
    OtchetForm* w = open("wae");
    w->cmbcab3_Click();
    w->cmbadif3_Click();

    ASSERT_EQ(run({"--contest", "wae", "cabrillo3"}), 0) << errText.toStdString();
    const QString cabrillo = cli.path() + "/UA9CDE.log";
    EXPECT_EQ(outText, QString::fromUtf8("Файл записан: ") + cabrillo + "\n");
    EXPECT_EQ(readFile(cabrillo), readFile(out.path() + "/UA9CDE.log"));
    QString warnings;
    for (const QString& m : lintMessages())
        warnings += QString::fromUtf8("Предупреждение: ") + m + "\n";
    EXPECT_EQ(errText, warnings);

    ASSERT_EQ(run({"adif3"}), 0) << errText.toStdString();
    EXPECT_EQ(errText, warnings);
    // The same records; only the time of writing differs.
    const auto records = [](const QByteArray& f) { return f.mid(f.indexOf("<EOH>")); };
    const QByteArray adif = readFile(cli.path() + "/UA9CDE.adi");
    EXPECT_EQ(records(adif), records(readFile(out.path() + "/UA9CDE.adi")));
    EXPECT_TRUE(adif.contains("<ADIF_VER:5>3.1.4"));
}

TEST_F(StandardCommandTest, CategoryOptionsSetTheHeaderAndBadValuesAreRefused) {
    ASSERT_EQ(run({"--contest", "wae", "--category-power", "high", "--category-station", "HQ",
                   "--qtc", "received", "cabrillo3"}),
              0)
        << errText.toStdString();
    const QByteArray file = readFile(cli.path() + "/UA9CDE.log");
    EXPECT_TRUE(file.contains("\r\nCATEGORY-POWER: HIGH\r\n"));
    EXPECT_TRUE(file.contains("\r\nCATEGORY-STATION: HQ\r\n"));
    EXPECT_TRUE(file.contains("QTC:  7000 CW 2020-08-08 0040 G3BBB         2/1      UA9CDE"));

    EXPECT_EQ(run({"--category-power", "KW", "cabrillo3"}), 2);
    EXPECT_TRUE(errText.startsWith(QString::fromUtf8(
        "Недопустимое значение KW для --category-power; возможны: LOW, HIGH, QRP.")));
    EXPECT_EQ(run({"--qtc", "both", "cabrillo3"}), 2);
}

} // namespace

// The report window: recount and score rules, station data, folder list and the writer buttons.
#include "formfixture.h"
#include "forms/otchet/otchetform.h"
#include "reports/writers.h"
#include "testfiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace hfc;
using hfc::test::FormFixture;
using hfc::test::readFile;

namespace {

struct OtchetTest : FormFixture {
    OtchetForm* otchet() { return static_cast<OtchetForm*>(form->subForm("otchet")); }
    OtchetForm* open(const QString& code = "cqww") {
        form->contestcode = code;
        form->cmbotchet_Click();
        return otchet();
    }
    QString o(const QString& name) { return otchet()->control(name)->text(); }
    QString row(int i) {
        return o(QString("tq(%1)").arg(i)) + " " + o(QString("tdx(%1)").arg(i)) + " " +
               o(QString("tz(%1)").arg(i)) + " " + o(QString("tp(%1)").arg(i));
    }
    QString totals() {
        return o("tqtot") + " " + o("tdxtot") + " " + o("tztot") + " " + o("tptot") + " = " +
               o("trezult");
    }

    // 14: two QSOs with two first and one second multiplier and a placeholder without points;
    // 7: a QSO with no multiplier mark; 21: one QSO with both; "sat" and a band outside the
    // table are not counted.
    void fillLog() {
        addRow("DL1ABC", "14", "cqww", "DL", "14", "3");
        addRow("OK1XYZ", "14", "cqww", "OK", "", "3");
        addRow("\"", "14", "cqww", "", "", "");
        addRow("RK3AAA", "7", "cqww", "", "", "2");
        addRow("UA9AA", "21", "cqww", "UA9", "17", "1");
        addRow("VK0AAA", "sat", "cqww", "VK0", "30", "100");
        addRow("ZS1A", "10,1", "cqww", "ZS", "38", "50");
    }
};

TEST_F(OtchetTest, GeneralRuleCountsTheSixBandsAndMultipliesMultipliersByPoints) {
    fillLog();
    db.contest.run("UPDATE rezult SET qsosat = '5', mdsat = '1', mzsat = '2', psat = '7'");
    open("cqww");
    EXPECT_EQ(row(0), "0 0 0 0");
    EXPECT_EQ(row(2), "1 0 0 2"); // QSOs without a multiplier mark still count
    EXPECT_EQ(row(3), "2 2 1 6"); // the placeholder is no QSO
    EXPECT_EQ(row(4), "1 1 1 1");
    EXPECT_EQ(row(6), "5 1 2 7"); // as the score sheet holds it, outside the totals
    EXPECT_EQ(totals(), "4 3 2 9 = 45");
    EXPECT_EQ(o("Text3") + " " + o("Text2") + " " + o("Text1"), "3 2 9");
    // The recount is kept in the score sheet; the sat figures stay.
    EXPECT_EQ(db.contest
                  .query("SELECT qso20, md20, mz20, p20, qsosat, psat, totq, totp, totrez "
                         "FROM rezult")[0]
                  .join(' '),
              "2 2 1 6 5 7 4 9 45");
}

TEST_F(OtchetTest, ContestCodesScaleMultipliersAndChooseTheScoreRule) {
    fillLog();
    struct Case {
        const char* code;
        const char* band14;
        const char* totals;
    };
    const Case cases[] = {
        // multipliers turned into points: a plain sum
        {"chemp", "2 200 10 6", "4 300 20 9 = 329"},
        {"45", "2 30 5 6", "4 45 10 9 = 495"},
        {"32", "2 20 1 6", "4 30 2 9 = 288"},
        {"lzo", "2 2 1 6", "4 3 2 9 = 9"}, // points only
        {"hi hi", "2 2 1 6", "4 3 2 9 = 45"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.code);
        // the window counts the chosen contest's rows only
        db.contest.run("UPDATE tbllog SET ps2 = ?1", {c.code});
        open(c.code);
        EXPECT_EQ(row(3), c.band14);
        EXPECT_EQ(totals(), c.totals);
    }
    open("chemp"); // the championship's columns are zones and correspondents
    EXPECT_EQ(otchet()->ld->text() + " " + otchet()->lz->text(), "зоны корр");
}

TEST_F(OtchetTest, EveryActivationRecountsFromTheLog) {
    open();
    EXPECT_EQ(totals(), "0 0 0 0 = 0");
    otchet()->Command1_Click();
    EXPECT_FALSE(otchet()->isShown());
    addRow("DL1ABC", "28", "cqww", "DL", "14", "3");
    addRow("DL1ABD", "28", "cqww", "", "", "abc");
    addRow("DL1ABE", "28", "wpx", "", "", "5"); // another contest of the folder: not counted
    open();
    EXPECT_TRUE(otchet()->isShown());
    EXPECT_EQ(row(5), "2 1 1 3");
    EXPECT_EQ(totals(), "2 1 1 3 = 6");
    // the sponsor's figure beside it: DL1ABC and DL1ABD score 1 each from UA (own continent);
    // the rows hold no received zone, so Germany on 10 m is the one multiplier
    EXPECT_EQ(o("tclaimed"), "2");
    open("wpx");
    EXPECT_EQ(totals(), "1 0 0 5 = 0");
}

TEST_F(OtchetTest, StationBoxesShowAndStoreTheStationData) {
    db.contest.run("UPDATE tbltit SET ccall = 'UA3ABC', nname = 'Ivan'");
    open();
    EXPECT_EQ(o("tname"), "Ivan");
    OtchetForm* w = otchet();
    w->setFocus("tgor");
    w->typeText(QString::fromUtf8("Тула"));
    w->tpod->setText("SO-CW");
    w->tcall->setText("UA3XYZ");
    w->tname->setText("Иван");
    EXPECT_EQ(o("cmbtit"), "UA3XYZ.SUM");
    w->tq[6]->setText("12"); // the "sat" figures are entered by hand
    EXPECT_EQ(db.contest.query("SELECT ccall, podgrup, adregor, nname FROM tbltit")[0].join(' '),
              QString::fromUtf8("UA3XYZ SO-CW Тула Иван"));
    w->Command1_Click();
    open();
    EXPECT_EQ(o("tgor"), QString::fromUtf8("Тула"));
    EXPECT_EQ(o("tq(6)"), "12");
}

// A full tbllog row, every text field given.
void insertQso(Databases& db, const LogRow& r) {
    db.contest.run("INSERT INTO tbllog (ccall, ddate, ttime, bband, rsts, rstr, rsts1, rsts2, "
                   "rstr1, rstr2, mult, ps, point, point2, ps1, ps2) VALUES (?1, ?2, ?3, ?4, ?5, "
                   "?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16)",
                   {r.ccall, r.ddate, r.ttime, r.bband, r.rsts, r.rstr, r.rsts1, r.rsts2, r.rstr1,
                    r.rstr2, r.mult, r.ps, r.point, r.point2, r.ps1, r.ps2});
}

LogRow qso(const char* call, const char* date, const char* time, const char* band, const char* sent,
           const char* mode = "CW") {
    LogRow r;
    r.ccall = call, r.ddate = date, r.ttime = time, r.bband = band, r.rsts2 = sent;
    r.rsts = r.rstr = r.rsts1 = r.rstr1 = QString(mode) == "CW" ? "599" : "59";
    r.rstr2 = "14", r.mult = "DL", r.ps = "14", r.point = "3", r.point2 = "1", r.ps1 = mode;
    r.ps2 = "chemp";
    return r;
}

TEST_F(OtchetTest, ButtonsWriteThePureWritersBytesForTheLogInDateOrder) {
    // Report order: date value (not text), then time text, then sent exchange text.
    const QList<LogRow> ordered = {
        qso("W1AW", "31.12.99", "23:59", "1,8", "001"),
        qso("DL1ABC", "01.01.00", "00:01", "14", "002"),
        qso("OK1XYZ", "01.01.00", "00:01", "14", "010", "SSB"),
        qso("", "01.01.00", "00:02", "7", "011"),
        qso("ЖУК", "02.01.00", "12:00", "21", "012"),
    };
    for (int i : {4, 2, 0, 3, 1}) insertQso(db, ordered[i]);
    db.contest.run("UPDATE tbltit SET ccall = 'RZ3DXX', nname = 'Иван', adregor = 'Москва'");

    QTemporaryDir out;
    open("chemp");
    OtchetForm* w = otchet();
    w->txtput->setText(out.path()); // no separator typed
    const QString base = out.path() + "/RZ3DXX";

    w->Ccabrila_Click();
    EXPECT_EQ(o("txtput"), out.path() + "/");
    EXPECT_EQ(o("lblstatus"), QString::fromUtf8("Файл записан: ") + base);
    StationBoxes st;
    st.tcall = "RZ3DXX", st.tname = QString::fromUtf8("Иван"),
    st.tgor = QString::fromUtf8("Москва");
    st.trezult = o("trezult");
    EXPECT_EQ(readFile(base), cabrilloFile(st, ordered));
    w->cmbAdif_Click(); // the same file name: ADIF replaces the Cabrillo file
    EXPECT_EQ(readFile(base), adifFile(ordered));
    w->cmbreport_Click();
    EXPECT_EQ(readFile(base + ".LOG"), logListing("chemp", ordered));
    EXPECT_EQ(o("lblstatus"), QString::fromUtf8("Файл записан: ") + base + ".LOG");

    w->tq[0]->setText("99"); // the sheet prints the boxes as they stand
    w->cmbtit_Click();
    SummaryBoxes sum;
    sum.st = st;
    sum.st.tcont = o("tcont"), sum.st.Text4 = "31.12.99-02.01.00";
    for (int i = 0; i < 7; ++i) {
        sum.tq[i] = o(QString("tq(%1)").arg(i)), sum.tdx[i] = o(QString("tdx(%1)").arg(i));
        sum.tz[i] = o(QString("tz(%1)").arg(i)), sum.tp[i] = o(QString("tp(%1)").arg(i));
    }
    sum.tqtot = o("tqtot"), sum.tdxtot = o("tdxtot"), sum.tztot = o("tztot");
    sum.tptot = o("tptot"), sum.Text1 = o("Text1"), sum.Text2 = o("Text2");
    sum.Text3 = o("Text3");
    EXPECT_EQ(sum.tq[0], "99");
    EXPECT_EQ(readFile(base + ".SUM"), summarySheet(sum));
}

TEST_F(OtchetTest, AFileThatCannotBeWrittenIsReportedAndTheLogStays) {
    addRow("DL1ABC", "14", "cqww", "DL", "14", "3");
    db.contest.run("UPDATE tbltit SET ccall = 'UA3ABC'");
    QTemporaryDir out;
    QDir(out.path()).mkdir("UA3ABC"); // a folder where the file should go
    open();
    OtchetForm* w = otchet();
    w->txtput->setText(out.path());
    w->Ccabrila_Click();
    EXPECT_FALSE(w->lastWriteOk);
    EXPECT_EQ(o("lblstatus"), QString::fromUtf8("Не удалось записать файл: ") + out.path() +
                                  QString::fromUtf8("/UA3ABC (на месте файла папка)"));
    EXPECT_TRUE(ui.takeShown().isEmpty()); // no message box
    w->cmbreport_Click();                  // the other names are free
    EXPECT_TRUE(w->lastWriteOk);
    w->txtput->setText("nosuchfolder");
    w->cmbtit_Click();
    EXPECT_EQ(o("lblstatus"), "Не удалось записать файл: nosuchfolder/UA3ABC.SUM (папки нет)");
    EXPECT_EQ(db.contest.count("SELECT * FROM tbllog"), 1);
}

TEST_F(OtchetTest, APortableCallNamesFilesInTheChosenFolder) {
    addRow("DL1ABC", "14", "cqww", "DL", "14", "3");
    db.contest.run("UPDATE tbltit SET ccall = 'UA3ABC/P'");
    QTemporaryDir out;
    OtchetForm* w = open();
    w->txtput->setText(out.path());
    w->cmbreport_Click();
    EXPECT_TRUE(QFile::exists(out.path() + "/UA3ABC_P.LOG"));
    // a call no file name can hold: the name is cut, the extension stays
    w->tcall->setText(QString(200, QChar(u'Ж')));
    w->cmbreport_Click();
    EXPECT_TRUE(w->lastWriteOk) << o("lblstatus").toStdString();
    const QString name = QFileInfo(w->lastWritePath).fileName();
    EXPECT_TRUE(name.endsWith(QString(10, QChar(u'Ж')) + ".LOG"));
    EXPECT_LE(name.toUtf8().size(), 255);
}

} // namespace

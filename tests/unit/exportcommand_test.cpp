// `hfcontest export`: the same files as the report window's buttons, and clear refusals.
#include "exportcommand.h"
#include "formfixture.h"
#include "forms/otchet/otchetform.h"
#include "testfiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace hfc;
using hfc::test::FormFixture;
using hfc::test::readFile;

namespace {

struct ExportTest : FormFixture {
    QString outText, errText;

    int run(const QStringList& args) {
        outText.clear(), errText.clear();
        QTextStream out(&outText), err(&errText);
        const int rc = runExportCommand(args, out, err);
        out.flush(), err.flush();
        return rc;
    }
    void fillLog() {
        addRow("DL1ABC", "14", "chemp", "DL", "14", "3", "12:05", "01.12.02");
        addRow("OK1XYZ", "7", "chemp", "OK", "", "2", "23:10", "30.11.02");
        db.contest.run("UPDATE tbltit SET ccall = 'UA3ABC', nname = 'Иван', contest = 'Чемпионат'");
    }
};

TEST_F(ExportTest, WritesWhatTheWindowsButtonWrites) {
    fillLog();
    QTemporaryDir byWindow, byCommand;
    form->contestcode = "chemp";
    form->LBLCONTEST->setText("Чемпионат России");
    form->cmbotchet_Click();
    auto* w = static_cast<OtchetForm*>(form->subForm("otchet"));
    w->txtput->setText(byWindow.path());

    struct Case {
        const char* kind;
        void (OtchetForm::*button)();
        const char* file;
    };
    const Case cases[] = {{"log", &OtchetForm::cmbreport_Click, "UA3ABC.LOG"},
                          {"sum", &OtchetForm::cmbtit_Click, "UA3ABC.SUM"},
                          {"cabrillo", &OtchetForm::Ccabrila_Click, "UA3ABC"},
                          {"adif", &OtchetForm::cmbAdif_Click, "UA3ABC"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.kind);
        (w->*c.button)();
        ASSERT_EQ(
            run({"--data-dir", dir.path(), "--to", byCommand.path(), "--contest", "chemp", c.kind}),
            0)
            << errText.toStdString();
        const QString written = byCommand.path() + "/" + c.file;
        EXPECT_EQ(outText, QString::fromUtf8("Файл записан: ") + written + "\n");
        EXPECT_EQ(readFile(written), readFile(byWindow.path() + "/" + c.file));
    }
    // Without --contest the code is that of the title the station data keeps; it decides the
    // heading of the listing.
    const QString listing = byCommand.path() + "/UA3ABC.LOG";
    ASSERT_EQ(run({"export", "log", "--data-dir", dir.path(), "--to", byCommand.path()}), 0);
    EXPECT_EQ(readFile(listing), readFile(byWindow.path() + "/UA3ABC.LOG"));
    db.contest.run("UPDATE tbltit SET contest = 'Чемпионат'");
    ASSERT_EQ(run({"export", "log", "--data-dir", dir.path(), "--to", byCommand.path()}), 0);
    EXPECT_TRUE(readFile(listing).startsWith("   DATE    UTC  MHZ  CALL         RST SEND"));
}

TEST_F(ExportTest, RefusesWithARussianMessageAndAnExitCode) {
    fillLog();
    QTemporaryDir out;
    EXPECT_EQ(run({"--data-dir", dir.path(), "--to", out.path(), "pdf"}), 2);
    EXPECT_TRUE(hfc::test::holds(errText, {"^Неизвестный вид отчёта: pdf.", "hfcontest export"}));
    EXPECT_EQ(run({"--data-dir", dir.path(), "log"}), 2);
    EXPECT_TRUE(errText.startsWith(QString::fromUtf8("Не указана папка")));
    EXPECT_EQ(run({"--data-dir", dir.path(), "--to", out.path(), "--verbose", "log"}), 2);

    EXPECT_EQ(run({"--data-dir", dir.path(), "--to", out.path() + "/nowhere", "log"}), 1);
    EXPECT_EQ(errText, QString::fromUtf8("Папка «%1/nowhere» не найдена.\n").arg(out.path()));

    // A data folder without a log is not created on the way.
    const QString empty = out.path() + "/nodata";
    EXPECT_EQ(run({"--data-dir", empty, "--to", out.path(), "log"}), 1);
    EXPECT_TRUE(errText.startsWith(QString::fromUtf8("Журнал не найден")));
    EXPECT_FALSE(QFileInfo::exists(empty));

    QDir(out.path()).mkdir("UA3ABC.SUM"); // the file's place is taken
    EXPECT_EQ(run({"--data-dir", dir.path(), "--to", out.path(), "sum"}), 1);
    EXPECT_EQ(errText,
              QString::fromUtf8("Не удалось записать файл: %1/UA3ABC.SUM (на месте файла папка)\n")
                  .arg(out.path()));
    EXPECT_TRUE(outText.isEmpty());

    db.contest.run("UPDATE tbltit SET ccall = ''");
    EXPECT_EQ(run({"--data-dir", dir.path(), "--to", out.path(), "log"}), 1);
    EXPECT_TRUE(errText.startsWith(QString::fromUtf8("Не указан свой позывной")));
    EXPECT_EQ(db.contest.count("SELECT * FROM tbllog"), 2);
}

} // namespace

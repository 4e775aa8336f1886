// Restoring the log from a backup, from the "Сервис" menu and from `hfcontest restore`: the
// backup is checked, the current log saved first, and a -wal left by a crash is not replayed
// onto the restored log.
#include "data/backup.h"
#include "data/restore.h"
#include "datafolder.h"
#include "formfixture.h"
#include "testfiles.h"

#include <QDir>

using namespace hfc;
using namespace hfc::test;

namespace {

void logCalls(Db& log, const QStringList& calls) {
    for (const QString& c : calls)
        log.run("INSERT INTO tbllog (ccall, bband, ps2) VALUES (?1, '14', 'cqww')", {c});
}

QStringList calls(Db& log) {
    return log.column("SELECT ccall FROM tbllog ORDER BY rowid");
}

// A data folder whose log holds these calls, and a backup of it in backupFolder.
QString logWithBackup(const QString& data, const QString& backupFolder, const QStringList& rows) {
    OpenedData db(data);
    logCalls(db.contest, rows);
    QString error;
    const QString backup =
        backupDatabase(db.contest, backupFolder, "dbcontest", QDateTime::currentDateTime(), error);
    EXPECT_FALSE(backup.isEmpty()) << error.toStdString();
    return backup;
}

int restore(const QStringList& args, QString& out, QString& err) {
    out.clear(), err.clear();
    QTextStream so(&out), se(&err);
    const int code = runRestoreCommand(args, so, se);
    so.flush(), se.flush();
    return code;
}

} // namespace

struct RestoreTest : FormFixture {
    QtApp qt; // the shared log's link runs its timers and threads on an event loop
    void TearDown() override { form.reset(); } // the window goes while the loop is there
    QString backupFolder() const { return dir.path() + "/backup"; }
    QString backupOf(const QStringList& rows) {
        logCalls(db.contest, rows);
        QString error;
        const QString path =
            backupDatabase(db.contest, backupFolder(), "dbcontest", clock.localNow(), error);
        EXPECT_FALSE(path.isEmpty()) << error.toStdString();
        clock.advance(1);
        return path;
    }
};

TEST_F(RestoreTest, TheMenuPutsTheBackupInPlaceAndSavesTheLogFirst) {
    const QString backup = backupOf({"DL1AA", "DL2BB"});
    logCalls(db.contest, {"F5CC"});
    form->contestcode = "cqww";
    ui.queueFile(backup);
    ui.queueAnswer(Ui::Answer::Yes);
    ui.queueAnswer(Ui::Answer::Ok);
    form->call("mnurestore_Click", {});
    const QStringList shown = ui.takeShown();
    ASSERT_EQ(shown.size(), 3) << shown.join('\n').toStdString();
    EXPECT_TRUE(holds(shown[2], {"Журнал восстановлен из копии", "Прежний журнал сохранён"}));
    EXPECT_EQ(calls(db.contest), QStringList({"DL1AA", "DL2BB"}));
    EXPECT_EQ(db.contest.scalar("PRAGMA journal_mode"), "wal");
    // (what the saved copy holds: TheBackupWinsOverAStaleWalLeftByACrash)
    EXPECT_EQ(form->DBGrid3->rowCount(), 2u) << "the window counts the restored log";
}

// The README's old advice (copy the backup over the log) let SQLite replay a crash's -wal onto
// the backup; the restore command removes it first.
TEST(RestoreCommand, TheBackupWinsOverAStaleWalLeftByACrash) {
    QTemporaryDir dir;
    const QString data = dir.path() + "/data";
    const QString backup = logWithBackup(data, dir.path(), {"DL1AA", "DL2BB"});
    crashWhileLogging(data, "tbllog", 2);

    QString out, err;
    EXPECT_EQ(restore({"--data-dir", data, backup}, out, err), 0) << err.toStdString();
    EXPECT_TRUE(holds(out, {"^Журнал восстановлен из копии «" + backup}));
    OpenedData db(data);
    EXPECT_EQ(calls(db.contest), QStringList({"DL1AA", "DL2BB"}));
    // what the crash had logged is in the copy saved before the restore
    const QStringList saved = QDir(data + "/backup").entryList({"*.sqlite"}, QDir::Files);
    ASSERT_EQ(saved.size(), 1);
    Db before;
    before.open(data + "/backup/" + saved[0], false);
    EXPECT_EQ(calls(before), QStringList({"DL1AA", "DL2BB", "DL0", "DL1"}));
}

TEST(RestoreCommand, RefusesWhatItCannotUseAndChangesNothing) {
    QTemporaryDir dir;
    const QString data = dir.path() + "/data";
    const QString backup = logWithBackup(data, dir.path(), {"DL1AA"});
    const QByteArray log = readFile(data + "/dbcontest.sqlite");
    QString out, err;
    // a damaged backup
    const QString damaged = dir.path() + "/damaged.sqlite";
    QByteArray bytes = readFile(backup);
    bytes.replace(4096, 4096, QByteArray(4096, '\x5a'));
    writeFile(damaged, bytes);
    EXPECT_EQ(restore({"--data-dir", data, damaged}, out, err), 1);
    EXPECT_TRUE(holds(err, {"damaged.sqlite", "повреждён"}));

    // the logger running on the folder
    {
        OpenedData running(data);
        EXPECT_EQ(restore({"--data-dir", data, backup}, out, err), 1);
        EXPECT_TRUE(holds(err, {"используется другой"}));
    }
    EXPECT_EQ(readFile(data + "/dbcontest.sqlite"), log);
    EXPECT_FALSE(QDir(data + "/backup").exists());
    EXPECT_EQ(QDir(data).entryList({"*.restore*"}, QDir::Files), QStringList());
}

// Bad files and folders: empty, foreign and read-only databases, a read-only data folder, an
// unwritable report folder. Each is refused or reported in Russian, and
// no database is overwritten or emptied. Damage inside a database is in the disk-fault tests.
#include "datafolder.h"
#include "forms/otchet/otchetform.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace hfc;
using namespace hfc::test;

namespace {

const char* const kFiles[] = {"dbcontest.sqlite", "dbdxcc1.sqlite", "dbrusdx.sqlite",
                              "dbhelp.sqlite", "dbiaru.sqlite"};

QByteArray digest(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return "<missing>";
    return QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha1).toHex();
}

// Runs fn in a child process that has no root's licence to write anywhere, so that file modes
// count even when the tests run as root. Returns the text fn produced, or a note of how the
// child ended.
QString unprivileged(const std::function<QString()>& fn) {
    int fds[2];
    if (pipe(fds) != 0) return "<pipe>";
    const pid_t pid = fork();
    if (pid == 0) {
        close(fds[0]);
        if (geteuid() == 0 &&
            (setgroups(0, nullptr) != 0 || setgid(65534) != 0 || setuid(65534) != 0))
            _exit(3);
        const QByteArray out = fn().toUtf8();
        const bool ok = write(fds[1], out.constData(), size_t(out.size())) == out.size();
        _exit(ok ? 0 : 4);
    }
    close(fds[1]);
    QByteArray got;
    char buf[4096];
    for (ssize_t n; (n = read(fds[0], buf, sizeof buf)) > 0;) got.append(buf, n);
    close(fds[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return QString("<child failed %1>").arg(status);
    return QString::fromUtf8(got);
}

struct BadFilesTest : ::testing::Test {
    QTemporaryDir dir;
    QString data;

    void SetUp() override {
        data = dir.path() + "/data";
        // A folder with a log of 2000 QSOs, as the program leaves it.
        OpenedData db(data);
        db.contest.begin();
        for (int i = 0; i < 2000; ++i)
            db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, mult) VALUES (?1, '14', "
                           "'cqww', 'UA')",
                           {QString("UA3A%1").arg(i)});
        db.contest.commit();
        db.contest.exec("PRAGMA wal_checkpoint(TRUNCATE)");
    }
    // Write rights back everywhere, so that the folder can be removed by a user who is not root.
    void TearDown() override {
        chmod(QFile::encodeName(dir.path()).constData(), 0755);
        QDirIterator it(dir.path(), QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString p = it.next();
            chmod(QFile::encodeName(p).constData(), it.fileInfo().isDir() ? 0755 : 0644);
        }
    }
    QString path(const char* file) const { return data + '/' + file; }
    QMap<QString, QByteArray> digests() const {
        QMap<QString, QByteArray> out;
        for (const char* f : kFiles) out.insert(f, digest(path(f)));
        return out;
    }
    // Lets another user into the folder: it may read every file, and write where writable.
    void shareFolder(mode_t folderMode, mode_t fileMode) {
        chmod(QFile::encodeName(dir.path()).constData(), 0755);
        for (const char* f : kFiles) chmod(QFile::encodeName(path(f)).constData(), fileMode);
        chmod(QFile::encodeName(data).constData(), folderMode);
    }
};

} // namespace

TEST_F(BadFilesTest, EmptyAndForeignFilesAreRefusedAndNothingIsCreatedBeside) {
    for (const char* file : kFiles) {
        QTemporaryDir other;
        QFile(other.path() + '/' + file).open(QIODevice::WriteOnly); // 0 bytes
        EXPECT_TRUE(refusedAsIs(other.path(), {file, "файл пуст"}));
        EXPECT_EQ(QDir(other.path()).entryList(QDir::Files), QStringList{file});
    }
    // a database of another program under the log's name
    QFile::remove(path("dbcontest.sqlite"));
    {
        Db foreign;
        foreign.open(path("dbcontest.sqlite"), true);
        foreign.exec("CREATE TABLE tbllog (ccall TEXT, notes TEXT)");
        foreign.exec("INSERT INTO tbllog VALUES ('X', 'y')");
    }
    EXPECT_TRUE(refusedAsIs(data, {"dbcontest.sqlite", "нет поля"}));
}

TEST_F(BadFilesTest, ReadOnlyLogOrDataFolderIsRefusedAtStart) {
    shareFolder(0777, 0666);
    chmod(QFile::encodeName(path("dbcontest.sqlite")).constData(), 0444);
    const auto before = digests();
    EXPECT_TRUE(holds(unprivileged([this] { return openError(data); }),
                      {"dbcontest.sqlite", "только для чтения"}));
    shareFolder(0555, 0666);
    EXPECT_TRUE(holds(unprivileged([this] { return openError(data); }),
                      {"^Нет права записи в папку данных", data}));
    EXPECT_EQ(digests(), before);
}

TEST_F(BadFilesTest, ReportIntoAFolderWithoutWriteRightsFailsQuietlyAndKeepsTheOldFile) {
    const QString out = dir.path() + "/out";
    QDir().mkpath(out);
    writeFile(out + "/UA3ABC.LOG", "earlier report\n");
    OpenedData(data).contest.run("UPDATE tbltit SET ccall = 'UA3ABC'");
    shareFolder(0777, 0666);
    chmod(QFile::encodeName(out).constData(), 0555);
    chmod(QFile::encodeName(out + "/UA3ABC.LOG").constData(), 0444);
    const QString result = unprivileged([&] {
        Databases db;
        QString error;
        if (!db.open(data, error)) return "not opened: " + error;
        HeadlessWindow win(db);
        win.form->cmbotchet_Click();
        auto* w = static_cast<OtchetForm*>(win.form->subForm("otchet"));
        w->txtput->setText(out);
        w->cmbreport_Click();
        return QString("%1|%2|%3")
            .arg(w->lastWriteOk)
            .arg(w->lblstatus->text())
            .arg(win.ui.takeShown().filter("msgbox").size());
    });
    // (the command line's exit code and message for a refused write: ExportTest)
    EXPECT_EQ(result,
              QString("0|Не удалось записать файл: %1/UA3ABC.LOG (нет прав на запись)|0").arg(out));
    EXPECT_EQ(readFile(out + "/UA3ABC.LOG"), "earlier report\n");
    EXPECT_EQ(OpenedData(data).contest.count("SELECT * FROM tbllog"), 2000);
}

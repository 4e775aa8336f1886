// Faults of the disk and the folder: a full disk under a report and under the log; a database
// path that is a link; a damaged log with a crash's -wal. Full disks are small tmpfs mounts, which
// only root may make.
#include "datafolder.h"
#include "forms/otchet/otchetform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace hfc;
using namespace hfc::test;

namespace {

// A small tmpfs at a temporary folder, unmounted at the end.
struct SmallDisk {
    QTemporaryDir dir;
    bool mounted = false;
    explicit SmallDisk(const char* size) {
        const QByteArray options = QByteArray("size=") + size;
        mounted = geteuid() == 0 && ::mount("tmpfs", QFile::encodeName(dir.path()).constData(),
                                            "tmpfs", 0, options.constData()) == 0;
    }
    ~SmallDisk() {
        if (mounted) ::umount2(QFile::encodeName(dir.path()).constData(), MNT_DETACH);
    }
    QString path() const { return dir.path(); }
    // Takes every free byte with one file.
    void fill() const {
        QFile f(dir.path() + "/filler");
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        const int fd = f.handle();
        for (size_t chunk = 1 << 16; chunk > 0; chunk /= 2) {
            const QByteArray bytes(qsizetype(chunk), 'x');
            while (::write(fd, bytes.constData(), chunk) == ssize_t(chunk)) {
            }
        }
    }
};

#define SMALL_DISK_OR_SKIP(disk)                                                                   \
    if (!(disk).mounted) GTEST_SKIP() << "mounting a small tmpfs needs root"

// A log of n QSOs (band 14, cqww, calls UA3A0 …) in folder, closed cleanly.
void makeLog(const QString& folder, int n) {
    OpenedData db(folder);
    db.contest.run("UPDATE tbltit SET ccall = 'UA3ABC'");
    db.contest.begin();
    for (int i = 0; i < n; ++i)
        db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, ddate, ttime) VALUES (?1, '14', "
                       "'cqww', '30.11.02', '12:00')",
                       {QString("UA3A%1").arg(i)});
    db.contest.commit();
}

} // namespace

TEST(DiskFaults, ASmallReportOnAFullDiskIsNotWrittenAndTheEarlierOneStays) {
    SmallDisk out("1m");
    SMALL_DISK_OR_SKIP(out);
    QTemporaryDir data;
    makeLog(data.path(), 3);
    writeFile(out.path() + "/UA3ABC.SUM", "earlier summary\n");
    writeFile(out.path() + "/UA3ABC", "earlier cabrillo\n");
    out.fill();

    OpenedData db(data.path());
    HeadlessWindow w(db);
    w.form->cmbotchet_Click();
    auto* otchet = static_cast<OtchetForm*>(w.form->subForm("otchet"));
    otchet->txtput->setText(out.path());
    otchet->cmbtit_Click();
    EXPECT_FALSE(otchet->lastWriteOk);
    EXPECT_EQ(otchet->lblstatus->text(),
              "Не удалось записать файл: " + out.path() + "/UA3ABC.SUM (на диске нет места)");
    otchet->Ccabrila_Click();
    EXPECT_FALSE(otchet->lastWriteOk);
    EXPECT_EQ(readFile(out.path() + "/UA3ABC.SUM"), "earlier summary\n");
    EXPECT_EQ(readFile(out.path() + "/UA3ABC"), "earlier cabrillo\n");
    EXPECT_EQ(QDir(out.path()).entryList(QDir::Files).size(), 3) << "no half-written copy beside";
}

TEST(DiskFaults, AQsoRefusedByAFullDiskStaysInTheEntryLine) {
    SmallDisk disk("8m");
    SMALL_DISK_OR_SKIP(disk);
    const QString data = disk.path() + "/data";
    makeLog(data, 0);
    OpenedData db(data);
    HeadlessWindow w(db);
    w.form->cmbband_Click(3);
    disk.fill();
    int logged = 0;
    w.ui.takeShown();
    // the WAL takes a few more pages before the disk says no
    for (int i = 0; i < 2000; ++i) {
        w.ui.queueAnswer(Ui::Answer::Ok);
        w.form->txtcall->setText(QString("DL%1ABC").arg(i));
        w.form->txtrstr->setText("14");
        w.form->cmbAdd_Click();
        if (!w.ui.takeShown().isEmpty()) break;
        ++logged;
    }
    EXPECT_EQ(w.form->qsorun, logged);
    EXPECT_FALSE(w.form->txtcall->text().isEmpty()) << "the disk never filled";
    EXPECT_EQ(w.form->txtrstr->text(), "14");
    QFile::remove(disk.path() + "/filler");
    w.form->cmbAdd_Click();
    EXPECT_EQ(db.contest.count("SELECT * FROM tbllog"), logged + 1);
}

TEST(DiskFaults, ADatabasePathThatIsALinkIsFollowedOrTheStartStops) {
    QTemporaryDir dir;
    const QString data = dir.path() + "/data", stick = dir.path() + "/stick";
    makeLog(data, 5);
    QDir().mkpath(stick);
    // the log and the station log kept elsewhere, behind links
    for (const char* f : {"dbcontest.sqlite", "dbiaru.sqlite"}) {
        ASSERT_TRUE(QFile::rename(data + '/' + f, stick + '/' + f));
        ASSERT_TRUE(QFile::link(stick + '/' + f, data + '/' + f));
    }
    {
        OpenedData db(data);
        EXPECT_EQ(db.contest.count("SELECT * FROM tbllog"), 5);
        db.contest.run("INSERT INTO tbllog (ccall) VALUES ('DL1ABC')");
    }
    EXPECT_TRUE(QFileInfo(data + "/dbcontest.sqlite").isSymLink());
    EXPECT_FALSE(QFileInfo::exists(data + "/dbcontest.sqlite-wal"));

    // the stick pulled out: the start is refused, naming the link and its target, and nothing
    // is created at either end
    QDir(stick).removeRecursively();
    const QString f = "dbcontest.sqlite";
    QTemporaryDir other;
    ASSERT_TRUE(QFile::link(stick + '/' + f, other.path() + '/' + f));
    EXPECT_TRUE(holds(openError(other.path()),
                      {other.path() + '/' + f, stick + '/' + f, "такого файла нет"}));
    EXPECT_EQ(QFileInfo(other.path() + '/' + f).symLinkTarget(), stick + '/' + f);
    EXPECT_FALSE(QFileInfo::exists(stick));
}

TEST(DiskFaults, ADamagedLogWithACrashsWalIsLeftExactlyAsItWas) {
    QTemporaryDir dir;
    const QString data = dir.path() + "/data", log = data + "/dbcontest.sqlite";
    makeLog(data, 2000);
    crashWhileLogging(data, "tbllogTemp", 50);
    overwrite(log, 8 * 4096, QByteArray(4096, '\x5a'));
    ASSERT_TRUE(QFile::exists(log + "-wal") && QFile::exists(log + "-shm"));
    EXPECT_TRUE(refusedAsIs(data, {"dbcontest.sqlite", "повреждён"}));
}

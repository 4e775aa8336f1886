#pragma once
// Data folders in the file-fault tests: opening one as the program does, its files' bytes, a
// crash left behind by a child process, and a headless window over an opened folder.
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "script/scriptedui.h"
#include "testfiles.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sys/wait.h>
#include <unistd.h>

namespace hfc::test {

// The folder opened as at start-up; the test fails where it cannot be.
struct OpenedData : Databases {
    explicit OpenedData(const QString& folder) {
        QString error;
        EXPECT_TRUE(open(folder, error)) << error.toStdString();
    }
};

// Start-up on the folder: "" when it opened, else its message.
inline QString openError(const QString& folder) {
    Databases db;
    QString error;
    return db.open(folder, error) ? QString() : error;
}

// Every file of a folder with its bytes (the -wal and -shm a crash leaves included).
inline QMap<QString, QByteArray> folderBytes(const QString& folder) {
    QMap<QString, QByteArray> out;
    for (const QString& f : QDir(folder).entryList(QDir::Files | QDir::Hidden))
        out.insert(f, readFile(folder + '/' + f));
    return out;
}

// Start-up refuses the folder with a message holding every one of parts and leaves its files
// byte for byte as they were.
inline ::testing::AssertionResult refusedAsIs(const QString& folder, const QStringList& parts) {
    const auto before = folderBytes(folder);
    if (auto said = holds(openError(folder), parts); !said) return said;
    if (folderBytes(folder) != before)
        return ::testing::AssertionFailure() << "files changed in " << folder.toStdString();
    return ::testing::AssertionSuccess();
}

inline void overwrite(const QString& path, qint64 at, const QByteArray& bytes) {
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    ASSERT_TRUE(f.seek(at));
    f.write(bytes);
}

// Runs fn in a child that ends without closing anything, as a crash would (what fn opens it
// leaves open: no destructor may tidy up); true when fn returned true.
inline bool crashAfter(const std::function<bool()>& fn) {
    const pid_t pid = fork();
    if (pid == 0) _exit(fn() ? 0 : 3);
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// What a crash in the middle of logging leaves: rows in the -wal, not folded into the file.
inline void crashWhileLogging(const QString& folder, const char* table, int rows) {
    ASSERT_TRUE(crashAfter([&] {
        auto& db = *new Databases; // never closed
        QString error;
        if (!db.open(folder, error)) return false;
        db.contest.exec("PRAGMA wal_autocheckpoint=0");
        for (int i = 0; i < rows; ++i)
            db.contest.run(QString("INSERT INTO %1 (ccall, ps2) VALUES (?1, 'cqww')").arg(table),
                           {QString("DL%1").arg(i)});
        return true;
    }));
    ASSERT_GT(QFileInfo(folder + "/dbcontest.sqlite-wal").size(), 0);
}

// The main window over an opened folder, with scripted dialogs and a fixed clock.
struct HeadlessWindow {
    ScriptedUi ui;
    FixedClock clock;
    std::unique_ptr<ContestForm> form;
    explicit HeadlessWindow(Databases& db) {
        form = std::make_unique<ContestForm>(Env{&db, &ui, &clock, nullptr});
        form->Form_Load();
    }
};

} // namespace hfc::test

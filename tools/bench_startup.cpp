// Start-up cost: opening the data folder the first time (creating and seeding the databases) and
// later times (also with a long log), and building the main window model. Prints milliseconds;
// asserts nothing.
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "script/scriptedui.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int runs = 5;
    double first = 0, later = 0, model = 0;
    for (int r = 0; r < runs; ++r) {
        QTemporaryDir fresh;
        QElapsedTimer t;
        t.start();
        {
            hfc::Databases db;
            QString err;
            db.open(fresh.path(), err);
        }
        first += t.nsecsElapsed() / 1e6;
        t.restart();
        hfc::Databases db;
        QString err;
        db.open(fresh.path(), err);
        later += t.nsecsElapsed() / 1e6;
        t.restart();
        hfc::ScriptedUi ui;
        hfc::SystemClock clock;
        hfc::Env env{&db, &ui, &clock, nullptr};
        hfc::ContestForm form(env);
        form.Form_Load();
        model += t.nsecsElapsed() / 1e6;
    }
    std::printf("first start (create + seed 5 databases): %.1f ms\n", first / runs);
    std::printf("later start (open 5 databases):         %.1f ms\n", later / runs);
    std::printf("main window model + Form_Load:           %.1f ms\n", model / runs);

    // A start reads every page of the files once (quick_check), so it grows with the log; a start
    // after the log changed (a session that logged) also compares every index with its table.
    for (int qsos : {10000, 100000}) {
        QTemporaryDir folder;
        {
            hfc::Databases db;
            QString err;
            db.open(folder.path(), err);
            db.contest.begin();
            for (int i = 0; i < qsos; ++i)
                db.contest.run("INSERT INTO tbllog (ccall, ddate, ttime, bband, rsts2, rstr2, "
                               "mult, ps, point, ps2) VALUES (?1, '23.11.24', '12:00', '14', ?2, "
                               "'16', ?3, '16', '3', 'cqww')",
                               {QStringLiteral("UA%1X%2").arg(i % 10).arg(i), QString::number(i),
                                QStringLiteral("P%1").arg(i % 300)});
            db.contest.commit();
        }
        double same = 0, changed = 0;
        for (int r = 0; r < runs; ++r) {
            {
                // a session that logs one QSO: the next start checks fully
                hfc::Databases db;
                QString err;
                db.open(folder.path(), err);
                db.contest.run("INSERT INTO tbllog (ccall, ps2) VALUES ('DL1ABC', 'cqww')");
            }
            for (double* ms : {&changed, &same}) {
                QElapsedTimer t;
                t.start();
                hfc::Databases db;
                QString err;
                if (!db.open(folder.path(), err)) std::printf("%s\n", qPrintable(err));
                *ms += t.nsecsElapsed() / 1e6;
            }
        }
        std::printf("later start, log of %6d QSOs, changed:   %.1f ms\n", qsos, changed / runs);
        std::printf("later start, log of %6d QSOs, unchanged: %.1f ms\n", qsos, same / runs);
    }
    return 0;
}

#pragma once
// A headless main window on a fresh data folder, with scripted dialogs and a fixed clock.
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "script/scriptedui.h"
#include "testfiles.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

namespace hfc::test {

// The event loop that the keyer's notices and the sockets need. A fixture holds it before its
// window, and lets the window go first in TearDown.
struct QtApp {
    int argc = 1;
    char arg0[8] = "test";
    char* argv[1] = {arg0};
    std::unique_ptr<QCoreApplication> app;
    QtApp() {
        if (!QCoreApplication::instance()) app = std::make_unique<QCoreApplication>(argc, argv);
    }
};

struct FormFixture : ::testing::Test {
    QTemporaryDir dir;
    Databases db;
    ScriptedUi ui;
    FixedClock clock;
    std::unique_ptr<ContestForm> form;

    void SetUp() override {
        QString error;
        ASSERT_TRUE(db.open(dir.path(), error)) << error.toStdString();
        clock.set(QDateTime(QDate(2002, 11, 30), QTime(15, 5)),
                  QDateTime(QDate(2002, 11, 30), QTime(12, 5)));
        Env env;
        env.db = &db;
        env.ui = &ui;
        env.clock = &clock;
        form = std::make_unique<ContestForm>(env);
        form->Form_Load();
    }

    // Adds a log row; fields not given stay empty.
    void addRow(const QString& call, const QString& band, const QString& contest,
                const QString& mult = {}, const QString& ps = {}, const QString& point = {},
                const QString& ttime = "12:00", const QString& ddate = "30.11.02") {
        db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, mult, ps, point, ttime, ddate) "
                       "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)",
                       {call, band, contest, mult, ps, point, ttime, ddate});
    }
    QString text(const QString& control) { return form->control(control)->text(); }
    // Several controls' texts joined by "|": a line of boxes checked at once.
    QString texts(const QStringList& controls) {
        QStringList out;
        for (const QString& c : controls) out << text(c);
        return out.join('|');
    }
};

} // namespace hfc::test

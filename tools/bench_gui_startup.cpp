// Start-up to the window shown: the Qt application, the data folder (first start seeds it),
// the main window model and its view, until the first frame has been laid out and painted.
// Runs offscreen unless a display is asked for. Prints milliseconds; asserts nothing.
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "mainwindow.h"
#include "script/scriptedui.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <cstdio>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QElapsedTimer total;
    total.start();
    QApplication app(argc, argv);
    const double appMs = total.nsecsElapsed() / 1e6;
    QTemporaryDir dir;
    for (const char* label : {"first start (seeding)", "later start"}) {
        QElapsedTimer t;
        t.start();
        hfc::Databases db;
        QString err;
        db.open(dir.path(), err);
        hfc::ScriptedUi ui;
        hfc::SystemClock clock;
        hfc::Env env{&db, &ui, &clock, nullptr};
        hfc::ContestForm form(env);
        form.Form_Load();
        hfc::MainWindow win(&form);
        win.show();
        QApplication::processEvents();
        win.grab(); // the first frame really drawn
        std::printf("%-22s data + model + window shown: %.1f ms\n", label, t.nsecsElapsed() / 1e6);
    }
    std::printf("QApplication construction:                   %.1f ms\n", appMs);
    return 0;
}

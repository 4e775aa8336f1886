#pragma once
// The main window over a fresh data folder, shown offscreen and active: keys sent to its focused
// box reach the model as the operator's would.
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "mainwindow.h"
#include "script/scriptedui.h"
#include "station/settings.h"

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

struct Window {
    QTemporaryDir dir;
    hfc::Databases db;
    hfc::ScriptedUi ui;
    hfc::FixedClock clock;
    std::unique_ptr<hfc::ContestForm> form;
    std::unique_ptr<hfc::MainWindow> win;
    // settings: the station's (a broker, a rig), or none.
    explicit Window(hfc::StationSettings* settings = nullptr) {
        QString error;
        EXPECT_TRUE(db.open(dir.path(), error));
        hfc::Env env;
        env.db = &db;
        env.ui = &ui;
        env.clock = &clock;
        env.settings = settings;
        form = std::make_unique<hfc::ContestForm>(env);
        form->Form_Load();
        win = std::make_unique<hfc::MainWindow>(form.get());
        win->show();
        QApplication::setActiveWindow(win.get()); // keys go to the focused box of the active window
    }
    // The call box on 14 MHz with the keyboard, in the view and in the model.
    QLineEdit* callBox() {
        form->cmbband_Click(3);
        auto* call = win->findChild<QLineEdit*>("txtcall");
        QApplication::setActiveWindow(win.get());
        call->setFocus();
        form->setFocus("txtcall");
        return call;
    }
};

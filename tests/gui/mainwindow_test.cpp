// The Qt main window offscreen: menu captions in order, and real key events reaching the model.
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "mainwindow.h"
#include "script/scriptedui.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace hfc;

namespace {
struct Window {
    QTemporaryDir dir;
    Databases db;
    ScriptedUi ui;
    FixedClock clock;
    std::unique_ptr<ContestForm> form;
    std::unique_ptr<MainWindow> win;
    Window() {
        QString error;
        EXPECT_TRUE(db.open(dir.path(), error));
        Env env;
        env.db = &db;
        env.ui = &ui;
        env.clock = &clock;
        form = std::make_unique<ContestForm>(env);
        form->Form_Load();
        win = std::make_unique<MainWindow>(form.get());
        win->show();
    }
};
} // namespace

TEST(MainWindowGui, MenuBarHasTheCaptionsInOrder) {
    Window w;
    QStringList captions;
    for (QAction* a : w.win->menuBar()->actions()) captions << a->text();
    EXPECT_EQ(captions, QStringList({"Соревнования", "Результаты", "Отчет", "В журнал", "DXCC",
                                     "Сервис", "Выход"}));
}

TEST(MainWindowGui, ContestMenuHoldsTheContestsInMenuOrder) {
    Window w;
    QMenu* contests = w.win->menuBar()->actions().at(0)->menu();
    ASSERT_NE(contests, nullptr);
    QStringList first, more;
    for (QAction* a : contests->actions()) {
        if (a->menu()) {
            EXPECT_EQ(a->text(), "Далее");
            for (QAction* b : a->menu()->actions()) more << b->text();
        } else {
            first << a->text();
        }
    }
    ASSERT_EQ(first.size(), 33);
    EXPECT_EQ(first.front(), "Чемпионат");
    EXPECT_EQ(first.mid(1, 4), QStringList({"AA DX", "AGCW", "ARI", "ARRL-10m"}));
    EXPECT_EQ(first.back(), "TOPS");
    EXPECT_EQ(more, QStringList({"UBA", "IOTA", "Ukraina DX", "WAE", "WAG", "WPX", "WWG", "VK/ZL",
                                 "YO DX", "YU DX"}));
}

TEST(MainWindowGui, KeysTypedIntoTheOwnCallBoxReachTheModel) {
    Window w;
    auto* own = w.win->findChild<QLineEdit*>("TXTNCALL");
    ASSERT_NE(own, nullptr);
    w.form->TXTNCALL->setText("");
    own->setFocus();
    w.form->setFocus("TXTNCALL");
    QTest::keyClicks(own, "ua3abc");
    EXPECT_EQ(w.form->TXTNCALL->text(), "UA3ABC");
    EXPECT_EQ(own->text(), "UA3ABC");
}

TEST(MainWindowGui, CalendarTreeShowsMonthsWithTheirLinesAndClicksReachTheModel) {
    Window w;
    w.form->mnupol_Click();
    QTreeWidget* tree = nullptr;
    for (QTreeWidget* t : w.win->findChildren<QTreeWidget*>("tvwDb")) tree = t;
    ASSERT_NE(tree, nullptr);
    ASSERT_EQ(tree->topLevelItemCount(), 12);
    QTreeWidgetItem* feb = tree->topLevelItem(1);
    EXPECT_EQ(feb->text(0), "Февраль");
    EXPECT_EQ(feb->childCount(), 7);
    EXPECT_FALSE(feb->icon(0).isNull());
    feb->setExpanded(true); // the operator opens the month
    auto* help = w.form->subForm("frmhelp");
    EXPECT_EQ(help->control("tvwDb")->extra("images").split('|')[10], "open");
    emit tree->itemClicked(feb->child(3), 0); // CQ 160 SSB
    EXPECT_EQ(help->getVar("helpcode"), "cq160");
    EXPECT_EQ(help->getVar("helpmode"), "SSB");
}

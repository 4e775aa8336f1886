// The Qt main window offscreen: menu captions in order, and real key events reaching the model.
#include "binder.h"
#include "forms/contest/contestform.h"
#include "mainwindow.h"
#include "windowfixture.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSet>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace hfc;

TEST(MainWindowGui, MenuBarHasTheCaptionsInOrder) {
    Window w;
    QStringList captions;
    QStringList mnemonics;
    for (QAction* a : w.win->menuBar()->actions()) {
        captions << QString(a->text()).remove('&');
        mnemonics << QKeySequence::mnemonic(a->text()).toString();
    }
    EXPECT_EQ(captions, QStringList({"Соревнования", "Результаты", "Отчет", "В журнал", "DXCC",
                                     "Сервис", "Выход"}));
    // every menu has its own Alt+letter
    EXPECT_EQ(mnemonics,
              QStringList({"Alt+С", "Alt+Р", "Alt+О", "Alt+В", "Alt+D", "Alt+И", "Alt+Х"}));
    EXPECT_EQ(w.form->cmbadd1->text(), "Соревнования"); // the model's caption has no mark
    EXPECT_EQ(Binder::withMnemonic("A&B", QChar(u'b')), "A&&&B");
}

TEST(MainWindowGui, F10OpensTheContestMenu) {
    Window w;
    auto* call = w.win->findChild<QLineEdit*>("txtcall");
    ASSERT_NE(call, nullptr);
    w.win->activateWindow();
    call->setFocus();
    QTest::keyClick(call, Qt::Key_F10);
    QAction* active = w.win->menuBar()->activeAction();
    ASSERT_NE(active, nullptr);
    EXPECT_EQ(QString(active->text()).remove('&'), "Соревнования");
    ASSERT_NE(active->menu(), nullptr);
    EXPECT_TRUE(active->menu()->isVisible());
    active->menu()->close();
}

TEST(MainWindowGui, ContestMenuHoldsTheContestsInMenuOrder) {
    Window w;
    QMenu* contests = w.win->menuBar()->actions().at(0)->menu();
    ASSERT_NE(contests, nullptr);
    QStringList first, more;
    QSet<QString> letters;
    for (QAction* a : contests->actions()) {
        if (a->isSeparator()) continue;
        if (a->menu()) {
            EXPECT_EQ(QString(a->text()).remove('&'), "Далее");
            for (QAction* b : a->menu()->actions()) more << QString(b->text()).remove('&');
        } else {
            first << QString(a->text()).remove('&');
            // An underlined key is never shared; more contests than letters leave some without.
            const QString key = QKeySequence::mnemonic(a->text()).toString();
            if (key.isEmpty()) continue;
            EXPECT_FALSE(letters.contains(key)) << key.toStdString();
            letters.insert(key);
        }
    }
    // The finder comes first, then the contests.
    ASSERT_EQ(first.takeFirst(), "Найти соревнование…");
    EXPECT_EQ(contests->actions().at(0)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_K));
    ASSERT_EQ(first.size(), 33);
    EXPECT_GE(letters.size(), 20);
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

TEST(MainWindowGui, TypingOverASelectedCallReplacesIt) {
    Window w;
    w.form->cmbband_Click(3);
    auto* call = w.win->findChild<QLineEdit*>("txtcall");
    w.win->activateWindow();
    call->setFocus();
    w.form->setFocus("txtcall");
    QTest::keyClicks(call, "dl1abc");
    EXPECT_EQ(w.form->txtcall->text(), "DL1ABC");
    QTest::keyClick(call, Qt::Key_A, Qt::ControlModifier); // select all
    ASSERT_TRUE(call->hasSelectedText());
    QTest::keyClicks(call, "ok1rr");
    EXPECT_EQ(w.form->txtcall->text(), "OK1RR");
    call->setSelection(2, 3); // "1RR"
    QTest::keyClick(call, Qt::Key_Backspace);
    EXPECT_EQ(w.form->txtcall->text(), "OK");
    EXPECT_EQ(call->text(), "OK");
}

TEST(MainWindowGui, ArrowsAndAClickPlaceTheCaretWhereTheNextKeyGoes) {
    Window w;
    w.form->cmbband_Click(3);
    auto* call = w.win->findChild<QLineEdit*>("txtcall");
    call->setFocus();
    w.form->setFocus("txtcall");
    QTest::keyClicks(call, "dl1xbc");
    QTest::keyClick(call, Qt::Key_Left);
    QTest::keyClick(call, Qt::Key_Left);
    EXPECT_EQ(call->cursorPosition(), 4);
    QTest::keyClick(call, Qt::Key_Backspace);
    QTest::keyClicks(call, "a");
    EXPECT_EQ(w.form->txtcall->text(), "DL1ABC");
    EXPECT_EQ(call->cursorPosition(), 4);
    QTest::mouseClick(call, Qt::LeftButton, {}, QPoint(3, call->height() / 2)); // at the start
    EXPECT_EQ(w.form->txtcall->cursor(), 0);
    QTest::keyClicks(call, "w");
    EXPECT_EQ(w.form->txtcall->text(), "WDL1ABC");
}

TEST(MainWindowGui, TabMovesTheFocusAndTheModelFollows) {
    Window w;
    w.form->cmbband_Click(3);
    auto* call = w.win->findChild<QLineEdit*>("txtcall");
    QApplication::setActiveWindow(w.win.get());
    call->setFocus();
    w.form->setFocus("txtcall");
    QTest::keyClick(call, Qt::Key_Tab);
    QWidget* now = QApplication::focusWidget();
    ASSERT_NE(now, nullptr);
    EXPECT_NE(now, call);
    EXPECT_EQ(w.form->focusName(), now->objectName());
}

TEST(MainWindowGui, AColouredControlKeepsTheLookTheViewGaveIt) {
    Window w;
    auto* title = w.win->findChild<QWidget*>("LBLCONTEST");
    ASSERT_NE(title, nullptr);
    w.form->LBLCONTEST->setBackcolor("#ff0000");
    EXPECT_TRUE(title->styleSheet().contains("font-size: 14pt"))
        << title->styleSheet().toStdString();
    EXPECT_TRUE(title->styleSheet().contains("#ff0000"));
    auto* band = w.win->findChild<QPushButton*>("cmbband(2)");
    ASSERT_NE(band, nullptr);
    const int width = band->width();
    w.form->cmbband_Click(2); // the chosen band changes colour, the row stays where it is
    EXPECT_EQ(band->width(), width);
    EXPECT_TRUE(band->styleSheet().contains(":focus"));
}

TEST(MainWindowGui, ReportWindowTabGoesFromTheTitleToTheOwnCall) {
    Window w;
    w.form->cmbotchet_Click();
    QLineEdit* tcont = nullptr;
    QLineEdit* tcall = nullptr;
    // the report window's boxes (the main window has a hidden station box of the same name)
    for (QLineEdit* e : w.win->findChildren<QLineEdit*>("tcont"))
        if (e->window() != w.win.get()) tcont = e;
    for (QLineEdit* e : w.win->findChildren<QLineEdit*>("tcall"))
        if (e->window() != w.win.get()) tcall = e;
    ASSERT_NE(tcont, nullptr);
    ASSERT_NE(tcall, nullptr);
    QApplication::setActiveWindow(tcont->window());
    EXPECT_EQ(QApplication::focusWidget(), tcont); // where the keyboard starts
    QTest::keyClick(tcont, Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), tcall);
    QTest::keyClick(tcall, Qt::Key_Shift); // Shift alone, before a capital, leaves the focus alone
    QTest::keyClicks(QApplication::focusWidget(), "UA3ABC");
    EXPECT_EQ(w.form->subForm("otchet")->control("tcall")->text(), "UA3ABC");
}

TEST(MainWindowGui, LogGridKeepsTheNewestQsoInViewAndReferenceGridsStayAtTheTop) {
    Window w;
    w.ui.queueInput(QString("16"));
    w.form->click("mnucqww");
    w.form->cmbband_Click(3);
    for (int i = 0; i < 80; ++i)
        w.db.contest.run("INSERT INTO tbllog (ccall, bband, ps2) VALUES (?1, '14', 'cqww')",
                         {QString("DL%1AA").arg(i)});
    w.form->call("refreshLogGrid", {});
    auto* log = w.win->findChild<QTableView*>("DBGrid3");
    ASSERT_NE(log, nullptr);
    QApplication::processEvents();
    EXPECT_GT(log->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(log->verticalScrollBar()->value(), log->verticalScrollBar()->maximum());

    w.form->mnudxcc_Click(); // a reference table opens at its first row, with its captions
    QTableView* table = nullptr;
    for (QTableView* t : w.win->findChildren<QTableView*>("DBGrid1"))
        if (t->window() != w.win.get()) table = t;
    ASSERT_NE(table, nullptr);
    QApplication::processEvents();
    EXPECT_EQ(table->verticalScrollBar()->value(), 0);
    for (QLabel* l : table->window()->findChildren<QLabel*>()) {
        Control* c = w.form->subForm("dxcc1")->control(l->text());
        if (c && c->kind() == Control::Kind::TextBox) {
            EXPECT_EQ(l->isVisible(), c->visible());
        }
    }
}

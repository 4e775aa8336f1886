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
#include <gtest/gtest.h>

using namespace hfc;

TEST(MainWindowGui, MenusHaveTheirOwnAltLettersAndTheContestMenuStartsWithTheFinder) {
    Window w;
    QSet<QString> mnemonics;
    for (QAction* a : w.win->menuBar()->actions())
        mnemonics << QKeySequence::mnemonic(a->text()).toString();
    EXPECT_EQ(mnemonics.size(), w.win->menuBar()->actions().size());
    EXPECT_FALSE(mnemonics.contains(QString()));
    EXPECT_EQ(w.form->cmbadd1->text(), "Соревнования"); // the model's caption has no mark
    EXPECT_EQ(Binder::withMnemonic("A&B", QChar(u'b')), "A&&&B");

    QMenu* contests = w.win->menuBar()->actions().at(0)->menu();
    ASSERT_NE(contests, nullptr);
    QSet<QString> letters;
    for (QAction* a : contests->actions()) {
        // more contests than letters leave some without one
        const QString key = QKeySequence::mnemonic(a->text()).toString();
        if (a->isSeparator() || a->menu() || key.isEmpty()) continue;
        EXPECT_FALSE(letters.contains(key)) << key.toStdString();
        letters.insert(key);
    }
    EXPECT_GE(letters.size(), 20);
    ASSERT_EQ(QString(contests->actions().at(0)->text()).remove('&'), "Найти соревнование…");
    EXPECT_EQ(contests->actions().at(0)->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_K));
}

TEST(MainWindowGui, ArrowsAndAClickPlaceTheCaretWhereTheNextKeyGoes) {
    Window w;
    auto* call = w.callBox();
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
    auto* call = w.callBox();
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

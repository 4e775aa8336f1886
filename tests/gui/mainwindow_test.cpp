// The Qt main window offscreen: menu letters, and real key events reaching the model.
#include "windowfixture.h"

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QSet>
#include <QTableView>
#include <QTest>

using namespace hfc;

// The menu bar's Alt letters are unique (the contest menu's may run out; a clash only costs a
// second press).
TEST(MainWindowGui, MenusHaveTheirOwnAltLettersAndTheContestMenuStartsWithTheFinder) {
    Window w;
    QSet<QString> mnemonics;
    for (QAction* a : w.win->menuBar()->actions())
        mnemonics << QKeySequence::mnemonic(a->text()).toString();
    EXPECT_EQ(mnemonics.size(), w.win->menuBar()->actions().size());
    EXPECT_FALSE(mnemonics.contains(QString()));
    QMenu* contests = w.win->menuBar()->actions().at(0)->menu();
    ASSERT_NE(contests, nullptr);
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

    w.form->mnudxcc_Click(); // a reference table opens at its first row
    QTableView* table = nullptr;
    for (QTableView* t : w.win->findChildren<QTableView*>("DBGrid1"))
        if (t->window() != w.win.get()) table = t;
    ASSERT_NE(table, nullptr);
    QApplication::processEvents();
    EXPECT_EQ(table->verticalScrollBar()->value(), 0);
}

// The Qt main window offscreen: real key events and clicks reaching the model, the log in view.
#include "windowfixture.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

using namespace hfc;

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

TEST(MainWindowGui, LogGridKeepsTheNewestQsoInView) {
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
}

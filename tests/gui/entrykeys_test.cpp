// The contester's keys on the real window, offscreen: Space, Alt+W and Ctrl+W in the call box,
// Backspace over a selection, a paste, the window at 1024x768 and the rate chart.
#include "windowfixture.h"

#include <QClipboard>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

using namespace hfc;

namespace {
QLineEdit* callBox(Window& w) {
    w.form->setVar("contestcode", "cqww");
    return w.callBox();
}
} // namespace

TEST(EntryKeysGui, BackspaceOverASelectionRunsTheLookupsSoTheRepeatGoes) {
    Window w;
    QLineEdit* call = callBox(w);
    QTest::keyClicks(call, "dl1abc");
    w.form->wwodadd(); // DL1ABC in the log on 14 MHz
    call->setFocus();
    w.form->setFocus("txtcall");
    QTest::keyClicks(call, "dl1abc");
    ASSERT_TRUE(w.form->txtrepit->visible());
    call->setSelection(3, 3); // "ABC"
    QTest::keyClick(call, Qt::Key_Backspace);
    EXPECT_EQ(call->text(), "DL1");
    EXPECT_FALSE(w.form->txtrepit->visible());
    // Typed over a selection, the call is replaced (Delete and the rest: EntryLineTest).
    QTest::keyClick(call, Qt::Key_A, Qt::ControlModifier);
    ASSERT_TRUE(call->hasSelectedText());
    QTest::keyClicks(call, "ok1rr");
    EXPECT_EQ(call->text(), "OK1RR");
}

TEST(EntryKeysGui, PasteTypesTheClipboardKeyByKey) {
    Window w;
    QLineEdit* call = callBox(w);
    QApplication::clipboard()->setText("k1zz\r\n");
    QTest::keyClick(call, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(call->text(), "K1ZZ"); // upper-cased by the filter, no Enter
    EXPECT_EQ(w.form->focusName(), "txtcall");
}

TEST(EntryKeysGui, SpaceGoesToTheExchangeAndAltWWipes) {
    Window w;
    QLineEdit* call = callBox(w);
    QTest::keyClicks(call, "k1zz");
    QTest::keyClick(call, Qt::Key_Space);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtrstr");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_W, Qt::AltModifier);
    EXPECT_EQ(w.form->txtcall->text(), "");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "txtcall");
    // The Russian layout: the same key is "Ц", with Ctrl or Alt.
    for (const Qt::KeyboardModifier mod : {Qt::ControlModifier, Qt::AltModifier}) {
        QTest::keyClicks(call, "g4abc");
        QKeyEvent tse(QEvent::KeyPress, 0x0426, mod, QStringLiteral("ц"));
        QApplication::sendEvent(call, &tse);
        EXPECT_EQ(call->text(), "") << mod;
    }
}

TEST(EntryKeysGui, TheWindowFitsA1024By768Screen) {
    Window w;
    const QSize min = w.win->minimumSizeHint().expandedTo(w.win->minimumSize());
    EXPECT_LE(min.width(), 1024);
    EXPECT_LE(min.height(), 768 - 40);
    w.win->resize(1024, 728);
    QApplication::processEvents();
    // Every box of the entry line and the totals is whole inside the window.
    const QRect inside = w.win->rect();
    for (const char* name : {"txtcall", "TXTNCALL", "txtstran5", "TXTRSTS2", "cmbAdd", "qsotot",
                             "multtot1", "lblrate60", "lblrate10", "txtrepit"}) {
        QWidget* box = w.win->findChild<QWidget*>(name);
        ASSERT_NE(box, nullptr) << name;
        const QRect r(box->mapTo(w.win.get(), QPoint(0, 0)), box->size());
        EXPECT_TRUE(inside.contains(r)) << name;
        if (qobject_cast<QLineEdit*>(box) || qobject_cast<QLabel*>(box)) {
            EXPECT_GE(box->width(), box->minimumSizeHint().width() - 1) << name;
        }
    }
}

TEST(EntryKeysGui, TheRateChartIsSavedAsAPictureBesideTheReports) {
    Window w;
    for (const char* tm : {"12:00", "12:10", "13:05"})
        w.db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, ttime, ddate) "
                         "VALUES ('DL1ABC', '14', 'cqww', ?1, '30.11.02')",
                         {QString::fromLatin1(tm)});
    w.form->setVar("contestcode", "cqww");
    w.form->fire("cmbotchet_Click");
    Form* report = w.form->subForm("otchet");
    ASSERT_NE(report, nullptr);
    EXPECT_EQ(report->control("grdhours")->rowCount(), 2u);
    report->control("txtput")->setText(w.dir.path() + "/");
    report->control("tcall")->setText("UA3ABC");
    report->fire("cmbchart_Click");
    const QImage png(w.dir.path() + "/UA3ABC_rate.png");
    EXPECT_FALSE(png.isNull());
    EXPECT_GE(png.width(), 900);
    EXPECT_TRUE(report->control("lblstatus")->text().startsWith("Файл записан"));
}

// The contester's keys on the real window, offscreen: Space, Alt+W and Ctrl+W in the call box and
// Backspace over a selection.
#include "windowfixture.h"

#include <QKeyEvent>
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

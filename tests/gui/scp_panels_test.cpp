// The call lists beside the call box as docks: what typing shows, worked calls marked for the eye
// and for a screen reader, and a call taken by a click or by Alt and the arrows.
#include "windowfixture.h"

#include <QDockWidget>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

using namespace hfc;

namespace {
void typeInto(QWidget* w, const char* text) {
    for (const char* p = text; *p; ++p) QTest::keyClick(w, *p);
}
} // namespace

TEST(ScpPanelsGui, ListsAreDocksWithWorkedCallsMarked) {
    Window w;
    w.db.contest.run("INSERT INTO tbllog (ccall, bband, ps2) VALUES ('DL1AB', '14', 'hi hi')");
    for (const char* name : {"panelScp", "panelNp1"}) {
        auto* dock = w.win->findChild<QDockWidget*>(name);
        ASSERT_NE(dock, nullptr) << name;
        EXPECT_TRUE(dock->isVisible()) << name;
    }

    auto* call = w.callBox();
    typeInto(call, "dl1a");
    auto* list = w.win->findChild<QListWidget*>("lstscp");
    ASSERT_NE(list, nullptr);
    ASSERT_GT(list->count(), 1);
    QListWidgetItem* worked = list->findItems("DL1AB", Qt::MatchExactly).value(0);
    ASSERT_NE(worked, nullptr);
    EXPECT_EQ(worked->foreground().color(), QColor("#c00000"));
    EXPECT_EQ(worked->data(Qt::AccessibleTextRole).toString(),
              QStringLiteral("DL1AB, сработан на этом диапазоне"));
    EXPECT_EQ(list->currentRow(), -1); // nothing chosen yet

    // Alt+Down from the call box shows the entry it chose; Ctrl+Enter takes it.
    QTest::keyClick(call, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(list->currentRow(), 0);
    const QString first = list->item(0)->text();
    QTest::keyClick(call, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(call->text(), first);

    // A click on an entry of the one-off list takes it as well.
    typeInto(call, "X");
    auto* np1 = w.win->findChild<QListWidget*>("lstnp1");
    ASSERT_GT(np1->count(), 0);
    const QString pick = np1->item(0)->text();
    QTest::mouseClick(np1->viewport(), Qt::LeftButton, {},
                      np1->visualItemRect(np1->item(0)).center());
    EXPECT_EQ(call->text(), pick);
    EXPECT_EQ(w.form->focusName(), "txtcall");
}

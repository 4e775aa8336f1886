// The contest panels as docks: shown when the contest shows them, floating without keeping the
// keyboard.
#include "windowfixture.h"

#include <QDockWidget>
#include <QLineEdit>
#include <QTest>

using namespace hfc;

namespace {
QDockWidget* dock(const Window& w, const char* name) {
    return w.win->findChild<QDockWidget*>(QString::fromLatin1(name));
}
void chooseCqww(Window& w) {
    w.ui.queueInput(QString("16"));
    w.form->click("mnucqww");
    QApplication::processEvents();
}
} // namespace

TEST(PanelsGui, DocksAreShownWhenTheContestShowsTheirPanel) {
    Window w;
    const char* names[] = {"panelMultipliers", "panelKeyer", "panelQtc", "panelWorked"};
    for (const char* n : names) {
        QDockWidget* d = dock(w, n);
        ASSERT_NE(d, nullptr) << n;
        EXPECT_FALSE(d->isVisible()) << n; // nothing chosen yet: no panel
        // Movable and floatable; hiding is the menus' business, so no close button.
        EXPECT_EQ(d->features(), QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    }
    chooseCqww(w);
    EXPECT_TRUE(dock(w, "panelMultipliers")->isVisible());
    EXPECT_FALSE(dock(w, "panelKeyer")->isVisible());

    w.form->MNUCW_Click(); // the keyer panel on and off from its menu
    EXPECT_TRUE(dock(w, "panelKeyer")->isVisible());
    w.form->MNUCW_Click();
    EXPECT_FALSE(dock(w, "panelKeyer")->isVisible());
}

// Dragging a panel off is Qt's; the keyboard's return to the call box is the window's.
TEST(PanelsGui, AFloatingPanelGivesTheKeyboardBackToTheCallBox) {
    Window w;
    chooseCqww(w);
    auto* call = w.callBox();
    QDockWidget* d = dock(w, "panelMultipliers");
    d->setFloating(true);
    QApplication::processEvents();

    // The floating panel took the keyboard; once the mouse is up it goes back to the call box.
    QApplication::setActiveWindow(d);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() == call; }, 2000));
    QTest::keyClicks(call, "dl1abc");
    EXPECT_EQ(w.form->txtcall->text(), "DL1ABC");
}

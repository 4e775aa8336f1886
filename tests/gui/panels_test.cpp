// The contest panels as docks: shown when the contest shows them, dragged off the window to
// float where they are dropped, and put back where they were by a saved layout.
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
    EXPECT_TRUE(dock(w, "panelMultipliers")->widget()->isVisible());
    EXPECT_FALSE(dock(w, "panelKeyer")->isVisible());

    w.form->MNUCW_Click(); // the keyer panel on and off from its menu
    EXPECT_TRUE(dock(w, "panelKeyer")->isVisible());
    w.form->MNUCW_Click();
    EXPECT_FALSE(dock(w, "panelKeyer")->isVisible());

    w.form->mnumzone_Click(); // the multiplier window off from its menu
    EXPECT_FALSE(w.form->multwid->visible());
    EXPECT_FALSE(dock(w, "panelMultipliers")->isVisible());
}

TEST(PanelsGui, APanelDraggedOffTheWindowFloatsWhereItIsDroppedAndTheKeyboardStays) {
    Window w;
    chooseCqww(w);
    auto* call = w.callBox();
    QDockWidget* d = dock(w, "panelMultipliers");
    ASSERT_FALSE(d->isFloating());

    // Press on the title bar, drag it well into the middle of the window, drop.
    const QPoint grab(40, 6);
    const QPoint start = d->mapToGlobal(grab);
    QTest::mousePress(d, Qt::LeftButton, {}, grab);
    QPoint dropGlobal = start;
    for (int i = 0; i < 20; ++i) {
        dropGlobal += QPoint(10, -15);
        const QPoint local = d->mapFromGlobal(dropGlobal); // the panel moves under the pointer
        QMouseEvent move(QEvent::MouseMove, local, dropGlobal, Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(d, &move);
    }
    QTest::mouseRelease(d, Qt::LeftButton, {}, d->mapFromGlobal(dropGlobal));
    QApplication::processEvents();
    ASSERT_TRUE(d->isFloating());
    // The title bar is under the pointer where it was let go.
    EXPECT_LE((d->mapToGlobal(grab) - dropGlobal).manhattanLength(), 4);

    // The floating panel took the keyboard; once the mouse is up it goes back to the call box.
    QApplication::setActiveWindow(d);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() == call; }, 2000));
    QTest::keyClicks(call, "dl1abc");
    EXPECT_EQ(w.form->txtcall->text(), "DL1ABC");
}

TEST(PanelsGui, ASavedLayoutComesBackButTheContestDecidesWhatIsShown) {
    QByteArray saved;
    QPoint floatingAt;
    {
        Window w;
        w.form->MNUCW_Click(); // the keyer panel was on when the layout was saved
        QDockWidget* d = dock(w, "panelKeyer");
        d->setFloating(true);
        d->setGeometry(60, 80, 620, 280); // on the (800 pixels wide) screen
        QApplication::processEvents();
        floatingAt = d->pos();
        saved = w.win->saveLayout();
    }
    Window w;
    EXPECT_FALSE(w.win->restoreLayout("not a layout"));
    EXPECT_FALSE(dock(w, "panelKeyer")->isFloating());

    ASSERT_TRUE(w.win->restoreLayout(saved));
    QApplication::processEvents();
    QDockWidget* d = dock(w, "panelKeyer");
    EXPECT_TRUE(d->isFloating());
    EXPECT_FALSE(d->isVisible()); // this run has not switched the keyer panel on
    w.form->MNUCW_Click();
    EXPECT_TRUE(d->isVisible());
    EXPECT_EQ(d->pos(), floatingAt);
}

// The DX cluster panel in the window: a dock that its menu item shows, the band map's rows on
// screen, and Ctrl+Down typed in the real callsign box taking the next spot.
#include "windowfixture.h"

#include <QDockWidget>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

using namespace hfc;

TEST(BandmapGui, TheClusterPanelShowsTheMapAndCtrlDownTakesASpot) {
    Window w;
    auto* d = w.win->findChild<QDockWidget*>("panelCluster");
    ASSERT_NE(d, nullptr);
    EXPECT_FALSE(d->isVisible()) << "no cluster set: no panel until its menu item";
    w.form->mnucluster_Click();
    EXPECT_TRUE(d->isVisible());

    w.form->cmbband_Click(3);
    w.form->clusterLine("DX de G4ABC:      14025.0  DL1ABC       up 1      1405Z");
    w.form->clusterLine("DX de DK9IP-#:   14010.1  JA1XYZ   CW 24 dB 28 WPM CQ  1200Z");
    w.form->bandmapRefresh();
    auto* map = w.win->findChild<QTableView*>("bandmap");
    ASSERT_NE(map, nullptr);
    ASSERT_EQ(map->model()->rowCount(), 2);
    EXPECT_EQ(map->model()->index(0, 1).data().toString(), "JA1XYZ");

    auto* call = w.callBox();
    QTest::keyClick(call, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(call->text(), "JA1XYZ");
    EXPECT_EQ(w.form->focusName(), "txtcall");
}

// Band and mode buttons, the frequency command, the totals switch and the worked-prefix grid,
// and the keyboard path from band to call.
#include "entryfixture.h"

using namespace hfc;
using BandsTest = hfc::test::FormFixture;

// The blocks for each band and mode are the band table's (band_test).
TEST_F(BandsTest, SatKeepsTheLastFrequencyCommand) {
    form->cmbband_Click(3);
    const QString block = form->catcmd;
    form->cmbband_Click(6);
    EXPECT_EQ(form->curband, "sat");
    EXPECT_EQ(form->catcmd, block);
}

TEST_F(BandsTest, ModeButtonTogglesReportsAndRerunsTheChampionshipSetUp) {
    int setups = 0;
    form->proc("mnuchemp_Click", [&] { ++setups; });
    form->cmbmod_Click();
    EXPECT_EQ(texts({"cmbmod", "lblrsts"}), "SSB|59");
    EXPECT_EQ(setups, 0);
    form->contestcode = "chemp";
    form->cmbmod_Click();
    EXPECT_EQ(texts({"cmbmod", "lblrstr"}), "CW|599");
    EXPECT_EQ(setups, 1);
    EXPECT_EQ(form->focusName(), "txtcall");
}

TEST_F(BandsTest, PrefixGridListsWorkedPrefixesInTheirOwnMode) {
    form->contestcode = "wpx";
    form->mwidmode = 1;
    form->txtMwid[5]->setText("OLD");
    addRow("DL1ABC", "14", "wpx", "DL1", "DL1");
    addRow("OK1XYZ", "14", "wpx", "OK1", "OK1");
    addRow("DL1XYZ", "21", "wpx", "", "DL1");
    form->cmbband_Click(3);
    form->prefixlist(); // "Всего": distinct over all bands
    EXPECT_EQ(texts({"txtMwid(0)", "txtMwid(1)", "txtMwid(2)", "txtMwid(5)"}), "DL1|OK1||");
    EXPECT_EQ(form->txtMwid[1]->backcolor(), "#00ff00");
    EXPECT_EQ(form->txtMwid[2]->backcolor(), "#c0c0c0");
    form->cmbband_Click(4);
    form->cmbwsego_Click(); // per band
    form->prefixlist();
    EXPECT_EQ(texts({"txtMwid(0)", "txtMwid(1)"}), "DL1|");
}

TEST_F(BandsTest, KeyboardPathFromBandButtonsToTheCallAndBack) {
    form->setFocus("cmbband");  // as after choosing a contest
    form->pressKey(keys::Left); // wraps round to "sat"
    EXPECT_EQ(form->curband, "sat");
    form->pressKey(keys::Right); // over 1,8 to 3,5
    form->pressKey(keys::Right);
    EXPECT_EQ(form->focusName(), "cmbband(1)");
    form->typeText("\r");
    EXPECT_EQ(form->focusName(), "txtcall");
    form->pressKey(keys::Up);
    EXPECT_EQ(form->focusName(), "cmbband(1)");
    form->pressKey(keys::Down);
    EXPECT_EQ(form->focusName(), "txtcall");
    // Space on the mode button presses it
    form->setFocus("cmbmod");
    form->typeText(" ");
    EXPECT_EQ(text("cmbmod"), "SSB");
    EXPECT_EQ(form->focusName(), "txtcall");
}

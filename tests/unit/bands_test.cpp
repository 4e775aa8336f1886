// Band and mode buttons, the frequency command, the totals switch and the worked-prefix grid,
// and the keyboard path from band to call.
#include "entryfixture.h"

using namespace hfc;
using BandsTest = hfc::test::FormFixture;

namespace {
QString bytes(std::initializer_list<int> b) {
    QString s;
    for (int v : b) s += QChar(v);
    return s;
}
} // namespace

TEST_F(BandsTest, FrequencyCommandFollowsBandAndMode) {
    form->cmbband_Click(0);
    EXPECT_EQ(form->catcmd, bytes({0, 37, 24, 0, 10}));
    form->cmbband_Click(3);
    EXPECT_EQ(form->catcmd, bytes({0, 16, 64, 1, 10}));
    form->cmbmod_Click();
    form->cmbband_Click(5);
    EXPECT_EQ(form->catcmd, bytes({0, 0, 133, 2, 10}));
    form->cmbband_Click(3);
    EXPECT_EQ(form->catcmd, bytes({0, 80, 65, 1, 10}));
    form->cmbband_Click(6); // "sat" keeps the last block
    EXPECT_EQ(form->curband, "sat");
    EXPECT_EQ(form->catcmd, bytes({0, 80, 65, 1, 10}));
}

TEST_F(BandsTest, ClickMarksTheBandAndShowsIt) {
    form->cmbband_Click(4);
    EXPECT_EQ(form->curband, "21");
    EXPECT_EQ(text("Label1"), "21 MHz");
    for (int b = 0; b < 7; ++b)
        EXPECT_EQ(form->cmbband[b]->backcolor(), b == 4 ? "#e0e0e0" : "#ff0000") << b;
    EXPECT_EQ(form->bandsame, 0);
    form->bandprev = 4;
    form->cmbband_Click(4);
    EXPECT_EQ(form->bandsame, 1);
    form->cmbband_Click(0);
    EXPECT_EQ(form->bandsame, 0);
    EXPECT_EQ(text("Label1"), "1,8 MHz");
}

TEST_F(BandsTest, ModeButtonTogglesReportsAndRerunsTheChampionshipSetUp) {
    int setups = 0;
    form->proc("mnuchemp_Click", [&] { ++setups; });
    form->cmbmod_Click();
    EXPECT_EQ(text("cmbmod"), "SSB");
    for (const char* c : {"lblrstr", "lblrsts"}) EXPECT_EQ(text(c), "59");
    EXPECT_EQ(form->rstdef, "59");
    EXPECT_EQ(setups, 0);
    form->contestcode = "chemp";
    form->cmbmod_Click();
    EXPECT_EQ(text("cmbmod"), "CW");
    for (const char* c : {"lblrstr", "lblrsts"}) EXPECT_EQ(text(c), "599");
    EXPECT_EQ(form->rstdef, "599");
    EXPECT_EQ(setups, 1);
    EXPECT_EQ(form->focusName(), "txtcall");
}

TEST_F(BandsTest, OwnTailIsTakenOnceFromTheOwnCall) {
    form->TXTNCALL->setText("UA3ABC");
    form->cmbband_GotFocus(0);
    EXPECT_EQ(form->owntail, "ABC");
    form->TXTNCALL->setText("RA3XYZ");
    form->cmbband_GotFocus(0);
    EXPECT_EQ(form->owntail, "ABC");
    form->owntail.clear();
    form->TXTNCALL->setText("UA3");
    form->cmbband_GotFocus(0);
    EXPECT_EQ(form->owntail, "");
}

TEST_F(BandsTest, PrefixGridMarksAFixedListPerBandOrForAllBands) {
    form->contestcode = "cqww";
    form->mwidmode = 0;
    for (int i = 0; i < 40; ++i)
        form->txtMwid[i]->setText(QString("%1").arg(i + 1, 2, 10, QChar('0')));
    addRow("DL1ABC", "14", "cqww", "DL", "14");
    addRow("JA1XYZ", "21", "cqww", "JA", "25");
    addRow("W1AW", "14", "wpx", "K", "05");
    form->cmbwsego->setText("14MHz"); // the band's own view
    form->cmbband_Click(3);
    form->prefixlist();
    EXPECT_EQ(form->txtMwid[13]->backcolor(), "#00ff00");
    EXPECT_EQ(form->txtMwid[24]->backcolor(), "");
    EXPECT_EQ(form->txtMwid[4]->backcolor(), ""); // another contest's zone
    form->cmbwsego_Click();                       // -> "Всего": all bands
    EXPECT_EQ(text("cmbwsego"), "Всего");
    EXPECT_EQ(form->txtMwid[24]->backcolor(), "#00ff00");
    EXPECT_EQ(form->focusName(), "txtcall");
    // back to the band: per-band contests repaint grey first
    form->bandmult = 1;
    form->cmbwsego_Click();
    EXPECT_EQ(text("cmbwsego"), "14MHz");
    EXPECT_EQ(form->txtMwid[24]->backcolor(), "#c0c0c0");
    EXPECT_EQ(form->txtMwid[13]->backcolor(), "#00ff00");
    EXPECT_EQ(form->txtMwid[100]->backcolor(), "#c0c0c0");
    form->click("mnuari"); // another contest's window starts with nothing marked
    EXPECT_NE(form->txtMwid[13]->backcolor(), "#00ff00");
    EXPECT_NE(form->txtMwid[100]->backcolor(), "#00ff00");
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
    EXPECT_EQ(text("txtMwid(0)"), "DL1");
    EXPECT_EQ(text("txtMwid(1)"), "OK1");
    EXPECT_EQ(text("txtMwid(2)"), "");
    EXPECT_EQ(text("txtMwid(5)"), "");
    EXPECT_EQ(form->txtMwid[1]->backcolor(), "#00ff00");
    EXPECT_EQ(form->txtMwid[2]->backcolor(), "#c0c0c0");
    form->cmbband_Click(4);
    form->cmbwsego->setText("21MHz");
    form->prefixlist();
    EXPECT_EQ(text("txtMwid(0)"), "DL1");
    EXPECT_EQ(text("txtMwid(1)"), "");
}

TEST_F(BandsTest, KeyboardPathFromBandButtonsToTheCallAndBack) {
    form->setFocus("cmbband"); // as after choosing a contest
    EXPECT_EQ(form->focusName(), "cmbband(0)");
    form->pressKey(keys::Right);
    form->pressKey(keys::Right);
    form->pressKey(keys::Right);
    EXPECT_EQ(form->focusName(), "cmbband(3)");
    EXPECT_EQ(form->curband, "14");
    form->pressKey(keys::Left);
    EXPECT_EQ(form->curband, "7");
    form->pressKey(keys::Left);
    form->pressKey(keys::Left);
    form->pressKey(keys::Left); // wraps round to "sat"
    EXPECT_EQ(form->curband, "sat");
    form->pressKey(keys::Right);
    form->pressKey(keys::Right);
    form->pressKey(keys::Right);
    form->pressKey(keys::Right);
    form->typeText("\r");
    EXPECT_EQ(form->focusName(), "txtcall");
    EXPECT_EQ(form->curband, "14");
    EXPECT_EQ(form->bandprev, 3);
    EXPECT_EQ(text("cmbwsego"), "14MHz");
    form->typeText("dl1abc");
    EXPECT_EQ(text("txtcall"), "DL1ABC");
    form->pressKey(keys::Up);
    EXPECT_EQ(form->focusName(), "cmbband(3)");
    form->pressKey(keys::Down);
    EXPECT_EQ(form->focusName(), "txtcall");
    // Space on the mode button presses it
    form->setFocus("cmbmod");
    form->typeText(" ");
    EXPECT_EQ(text("cmbmod"), "SSB");
    EXPECT_EQ(form->focusName(), "txtcall");
}

TEST_F(BandsTest, EnterOnAnUnchosenBandButtonChoosesIt) {
    ASSERT_EQ(form->curband, "");
    form->setFocus("cmbband");
    form->typeText("\r");
    EXPECT_EQ(form->curband, "1,8");
    EXPECT_EQ(form->focusName(), "txtcall");
}

TEST_F(BandsTest, EnterEmitsTheFrequencyCommandOnlyWithTheLinkOn) {
    QList<QByteArray> sent;
    QObject::connect(form.get(), &ContestForm::catEmitted, [&](const QByteArray& b) { sent << b; });
    form->setFocus("cmbband(3)");
    form->typeText("\r");
    EXPECT_TRUE(sent.isEmpty());
    form->mnuCAT->setText("CAT FT1000MP вкл");
    form->setFocus("cmbband(3)");
    form->typeText("\r");
    ASSERT_EQ(sent.size(), 1);
    EXPECT_EQ(sent[0], QByteArray("\x00\x10\x40\x01\x0a", 5));
    EXPECT_EQ(text("lblcat"), "CAT: 0 16 64 1 10");
}

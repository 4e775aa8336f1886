// Choosing a contest from the menu. Every choice is driven by the contest table; a few contests
// of each kind show that its columns reach the window: the question, the exchange sent, the
// captions and the multiplier window. What the switches do to each exchange and its points is
// checked QSO by QSO in the scoring tests; the serial restart in the recount tests.
#include "entryfixture.h"

namespace {
struct SelectionTest : hfc::test::EntryFixture {
    void choose(const char* item) { ASSERT_TRUE(form->call(QString(item) + "_Click", {})); }
};
} // namespace

TEST_F(SelectionTest, MenuHoldsTheContestsInOrderUnderTheirMenus) {
    ASSERT_EQ(form->contestMenu.size(), 43u);
    const auto item = [&](int i) { return form->contestMenu[size_t(i)]; };
    EXPECT_EQ(item(0)->name(), "mnuchemp");
    EXPECT_EQ(item(0)->text(), "Чемпионат");
    EXPECT_EQ(item(13)->text(), "Fiel Day"); // captions as the operator has always seen them
    EXPECT_EQ(item(26)->name(), "nmuref");   // and the old item names with them
    EXPECT_TRUE(form->hasHandler("nmuref_Click"));
    EXPECT_FALSE(form->hasHandler("mnuref_Click"));
    EXPECT_EQ(item(32)->name(), "mnutops");
    EXPECT_EQ(item(32)->extra("parent"), "cmbadd1");
    EXPECT_EQ(item(33)->name(), "mnuuba"); // from here on in the submenu
    EXPECT_EQ(item(33)->extra("parent"), "mnudal");
    EXPECT_EQ(item(42)->extra("parent"), "mnudal");
    EXPECT_EQ(form->mnudal->extra("parent"), "cmbadd1");
}

TEST_F(SelectionTest, TheContestsQuestionIsAskedAndAFixedExchangeSentAtOnce) {
    ui.queueInput("16");
    choose("mnucq160");
    EXPECT_EQ(ui.takeShown(),
              QStringList{"inputbox\tВведите страну DXCC (UA) \tВвод контр.номера"});
    EXPECT_EQ(form->contestcode, "cq160");
    EXPECT_EQ(text("LBLCONTEST"), "CQ WW160 m DX Contest ");
    EXPECT_EQ(form->myexch + "|" + text("txtrsts"), "16|16");
    EXPECT_EQ(form->focusName(), "cmbband(3)"); // the band chosen

    ui.queueInput("KO85");
    choose("mnuwwg");
    EXPECT_EQ(ui.takeShown(),
              QStringList{"inputbox\tВведите ваши координаты   \tВвод QTH-ЛОКАТОРА"});
    EXPECT_EQ(text("LBLCONTEST"), "TOEC WW GRID  Contest");
    // no question: the answer given before stays, and a serial is sent
    choose("mnursgb");
    EXPECT_TRUE(ui.takeShown().isEmpty());
    EXPECT_EQ(form->myexch, "KO85");
    EXPECT_EQ(text("LBLCONTEST"), "RSGB  Contest");
    EXPECT_EQ(text("txtrsts"), "001");
    // a cancelled question leaves nothing to send
    ui.queueInput(std::nullopt);
    choose("mnucqww");
    EXPECT_EQ(form->myexch + text("txtrsts"), "");
}

TEST_F(SelectionTest, CqmSendsWhatTheContestBeforeIt) {
    // CQ-M leaves the fixed-exchange switch as it found it.
    ui.queueInput("45");
    choose("mnuaa");
    choose("mnucqm");
    EXPECT_EQ(text("txtrsts"), "45");
    choose("mnuwpx");
    choose("mnucqm");
    EXPECT_EQ(text("txtrsts"), "001");
}

TEST_F(SelectionTest, CaptionsFollowTheContestAndStayUntilAnotherSetsThem) {
    choose("mnuchemp");
    EXPECT_EQ(texts({"lbldxcc", "lblzone", "lblpoint", "lblrstr"}), "Зоны|Корр|QSO|");
    EXPECT_TRUE(form->txtpoint2->visible());
    EXPECT_FALSE(form->txtmult2->visible());
    choose("mnucqm");
    EXPECT_EQ(text("lblmult"), "R 150 ");
    EXPECT_FALSE(form->lblmult1->visible());
    EXPECT_FALSE(form->lblqtc->visible());
    choose("mnuwae");
    EXPECT_TRUE(form->lblqtc->visible());
    ui.queueInput("1990");
    choose("mnueuhf");
    EXPECT_EQ(text("multwid"), "Год получения лицензии");
    EXPECT_TRUE(form->txtmult2->visible());
    EXPECT_FALSE(form->txtpoint2->visible());
    choose("mnuwpx");
    EXPECT_EQ(texts({"lblmult", "lbldxcc"}), "R 150 |Зоны");
}

TEST_F(SelectionTest, MultiplierWindowOfEachKind) {
    ui.queueInput("16");
    choose("mnucqww"); // the zones
    EXPECT_EQ(text("multwid"), "CQ zone");
    EXPECT_EQ(form->mwidlast, 39);
    EXPECT_EQ(text("txtMwid(0)") + " " + text("txtMwid(8)") + " " + text("txtMwid(39)"),
              "01 09 40");
    // Only the list's own boxes show: the window is no taller than the list.
    EXPECT_TRUE(form->txtMwid[39]->visible());
    EXPECT_FALSE(form->txtMwid[40]->visible());
    choose("mnuea"); // provinces
    EXPECT_EQ(text("txtMwid(0)") + " " + text("txtMwid(1)") + " " + text("txtMwid(46)"), "A AB ZA");
    choose("mnupacc");
    EXPECT_EQ(text("txtMwid(0)") + " " + text("txtMwid(11)"), "DR ZL");
    ui.queueInput("45");
    choose("mnujid"); // numbered boxes
    EXPECT_EQ(form->mwidlast, 46);
    EXPECT_EQ(form->mwidmode, 0);
    EXPECT_EQ(text("txtMwid(0)") + " " + text("txtMwid(46)"), "01 47");
    EXPECT_TRUE(form->multwid->visible());
    choose("mnuok"); // codes of three letters
    EXPECT_EQ(form->mwidlast, 86);
    EXPECT_EQ(text("txtMwid(0)") + " " + text("txtMwid(10)") + " " + text("txtMwid(85)"),
              "APA BBN HVS");
    EXPECT_EQ(text("txtMwid(86)"), ""); // one box more than codes
    choose("mnues"); // the window lists what ES has worked: nothing of the codes before
    EXPECT_EQ(form->mwidlast, 9);
    EXPECT_EQ(form->mwidmode, 1);
    EXPECT_TRUE(form->multwid->visible());
    EXPECT_EQ(text("txtMwid(0)") + text("txtMwid(9)") + text("txtMwid(10)"), "");
    EXPECT_TRUE(form->txtMwid[50]->visible()); // the worked prefixes may fill every box
    choose("mnuari");                          // no restart, but the window is filled
    EXPECT_EQ(form->mwidlast, 102);
    EXPECT_EQ(text("txtMwid(0)") + " " + text("txtMwid(102)"), "AG VV");
    EXPECT_FALSE(form->DBGrid1->visible());
    EXPECT_TRUE(form->DBList1->visible());
    choose("mnuwpx"); // no window of its own: the one before stays
    EXPECT_EQ(form->mwidlast, 102);
    EXPECT_EQ(text("txtMwid(102)"), "VV");
    EXPECT_TRUE(form->multwid->visible());
}

TEST_F(SelectionTest, SwitchesDecideWhatACallFillsIn) {
    ui.queueInput("16");
    choose("mnucqww");
    resolve("JA1XYZ");
    EXPECT_EQ(texts({"txtrstr", "txtmult"}), "25|JA"); // the CQ zone, the country
    ui.queueInput("29");
    choose("mnuiaru");
    resolve("JA1XYZ");
    EXPECT_EQ(text("txtrstr"), "45"); // the ITU zone
    choose("mnuwpx");
    resolve("JA1XYZ");
    EXPECT_EQ(text("txtmult"), "JA1"); // the prefix
}

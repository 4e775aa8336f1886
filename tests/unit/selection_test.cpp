// Choosing a contest from the menu. Every choice is driven by the contest table; a few contests
// show that its columns reach the window: the question, the exchange sent and the multiplier
// window. What the switches do to each exchange and its points is
// checked QSO by QSO in the scoring tests; the serial restart in the recount tests.
#include "entryfixture.h"

namespace {
struct SelectionTest : hfc::test::EntryFixture {
    void choose(const char* item) { ASSERT_TRUE(form->call(QString(item) + "_Click", {})); }
};
} // namespace

TEST_F(SelectionTest, TheContestsQuestionIsAskedAndAFixedExchangeSentAtOnce) {
    ui.queueInput("16");
    choose("mnucq160");
    EXPECT_EQ(ui.takeShown(),
              QStringList{"inputbox\tВведите страну DXCC (UA) \tВвод контр.номера"});
    EXPECT_EQ(form->contestcode, "cq160");
    EXPECT_EQ(form->myexch + "|" + text("txtrsts"), "16|16");
    EXPECT_EQ(form->focusName(), "cmbband(3)"); // the band chosen

    // no question: the answer given before stays, and a serial is sent
    choose("mnursgb");
    EXPECT_TRUE(ui.takeShown().isEmpty());
    EXPECT_EQ(form->myexch, "16");
    EXPECT_EQ(text("txtrsts"), "001");
    // a cancelled question leaves nothing to send
    ui.queueInput(std::nullopt);
    choose("mnucqww");
    EXPECT_EQ(form->myexch + text("txtrsts"), "");
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
    choose("mnuok"); // codes of three letters
    EXPECT_EQ(form->mwidlast, 86);
    EXPECT_EQ(text("txtMwid(0)") + " " + text("txtMwid(85)"), "APA HVS");
    EXPECT_EQ(text("txtMwid(86)"), ""); // one box more than codes
    choose("mnuwpx");                   // no window of its own: the one before stays
    EXPECT_EQ(form->mwidlast, 86);
    EXPECT_EQ(text("txtMwid(85)"), "HVS");
    EXPECT_TRUE(form->multwid->visible());
}

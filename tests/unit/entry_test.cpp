// The callsign box: key filter, focus moves, partial-call list and the repeat rules.
#include "entryfixture.h"

using namespace hfc;
using EntryTest = hfc::test::EntryFixture;

TEST_F(EntryTest, KeyFilterUpperCasesAndRefusesOutsideTheCallSetAndAFifteenthCharacter) {
    typeCall("ua3abc/p");
    EXPECT_EQ(text("txtcall"), "UA3ABC/P");
    typeCall("ABCDEFGHIJKLMNOP");
    EXPECT_EQ(text("txtcall"), "ABCDEFGHIJKLMN");
    typeCall("dl-1ä#b\u0436c"); // "-", umlaut, "#", Cyrillic: refused
    EXPECT_EQ(text("txtcall"), "DL1BC");
    typeCall("\u0430"); // Cyrillic lower case: upper-cased and still refused
    EXPECT_EQ(text("txtcall"), "");
}

TEST_F(EntryTest, BackspaceClearsPointsMultipliersAndCountry) {
    typeCall("DL1AB");
    form->setPoints("3");
    form->setPoints2("1");
    form->setMult("DL");
    form->setMult2("14");
    Event e;
    e.keyAscii = keys::Backspace;
    form->fire("txtcall_KeyPress", e);
    EXPECT_EQ(e.keyAscii, keys::Backspace); // passes on to the box
    for (const char* box : {"txtpoint", "txtpoint2", "txtmult", "txtmult2", "txtstran5"})
        EXPECT_EQ(text(box), "") << box;
    // the key-up that follows resolves the shorter call again
    form->typeText("\b");
    EXPECT_EQ(texts({"txtcall", "txtstran5"}), "DL1A|FED. REP. OF G");
}

TEST_F(EntryTest, EnterMovesAlongTheEntryLine) {
    typeCall("DL1ABC\r");
    EXPECT_EQ(form->focusName(), "txtrstr");
    form->contestcode = "chemp";
    typeCall("UA3ABC\r");
    EXPECT_EQ(form->focusName(), "lblrstr");
    form->contestcode = "cqww";
    form->mnuawto_Click(); // manual date and time
    typeCall("\r");
    EXPECT_EQ(form->focusName(), "txtdate");
}

TEST_F(EntryTest, SameModeContestsCountRepeatsPerModeOrReport) {
    // "bal": any band, same mode (rstr)
    form->contestcode = "bal";
    db.contest.run(
        "INSERT INTO tbllog (ccall, bband, ps2, rstr) VALUES ('ES1AA','3,5','bal','59')");
    typeCall("ES1AA");
    EXPECT_FALSE(marked()); // CW now
    form->cmbmod_Click();   // SSB
    typeCall("ES1AA");
    EXPECT_EQ(mark(), "Повтор");
    // "sp": same band and same received report
    form->contestcode = "sp";
    db.contest.run("INSERT INTO tbllog (ccall, bband, ps2, rstr) VALUES ('SP1AA','14','sp','599')");
    form->lblrstr->setText("59");
    typeCall("SP1AA");
    EXPECT_FALSE(marked());
    form->lblrstr->setText("599");
    typeCall("SP1AA");
    EXPECT_EQ(mark(), "Повтор");
}

TEST_F(EntryTest, GotFocusStartsANewQsoWithCleanBoxes) {
    form->setFocus("txtrstr");
    form->setPoints("3");
    form->txtrstr->setText("16");
    form->setFocus("txtcall");
    EXPECT_EQ(texts({"txtpoint", "txtrstr"}), "|");
    // a call being corrected keeps its exchange
    form->txtcall->setText("DL1ABC");
    form->setFocus("txtrstr");
    form->txtrstr->setText("14");
    form->setFocus("txtcall");
    EXPECT_EQ(text("txtrstr"), "14");
}

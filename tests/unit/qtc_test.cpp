// The WAE QTC frame: moving between lines, storing, and the working table. Typing a QTC with
// Enter and the split of a long line are played through in the keyer-keys scenario.
#include "formfixture.h"

using namespace hfc;
using hfc::test::FormFixture;

namespace {

struct QtcTest : FormFixture {
    void SetUp() override {
        FormFixture::SetUp();
        form->contestcode = "wae";
        form->txtcall->setText("DL1ABC");
        form->txttime->setText("12:34:56");
        form->txtdate->setText("10.08.02");
        form->curband = "14";
        form->openQtc();
        form->txtqtcnr->setText("1/3");
    }
    void setLines(const QStringList& lines) {
        for (int i = 0; i < lines.size(); ++i) form->txtqtc[i]->setText(lines[i]);
    }
    Rows stored() {
        return db.contest.query("SELECT rstr1, ccall, ttime, bband, ddate, ps2, contr FROM "
                                "tbllogTemp ORDER BY rowid");
    }
};

TEST_F(QtcTest, ArrowsMoveBetweenLinesAndStopAtTheEnds) {
    form->typeText("\r1234 dl1abc ю1\r");
    EXPECT_EQ(text("txtqtc(0)"), "1234 DL1ABC Ю1");
    form->pressKey(keys::Up);
    form->pressKey(keys::Up); // the first line has nothing above
    EXPECT_EQ(form->focusName(), "txtqtc(0)");
    form->setFocus("txtqtc(9)");
    form->pressKey(keys::Down);
    EXPECT_EQ(form->focusName(), "txtqtc(9)");
    EXPECT_TRUE(stored().empty());
}

TEST_F(QtcTest, StoringStopsAtTheFirstEmptyLine) {
    setLines({"1200 OK1AB 001", "1201 SP2X 002", "", "1203 G3XYZ 004"});
    form->cmbqtc1_Click();
    const Rows expected = {{"1/3", "DL1ABC", "12:34", "14", "10.08.02", "1200 OK1AB 001", ""},
                           {"1/3", "DL1ABC", "12:34", "14", "10.08.02", "1201 SP2X 002", ""}};
    EXPECT_EQ(stored(), expected);
    // The frame closes, the lines and the header fields are cleared, the number stays.
    EXPECT_FALSE(form->FRQTC->visible());
    for (int i = 0; i < 10; ++i) EXPECT_EQ(form->txtqtc[i]->text(), "");
    EXPECT_EQ(text("txtqtccall"), "");
    EXPECT_EQ(text("txtqtcnr"), "1/3");
}

TEST_F(QtcTest, EnterOnTheLastLineStores) {
    QStringList lines;
    for (int i = 0; i < 10; ++i) lines << QStringLiteral("12%1 DL%1X").arg(i);
    setLines(lines);
    form->setFocus("txtqtc(9)");
    form->typeText("\r");
    EXPECT_EQ(stored().size(), 10u);
    EXPECT_EQ(form->focusName(), "txtrstr");
}

TEST_F(QtcTest, ResetAsksTwiceInWaeAndRefillsTheWorkingCopy) {
    addRow("OK1AB", "14", "wae");
    addRow("SP2X", "7", "wae");
    addRow("G3XYZ", "14", "cqww");
    setLines({"QTC LINE"});
    form->cmbqtc1_Click();
    auto calls = [&] { return db.contest.column("SELECT ccall FROM tbllogTemp ORDER BY ccall"); };

    ui.queueAnswer(Ui::Answer::No);
    form->qtcreset();
    ui.queueAnswer(Ui::Answer::Yes);
    ui.queueAnswer(Ui::Answer::No);
    form->qtcreset();
    EXPECT_EQ(calls(), QStringList{"DL1ABC"});
    EXPECT_EQ(ui.takeShown().size(), 3);

    ui.queueAnswer(Ui::Answer::Yes);
    ui.queueAnswer(Ui::Answer::Yes);
    form->qtcreset();
    EXPECT_EQ(calls(), (QStringList{"OK1AB", "SP2X"}));
    EXPECT_EQ(ui.takeShown().size(), 2);

    // Other contests refill without asking.
    form->contestcode = "cqww";
    form->qtcreset();
    EXPECT_EQ(calls(), QStringList{"G3XYZ"});
    EXPECT_TRUE(ui.takeShown().isEmpty());

    form->mnuQTC_Click();
    EXPECT_TRUE(calls().isEmpty());
}

} // namespace

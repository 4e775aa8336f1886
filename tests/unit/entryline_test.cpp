// The contester's entry line: the wipe keys, earlier QSOs on every band, a repeat's
// points, and a selection taken on the window's own event path.
#include "entryfixture.h"

using namespace hfc;
using namespace hfc::test;

namespace {
struct EntryLineTest : EntryFixture {
    void SetUp() override {
        EntryFixture::SetUp();
        form->contestcode = "cqww";
        form->cqfill = 0; // the zone follows from the call, as in CQ WW
    }
};
} // namespace

TEST_F(EntryLineTest, AltWAndCtrlWWipeTheLineWherEverTheKeyboardIsAndLogNothing) {
    addRow("DL1ABC", "14", "cqww");
    for (int shift : {4, 2}) {
        typeCall("DL1ABC\r");
        ASSERT_EQ(mark(), "Повтор");
        form->typeText("14");
        form->pressKey('W', shift);
        // "0": what an empty call box shows
        EXPECT_EQ(texts({"txtcall", "txtrstr", "txtmult", "txtmult2", "txtpoint"}), "||||0")
            << "shift " << shift;
        EXPECT_FALSE(marked());
        EXPECT_EQ(form->focusName(), "txtcall");
        EXPECT_TRUE(form->DBGrid1->rows().empty());
        EXPECT_EQ(logRows(), 1);
    }
    // W without Ctrl or Alt is a letter of the call.
    typeCall("W");
    EXPECT_EQ(text("txtcall"), "W");
}

TEST_F(EntryLineTest, EarlierQsosShowOnEveryBandAndARepeatShowsTheZeroItIsStoredWith) {
    addRow("DL1ABC", "14", "cqww", "DL", "14", "1", "11:00");
    addRow("DL1ABC", "7", "cqww", "DL", "14", "1", "11:30");
    addRow("DL1ABC", "21", "wpx");
    form->cmbband_Click(4); // 21 MHz: not in this band's partial list
    typeCall("DL1ABC");
    EXPECT_TRUE(form->DBList1->items().isEmpty());
    QStringList bands;
    for (const QStringList& r : form->DBGrid1->rows()) bands << r[3];
    EXPECT_EQ(bands, QStringList({"14", "7"}));
    EXPECT_FALSE(marked());

    form->cmbband_Click(3);
    typeCall("DL1ABC");
    EXPECT_EQ(mark(), "Повтор");
    EXPECT_EQ(texts({"txtpoint", "txtmult", "txtmult2"}), "0||");
}

TEST_F(EntryLineTest, ASelectionGoesOnTheEventPathSoTheLookupsRunOnWhatIsLeft) {
    addRow("DL1ABC", "14", "cqww");
    typeCall("DL1ABC");
    ASSERT_EQ(mark(), "Повтор");
    form->txtcall->setSelection(3, 3); // "ABC"
    form->typeText("\b");
    EXPECT_EQ(text("txtcall"), "DL1");
    EXPECT_FALSE(marked());
    // Typed over: the selection goes, the key stays; a refused key leaves it.
    form->txtcall->setSelection(0, 2);
    form->typeText("-");
    EXPECT_EQ(text("txtcall"), "DL1");
    form->typeText("g");
    EXPECT_EQ(text("txtcall"), "G1");
    form->txtcall->setSelection(1, 10);
    form->pressKey(keys::Delete);
    EXPECT_EQ(text("txtcall"), "G");
}

// The help window: calendar tree, rules text, results archive by year and mode.
#include "formfixture.h"
#include "forms/frmhelp/frmhelpform.h"

using namespace hfc;
using hfc::test::FormFixture;

struct HelpWindowTest : FormFixture {
    FrmHelpForm* w = nullptr;
    void open(const QString& contest) {
        form->contestcode = contest;
        form->mnupol_Click();
        w = qobject_cast<FrmHelpForm*>(form->subForm("frmhelp"));
        ASSERT_NE(w, nullptr);
    }
    void addResults(const QString& contest, const QString& year, const QString& mode,
                    const QString& text) {
        db.help.run("INSERT INTO tblhelp (CONTEST, rezgod, rezmod, rezul) VALUES (?1, ?2, ?3, ?4)",
                    {contest, year, mode, text});
    }
    QString rules(const QString& contest) {
        return db.help.scalar("SELECT TXTHELP FROM tblhelp WHERE CONTEST = ?1 AND TXTHELP <> ''",
                              {contest});
    }
    QString rezul(const QString& year) {
        return db.help.column("SELECT rezul FROM tblhelp WHERE rezgod = ?1", {year}).join('|');
    }
};

TEST_F(HelpWindowTest, ContestLinesSelectTheirCodeAndOnlySsbLinesSwitchTheMode) {
    open("hi hi");
    w->tvwDb_NodeClick(11); // a month only opens and closes
    EXPECT_EQ(w->helpcode, "hi hi");
    EXPECT_TRUE(w->kalendar->visible());
    w->tvwDb_NodeClick(8); // CQ 160 CW, January
    EXPECT_EQ(w->helpcode, "cq160");
    EXPECT_EQ(w->helpmode, "CW");
    EXPECT_EQ(w->Text1->text(), rules("cq160"));
    w->tvwDb_NodeClick(15); // CQ 160 SSB, February
    EXPECT_EQ(w->helpmode, "SSB");
    w->tvwDb_NodeClick(12); // CW/SSB keeps SSB
    EXPECT_EQ(w->helpcode + " " + w->helpmode, "pacc SSB");
    // codes are lower case, some rules are stored in capitals; some codes have no rules row
    ASSERT_FALSE(rules("HA").isEmpty());
    w->tvwDb_NodeClick(7);
    EXPECT_EQ(w->Text1->text(), rules("HA"));
    w->tvwDb_NodeClick(44);
    EXPECT_EQ(w->Text1->text(), "");
}

TEST_F(HelpWindowTest, OverwriteAsksCancelKeepsTheStoredTextAndEmptyIsNotStored) {
    addResults("wae", "2003", "CW", "old text");
    open("wae");
    w->txtrez->setText("new text");
    ui.queueInput("2003");
    ui.queueAnswer(Ui::Answer::Cancel);
    w->mnusave_Click();
    EXPECT_EQ(rezul("2003"), "old text");
    w->txtrez->setText("new text");
    ui.queueInput("2003");
    ui.queueAnswer(Ui::Answer::Ok);
    w->mnusave_Click();
    EXPECT_EQ(rezul("2003"), "new text");
    // SSB is a different row
    w->Option2_Click();
    w->txtrez->setText("ssb text");
    ui.queueInput("2003");
    w->mnusave_Click();
    EXPECT_EQ(rezul("2003"), "new text|ssb text");

    const int before = db.help.count("SELECT * FROM tblhelp");
    w->txtrez->setText("");
    ui.takeShown();
    ui.queueInput(std::nullopt); // cancelled year box
    ui.queueAnswer(Ui::Answer::Ok);
    w->mnusave_Click();
    EXPECT_EQ(ui.takeShown(), QStringList({"inputbox\tВведите год \tВвод года",
                                           "msgbox\tВнесите результаты \t Ошибка\tok"}));
    EXPECT_EQ(db.help.count("SELECT * FROM tblhelp"), before);
}

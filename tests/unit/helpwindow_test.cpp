// The help window: calendar tree, rules text, results archive by year and mode.
#include "formfixture.h"
#include "forms/frmhelp/calendar.h"
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
};

TEST(Calendar, TwelveMonthsEachOverItsContestLines) {
    ASSERT_EQ(calendarNodes().size(), 77u);
    EXPECT_EQ(calendarNode(0), nullptr);
    EXPECT_EQ(calendarNode(78), nullptr);
    QString month;
    int months = 0;
    for (int i = 1; i <= 77; ++i) {
        const CalendarNode* n = calendarNode(i);
        if (*n->key) { // a month: a closed folder with no code
            month = n->key, ++months;
            EXPECT_EQ(month, QStringLiteral("n%1").arg(months));
            EXPECT_STREQ(n->image, "closed");
            EXPECT_STREQ(n->code, "");
            continue;
        }
        EXPECT_EQ(QString(n->parent), month) << i;
        EXPECT_NE(QString(n->code), "") << i;
        // the SSB-only flag agrees with the mode column
        EXPECT_EQ(n->ssbOnly, QString::fromUtf8(n->text).endsWith(" SSB")) << i;
    }
    EXPECT_EQ(months, 12);
    EXPECT_EQ(QString::fromUtf8(calendarNode(72)->text), "Декабрь");
    EXPECT_EQ(QString::fromUtf8(calendarNode(44)->text),
              "1-июля    0000-2400  RAC Canada Day Contest                   CW/SSB");
    EXPECT_EQ(QString::fromUtf8(calendarNode(77)->text),
              "   сб-вс  2100-0900  RAEM                                               CW");
}

TEST_F(HelpWindowTest, NoContestChosenShowsTheCalendarTree) {
    open("hi hi");
    EXPECT_TRUE(w->isShown());
    EXPECT_TRUE(w->kalendar->visible());
    const QStringList items = w->tvwDb->items();
    ASSERT_EQ(items.size(), 77);
    EXPECT_EQ(items[10], "Февраль");
    EXPECT_EQ(items[14], "4   пт-вс  2200-1600  CQ 160 meter Contest             SSB");
    EXPECT_EQ(w->Text1->text(), "");
    EXPECT_EQ(w->tvwDb->extra("keys").split('|')[10], "n2");
    EXPECT_EQ(w->tvwDb->extra("parents").split('|')[11], "n2");
}

TEST_F(HelpWindowTest, ChosenContestShowsItsRulesWithoutTheCalendar) {
    open("cqww");
    EXPECT_FALSE(w->kalendar->visible());
    EXPECT_EQ(w->helpcode, "cqww");
    EXPECT_FALSE(rules("cqww").isEmpty());
    EXPECT_EQ(w->Text1->text(), rules("cqww"));
    w->mnukalendar_Click();
    EXPECT_TRUE(w->kalendar->visible());
    w->mnukalendar_Click();
    EXPECT_FALSE(w->kalendar->visible());
}

TEST_F(HelpWindowTest, MonthNodesOnlyOpenAndClose) {
    open("hi hi");
    w->tvwDb_NodeClick(11);
    EXPECT_EQ(w->helpcode, "hi hi");
    EXPECT_TRUE(w->kalendar->visible());
    w->tvwDb_Expand(11);
    EXPECT_EQ(w->nodes[10].image, "open");
    EXPECT_TRUE(w->nodes[10].expanded);
    EXPECT_EQ(w->tvwDb->extra("images").split('|')[10], "open");
    w->tvwDb_Collapse(11);
    EXPECT_EQ(w->nodes[10].image, "closed");
    EXPECT_EQ(w->tvwDb->extra("expanded").split('|')[10], "0");
    w->tvwDb_Expand(12); // a contest line has nothing to open
    EXPECT_EQ(w->nodes[11].image, "lux");
    w->call("tvwDb_NodeClick", {"0"});
    w->call("tvwDb_NodeClick", {"78"});
    EXPECT_EQ(w->helpcode, "hi hi");
}

TEST_F(HelpWindowTest, ContestLinesSelectTheirCodeAndOnlySsbLinesSwitchTheMode) {
    open("hi hi");
    w->call("tvwDb_NodeClick", {"8"}); // CQ 160 CW, January
    EXPECT_EQ(w->helpcode, "cq160");
    EXPECT_EQ(w->helpmode, "CW");
    EXPECT_FALSE(w->kalendar->visible());
    EXPECT_EQ(w->Text1->text(), rules("cq160"));
    w->mnukalendar_Click();
    w->tvwDb_NodeClick(15); // CQ 160 SSB, February
    EXPECT_EQ(w->helpcode, "cq160");
    EXPECT_EQ(w->helpmode, "SSB");
    EXPECT_TRUE(w->Option2->checked());
    EXPECT_FALSE(w->Option1->checked());
    w->tvwDb_NodeClick(12); // CW/SSB keeps SSB
    EXPECT_EQ(w->helpcode, "pacc");
    EXPECT_EQ(w->helpmode, "SSB");
    w->Option1_Click();
    w->tvwDb_NodeClick(66); // CW/SSB/RTTY keeps CW
    EXPECT_EQ(w->helpmode, "CW");
    // several lines share a code; some codes have no contest of the window
    const std::pair<int, const char*> shared[] = {{13, "rsgb"},  {70, "rsgb"}, {3, "chemp"},
                                                  {28, "chemp"}, {44, "rac"},  {29, "es"}};
    for (const auto& [index, code] : shared) {
        w->tvwDb_NodeClick(index);
        EXPECT_EQ(w->helpcode, code) << index;
    }
}

TEST_F(HelpWindowTest, CalendarCodesFindRulesStoredInCapitals) {
    open("hi hi");
    ASSERT_FALSE(rules("HA").isEmpty());
    w->tvwDb_NodeClick(7); // "ha"
    EXPECT_EQ(w->Text1->text(), rules("HA"));
    EXPECT_EQ(w->txtcontest->text(), "HA");
    w->tvwDb_NodeClick(44); // "rac": no rules row
    EXPECT_EQ(w->Text1->text(), "");
}

TEST_F(HelpWindowTest, YearListFollowsTheModeAndTheComboShowsThatYear) {
    addResults("cqww", "2000", "CW", "UA3A 1234567");
    addResults("cqww", "2001", "CW", "UA9B 7654321");
    addResults("cqww", "1999", "SSB", "RA3C 100");
    addResults("cqww", "2002", "CW", ""); // no results text: not offered
    open("cqww");
    EXPECT_EQ(w->DBCombo1->items(), QStringList({"2000", "2001"}));
    EXPECT_EQ(w->txtrez->text(), "");
    w->DBCombo1->setText("2001");
    w->DBCombo1_Click();
    EXPECT_EQ(w->txtrez->text(), "UA9B 7654321");
    w->click("Option2");
    EXPECT_EQ(w->DBCombo1->items(), QStringList({"1999"}));
    EXPECT_EQ(w->txtrez->text(), ""); // 2001 has no SSB results
    EXPECT_EQ(w->focusName(), "txtrez");
    w->DBCombo1->setText("1999");
    w->DBCombo1_Click();
    EXPECT_EQ(w->txtrez->text(), "RA3C 100");
}

TEST_F(HelpWindowTest, OverwriteAsksAndCancelKeepsTheStoredText) {
    addResults("wae", "2003", "CW", "old text");
    open("wae");
    w->txtrez->setText("new text");
    ui.queueInput("2003");
    ui.queueAnswer(Ui::Answer::Cancel);
    w->mnusave_Click();
    EXPECT_EQ(ui.takeShown(),
              QStringList({"inputbox\tВведите год \tВвод года",
                           "msgbox\tРезультаты уже внесены. Изменить ?\t Ошибка\tokcancel"}));
    EXPECT_EQ(db.help.column("SELECT rezul FROM tblhelp WHERE rezgod = '2003'"),
              QStringList({"old text"}));
    w->txtrez->setText("new text");
    ui.queueInput("2003");
    ui.queueAnswer(Ui::Answer::Ok);
    w->mnusave_Click();
    EXPECT_EQ(db.help.column("SELECT rezul FROM tblhelp WHERE rezgod = '2003'"),
              QStringList({"new text"}));
    // SSB is a different row
    w->Option2_Click();
    w->txtrez->setText("ssb text");
    ui.queueInput("2003");
    w->mnusave_Click();
    EXPECT_EQ(db.help.count("SELECT * FROM tblhelp WHERE rezgod = '2003'"), 2);
}

TEST_F(HelpWindowTest, EmptyResultsAreNotStored) {
    open("wae");
    const int before = db.help.count("SELECT * FROM tblhelp");
    ui.queueInput(std::nullopt); // cancelled year box
    ui.queueAnswer(Ui::Answer::Ok);
    w->mnusave_Click();
    EXPECT_EQ(ui.takeShown(), QStringList({"inputbox\tВведите год \tВвод года",
                                           "msgbox\tВнесите результаты \t Ошибка\tok"}));
    EXPECT_EQ(db.help.count("SELECT * FROM tblhelp"), before);
}

TEST_F(HelpWindowTest, ExitAndEscCloseTheWindow) {
    open("cqww");
    w->mnuexit_Click();
    EXPECT_FALSE(w->isShown());
    open("cqww");
    EXPECT_TRUE(w->isShown());
    w->pressKey(keys::Esc);
    EXPECT_FALSE(w->isShown());
}

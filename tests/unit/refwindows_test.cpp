// The DXCC prefix window and the Russian districts window: key filters, incremental search,
// adding prefixes (a prefix added without both prefixes: the reference_windows scenario).
#include "formfixture.h"
#include "forms/dxcc1/dxcc1form.h"
#include "forms/rusdx/rusdxform.h"

using namespace hfc;
using hfc::test::FormFixture;

namespace {

QStringList column(const Control* grid, int col) {
    QStringList out;
    for (const QStringList& r : grid->rows()) out << r.value(col);
    return out;
}

bool sorted(const QStringList& l) {
    return std::is_sorted(l.begin(), l.end());
}

// Rows as one text, so that a failure prints readably.
std::string str(const Rows& rows) {
    QStringList lines;
    for (const QStringList& r : rows) lines << r.join('|');
    return lines.join('\n').toStdString();
}

} // namespace

struct DxccWindowTest : FormFixture {
    Dxcc1Form* w = nullptr;
    void SetUp() override {
        FormFixture::SetUp();
        form->mnudxcc_Click();
        w = qobject_cast<Dxcc1Form*>(form->subForm("dxcc1"));
        ASSERT_NE(w, nullptr);
    }
    void typeInto(const QString& box, const QString& keys) {
        w->setFocus(box);
        w->typeText(keys);
    }
    int dxccRows() { return db.dxcc.count("SELECT * FROM tbldxcc"); }
};

TEST_F(DxccWindowTest, PrefixSearchIsUpperCasedAndOrderedByPrefix) {
    EXPECT_EQ(int(w->DBGrid1->rows().size()), dxccRows()); // at load: the whole table
    typeInto("txtserch", "ua");
    EXPECT_EQ(w->txtserch->text(), "UA");
    const QStringList prf = column(w->DBGrid1, 0);
    EXPECT_EQ(prf.size(), db.dxcc.count("SELECT * FROM tbldxcc WHERE substr(prf, 1, 2) = 'UA'"));
    ASSERT_FALSE(prf.isEmpty());
    for (const QString& p : prf) EXPECT_TRUE(p.startsWith("UA")) << p.toStdString();
    EXPECT_TRUE(sorted(prf));
}

TEST_F(DxccWindowTest, CountrySearchKeepsTableOrderAndRefusesBlanks) {
    // a row added last but sorting first by prefix: shown last
    db.dxcc.run("INSERT INTO tbldxcc VALUES ('0AX', '0AX', 'AUSTRALIA', 'OC', '55', '30')");
    typeInto("txtserch1", "aust ra");
    EXPECT_EQ(w->txtserch1->text(), "AUSTRA");
    const Rows want =
        db.dxcc.query("SELECT * FROM tbldxcc WHERE substr(strana, 1, 6) = 'AUSTRA' ORDER BY rowid");
    ASSERT_GT(want.size(), 2u);
    EXPECT_EQ(str(w->DBGrid1->rows()), str(want));
    EXPECT_EQ(w->DBGrid1->rows().back().value(0), "0AX");
    // wildcard characters typed literally find nothing instead of everything
    w->txtserch1->setText("%");
    w->fire("txtserch1_KeyUp");
    EXPECT_TRUE(w->DBGrid1->rows().empty());
}

TEST_F(DxccWindowTest, AddCutsTheCountryAndAllowsDuplicates) {
    const int before = dxccRows();
    for (int round = 0; round < 2; ++round) {
        typeInto("txtprf", "zz9z\r");
        w->typeText("franzjosefland1\r");    // 15 characters
        w->typeText("eu\r40\r75\rr1fj\r\r"); // the second Enter presses "Добавить"
        EXPECT_EQ(w->focusName(), "txtprf");
        for (const char* f : {"txtprf", "txtstran", "txtkont", "txtitu", "txtcq", "txtpref"})
            EXPECT_EQ(w->control(f)->text(), "") << f;
    }
    EXPECT_EQ(dxccRows(), before + 2);
    EXPECT_EQ(str(db.dxcc.query("SELECT prf, PREF, strana, kont, iaru, cq FROM tbldxcc "
                                "WHERE prf = 'ZZ9Z'")),
              str(Rows(2, QStringList({"ZZ9Z", "R1FJ", "FRANZJOSEFLAND", "EU", "40", "75"}))));
    EXPECT_TRUE(ui.takeShown().isEmpty());
}

struct RusdxWindowTest : FormFixture {
    RusdxForm* w = nullptr;
    void SetUp() override {
        FormFixture::SetUp();
        form->mnurusdx_Click();
        w = qobject_cast<RusdxForm*>(form->subForm("rusdx"));
        ASSERT_NE(w, nullptr);
    }
};

TEST_F(RusdxWindowTest, TypedPrefixIsUpperCasedLimitedAndSearched) {
    w->typeText("3a");
    EXPECT_EQ(w->txtserch->text(), "3A");
    ASSERT_FALSE(w->DBGrid1->rows().empty());
    w->typeText("b-c9z");
    EXPECT_EQ(w->txtserch->text(), "3ABC9");
    EXPECT_TRUE(w->DBGrid1->rows().empty());
    w->Command1_Click();
    EXPECT_FALSE(w->isShown());
    // Opened again: a fresh window
    form->mnurusdx_Click();
    EXPECT_TRUE(w->isShown());
    EXPECT_EQ(w->txtserch->text(), "");
}

// The DXCC prefix window: a prefix added by the operator lands in the table the scoring reads (a
// prefix added without both prefixes: the reference_windows scenario).
#include "formfixture.h"
#include "forms/dxcc1/dxcc1form.h"

using namespace hfc;
using hfc::test::FormFixture;

namespace {

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

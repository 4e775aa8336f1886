// What the function keys and Enter send: F3's full call, variables in the operator's texts, and
// Enter sending messages (a station setting), keyed on a recording port.
#include "formfixture.h"
#include "keyer/keyport.h"
#include "station/settings.h"

#include <QCoreApplication>

using namespace hfc;
using hfc::test::FormFixture;

namespace {

constexpr int F3 = 114, F4 = 115, F7 = 118;

struct KeyerMessagesTest : FormFixture {
    hfc::test::QtApp qt;
    RecordingKeyPort port;
    StationSettings settings;
    QStringList messages; // every text handed to the keyer, in order

    void SetUp() override {
        FormFixture::SetUp();
        Env env = form->env();
        env.port = &port;
        env.settings = &settings;
        form = std::make_unique<ContestForm>(env);
        form->Form_Load();
        QObject::connect(form.get(), &ContestForm::messageQueued,
                         [this](const QString& t) { messages << t; });
    }
    void TearDown() override { form.reset(); }
    void ownCall(const QString& call) {
        form->setFocus(form->TXTNCALL);
        form->TXTNCALL->setText(call);
        enter();
    }
    // A contest with a serial exchange and a band, the call box focused.
    void startCqww() {
        ui.queueInput("14");
        form->call("mnucqww_Click", {});
        form->cmbband_Click(3);
        form->setFocus(form->txtcall);
    }
    void type(const QString& text) { form->typeText(text); }
    void enter() { form->typeChar(QLatin1Char('\r')); }
    QString logged() { return db.contest.column("SELECT ccall FROM tbllog").join(','); }
};

TEST_F(KeyerMessagesTest, F3SendsTheFullCallAndOperatorTextsTakeVariables) {
    ownCall("UA3ABC");
    EXPECT_EQ(text("TXTNCALL"), "ABC") << "the box keeps its cut";
    form->pressKey(F3);
    EXPECT_EQ(form->cwtext, "UA3ABC");
    form->txtcall->setText("DL1XYZ");
    form->txtrsts->setText("001");
    form->txtrstr->setText("14");
    form->txtf4->setText("{CALL} DE {MYCALL}");
    form->txtf7->setText("{RST} {NR}");
    form->pressKey(F4);
    EXPECT_EQ(form->cwtext, "DL1XYZ DE UA3ABC");
    form->pressKey(F7);
    EXPECT_EQ(form->cwtext, "5NN oo1") << "the report as F5 sends it, the number with cut zeros";
}

TEST_F(KeyerMessagesTest, EnterSendsCqThenCallAndExchangeThenThanksAndLogs) {
    ownCall("UA3ABC");
    startCqww();
    settings.esm = true;
    form->txttu->setText("TU {MYCALL}");
    enter();
    EXPECT_EQ(messages, QStringList{"TEST"}) << "an empty call box calls CQ";
    EXPECT_EQ(form->focusName(), "txtcall");
    messages.clear();

    type("DL1XYZ");
    enter();
    EXPECT_EQ(messages, (QStringList{"DL1XYZ", "5NN14"})) << "F6 then F5: the own zone";
    EXPECT_EQ(form->focusName(), "txtrstr");
    EXPECT_EQ(logged(), "");
    messages.clear();

    form->txtrstr->setText(QString()); // the zone as typed, not as looked up
    type("14");
    enter();
    EXPECT_EQ(messages, QStringList{"TU UA3ABC"});
    EXPECT_EQ(logged(), "DL1XYZ");
    EXPECT_EQ(form->focusName(), "txtcall");
}

TEST_F(KeyerMessagesTest, ARefusedExchangeIsNotThankedNorLogged) {
    settings.esm = true;
    startCqww();
    type("DL1XYZ");
    enter();
    messages.clear();
    form->txtrstr->setText(QString());
    type("99"); // no such CQ zone
    enter();
    EXPECT_TRUE(messages.isEmpty());
    EXPECT_EQ(logged(), "");
}

} // namespace

// Function keys, the keyer panel and the CAT link of the main window, keyed on a recording port.
// The F-key factors (and the bar's unit restored after a factor), F5 with cut zeros, a busy port
// and F1 in WAE are played through in the keyer_keys scenario.
#include "formfixture.h"
#include "keyer/keyer.h"
#include "keyer/keyport.h"
#include "keyer/serialkeyport.h"

#include <QCoreApplication>

using namespace hfc;
using hfc::test::FormFixture;

namespace {

KeyEvent ev(qint64 t, const char* name, bool v) {
    return {t, QString::fromLatin1(name), v};
}

struct KeyerPanelTest : FormFixture {
    // The keyer's thread hands its notices to the window through the event queue.
    hfc::test::QtApp qt;
    RecordingKeyPort port;

    void SetUp() override {
        FormFixture::SetUp();
        Env env = form->env();
        env.port = &port;
        form = std::make_unique<ContestForm>(env);
        form->Form_Load();
    }
    // The keyer's thread uses the port until the window is gone.
    void TearDown() override { form.reset(); }

    // What the port saw once the queued messages are out and the window has had its notices.
    std::vector<KeyEvent> sent() {
        if (KeyerBackend* k = form->keyer()) k->waitIdle();
        QCoreApplication::sendPostedEvents();
        auto events = port.takeEvents();
        if (!events.empty()) {
            const qint64 t0 = events.front().time;
            for (KeyEvent& e : events) e.time -= t0;
        }
        return events;
    }
    void key(int code, int shift = 0) { form->pressKey(code, shift); }
};

constexpr int F2 = 113, F3 = 114, F8 = 119, Esc = 27;

TEST_F(KeyerPanelTest, ALineThatCannotBeSetIsReportedLikeABusyPort) {
    port.setLinesFail(true);
    ui.queueAnswer(Ui::Answer::Ok);
    key(F2);
    EXPECT_EQ(sent(), std::vector<KeyEvent>{ev(0, "PortOpen", true)});
    EXPECT_EQ(ui.takeShown().size(), 1);
}

TEST_F(KeyerPanelTest, EscStopsTheMessageAndDropsTheQueue) {
    port.holdAt(100000); // inside the first dash of "TEST" (0..225000 at factor 0,5)
    key(F2);
    key(F8); // waits behind the first
    ASSERT_TRUE(port.waitUntilHeld(5000));
    key(Esc);
    const std::vector<KeyEvent> expected = {
        ev(0, "PortOpen", true),        ev(0, "RTSEnable", true),
        ev(0, "DTREnable", true),       ev(100000, "DTREnable", false),
        ev(100000, "RTSEnable", false), ev(100000, "PortOpen", false)};
    EXPECT_EQ(sent(), expected);
    EXPECT_EQ(form->cwunit, 150000);
    // Esc with nothing being sent does nothing to the port.
    key(Esc);
    EXPECT_TRUE(sent().empty());
}

TEST_F(KeyerPanelTest, F10AndLettersSendNothing) {
    form->txtf9->setText("AGN");
    key(120);
    EXPECT_EQ(form->cwtext, "AGN");
    sent();
    key(121); // F10 sends nothing
    key(65);
    EXPECT_EQ(form->cwtext, "AGN");
    EXPECT_TRUE(sent().empty());
}

TEST_F(KeyerPanelTest, PortChoice) {
    form->click("Option1(2)");
    form->TXTNCALL->setText("E");
    key(F3);
    sent();
    EXPECT_EQ(port.lastCommPort(), 3);
    form->click("Option1(0)");
    key(F3);
    sent();
    EXPECT_EQ(port.lastCommPort(), 1);
}

TEST_F(KeyerPanelTest, PortsLabelShowsTheDevicesOfARealPort) {
    EXPECT_EQ(text("lblports"), "") << "the recording port has no devices";
    SerialKeyPort serial({"/dev/ttyUSB0", "/dev/ttyS1"});
    Env env = form->env();
    env.port = &serial;
    ContestForm other(env);
    EXPECT_EQ(other.lblports->text(), "COM1 /dev/ttyUSB0   COM2 /dev/ttyS1   COM3 нет   COM4 нет");
}

} // namespace

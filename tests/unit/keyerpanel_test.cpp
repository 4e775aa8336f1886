// Function keys, the keyer panel and the CAT link of the main window, keyed on a recording port.
// The F-key factors (and the bar's unit restored after a factor), F5 with cut zeros, a busy port
// and F1 in WAE are played through in the keyer_keys scenario; Esc and a line that cannot be set
// on the keyer itself in keyer_test.cpp, and Esc from the window in KeyerChoiceTest.
#include "formfixture.h"
#include "keyer/keyer.h"
#include "keyer/keyport.h"
#include "keyer/serialkeyport.h"

#include <QCoreApplication>

using namespace hfc;
using hfc::test::FormFixture;

namespace {

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
        return port.takeEvents();
    }
    void key(int code, int shift = 0) { form->pressKey(code, shift); }
};

constexpr int F3 = 114;

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

// The radio through the real rigctld (Hamlib's dummy radio): the window follows it, the band
// buttons move it, QSOs keep its frequency, and a stopped daemon is shown and found
// again (a radio that stops answering is dropped and opened anew, as a restarted one is).
#include "clusterserver.h"
#include "formfixture.h"
#include "rigctld.h"
#include "station/rig.h"
#include "station/settings.h"

using namespace hfc;
using hfc::test::Rigctld;
using hfc::test::spin;
using hfc::test::waitFor;

namespace {

struct RigTest : hfc::test::FormFixture {
    hfc::test::QtApp qt;
    QByteArray oldXdg;
    StationSettings settings;
    Rigctld daemon;

    void SetUp() override {
        // The settings window writes the station's file: not the user's own.
        oldXdg = qgetenv("XDG_CONFIG_HOME");
        qputenv("XDG_CONFIG_HOME", (dir.path() + "/config").toLocal8Bit());
        FormFixture::SetUp();
        ASSERT_TRUE(daemon.start()) << "rigctld (Debian libhamlib-utils) does not start";
        settings.rigctld = daemon.address();
    }
    void TearDown() override {
        form.reset();
        daemon.stop();
        qputenv("XDG_CONFIG_HOME", oldXdg);
    }
    void openWindow() {
        Env env = form->env();
        env.settings = &settings;
        form = std::make_unique<ContestForm>(env);
        form->Form_Load();
    }
    bool online() { return text("lblrig").contains(QStringLiteral("на связи")); }
    bool lost() { return text("lblrig").contains(QStringLiteral("нет связи")); }
    void connected() {
        openWindow();
        ASSERT_TRUE(waitFor([&] { return online() && !text("lblfreq").isEmpty(); }))
            << text("lblrig").toStdString();
    }
    // The operator turns the radio's dial; the window shows it.
    void tune(const char* hz, const char* shown) {
        daemon.rigctl(QStringLiteral("F %1").arg(hz));
        ASSERT_TRUE(waitFor([&] { return text("lblfreq") == shown; }))
            << text("lblfreq").toStdString();
    }
    bool radioAt(const char* hz) {
        return waitFor([&] { return daemon.rigctl("f") == hz; });
    }
};

TEST_F(RigTest, BandModeAndFrequencyFollowTheRadio) {
    connected();
    EXPECT_TRUE(text("lblrig").contains(daemon.address()));
    form->setFocus("txtrstr"); // the operator is typing the exchange meanwhile
    tune("21025000", "21025.0");
    EXPECT_EQ(form->curband, "21");
    EXPECT_EQ(form->lblfreq->backcolor(), "");

    daemon.rigctl("M USB 2400");
    ASSERT_TRUE(waitFor([&] { return text("cmbmod") == "SSB"; }));
    EXPECT_EQ(text("lblrstr"), "59");
    daemon.rigctl("M CW 500");
    ASSERT_TRUE(waitFor([&] { return text("cmbmod") == "CW"; }));
    EXPECT_EQ(text("lblrsts"), "599");

    // Outside the bands: the band stays, the frequency turns red.
    tune("10125000", "10125.0");
    EXPECT_EQ(form->curband, "21");
    EXPECT_EQ(form->lblfreq->backcolor(), "#ff0000");
    tune("7001500", "7001.5");
    EXPECT_EQ(form->curband, "7");
    EXPECT_EQ(form->focusName(), "txtrstr");
}

TEST_F(RigTest, BandButtonsMoveTheRadioAndNeverFightTheDial) {
    connected();
    form->click(form->cmbband[3]); // CW: the band's CW start
    EXPECT_TRUE(radioAt("14010000"));
    tune("14025300", "14025.3");
    // Polls go on; nothing the window does puts the radio back.
    spin(4 * Rig::PollMs);
    EXPECT_EQ(daemon.rigctl("f"), "14025300");
    EXPECT_EQ(form->curband, "14");

    form->click(form->cmbband[4]);
    EXPECT_TRUE(radioAt("21010000"));
    ASSERT_TRUE(waitFor([&] { return text("lblfreq") == "21010.0"; }));
    EXPECT_EQ(form->curband, "21");
    form->click(form->cmbband[3]); // back where the operator left 14 MHz
    EXPECT_TRUE(radioAt("14025300"));
}

TEST_F(RigTest, EachQsoKeepsTheRadiosFrequencyInTheLog) {
    connected();
    form->contestcode = "cqww";
    tune("14025560", "14025.6");
    const auto log = [&](const char* call) {
        form->txtcall->setText(call);
        form->txtrstr->setText("16");
        form->wwodadd();
    };
    log("DL1ABC");
    // (a hung radio gives no frequency: StoppedDaemonIsShownAndUsedAgainWhenItContinues)
    EXPECT_EQ(db.contest.column("SELECT ccall || ' ' || freq FROM tbllog"),
              QStringList({"DL1ABC 14025.6"}));
    // how the files write a stored or missing frequency: see the frequency-column tests
}

TEST_F(RigTest, StoppedDaemonIsShownAndUsedAgainWhenItContinues) {
    connected();
    tune("7025000", "7025.0");
    daemon.freeze();
    ASSERT_TRUE(waitFor([&] { return lost(); }));
    EXPECT_EQ(form->lblrig->backcolor(), "#ff0000");
    EXPECT_EQ(text("lblfreq"), "");
    EXPECT_EQ(form->qsoFreq(), "");
    // The window goes on taking keys while the radio hangs.
    form->setFocus("txtcall");
    form->typeText("ua3abc");
    EXPECT_EQ(text("txtcall"), "UA3ABC");

    daemon.cont();
    ASSERT_TRUE(waitFor([&] { return online(); }));
    tune("3525000", "3525.0");
    EXPECT_EQ(form->curband, "3,5");
    EXPECT_EQ(form->qsoFreq(), "3525.0");
}

TEST_F(RigTest, ARadioOnThisComputerNeedsNoDaemon) {
    // Hamlib's dummy model linked in directly: no rigctld between.
    settings = StationSettings{};
    settings.rigModel = 1;
    openWindow();
    ASSERT_TRUE(waitFor([&] { return online() && !text("lblfreq").isEmpty(); }))
        << text("lblrig").toStdString();
    EXPECT_TRUE(text("lblrig").contains("модель 1"));
}

} // namespace

// The settings window: every key of the station's settings shown, changed and saved to the conf
// file beside the program's own keys; bad values refused with a message and nothing written.
// Nothing else opens the window from the menu: a broken menu item is seen at once.
#include "forms/settings/settingsform.h"
#include "script/scriptedui.h"
#include "station/settings.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace hfc;

namespace {

struct SettingsTest : ::testing::Test {
    QTemporaryDir dir;
    QByteArray oldXdg;
    ScriptedUi ui;
    StationSettings settings;
    std::unique_ptr<SettingsForm> form;
    int saved = 0;

    void SetUp() override {
        oldXdg = qgetenv("XDG_CONFIG_HOME");
        qputenv("XDG_CONFIG_HOME", dir.path().toLocal8Bit());
        settings.rigctld = "127.0.0.1:4532";
        settings.keyerBackend = "cwdaemon";
        settings.esm = true;
        Env env;
        env.ui = &ui;
        env.settings = &settings;
        form = std::make_unique<SettingsForm>(env);
        QObject::connect(form.get(), &SettingsForm::saved, [this] { ++saved; });
        form->Form_Load();
        form->show();
    }
    void TearDown() override { qputenv("XDG_CONFIG_HOME", oldXdg); }
    QString path() const { return StationSettings::defaultPath(); }
};

TEST_F(SettingsTest, EveryKeyIsShownChangedAndSavedBesideTheProgramsOwnKeys) {
    EXPECT_EQ(path(), dir.path() + "/hfcontest/hfcontest.conf");
    EXPECT_EQ(form->txtrigctld->text(), "127.0.0.1:4532");
    EXPECT_EQ(form->cmbkeyer->text(), "cwdaemon");
    EXPECT_TRUE(form->chkesm->checked());
    EXPECT_EQ(form->txtrigmodel->text(), ""); // no model: an empty box, not "0"
    {
        QSettings own(path(), QSettings::IniFormat);
        own.setValue("keyer/txtf4", "TU UA3ABC"); // the program's own key in the same file
    }
    const std::pair<Control*, const char*> typed[] = {
        {form->txtrigctld, ""},
        {form->txtrigmodel, "1035"},
        {form->txtrigport, "/dev/ttyUSB0"},
        {form->txtrigspeed, "4800"},
        {form->txtft1000mp, "/dev/ttyS1"},
        {form->txtclusterhost, "dxc.example.org:7300"},
        {form->txtclusterlogin, "UA3ABC"},
        {form->cmbkeyer, "winkeyer"},
        {form->txtcwdaemon, "10.0.0.2:6789"},
        {form->txtwinkeyer, "/dev/ttyUSB1"},
        {form->txtbroker, "10.0.0.1:1883"},
        {form->txtlogid, "cqww2026"},
        {form->txtnode, "run"},
        {form->txtuser, "op"},
        {form->txtpassword, " p w "}};
    for (const auto& [box, value] : typed) box->setText(value);
    form->click(form->chkesm);
    EXPECT_FALSE(form->chkesm->checked());
    form->cmdsave_Click();
    EXPECT_EQ(saved, 1);
    EXPECT_FALSE(form->isShown());

    QSettings conf(path(), QSettings::IniFormat);
    const StationSettings back = StationSettings::load(conf);
    QStringList want; // in the order of the boxes typed into; a password is taken as typed
    for (const auto& [box, value] : typed) want << value;
    for (const StationSettings* s : {&back, static_cast<const StationSettings*>(
                                                &settings)}) { // the file and the settings in use
        EXPECT_EQ(QStringList({s->rigctld, QString::number(s->rigModel), s->rigPort,
                               QString::number(s->rigSpeed), s->ft1000mp, s->clusterHost,
                               s->clusterLogin, s->keyerBackend, s->cwdaemon, s->winkeyer,
                               s->broker, s->logid, s->node, s->user, s->password}),
                  want);
        EXPECT_FALSE(s->esm);
    }
    EXPECT_EQ(conf.value("keyer/txtf4").toString(), "TU UA3ABC");
}

TEST_F(SettingsTest, BadValuesAreSaidAndNothingIsWritten) {
    const std::pair<Control*, const char*> bad[] = {{form->txtbroker, "broker:70000"},
                                                    {form->cmbkeyer, "morse"}};
    for (const auto& [box, value] : bad) {
        form->Form_Load();
        box->setText(value);
        ui.queueAnswer(Ui::Answer::Ok);
        form->cmdsave_Click();
        const QStringList shown = ui.takeShown();
        ASSERT_EQ(shown.size(), 1) << box->name().toStdString();
        EXPECT_TRUE(shown[0].contains("Настройки")) << shown[0].toStdString();
        EXPECT_EQ(form->focusName(), box->name());
        EXPECT_TRUE(form->isShown());
    }
    EXPECT_EQ(saved, 0);
    EXPECT_FALSE(QFile::exists(path()));
    EXPECT_EQ(settings.rigctld, "127.0.0.1:4532");

    form->txtrigctld->setText("127.0.0.1:4532");
    form->cmdcancel_Click(); // Cancel keeps what was in use
    EXPECT_FALSE(form->isShown());
    EXPECT_FALSE(QFile::exists(path()));
}

} // namespace

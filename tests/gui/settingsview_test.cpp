// The settings window as the operator meets it: "Сервис" → "Настройки…" opens it, typed keys
// reach the model's boxes, and its Save button writes the conf file.
#include "forms/settings/settingsform.h"
#include "station/settings.h"
#include "windowfixture.h"

#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QTest>

using namespace hfc;

TEST(SettingsViewGui, OpensFromTheServiceMenuAndSavesWhatIsTyped) {
    QTemporaryDir config;
    const QByteArray oldXdg = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", config.path().toLocal8Bit());
    {
        Window w;
        QMenu* service = nullptr;
        for (QAction* a : w.win->menuBar()->actions())
            if (QString(a->text()).remove('&') == "Сервис") service = a->menu();
        ASSERT_NE(service, nullptr);
        QAction* item = nullptr;
        for (QAction* a : service->actions())
            if (a->text() == "Настройки…") item = a;
        ASSERT_NE(item, nullptr);
        item->trigger();
        QWidget* window = nullptr;
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->isVisible() && top->windowTitle() == "Настройки") window = top;
        ASSERT_NE(window, nullptr);

        auto* rigctld = window->findChild<QLineEdit*>("txtrigctld");
        ASSERT_NE(rigctld, nullptr);
        QApplication::setActiveWindow(window);
        rigctld->setFocus();
        QTest::keyClicks(rigctld, "127.0.0.1:4532");
        QPushButton* save = nullptr;
        for (QPushButton* b : window->findChildren<QPushButton*>())
            if (b->text() == "Сохранить") save = b;
        ASSERT_NE(save, nullptr);
        save->click();
        EXPECT_FALSE(window->isVisible());
        QSettings conf(StationSettings::defaultPath(), QSettings::IniFormat);
        EXPECT_EQ(conf.value("rig/rigctld").toString(), "127.0.0.1:4532");
    }
    qputenv("XDG_CONFIG_HOME", oldXdg);
}

// hfcontest: the contest logger.
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "mainwindow.h"
#include "qtui.h"

#include <QApplication>
#include <QMessageBox>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("hfcontest"));
    QString dataDir;
    const QStringList args = app.arguments();
    for (int i = 1; i < args.size(); ++i)
        if (args[i] == QLatin1String("--data-dir") && i + 1 < args.size()) dataDir = args[++i];
    if (dataDir.isEmpty()) dataDir = hfc::defaultDataDir();

    hfc::Databases db;
    QString error;
    if (!db.open(dataDir, error)) {
        QMessageBox::critical(nullptr, QStringLiteral("Ошибка !!!"), error);
        return 1;
    }
    hfc::QtUi ui;
    hfc::SystemClock clock;
    hfc::Env env;
    env.db = &db;
    env.ui = &ui;
    env.clock = &clock;
    hfc::ContestForm form(env);
    form.Form_Load();
    hfc::MainWindow window(&form);
    ui.setParent(&window);
    window.show();
    return app.exec();
}

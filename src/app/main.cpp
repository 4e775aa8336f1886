// hfcontest: the contest logger.
#include "data/databases.h"
#include "data/restore.h"
#include "exportcommand.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "keyer/serialkeyport.h"
#include "mainwindow.h"
#include "qtui.h"
#include "station/settings.h"

#include <QApplication>
#include <QMessageBox>
#include <QSettings>
#include <cstring>

int main(int argc, char** argv) {
    // `hfcontest export ...` writes a report file without opening a window.
    if (argc > 1 && std::strcmp(argv[1], "export") == 0) {
        QCoreApplication app(argc, argv);
        QTextStream out(stdout), err(stderr);
        return hfc::runExportCommand(app.arguments().mid(2), out, err);
    }
    // `hfcontest restore [--data-dir DIR] BACKUP` puts a backup in place of the log.
    if (argc > 1 && std::strcmp(argv[1], "restore") == 0) {
        QCoreApplication app(argc, argv);
        QTextStream out(stdout), err(stderr);
        return hfc::runRestoreCommand(app.arguments().mid(2), out, err);
    }
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
    // HFCONTEST_PORTS="/dev/ttyUSB0,/dev/ttyS1": the devices behind COM1, COM2, ... of the panel.
    QStringList ports = qEnvironmentVariable("HFCONTEST_PORTS").split(',', Qt::SkipEmptyParts);
    for (QString& p : ports) p = p.trimmed();
    ports.removeAll(QString());
    hfc::SerialKeyPort keyPort(ports.isEmpty() ? hfc::SerialKeyPort::defaultDevices() : ports);
    env.port = &keyPort;
    QSettings settings(hfc::StationSettings::defaultPath(), QSettings::IniFormat);
    hfc::StationSettings station = hfc::StationSettings::load(settings);
    env.settings = &station;
    hfc::ContestForm form(env);
    form.Form_Load();
    // The operator's own F4, F7 and F9 messages and the thanks text are kept between runs, as any
    // contest keyer does; F2 and F8 start from their standard texts.
    for (hfc::Control* c : {form.txtf4, form.txtf7, form.txtf9, form.txttu}) {
        const QString key = QStringLiteral("keyer/") + c->name();
        c->setText(settings.value(key, c->text()).toString());
        QObject::connect(c, &hfc::Control::changed, c,
                         [&settings, c, key] { settings.setValue(key, c->text()); });
    }
    hfc::MainWindow window(&form);
    ui.setParent(&window);
    // The window comes back where it was, with its panels where the operator dragged them.
    window.restoreGeometry(settings.value(QStringLiteral("window/geometry")).toByteArray());
    window.restoreLayout(settings.value(QStringLiteral("window/panels")).toByteArray());
    window.show();
    const int rc = app.exec();
    settings.setValue(QStringLiteral("window/geometry"), window.saveGeometry());
    settings.setValue(QStringLiteral("window/panels"), window.saveLayout());
    return rc;
}

// hfcontest-script: drives the main window headless, for tests and automation.
#include "script/scriptrunner.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>
#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    QString dataDir, file;
    for (int i = 1; i < args.size(); ++i) {
        if (args[i] == "--data-dir" && i + 1 < args.size())
            dataDir = args[++i];
        else
            file = args[i];
    }
    QTextStream out(stdout), err(stderr);
    if (dataDir.isEmpty() || file.isEmpty()) {
        err << "usage: hfcontest-script --data-dir DIR FILE|-\n";
        return 2;
    }
    QFile in;
    const bool ok = file == "-" ? in.open(stdin, QIODevice::ReadOnly)
                                : (in.setFileName(file), in.open(QIODevice::ReadOnly));
    if (!ok) {
        err << "cannot read " << file << "\n";
        return 2;
    }
    const QString text = QString::fromUtf8(in.readAll());
    hfc::ScriptRunner runner(out, err);
    if (!runner.start(dataDir)) return 2;
    return runner.runScript(text);
}

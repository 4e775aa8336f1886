#include "reports/exportcommand.h"

#include <QCoreApplication>
#include <cstring>

int main(int argc, char** argv) {
    // `hfcontest export ...` writes a report file without opening a window.
    if (argc > 1 && std::strcmp(argv[1], "export") == 0) {
        QCoreApplication app(argc, argv);
        QTextStream out(stdout), err(stderr);
        return hfc::runExportCommand(app.arguments().mid(2), out, err);
    }
    return 0;
}

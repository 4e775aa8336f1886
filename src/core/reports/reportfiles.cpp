#include "reports/reportfiles.h"

#include "data/db.h"
#include "data/safefile.h"
#include "log/logstore.h"

namespace hfc {

QList<LogRow> logInReportOrder(Db& contest) {
    return LogStore(contest).rowsInReportOrder();
}

QList<LogRow> logInEntryOrder(Db& contest) {
    return LogStore(contest).rowsInEntryOrder();
}

QList<LogRow> qtcTableRows(Db& contest) {
    return LogStore(contest).qtcRows();
}

// Not QSaveFile: its commit() does not report bytes that fail when the file is closed, so a
// small report on a full disk became an empty file said to be written.
bool writeReportFile(const QString& path, const QByteArray& bytes, QString* error) {
    return writeFileWhole(path, bytes, error);
}

} // namespace hfc

#include "reports/exportcommand.h"

#include "contests/catalogue.h"
#include "data/databases.h"
#include "forms/otchet/otchetform.h"

#include <QFileInfo>

namespace hfc {

namespace {

const char* const kUsage =
    "Использование: hfcontest export [--data-dir ПАПКА_ДАННЫХ] --to ПАПКА [--contest КОД] "
    "cabrillo|adif|log|sum";

// The code of the contest whose title the station data keeps (the report window stores the
// title when it opens), else the code a log has before any contest is chosen. It matters only
// for the heading of the .LOG listing and the score rule.
QString storedContestCode(Db& contest) {
    try {
        const QString title = contest.scalar(QStringLiteral("SELECT contest FROM tbltit LIMIT 1"));
        for (const contests::Contest& c : contests::catalogue())
            if (title == QString::fromUtf8(c.title)) return QString::fromUtf8(c.code);
    } catch (const DbError&) {
    }
    return QStringLiteral("hi hi");
}

int usage(QTextStream& err, const QString& why) {
    if (!why.isEmpty()) err << why << "\n";
    err << QString::fromUtf8(kUsage) << "\n";
    return 2;
}

} // namespace

int runExportCommand(const QStringList& argsIn, QTextStream& out, QTextStream& err) {
    QStringList args = argsIn;
    if (!args.isEmpty() && args.front() == QLatin1String("export")) args.removeFirst();

    QString dataDir, folder, kind;
    QString contest;
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        const bool hasValue = i + 1 < args.size();
        if (a == QLatin1String("--data-dir") || a == QLatin1String("--to") ||
            a == QLatin1String("--contest")) {
            if (!hasValue) return usage(err, QStringLiteral("Не задано значение для %1.").arg(a));
            QString& target = a == QLatin1String("--data-dir") ? dataDir
                              : a == QLatin1String("--to")     ? folder
                                                               : contest;
            target = args[++i];
        } else if (a.startsWith(QLatin1String("--"))) {
            return usage(err, QStringLiteral("Неизвестный параметр %1.").arg(a));
        } else if (kind.isEmpty()) {
            kind = a;
        } else {
            return usage(err, QStringLiteral("Лишнее слово в команде: %1.").arg(a));
        }
    }

    using Button = void (OtchetForm::*)();
    Button button = nullptr;
    if (kind == QLatin1String("cabrillo"))
        button = &OtchetForm::Ccabrila_Click;
    else if (kind == QLatin1String("adif"))
        button = &OtchetForm::cmbAdif_Click;
    else if (kind == QLatin1String("log"))
        button = &OtchetForm::cmbreport_Click;
    else if (kind == QLatin1String("sum"))
        button = &OtchetForm::cmbtit_Click;
    else if (kind.isEmpty())
        return usage(err, QStringLiteral("Не указан вид отчёта."));
    else
        return usage(err, QStringLiteral("Неизвестный вид отчёта: %1.").arg(kind));
    if (folder.isEmpty()) return usage(err, QStringLiteral("Не указана папка для отчёта (--to)."));

    if (dataDir.isEmpty()) dataDir = defaultDataDir();
    // Exporting must not create an empty log where the operator expected his own.
    const QString logFile = dataDir + QStringLiteral("/dbcontest.sqlite");
    if (!QFileInfo(logFile).isFile()) {
        err << QStringLiteral("Журнал не найден: нет файла «%1».").arg(logFile) << "\n";
        return 1;
    }
    const QFileInfo to(folder);
    if (!to.isDir()) {
        err << QStringLiteral("Папка «%1» не найдена.").arg(folder) << "\n";
        return 1;
    }

    Databases db;
    QString error;
    if (!db.open(dataDir, error)) {
        err << error << "\n";
        return 1;
    }
    if (contest.isEmpty()) contest = storedContestCode(db.contest);
    Env env;
    env.db = &db;
    OtchetForm form(env, [contest] { return contest; });
    form.Dir1->setExtra(QStringLiteral("path"), folder);
    form.show();
    if (form.tcall->text().isEmpty()) {
        err << QStringLiteral("Не указан свой позывной: файл отчёта называется по нему. "
                              "Введите позывной в главном окне или в окне «Отчет».")
            << "\n";
        return 1;
    }
    (form.*button)();
    if (!form.lastWriteOk) {
        err << form.lblstatus->text() << "\n";
        return 1;
    }
    out << form.lblstatus->text() << "\n";
    return 0;
}

} // namespace hfc

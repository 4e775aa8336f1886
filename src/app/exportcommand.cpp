#include "exportcommand.h"

#include "contests/contestdef.h"
#include "data/databases.h"
#include "data/schema.h"
#include "data/session.h"
#include "forms/clock.h"
#include "forms/otchet/cabrillo3boxes.h"
#include "forms/otchet/otchetform.h"

#include <QFileInfo>
#include <QHash>

namespace hfc {

namespace {

const char* const kUsage =
    "Использование: hfcontest export [--data-dir ПАПКА_ДАННЫХ] --to ПАПКА [--contest КОД] "
    "[--category-power LOW|HIGH|QRP …] [--qtc sent|received] "
    "cabrillo|adif|log|sum|cabrillo3|adif3";

// The contest the log was last kept in; for a log of an older version, the code of the
// contest whose title the station data keeps (the report window stores the title when it
// opens), else the code a log has before any contest is chosen.
QString storedContestCode(Db& contest) {
    const QString kept = loadSession(contest).contest;
    if (contests::find(kept)) return kept;
    try {
        const QString title = contest.scalar(QStringLiteral("SELECT contest FROM tbltit LIMIT 1"));
        for (const contests::ContestDef& c : contests::catalogue())
            if (title == QString::fromUtf8(c.title)) return QString::fromUtf8(c.code);
    } catch (const DbError&) {
    }
    return QStringLiteral("hi hi");
}

// The log's file as the databases name it.
QString logFileName() {
    for (const DbFileDef& def : databaseFiles())
        if (def.key == QLatin1String("contest")) return def.file;
    return {};
}

int usage(QTextStream& err, const QString& why) {
    if (!why.isEmpty()) err << why << "\n";
    err << QString::fromUtf8(kUsage) << "\n";
    return 2;
}

QString categoryOption(const Cabrillo3Box& box) {
    return QStringLiteral("--") + QString::fromLatin1(box.tag).toLower();
}

using Button = void (OtchetForm::*)();

struct Kind {
    const char* word;
    Button button;
    bool standard; // the check list is printed before writing
};

const Kind kKinds[] = {
    {"cabrillo", &OtchetForm::Ccabrila_Click, false}, {"adif", &OtchetForm::cmbAdif_Click, false},
    {"log", &OtchetForm::cmbreport_Click, false},     {"sum", &OtchetForm::cmbtit_Click, false},
    {"cabrillo3", &OtchetForm::cmbcab3_Click, true},  {"adif3", &OtchetForm::cmbadif3_Click, true},
};

} // namespace

int runExportCommand(const QStringList& argsIn, QTextStream& out, QTextStream& err) {
    QStringList args = argsIn;
    if (!args.isEmpty() && args.front() == QLatin1String("export")) args.removeFirst();

    // Every option takes a value; the category boxes are set by the name of their tag.
    QHash<QString, QString> options;
    QStringList known = {QStringLiteral("--data-dir"), QStringLiteral("--to"),
                         QStringLiteral("--contest"), QStringLiteral("--qtc")};
    for (const Cabrillo3Box& box : kCabrillo3Boxes) known << categoryOption(box);
    QString word;
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if (known.contains(a)) {
            if (i + 1 >= args.size())
                return usage(err, QStringLiteral("Не задано значение для %1.").arg(a));
            options.insert(a, args[++i]);
        } else if (a.startsWith(QLatin1String("--"))) {
            return usage(err, QStringLiteral("Неизвестный параметр %1.").arg(a));
        } else if (word.isEmpty()) {
            word = a;
        } else {
            return usage(err, QStringLiteral("Лишнее слово в команде: %1.").arg(a));
        }
    }

    const Kind* kind = nullptr;
    for (const Kind& k : kKinds)
        if (word == QLatin1String(k.word)) kind = &k;
    if (word.isEmpty()) return usage(err, QStringLiteral("Не указан вид отчёта."));
    if (!kind) return usage(err, QStringLiteral("Неизвестный вид отчёта: %1.").arg(word));
    const QString folder = options.value(QStringLiteral("--to"));
    if (folder.isEmpty()) return usage(err, QStringLiteral("Не указана папка для отчёта (--to)."));

    // Category values are checked before anything is opened.
    QHash<QString, QString> boxValues; // control name -> value
    for (const Cabrillo3Box& box : kCabrillo3Boxes) {
        const QString option = categoryOption(box);
        if (!options.contains(option)) continue;
        const QString value = options.value(option).trimmed().toUpper();
        const QStringList choices = cabrillo3Choices(box.which);
        if (!choices.contains(value))
            return usage(
                err, QStringLiteral("Недопустимое значение %1 для %2; возможны: %3.")
                         .arg(options.value(option), option, choices.join(QStringLiteral(", "))));
        boxValues.insert(QLatin1String(box.control), value);
    }
    if (options.contains(QStringLiteral("--qtc"))) {
        const QString role = options.value(QStringLiteral("--qtc"));
        const int index = role == QLatin1String("sent")       ? int(QtcRole::Sent)
                          : role == QLatin1String("received") ? int(QtcRole::Received)
                                                              : -1;
        if (index < 0)
            return usage(err, QStringLiteral("Недопустимое значение %1 для --qtc; возможны: "
                                             "sent, received.")
                                  .arg(role));
        boxValues.insert(QStringLiteral("cmbqtcrole"), qtcRoleItems().at(index));
    }

    QString dataDir = options.value(QStringLiteral("--data-dir"));
    if (dataDir.isEmpty()) dataDir = defaultDataDir();
    // Exporting must not create an empty log where the operator expected his own.
    const QString logFile = dataDir + QLatin1Char('/') + logFileName();
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
    // A report may be written while the logger runs on the folder; SQLite keeps the two apart.
    if (!db.open(dataDir, error, false)) {
        err << error << "\n";
        return 1;
    }
    QString contest = options.value(QStringLiteral("--contest"));
    if (contest.isEmpty()) contest = storedContestCode(db.contest);
    SystemClock clock;
    Env env;
    env.db = &db;
    env.clock = &clock;
    OtchetForm form(env, [contest] { return contest; });
    form.Dir1->setExtra(QStringLiteral("path"), folder);
    form.show();
    if (form.tcall->text().isEmpty()) {
        err << QStringLiteral("Не указан свой позывной: файл отчёта называется по нему. "
                              "Введите позывной в главном окне или в окне «Отчет».")
            << "\n";
        return 1;
    }
    for (auto it = boxValues.cbegin(); it != boxValues.cend(); ++it)
        form.control(it.key())->setText(it.value());
    if (kind->standard)
        for (const QString& warning : form.lstlint->items())
            err << QStringLiteral("Предупреждение: ") << warning << "\n";
    (form.*kind->button)();
    if (!form.lastWriteOk) {
        err << form.lblstatus->text() << "\n";
        return 1;
    }
    out << form.lblstatus->text() << "\n";
    return 0;
}

} // namespace hfc

// Times the report window on a 10,000-QSO log: the recount on activation, reading the log in
// report order and each of the six writer buttons (read, format, write the file), next to the
// sqlite3 shell printing the same rows in the same order.
//
//   bench_export [QSOS]
#include "data/databases.h"
#include "forms/otchet/otchetform.h"
#include "reports/reportfiles.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>
#include <functional>

using namespace hfc;

namespace {

QTextStream out(stdout);

// Median of a few runs, in milliseconds.
double timeMs(const std::function<void()>& f, int runs = 7) {
    std::vector<double> t;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        f();
        t.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(t.begin(), t.end());
    return t[t.size() / 2];
}

void fillLog(Db& db, int qsos) {
    static const char* bands[] = {"1,8", "3,5", "7", "14", "21", "28"};
    static const char* pfx[] = {"DL", "OK", "UA", "JA", "W", "VK", "G", "F", "I", "SP"};
    db.begin();
    for (int i = 0; i < qsos; ++i) {
        // Three days across a month end, so text order and date order differ.
        const int minute = i * 2 % (3 * 1440);
        const int day = minute / 1440;
        const QString date = day == 0 ? "30.11.02" : QString("0%1.12.02").arg(day);
        const QString time = QString("%1:%2")
                                 .arg(minute % 1440 / 60, 2, 10, QChar('0'))
                                 .arg(minute % 60, 2, 10, QChar('0'));
        const QString call = QString("%1%2%3")
                                 .arg(pfx[i % 10])
                                 .arg(i % 9 + 1)
                                 .arg(QChar('A' + i % 26) + QString(QChar('A' + i / 26 % 26)) +
                                      QChar('A' + i / 676 % 26));
        const QString serial = QString("%1").arg(i + 1, 3, 10, QChar('0'));
        db.run("INSERT INTO tbllog (ccall, ddate, ttime, bband, rsts, rstr, rsts1, rsts2, rstr1, "
               "rstr2, mult, ps, point, point2, ps1, ps2) VALUES (?1, ?2, ?3, ?4, '599', '599', "
               "'599', ?5, '599', ?6, ?7, ?8, ?9, '0', ?10, 'cqww')",
               {call, date, time, bands[i % 6], serial, QString::number(i % 40 + 1),
                i % 7 == 0 ? QString(pfx[i % 10]) : QString(),
                i % 11 == 0 ? QString::number(i % 40 + 1) : QString(), QString::number(i % 3 + 1),
                i % 4 == 0 ? "SSB" : "CW"});
    }
    db.commit();
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int qsos = argc > 1 ? atoi(argv[1]) : 10000;
    QTemporaryDir dir, folder;
    Databases db;
    QString error;
    if (!db.open(dir.path(), error)) {
        out << error << "\n";
        return 1;
    }
    fillLog(db.contest, qsos);
    db.contest.run("UPDATE tbltit SET ccall = 'UA3ABC', nname = 'Ivan'");

    Env env;
    env.db = &db;
    OtchetForm form(env, [] { return QStringLiteral("cqww"); });
    form.Dir1->setExtra("path", folder.path());
    out << "log: " << qsos << " QSOs; median of 7 runs\n";
    out << QString("%1 %2 ms\n")
               .arg("recount on activation", -34)
               .arg(timeMs([&] { form.Form_Activate(); }), 8, 'f', 2);
    QList<LogRow> rows;
    out << QString("%1 %2 ms\n")
               .arg("read the log in report order", -34)
               .arg(timeMs([&] { rows = logInReportOrder(db.contest); }), 8, 'f', 2);

    struct Writer {
        const char* name;
        void (OtchetForm::*button)();
        const char* ext;
    };
    const Writer writers[] = {{"Cabrillo (Ccabrila)", &OtchetForm::Ccabrila_Click, ""},
                              {"ADIF (cmbAdif)", &OtchetForm::cmbAdif_Click, ""},
                              {".LOG listing (cmbreport)", &OtchetForm::cmbreport_Click, ".LOG"},
                              {".SUM sheet (cmbtit)", &OtchetForm::cmbtit_Click, ".SUM"},
                              {"Cabrillo 3.0 (cmbcab3)", &OtchetForm::cmbcab3_Click, ".log"},
                              {"ADIF 3.1 (cmbadif3)", &OtchetForm::cmbadif3_Click, ".adi"}};
    for (const Writer& w : writers) {
        const double ms = timeMs([&] { (form.*w.button)(); });
        const qint64 size = QFileInfo(form.txtput->text() + "UA3ABC" + w.ext).size();
        out << QString("%1 %2 ms  %3 bytes%4\n")
                   .arg(w.name, -34)
                   .arg(ms, 8, 'f', 2)
                   .arg(size, 9)
                   .arg(form.lastWriteOk ? "" : "  NOT WRITTEN");
    }

    // The shell has no cdate(); for these fixed-width dates the same order comes from the text.
    const QString sql =
        "SELECT ccall, ddate, ttime, bband, mode, rsts, rstr, rsts1, rsts2, rstr1, rstr2, mult, "
        "ps, point, point2, contr, PRF, QTH, ps1, ps2 FROM tbllog ORDER BY "
        "CASE WHEN substr(ddate, 7, 2) < '30' THEN '20' ELSE '19' END || substr(ddate, 7, 2) || "
        "substr(ddate, 4, 2) || substr(ddate, 1, 2), ttime, rsts2";
    QByteArray printed;
    const double shellMs = timeMs(
        [&] {
            QProcess p;
            p.start("sqlite3", {db.contest.path(), sql});
            p.waitForFinished(-1);
            printed = p.readAllStandardOutput();
        },
        5);
    if (printed.isEmpty()) {
        out << "sqlite3 shell not found or printed nothing\n";
        return 0;
    }
    const QList<QByteArray> lines = printed.trimmed().split('\n');
    bool same = lines.size() == rows.size();
    for (qsizetype i = 0; same && i < lines.size(); ++i)
        same = QString::fromUtf8(lines[i].split('|').value(0)) == rows[i].ccall &&
               QString::fromUtf8(lines[i].split('|').value(8)) == rows[i].rsts2;
    out << QString("%1 %2 ms  %3 bytes  same rows in the same order: %4\n")
               .arg("sqlite3 shell printing the rows", -34)
               .arg(shellMs, 8, 'f', 2)
               .arg(printed.size(), 9)
               .arg(same ? "yes" : "NO");
    return 0;
}

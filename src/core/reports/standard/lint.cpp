#include "reports/standard/lint.h"
#include "reports/standard/qsofields.h"
#include "text/dates.h"

#include <QHash>

namespace hfc {

namespace {

LintIssue issue(LintIssue::Kind kind, int row, const LogRow& r, const QString& text) {
    const QString who = QStringLiteral("%1 %2 %3").arg(r.ddate, r.ttime, r.ccall).simplified();
    return {kind, row, r.ccall, r.ddate, r.ttime, who + QStringLiteral(": ") + text};
}

bool isCallChar(QChar c) {
    const char16_t u = c.unicode();
    return (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') || u == '/';
}

// The characters that do not belong in a callsign, each once, in order of appearance.
QString badCallChars(const QString& call) {
    QString bad;
    for (const QChar c : call)
        if (!isCallChar(c) && !bad.contains(c)) bad += c;
    return bad;
}

QString quoted(const QString& s) {
    return QStringLiteral("«") + s + QStringLiteral("»");
}

} // namespace

QList<LintIssue> lintLog(const QList<LogRow>& rowsInEntryOrder) {
    using Kind = LintIssue::Kind;
    QList<LintIssue> issues;
    // The last QSO with a valid time, per contest, with that time.
    struct Previous {
        int index;
        QDateTime at;
    };
    QHash<QString, Previous> previous;
    for (int i = 0; i < rowsInEntryOrder.size(); ++i) {
        const LogRow& r = rowsInEntryOrder[i];
        if (!isLoggedQso(r)) continue;

        // The exports write calls in capitals, so only what stays wrong after that is reported.
        const QString bad = badCallChars(r.ccall.toUpper());
        if (!bad.isEmpty())
            issues << issue(Kind::BadCallsign, i, r,
                            QStringLiteral("в позывном знаки %1, допустимы только A–Z, 0–9 и «/»")
                                .arg(quoted(bad)));
        if (r.rsts1.trimmed().isEmpty() || r.rsts2.trimmed().isEmpty())
            issues << issue(Kind::EmptySent, i, r,
                            QStringLiteral("не заполнен переданный контрольный номер"));
        if (r.rstr1.trimmed().isEmpty() || r.rstr2.trimmed().isEmpty())
            issues << issue(Kind::EmptyReceived, i, r,
                            QStringLiteral("не заполнен принятый контрольный номер"));
        if (!isContestBand(r.bband))
            issues << issue(Kind::UnknownBand, i, r,
                            QStringLiteral("неизвестный диапазон %1 (ожидается 1,8; 3,5; 7; 14; "
                                           "21 или 28)")
                                .arg(quoted(r.bband)));

        const QDateTime at = qsoDateTime(r);
        if (!at.isValid()) {
            issues << issue(Kind::BadDateTime, i, r,
                            QStringLiteral("неверные дата или время %1")
                                .arg(quoted(r.ddate + QLatin1Char(' ') + r.ttime)));
            continue;
        }
        const auto prev = previous.constFind(r.ps2);
        if (prev != previous.constEnd()) {
            const LogRow& p = rowsInEntryOrder[prev->index];
            if (at < prev->at)
                issues << issue(Kind::OutOfOrder, i, r,
                                QStringLiteral("время раньше, чем у предыдущей связи (%1 %2 %3)")
                                    .arg(p.ddate, p.ttime, p.ccall));
        }
        previous.insert(r.ps2, Previous{i, at});
    }
    return issues;
}

QList<LintIssue> lintQtcs(const QList<LogRow>& qtcRows) {
    QList<LintIssue> issues;
    for (int i = 0; i < qtcRows.size(); ++i) {
        const LogRow& q = qtcRows[i];
        if (!q.ps1.isEmpty() || (q.ps2 + q.contr).trimmed().isEmpty()) continue;
        const QStringList parts =
            (q.ps2 + q.contr).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
        const bool ok = parts.size() == 3 && !hhmmOf(parts[0]).isEmpty() &&
                        badCallChars(parts[1]).isEmpty() && !parts[2].isEmpty() &&
                        badCallChars(parts[2]).isEmpty();
        if (!ok)
            issues << issue(LintIssue::Kind::BadQtc, i, q,
                            QStringLiteral("строка QTC %1 не из времени, позывного и номера")
                                .arg(quoted(q.ps2 + q.contr)));
        if (q.rstr1.trimmed().isEmpty())
            issues << issue(LintIssue::Kind::BadQtc, i, q, QStringLiteral("не указан номер QTC"));
    }
    return issues;
}

} // namespace hfc

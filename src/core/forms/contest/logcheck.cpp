// "Сервис" → "Проверка": the log checked as a sponsor's robot would, shown in a window.
#include "reports/logcheck.h"
#include "contests/exchangecheck.h"
#include "data/databases.h"
#include "forms/contest/contestform.h"
#include "forms/prow/prowform.h"
#include "reports/reportfiles.h"
#include "reports/standard/lint.h"

namespace hfc {

void ContestForm::mnuprow_Click() {
    Prowerka();
}

void ContestForm::Prowerka() {
    auto* w = static_cast<ProwForm*>(subForms_.value("prow"));
    if (!w) subForms_.insert("prow", w = new ProwForm(env(), this));
    w->txtprow->setText(checkReport());
    emit formOpened(w);
    w->show();
}

QString ContestForm::checkReport() {
    QList<LogRow> rows;
    try {
        for (const LogRow& r : logInEntryOrder(logDb()))
            if (r.ps2 == contestcode) rows << r;
    } catch (const DbError& e) {
        return QStringLiteral("Журнал не прочитан: %1.").arg(dbErrorReason(e));
    }
    QStringList out;
    out << QStringLiteral("Соревнование: %1, QSO в журнале: %2")
               .arg(LBLCONTEST->text().trimmed(), num(rows.size()));
    const auto section = [&out](const QString& title, const QStringList& lines) {
        out << QString() << QStringLiteral("%1: %2").arg(title, num(lines.size()));
        for (const QString& l : lines) out << QStringLiteral("  ") + l;
    };

    QStringList lint;
    for (const LintIssue& issue : lintLog(rows)) lint << issue.message;
    section(QStringLiteral("Замечания, с которыми робот не примет Cabrillo 3.0 / ADIF 3.1"), lint);
    section(QStringLiteral("Повторы"), repeatedQsos(rows));

    QStringList refused;
    for (const LogRow& r : rows) {
        if (r.ccall.isEmpty() || r.ccall == QLatin1String("\"")) continue;
        QsoFacts q;
        q.contest = contestcode;
        q.call = r.ccall;
        CountryRow c;
        if (lookupCountry(r.ccall, c)) q.pref = c.pref;
        q.report = r.rstr1;
        q.exchange = r.rstr2;
        if (!exchangeAcceptable(q, [this](const QString& code) { return oblastKnown(code); }))
            refused << QStringLiteral("%1 %2 %3 %4: обмен «%5» не проходит проверку")
                           .arg(r.ddate, r.ttime, r.ccall, r.bband, r.rstr2);
    }
    section(QStringLiteral("Обмен, не прошедший проверку"), refused);
    if (lint.isEmpty() && refused.isEmpty() && repeatedQsos(rows).isEmpty())
        out << QString() << QStringLiteral("Замечаний нет.");
    return out.join(QLatin1Char('\n'));
}

} // namespace hfc

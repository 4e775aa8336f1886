// The standard exports of the report window: Cabrillo 3.0 for the sponsors' log robots and
// ADIF 3.1 for other loggers, the category boxes of the Cabrillo header and the list of what a
// robot would reject or flag. The list only informs: both files can be written whatever it says.
#include "contests/claimedscore.h"
#include "contests/contestdef.h"
#include "data/databases.h"
#include "data/session.h"
#include "forms/clock.h"
#include "forms/otchet/cabrillo3boxes.h"
#include "forms/otchet/otchetform.h"
#include "reports/reportfiles.h"
#include "reports/standard/adif3.h"
#include "reports/standard/lint.h"

namespace hfc {

using K = Control::Kind;

void OtchetForm::createStandardControls() {
    lbllint = add("lbllint", K::Label, "Проверка журнала");
    lstlint = add("lstlint", K::List);
    for (const Cabrillo3Box& box : kCabrillo3Boxes) {
        Control* c = add(QLatin1String(box.control), K::Combo);
        c->setItems(cabrillo3Choices(box.which));
        c->setTooltip(QLatin1String(box.tag));
    }
    cmbcatop = control("cmbcatop");
    cmbcatassist = control("cmbcatassist");
    cmbcatband = control("cmbcatband");
    cmbcatmode = control("cmbcatmode");
    cmbcatpower = control("cmbcatpower");
    cmbcatstation = control("cmbcatstation");
    cmbcattx = control("cmbcattx");
    cmbqtcrole = add("cmbqtcrole", K::Combo);
    cmbqtcrole->setItems(qtcRoleItems());
    cmbqtcrole->setTooltip(QStringLiteral("QTC (WAE)"));
    cmbcab3 = add("cmbcab3", K::Button, "Cabrillo 3.0");
    cmbadif3 = add("cmbadif3", K::Button, "ADIF 3.1");
}

void OtchetForm::registerStandardHandlers() {
    proc("cmbcab3_Click", [this] { cmbcab3_Click(); });
    proc("cmbadif3_Click", [this] { cmbadif3_Click(); });
}

// On activation the boxes start again from what the log says, as the band table does.
void OtchetForm::fillStandardBoxes() {
    // The defaults depend on which bands and modes occur, not on their order: one read of the
    // log in entry order serves them and the check list.
    QList<LogRow> rows;
    try {
        rows = logInEntryOrder(env().db->contest);
    } catch (const DbError&) {
    }
    const Cabrillo3Header defaults = cabrillo3Defaults(stationBoxes(), contestcode, rows);
    for (const Cabrillo3Box& box : kCabrillo3Boxes)
        control(QLatin1String(box.control))->setText(defaults.*box.field);
    cmbqtcrole->setVisible(contests::def(contestcode).qtc);
    cmbqtcrole->setText(qtcRoleItems().at(int(QtcRole::Sent)));
    checkLog(rows);
}

void OtchetForm::checkLog() {
    QList<LogRow> rows;
    try {
        rows = logInEntryOrder(env().db->contest);
    } catch (const DbError&) {
        // Nothing to list of the log; the writers report their own failure.
    }
    checkLog(rows);
}

void OtchetForm::checkLog(const QList<LogRow>& rowsInEntryOrder) {
    QStringList items;
    for (const LintIssue& issue : lintLog(rowsInEntryOrder)) items << issue.message;
    const QString limits = contests::claimLimits(contestcode);
    if (!limits.isEmpty()) items << limits;
    try {
        for (const LintIssue& issue : lintQtcs(qtcTableRows(env().db->contest)))
            items << issue.message;
    } catch (const DbError&) {
    }
    lstlint->setItems(items);
}

// The header as the window shows it: station boxes as they stand, categories from the boxes. A
// box holding something that is not a Cabrillo value gets the value from the log back, so the
// window shows what the file says.
Cabrillo3Header OtchetForm::cabrillo3Header(const QList<LogRow>& rows) {
    Cabrillo3Header h = cabrillo3Defaults(stationBoxes(), contestcode, rows);
    // The robots check the sponsor's score and the station's full call, not the cut the
    // station box keeps.
    h.callsign = ownCall();
    h.operators = h.callsign;
    h.claimedScore = tclaimed->text();
    const QString defaultMode = h.categoryMode;
    for (const Cabrillo3Box& box : kCabrillo3Boxes) {
        Control* c = control(QLatin1String(box.control));
        const QString chosen = c->text().trimmed().toUpper();
        if (cabrillo3Choices(box.which).contains(chosen))
            h.*box.field = chosen;
        else
            c->setText(h.*box.field);
    }
    // A contest named per mode takes the name of the chosen mode.
    if (h.categoryMode != defaultMode) h.contest.clear();
    h.qtcRole = cmbqtcrole->text() == qtcRoleItems().at(int(QtcRole::Received)) ? QtcRole::Received
                                                                                : QtcRole::Sent;
    return h;
}

void OtchetForm::cmbcab3_Click() {
    checkLog();
    writeReport(standardExportFileName(ownCall(), QStringLiteral("log")), [this] {
        Db& db = env().db->contest;
        const QList<LogRow> rows = logInReportOrder(db);
        return cabrillo3File(cabrillo3Header(rows), contestcode, rows, qtcTableRows(db));
    });
}

// The whole logbook, every contest of it.
void OtchetForm::cmbadif3_Click() {
    checkLog();
    writeReport(standardExportFileName(ownCall(), QStringLiteral("adi")), [this] {
        Adif3Options options;
        options.stationCallsign = ownCall();
        // the operator is named only where the log keeps the station's full call
        if (!loadSession(env().db->contest).owncall.isEmpty())
            options.operatorCall = options.stationCallsign;
        options.createdUtc = env().clock ? env().clock->utcNow() : QDateTime::currentDateTimeUtc();
        return adif3File(options, logInReportOrder(env().db->contest));
    });
}

} // namespace hfc

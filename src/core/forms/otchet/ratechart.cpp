// The contest hour by hour: the band-by-hour table the rate chart is drawn from, and the chart
// saved as a picture beside the report files.
#include "data/databases.h"
#include "forms/otchet/otchetform.h"
#include "reports/hourly.h"
#include "reports/reportfiles.h"

namespace hfc {

void OtchetForm::createChartControls() {
    grdhours = add("grdhours", Control::Kind::Grid);
    QStringList columns{QStringLiteral("Час (дата, час)")};
    columns << hourlyBands() << QStringLiteral("Всего");
    grdhours->setColumns(columns);
    cmbchart = add("cmbchart", Control::Kind::Button, "График темпа PNG");
}

void OtchetForm::fillHours() {
    QList<LogRow> contest;
    try {
        for (const LogRow& r : logInEntryOrder(env().db->contest))
            if (r.ps2 == contestcode) contest << r;
    } catch (const DbError&) {
        // An empty table; the band table says what it can.
    }
    std::vector<QStringList> rows;
    for (const HourRow& h : qsosByHour(contest)) {
        QStringList row{h.hour};
        for (int n : h.perBand) row << num(n);
        row << num(h.total);
        rows.push_back(row);
    }
    grdhours->setRows(std::move(rows));
}

void OtchetForm::cmbchart_Click() {
    fillHours();
    if (!chartWriter) {
        lblstatus->setText(QStringLiteral("График рисуется только в окне программы"));
        return;
    }
    const QString name = fitFileName(tcall->text() + QStringLiteral("_rate.png"));
    txtput->setText(withTrailingSlash(txtput->text()));
    const QString path = txtput->text() + name;
    lastWriteOk = chartWriter(path);
    lastWritePath = path;
    lblstatus->setText(lastWriteOk ? QStringLiteral("Файл записан: ") + path
                                   : QStringLiteral("Не удалось записать файл: ") + path);
}

} // namespace hfc

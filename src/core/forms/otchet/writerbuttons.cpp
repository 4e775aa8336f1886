// The four buttons of the report window that write its own report files into the chosen folder.
#include "data/databases.h"
#include "forms/otchet/otchetform.h"
#include "reports/reportfiles.h"

namespace hfc {

StationBoxes OtchetForm::stationBoxes() const {
    StationBoxes st;
    st.tcall = tcall->text();
    st.trezult = trezult->text();
    st.tname = tname->text();
    st.tadres = tadres->text();
    st.tgor = tgor->text();
    st.tstr = tstr->text();
    st.tcont = tcont->text();
    st.tpod = tpod->text();
    st.Text4 = Text4->text();
    return st;
}

SummaryBoxes OtchetForm::summaryBoxes() const {
    SummaryBoxes b;
    b.st = stationBoxes();
    for (int i = 0; i < BandRows; ++i) {
        b.tq[i] = tq[i]->text();
        b.tdx[i] = tdx[i]->text();
        b.tz[i] = tz[i]->text();
        b.tp[i] = tp[i]->text();
    }
    b.tqtot = tqtot->text();
    b.tdxtot = tdxtot->text();
    b.tztot = tztot->text();
    b.tptot = tptot->text();
    b.Text1 = Text1->text();
    b.Text2 = Text2->text();
    b.Text3 = Text3->text();
    return b;
}

// The file name a call gives: a portable call ("UA3ABC/P") names a file, not a folder inside the
// output folder; a name longer than a file name may be (255 bytes, less the few the safe write
// adds for its temporary twin) is cut before its extension.
QString OtchetForm::fitFileName(QString name) {
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    constexpr qsizetype kMaxBytes = 240;
    if (name.toUtf8().size() <= kMaxBytes) return name;
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    const QString ext = dot > 0 && name.size() - dot <= 5 ? name.mid(dot) : QString();
    QString base = name.left(name.size() - ext.size());
    while (!base.isEmpty() && (base + ext).toUtf8().size() > kMaxBytes) {
        base.chop(1);
        if (!base.isEmpty() && base.back().isHighSurrogate()) base.chop(1);
    }
    return base + ext;
}

// A writer never interrupts the operator with a message box, whatever goes wrong; but a file
// that was not written must not pass for one that was, so the outcome goes into lblstatus,
// where the window shows it quietly. Nothing here changes the log.
void OtchetForm::writeReport(const QString& fileName, const std::function<QByteArray()>& build) {
    txtput->setText(withTrailingSlash(txtput->text()));
    const QString path = txtput->text() + fitFileName(fileName);
    bool ok = false;
    QString error;
    try {
        ok = writeReportFile(path, build(), &error);
    } catch (const DbError& e) {
        error = QStringLiteral("Не удалось записать файл: %1 (%2)").arg(path, dbErrorReason(e));
    }
    lastWriteOk = ok;
    lastWritePath = path;
    lblstatus->setText(ok ? QStringLiteral("Файл записан: ") + path : error);
}

// Cabrillo and ADIF share the file named after the callsign: each replaces the other's file.
void OtchetForm::Ccabrila_Click() {
    writeReport(tcall->text(), [this] {
        return cabrilloFile(stationBoxes(), logInReportOrder(env().db->contest));
    });
}

void OtchetForm::cmbAdif_Click() {
    writeReport(tcall->text(), [this] { return adifFile(logInReportOrder(env().db->contest)); });
}

void OtchetForm::cmbreport_Click() {
    writeReport(tcall->text() + QStringLiteral(".LOG"),
                [this] { return logListing(contestcode, logInReportOrder(env().db->contest)); });
}

// The summary prints what the window shows; it does not read the log.
void OtchetForm::cmbtit_Click() {
    writeReport(tcall->text() + QStringLiteral(".SUM"),
                [this] { return summarySheet(summaryBoxes()); });
}

} // namespace hfc

#include "forms/otchet/otchetform.h"

#include "data/databases.h"
#include "data/schema.h"
#include "data/session.h"
#include "forms/otchet/boundrow.h"
#include "reports/claimedlog.h"
#include "reports/scoring.h"

#include <QDir>
#include <QHash>

namespace hfc {

using K = Control::Kind;

namespace {

const char* const kBands[OtchetForm::BandRows] = {"1,8", "3,5", "7", "14", "21", "28", "sat"};
// rezult column suffix of each band row
const char* const kSuffix[OtchetForm::BandRows] = {"160", "80", "40", "20", "15", "10", "sat"};

} // namespace

OtchetForm::OtchetForm(const Env& env, std::function<QString()> currentContest, QObject* parent)
    : Form(QStringLiteral("otchet"), env, parent), currentContest_(std::move(currentContest)) {
    createControls();
    registerHandlers();
}

OtchetForm::~OtchetForm() = default;

void OtchetForm::createControls() {
    escCloses = true;
    Frame1 = add("Frame1", K::Frame, "Внесите свои данные и дату");
    tcont = add("tcont", K::TextBox);
    tcall = add("tcall", K::TextBox);
    tpod = add("tpod", K::TextBox);
    tname = add("tname", K::TextBox);
    tadres = add("tadres", K::TextBox);
    tgor = add("tgor", K::TextBox);
    tstr = add("tstr", K::TextBox);

    for (int i = 0; i < BandRows; ++i) {
        lblb[i] = add(QStringLiteral("lblb(%1)").arg(i), K::Label, kBands[i]);
        tq[i] = add(QStringLiteral("tq(%1)").arg(i), K::TextBox, "0");
        tdx[i] = add(QStringLiteral("tdx(%1)").arg(i), K::TextBox, "0");
        tz[i] = add(QStringLiteral("tz(%1)").arg(i), K::TextBox, "0");
        tp[i] = add(QStringLiteral("tp(%1)").arg(i), K::TextBox, "0");
    }
    tqtot = add("tqtot", K::TextBox, "0");
    tdxtot = add("tdxtot", K::TextBox, "0");
    tztot = add("tztot", K::TextBox, "0");
    tptot = add("tptot", K::TextBox, "0");
    trezult = add("trezult", K::TextBox, "0");
    lq = add("lq", K::Label, "QSOs");
    ld = add("ld", K::Label, "DXCC");
    lz = add("lz", K::Label, "Zone");
    lp = add("lp", K::Label, "Poits");
    Label17 = add("Label17", K::Label, "Total");

    lblrez1 = add("lblrez1", K::Label, "Rezult. =(");
    Text3 = add("Text3", K::TextBox, "0");
    lblrez2 = add("lblrez2", K::Label, "+");
    Text2 = add("Text2", K::TextBox, "0");
    lblrez3 = add("lblrez3", K::Label, ") X");
    Text1 = add("Text1", K::TextBox, "0");
    Text4 = add("Text4", K::TextBox);
    lblclaimed = add("lblclaimed", K::Label, "По правилам организатора:");
    tclaimed = add("tclaimed", K::TextBox, "0");

    Frame2 = add("Frame2", K::Frame, "Куда будут сохранятся файлы");
    Dir1 = add("Dir1", K::DirList);
    // The folder list starts where the program was started from, which is where a relative
    // folder typed into txtput points as well.
    Dir1->setExtra(QStringLiteral("path"), QDir::currentPath());
    txtput = add("txtput", K::TextBox);

    Ccabrila = add("Ccabrila", K::Button, "Cabr");
    cmbAdif = add("cmbAdif", K::Button, "ADIF");
    cmbreport = add("cmbreport", K::Button, ".LOG");
    cmbtit = add("cmbtit", K::Button, ".SUM");
    createStandardControls();
    createChartControls();
    Command1 = add("Command1", K::Button, "Выход");
    lblstatus = add("lblstatus", K::Label);

    Db& db = env().db->contest;
    station_ = new BoundRow(db, LogStore::Sheet::Station, this);
    station_->bind(tcont, QStringLiteral("contest"));
    station_->bind(tcall, QStringLiteral("ccall"));
    station_->bind(tpod, QStringLiteral("podgrup"));
    station_->bind(tname, QStringLiteral("nname"));
    station_->bind(tadres, QStringLiteral("ADRESSTRIT"));
    station_->bind(tgor, QStringLiteral("adregor"));
    station_->bind(tstr, QStringLiteral("adresstran"));

    score_ = new BoundRow(db, LogStore::Sheet::Score, this);
    for (int i = 0; i < BandRows; ++i) {
        const QLatin1String s(kSuffix[i]);
        score_->bind(tq[i], QLatin1String("qso") + s);
        score_->bind(tdx[i], QLatin1String("md") + s);
        score_->bind(tz[i], QLatin1String("mz") + s);
        score_->bind(tp[i], QLatin1String("p") + s);
    }
    score_->bind(tqtot, QStringLiteral("totq"));
    score_->bind(tdxtot, QStringLiteral("totm1"));
    score_->bind(tztot, QStringLiteral("totm2"));
    score_->bind(tptot, QStringLiteral("totp"));
    score_->bind(trezult, QStringLiteral("totrez"));

    // The buttons name the files they write, also while the callsign is being edited.
    connect(tcall, &Control::changed, this, [this] { captionButtons(); });
}

void OtchetForm::registerHandlers() {
    proc("Form_Activate", [this] { Form_Activate(); });
    // The mouse button, shift state and position are of no interest.
    proc("Dir1_MouseDown", [this] { Dir1_MouseDown(); });
    proc("Command1_Click", [this] { Command1_Click(); });
    proc("Ccabrila_Click", [this] { Ccabrila_Click(); });
    proc("cmbAdif_Click", [this] { cmbAdif_Click(); });
    proc("cmbreport_Click", [this] { cmbreport_Click(); });
    proc("cmbtit_Click", [this] { cmbtit_Click(); });
    var("contestcode", contestcode);
    registerStandardHandlers();
    proc("cmbchart_Click", [this] { cmbchart_Click(); });
}

void OtchetForm::captionButtons() {
    const QString call = tcall->text();
    cmbreport->setText(call + QStringLiteral(".LOG"));
    cmbtit->setText(call + QStringLiteral(".SUM"));
    Ccabrila->setText(call);
    cmbAdif->setText(call);
}

void OtchetForm::Form_Activate() {
    station_->load();
    txtput->setText(Dir1->extra(QStringLiteral("path")));
    captionButtons();
    contestcode = currentContest_ ? currentContest_() : QStringLiteral("hi hi");
    const ReportScoring& scoring = reportScoring(contestcode);
    ld->setText(scoring.zoneHeadings ? QStringLiteral("зоны") : QStringLiteral("Dxcc"));
    lz->setText(scoring.zoneHeadings ? QStringLiteral("корр") : QStringLiteral("Zone"));
    recount();
    showDateRange();
    fillStandardBoxes();
    fillHours();
}

// The band table straight from the log, every band at once. The "sat" row is not counted; it
// shows what the score sheet holds.
//
// The recount is stored in rezult: the band boxes are bound to that row, and keeping the row in
// step with what the window shows means the sheet never holds figures the log no longer
// supports, while the "sat" figures the operator enters by hand stay where they were. The
// summary sheet prints the boxes, so it is the same either way.
void OtchetForm::recount() {
    score_->hold(true);
    score_->load();
    struct Counts {
        QString qsos, first, second, points;
    };
    QHash<QString, Counts> byBand;
    QStringList bands;
    for (int i = 0; i < CountedRows; ++i) bands << lblb[i]->text();
    try {
        // A call stored as a single double quote is a placeholder, not a QSO; the multiplier
        // marks and points of the chosen contest's rows count, whatever else the folder holds.
        const Rows rows = LogStore(env().db->contest).bandCounts(contestcode, bands);
        for (const QStringList& r : rows) byBand.insert(r[0], {r[1], r[2], r[3], r[4]});
    } catch (const DbError&) {
        // Counts stay "0": the window still opens.
    }

    const ReportScoring& scoring = reportScoring(contestcode);
    long long q = 0, m1 = 0, m2 = 0, p = 0;
    for (int i = 0; i < CountedRows; ++i) {
        const Counts c = byBand.value(bands[i]);
        tq[i]->setText(num(val(c.qsos)));
        tdx[i]->setText(num(val(c.first) * scoring.firstScale));
        tz[i]->setText(num(val(c.second) * scoring.secondScale));
        tp[i]->setText(pointSumText(c.points));
        q += val(tq[i]->text());
        m1 += val(tdx[i]->text());
        m2 += val(tz[i]->text());
        p += val(tp[i]->text());
    }
    tqtot->setText(num(q));
    tdxtot->setText(num(m1));
    tztot->setText(num(m2));
    tptot->setText(num(p));
    trezult->setText(num(claimedScore(scoring, m1, m2, p)));
    Text3->setText(tdxtot->text());
    Text2->setText(tztot->text());
    Text1->setText(tptot->text());
    score_->store();
    score_->hold(false);
    showClaimedScore();
}

QString OtchetForm::ownCall() const {
    const QString full = loadSession(env().db->contest).owncall;
    return full.isEmpty() ? tcall->text() : full;
}

void OtchetForm::showClaimedScore() {
    try {
        const Session s = loadSession(env().db->contest);
        const contests::ClaimedScore c =
            claimedScoreOfLog(*env().db, contestcode, ownCall(), s.myexch);
        tclaimed->setText(num(c.total));
        lblclaimed->setText(QStringLiteral("По правилам организатора: ") + c.breakdown);
    } catch (const DbError&) {
        tclaimed->setText(QStringLiteral("0"));
    }
}

// First and last date of the log in report order; an empty log leaves the box as it was.
void OtchetForm::showDateRange() {
    try {
        LogStore log(env().db->contest);
        if (!log.hasRows()) return;
        Text4->setText(log.firstDate() + QLatin1Char('-') + log.lastDate());
    } catch (const DbError&) {
    }
}

// The chosen folder with its separator. The root already ends in one, so its doubled separator
// is cut back to a single one.
void OtchetForm::Dir1_MouseDown() {
    QString put = Dir1->extra(QStringLiteral("path")) + QLatin1Char('/');
    if (put.size() >= 2 && put.endsWith(QStringLiteral("//"))) put.chop(1);
    txtput->setText(put);
}

void OtchetForm::Command1_Click() {
    unload();
}

} // namespace hfc

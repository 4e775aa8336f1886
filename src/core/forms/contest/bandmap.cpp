// The DX cluster panel: the session's state and text, the command line, and the band map of the
// current band with each spot marked as a repeat or a new multiplier; Ctrl+Down / Ctrl+Up take
// the next spot into the callsign box.
#include "country/callprefix.h"
#include "country/russia.h"
#include "data/db.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "station/cluster.h"
#include "station/settings.h"
#include "station/spotlist.h"

#include <QTimer>
#include <cmath>
#include <deque>
#include <memory>
#include <sqlite3.h>

namespace hfc {

namespace {

const QString kRepeat = QStringLiteral("повтор");
const QString kNewMult = QStringLiteral("множ");
constexpr int kTextLines = 200; // the cluster's text kept in the panel
// Spots and marks reach the screen at most this often: a busy cluster (dozens of spots a
// second in a big contest) must not redraw the map between two keystrokes of the operator.
constexpr int kRedrawMs = 333;

// A whole call, not the cut the own-call box keeps ("ABC" of UA3ABC) nor its prompt.
bool isCall(const QString& t) {
    bool digit = false, letter = false;
    for (const QChar c : t) {
        if (c >= u'0' && c <= u'9')
            digit = true;
        else if (c >= u'A' && c <= u'Z')
            letter = true;
        else if (c != u'/')
            return false;
    }
    return t.size() >= 3 && digit && letter;
}

// What the marks were computed from: a QSO logged, mended or deleted, another band or contest,
// or another sent report (VK/ZL's scope) makes them out of date.
struct WorkedKey {
    QString contest, band, sent;
    qint64 changes = -1;
    bool operator==(const WorkedKey&) const = default;
};

WorkedKey workedKeyOf(ContestForm& f) {
    return {f.contestcode, f.curband, f.lblrsts->text(),
            sqlite3_total_changes64(f.logDb().handle())};
}

// The radio's frequency in kHz while a rig is connected, 0 when none is; a script or test can
// give it as the form variable rigkhz.
double rigKHz(const ContestForm& f) {
    if (const double khz = f.rigKhz(); khz > 0) return khz;
    if (!f.hasVar(QStringLiteral("rigkhz"))) return 0;
    bool ok = false;
    const double v = f.getVar(QStringLiteral("rigkhz")).toDouble(&ok);
    return ok && v > 0 ? v : 0;
}

} // namespace

// The band map's state: the spots, the session, and what the marks were computed from.
class BandmapLink : public QObject {
  public:
    explicit BandmapLink(QObject* parent) : QObject(parent) {}

    SpotList spots;
    ClusterSession* session = nullptr;
    QTimer* redraw = nullptr;
    std::deque<QString> text;
    bool textChanged = false;

    QString takenCall; // the spot last taken with Ctrl+arrows: the next one is looked for from it

    // What a call would give on the current band, by contest (the country tables do not change
    // while the map is up; a contest change starts over).
    struct Candidates {
        QString mult, ps;
    };
    QString candidatesContest;
    QHash<QString, Candidates> candidates;

    // The log as the marks know it: reread when it changed.
    WorkedKey workedKey;
    QSet<QString> workedCalls, workedMults, workedPs;

    // What the grid shows: the band, its spots, the minute of their ages, the log of the marks.
    struct Shown {
        QString band;
        quint64 version = 0;
        qint64 minute = -1;
        WorkedKey worked;
        bool operator==(const Shown&) const = default;
    } shown;
};

void ContestForm::registerBandmap() {
    frcluster = add("frcluster", Control::Kind::Frame);
    frcluster->setVisible(false);
    bandmap = add("bandmap", Control::Kind::Grid);
    bandmap->setColumns({"кГц", "Позывной", "Мин", "Отметка"});
    lblcluster = add("lblcluster", Control::Kind::Label);
    txtcluster = add("txtcluster", Control::Kind::TextBox);
    txtcluster->setTooltip("Команда кластеру (SH/DX, DX 14025 UA3ABC …), Enter — отправить");
    lstcluster = add("lstcluster", Control::Kind::List);
    mnucluster = add("mnucluster", Control::Kind::Menu, "DX кластер");

    bandmap_ = new BandmapLink(this);

    proc("startCluster", [this] { startCluster(); });
    proc("bandmapRefresh", [this] { bandmapRefresh(); });
    proc("mnucluster_Click", [this] { mnucluster_Click(); });
    // call clusterLine TEXT: a line as if the cluster had sent it
    on("clusterLine", [this](Event& e) { clusterLine(e.args.join(QLatin1Char(' '))); });
    on("txtcluster_KeyPress", [this](Event& e) { txtcluster_KeyPress(e); }, {"KeyAscii"});
    var("spotkhz", spotkhz);
}

SpotList& ContestForm::spots() {
    return bandmap_->spots;
}

ClusterSession* ContestForm::cluster() {
    return bandmap_->session;
}

void ContestForm::startCluster() {
    const QString host = env().settings ? env().settings->clusterHost : QString();
    BandmapLink& b = *bandmap_;
    if (host.isEmpty()) {
        if (b.session) b.session->stop();
        lblcluster->setText(QStringLiteral("Кластер: адрес не задан"));
        return;
    }
    if (!b.session) {
        b.session = new ClusterSession(&b);
        connect(b.session, &ClusterSession::lineReceived, this,
                [this](const QString& line) { clusterLine(line); });
        connect(b.session, &ClusterSession::stateChanged, this,
                [this] { lblcluster->setText(bandmap_->session->stateText()); });
    }
    if (!b.redraw) {
        b.redraw = new QTimer(&b);
        connect(b.redraw, &QTimer::timeout, this, [this] { bandmapRefresh(); });
        b.redraw->start(kRedrawMs);
    }
    // The login is the call set for the cluster, else the station's call as typed, else what the
    // own-call box holds, asked when the prompt comes.
    b.session->start(host, [this] {
        if (env().settings && !env().settings->clusterLogin.isEmpty())
            return env().settings->clusterLogin;
        if (!owncall.isEmpty()) return owncall;
        return isCall(TXTNCALL->text()) ? TXTNCALL->text() : QString();
    });
    frcluster->setVisible(true);
}

void ContestForm::clusterLine(const QString& line) {
    BandmapLink& b = *bandmap_;
    if (const std::optional<Spot> s = parseSpotLine(line)) {
        // Aged by the program's clock, so a script's clock ages them as the operator's does.
        b.spots.add(*s, utcnow());
        return;
    }
    if (line.trimmed().isEmpty()) return;
    b.text.push_back(line);
    while (b.text.size() > kTextLines) b.text.pop_front();
    b.textChanged = true;
}

QString ContestForm::spotMark(const QString& call) {
    BandmapLink& b = *bandmap_;
    if (contestcode == QLatin1String("hi hi")) return {};
    const WorkedKey key = workedKeyOf(*this);
    if (!(key == b.workedKey)) {
        b.workedKey = key;
        const QStringList calls = logDb().column(
            QStringLiteral("SELECT DISTINCT ccall FROM tbllog WHERE ps2 = ?1 AND bband = ?2"),
            {contestcode, curband});
        b.workedCalls = QSet<QString>(calls.begin(), calls.end());
        b.workedMults = workedFirstMults();
        b.workedPs = workedSecondMults();
    }
    if (b.workedCalls.contains(call)) return kRepeat;

    if (b.candidatesContest != contestcode) {
        b.candidates.clear();
        b.candidatesContest = contestcode;
    }
    auto it = b.candidates.find(call);
    if (it == b.candidates.end()) {
        // The multipliers wwodcall would take from this call typed into the box.
        BandmapLink::Candidates c;
        CountryRow row;
        resolveCall(call, row);
        if (dxccmult == 0) c.mult = row.pref;
        if (pfxmult == 0) c.mult = callPrefix(call);
        const contests::ContestDef& def = contestDef();
        if (def.extra == contests::EntryRule::UbaCountries) {
            if (row.pref == QLatin1String("ON") || inEuropeanList(row.pref)) c.mult = row.pref;
        } else if (def.extra == contests::EntryRule::YuCountry) {
            c.mult = row.pref == QLatin1String("YU") ? row.pref : QString();
        }
        // The exchange that follows from the call: the district in RDXC, else a zone.
        QString exchange;
        if (def.fromCall == contests::ExchangeFromCall::Oblast &&
            row.strana == QLatin1String("RUSSIAN"))
            lookupDistrict(russianDistrictKey(call), nullptr, nullptr, &exchange);
        if (itufill == 0) exchange = row.itu;
        if (cqfill == 0) exchange = row.cq;
        if (countsExchange()) c.ps = exchange;
        it = b.candidates.insert(call, c);
    }
    const bool newMult = (!it->mult.isEmpty() && !b.workedMults.contains(it->mult)) ||
                         (!it->ps.isEmpty() && !b.workedPs.contains(it->ps));
    return newMult ? kNewMult : QString();
}

void ContestForm::bandmapRefresh() {
    BandmapLink& b = *bandmap_;
    const QDateTime now = utcnow();
    b.spots.prune(now);
    const BandmapLink::Shown shown{curband, b.spots.version(curband), now.toSecsSinceEpoch() / 60,
                                   workedKeyOf(*this)};
    if (!(shown == b.shown)) {
        b.shown = shown;
        // The grid holds a copy of the band's spots and makes a row only when one is read: the
        // screen reads the rows it shows, so a band of thousands of spots costs a screenful.
        auto rows = std::make_shared<const std::vector<BandSpot>>(b.spots.onBand(curband));
        bandmap->setRowSource(rows->size(), [this, rows, now](size_t i) {
            const BandSpot& s = (*rows)[i];
            return QStringList{formatKHz(s.kHz), s.call,
                               QString::number(SpotList::ageMinutes(s.heard, now)),
                               spotMark(s.call)};
        });
    }
    if (b.textChanged) {
        lstcluster->setItems(QStringList(b.text.begin(), b.text.end()));
        b.textChanged = false;
    }
}

void ContestForm::takeSpot(bool up) {
    BandmapLink& b = *bandmap_;
    b.spots.prune(utcnow());
    // From the radio's frequency while a rig on this band reports one, else from the last spot
    // taken while it is on this band; a band change starts at the end. The radio still on the
    // spot last taken is that spot, so the calls on one frequency come in turn.
    const HeardSpot* taken = b.spots.find(b.takenCall);
    const bool takenHere = taken && taken->band == curband;
    const double rig = rigKHz(*this);
    const BandSpot* s = nullptr;
    if (rig > 0 && bandOfKHz(rig) == curband &&
        !(takenHere && std::abs(taken->spot.kHz - rig) < 0.05))
        s = b.spots.next(curband, rig, QString(), up);
    else
        s = b.spots.next(curband, takenHere ? taken->spot.kHz : -1,
                         takenHere ? taken->spot.call : QString(), up);
    if (!s) return;
    b.takenCall = s->call;
    spotkhz = formatKHz(s->kHz);
    // A new station: the exchange typed for the one before does not belong to it.
    txtcall->setText(s->call);
    txtrstr->setText(QString());
    rstrselected = false;
    confirmedBad.clear();
    setFocus(txtcall);
    wwodcall();
    requestQsy(s->kHz);
}

void ContestForm::requestQsy(double kHz) {
    qsyTo(kHz * 1000.0);
    emit qsyRequested(kHz);
}

void ContestForm::txtcluster_KeyPress(Event& e) {
    if (e.keyAscii == keys::Esc) setFocus(txtcall); // back to logging, the command kept
    if (e.keyAscii != keys::Enter) return;
    e.keyAscii = 0;
    const QString command = txtcluster->text().trimmed();
    if (command.isEmpty()) return;
    BandmapLink& b = *bandmap_;
    if (b.session && b.session->send(command)) {
        txtcluster->setText(QString());
        return;
    }
    // The command stays in the box to be sent when the link is back.
    clusterLine(QStringLiteral("Нет связи с кластером: команда не отправлена"));
    bandmapRefresh();
}

void ContestForm::mnucluster_Click() {
    frcluster->setVisible(!frcluster->visible());
    setFocus(frcluster->visible() ? txtcluster : txtcall);
}

} // namespace hfc

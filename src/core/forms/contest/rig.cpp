// The rig links: the FT1000MP band command (Enter on a band button emits it), and the radio
// through Hamlib, which the band and mode buttons follow and which they move. Also the settings
// window that says where the radio is.
#include "station/rig.h"
#include "data/databases.h"
#include "forms/contest/contestform.h"
#include "forms/settings/settingsform.h"
#include "log/band.h"
#include "station/ft1000mp.h"
#include "station/settings.h"

namespace hfc {

namespace {
const QString kCatOn = QStringLiteral("CAT FT1000MP вкл");
const QString kCatOff = QStringLiteral("CAT FT1000MP выкл");
const char* const Red = "#ff0000";
} // namespace

void ContestForm::registerRig() {
    proc("mnuCAT_Click", [this] { mnuCAT_Click(); });
    on("emitCatOnBandEnter", [this](Event& e) { emitCatOnBandEnter(e.index); }, {"Index"});
    proc("mnusettings_Click", [this] { mnusettings_Click(); });
}

void ContestForm::mnuCAT_Click() {
    mnuCAT->setText(mnuCAT->text() != kCatOff ? kCatOff : kCatOn);
    setFocus(txtcall);
}

void ContestForm::emitCatOnBandEnter(int index) {
    // Entering a band turns the multiplier window to that band's count.
    multWindowAll = false;
    cmbwsego->setText(curband + QStringLiteral("MHz"));
    // The caption is the link's only state. The block goes to the window, never to the keying
    // port. Before any band with a frequency was clicked there is no block to emit.
    if (mnuCAT->text() == kCatOn && !catcmd.isEmpty()) {
        QByteArray block;
        QStringList values;
        for (const QChar c : catcmd) {
            block.append(char(c.unicode() & 0xff));
            values << QString::number(c.unicode() & 0xff);
        }
        lblcat->setText(QStringLiteral("CAT: ") + values.join(QLatin1Char(' ')));
        emit catEmitted(block);
        QString why;
        if (ftLine_ && !ftLine_->send(block, why)) msgbox(why, QStringLiteral("Ошибка !!!"));
    }
    bandprev = index;
    if (contestDef().extra == contests::EntryRule::SacArea) SAC2();
}

void ContestForm::mnusettings_Click() {
    auto* w = static_cast<SettingsForm*>(subForms_.value(QStringLiteral("settings")));
    if (!w) {
        subForms_.insert(QStringLiteral("settings"), w = new SettingsForm(env(), this));
        connect(w, &SettingsForm::saved, this, &ContestForm::applyStationSettings);
    }
    if (!w->isShown()) w->Form_Load();
    emit formOpened(w);
    w->show();
}

void ContestForm::applyStationSettings() {
    const StationSettings none;
    const StationSettings& s = env().settings ? *env().settings : none;
    if (!ftLine_ || ftLine_->device() != s.ft1000mp)
        ftLine_ = s.ft1000mp.isEmpty() ? nullptr : std::make_shared<Ft1000mpLine>(s.ft1000mp);

    const RigTarget target = RigTarget::from(s);
    if (!rig_ && !target.isSet()) return; // no radio, and none was ever set up
    if (!rig_) {
        rig_ = new Rig(this);
        connect(rig_, &Rig::reading, this, &ContestForm::rigReading);
        connect(rig_, &Rig::stateChanged, this, [this](Rig::State st, const QString& why) {
            const QString where = rig_->target().describe();
            lblrig->setVisible(st != Rig::State::Off);
            lblrig->setBackcolor(st == Rig::State::Lost ? QString::fromLatin1(Red) : QString());
            switch (st) {
            case Rig::State::Off:
                lblrig->setText(QString());
                break;
            case Rig::State::Connecting:
                lblrig->setText(QStringLiteral("Трансивер: подключение (%1)").arg(where));
                break;
            case Rig::State::Online:
                lblrig->setText(QStringLiteral("Трансивер: на связи (%1)").arg(where));
                break;
            case Rig::State::Lost:
                lblrig->setText(QStringLiteral("Трансивер: нет связи — %1 (%2)").arg(why, where));
                break;
            }
            if (st != Rig::State::Online) {
                // A frequency nobody reads any more is not given to QSOs.
                rigHz_ = 0;
                lblfreq->setText(QString());
                lblfreq->setBackcolor(QString());
            }
            // After a (re)connection the window takes the radio's band and mode as they are.
            rigBand_ = -2;
            rigMode_.clear();
            rigWaitSeq_ = 0;
        });
    }
    rig_->setTarget(target);
}

void ContestForm::rigReading(const RigReading& r) {
    // Said before the radio carried out the operator's last command: it would undo the choice.
    if (r.seq < rigWaitSeq_) return;
    rigHz_ = r.hz;
    lblfreq->setText(khzText(r.hz));
    const std::optional<Band> band = bandOfKhz(r.hz / 1000.0);
    // Outside the bands the window stays on its band; the frequency in red says so.
    lblfreq->setBackcolor(band ? QString() : QString::fromLatin1(Red));
    const int index = band ? bandIndex(*band) : -1;
    if (band) bandHz_[size_t(index)] = r.hz;
    // The window follows changes of the radio, not its state: a band or mode the operator chose
    // that the radio could not take stays chosen until the radio itself moves.
    Control* const keep = focused();
    if (index != rigBand_) {
        rigBand_ = index;
        if (band && curband != cmbband[index]->text()) selectBand(index);
    }
    if (!r.mode.isEmpty() && r.mode != rigMode_) {
        rigMode_ = r.mode;
        setMode(r.mode);
    }
    // The championship's set-up moves the focus; the operator goes on typing where he was.
    if (keep && focused() != keep) setFocus(keep);
}

void ContestForm::qsyToBand(int index) {
    if (!rig_ || rig_->state() != Rig::State::Online) return;
    const BandInfo& band = bandTable()[size_t(index)];
    if (band.band == Band::Sat) return;
    double hz = bandHz_[size_t(index)];
    if (hz <= 0) {
        // Not heard there in this run: where the last QSO on the band was made.
        const QString logged = store().lastFreqOnBand(contestcode, QLatin1String(band.text));
        const double khz = logged.toDouble();
        if (bandOfKhz(khz) == band.band) hz = khz * 1000;
    }
    if (hz <= 0) hz = 1000.0 * (curmode == QLatin1String("SSB") ? band.ssbKhz : band.cwKhz);
    if (const quint64 seq = rig_->setFrequency(hz)) {
        rigWaitSeq_ = seq;
        rigBand_ = index; // the radio arriving there is no change of the radio's own
    }
}

void ContestForm::qsyMode() {
    if (!rig_ || rig_->state() != Rig::State::Online) return;
    if (const quint64 seq = rig_->setMode(curmode)) {
        rigWaitSeq_ = seq;
        rigMode_ = curmode;
    }
}

void ContestForm::qsyTo(double hz) {
    if (!rig_ || rig_->state() != Rig::State::Online || hz <= 0) return;
    if (const quint64 seq = rig_->setFrequency(hz)) {
        rigWaitSeq_ = seq;
        // The radio arriving on the spot's band is the operator's choice, not a change to follow.
        if (const std::optional<Band> band = bandOfKhz(hz / 1000.0)) rigBand_ = bandIndex(*band);
    }
}

double ContestForm::rigKhz() const {
    return rig_ && rig_->state() == Rig::State::Online ? rigHz_ / 1000.0 : 0;
}

QString ContestForm::qsoFreq() const {
    return rigHz_ > 0 ? khzText(rigHz_) : QString();
}

} // namespace hfc

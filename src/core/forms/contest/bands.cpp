// Band and mode buttons, the totals view switch and the worked-prefix grid.
#include "data/databases.h"
#include "forms/contest/contestform.h"
#include "log/band.h"

#include <QSet>

namespace hfc {

namespace {

const char* const Red = "#ff0000";
const char* const LightGrey = "#e0e0e0";
const char* const Palette7 = "#c0c0c0";
const char* const Palette10 = "#00ff00";

} // namespace

void ContestForm::registerBands() {
    on("cmbband_Click", [this](Event& e) { cmbband_Click(e.index); }, {"Index"});
    on("cmbband_GotFocus", [this](Event& e) { cmbband_GotFocus(e.index); }, {"Index"});
    on("cmbband_KeyPress", [this](Event& e) { cmbband_KeyPress(e); }, {"Index", "KeyAscii"});
    on("cmbband_KeyDown", [this](Event& e) { cmbband_KeyDown(e); }, {"Index", "KeyCode", "Shift"});
    on("cmbband_KeyUp", [this](Event& e) { cmbband_KeyUp(e); }, {"Index", "KeyCode", "Shift"});
    proc("cmbmod_Click", [this] { cmbmod_Click(); });
    on("cmbmod_KeyPress", [this](Event& e) { cmbmod_KeyPress(e); }, {"KeyAscii"});
    proc("cmbwsego_Click", [this] { cmbwsego_Click(); });
    proc("prefixlist", [this] { prefixlist(); });
    proc("refreshMultWindow", [this] { refreshMultWindow(); });
}

void ContestForm::cmbband_Click(int index) {
    if (index < 0 || index > 6) return;
    selectBand(index);
    qsyToBand(index); // the operator's choice moves the radio too
}

// The band choice itself, also when the radio's frequency makes it (then nothing goes back to
// the radio).
void ContestForm::selectBand(int index) {
    for (Control* b : cmbband) b->setBackcolor(Red);
    for (int b = 0; b < 7; ++b) cmbband[b]->setValue(b == index ? 1 : 0);
    if (curband != cmbband[index]->text()) firstAfterBandChange = true;
    curband = cmbband[index]->text();
    const BandInfo& band = bandTable()[size_t(index)];
    if (band.band != Band::Sat) {
        const int khz = cmbmod->text() == QLatin1String("SSB") ? band.ssbKhz : band.cwKhz;
        QString cmd;
        for (const char b : ft1000mpFrequencyCommand(khz)) cmd += QChar(uchar(b));
        catcmd = cmd;
    }
    cmbband[index]->setBackcolor(LightGrey);
    bandsame = index == bandprev ? 1 : 0;
    Label1->setText(curband + QStringLiteral(" MHz"));
    keepSession(QStringLiteral("band"), curband);
    refreshMultWindow();
}

void ContestForm::cmbband_GotFocus(int) {
    const QString own = TXTNCALL->text();
    if (owntail.isEmpty() && own.size() >= 4) owntail = own.mid(3);
}

void ContestForm::cmbband_KeyPress(Event& e) {
    if (e.keyAscii != keys::Enter || e.index < 0 || e.index > 6) return;
    // A button reached by focus alone is chosen by its Enter.
    if (!cmbband[e.index]->checked() || curband != cmbband[e.index]->text())
        click(cmbband[e.index]);
    // Enter confirms the band: the totals show it, the transceiver gets its frequency.
    emitCatOnBandEnter(e.index);
    refreshMultWindow(); // the window's view is now the band's

    // The operator chose the band to log on it: typing goes on in the callsign box.
    setFocus(txtcall);
}

void ContestForm::cmbband_KeyDown(Event& e) {
    if (e.index < 0 || e.index > 6) return;
    // Left and Right walk along the band row, choosing as they go.
    int to = -1;
    if (e.keyCode == keys::Left) to = (e.index + 6) % 7;
    if (e.keyCode == keys::Right) to = (e.index + 1) % 7;
    if (to >= 0) {
        setFocus(cmbband[to]);
        click(cmbband[to]);
    }
}

void ContestForm::cmbband_KeyUp(Event& e) {
    // On the key's release, so that the callsign box does not see the same Down arrow.
    if (e.keyCode == keys::Down) setFocus(txtcall);
}

void ContestForm::cmbmod_Click() {
    setMode(curmode != QLatin1String("CW") ? QStringLiteral("CW") : QStringLiteral("SSB"));
    qsyMode(); // the radio goes to the mode the operator chose
    setFocus(txtcall);
}

// The mode button's caption, its reports and what depends on them; the focus stays where it is,
// since the radio may change the mode while the operator types.
void ContestForm::setMode(const QString& mode) {
    if (curmode == mode) return;
    const QString rst = mode == QLatin1String("CW") ? QStringLiteral("599") : QStringLiteral("59");
    curmode = mode;
    cmbmod->setText(mode);
    lblrstr->setText(rst);
    lblrsts->setText(rst);
    rstdef = rst;
    keepSession(QStringLiteral("mode"), curmode);
    // An exchange that depends on the mode (the championship's): the contest is set up again.
    if (const contests::ContestDef& def = contestDef(); def.reselectOnMode)
        fire(QLatin1String(def.menuItem) + QStringLiteral("_Click"));
}

void ContestForm::cmbmod_KeyPress(Event& e) {
    if (e.keyAscii == ' ') {
        click(cmbmod);
        e.keyAscii = 0;
    }
}

void ContestForm::cmbwsego_Click() {
    multWindowAll = !multWindowAll;
    if (multWindowAll) {
        cmbwsego->setText(QStringLiteral("Всего"));
        prefixlist();
    } else {
        cmbwsego->setText(curband + QStringLiteral("MHz"));
        if (bandmult == 1) {
            for (Control* c : txtMwid) c->setBackcolor(Palette7);
            prefixlist();
        }
    }
    setFocus(txtcall);
}

// The window shows what is worked where the operator now is: another band's or contest's marks
// go first, then the worked ones are marked again (the whole contest's under "Всего").
void ContestForm::refreshMultWindow() {
    const bool perBand = !multWindowAll;
    if (perBand && !curband.isEmpty()) cmbwsego->setText(curband + QStringLiteral("MHz"));
    if (mwidmode != 1)
        for (Control* c : txtMwid) c->setBackcolor(perBand && bandmult == 1 ? Palette7 : "");
    prefixlist();
}

void ContestForm::prefixlist() {
    QStringList worked;
    if (multWindowAll)
        worked = store().secondMultsSorted(contestcode);
    else
        worked = store().secondMultsSorted(contestcode, curband);
    if (mwidmode != 1) {
        // A fixed list of names: mark the worked ones.
        const QSet<QString> seen(worked.begin(), worked.end());
        for (Control* c : txtMwid)
            if (!c->text().isEmpty() && seen.contains(c->text())) c->setBackcolor(Palette10);
    } else {
        // The grid lists the worked prefixes themselves, in query order.
        for (Control* c : txtMwid) {
            c->setText(QString());
            c->setBackcolor(Palette7);
        }
        for (int i = 0; i < worked.size() && i < MwidBoxes; ++i) {
            txtMwid[i]->setText(worked[i]);
            txtMwid[i]->setBackcolor(Palette10);
        }
    }
    if (!worked.isEmpty()) twid1->setText(worked.back());
}

} // namespace hfc

// The received-exchange box: its character set, its preparation for the call, its Enter and
// the check of what was received.
#include "contests/claimedscore.h"
#include "contests/exchangecheck.h"
#include "data/databases.h"
#include "entry/entrysession.h"
#include "forms/contest/contestform.h"
#include "forms/contest/entrymark.h"
#include "text/keyfilter.h"

namespace hfc {

void ContestForm::registerExchange() {
    proc("wwodrstr", [this] { wwodrstr(); });
    on("txtrstr_KeyPress", [this](Event& e) { txtrstr_KeyPress(e); }, {"KeyAscii"});
    proc("txtrstr_GotFocus", [this] { txtrstr_GotFocus(); });
    on("lblrstr_KeyPress", [this](Event& e) { lblrstr_KeyPress(e); }, {"KeyAscii"});
    var(
        "rstrselected", [this] { return QString::number(rstrselected ? 1 : 0); },
        [this](const QString& v) { rstrselected = val(v) != 0; });
    var("confirmedBad", confirmedBad);
}

QString ContestForm::exchangeChars() const {
    // The switches are tested in this order and the last one that applies wins.
    QString set;
    if (exchsel1 == 0 || exchsel2 == 0) set = digits;
    if (exchsel3 == 0) set = letters;
    if (exchsel4 == 0) set = callchars;
    return set;
}

bool ContestForm::countsExchange() const {
    return exchmult == 0 || itufill == 0 || cqfill == 0;
}

// The exchange that follows from the call (zone, district) is put in by wwodcall just before;
// here it is checked as a multiplier, and RAEM scores its coordinates. The sent boxes were
// prepared by nextserial when the callsign box took the focus (the serial, the fixed exchange,
// LZ Open's passed-on number, RAEM's own coordinates).
void ContestForm::wwodrstr() {
    if (countsExchange() && !txtrstr->text().isEmpty()) {
        draft().psCandidate = txtrstr->text();
        pscheck();
    }
    if (contestDef().extra == contests::EntryRule::RaemDistance) raemscore();
}

bool ContestForm::oblastKnown(const QString& code) {
    // Read once; a code missing from the copy is looked for again, since the districts window
    // may have added it meanwhile.
    if (oblastCodes.contains(code)) return true;
    const QStringList all = env().db->rus.column(
        QStringLiteral("SELECT DISTINCT kodsrr FROM tblrus WHERE length(kodsrr) > 0"));
    oblastCodes = QSet<QString>(all.begin(), all.end());
    return oblastCodes.contains(code);
}

bool ContestForm::checkExchange() {
    // A repeat or too-early QSO scores nothing anyway, and its mark must reach the commit.
    const QsoDraft::Mark m = session().draft().mark;
    if (m == QsoDraft::Mark::Repeat || m == QsoDraft::Mark::TooEarly) return true;
    // A second Enter on the unchanged exchange takes it as received.
    if (m == QsoDraft::Mark::Invalid && txtrstr->text() == confirmedBad) {
        showMark(*this, QsoDraft::Mark::None);
        confirmedBad.clear();
        return true;
    }
    QsoFacts q;
    q.contest = contestcode;
    q.call = txtcall->text();
    q.pref = draft().dxccPrefix;
    q.report = lblrstr->text();
    q.exchange = txtrstr->text();
    if (exchangeAcceptable(q, [this](const QString& code) { return oblastKnown(code); }))
        return true;
    showMark(*this, QsoDraft::Mark::Invalid);
    confirmedBad = txtrstr->text();
    return false;
}

void ContestForm::txtrstr_KeyPress(Event& e) {
    e.keyAscii = QChar(e.keyAscii).toUpper().unicode();
    // A pre-filled exchange is selected when the box takes the focus: the first character typed
    // or a Backspace replaces it, Enter takes it as it is.
    const bool replace = rstrselected && e.keyAscii != keys::Enter;
    rstrselected = false;
    if (e.keyAscii > 26) {
        const QString set = exchangeChars();
        // No switch selects a set before a contest is chosen: then any character is taken.
        if (!set.isEmpty() && !set.contains(QChar(e.keyAscii))) {
            e.keyAscii = 0;
            return;
        }
        if (replace) txtrstr->setText(QString());
        rearmCheck();
        if (contestDef().extra == contests::EntryRule::SacArea) SAC1();
        return;
    }
    if (e.keyAscii == keys::Backspace) rearmCheck();
    // Backspace on the selection empties the box: it removes this one blank after the handler.
    if (replace && e.keyAscii == keys::Backspace) txtrstr->setText(QStringLiteral(" "));
    if (e.keyAscii != keys::Enter) return;
    if (txtrstr->text().isEmpty()) {
        // Nothing to log yet; with Enter sending messages, the call and exchange go again.
        if (esmOn() && !txtcall->text().isEmpty()) esmCall();
        return;
    }
    if (!checkExchange()) return; // corrected or confirmed by the next Enter
    if (contestDef().extra == contests::EntryRule::RaemDistance) raemscore();
    // A zone is a number: "5" is the zone "05" already worked, and is logged as "05".
    if (contestDef().numericExchange) txtrstr->setText(contests::numericExchange(txtrstr->text()));
    if (countsExchange()) {
        draft().psCandidate = txtrstr->text();
        pscheck();
    }
    scoringEntered = true;
    qsopoints();
    scoringEntered = false;
    if (contestDef().extra == contests::EntryRule::RaemDistance) raemscore();
    if (session().draft().mark != QsoDraft::Mark::None) setPoints(QStringLiteral("0"));
    // Before the commit, which clears the call and exchange the text may name.
    if (esmOn()) esmThanks();
    cmbAdd_Click();
}

void ContestForm::rearmCheck() {
    // Any edit of a refused exchange hides the mark: the next Enter checks again.
    if (session().draft().mark == QsoDraft::Mark::Invalid) showMark(*this, QsoDraft::Mark::None);
    confirmedBad.clear();
}

void ContestForm::txtrstr_GotFocus() {
    rstrselected = !txtrstr->text().isEmpty();
    if (contestDef().extra == contests::EntryRule::SacArea) SAC();
}

void ContestForm::lblrstr_KeyPress(Event& e) {
    // The typed received report (the championship's zone): digits only; Enter goes on to the
    // exchange.
    e.keyAscii = filterKey(e.keyAscii, digits, 0, 0);
    if (e.keyAscii > 26 || e.keyAscii == keys::Backspace) rearmCheck(); // a correction
    if (e.keyAscii == keys::Enter) setFocus(txtrstr);
}

} // namespace hfc

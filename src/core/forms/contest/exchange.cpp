// The received-exchange box: its character set, its preparation for the call and its Enter.
// The per-contest checks of what was received go into checkExchange(); qsopoints() gives the
// points. Both run on Enter before the QSO is committed.
#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerExchange() {
    proc("wwodrstr", [this] { wwodrstr(); });
    on("txtrstr_KeyPress", [this](Event& e) { txtrstr_KeyPress(e); }, {"KeyAscii"});
    proc("txtrstr_GotFocus", [this] { txtrstr_GotFocus(); });
    on("lblrstr_KeyPress", [this](Event& e) { lblrstr_KeyPress(e); }, {"KeyAscii"});
    var(
        "rstrselected", [this] { return QString::number(rstrselected ? 1 : 0); },
        [this](const QString& v) { rstrselected = val(v) != 0; });
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

void ContestForm::wwodrstr() {
    if (countsExchange() && !txtrstr->text().isEmpty()) {
        pscand = txtrstr->text();
        pscheck();
    }
    if (contestcode == QLatin1String("raem")) raemscore();
}

void ContestForm::checkExchange() {
    // Per-contest checks of the received exchange come here; none is fixed yet.
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
        if (contestcode == QLatin1String("sac")) SAC1();
        return;
    }
    // Backspace on the selection empties the box: it removes this one blank after the handler.
    if (replace && e.keyAscii == keys::Backspace) txtrstr->setText(QStringLiteral(" "));
    if (e.keyAscii != keys::Enter) return;
    if (txtrstr->text().isEmpty()) return; // nothing to log yet
    if (contestcode == QLatin1String("raem")) raemscore();
    checkExchange();
    if (countsExchange()) {
        pscand = txtrstr->text();
        pscheck();
    }
    qsopoints();
    if (contestcode == QLatin1String("raem")) raemscore();
    if (txtrepit->visible()) txtpoint->setText(QStringLiteral("0"));
    cmbAdd_Click();
}

void ContestForm::txtrstr_GotFocus() {
    rstrselected = !txtrstr->text().isEmpty();
    if (contestcode == QLatin1String("sac")) SAC();
}

void ContestForm::lblrstr_KeyPress(Event& e) {
    // The received report of "chemp": digits only; Enter goes on to the exchange.
    e.keyAscii = QChar(e.keyAscii).toUpper().unicode();
    if (e.keyAscii > 26 && !digits.contains(QChar(e.keyAscii))) e.keyAscii = 0;
    if (e.keyAscii == keys::Enter) setFocus(txtrstr);
}

} // namespace hfc

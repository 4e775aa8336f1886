// Function-key messages, the keyer panel and the glue between the window and the keyer thread.
#include "forms/contest/contestform.h"

#include "keyer/cwdaemonkeyer.h"
#include "keyer/keyer.h"
#include "keyer/messagetext.h"
#include "keyer/morse.h"
#include "keyer/rigctldkeyer.h"
#include "keyer/serialkeyport.h"
#include "keyer/winkeyer.h"
#include "station/multiop.h"
#include "station/settings.h"

#include <QMetaObject>
#include <optional>

namespace hfc {

namespace {

const QString kNulZero = QStringLiteral("Ноль = Ноль");
const QString kNulO = QStringLiteral("Ноль = O");
const QString kNulT = QStringLiteral("Ноль = T");

// The factor labels are written the way a Russian desktop writes numbers: decimal comma.
std::optional<double> parseFactor(QString text) {
    bool ok = false;
    const double v = text.trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    if (!ok) return std::nullopt;
    return v;
}

QString formatFactor(double v) {
    return QString::number(v, 'g', 12).replace(QLatin1Char('.'), QLatin1Char(','));
}

QString cutZeros(QString text, const QString& nul) {
    return text.replace(QLatin1Char('0'), nul);
}

} // namespace

void ContestForm::registerKeys() {
    on("Form_KeyDown", [this](Event& e) { Form_KeyDown(e); }, {"KeyCode", "Shift"});
    proc("lblNul_Click", [this] { lblNul_Click(); });
    proc("MNUCW_Click", [this] { MNUCW_Click(); });
    on("Option1_Click", [this](Event& e) { Option1_Click(e.index); }, {"Index"});
    proc("HScroll1_Change", [this] { HScroll1_Change(); });
    proc("cwsend", [this] { cwsend(); });
    proc("cwkey", [this] { cwkey(); });
    var("commport", commport);
    // Nothing is chosen until the operator picks a port, or the station's settings name a keyer.
    keyerChosen = !env().port || !env().port->needsChoice() ||
                  (env().settings && env().settings->keyerBackend != QLatin1String("serial"));
    if (!keyerChosen) Option1[0]->setValue(0);
    showKeyerSpeed();
    showPorts();
}

void ContestForm::Form_KeyDown(Event& e) {
    const int letter = e.keyCode;
    if ((letter == 'W' && (e.shift == 2 || e.shift == 4))) {
        wipeEntry();
        return;
    }
    if (letter == 'K' && e.shift == 2) {
        mnufind_Click();
        return;
    }
    // Esc stops a message at once. It only stops the keyer, so the controls still see the key.
    if (e.keyCode == keys::Esc) {
        // A keying device may still be sending when the window thinks it is done: it is always
        // told to stop. The DTR keyer knows, and only stops what it is sending.
        if (keyer_ && (keyer_->busy() || keyerKind_ != QLatin1String("serial"))) keyer_->abort();
        return;
    }
    // Ctrl+Down / Ctrl+Up: the next spot of the band map up / down in frequency.
    if (e.shift == 2 && (e.keyCode == keys::Down || e.keyCode == keys::Up)) {
        takeSpot(e.keyCode == keys::Down);
        return;
    }
    const bool messageKey = e.keyCode >= keys::F2 && e.keyCode <= keys::F9;
    if (e.shift != 0) {
        if (!messageKey) return;
        Control* label = TXTSCOR[e.keyCode - keys::F2];
        const std::optional<double> factor = parseFactor(label->text());
        if (e.shift == 2) {
            if (factor) label->setText(formatFactor(*factor + 0.25));
        } else if (e.shift == 1) {
            // A factor never stays at zero: one step below 0,25 starts again at 1.
            if (factor && label->text() != QStringLiteral("0")) {
                label->setText(formatFactor(*factor - 0.25));
                if (label->text() == QStringLiteral("0")) label->setText(QStringLiteral("1"));
            }
        }
        return;
    }
    if (messageKey) sendKeyMessage(e.keyCode);
    if (contestDef().qtc && e.keyCode == keys::F1) openQtc();
}

bool ContestForm::sendKeyMessage(int keyCode) {
    // No keyer chosen yet: said on the status line, not in a box that would take the next Enter
    // of the QSO.
    if (!keyerChosen && keyerKindFromSettings() == QLatin1String("serial")) {
        status(QStringLiteral("Ключ не выбран: укажите порт COM на панели «CW ключ» (Сервис → "
                              "CW ключ) или интерфейс ключа в окне Сервис → Настройки…"));
        return false;
    }
    status(QString());
    const int k = keyCode - keys::F2;
    const std::optional<double> factor = parseFactor(TXTSCOR[k]->text());
    if (!factor) {
        msgbox(QStringLiteral("Множитель скорости F%1 не число: %2")
                   .arg(k + 2)
                   .arg(TXTSCOR[k]->text()),
               QStringLiteral("Ошибка !!!"));
        return false;
    }
    cwfactor = *factor;
    cwunit = cwunit * cwfactor;
    switch (keyCode) {
    case 113:
        cwtext = lbltest->text();
        break;
    case 114:
        // The station's full call: the box keeps only its cut once the call has been entered.
        cwtext = owncall.isEmpty() ? TXTNCALL->text() : owncall;
        break;
    case 115:
        cwtext = expandMessage(txtf4->text());
        break;
    case 116:
        cutnumber = cutZeros(txtrsts->text(), nulchar);
        if (lblrsts->text() == QStringLiteral("599")) {
            cwtext = QStringLiteral("5NN") + cutnumber;
        } else {
            cutrst = cutZeros(lblrsts->text(), nulchar);
            cwtext = cutrst + QLatin1Char(' ') + cutnumber;
        }
        break;
    case 117:
        cwtext = txtcall->text();
        break;
    case 118:
        cwtext = expandMessage(txtf7->text());
        break;
    case 119:
        cwtext = expandMessage(txtf8->text());
        break;
    case 120:
        cwtext = expandMessage(txtf9->text());
        break;
    }
    cwsend();
    return true;
}

QString ContestForm::expandMessage(const QString& text) const {
    MessageFields f;
    f.mycall = owncall.isEmpty() ? TXTNCALL->text() : owncall;
    f.call = txtcall->text();
    f.nr = cutZeros(txtrsts->text(), nulchar);
    // The report as F5 sends it.
    f.rst = lblrsts->text() == QStringLiteral("599") ? QStringLiteral("5NN")
                                                     : cutZeros(lblrsts->text(), nulchar);
    f.exch = txtrstr->text();
    return expandMessageText(text, f);
}

bool ContestForm::esmOn() const {
    return env().settings && env().settings->esm;
}

void ContestForm::esmCall() {
    // The call and the report with the exchange, each at its key's factor, as F6 then F5.
    if (sendKeyMessage(keys::F2 + 4)) sendKeyMessage(keys::F2 + 3);
}

void ContestForm::esmThanks() {
    // The thanks text has no key of its own, so it goes at the bar's speed.
    cwfactor = 1;
    cwtext = expandMessage(txttu->text());
    cwsend();
}

void ContestForm::lblNul_Click() {
    const QString caption = lblNul->text();
    if (caption == kNulZero) {
        lblNul->setText(kNulT);
        nulchar = QStringLiteral("t");
    } else if (caption == kNulO) {
        lblNul->setText(kNulZero);
        nulchar = QStringLiteral("0");
    } else if (caption == kNulT) {
        lblNul->setText(kNulO);
        nulchar = QStringLiteral("o");
    }
}

void ContestForm::MNUCW_Click() {
    if (!frCW->visible()) {
        frCW->setVisible(true);
        LblPoz->setText(TXTNCALL->text());
    } else {
        frCW->setVisible(false);
    }
}

void ContestForm::Option1_Click(int index) {
    if (index < 0 || index > 3) return;
    commport = index + 1;
    keyerChosen = true;
    // The port itself is opened per message, so a busy port shows up at the next send.
    if (auto* serial = dynamic_cast<Keyer*>(keyer_.get())) serial->setCommPort(commport);
}

void ContestForm::HScroll1_Change() {
    const int position = qBound(1, HScroll1->value(), 100);
    cwunit = double(Keyer::unitForBar(position));
    showKeyerSpeed();
}

void ContestForm::showKeyerSpeed() {
    const int position = qBound(1, HScroll1->value(), 100);
    lblwpm->setText(QStringLiteral("%1 WPM").arg(qRound(Keyer::wpmForBar(position))));
}

void ContestForm::showPorts() {
    const QString kind = keyerKindFromSettings();
    if (kind != QLatin1String("serial")) {
        // A network or radio keyer has no COM port: the panel names what keys instead.
        lblports->setText(QStringLiteral("Ключ: %1").arg(keyerSignature().mid(kind.size() + 1)));
        return;
    }
    // Only a real serial port has devices to show; the recording port of the script has none.
    const auto* serial = dynamic_cast<const SerialKeyPort*>(env().port);
    if (!serial) return;
    const QStringList devices = serial->devices();
    QStringList parts;
    for (int i = 0; i < 4; ++i)
        parts << QStringLiteral("COM%1 %2")
                     .arg(i + 1)
                     .arg(i < devices.size() ? devices[i] : QStringLiteral("нет"));
    lblports->setText(parts.join(QStringLiteral("   ")));
}

void ContestForm::cwsend() {
    cwcode = buildCwCode(cwtext, cwchar);
    emit messageQueued(cwtext);
    cwkey();
}

void ContestForm::cwkey() {
    // The message goes out on the keyer's thread or device; the window only queues it. The
    // per-key factor is undone here at once, so the next key starts from the bar's unit even
    // while this message is still being sent.
    const qint64 unit = qRound64(cwunit);
    HScroll1_Change();
    if (KeyerBackend* k = ensureKeyer()) k->send(cwcode, unit, qRound64(cwunit));
}

KeyerBackend* ContestForm::keyer() {
    return keyer_.get();
}

QString ContestForm::keyerKindFromSettings() const {
    const StationSettings* st = env().settings;
    const QString kind = st ? st->keyerBackend.trimmed().toLower() : QString();
    return kind.isEmpty() ? QStringLiteral("serial") : kind;
}

QString ContestForm::keyerSignature() const {
    const QString kind = keyerKindFromSettings();
    const StationSettings* st = env().settings;
    if (!st) return kind;
    if (kind == QLatin1String("cwdaemon")) return kind + QLatin1Char(' ') + st->cwdaemon;
    if (kind == QLatin1String("winkeyer")) return kind + QLatin1Char(' ') + st->winkeyer;
    if (kind == QLatin1String("rigctld")) return kind + QLatin1Char(' ') + st->rigctld;
    return kind;
}

std::unique_ptr<KeyerBackend> ContestForm::makeKeyer() {
    const QString kind = keyerKindFromSettings();
    const StationSettings* st = env().settings;
    QString host;
    quint16 port = 0;
    if (kind == QLatin1String("serial")) {
        if (!env().port) return nullptr;
        // The port belongs to whoever filled the Env and outlives this window.
        auto k = std::make_unique<Keyer>(std::shared_ptr<KeyPort>(env().port, [](KeyPort*) {}));
        k->setCommPort(commport);
        return k;
    }
    if (kind == QLatin1String("cwdaemon")) {
        if (!splitHostPort(st->cwdaemon, host, port)) {
            keyerError(QStringLiteral("Неверный адрес cwdaemon: %1").arg(st->cwdaemon));
            return nullptr;
        }
        return std::make_unique<CwDaemonKeyer>(host, port);
    }
    if (kind == QLatin1String("winkeyer")) return std::make_unique<WinKeyer>(st->winkeyer);
    if (kind == QLatin1String("rigctld")) {
        // Empty: the keyer says so itself when asked to send.
        if (!st->rigctld.isEmpty() && !splitHostPort(st->rigctld, host, port)) {
            keyerError(QStringLiteral("Неверный адрес rigctld: %1").arg(st->rigctld));
            return nullptr;
        }
        return std::make_unique<RigctldKeyer>(host, port);
    }
    // A misspelt choice keys nothing rather than a serial port the station may not have wired.
    keyerError(QStringLiteral("Неизвестный ключ в настройках: %1").arg(kind));
    return nullptr;
}

KeyerBackend* ContestForm::ensureKeyer() {
    // The settings window may have chosen another keyer since the last message.
    const QString signature = keyerSignature();
    if (keyer_ && signature == keyerSignature_) return keyer_.get();
    keyer_.reset(); // stops what the old keyer was sending and joins its thread
    keyerSignature_ = signature;
    keyerKind_ = keyerKindFromSettings();
    showPorts();
    keyer_ = makeKeyer();
    if (!keyer_) return nullptr;
    // May run on the keyer's thread: the message box belongs to the window's thread.
    keyer_->setErrorHandler([this](const QString& message) {
        QMetaObject::invokeMethod(
            this, [this, message] { keyerError(message); }, Qt::QueuedConnection);
    });
    return keyer_.get();
}

void ContestForm::keyerError(const QString& message) {
    msgbox(message, QStringLiteral("Ошибка !!!"), Ui::Buttons::Ok);
}

ContestForm::~ContestForm() {
    // Stops a message being sent and joins the keyer's thread before the controls go.
    keyer_.reset();
    multiop_.reset(); // tells the other computers this one has gone
}

} // namespace hfc

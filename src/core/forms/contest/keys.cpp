// Function-key messages, the keyer panel and the glue between the window and the keyer thread.
#include "forms/contest/contestform.h"

#include "keyer/keyer.h"
#include "keyer/morse.h"
#include "keyer/serialkeyport.h"
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
        if (keyer_ && keyer_->busy()) keyer_->abort();
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
    if (messageKey && !keyerChosen) {
        // Said on the status line, not in a box: a box would take the next Enter of the QSO.
        status(QStringLiteral("Ключ не выбран: укажите порт COM на панели «CW ключ» (Сервис → "
                              "CW ключ) или интерфейс ключа в окне Сервис → Настройки…"));
        return;
    }
    if (messageKey) {
        status(QString());
        const int k = e.keyCode - keys::F2;
        const std::optional<double> factor = parseFactor(TXTSCOR[k]->text());
        if (!factor) {
            msgbox(QStringLiteral("Множитель скорости F%1 не число: %2")
                       .arg(k + 2)
                       .arg(TXTSCOR[k]->text()),
                   QStringLiteral("Ошибка !!!"));
            return;
        }
        cwfactor = *factor;
        cwunit = cwunit * cwfactor;
        switch (e.keyCode) {
        case 113:
            cwtext = lbltest->text();
            break;
        case 114:
            cwtext = TXTNCALL->text();
            break;
        case 115:
            cwtext = txtf4->text();
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
            cwtext = txtf7->text();
            break;
        case 119:
            cwtext = txtf8->text();
            break;
        case 120:
            cwtext = txtf9->text();
            break;
        }
        cwsend();
    }
    if (contestcode == QStringLiteral("wae") && e.keyCode == keys::F1) openQtc();
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
    if (keyer_) keyer_->setCommPort(commport);
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
    cwkey();
}

void ContestForm::cwkey() {
    // The message goes out on the keyer's thread; the window only queues it. The per-key factor
    // is undone here at once, so the next key starts from the bar's unit even while this message
    // is still being sent.
    const qint64 unit = qRound64(cwunit);
    HScroll1_Change();
    if (Keyer* k = ensureKeyer()) k->send(cwcode, unit, qRound64(cwunit));
}

Keyer* ContestForm::keyer() {
    return keyer_;
}

Keyer* ContestForm::ensureKeyer() {
    if (keyer_ || !env().port) return keyer_;
    // The port belongs to whoever filled the Env and outlives this window.
    keyer_ = new Keyer(std::shared_ptr<KeyPort>(env().port, [](KeyPort*) {}));
    keyer_->setCommPort(commport);
    // Runs on the keyer's thread: the message box belongs to the window's thread.
    keyer_->setPortErrorHandler([this] {
        QMetaObject::invokeMethod(
            this, [this] { portBusy(); }, Qt::QueuedConnection);
    });
    return keyer_;
}

void ContestForm::portBusy() {
    msgbox(QStringLiteral("Порт занят"), QStringLiteral("Ошибка !!!"), Ui::Buttons::Ok);
}

ContestForm::~ContestForm() {
    // Stops a message being sent and joins the keyer's thread before the controls go.
    delete keyer_;
}

} // namespace hfc

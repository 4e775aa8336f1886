// The link to a Yaesu FT1000MP: Enter on a band button emits the band's frequency command.
#include "forms/contest/contestform.h"

namespace hfc {

namespace {
const QString kCatOn = QStringLiteral("CAT FT1000MP вкл");
const QString kCatOff = QStringLiteral("CAT FT1000MP выкл");
} // namespace

void ContestForm::registerRig() {
    proc("mnuCAT_Click", [this] { mnuCAT_Click(); });
    on("emitCatOnBandEnter", [this](Event& e) { emitCatOnBandEnter(e.index); }, {"Index"});
}

void ContestForm::mnuCAT_Click() {
    mnuCAT->setText(mnuCAT->text() != kCatOff ? kCatOff : kCatOn);
    setFocus(txtcall);
}

void ContestForm::emitCatOnBandEnter(int index) {
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
    }
    bandprev = index;
    if (contestcode == QStringLiteral("sac")) SAC2();
}

} // namespace hfc

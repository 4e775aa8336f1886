#include "reports/standard/contestids.h"
#include "contests/contestdef.h"

namespace hfc {

const contests::StandardIds* standardContest(const QString& contestcode) {
    const contests::ContestDef* c = contests::find(contestcode);
    return c ? &c->ids : nullptr;
}

bool sendsSerial(const QString& contestcode) {
    return contests::def(contestcode).sent != contests::SentExchange::Fixed;
}

QString cabrilloContestName(const QString& contestcode, QsoMode mode) {
    const contests::StandardIds* c = standardContest(contestcode);
    if (!c) return {};
    return QLatin1String(mode == QsoMode::Cw ? c->cabrilloCw : c->cabrilloSsb);
}

QString adifContestId(const QString& contestcode, QsoMode mode) {
    const contests::StandardIds* c = standardContest(contestcode);
    if (!c) return {};
    return QLatin1String(mode == QsoMode::Cw ? c->adifCw : c->adifSsb);
}

} // namespace hfc

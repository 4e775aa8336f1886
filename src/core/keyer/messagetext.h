#pragma once
// The operator's own message texts may name what changes from QSO to QSO: {MYCALL} the station's
// full call, {CALL} the call being worked, {NR} the sent exchange with cut zeros, {RST} the sent
// report as F5 keys it, {EXCH} the received exchange.
#include <QString>

namespace hfc {

struct MessageFields {
    QString mycall, call, nr, rst, exch;
};

// Each known {NAME} (in any case) becomes its field; anything else in braces stays as typed, so
// a misspelt name shows on the air rather than vanishing.
QString expandMessageText(const QString& text, const MessageFields& fields);

} // namespace hfc

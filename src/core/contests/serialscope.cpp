#include "contests/serialscope.h"

namespace hfc::contests {

SerialScope serialScope(const QString& contestcode) {
    // Contests whose multi-operator entries put one signal on the air at a time (single-band
    // contests, and WAE's single-transmitter multi-operator class): the station's QSOs form one
    // sequence, whichever computer logs them.
    static const char* const station[] = {"arrl10", "rsgb", "tops", "wae"};
    for (const char* code : station)
        if (contestcode == QLatin1String(code)) return SerialScope::Station;
    return SerialScope::Transmitter;
}

} // namespace hfc::contests

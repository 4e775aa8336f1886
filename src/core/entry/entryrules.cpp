#include "entry/entryrules.h"

namespace hfc {

namespace {

bool isOneOf(const QString& code, std::initializer_list<const char*> codes) {
    for (const char* c : codes)
        if (code == QLatin1String(c)) return true;
    return false;
}

} // namespace

EntryRules entryRulesFor(const QString& code) {
    EntryRules r;
    using P = LogStore::Partial;
    if (code == QLatin1String("chemp")) {
        // every earlier QSO with the exact call, on any band: there any one is a repeat
        r.partial = P::SameCall;
    } else if (code == QLatin1String("bal")) {
        r.partial = P::BeginsWithReport;
        r.partialReport = EntryRules::Report::Default;
    } else if (isOneOf(code, {"ari", "hol", "sp", "arrl10", "ukr"})) {
        r.partial = P::OnBandWithReport;
        r.partialReport = EntryRules::Report::Received;
    }
    if (code == QLatin1String("lzo"))
        r.time = EntryRules::TimeRule::HalfHour;
    else if (isOneOf(code, {"chemp", "ES"}))
        r.time = EntryRules::TimeRule::ClockHour;
    else if (code == QLatin1String("raem"))
        r.time = EntryRules::TimeRule::ClockHourAnyBand;
    r.listedIsRepeat = !isOneOf(code, {"lzo", "ES", "raem"});
    return r;
}

} // namespace hfc

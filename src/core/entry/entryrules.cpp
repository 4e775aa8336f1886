#include "entry/entryrules.h"

#include "contests/contestdef.h"

namespace hfc {

EntryRules entryRulesFor(const QString& code) {
    const contests::ContestDef& def = contests::def(code);
    EntryRules r;
    using P = LogStore::Partial;
    switch (def.partial) {
    case contests::PartialList::ExactCall:
        r.partial = P::SameCall;
        break;
    case contests::PartialList::DefaultReport:
        r.partial = P::BeginsWithReport;
        r.partialReport = EntryRules::Report::Default;
        break;
    case contests::PartialList::BandAndReport:
        r.partial = P::OnBandWithReport;
        r.partialReport = EntryRules::Report::Received;
        break;
    case contests::PartialList::Band:
        r.partial = P::OnBand;
        break;
    }
    switch (def.time) {
    case contests::TimeRule::None:
        r.time = EntryRules::TimeRule::None;
        break;
    case contests::TimeRule::ThirtyMinutes:
        r.time = EntryRules::TimeRule::HalfHour;
        break;
    case contests::TimeRule::HourOnBand:
        r.time = EntryRules::TimeRule::ClockHour;
        break;
    case contests::TimeRule::Hour:
        r.time = EntryRules::TimeRule::ClockHourAnyBand;
        break;
    }
    r.listedIsRepeat = def.repeatByList;
    return r;
}

} // namespace hfc

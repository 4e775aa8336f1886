#pragma once
// The facts of a contest that the entry line works by: which earlier QSOs the partial list
// shows, which time rule holds, whether a listed call is a repeat. The one place the entry
// session learns them, read from the contest's definition.
#include "log/logstore.h"

#include <QString>

namespace hfc {

struct EntryRules {
    LogStore::Partial partial = LogStore::Partial::OnBand;
    // Which report narrows the partial list: none, the report received, the contest's default.
    enum class Report { None, Received, Default };
    Report partialReport = Report::None;

    enum class TimeRule {
        None,
        HalfHour,  // the same station again only 30 minutes later, any band
        ClockHour, // one QSO per station and clock hour, on the band
        ClockHourAnyBand,
    };
    TimeRule time = TimeRule::None;
    // A call already on the partial list is a repeat (off where the time rule alone decides).
    bool listedIsRepeat = true;
};

EntryRules entryRulesFor(const QString& contestcode);

} // namespace hfc

#pragma once
// How the report window turns per-band counts into its table and the claimed score. Contests
// differ only in their definition's report rule: the scale of each multiplier column, the score
// rule and whether the columns are headed as zones and corrections.
#include "contests/contestdef.h"

#include <QString>

namespace hfc {

using ReportScoring = contests::ReportScore;

// The rules of a contest code; a code without a definition scores by the general product rule.
const ReportScoring& reportScoring(const QString& contestcode);

long long claimedScore(const ReportScoring& s, long long firstTotal, long long secondTotal,
                       long long pointTotal);

// Text of a Sum() over a points column as the window shows it: whole values without a fraction,
// no rows (empty) as "0".
QString pointSumText(const QString& sum);

} // namespace hfc

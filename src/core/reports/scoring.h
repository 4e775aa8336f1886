#pragma once
// How the report window turns per-band counts into its table and the claimed score. Contests
// differ only in the rows of one table: the scale of each multiplier column, the score rule and
// whether the columns are headed as zones and corrections.
#include <QString>

namespace hfc {

struct ReportScoring {
    enum class Rule {
        Product,    // (first + second multipliers) x points
        Sum,        // the multipliers are already points after scaling: a plain sum
        PointsOnly, // points alone
    };
    int firstScale = 1;  // applied to each band's first-multiplier count
    int secondScale = 1; // and to the second
    Rule rule = Rule::Product;
    bool zoneHeadings = false; // columns read "зоны" / "корр" instead of "Dxcc" / "Zone"
};

// The rules of a contest code; any code not listed scores by the general product rule.
const ReportScoring& reportScoring(const QString& contestcode);

long long claimedScore(const ReportScoring& s, long long firstTotal, long long secondTotal,
                       long long pointTotal);

// Text of a Sum() over a points column as the window shows it: whole values without a fraction,
// no rows (empty) as "0".
QString pointSumText(const QString& sum);

} // namespace hfc

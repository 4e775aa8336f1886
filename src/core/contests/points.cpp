#include "contests/points.h"

#include "country/russia.h"

#include <QHash>

namespace hfc {

namespace {

PointsResult points(const char* p) {
    PointsResult r;
    r.points = QString::fromLatin1(p);
    return r;
}

bool prefIs(const QsoFacts& q, const char* pref) {
    return q.pref == QLatin1String(pref);
}

PointsResult kcj(const QsoFacts& q) {
    return prefIs(q, "JA") ? points("1") : PointsResult{};
}

PointsResult cqww(const QsoFacts& q) {
    PointsResult r;
    r.points = eu13Points(q.kont);
    return r;
}

PointsResult bal(const QsoFacts& q) {
    return prefIs(q, "LY") || prefIs(q, "YL") || prefIs(q, "ES") ? points("10") : points("1");
}

PointsResult sp(const QsoFacts& q) {
    return prefIs(q, "SP") ? points("3") : PointsResult{};
}

PointsResult pacc(const QsoFacts& q) {
    if (prefIs(q, "PA")) return {};
    PointsResult r = points("0");
    r.clearMult = true;
    return r;
}

PointsResult onePoint(const QsoFacts&) {
    return points("1");
}

PointsResult lzd(const QsoFacts& q) {
    if (prefIs(q, "LZ")) return points("6");
    PointsResult r;
    r.points = eu13Points(q.kont);
    return r;
}

PointsResult lzo(const QsoFacts& q) {
    return prefIs(q, "UA") ? points("1") : points("2");
}

PointsResult wag(const QsoFacts& q) {
    if (prefIs(q, "DL")) return points("3");
    PointsResult r = points("0");
    r.clearMult = true;
    return r;
}

PointsResult hol(const QsoFacts& q) {
    const bool low = q.band == QLatin1String("1,8") || q.band == QLatin1String("3,5") ||
                     q.band == QLatin1String("7");
    return low ? points("2") : points("1");
}

PointsResult hel(const QsoFacts& q) {
    return prefIs(q, "HB") ? points("3") : points("0");
}

// The contests in the order the points chain tests them. A code without a rule here keeps the
// points box as it was; the rules still missing go into their place in this list:
//   kcj vkzl ari cqww aa bal cqm cro ea ES euhf fd HA iaru jid lzd lzo marc ok pacc rudx rsgb
//   ref toec sp ukr wae wag wpx wwg yo yu agcw cq160 hol hel tops chemp arrl10
// Branches that go on for some stations (cqww for "UA", sp for non-SP, pacc for "PA") leave
// those stations' points to the rule that completes them.
struct Entry {
    const char* code;
    PointsRule rule;
};
constexpr Entry chain[] = {
    {"kcj", kcj}, {"cqww", cqww},     {"bal", bal},   {"lzd", lzd},
    {"lzo", lzo}, {"marc", onePoint}, {"pacc", pacc}, {"sp", sp},
    {"wag", wag}, {"agcw", onePoint}, {"hol", hol},   {"hel", hel},
};

} // namespace

PointsRule pointsRule(const QString& contest) {
    static const QHash<QString, PointsRule> table = [] {
        QHash<QString, PointsRule> t;
        for (const Entry& e : chain) t.insert(QString::fromLatin1(e.code), e.rule);
        return t;
    }();
    return table.value(contest, nullptr);
}

} // namespace hfc

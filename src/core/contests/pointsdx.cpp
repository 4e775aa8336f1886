// Points of the DX contests: decided by the two stations' countries and continents, the band
// and the mode. Each table is read top-down; the first row that holds gives the points.
#include "contests/groups.h"
#include "contests/pointsrules.h"

namespace hfc::contests::rules {

namespace {

bool band(const QsoFacts& q, const char* b) {
    return is(q.band, b);
}
bool ownIn(const QsoFacts& q, Group g) {
    return inGroup(q.ownPref, g);
}
bool callIn(const QsoFacts& q, Group g) {
    return inGroup(q.pref, g);
}
bool ruOrBy(const QsoFacts& q) {
    return callIn(q, Group::Russia) || callIn(q, Group::Belarus);
}

} // namespace

PointsResult vkzl(const QsoFacts& q) {
    if (!is(q.ownKont, "OC") && !is(q.kont, "OC")) return points(0);
    static const struct {
        const char* band;
        int points;
    } perBand[] = {{"1,8", 20}, {"3,5", 10}, {"7", 5}, {"14", 1}, {"21", 2}, {"28", 3}};
    for (const auto& b : perBand)
        if (band(q, b.band)) return points(b.points);
    return points(0);
}

PointsResult ari(const QsoFacts& q) {
    PointsResult r = callIn(q, Group::Italy) ? points(10)
                     : sameCountry(q)        ? points(0)
                     : sameKont(q)           ? points(1)
                                             : points(3);
    // I and IS0 are no country multipliers: the provinces count instead
    r.clearMult = is(q.pref, "I") || is(q.pref, "IS");
    return r;
}

PointsResult aa(const QsoFacts& q) {
    const bool ownAsia = is(q.ownKont, "AS"), asia = is(q.kont, "AS");
    if (!ownAsia && !asia) return points(0);
    if (ownAsia && sameCountry(q)) return points(0);
    const int top = band(q, "1,8") ? 3 : (band(q, "3,5") || band(q, "28")) ? 2 : 1;
    return points(asia ? top : 3 * top);
}

PointsResult cqm(const QsoFacts& q) {
    if (isMaritime(q.call)) return points(3);
    const bool russia = callIn(q, Group::Russia);
    if (ownIn(q, Group::Russia)) {
        if (russia) return points(1);
        // by the own continent: Asia is another continent for a station in European Russia
        return points(sameKont(q) ? 2 : 3);
    }
    if (sameCountry(q)) return points(1);
    if (russia || sameKont(q)) return points(2);
    return points(3);
}

PointsResult cro(const QsoFacts& q) {
    const bool low = isLowBand(q.band);
    if (is(q.pref, "9A")) return points(low ? 10 : 6);
    if (!sameKont(q)) return points(low ? 6 : 3);
    return points(low ? 2 : 1);
}

PointsResult ea(const QsoFacts& q) {
    const bool spain = callIn(q, Group::Spain);
    if (ownIn(q, Group::Spain)) return points(spain ? 2 : 1);
    return points(spain ? 3 : 1);
}

PointsResult es(const QsoFacts& q) {
    if (!band(q, "3,5") && !band(q, "7")) return points(0);
    if (ruOrBy(q)) return points(0);
    if (!is(q.ownPref, "ES") && !is(q.pref, "ES")) return points(0);
    return points(is(q.mode, "CW") ? 2 : 1);
}

PointsResult euhf(const QsoFacts& q) {
    PointsResult r = points(is(q.ownKont, "EU") && is(q.kont, "EU") ? 1 : 0);
    // a QSO outside Europe counts for nothing, its licence year included
    r.clearMult = r.clearMult2 = *r.points == QLatin1String("0");
    return r;
}

PointsResult fd(const QsoFacts& q) {
    const bool portable = isPortable(q.call);
    if (!isPortable(q.ownCall) && !portable) return points(0); // fixed stations work portables
    const bool europe = is(q.kont, "EU");
    if (portable) return points(europe ? 4 : 6);
    return points(europe ? 2 : 3);
}

PointsResult ha(const QsoFacts& q) {
    if (is(q.pref, "HA")) return points(10);
    return points(sameKont(q) ? 2 : 5);
}

PointsResult iaru(const QsoFacts& q) {
    const QString ex = q.exchange.trimmed();
    bool holdsLetter = false;
    for (QChar c : ex) holdsLetter = holdsLetter || c.isLetter();
    if (holdsLetter) return points(1); // an HQ station or an official
    // zones compare as numbers: "08" is zone 8
    bool exOk = false, ownOk = false;
    const int zone = ex.toInt(&exOk), own = q.myexch.trimmed().toInt(&ownOk);
    if (exOk && ownOk && zone == own) return points(1);
    return points(sameKont(q) ? 3 : 5);
}

PointsResult jid(const QsoFacts& q) {
    const bool ownJa = ownIn(q, Group::Japan), ja = callIn(q, Group::Japan);
    const bool mm = isMaritime(q.call);
    if (!ownJa && (!ja || mm)) return points(0); // the world works Japan only
    if (ownJa && ja && !mm) return points(0);
    if (band(q, "1,8")) return points(4);
    return points(band(q, "3,5") || band(q, "28") ? 2 : 1);
}

PointsResult ok(const QsoFacts& q) {
    const auto okom = [](const QString& p) { return is(p, "OK") || is(p, "OM"); };
    const bool home = okom(q.pref);
    PointsResult r = isMaritime(q.call)         ? points(5)
                     : !okom(q.ownPref) && home ? points(10)
                     : sameCountry(q)           ? points(okom(q.ownPref) ? 2 : 1)
                     : sameKont(q)              ? points(3)
                                                : points(5);
    // the others send a serial: it is no district
    r.clearMult2 = !home;
    return r;
}

PointsResult rudx(const QsoFacts& q) {
    if (isMaritime(q.call)) return points(5);
    const bool russia = callIn(q, Group::Russia);
    if (ownIn(q, Group::Russia)) {
        if (russia) return points(sameKont(q) ? 2 : 5);
    } else {
        if (russia) return points(10);
        if (sameCountry(q)) return points(2);
    }
    return points(sameKont(q) ? 3 : 5);
}

PointsResult refToec(const QsoFacts& q) {
    // REF: the world works France only; TOEC counts every station
    if (is(q.contest, "ref") && !ownIn(q, Group::France) && !callIn(q, Group::France))
        return points(0);
    return points(sameKont(q) ? 1 : 3);
}

PointsResult ukr(const QsoFacts& q) {
    if (!is(q.ownPref, "UR") && is(q.pref, "UR")) return points(10);
    if (sameCountry(q)) return points(1);
    return points(sameKont(q) ? 2 : 3);
}

PointsResult wae(const QsoFacts& q) {
    if (band(q, "1,8")) return points(0);
    // Europe works the rest of the world, the rest of the world works Europe
    return points(is(q.ownKont, "EU") != is(q.kont, "EU") ? 1 : 0);
}

PointsResult wpx(const QsoFacts& q) {
    const bool low = isLowBand(q.band);
    if (sameCountry(q)) return points(1);
    if (!sameKont(q)) return points(low ? 6 : 3);
    if (is(q.ownKont, "NA") && is(q.kont, "NA")) return points(low ? 4 : 2);
    return points(low ? 2 : 1);
}

PointsResult yo(const QsoFacts& q) {
    if (band(q, "1,8")) return points(0);
    if (isMaritime(q.call)) return points(4);
    const bool ownYo = is(q.ownPref, "YO"), home = is(q.pref, "YO");
    if (home) return points(ownYo ? 0 : 8);
    const int factor = ownYo ? 2 : 1;
    if (!sameKont(q)) return points(4 * factor);
    if (!sameCountry(q)) return points(2 * factor);
    return points(1);
}

PointsResult cq160(const QsoFacts& q) {
    if (!band(q, "1,8")) return points(0);
    if (isMaritime(q.call)) return points(5);
    if (sameCountry(q)) return points(2);
    return points(sameKont(q) ? 5 : 10);
}

PointsResult arrl10(const QsoFacts& q) {
    if (!band(q, "28")) return points(0);
    return points(is(q.mode, "CW") ? 4 : 2);
}

PointsResult sac(const QsoFacts& q) {
    if (band(q, "1,8")) return points(0);
    const bool ownScand = ownIn(q, Group::Scand), scand = callIn(q, Group::Scand);
    if (ownScand) {
        if (scand) return points(0);
        return points(is(q.kont, "EU") ? 2 : 3);
    }
    if (!scand) return points(0); // the world works Scandinavia only
    if (is(q.ownKont, "EU")) return points(1);
    return points(isLowBand(q.band) ? 3 : 1);
}

} // namespace hfc::contests::rules

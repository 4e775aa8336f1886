#include "contests/exchangecheck.h"

#include "contests/contestdef.h"
#include "contests/groups.h"
#include "contests/locator.h"
#include "contests/scoring.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace hfc {

namespace {

using contests::Group;
using contests::inGroup;

struct Ctx {
    const QsoFacts& q;
    QString ex; // the exchange, upper case, without surrounding blanks
    const OblastKnown& oblast;
};

// Whole-text match; the patterns are compiled once.
bool shape(const QString& text, const char* pattern) {
    static QHash<const char*, QRegularExpression> cache;
    auto it = cache.find(pattern);
    if (it == cache.end())
        it = cache.insert(pattern, QRegularExpression(QRegularExpression::anchoredPattern(
                                       QString::fromLatin1(pattern))));
    return it->match(text).hasMatch();
}

bool serial(const Ctx& c) {
    return shape(c.ex, "[0-9]{1,4}");
}

// One or two digits, from 1 to last.
bool zone(const QString& ex, int last) {
    if (!shape(ex, "[0-9]{1,2}")) return false;
    const int n = ex.toInt();
    return n >= 1 && n <= last;
}

bool holdsLetter(const QString& ex) {
    for (QChar c : ex)
        if (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) return true;
    return false;
}

// The codes shown in the contest's multiplier window, plus the given extra codes.
bool listed(const char* contest, const QString& ex, const char* extra = "") {
    static QHash<QString, QSet<QString>> sets;
    const QString key = QLatin1String(contest) + QLatin1Char(':') + QLatin1String(extra);
    auto it = sets.find(key);
    if (it == sets.end()) {
        QSet<QString> codes;
        if (const contests::ContestDef* k = contests::find(QLatin1String(contest)))
            for (int i = 0; i < k->boxes; ++i) {
                const QString box = contests::windowBox(*k, i).trimmed();
                if (!box.isEmpty()) codes.insert(box);
            }
        for (const QString& e :
             QString::fromLatin1(extra).split(QLatin1Char(' '), Qt::SkipEmptyParts))
            codes.insert(e);
        it = sets.insert(key, codes);
    }
    return it->contains(ex);
}

bool oneOf(const QString& ex, const char* codes) {
    return listed("", ex, codes);
}

bool prefIs(const Ctx& c, const char* pref) {
    return c.q.pref == QLatin1String(pref);
}
bool in(const Ctx& c, Group g) {
    return inGroup(c.q.pref, g);
}

bool chemp(const Ctx& c) {
    return shape(c.q.report.trimmed(), "[1-7]") && serial(c);
}
bool twoDigits(const Ctx& c) {
    return shape(c.ex, "[0-9]{2}");
}
bool agcw(const Ctx& c) {
    return shape(c.ex, "[0-9]{1,9}");
}
bool ari(const Ctx& c) {
    if (!in(c, Group::Italy)) return serial(c);
    // the provinces founded since the window's list was made
    return listed("ari", c.ex, "BT FM MB SU CI OG OT VS");
}
bool arrl10(const Ctx& c) {
    if (contests::isMaritime(c.q.call)) return shape(c.ex, "[1-3]"); // ITU region
    if (in(c, Group::WVE)) return shape(c.ex, "[A-Z]{2}");
    if (prefIs(c, "XE")) return shape(c.ex, "[A-Z]{2,3}");
    return serial(c);
}
bool cq160(const Ctx& c) {
    if (in(c, Group::WVE)) return shape(c.ex, "[A-Z]{2}");
    // the zone, or the DXCC prefix of the old exchange
    return zone(c.ex, 40) || (shape(c.ex, "[A-Z0-9]{1,4}") && holdsLetter(c.ex));
}
bool cqZone(const Ctx& c) {
    return zone(c.ex, 40);
}
bool ituZone(const Ctx& c) {
    return zone(c.ex, 90);
}
bool ea(const Ctx& c) {
    if (!in(c, Group::Spain)) return serial(c);
    return listed("ea", c.ex, "GI OU IB MU TF CE ML SMR");
}
bool ha(const Ctx& c) {
    if (!prefIs(c, "HA")) return serial(c);
    // a county, or the member number of the HA-DX Club
    return oneOf(c.ex, "ZA GY VA KO VE SO TO BA FE BP NG HE PE SZ BE CS BN BO SA HB") ||
           shape(c.ex, "[0-9]{1,4}");
}
bool hol(const Ctx& c) {
    return prefIs(c, "4X") ? shape(c.ex, "[A-Z][0-9]{2}[A-Z]{2}") : serial(c);
}
bool hel(const Ctx& c) {
    return prefIs(c, "HB") ? listed("hel", c.ex) : serial(c);
}
bool iaru(const Ctx& c) {
    return zone(c.ex, 90) || shape(c.ex, "[A-Z][A-Z0-9]{1,7}"); // HQ stations send a society
}
bool jid(const Ctx& c) {
    return zone(c.ex, 50); // prefecture number
}
bool kcj(const Ctx& c) {
    return shape(c.ex, "[A-Z]{2}");
}
bool lzd(const Ctx& c) {
    // LZ stations send a district of two letters, which the digits box cannot hold
    return prefIs(c, "LZ") || zone(c.ex, 90);
}
bool lzo(const Ctx& c) {
    return shape(c.ex, "[0-9]{6,8}"); // their serial and the number they pass on
}
bool ok(const Ctx& c) {
    if (!prefIs(c, "OK") && !prefIs(c, "OM")) return true; // a serial: the letters box refuses it
    return listed("ok", c.ex,
                  "FTR BAA BAB BAC BAD BAE MAL PEZ SEN TRN DST GAL HLO PIE SEA SKA TNC BAN ILA "
                  "MYJ NMV PAR PBY PRI PUC NIT KOM LVC NZA SAL TOP ZMO ZIL BYT CAD DKU KNM LMI "
                  "MAR NAM RUZ TTE TVR BBY BRE DET KRU LUC POL REV RSO VKR ZVO ZAR ZIH BST KEA "
                  "KEB KEC KED KEO GEL MIC ROZ SOB SNV TRE PRE BAR HUM KEZ LEV MED POP SAB SNI "
                  "SLU STR SVI VRT");
}
bool pacc(const Ctx& c) {
    return !prefIs(c, "PA") || listed("pacc", c.ex);
}
bool raem(const Ctx& c) {
    // serial, latitude "N", longitude "O"
    if (!shape(c.ex, "[0-9]{3}[0-9]{2}N[0-9]{2,3}O")) return false;
    const int lat = c.ex.mid(3, 2).toInt();
    const int lon = c.ex.mid(6, c.ex.size() - 7).toInt();
    return contests::raemCoordinatesValid(lat, lon);
}
bool ref(const Ctx& c) {
    if (prefIs(c, "F") || prefIs(c, "TK"))
        return shape(c.ex, "0[1-9]|[1-8][0-9]|9[0-5]|2A|2B");        // department
    if (in(c, Group::France)) return shape(c.ex, "F[GHJKMOPRSTWY]"); // overseas: its prefix
    return serial(c);
}
bool rsgb(const Ctx& c) {
    return in(c, Group::UK) ? shape(c.ex, "[0-9]{1,4}[A-Z]{2}") : serial(c);
}
bool rudx(const Ctx& c) {
    if (!in(c, Group::Russia)) return serial(c);
    return shape(c.ex, "[A-Z]{2}") && c.oblast && c.oblast(c.ex);
}
bool sp(const Ctx& c) {
    return !prefIs(c, "SP") || listed("sp", c.ex);
}
bool square(const Ctx& c) {
    return contests::isSquare(c.ex);
}
bool tops(const Ctx& c) {
    return shape(c.ex, "[0-9]{1,4}(/[0-9]{1,5})?"); // serial, and a member's number
}
bool uba(const Ctx& c) {
    // a Belgian station adds its province's two letters to the serial: "001AN"
    return prefIs(c, "ON") ? shape(c.ex, "[0-9]{1,4}[A-Z]{2}") : serial(c);
}
bool iota(const Ctx& c) {
    return shape(c.ex, "[0-9]{1,4}((AF|AN|AS|EU|NA|OC|SA)[0-9]{3})?");
}
bool ukr(const Ctx& c) {
    return prefIs(c, "UR") ? listed("ukr", c.ex, "ZH") : serial(c);
}
bool wag(const Ctx& c) {
    if (!prefIs(c, "DL")) return true; // a serial: scores nothing anyway
    // "NM" (no member), a DOK, or a special DOK
    return c.ex == QLatin1String("NM") || shape(c.ex, "[A-Z][0-9]{2}") ||
           (shape(c.ex, "[A-Z0-9]{3,12}") && holdsLetter(c.ex));
}
bool yo(const Ctx& c) {
    if (!prefIs(c, "YO")) return shape(c.ex, "[0-9]{1,4}"); // a serial, or the pre-filled zone
    return oneOf(c.ex, "AR CS HD TM BU IF CT BR GL TL VN AB BH BN CJ SM SJ MM BV CV HR MS SB "
                       "AG DJ GJ MH OT VL BC BT IS NT SV VS BZ CL DB GR IL PH TR");
}

using Check = bool (*)(const Ctx&);
struct Row {
    const char* code;
    Check check;
};
constexpr Row table[] = {
    {"chemp", chemp}, {"aa", twoDigits}, {"agcw", agcw},      {"ari", ari},    {"arrl10", arrl10},
    {"bal", serial},  {"cqm", serial},   {"cq160", cq160},    {"cro", serial}, {"cqww", cqZone},
    {"ea", ea},       {"ES", serial},    {"euhf", twoDigits}, {"fd", serial},  {"HA", ha},
    {"hol", hol},     {"hel", hel},      {"iaru", iaru},      {"jid", jid},    {"kcj", kcj},
    {"lzd", lzd},     {"lzo", lzo},      {"marc", serial},    {"ok", ok},      {"pacc", pacc},
    {"raem", raem},   {"ref", ref},      {"rsgb", rsgb},      {"rudx", rudx},  {"sac", serial},
    {"sp", sp},       {"toec", square},  {"tops", tops},      {"uba", uba},    {"iota", iota},
    {"ukr", ukr},     {"wae", serial},   {"wag", wag},        {"wpx", serial}, {"wwg", square},
    {"vkzl", serial}, {"yo", yo},        {"yu", ituZone},
};

Check checkOf(const QString& contest) {
    static const QHash<QString, Check> byCode = [] {
        QHash<QString, Check> t;
        for (const Row& r : table) t.insert(QString::fromLatin1(r.code), r.check);
        return t;
    }();
    return byCode.value(contest, nullptr);
}

} // namespace

bool exchangeAcceptable(const QsoFacts& q, const OblastKnown& oblastKnown) {
    const Check check = checkOf(q.contest);
    if (!check) return true;
    return check(Ctx{q, q.exchange.trimmed().toUpper(), oblastKnown});
}

bool hasExchangeCheck(const QString& contest) {
    return checkOf(contest) != nullptr;
}

} // namespace hfc

#include "contests/exchangecheck.h"

#include "contests/contestdef.h"
#include "contests/groups.h"
#include "contests/locator.h"
#include "contests/scoring.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>

namespace hfc {

namespace contests::checks {

namespace {

// Whole-text match; the patterns are compiled once.
bool shape(const QString& text, const char* pattern) {
    static QHash<const char*, QRegularExpression> cache;
    auto it = cache.find(pattern);
    if (it == cache.end())
        it = cache.insert(pattern, QRegularExpression(QRegularExpression::anchoredPattern(
                                       QString::fromLatin1(pattern))));
    return it->match(text).hasMatch();
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

bool prefIs(const ExchangeFacts& c, const char* pref) {
    return c.q.pref == QLatin1String(pref);
}
bool in(const ExchangeFacts& c, Group g) {
    return inGroup(c.q.pref, g);
}

} // namespace

bool serial(const ExchangeFacts& c) {
    return shape(c.ex, "[0-9]{1,4}");
}

bool chemp(const ExchangeFacts& c) {
    return shape(c.q.report.trimmed(), "[1-7]") && serial(c);
}
bool twoDigits(const ExchangeFacts& c) {
    return shape(c.ex, "[0-9]{2}");
}
bool agcw(const ExchangeFacts& c) {
    return shape(c.ex, "[0-9]{1,9}");
}
bool ari(const ExchangeFacts& c) {
    if (!in(c, Group::Italy)) return serial(c);
    // the provinces founded since the window's list was made
    return listed("ari", c.ex, "BT FM MB SU CI OG OT VS");
}
bool arrl10(const ExchangeFacts& c) {
    if (contests::isMaritime(c.q.call)) return shape(c.ex, "[1-3]"); // ITU region
    if (in(c, Group::WVE)) return shape(c.ex, "[A-Z]{2}");
    if (prefIs(c, "XE")) return shape(c.ex, "[A-Z]{2,3}");
    return serial(c);
}
bool cq160(const ExchangeFacts& c) {
    if (in(c, Group::WVE)) return shape(c.ex, "[A-Z]{2}");
    // the zone, or the DXCC prefix of the old exchange
    return zone(c.ex, 40) || (shape(c.ex, "[A-Z0-9]{1,4}") && holdsLetter(c.ex));
}
bool cqZone(const ExchangeFacts& c) {
    return zone(c.ex, 40);
}
bool ituZone(const ExchangeFacts& c) {
    return zone(c.ex, 90);
}
bool ea(const ExchangeFacts& c) {
    if (!in(c, Group::Spain)) return serial(c);
    return listed("ea", c.ex, "GI OU IB MU TF CE ML SMR");
}
bool ha(const ExchangeFacts& c) {
    if (!prefIs(c, "HA")) return serial(c);
    // a county, or the member number of the HA-DX Club
    return oneOf(c.ex, "ZA GY VA KO VE SO TO BA FE BP NG HE PE SZ BE CS BN BO SA HB") ||
           shape(c.ex, "[0-9]{1,4}");
}
bool hol(const ExchangeFacts& c) {
    return prefIs(c, "4X") ? shape(c.ex, "[A-Z][0-9]{2}[A-Z]{2}") : serial(c);
}
bool hel(const ExchangeFacts& c) {
    return prefIs(c, "HB") ? listed("hel", c.ex) : serial(c);
}
bool iaru(const ExchangeFacts& c) {
    return zone(c.ex, 90) || shape(c.ex, "[A-Z][A-Z0-9]{1,7}"); // HQ stations send a society
}
bool jid(const ExchangeFacts& c) {
    return zone(c.ex, 50); // prefecture number
}
bool kcj(const ExchangeFacts& c) {
    return shape(c.ex, "[A-Z]{2}");
}
bool lzd(const ExchangeFacts& c) {
    // LZ stations send a district of two letters, which the digits box cannot hold
    return prefIs(c, "LZ") || zone(c.ex, 90);
}
bool lzo(const ExchangeFacts& c) {
    return shape(c.ex, "[0-9]{6,8}"); // their serial and the number they pass on
}
bool ok(const ExchangeFacts& c) {
    if (!prefIs(c, "OK") && !prefIs(c, "OM")) return true; // a serial: the letters box refuses it
    return listed("ok", c.ex,
                  "FTR BAA BAB BAC BAD BAE MAL PEZ SEN TRN DST GAL HLO PIE SEA SKA TNC BAN ILA "
                  "MYJ NMV PAR PBY PRI PUC NIT KOM LVC NZA SAL TOP ZMO ZIL BYT CAD DKU KNM LMI "
                  "MAR NAM RUZ TTE TVR BBY BRE DET KRU LUC POL REV RSO VKR ZVO ZAR ZIH BST KEA "
                  "KEB KEC KED KEO GEL MIC ROZ SOB SNV TRE PRE BAR HUM KEZ LEV MED POP SAB SNI "
                  "SLU STR SVI VRT");
}
bool pacc(const ExchangeFacts& c) {
    return !prefIs(c, "PA") || listed("pacc", c.ex);
}
bool raem(const ExchangeFacts& c) {
    // serial, latitude "N", longitude "O"
    if (!shape(c.ex, "[0-9]{3}[0-9]{2}N[0-9]{2,3}O")) return false;
    const int lat = c.ex.mid(3, 2).toInt();
    const int lon = c.ex.mid(6, c.ex.size() - 7).toInt();
    return contests::raemCoordinatesValid(lat, lon);
}
bool ref(const ExchangeFacts& c) {
    if (prefIs(c, "F") || prefIs(c, "TK"))
        return shape(c.ex, "0[1-9]|[1-8][0-9]|9[0-5]|2A|2B");        // department
    if (in(c, Group::France)) return shape(c.ex, "F[GHJKMOPRSTWY]"); // overseas: its prefix
    return serial(c);
}
bool rsgb(const ExchangeFacts& c) {
    return in(c, Group::UK) ? shape(c.ex, "[0-9]{1,4}[A-Z]{2}") : serial(c);
}
bool rudx(const ExchangeFacts& c) {
    if (!in(c, Group::Russia)) return serial(c);
    return shape(c.ex, "[A-Z]{2}") && c.oblast && c.oblast(c.ex);
}
bool sp(const ExchangeFacts& c) {
    return !prefIs(c, "SP") || listed("sp", c.ex);
}
bool square(const ExchangeFacts& c) {
    return contests::isSquare(c.ex);
}
bool tops(const ExchangeFacts& c) {
    return shape(c.ex, "[0-9]{1,4}(/[0-9]{1,5})?"); // serial, and a member's number
}
bool uba(const ExchangeFacts& c) {
    // a Belgian station adds its province's two letters to the serial: "001AN"
    return prefIs(c, "ON") ? shape(c.ex, "[0-9]{1,4}[A-Z]{2}") : serial(c);
}
bool iota(const ExchangeFacts& c) {
    return shape(c.ex, "[0-9]{1,4}((AF|AN|AS|EU|NA|OC|SA)[0-9]{3})?");
}
bool ukr(const ExchangeFacts& c) {
    return prefIs(c, "UR") ? listed("ukr", c.ex, "ZH") : serial(c);
}
bool wag(const ExchangeFacts& c) {
    if (!prefIs(c, "DL")) return true; // a serial: scores nothing anyway
    // "NM" (no member), a DOK, or a special DOK
    return c.ex == QLatin1String("NM") || shape(c.ex, "[A-Z][0-9]{2}") ||
           (shape(c.ex, "[A-Z0-9]{3,12}") && holdsLetter(c.ex));
}
bool yo(const ExchangeFacts& c) {
    if (!prefIs(c, "YO")) return shape(c.ex, "[0-9]{1,4}"); // a serial, or the pre-filled zone
    return oneOf(c.ex, "AR CS HD TM BU IF CT BR GL TL VN AB BH BN CJ SM SJ MM BV CV HR MS SB "
                       "AG DJ GJ MH OT VL BC BT IS NT SV VS BZ CL DB GR IL PH TR");
}

} // namespace contests::checks

bool exchangeAcceptable(const QsoFacts& q, const OblastKnown& oblastKnown) {
    const ExchangeRule check = contests::def(q.contest).check;
    if (!check) return true;
    return check(ExchangeFacts{q, q.exchange.trimmed().toUpper(), oblastKnown});
}

bool hasExchangeCheck(const QString& contest) {
    return contests::def(contest).check != nullptr;
}

} // namespace hfc

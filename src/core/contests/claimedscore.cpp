// The sponsors' scoring, one row per contest: which multipliers count, in which scope, and the
// final formula. Sources of each row are listed in docs/contests.md.
#include "contests/claimedscore.h"

#include "contests/contestdef.h"
#include "contests/groups.h"

#include <cmath>

namespace hfc::contests {

namespace {

// What a multiplier is made of.
enum class Key {
    None,
    Country,       // the worked entity (cty.dat); /MM and /AM have none
    CountryAbroad, // an entity other than the sponsor's home country
    Zone,          // a numeric exchange: CQ or ITU zone, licence year
    Letters,       // the letters of the exchange: province, canton, county, state, district
    FirstLetter,   // the first letter of the exchange (WAG: the DOK's district)
    Field,         // the first two characters of a locator
    Prefix,        // the WPX prefix
    Oblast,        // the Russian oblast of the call
    WaeArea,       // WAE: entity, with call areas of the large countries counted apart
    EuMember,      // UBA: the European Union's member countries
    Member,        // AGCW: the member number after "/"
    Entered,       // the entry line's own mark (SAC call areas)
    Pref,          // the entity as the entry line counts it (CQ-M's R-150-S areas)
    Exchange,      // the whole exchange (IOTA reference)
};
enum class Scope { Band, BandMode, Mode, Contest };
enum class Formula {
    Product,    // points × multipliers
    Sum,        // points alone
    Bonus,      // points plus the second points column (RSGB bonuses)
    Raem,       // points plus bonuses, ×1.1 inside the polar circle
    Weighted,   // WAE: (QSO points + QTCs) × band-weighted multipliers
    QsosByMult, // QSOs × multipliers (PACC)
};
struct MultRule {
    Key key;
    Scope scope;
};
struct ContestScoring {
    const char* code;
    Formula formula;
    // A QSO that scores nothing brings no multiplier, except where the sponsor counts the own
    // country for its multiplier (CQ WW, ARI).
    bool zeroPointMults;
    // entity prefixes of the sponsor's country, which counts by its provinces or states instead
    // of as a country (CountryAbroad), blank-separated; nullptr: none
    const char* home;
    MultRule m1, m2, m3;
};

constexpr MultRule none{Key::None, Scope::Band};
constexpr MultRule band(Key k) {
    return {k, Scope::Band};
}

// clang-format off
constexpr ContestScoring kScoring[] = {
    {"chemp", Formula::Product, false, nullptr, {Key::Oblast, Scope::Contest}, none, none},
    {"aa", Formula::Product, false, nullptr, band(Key::Prefix), none, none},
    {"agcw", Formula::Product, false, nullptr, band(Key::Member), none, none},
    {"ari", Formula::Product, true, "I IS", band(Key::Letters), band(Key::CountryAbroad), none},
    {"arrl10", Formula::Product, false, "K VE XE", {Key::Letters, Scope::Mode}, {Key::CountryAbroad, Scope::Mode}, none},
    {"bal", Formula::Sum, false, nullptr, none, none, none},
    {"cqm", Formula::Product, false, nullptr, band(Key::Pref), none, none},
    {"cq160", Formula::Product, false, "K VE", {Key::Letters, Scope::Contest}, {Key::CountryAbroad, Scope::Contest}, none},
    {"cro", Formula::Product, false, nullptr, band(Key::Country), none, none},
    {"cqww", Formula::Product, true, nullptr, band(Key::Zone), band(Key::Country), none},
    {"ea", Formula::Product, false, nullptr, band(Key::Letters), band(Key::Country), none},
    {"ES", Formula::Product, false, nullptr, {Key::Prefix, Scope::BandMode}, none, none},
    {"euhf", Formula::Product, false, nullptr, band(Key::Zone), none, none},
    {"fd", Formula::Product, false, nullptr, band(Key::Country), none, none},
    {"HA", Formula::Product, false, "HA", band(Key::Letters), band(Key::CountryAbroad), none},
    {"hol", Formula::Product, false, nullptr, band(Key::Exchange), none, none},
    {"hel", Formula::Product, false, nullptr, band(Key::Letters), band(Key::Country), none},
    {"iaru", Formula::Product, false, nullptr, {Key::Zone, Scope::BandMode}, {Key::Letters, Scope::BandMode}, none},
    {"jid", Formula::Product, false, nullptr, band(Key::Exchange), none, none},
    {"kcj", Formula::Product, false, nullptr, band(Key::Exchange), none, none},
    {"lzd", Formula::Product, false, nullptr, band(Key::Zone), band(Key::Letters), none},
    {"lzo", Formula::Sum, false, nullptr, none, none, none},
    {"marc", Formula::Product, false, nullptr, band(Key::Country), none, none},
    {"ok", Formula::Product, false, nullptr, band(Key::Letters), band(Key::Country), none},
    {"pacc", Formula::QsosByMult, false, nullptr, band(Key::Letters), none, none},
    {"raem", Formula::Raem, false, nullptr, none, none, none},
    {"ref", Formula::Product, false, nullptr, band(Key::Letters), none, none},
    {"rsgb", Formula::Bonus, false, nullptr, none, none, none},
    {"rudx", Formula::Product, false, nullptr, band(Key::Country), band(Key::Letters), none},
    {"sac", Formula::Product, false, nullptr, band(Key::Entered), none, none},
    {"sp", Formula::Product, false, nullptr, band(Key::Letters), none, none},
    {"toec", Formula::Product, false, nullptr, band(Key::Field), none, none},
    {"tops", Formula::Product, false, nullptr, {Key::Prefix, Scope::Contest}, none, none},
    {"uba", Formula::Product, false, "ON", band(Key::Letters), band(Key::Prefix), band(Key::EuMember)},
    {"iota", Formula::Product, false, nullptr, {Key::Exchange, Scope::BandMode}, none, none},
    {"ukr", Formula::Product, false, nullptr, band(Key::Country), band(Key::Letters), none},
    {"wae", Formula::Weighted, false, nullptr, band(Key::WaeArea), none, none},
    {"wag", Formula::Product, false, nullptr, band(Key::FirstLetter), none, none},
    {"wpx", Formula::Product, false, nullptr, {Key::Prefix, Scope::Contest}, none, none},
    {"wwg", Formula::Product, false, nullptr, band(Key::Field), none, none},
    {"vkzl", Formula::Product, false, nullptr, band(Key::Prefix), none, none},
    {"yo", Formula::Product, false, "YO", band(Key::Letters), band(Key::CountryAbroad), none},
    {"yu", Formula::Product, false, nullptr, band(Key::Prefix), none, none},
};
// clang-format on
static_assert(std::size(kScoring) == 43);

const ContestScoring* scoringFor(const QString& code) {
    for (const ContestScoring& s : kScoring)
        if (code == QLatin1String(s.code)) return &s;
    return nullptr;
}

// Whether pref is one of the blank-separated list; read in place, as it runs for every QSO of
// a count.
bool inList(const QString& pref, const char* list) {
    if (!list || pref.isEmpty()) return false;
    const QLatin1String all(list);
    for (qsizetype start = 0; start <= all.size();) {
        qsizetype end = all.indexOf(QLatin1Char(' '), start);
        if (end < 0) end = all.size();
        if (pref == all.sliced(start, end - start)) return true;
        start = end + 1;
    }
    return false;
}

bool allDigits(const QString& s) {
    if (s.isEmpty()) return false;
    for (QChar c : s)
        if (!c.isDigit()) return false;
    return true;
}

// The letters of an exchange, digits and blanks left out: "001AN" -> "AN", "NY" -> "NY".
QString lettersOf(const QString& ex) {
    QString out;
    for (QChar c : ex)
        if (c.isLetter()) out += c.toUpper();
    return out;
}

bool isAeroOrMaritime(const QString& call) {
    return call.endsWith(QLatin1String("/MM")) || call.endsWith(QLatin1String("/AM"));
}

// The European Union's member countries as UBA lists them (2023).
constexpr const char* kUbaEuMembers = "5B 9A 9H CT CT3 CU DL EA EA6 EA8 EI ES F FG FM FR FY HA I "
                                      "IS LX LY LZ OE OH OH0 OJ0 OK OM OZ PA S5 SM SP SV SV5 SV9 "
                                      "SV/a TK YL YO";

// Large countries whose call areas count apart in WAE.
bool waeAreaCountry(const QString& pref) {
    return inList(pref, "K VE VK ZL ZS JA PY UA9");
}

QString keyOf(Key k, const ScoreRow& r, const ContestScoring& s) {
    const QString ex = r.exchange.trimmed().toUpper();
    switch (k) {
    case Key::None:
        return {};
    case Key::Country:
        return isAeroOrMaritime(r.call) ? QString() : r.pref;
    case Key::CountryAbroad:
        return isAeroOrMaritime(r.call) || inList(r.pref, s.home) ? QString() : r.pref;
    case Key::Zone:
        return allDigits(ex) ? numericExchange(ex) : QString();
    case Key::Letters:
        // a serial alone has none
        return lettersOf(ex);
    case Key::FirstLetter:
        return ex.isEmpty() || !ex[0].isLetter() ? QString() : ex.left(1);
    case Key::Field:
        return ex.size() >= 4 && ex[0].isLetter() && ex[1].isLetter() ? ex.left(2) : QString();
    case Key::Prefix:
        // where the sponsor's country is named, only its own prefixes count (UBA: ON4, ON5 …)
        return s.home && !inList(r.pref, s.home) ? QString() : r.prefix;
    case Key::Oblast:
        return r.oblast;
    case Key::WaeArea: {
        if (isAeroOrMaritime(r.call) || r.pref.isEmpty()) return {};
        if (!waeAreaCountry(r.pref)) return r.pref;
        // W1, K1 and K3../1 are all "K1"; RA8, RA9 and RA0 count apart
        const QChar d = areaDigit(r.prefix);
        return r.pref + (d.isNull() ? QString() : QString(d));
    }
    case Key::EuMember:
        return inList(r.pref, kUbaEuMembers) ? r.pref : QString();
    case Key::Member: {
        const qsizetype slash = ex.indexOf(QLatin1Char('/'));
        return slash < 0 ? QString() : ex.mid(slash + 1);
    }
    case Key::Entered:
        return r.mult;
    case Key::Pref:
        return isAeroOrMaritime(r.call) ? QString() : r.pref;
    case Key::Exchange:
        return ex;
    }
    return {};
}

QString scopeOf(Scope sc, const ScoreRow& r) {
    switch (sc) {
    case Scope::Band:
        return r.band;
    case Scope::BandMode:
        return r.band + QLatin1Char('/') + r.mode;
    case Scope::Mode:
        return r.mode;
    case Scope::Contest:
        break;
    }
    return {};
}

// WAE: the multipliers of 80 m count fourfold, of 40 m threefold, of 20 to 10 m twofold.
int waeWeight(const QString& band) {
    if (band == QLatin1String("3,5")) return 4;
    if (band == QLatin1String("7")) return 3;
    if (band == QLatin1String("14") || band == QLatin1String("21") || band == QLatin1String("28"))
        return 2;
    return 0;
}

// The sponsors' points where the entry line keeps an older table of its own.
qint64 sponsorPoints(const QString& contest, const ScoreRow& r, const ScoreStation& st) {
    const bool sameKont = r.kont == st.kont;
    if (contest == QLatin1String("hel")) {
        // Helvetia: Switzerland 10, own continent 1, other continents 3
        if (r.pref == QLatin1String("HB")) return 10;
        return sameKont ? 1 : 3;
    }
    if (contest == QLatin1String("uba")) {
        // UBA: Belgium 10, the European Union 3, others 1; Russia and Belarus nothing
        if (r.pref == QLatin1String("ON")) return 10;
        if (inGroup(r.pref, Group::Russia) || inGroup(r.pref, Group::Belarus)) return 0;
        return inList(r.pref, kUbaEuMembers) ? 3 : 1;
    }
    if (contest == QLatin1String("cqww")) {
        // CQ WW: own country 0 (a multiplier all the same), other continents 3, own continent
        // 1, and 2 between North Americans
        if (!r.pref.isEmpty() && r.pref == st.pref) return 0;
        if (!sameKont) return 3;
        return r.kont == QLatin1String("NA") ? 2 : 1;
    }
    if (contest == QLatin1String("kcj")) {
        // KCJ (2022): Japan 2, others 1
        return r.pref == QLatin1String("JA") ? 2 : 1;
    }
    if (contest == QLatin1String("lzd")) {
        // LZ DX: Bulgaria 10, other continents 3, own continent (own country too) 1
        if (r.pref == QLatin1String("LZ")) return 10;
        return sameKont ? 1 : 3;
    }
    return r.points;
}

} // namespace

ClaimedTally::ClaimedTally(const QString& contest, const ScoreStation& station)
    : contest_(contest), station_(station), scoring_(scoringFor(contest)) {}

void ClaimedTally::add(const ScoreRow& row) {
    const auto* s = static_cast<const ContestScoring*>(scoring_);
    if (!s || row.mode == QLatin1String("DUPE") || row.call.isEmpty() ||
        row.call == QLatin1String("\""))
        return;
    ++qsos_;
    const qint64 pts = sponsorPoints(contest_, row, station_);
    if (pts > 0) ++scoringQsos_;
    points_ += pts;
    bonus_ += row.points2;
    // (UBA's Russia and Belarus, scoring nothing, so bring no multiplier either)
    if (pts == 0 && !s->zeroPointMults) return;
    for (const MultRule& m : {s->m1, s->m2, s->m3}) {
        if (m.key == Key::None) continue;
        const QString key = keyOf(m.key, row, *s);
        if (key.isEmpty()) continue;
        const QString scope = scopeOf(m.scope, row);
        const QString id =
            scope + QLatin1Char('|') + QString::number(int(m.key)) + QLatin1Char('|') + key;
        if (mults_.contains(id)) continue;
        mults_.insert(id);
        weight_[row.band] += 1;
    }
}

ClaimedScore ClaimedTally::result() const {
    ClaimedScore r;
    r.qsos = qsos_;
    r.points = points_;
    r.mults = mults_.size();
    const auto* s = static_cast<const ContestScoring*>(scoring_);
    const Formula f = s ? s->formula : Formula::Sum;
    switch (f) {
    case Formula::Product:
        r.total = r.points * r.mults;
        r.breakdown =
            QStringLiteral("%1 оч. × %2 мн. = %3").arg(r.points).arg(r.mults).arg(r.total);
        break;
    case Formula::QsosByMult:
        // only the QSOs that score: with the sponsor's country
        r.points = scoringQsos_;
        r.total = r.points * r.mults;
        r.breakdown =
            QStringLiteral("%1 QSO × %2 мн. = %3").arg(r.points).arg(r.mults).arg(r.total);
        break;
    case Formula::Sum:
        r.total = r.points;
        r.breakdown = QStringLiteral("%1 оч.").arg(r.total);
        break;
    case Formula::Bonus:
        r.total = r.points + bonus_;
        r.breakdown =
            QStringLiteral("%1 оч. + %2 бонус = %3").arg(r.points).arg(bonus_).arg(r.total);
        break;
    case Formula::Raem: {
        const qint64 sum = r.points + bonus_;
        // inside the polar circle (66° N and beyond) the sum counts 1.1-fold
        const bool polar = station_.myexch.left(2).toInt() >= 66;
        r.total = polar ? qint64(std::floor(double(sum) * 1.1 + 1e-9)) : sum;
        r.breakdown =
            polar ? QStringLiteral("(%1 оч. + %2 бонус) × 1,1 = %3")
                        .arg(r.points)
                        .arg(bonus_)
                        .arg(r.total)
                  : QStringLiteral("%1 оч. + %2 бонус = %3").arg(r.points).arg(bonus_).arg(r.total);
        break;
    }
    case Formula::Weighted: {
        qint64 weighted = 0;
        for (auto it = weight_.constBegin(); it != weight_.constEnd(); ++it)
            weighted += qint64(it.value()) * waeWeight(it.key());
        r.mults = weighted;
        r.points = points_ + station_.qtcs;
        r.total = r.points * weighted;
        r.breakdown = QStringLiteral("(%1 QSO + %2 QTC) × %3 мн. = %4")
                          .arg(points_)
                          .arg(station_.qtcs)
                          .arg(weighted)
                          .arg(r.total);
        break;
    }
    }
    return r;
}

ClaimedScore claimedScore(const QString& contest, const std::vector<ScoreRow>& rows,
                          const ScoreStation& station) {
    ClaimedTally t(contest, station);
    for (const ScoreRow& r : rows) t.add(r);
    return t.result();
}

QString claimLimits(const QString& contest) {
    const char* limit = def(contest).claimLimit;
    return limit ? QString::fromUtf8(limit) : QString();
}

QString numericExchange(const QString& exchange) {
    const QString t = exchange.trimmed();
    if (!allDigits(t) || t.size() > 9) return exchange;
    return QStringLiteral("%1").arg(t.toLongLong(), 2, 10, QLatin1Char('0'));
}

bool hasNumericExchange(const QString& contest) {
    return def(contest).numericExchange;
}

} // namespace hfc::contests

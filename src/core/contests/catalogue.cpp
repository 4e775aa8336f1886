#include "contests/catalogue.h"

#include <array>

namespace hfc::contests {

namespace {

using C = Calls;
using W = WindowKind;

// Menu order; titles and prompts exactly as shown to the operator, blanks included.
// clang-format off
constexpr Contest kCatalogue[] = {
    {"mnuchemp", "Чемпионат", "chemp", "Чемпионат России", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnuaa", "AA DX", "aa", "AA DX Contest", "Введите ваш возраст ", "Ввод контр.номера", C::Restart, W::None, 0, 0},
    {"mnuagcw", "AGCW", "agcw", "AGCW Happy New Year Contest", nullptr, nullptr, C::None, W::None, 0, 0},
    {"mnuari", "ARI", "ari", "ARI DX Contest", nullptr, nullptr, C::ClearOnly, W::CodeList, 103, 1},
    {"mnuarrl", "ARRL-10m", "arrl10", "ARRL 10m DX Contest", nullptr, nullptr, C::RestartAndClear, W::Cleared, 71, 0},
    {"mnubal", "Baltic", "bal", "Baltic Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnucqm", "CQ - M", "cqm", "CQ - M int. DX Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnucq160", "CQ160m", "cq160", "CQ WW160 m DX Contest ", "Введите страну DXCC (UA) ", "Ввод контр.номера", C::RestartAndClear, W::Cleared, 71, 0},
    {"mnucro", "Croatian", "cro", "Croatian DX Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnucqww", "CQ WW", "cqww", "CQ WW DX Contest", "Введите CQ зону  ", "Ввод контр.номера", C::RestartAndClear, W::Numbered, 40, 1},
    {"mnuea", "EA DX", "ea", "EA DX Contest", nullptr, nullptr, C::RestartAndClear, W::CodeList, 47, 1},
    {"mnues", "ES Open", "ES", "ES Open Contest", nullptr, nullptr, C::RestartAndClear, W::Cleared, 10, 1},
    {"mnueuhf", "EU HF", "euhf", "EU HF Contest", "Введите год получения лицензии   ", "Ввод контрольного номера ", C::RestartAndClear, W::Cleared, 71, 1},
    {"mnufd", "Fiel Day", "fd", "IARU Region 1 Field Day ", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnuha", "HA DX", "HA", "HA DX Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnuhol", "Holyland", "hol", "Holyland DX Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnuhel", "Helvetia", "hel", "Helvetia DX Contest", nullptr, nullptr, C::RestartAndClear, W::CodeList, 26, 1},
    {"mnuiaru", "IARU HF", "iaru", "IARU HF Contest", "Введите ITU зону ", "Ввод контр.номера", C::Restart, W::None, 0, 0},
    {"mnujid", "JID L", "jid", "Japan Int'l DX Contest", "Введите ITU зону ", "Ввод контр.номера", C::RestartAndClear, W::Numbered, 47, 1},
    {"mnukcj", "KCJ", "kcj", "Keymen's Club of Japan", "Введите континент ", "Ввод контр.номера", C::None, W::None, 0, 0},
    {"mnulz", "LZ DX", "lzd", "LZ DX Contest", "Введите ITU зону ", "Ввод контр.номера", C::RestartAndClear, W::Numbered, 75, 1},
    {"mnulzo", "LZ Open", "lzo", "LZ OPEN Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnumarc", "Marconi", "marc", "Marconi Memorial Contest ", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnuok", "OK/OM DX", "ok", "OK/OL/OM DX Contest", nullptr, nullptr, C::RestartAndClear, W::CodeList, 87, 1},
    {"mnupacc", "PACC", "pacc", "PACC DX Contest", nullptr, nullptr, C::RestartAndClear, W::CodeList, 12, 1},
    {"mnuraem", "RAEM", "raem", "RAEM Contest", "Введите коордираты (??N??O) ", "Ввод контр.номера", C::Restart, W::None, 0, 0},
    {"nmuref", "REF", "ref", "REF DX Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnursgb", "RSGB", "rsgb", "RSGB  Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnurus", "RUS DX", "rudx", "RUSSIAN DX Contest", "Введите код области ", "Ввод контр.номера", C::None, W::None, 0, 0},
    {"mnusac", "SAC", "sac", "SAC Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnusp", "SP DX", "sp", "SP DX Contest", nullptr, nullptr, C::RestartAndClear, W::CodeList, 16, 1},
    {"mnutoec", "TOEC", "toec", "TOEC WW Grid Contest ", "Введите ваш QRA локатор (KO95)", "Ввод контр.номера", C::Restart, W::None, 0, 0},
    {"mnutops", "TOPS", "tops", "TOPS Activity Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnuuba", "UBA", "uba", "UBA DX Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnuiota", "IOTA", "iota", "RSGB IOTA Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnuukr", "Ukraina DX", "ukr", "Ukrainian DX Contest", nullptr, nullptr, C::RestartAndClear, W::CodeList, 27, 1},
    {"mnuwae", "WAE", "wae", "WAE DX Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnuwag", "WAG", "wag", "WAG DX Contest", nullptr, nullptr, C::RestartAndClear, W::CodeList, 26, 1},
    {"mnuwpx", "WPX", "wpx", "CQ WW WPX DX Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnuwwg", "WWG", "wwg", "TOEC WW GRID  Contest", "Введите ваши координаты   ", "Ввод QTH-ЛОКАТОРА", C::Restart, W::None, 0, 0},
    {"mnuvkzl", "VK/ZL", "vkzl", "VK/ZL DX Contest", nullptr, nullptr, C::Restart, W::None, 0, 0},
    {"mnuyo", "YO DX", "yo", "YO DX  Contest", "Введите ITU зону ", "Ввод контр.номера", C::Restart, W::None, 0, 0},
    {"mnuyu", "YU DX", "yu", "YU DX Contest", "Введите ITU зону ", "Ввод контр.номера", C::Restart, W::None, 0, 0},
};
// clang-format on
static_assert(std::size(kCatalogue) == 43);

// 0 means the rule applies. Columns: dxccmult itufill cqfill pfxmult exchmult fixexch
// exchsel1..4, class, class value.
// clang-format off
constexpr Switches kSwitches[] = {
    {"chemp", 1, 1, 1, 1, 1, 0, 0, 1, 1, 1, 4, 1},
    {"aa", 1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 3, 1},
    {"agcw", 1, 1, 1, 1, 1, 0, 0, 1, 1, 1, 3, 1},
    {"ari", 0, 1, 1, 1, 1, 0, 1, 1, 1, 0, 3, 3},
    {"arrl10", 0, 1, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1},
    {"bal", 1, 1, 1, 1, 1, 0, 0, 1, 1, 1, 2, 1},
    {"cqm", 0, 1, 1, 1, 1, Unchanged, 0, 1, 1, 1, 3, 1},
    {"cq160", 0, 1, 1, 1, 1, 1, 1, 1, 1, 0, 1, 1},
    {"cro", 0, 1, 1, 1, 1, 0, 0, 1, 1, 1, 2, 1},
    {"cqww", 0, 1, 0, 1, 0, 1, 1, 0, 1, 1, 1, 1},
    {"ea", 1, 1, 1, 1, 0, 0, 1, 1, 1, 0, 1, 1},
    {"ES", 1, 1, 1, 0, 1, 0, 0, 1, 1, 1, 1, 1},
    {"euhf", 1, 1, 1, 1, 0, 1, 1, 0, 1, 1, 1, 1},
    {"fd", 0, 1, 1, 1, 1, 0, 0, 1, 1, 1, 1, 1},
    {"HA", 1, 1, 1, 1, 1, 0, 1, 1, 1, 0, 3, 1},
    {"hol", 1, 1, 1, 1, 0, 0, 1, 1, 1, 0, 2, 1},
    {"hel", 1, 1, 1, 1, 1, 0, 1, 1, 1, 0, 3, 1},
    {"iaru", 1, 0, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1},
    {"jid", 1, 1, 1, 1, 0, 1, 1, 0, 1, 1, 2, 1},
    {"kcj", 1, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1, 1},
    {"lzd", 1, 0, 1, 1, 1, 1, 1, 0, 1, 1, 3, 1},
    {"lzo", 1, 1, 1, 1, 1, 0, 0, 1, 1, 1, 1, 1},
    {"marc", 0, 1, 1, 1, 1, 0, 0, 1, 1, 1, 3, 1},
    {"ok", 1, 1, 1, 1, 0, 0, 1, 1, 0, 1, 2, 1},
    {"pacc", 1, 1, 1, 1, 0, 0, 1, 1, 0, 1, 3, 1},
    {"raem", 1, 1, 1, 1, 1, 0, 1, 1, 1, 0, 4, 1},
    {"ref", 1, 1, 1, 1, 0, 0, 1, 1, 1, 0, 1, 1},
    {"rsgb", 1, 1, 1, 1, 1, 0, 1, 1, 1, 0, 3, 1},
    {"rudx", 0, 1, 1, 1, 1, 1, 1, 1, 1, 0, 1, 1},
    {"sac", 1, 1, 1, 1, 1, 0, 0, 1, 1, 1, 3, 1},
    {"sp", 1, 1, 1, 1, 0, 0, 1, 1, 0, 1, 3, 1},
    {"toec", 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 3, 1},
    {"tops", 1, 1, 1, 0, 1, 0, 1, 1, 1, 0, 3, 1},
    {"uba", 1, 1, 1, 1, 1, 0, 1, 1, 1, 0, 3, 1},
    {"iota", 1, 1, 1, 1, 1, 0, 1, 1, 1, 0, 1, 1},
    {"ukr", 0, 1, 1, 1, 1, 0, 1, 1, 1, 0, 3, 1},
    {"wae", 1, 1, 1, 1, 1, 0, 0, 1, 1, 1, 3, 1},
    {"wag", 1, 1, 1, 1, 1, 0, 1, 1, 1, 0, 3, 1},
    {"wpx", 1, 1, 1, 0, 1, 0, 0, 1, 1, 1, 1, 1},
    {"wwg", 1, 1, 1, 1, 1, 1, 1, 1, 1, 0, 3, 1},
    {"vkzl", 1, 1, 1, 0, 1, 0, 0, 1, 1, 1, 1, 1},
    {"yo", 1, 0, 1, 1, 1, 1, 1, 1, 1, 0, 3, 1},
    {"yu", 1, 0, 1, 1, 1, 1, 1, 0, 1, 1, 3, 1},
};
// clang-format on
static_assert(std::size(kSwitches) == 43);

using P = Setting::Prop;
constexpr const char* kShow = "1";
constexpr const char* kHide = "0";

constexpr Setting kZoneWindow[] = {
    {"lblmult1", P::Visible, kShow},    {"lblmult1", P::Caption, "Zone"},
    {"multwid", P::Caption, "CQ zone"}, {"multwid", P::Visible, kShow},
    {"cmbwsego", P::Visible, kShow},
};
constexpr Setting kCq160[] = {
    {"lblmult1", P::Visible, kShow}, {"lblmult1", P::Caption, "Zone"},
    {"multwid", P::Caption, "DC"},   {"multwid", P::Visible, kShow},
    {"cmbwsego", P::Visible, kShow},
};
constexpr Setting kAri[] = {
    {"lblzone", P::Caption, "Prov"}, {"DBList1", P::Visible, kShow},
    {"DBGrid1", P::Visible, kHide},  {"txtmult", P::Visible, kShow},
    {"lbldxcc", P::Visible, kShow},  {"txtmult2", P::Visible, kShow},
    {"lblmult", P::Caption, "DXCC"}, {"lblmult1", P::Caption, "Prov"},
    {"lblmult1", P::Visible, kShow}, {"multwid", P::Caption, "Prov"},
    {"multwid", P::Visible, kShow},  {"cmbwsego", P::Visible, kShow},
};
constexpr Setting kEa[] = {
    {"lblzone", P::Caption, "Prov"},
    {"multwid", P::Visible, kShow},
    {"cmbwsego", P::Visible, kShow},
};
constexpr Setting kEuhf[] = {
    {"txtpoint2", P::Visible, kHide},
    {"txtmult2", P::Visible, kShow},
    {"multwid", P::Caption, "Год получения лицензии"},
    {"multwid", P::Visible, kShow},
    {"cmbwsego", P::Visible, kShow},
};
// The championship sends a counter as its second element (nextserial starts it at "1") and
// takes nothing there from the other station.
constexpr Setting kChemp[] = {
    {"lblrstr", P::Caption, ""},       {"lblrsts", P::Caption, "1"},
    {"lbldxcc", P::Caption, "Зоны"},   {"txtmult2", P::Visible, kHide},
    {"txtpoint2", P::Visible, kShow},  {"lblzone", P::Caption, "Корр"},
    {"lblpoint", P::Caption, "QSO"},   {"lblmult", P::Caption, "связь"},
    {"lblmult1", P::Caption, "Корр."},
};
constexpr Setting kLzo[] = {
    {"lblrstr", P::Caption, ""},
    {"lblrsts", P::Caption, ""},
};
// CQ-M and Croatian count one kind of multiplier: the second total's label goes.
constexpr Setting kCqm[] = {
    {"lblmult1", P::Visible, kHide},
    {"lblmult", P::Caption, "R 150 "},
};
constexpr Setting kCro[] = {
    {"lblmult1", P::Visible, kHide},
    {"lblmult", P::Caption, "DXCC"},
};
constexpr Setting kRaem[] = {
    {"txtpoint2", P::Visible, kShow},
    {"txtmult2", P::Visible, kHide},
};
constexpr Setting kSecondMult[] = {
    {"txtmult2", P::Visible, kShow},
    {"txtpoint2", P::Visible, kHide},
};
constexpr Setting kWae[] = {
    {"lblqtc", P::Visible, kShow},
};
constexpr Setting kListWindow[] = {
    {"multwid", P::Visible, kShow},
    {"cmbwsego", P::Visible, kShow},
};

struct CaptionRow {
    const char* code;
    std::span<const Setting> settings;
};

// Contests not named here leave every caption and visibility as the previous selection left
// it.
constexpr CaptionRow kCaptions[] = {
    {"cqww", kZoneWindow}, {"arrl10", kZoneWindow}, {"cq160", kCq160},     {"ari", kAri},
    {"ea", kEa},           {"euhf", kEuhf},         {"chemp", kChemp},     {"lzo", kLzo},
    {"cqm", kCqm},         {"cro", kCro},           {"raem", kRaem},       {"toec", kSecondMult},
    {"uba", kSecondMult},  {"wae", kWae},           {"hel", kListWindow},  {"jid", kListWindow},
    {"lzd", kListWindow},  {"ok", kListWindow},     {"pacc", kListWindow}, {"sp", kListWindow},
    {"ukr", kListWindow},  {"wag", kListWindow},    {"ES", kListWindow},
};

constexpr MultList kLists[] = {
    {"ari", 2, 0,
     "AGALANAOAPAQARATAVBABGBIBLBNBOBRBSBZCACBCECHCLCNCOCRCSCTCZENFEFGFIFOFRGEGOGRIMISKRLCLELILO"
     "LTLUMCMEMIMNMOMSMTNANONUORPAPCPDPEPGPIPNPOPRPSPTPVPZRARCRERGRIRMRNROSASISOSPSRSSSVTATETNTO"
     "TPTRTSTVUDVAVBVCVEVIVRVTVV"},
    {"ea", 2, 0,
     "A ABAVALB BABIBUC CACCCOCRCSCUGCGEGRGUH HUJ L LELOLUM MANAO ORP PMPOS SASESSSGT TETOV VAVIZ "
     "ZA"},
    {"hel", 2, 0, "AGAIARBEBLBSFRGEGLGRJULUNENWOWSGSHSOSZTGTIURVDVSZGZH"},
    // 86 districts for 87 boxes: the last box stays empty.
    {"ok", 3, 0,
     "APAAPBAPCAPDAPEAPFAPGAPHAPIAPJBBNBBEBKDBKOBKHBMEBMBBNYBPZBPVBPBBRACBUCCKCJHCPECPICPRCSTCTA"
     "DDODCHDKVDKLDPMDPJDPSDRODSODTAECLEDEECHEJAELIELTELOEMOETEEULFHBFHKFCRFJIFNAFPAFRKFSEFSVFTP"
     "FUOGBLGBMGBVGBRGHOGJIGKRGPRGTRGUHGVYGZLGZNGZSHBRHFMHJEHKAHNJHOLHOPHOSHPRHSUHVS"},
    // The list starts with a blank that is never shown.
    {"pacc", 2, 1, " DRFLFRGDGRLBNBNHOVUTZHZL"},
    {"sp", 1, 0, "BCDFGJKLMOPRSUWZ"},
    {"ukr", 2, 0, "CHCNCRDNDOHAHEHMIFKIKOKRKVLULVNIODPORISLSUTEVIVOZAZNZP"},
    {"wag", 1, 0, "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
};

template <typename T, std::size_t N> const T* findCode(const T (&rows)[N], const QString& code) {
    for (const T& r : rows)
        if (code == QLatin1String(r.code)) return &r;
    return nullptr;
}

} // namespace

std::span<const Contest> catalogue() {
    return kCatalogue;
}

const Contest* byMenuItem(const QString& menuItem) {
    for (const Contest& c : kCatalogue)
        if (menuItem == QLatin1String(c.menuItem)) return &c;
    return nullptr;
}

const Contest* byCode(const QString& code) {
    return findCode(kCatalogue, code);
}

const Switches* switchesFor(const QString& code) {
    return findCode(kSwitches, code);
}

std::span<const Setting> settingsFor(const QString& code) {
    if (const CaptionRow* r = findCode(kCaptions, code)) return r->settings;
    return {};
}

const MultList* multListFor(const QString& code) {
    return findCode(kLists, code);
}

QStringList menuOrder() {
    QStringList names;
    for (const Contest& c : kCatalogue) names << QLatin1String(c.menuItem);
    return names;
}

QString menuParent(int menuIndex) {
    return menuIndex < MainMenuCount ? QStringLiteral("cmbadd1") : QStringLiteral("mnudal");
}

bool runsRestart(Calls c) {
    return c == Calls::Restart || c == Calls::RestartAndClear;
}

bool runsClear(Calls c) {
    return c == Calls::ClearOnly || c == Calls::RestartAndClear;
}

int windowMode(WindowKind w) {
    return w == WindowKind::Cleared ? 1 : 0;
}

QString windowBox(const Contest& c, int i) {
    switch (c.window) {
    case WindowKind::Numbered:
        return i < 9 ? QStringLiteral("0%1").arg(i + 1) : QString::number(i + 1);
    case WindowKind::CodeList: {
        const MultList* l = multListFor(QLatin1String(c.code));
        if (!l) return {};
        QString box = QLatin1String(l->codes).mid(l->first + i * l->width, l->width);
        // a padded one-letter code shows without its blank
        if (box.endsWith(QLatin1Char(' '))) box = box.left(1);
        return box;
    }
    case WindowKind::None:
    case WindowKind::Cleared:
        break;
    }
    return {};
}

} // namespace hfc::contests

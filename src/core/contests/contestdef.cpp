#include "contests/contestdef.h"

#include <QHash>

namespace hfc::contests {

namespace {

using C = Calls;
using W = WindowKind;
using M = FirstMult;
using X = ExchangeFromCall;
using K = ExchangeChars;
using E = EntryRule;
using S = SentExchange;
using S2 = SecondSent;
using P = PartialList;
using T = TimeRule;
using Tot = Totals;
using R = ReportScore::Rule;
constexpr auto RE = ExchangeLayout::ReportExchange;
constexpr auto SE = ExchangeLayout::SerialExchange;
constexpr auto ES = ExchangeLayout::ExchangeSerial;

using Prop = Setting::Prop;
constexpr const char* kShow = "1";
constexpr const char* kHide = "0";

constexpr Setting kZoneWindow[] = {
    {"lblmult1", Prop::Visible, kShow},    {"lblmult1", Prop::Caption, "Zone"},
    {"multwid", Prop::Caption, "CQ zone"}, {"multwid", Prop::Visible, kShow},
    {"cmbwsego", Prop::Visible, kShow},
};
constexpr Setting kCq160[] = {
    {"lblmult1", Prop::Visible, kShow}, {"lblmult1", Prop::Caption, "Zone"},
    {"multwid", Prop::Caption, "DC"},   {"multwid", Prop::Visible, kShow},
    {"cmbwsego", Prop::Visible, kShow},
};
constexpr Setting kAri[] = {
    {"lblzone", Prop::Caption, "Prov"}, {"DBList1", Prop::Visible, kShow},
    {"DBGrid1", Prop::Visible, kHide},  {"txtmult", Prop::Visible, kShow},
    {"lbldxcc", Prop::Visible, kShow},  {"txtmult2", Prop::Visible, kShow},
    {"lblmult", Prop::Caption, "DXCC"}, {"lblmult1", Prop::Caption, "Prov"},
    {"lblmult1", Prop::Visible, kShow}, {"multwid", Prop::Caption, "Prov"},
    {"multwid", Prop::Visible, kShow},  {"cmbwsego", Prop::Visible, kShow},
};
constexpr Setting kEa[] = {
    {"lblzone", Prop::Caption, "Prov"},
    {"multwid", Prop::Visible, kShow},
    {"cmbwsego", Prop::Visible, kShow},
};
constexpr Setting kEuhf[] = {
    {"txtpoint2", Prop::Visible, kHide},
    {"txtmult2", Prop::Visible, kShow},
    {"multwid", Prop::Caption, "Год получения лицензии"},
    {"multwid", Prop::Visible, kShow},
    {"cmbwsego", Prop::Visible, kShow},
};
// The championship sends a counter as its second element (nextserial starts it at "1") and
// takes nothing there from the other station.
constexpr Setting kChemp[] = {
    {"lblrstr", Prop::Caption, ""},       {"lblrsts", Prop::Caption, "1"},
    {"lbldxcc", Prop::Caption, "Зоны"},   {"txtmult2", Prop::Visible, kHide},
    {"txtpoint2", Prop::Visible, kShow},  {"lblzone", Prop::Caption, "Корр"},
    {"lblpoint", Prop::Caption, "QSO"},   {"lblmult", Prop::Caption, "связь"},
    {"lblmult1", Prop::Caption, "Корр."},
};
constexpr Setting kLzo[] = {
    {"lblrstr", Prop::Caption, ""},
    {"lblrsts", Prop::Caption, ""},
};
// CQ-M and Croatian count one kind of multiplier: the second total's label goes.
constexpr Setting kCqm[] = {
    {"lblmult1", Prop::Visible, kHide},
    {"lblmult", Prop::Caption, "R 150 "},
};
constexpr Setting kCro[] = {
    {"lblmult1", Prop::Visible, kHide},
    {"lblmult", Prop::Caption, "DXCC"},
};
constexpr Setting kRaem[] = {
    {"txtpoint2", Prop::Visible, kShow},
    {"txtmult2", Prop::Visible, kHide},
};
constexpr Setting kSecondMult[] = {
    {"txtmult2", Prop::Visible, kShow},
    {"txtpoint2", Prop::Visible, kHide},
};
constexpr Setting kWae[] = {
    {"lblqtc", Prop::Visible, kShow},
};
constexpr Setting kListWindow[] = {
    {"multwid", Prop::Visible, kShow},
    {"cmbwsego", Prop::Visible, kShow},
};

// Menu order; titles and prompts exactly as shown to the operator, blanks included. A field left
// out has the default of ContestDef. Cabrillo and ADIF names marked in docs/exports.md as ours
// are used where the sponsor publishes none.
// clang-format off
constexpr ContestDef kContests[] = {
    {.menuItem = "mnuchemp",
     .caption = "Чемпионат",
     .code = "chemp",
     .title = "Чемпионат России",
     .captions = kChemp,
     .chars = K::Serial,
     .second = S2::Counter,
     .reportTyped = true,
     .reselectOnMode = true,
     .contestClass = 4,
     .partial = P::ExactCall,
     .time = T::HourOnBand,
     .totals = Tot::PointsPerBand,
     .report = {100, 10, R::Sum, true},
     .russianListing = true,
     .ids = {"RUS-CHAMP", "RUS-CHAMP", "RUS-CHAMP", "RUS-CHAMP", ES, true}},
    {.menuItem = "mnuaa",
     .caption = "AA DX",
     .code = "aa",
     .title = "AA DX Contest",
     .prompt = "Введите ваш возраст ",
     .promptTitle = "Ввод контр.номера",
     .firstMult = M::Prefix,
     .chars = K::Number,
     .sent = S::Fixed,
     .contestClass = 3,
     .ids = {"AADX-CW", "AADX-SSB", "ALL-ASIAN-DX-CW", "ALL-ASIAN-DX-PHONE", RE, false}},
    {.menuItem = "mnuagcw",
     .caption = "AGCW",
     .code = "agcw",
     .title = "AGCW Happy New Year Contest",
     .calls = C::None,
     .chars = K::Serial,
     .contestClass = 3,
     .ids = {"AGCW-HNY", "AGCW-HNY", "AGCW-HNY", "AGCW-HNY", RE, true}},
    {.menuItem = "mnuari",
     .caption = "ARI",
     .code = "ari",
     .title = "ARI DX Contest",
     .calls = C::ClearOnly,
     .window = W::CodeList,
     .boxes = 103,
     .windowPerBand = true,
     .list = {2, 0, "AGALANAOAPAQARATAVBABGBIBLBNBOBRBSBZCACBCECHCLCNCOCRCSCTCZENFEFGFIFOFRGEGOGRIMISKRLCLELILO" "LTLUMCMEMIMNMOMSMTNANONUORPAPCPDPEPGPIPNPOPRPSPTPVPZRARCRERGRIRMRNROSASISOSPSRSSSVTATETNTO" "TPTRTSTVUDVAVBVCVEVIVRVTVV"},
     .captions = kAri,
     .firstMult = M::Country,
     .chars = K::Mixed,
     .contestClass = 3, .classValue = 3,
     .partial = P::BandAndReport,
     .ids = {"ARI-DX", "ARI-DX", "ARI-DX", "ARI-DX", RE, true}},
    {.menuItem = "mnuarrl",
     .caption = "ARRL-10m",
     .code = "arrl10",
     .title = "ARRL 10m DX Contest",
     .calls = C::RestartAndClear,
     .window = W::Cleared,
     .boxes = 71,
     .captions = kZoneWindow,
     .firstMult = M::Country,
     .chars = K::Mixed,
     .partial = P::BandAndReport,
     .ids = {"ARRL-10", "ARRL-10", "ARRL-10", "ARRL-10", RE, true}},
    {.menuItem = "mnubal",
     .caption = "Baltic",
     .code = "bal",
     .title = "Baltic Contest",
     .chars = K::Serial,
     .contestClass = 2,
     .partial = P::DefaultReport,
     .totals = Tot::PointsOnly,
     .ids = {"BALTIC-CONTEST", "BALTIC-CONTEST", "BALTIC-CONTEST", "BALTIC-CONTEST", RE, true}},
    {.menuItem = "mnucqm",
     .caption = "CQ - M",
     .code = "cqm",
     .title = "CQ - M int. DX Contest",
     .captions = kCqm,
     .firstMult = M::Country,
     .chars = K::Serial,
     .cqmAreas = true,
     .sent = S::AsBefore,
     .contestClass = 3,
     .ids = {"CQ-M", "CQ-M", "CQ-M", "CQ-M", RE, true}},
    {.menuItem = "mnucq160",
     .caption = "CQ160m",
     .code = "cq160",
     .title = "CQ WW160 m DX Contest ",
     .prompt = "Введите страну DXCC (UA) ",
     .promptTitle = "Ввод контр.номера",
     .calls = C::RestartAndClear,
     .window = W::Cleared,
     .boxes = 71,
     .captions = kCq160,
     .firstMult = M::Country,
     .chars = K::Mixed,
     .sent = S::Fixed,
     .ids = {"CQ-160-CW", "CQ-160-SSB", "CQ-160-CW", "CQ-160-SSB", RE, false}},
    {.menuItem = "mnucro",
     .caption = "Croatian",
     .code = "cro",
     .title = "Croatian DX Contest",
     .captions = kCro,
     .firstMult = M::Country,
     .chars = K::Serial,
     .contestClass = 2,
     .ids = {"9A-DX", "9A-DX", "9A-DX", "9A-DX", RE, true}},
    {.menuItem = "mnucqww",
     .caption = "CQ WW",
     .code = "cqww",
     .title = "CQ WW DX Contest",
     .prompt = "Введите CQ зону  ",
     .promptTitle = "Ввод контр.номера",
     .calls = C::RestartAndClear,
     .window = W::Numbered,
     .boxes = 40,
     .windowPerBand = true,
     .captions = kZoneWindow,
     .firstMult = M::Country,
     .fromCall = X::CqZone,
     .exchangeIsMult = true,
     .numericExchange = true,
     .chars = K::Number,
     .sent = S::Fixed,
     .ids = {"CQ-WW-CW", "CQ-WW-SSB", "CQ-WW-CW", "CQ-WW-SSB", RE, false}},
    {.menuItem = "mnuea",
     .caption = "EA DX",
     .code = "ea",
     .title = "EA DX Contest",
     .calls = C::RestartAndClear,
     .window = W::CodeList,
     .boxes = 47,
     .windowPerBand = true,
     .list = {2, 0, "A ABAVALB BABIBUC CACCCOCRCSCUGCGEGRGUH HUJ L LELOLUM MANAO ORP PMPOS SASESSSGT TETOV VAVIZ " "ZA"},
     .captions = kEa,
     .exchangeIsMult = true,
     .chars = K::Mixed,
     .ids = {"EA-DX", "EA-DX", "EA-DX", "EA-DX", RE, true}},
    {.menuItem = "mnues",
     .caption = "ES Open",
     .code = "ES",
     .title = "ES Open Contest",
     .calls = C::RestartAndClear,
     .window = W::Cleared,
     .boxes = 10,
     .windowPerBand = true,
     .captions = kListWindow,
     .firstMult = M::Prefix,
     .chars = K::Serial,
     .time = T::HourOnBand,
     .repeatByList = false,
     .ids = {"ES-OPEN", "ES-OPEN", "ES-OPEN", "ES-OPEN", RE, true}},
    {.menuItem = "mnueuhf",
     .caption = "EU HF",
     .code = "euhf",
     .title = "EU HF Contest",
     .prompt = "Введите год получения лицензии   ",
     .promptTitle = "Ввод контрольного номера ",
     .calls = C::RestartAndClear,
     .window = W::Cleared,
     .boxes = 71,
     .windowPerBand = true,
     .captions = kEuhf,
     .exchangeIsMult = true,
     .numericExchange = true,
     .chars = K::Number,
     .sent = S::Fixed,
     .ids = {"EUHFC", "EUHFC", "EU-HF", "EU-HF", RE, false}},
    {.menuItem = "mnufd",
     .caption = "Fiel Day",
     .code = "fd",
     .title = "IARU Region 1 Field Day ",
     .firstMult = M::Country,
     .chars = K::Serial,
     .ids = {"IARU-FIELD-DAY", "IARU-FIELD-DAY", "IARU-FIELD-DAY", "IARU-FIELD-DAY", RE, true}},
    {.menuItem = "mnuha",
     .caption = "HA DX",
     .code = "HA",
     .title = "HA DX Contest",
     .chars = K::Mixed,
     .contestClass = 3,
     .ids = {"HA-DX", "HA-DX", "HA-DX", "HA-DX", RE, true}},
    {.menuItem = "mnuhol",
     .caption = "Holyland",
     .code = "hol",
     .title = "Holyland DX Contest",
     .exchangeIsMult = true,
     .chars = K::Mixed,
     .contestClass = 2,
     .partial = P::BandAndReport,
     .ids = {"WWHC", "WWHC", "HOLYLAND", "HOLYLAND", RE, true}},
    {.menuItem = "mnuhel",
     .caption = "Helvetia",
     .code = "hel",
     .title = "Helvetia DX Contest",
     .calls = C::RestartAndClear,
     .window = W::CodeList,
     .boxes = 26,
     .windowPerBand = true,
     .list = {2, 0, "AGAIARBEBLBSFRGEGLGRJULUNENWOWSGSHSOSZTGTIURVDVSZGZH"},
     .captions = kListWindow,
     .chars = K::Mixed,
     .contestClass = 3,
     .ids = {"HELVETIA", "HELVETIA", "HELVETIA", "HELVETIA", RE, true}},
    {.menuItem = "mnuiaru",
     .caption = "IARU HF",
     .code = "iaru",
     .title = "IARU HF Contest",
     .prompt = "Введите ITU зону ",
     .promptTitle = "Ввод контр.номера",
     .fromCall = X::ItuZone,
     .numericExchange = true,
     .sent = S::Fixed,
     .ids = {"IARU-HF", "IARU-HF", "IARU-HF", "IARU-HF", RE, false}},
    {.menuItem = "mnujid",
     .caption = "JID L",
     .code = "jid",
     .title = "Japan Int'l DX Contest",
     .prompt = "Введите ITU зону ",
     .promptTitle = "Ввод контр.номера",
     .calls = C::RestartAndClear,
     .window = W::Numbered,
     .boxes = 47,
     .windowPerBand = true,
     .captions = kListWindow,
     .exchangeIsMult = true,
     .chars = K::Number,
     .sent = S::Fixed,
     .contestClass = 2,
     .ids = {"JIDX-CW", "JIDX-SSB", "JIDX-CW", "JIDX-SSB", RE, false}},
    {.menuItem = "mnukcj",
     .caption = "KCJ",
     .code = "kcj",
     .title = "Keymen's Club of Japan",
     .prompt = "Введите континент ",
     .promptTitle = "Ввод контр.номера",
     .calls = C::None,
     .exchangeIsMult = true,
     .chars = K::Letters,
     .sent = S::Fixed,
     .ids = {"KCJ", "KCJ", "KCJ", "KCJ", RE, false}},
    {.menuItem = "mnulz",
     .caption = "LZ DX",
     .code = "lzd",
     .title = "LZ DX Contest",
     .prompt = "Введите ITU зону ",
     .promptTitle = "Ввод контр.номера",
     .calls = C::RestartAndClear,
     .window = W::Numbered,
     .boxes = 75,
     .windowPerBand = true,
     .captions = kListWindow,
     .fromCall = X::ItuZone,
     .numericExchange = true,
     .chars = K::Number,
     .sent = S::Fixed,
     .contestClass = 3,
     .ids = {"LZ-DX", "LZ-DX", "LZ DX", "LZ DX", RE, false}},
    {.menuItem = "mnulzo",
     .caption = "LZ Open",
     .code = "lzo",
     .title = "LZ OPEN Contest",
     .captions = kLzo,
     .chars = K::Serial,
     .second = S2::PassedOn,
     .time = T::ThirtyMinutes,
     .repeatByList = false,
     .totals = Tot::PointsOnly,
     .report = {1, 1, R::PointsOnly, false},
     .ids = {"LZ-OPEN", "LZ-OPEN", "LZ-OPEN", "LZ-OPEN", SE, true}},
    {.menuItem = "mnumarc",
     .caption = "Marconi",
     .code = "marc",
     .title = "Marconi Memorial Contest ",
     .firstMult = M::Country,
     .chars = K::Serial,
     .contestClass = 3,
     .ids = {"MMC-HF-CW", "MMC-HF-CW", "MMC-HF-CW", "MMC-HF-CW", RE, true}},
    {.menuItem = "mnuok",
     .caption = "OK/OM DX",
     .code = "ok",
     .title = "OK/OL/OM DX Contest",
     .calls = C::RestartAndClear,
     .window = W::CodeList,
     .boxes = 87,
     .windowPerBand = true,
     .list = {3, 0, "APAAPBAPCAPDAPEAPFAPGAPHAPIAPJBBNBBEBKDBKOBKHBMEBMBBNYBPZBPVBPBBRACBUCCKCJHCPECPICPRCSTCTA" "DDODCHDKVDKLDPMDPJDPSDRODSODTAECLEDEECHEJAELIELTELOEMOETEEULFHBFHKFCRFJIFNAFPAFRKFSEFSVFTP" "FUOGBLGBMGBVGBRGHOGJIGKRGPRGTRGUHGVYGZLGZNGZSHBRHFMHJEHKAHNJHOLHOPHOSHPRHSUHVS"},
     .captions = kListWindow,
     .exchangeIsMult = true,
     .chars = K::Letters,
     .contestClass = 2,
     .ids = {"OK-OM-DX", "OK-OM-DX", "OK-OM-DX", "OK-OM-DX", RE, true}},
    {.menuItem = "mnupacc",
     .caption = "PACC",
     .code = "pacc",
     .title = "PACC DX Contest",
     .calls = C::RestartAndClear,
     .window = W::CodeList,
     .boxes = 12,
     .windowPerBand = true,
     .list = {2, 1, " DRFLFRGDGRLBNBNHOVUTZHZL"},
     .captions = kListWindow,
     .exchangeIsMult = true,
     .chars = K::Letters,
     .contestClass = 3,
     .ids = {"PACC", "PACC", "PACC", "PACC", RE, true}},
    {.menuItem = "mnuraem",
     .caption = "RAEM",
     .code = "raem",
     .title = "RAEM Contest",
     .prompt = "Введите коордираты (??N??O) ",
     .promptTitle = "Ввод контр.номера",
     .captions = kRaem,
     .chars = K::Mixed,
     .extra = E::RaemDistance,
     .second = S2::Serial,
     .contestClass = 4,
     .time = T::Hour,
     .repeatByList = false,
     .ids = {"RAEM", "RAEM", "RAEM", "RAEM", SE, true}},
    {.menuItem = "nmuref",
     .caption = "REF",
     .code = "ref",
     .title = "REF DX Contest",
     .exchangeIsMult = true,
     .chars = K::Mixed,
     .ids = {"REF-CW", "REF-SSB", "REF-CW", "REF-SSB", RE, true}},
    {.menuItem = "mnursgb",
     .caption = "RSGB",
     .code = "rsgb",
     .title = "RSGB  Contest",
     .chars = K::Mixed,
     .contestClass = 3,
     .ids = {"RSGB-160", "RSGB-160", "RSGB-160", "RSGB-160", RE, true}},
    {.menuItem = "mnurus",
     .caption = "RUS DX",
     .code = "rudx",
     .title = "RUSSIAN DX Contest",
     .prompt = "Введите код области ",
     .promptTitle = "Ввод контр.номера",
     .calls = C::None,
     .firstMult = M::Country,
     .fromCall = X::Oblast,
     .chars = K::Mixed,
     .sent = S::Fixed,
     .ids = {"RDXC", "RDXC", "RDXC", "RDXC", RE, true}},
    {.menuItem = "mnusac",
     .caption = "SAC",
     .code = "sac",
     .title = "SAC Contest",
     .chars = K::Serial,
     .extra = E::SacArea,
     .contestClass = 3,
     .ids = {"SAC-CW", "SAC-SSB", "SAC-CW", "SAC-SSB", RE, true}},
    {.menuItem = "mnusp",
     .caption = "SP DX",
     .code = "sp",
     .title = "SP DX Contest",
     .calls = C::RestartAndClear,
     .window = W::CodeList,
     .boxes = 16,
     .windowPerBand = true,
     .list = {1, 0, "BCDFGJKLMOPRSUWZ"},
     .captions = kListWindow,
     .exchangeIsMult = true,
     .chars = K::Letters,
     .contestClass = 3,
     .partial = P::BandAndReport,
     .ids = {"SPDX", "SPDX", "SPDXContest", "SPDXContest", RE, true}},
    {.menuItem = "mnutoec",
     .caption = "TOEC",
     .code = "toec",
     .title = "TOEC WW Grid Contest ",
     .prompt = "Введите ваш QRA локатор (KO95)",
     .promptTitle = "Ввод контр.номера",
     .captions = kSecondMult,
     .chars = K::Mixed,
     .sent = S::Fixed,
     .contestClass = 3,
     .ids = {"TOEC", "TOEC", "TOEC", "TOEC", RE, false}},
    {.menuItem = "mnutops",
     .caption = "TOPS",
     .code = "tops",
     .title = "TOPS Activity Contest",
     .firstMult = M::Prefix,
     .chars = K::Mixed,
     .multScope = MultScope::Contest,
     .contestClass = 3,
     .ids = {"TOPS", "TOPS", "TOPS", "TOPS", RE, true}},
    {.menuItem = "mnuuba",
     .caption = "UBA",
     .code = "uba",
     .title = "UBA DX Contest",
     .captions = kSecondMult,
     .chars = K::Mixed,
     .extra = E::UbaCountries,
     .contestClass = 3,
     .ids = {"UBA-DX-CW", "UBA-DX-SSB", "UBA-DX-CW", "UBA-DX-SSB", RE, true}},
    {.menuItem = "mnuiota",
     .caption = "IOTA",
     .code = "iota",
     .title = "RSGB IOTA Contest",
     .chars = K::Mixed,
     .ids = {"RSGB-IOTA", "RSGB-IOTA", "RSGB-IOTA", "RSGB-IOTA", RE, true}},
    {.menuItem = "mnuukr",
     .caption = "Ukraina DX",
     .code = "ukr",
     .title = "Ukrainian DX Contest",
     .calls = C::RestartAndClear,
     .window = W::CodeList,
     .boxes = 27,
     .windowPerBand = true,
     .list = {2, 0, "CHCNCRDNDOHAHEHMIFKIKOKRKVLULVNIODPORISLSUTEVIVOZAZNZP"},
     .captions = kListWindow,
     .firstMult = M::Country,
     .chars = K::Mixed,
     .contestClass = 3,
     .partial = P::BandAndReport,
     .ids = {"UKRAINIAN-DX", "UKRAINIAN-DX", "UKRAINIAN DX", "UKRAINIAN DX", RE, true}},
    {.menuItem = "mnuwae",
     .caption = "WAE",
     .code = "wae",
     .title = "WAE DX Contest",
     .captions = kWae,
     .chars = K::Serial,
     .contestClass = 3,
     .qtc = true,
     .ids = {"DARC-WAEDC-CW", "DARC-WAEDC-SSB", "DARC-WAEDC-CW", "DARC-WAEDC-SSB", RE, true}},
    {.menuItem = "mnuwag",
     .caption = "WAG",
     .code = "wag",
     .title = "WAG DX Contest",
     .calls = C::RestartAndClear,
     .window = W::CodeList,
     .boxes = 26,
     .windowPerBand = true,
     .list = {1, 0, "ABCDEFGHIJKLMNOPQRSTUVWXYZ"},
     .captions = kListWindow,
     .chars = K::Mixed,
     .contestClass = 3,
     .ids = {"WAG", "WAG", "DARC-WAG", "DARC-WAG", RE, true}},
    {.menuItem = "mnuwpx",
     .caption = "WPX",
     .code = "wpx",
     .title = "CQ WW WPX DX Contest",
     .firstMult = M::Prefix,
     .chars = K::Serial,
     .multScope = MultScope::Contest,
     .ids = {"CQ-WPX-CW", "CQ-WPX-SSB", "CQ-WPX-CW", "CQ-WPX-SSB", RE, true}},
    {.menuItem = "mnuwwg",
     .caption = "WWG",
     .code = "wwg",
     .title = "TOEC WW GRID  Contest",
     .prompt = "Введите ваши координаты   ",
     .promptTitle = "Ввод QTH-ЛОКАТОРА",
     .chars = K::Mixed,
     .sent = S::Fixed,
     .contestClass = 3,
     .ids = {"TOEC", "TOEC", "TOEC", "TOEC", RE, false}},
    {.menuItem = "mnuvkzl",
     .caption = "VK/ZL",
     .code = "vkzl",
     .title = "VK/ZL DX Contest",
     .firstMult = M::Prefix,
     .chars = K::Serial,
     .multScope = MultScope::SentReport,
     .ids = {"OCEANIA-DX-CW", "OCEANIA-DX-SSB", "OCEANIA-DX-CW", "OCEANIA-DX-SSB", RE, true}},
    {.menuItem = "mnuyo",
     .caption = "YO DX",
     .code = "yo",
     .title = "YO DX  Contest",
     .prompt = "Введите ITU зону ",
     .promptTitle = "Ввод контр.номера",
     .fromCall = X::ItuZone,
     .numericExchange = true,
     .chars = K::Mixed,
     .sent = S::Fixed,
     .contestClass = 3,
     .ids = {"YO-DX-HF", "YO-DX-HF", "YOHFDX", "YOHFDX", RE, true}},
    {.menuItem = "mnuyu",
     .caption = "YU DX",
     .code = "yu",
     .title = "YU DX Contest",
     .prompt = "Введите ITU зону ",
     .promptTitle = "Ввод контр.номера",
     .fromCall = X::ItuZone,
     .numericExchange = true,
     .chars = K::Number,
     .extra = E::YuCountry,
     .sent = S::Fixed,
     .contestClass = 3,
     .ids = {"YUDX", "YUDX", "YUDXC", "YUDXC", RE, false}},
};
// clang-format on
static_assert(std::size(kContests) == 43);

const ContestDef kNone{};

} // namespace

std::span<const ContestDef> catalogue() {
    return kContests;
}

const ContestDef* find(const QString& code) {
    static const QHash<QString, const ContestDef*> byCode = [] {
        QHash<QString, const ContestDef*> t;
        for (const ContestDef& c : kContests) t.insert(QString::fromLatin1(c.code), &c);
        return t;
    }();
    return byCode.value(code, nullptr);
}

const ContestDef& def(const QString& code) {
    const ContestDef* c = find(code);
    return c ? *c : kNone;
}

const ContestDef* byMenuItem(const QString& menuItem) {
    for (const ContestDef& c : kContests)
        if (menuItem == QLatin1String(c.menuItem)) return &c;
    return nullptr;
}

QStringList menuOrder() {
    QStringList names;
    for (const ContestDef& c : kContests) names << QLatin1String(c.menuItem);
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

QString windowBox(const ContestDef& c, int i) {
    switch (c.window) {
    case WindowKind::Numbered:
        return i < 9 ? QStringLiteral("0%1").arg(i + 1) : QString::number(i + 1);
    case WindowKind::CodeList: {
        const MultList& l = c.list;
        if (!l.codes) return {};
        QString box = QLatin1String(l.codes).mid(l.first + i * l.width, l.width);
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

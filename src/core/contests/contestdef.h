#pragma once
// One definition per contest: everything the logger does differently from one contest to the
// next, as named fields of one row. The window, the entry line, the totals and the reports read
// the row of the current contest; rules that are code (the points, the exchange check) are
// functions the row names. Nothing here knows forms.
#include "contests/groups.h"
#include "contests/points.h"

#include <QString>
#include <QStringList>
#include <span>

namespace hfc {
struct ExchangeFacts;
using ExchangeRule = bool (*)(const ExchangeFacts&);
} // namespace hfc

namespace hfc::contests {

// Which of the restart procedures a contest's handler runs. Some handlers deliberately skip
// the restart (the serial number and totals stay as the previous contest left them).
enum class Calls {
    Restart,         // nextserial, recount
    None,            // nothing
    ClearOnly,       // clearmwid only (and fills its window)
    RestartAndClear, // nextserial, recount, clearmwid
};

enum class WindowKind {
    None,     // the contest has no multiplier window; the window is left as it was
    Numbered, // boxes show "01", "02", … (zones)
    CodeList, // boxes show the codes of the contest's multiplier list
    Cleared,  // boxes are emptied; the window then lists the prefixes worked
};

// One caption or visibility a selection sets on a control of the main window.
struct Setting {
    enum class Prop { Caption, Visible };
    const char* control;
    Prop prop;
    const char* value; // caption text, or "1"/"0" for visible/hidden
};

// The codes of a multiplier list run together, each in a chunk of width characters; box i
// shows the chunk starting at first + i * width (0-based). One-letter codes are padded with a
// blank to the width.
struct MultList {
    int width = 0;
    int first = 0;
    const char* codes = nullptr;
};

// What the first multiplier of a call is.
enum class FirstMult {
    None,
    Country, // the entity prefix (DXCC)
    Prefix,  // the WPX prefix cut from the call
};

// The received exchange that follows from the call and is filled in when it is typed.
enum class ExchangeFromCall {
    None,
    ItuZone,
    CqZone,
    Oblast, // the Russian district code, for Russian stations only
};

// The characters the received-exchange box takes.
enum class ExchangeChars {
    Any,     // no set chosen: every key (IARU HF, where the zone may be an HQ's letters)
    Serial,  // digits: a serial number
    Number,  // digits: an age, a zone, a year
    Letters, // a district or province code
    Mixed,   // letters, digits and "/"
};

// What goes out as the own exchange.
enum class SentExchange {
    Serial,   // the serial number of the next QSO
    Fixed,    // the answer to the selection's question (zone, age, oblast…)
    AsBefore, // as the contest chosen before left it
};

// A second element sent besides the exchange.
enum class SecondSent {
    None,
    Counter,  // the championship: a counter starting at "1"; nothing received there
    Serial,   // RAEM: the serial, with the own coordinates as the exchange
    PassedOn, // LZ Open: the number received in the previous QSO
};

// Scoring the window does in procedures of its own besides the points rule.
enum class EntryRule {
    None,
    RaemDistance, // points from the coordinates exchanged
    SacArea,      // the Scandinavian call area is the multiplier
    UbaCountries, // Belgian and European countries score and multiply
    YuCountry,    // only Serbian stations score
};

// Which earlier QSOs make the partial list, and so the plain repeat.
enum class PartialList {
    Band,          // calls beginning with the typed text, on this band
    BandAndReport, // … with the same received report (the report is part of the exchange)
    DefaultReport, // … on any band, received with the mode's default report
    ExactCall,     // the typed call itself, on any band
};

// When the same station may be worked again.
enum class TimeRule {
    None,
    HourOnBand,    // once per clock hour on each band
    Hour,          // once per clock hour on any band
    ThirtyMinutes, // 30 minutes after the last QSO with it, on any band
};

// What the panel's totals count.
enum class Totals {
    Mults,         // distinct multipliers per band
    PointsPerBand, // the points summed per band in the multiplier columns
    PointsOnly,    // no multipliers: the point total stands in the multiplier total
};

// How the report window turns per-band counts into its table and the claimed score.
struct ReportScore {
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

// Where the report and the serial number sit in the two exchange boxes of each side
// (rsts1/rsts2 sent, rstr1/rstr2 received).
enum class ExchangeLayout {
    ReportExchange, // report, then the exchange (serial, zone, district, ...)
    SerialExchange, // no report: serial, then a second element (coordinates, passed-on number)
    ExchangeSerial, // no report: a first element, then the serial
};

// How the standard formats name the contest (sources in docs/exports.md).
struct StandardIds {
    const char* cabrilloCw = "";  // CONTEST: of a CW log
    const char* cabrilloSsb = ""; // and of a phone log
    const char* adifCw = "";      // CONTEST_ID of a CW QSO
    const char* adifSsb = "";
    ExchangeLayout layout = ExchangeLayout::ReportExchange;
    bool rcvdSerial = true; // the received exchange may hold a serial number
};

// Whose sequence the serial sent belongs to when several computers share one log.
// docs/contests.md gives each contest's reason.
enum class SerialScope {
    Transmitter, // each computer counts its own QSOs
    Station,     // one sequence for the station: numbers reserved between the computers
};

struct ContestDef {
    // The menu and the window
    const char* menuItem = "";    // menu control name; its click handler is menuItem + "_Click"
    const char* caption = "";     // menu caption
    const char* code = "";        // contestcode, as stored in the log's ps2
    const char* title = "";       // LBLCONTEST caption, blanks as shown
    const char* prompt = nullptr; // question for the own exchange at selection; nullptr: none
    const char* promptTitle = nullptr;
    Calls calls = Calls::Restart;
    WindowKind window = WindowKind::None;
    int boxes = 0; // multiplier-window boxes in use (mwidlast + 1)
    // The window's band view repaints per band: set where the window's multipliers count once
    // per band. ARRL 10 m counts per mode and the CQ 160 m contest once per contest.
    bool windowPerBand = false;
    MultList list;                       // the window's codes, for WindowKind::CodeList
    std::span<const Setting> captions{}; // captions and visibility set at selection

    // What a call and its exchange bring
    FirstMult firstMult = FirstMult::None;
    ExchangeFromCall fromCall = ExchangeFromCall::None;
    bool exchangeIsMult = false; // the received exchange is the second multiplier
    // A zone or year compared as a number: "5" is "05". Not where the same box may hold a
    // serial number: "001" must stay as sent.
    bool numericExchange = false;
    ExchangeChars chars = ExchangeChars::Any;
    bool cqmAreas = false; // Russian call areas count as countries (CQ-M)
    EntryRule extra = EntryRule::None;
    MultScope multScope = MultScope::Band;

    // What is sent
    SentExchange sent = SentExchange::Serial;
    SecondSent second = SecondSent::None;
    // The received report is typed (the championship's zone): the entry goes to the report box
    // after the call and the box is emptied for each QSO.
    bool reportTyped = false;
    bool reselectOnMode = false; // the sent exchange depends on the mode: chosen again on a change
    int contestClass = 1;        // which of ctype1..ctype4 is set
    int classValue = 1;          // and to what

    // Repeats
    PartialList partial = PartialList::Band;
    TimeRule time = TimeRule::None;
    bool repeatByList = true; // the call as the partial list's entry is a repeat

    // Totals, the QTC traffic and the reports
    Totals totals = Totals::Mults;
    ReportScore report;
    bool qtc = false;            // QTC traffic (WAE): F1 opens it, reports count it
    bool russianListing = false; // the .LOG listing is headed in Russian
    StandardIds ids;
    // Whose sequence the serial belongs to at a station of several computers.
    SerialScope serial = SerialScope::Transmitter;

    // Rules that are code (pointsrules.h, exchangecheck.h)
    PointsRule points = nullptr;  // none: scored by the window's own procedure (raem, uba)
    ExchangeRule check = nullptr; // none: any exchange is taken
    // What the claimed score cannot know from the log alone, said beside it.
    const char* claimLimit = nullptr;

    bool countsPoints() const { return totals != Totals::Mults; }
    // The time list: earlier QSOs with their times, for the time rule.
    bool timeListPerBand() const { return time == TimeRule::HourOnBand; }
};

// The 43 contests in menu order.
std::span<const ContestDef> catalogue();
// The first this many catalogue entries sit directly in the "Соревнования" menu (cmbadd1); the
// rest in its submenu "Далее" (mnudal).
constexpr int MainMenuCount = 33;

// The row of a code, or nullptr for a code no menu item sets ("hi hi" before a choice).
const ContestDef* find(const QString& code);
// The row of a code; a code no menu item sets gets a row of defaults (no multipliers, serials,
// plain repeats). Cheap: a hash probe, for the keystroke path.
const ContestDef& def(const QString& code);
const ContestDef* byMenuItem(const QString& menuItem);

// Menu item names in menu order, and the menu each sits in ("cmbadd1" or "mnudal").
QStringList menuOrder();
QString menuParent(int menuIndex);

bool runsRestart(Calls c);
bool runsClear(Calls c);
// Grid mode of the multiplier window: 1 when the window lists worked prefixes, else 0.
int windowMode(WindowKind w);

// The text of multiplier-window box i for a contest (i < boxes); "" for cleared windows and for
// boxes past the end of the list.
QString windowBox(const ContestDef& c, int i);

} // namespace hfc::contests

#pragma once
// The contests the logger knows, as data: the menu catalogue, the per-contest switches, the
// captions and visibility a selection sets, and the multiplier lists of the multiplier window.
// One code path in the main window (selection.cpp) walks these tables; nothing here knows forms.
#include <QString>
#include <QStringList>
#include <span>

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

struct Contest {
    const char* menuItem; // menu control name; its click handler is menuItem + "_Click"
    const char* caption;  // menu caption
    const char* code;     // contestcode
    const char* title;    // LBLCONTEST caption, blanks as shown
    const char* prompt;   // input box for the own exchange; nullptr: none
    const char* promptTitle;
    Calls calls;
    WindowKind window;
    int boxes; // number of multiplier-window boxes in use (mwidlast + 1)
    // The window's band view repaints per band: set where the contest counts its window's
    // multipliers once per band. ARRL 10 m counts per mode and the CQ 160 m contest once per
    // contest, so for them the band view is not redrawn.
    int bandmult;
};

// A switch left as the previous selection left it.
constexpr int Unchanged = -1;

struct Switches {
    const char* code;
    int dxccmult, itufill, cqfill, pfxmult, exchmult, fixexch;
    int exchsel1, exchsel2, exchsel3, exchsel4;
    int ctype;      // which of ctype1..ctype4 is set
    int ctypeValue; // the value it is set to (1, except ARI's 3)
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
    const char* code;
    int width;
    int first;
    const char* codes;
};

// The 43 contests in menu order.
std::span<const Contest> catalogue();
// The first this many catalogue entries sit directly in the "Соревнования" menu (cmbadd1); the
// rest in its submenu "Далее" (mnudal).
constexpr int MainMenuCount = 33;

const Contest* byMenuItem(const QString& menuItem);
const Contest* byCode(const QString& code);
const Switches* switchesFor(const QString& code);
std::span<const Setting> settingsFor(const QString& code);
const MultList* multListFor(const QString& code);

// Menu item names in menu order, and the menu each sits in ("cmbadd1" or "mnudal").
QStringList menuOrder();
QString menuParent(int menuIndex);

bool runsRestart(Calls c);
bool runsClear(Calls c);
// Grid mode of the multiplier window: 1 when the window lists worked prefixes, else 0.
int windowMode(WindowKind w);

// The text of multiplier-window box i for a contest (i < boxes); "" for cleared windows and for
// boxes past the end of the list.
QString windowBox(const Contest& c, int i);

} // namespace hfc::contests

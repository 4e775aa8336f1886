#pragma once
// The main logging window CONTEST as a headless model. Its code is split by area, one file each:
//   contestform.cpp   controls, start-up, clock, own call, exit
//   selection.cpp     contest menu handlers driven by the catalogue
//   recount.cpp       nextserial, recount
//   multipliers.cpp   multcheck, pscheck, worked-multiplier list and window
//   specialscoring.cpp raemscore, SAC family
//   country.cpp       STRAN, RUS, rusdx, CQM, EU13, eucountry, callprefix
//   points.cpp        qsopoints
//   entry.cpp         callsign box, WWOD, wwodcall, repeat rules
//   exchange.cpp      wwodrstr, exchange box keys and checks
//   commit.cpp        wwodadd, log grid
//   bands.cpp         band and mode buttons, totals view, prefixlist
//   keys.cpp          function keys, keyer panel, cwsend/cwkey glue
//   rig.cpp           CAT link
//   qtc.cpp           WAE QTC frame
//   maintenance.cpp   transfer to station log, clearing, code-page conversion
//   windows.cpp       opening the other windows
//   scp.cpp           super check partial, one-off calls, call history
#include "data/logtally.h"
#include "data/workedcalls.h"
#include "forms/form.h"
#include "keyer/keyerbackend.h"
#include "station/callhistory.h"
#include "station/scp.h"

#include <QDateTime>
#include <QSet>
#include <array>
#include <memory>
#include <vector>

namespace hfc {

class Db;

class ContestForm : public Form {
    Q_OBJECT
  public:
    explicit ContestForm(const Env& env, QObject* parent = nullptr);
    ~ContestForm() override;

    Form* subForm(const QString& name) override;
    Db& logDb(); // dbcontest
    // The contest menu items in menu order (the first 33 under "Соревнования", the rest under
    // "Далее"), as the catalogue created them.
    QStringList contestMenuItems() const;

    // ---------------------------------------------------------------- controls
    // entry line
    Control *txtcall, *txtdate, *txttime, *lblrsts, *txtrsts, *TXTRSTS2, *lblrstr, *txtrstr;
    Control *txtmult, *txtmult2, *txtpoint, *txtpoint2, *txtrepit, *txtstran5, *cmbAdd;
    Control *TXTNCALL, *tcont;
    Control *lblcall, *lbldate, *lbltime; // captions over the entry boxes
    // labels that change with the contest
    Control *LBLCONTEST, *lbldxcc, *lblzone, *lblmult, *lblmult1, *lblpoint, *lblqtc, *lblqso;
    Control *Label1, *Label4;
    // score panel: per band QSOs, first and second multipliers, totals
    std::array<Control*, 7> qsoband{}, multband{}, multband1{};
    Control *qsotot, *multtot, *multtot1;
    // rate display
    Control *txtrate, *txtbandtime, *txtlastqso;
    // bands and mode
    std::array<Control*, 7> cmbband{};
    Control *cmbmod, *cmbwsego;
    // lists and grids
    Control *DBList1, *DBGrid1, *DBGrid3, *List1;
    // multiplier window
    Control* multwid;
    static constexpr int MwidBoxes = 103;
    std::array<Control*, MwidBoxes> txtMwid{};
    Control* twid1;
    // keyer panel
    Control *frCW, *lbltest, *txtf4, *txtf7, *txtf8, *txtf9, *HScroll1, *lblNul, *LblPoz, *lblwpm;
    Control* lblports; // the Linux devices behind the four COM choices, or the keying device
    Control* txttu;    // the thanks message Enter sends when Enter sends messages
    std::array<Control*, 8> TXTSCOR{};
    std::array<Control*, 4> Option1{};
    Control* lblcat; // the last frequency command emitted, as byte values
    // QTC frame
    Control *FRQTC, *txtqtcnr, *txtqtccall, *txtqtctime, *txtqtcband, *cmbqtc1;
    std::array<Control*, 10> txtqtc{};
    // menus
    Control *cmbadd1, *mnudal, *mnupol, *cmbotchet, *cmbvur, *mnudxcc, *mnuserw, *CMBEXIT;
    Control *mnumzone, *mnumdxcc, *mnuawto, *mnuprow, *MNUCW, *mnuCAT, *mnuQTC, *mnudelet;
    Control *mnuwindos, *mnurusdx, *mnurestore;
    Control* Timer1;

    // ---------------------------------------------------------------- form-level state
    QString contestcode = QStringLiteral("hi hi");
    QString myexch;
    QString curband;
    QString rstdef = QStringLiteral("599");
    QString callchars = QStringLiteral("0123456789ASDFGHJKLQWERTYUIOPZXCVBNM/");
    QString letters = QStringLiteral("ASDFGHJKLQWERTYUIOPZXCVBNM");
    QString digits = QStringLiteral("0123456789");
    QString nulchar = QStringLiteral("o");
    // country values of the typed call
    QString callprf, callstrana, callkont, callpref, callitu, callcq;
    QString kodsrr; // district code of the typed Russian call
    // contest switches (0 = the rule applies)
    int dxccmult = 1, itufill = 1, cqfill = 1, pfxmult = 1, exchmult = 1, fixexch = 0;
    int exchsel1 = 1, exchsel2 = 1, exchsel3 = 1, exchsel4 = 1;
    int ctype1 = 0, ctype2 = 0, ctype3 = 0, ctype4 = 0;
    int mwidlast = 0;
    int mwidmode = 0; // 1: the window lists worked prefixes; otherwise a fixed list
    int bandmult = 0; // 1: multipliers count per band in the window's band view
    QString multcand, pscand;
    QString lastsql;
    // bands
    int bandsame = 0, bandprev = -1;
    QString catcmd;
    QString owntail;
    QString owncall; // the station's call as typed ("UA3ABC"); the box keeps its cut
    // run timers
    QDateTime bandstart, lastqso;
    int hourcount = 0;
    int qsorun = 0; // QSOs committed in this run
    bool firstAfterBandChange = true;
    QString ratehour; // the clock hour whose full-hour reset has been done
    // keyer
    QString cwtext, cwcode, cwchar;
    double cwunit = 150000;
    double cwfactor = 1;
    QString cutnumber, cutrst;
    // SAC
    int sacarea = 0, sacbox = 0;
    // code-page conversion
    QString perewodfile;
    // exchange checks: the last exchange shown as unacceptable and confirmed by the operator
    QString confirmedBad;

    // ---------------------------------------------------------------- procedures by area
    // window (contestform.cpp)
    void Form_Load();
    void Timer1_Timer();
    QDateTime utcnow() const;
    void Label4_Click();
    void mnuawto_Click();
    void txtdate_KeyPress(Event& e);
    void txttime_KeyPress(Event& e);
    void TXTNCALL_KeyPress(Event& e);
    void CMBEXIT_Click();
    void saveOwnCall();
    // selection.cpp
    void selectContest(const QString& menuItem);
    void clearmwid();
    // The 43 contest menu items in menu order; each has extra("parent"): "cmbadd1" or "mnudal".
    std::vector<Control*> contestMenu;
    // recount.cpp
    void nextserial();
    void recount();
    LogTally& tally(); // the log's per-band figures, kept between recounts
    // multipliers.cpp
    void multcheck();
    void pscheck();
    void mnumdxcc_Click();
    void mnumzone_Click();
    void multwid_Click();
    void fillList1();
    QString firstMultScope(QStringList& params) const;
    // specialscoring.cpp
    void raemscore();
    void SAC();
    void SAC1();
    void SAC2();
    void Prowerka();
    void mnuprow_Click();
    // country.cpp
    void STRAN();
    void RUS();
    void rusdx();
    void CQM();
    void EU13();
    void eucountry();
    void callprefix();
    // Own country, continent, zones and prefix from the own call (TXTNCALL unless given).
    void resolveOwnCall(const QString& typed = {});
    QString ownpref, ownkont, owncq, ownitu;
    QString ownprf; // prefix cut of the own call ("UA3")
    struct CountryRow {
        QString pref, kont, strana, itu, cq;
    };
    bool lookupCountry(const QString& call, CountryRow& out); // longest matching beginning
    bool lookupDistrict(const QString& key, QString* itu, QString* cq, QString* code);
    // points.cpp
    void qsopoints();
    // Set while a QSO is being entered: only then may the points read earlier QSOs of the log.
    bool scoringEntered = false;
    // entry.cpp
    void txtcall_KeyPress(Event& e);
    void txtcall_KeyUp(Event& e);
    void txtcall_GotFocus();
    void WWOD();
    void wwodcall();
    void DBList1_Click();
    void applyRepeatRules();
    std::vector<QStringList> timelist; // ccall, ttime of the time list (lzo, raem, chemp, ES)
    // exchange.cpp
    void wwodrstr();
    void txtrstr_KeyPress(Event& e);
    void txtrstr_GotFocus();
    void lblrstr_KeyPress(Event& e);
    QString exchangeChars() const; // "" = any character
    bool countsExchange() const;   // the exchange goes through pscheck
    bool checkExchange();          // false: "Неверно" shown, the QSO waits for the operator
    bool oblastKnown(const QString& code); // a kodsrr of the district table
    void rearmCheck();                     // an edit: the next Enter checks the exchange again
    QSet<QString> oblastCodes;             // the district table's kodsrr, read once
    bool rstrselected = false;             // the box's text is selected: typing replaces it
    // commit.cpp
    bool wwodadd(); // false: the log refused the row, the entry line is kept
    void cmbAdd_Click();
    void refreshLogGrid();
    void DBGrid3_Edit(int row, const QString& column, const QString& value);
    void appendLogGridRow(qint64 rowid);
    QStringList logGridRow(size_t i); // the fields of the grid's row i, read from the log
    std::vector<qint64> grid3rowids;  // tbllog rowid of each DBGrid3 row
    QString grid3contest;             // the contest DBGrid3 shows
    qint64 grid3changes = -1;         // the log's change count when DBGrid3 was last in step
    bool logGridStale();
    QDateTime firstqso; // the first QSO of this run
    // bands.cpp
    void cmbband_Click(int index);
    void cmbband_GotFocus(int index);
    void cmbband_KeyPress(Event& e);
    void cmbband_KeyDown(Event& e);
    void cmbband_KeyUp(Event& e);
    void cmbmod_KeyPress(Event& e);
    void cmbmod_Click();
    void cmbwsego_Click();
    void prefixlist();
    // keys.cpp
    void Form_KeyDown(Event& e);
    void lblNul_Click();
    void MNUCW_Click();
    void Option1_Click(int index);
    void HScroll1_Change();
    void cwsend();
    void cwkey();
    KeyerBackend* keyer();                            // nullptr until the first message
    int commport = 1;                                 // the panel's COM choice, 1..4
    bool sendKeyMessage(int keyCode);                 // F2..F9 without modifiers; false: not sent
    QString expandMessage(const QString& text) const; // {MYCALL}, {CALL}, {NR}, {RST}, {EXCH}
    bool esmOn() const;                               // Enter sends messages (a station setting)
    void esmCall();                                   // the call, then report and exchange
    void esmThanks();                                 // the thanks text
    // rig.cpp
    void mnuCAT_Click();
    void emitCatOnBandEnter(int index); // the link's part of Enter on a band button
    // qtc.cpp
    void txtqtcnr_KeyPress(Event& e);
    void txtqtc_KeyPress(Event& e);
    void txtqtc_KeyUp(Event& e);
    void cmbqtc1_Click();
    void mnuQTC_Click();
    void qtcfill();
    void qtcreset();
    void qtcrefresh();
    void openQtc(); // F1 in the WAE contest
    // maintenance.cpp
    void cmbvur_Click();
    void mnudelet_Click();
    void mnuwindos_Click();
    void mnurestore_Click(); // a backup of the log back in place
    void perewod();
    void ANSI2OEM();
    bool transferLog();        // false, after a message, when the station log cannot take the rows
    bool clearLog();           // mnudelet_Click's work; false when no backup could be made
    bool backupLog();          // a dated copy of dbcontest before log rows are deleted
    bool logBackedUp_ = false; // set while a clearing's backup covers the QTC table too
    // windows.cpp
    void mnupol_Click();
    void cmbotchet_Click();
    void mnudxcc_Click();
    void mnurusdx_Click();
    // scp.cpp
    Control *lstscp, *lstnp1; // calls holding the typed text; calls one character off it
    Control* lblname;         // the station's name from the call history, beside the call
    Control* mnuhistory;     // "Сервис" -> "Записать историю позывных"
    void loadStationFiles(); // MASTER.SCP and the call history of the data folder
    void scplookup();        // both lists and the name for the typed call
    void historyfill();      // the exchange from the call history
    bool scpKeyUp(Event& e); // Ctrl+Up/Down/Enter in the call box; true when it took the key
    void lstscp_Click();
    void lstnp1_Click();
    void takeListCall(const QString& call);
    void moveListCurrent(int step);
    void mnuhistory_Click();
    WorkedCalls& workedCalls(); // this contest's calls, in step with the log
    ScpIndex& scpIndex();       // read from its file at the first use
    ScpIndex scp;
    bool scpRead = false;
    CallHistory history;
    QString histfilled; // the exchange the history put into the box, while it is there
    int scpmax = 40;    // entries a list holds: more than a panel shows on a tall screen

  signals:
    void exitRequested();
    void catEmitted(const QByteArray& block);
    void messageQueued(const QString& text); // a message handed to the keyer (cwtext)

  private:
    void createControls();
    void registerWindow();
    // Each area registers its handlers, procedures and variables by name.
    void registerSelection();
    void registerRecount();
    void registerMultipliers();
    void registerSpecialScoring();
    void registerCountry();
    void registerPoints();
    void registerEntry();
    void registerExchange();
    void registerCommit();
    void registerBands();
    void registerKeys();
    void registerRig();
    void registerQtc();
    void registerMaintenance();
    void registerWindows();
    void registerScp();

    // keys.cpp: the keyer is made on the first message, and again when the settings name another
    std::unique_ptr<KeyerBackend> keyer_;
    QString keyerKind_, keyerSignature_;
    KeyerBackend* ensureKeyer();
    std::unique_ptr<KeyerBackend> makeKeyer();
    QString keyerKindFromSettings() const; // serial, cwdaemon, winkeyer or rigctld
    QString keyerSignature() const;        // the kind and its address
    void keyerError(const QString& message);
    void showKeyerSpeed();
    void showPorts();
    QHash<QString, Form*> subForms_;
    std::unique_ptr<LogTally> tally_; // recount.cpp
    WorkedCalls worked_;              // scp.cpp
};

} // namespace hfc

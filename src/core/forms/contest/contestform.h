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
//   rig.cpp           CAT link, the radio through Hamlib, the settings window
//   qtc.cpp           WAE QTC frame
//   maintenance.cpp   transfer to station log, clearing, code-page conversion
//   windows.cpp       opening the other windows
//   bandmap.cpp       DX cluster panel, band map, spots taken with Ctrl+arrows
//   station.cpp       the station's shared log (other computers), station panel
//   rates.cpp         the QSO rates from the log, the status line
//   logcheck.cpp      the log check of the "Сервис" menu
//   scp.cpp           super check partial, one-off calls, call history
#include "contests/contestdef.h"
#include "entry/qsodraft.h"
#include "forms/form.h"
#include "keyer/keyerbackend.h"
#include "log/logstore.h"
#include "log/logtally.h"
#include "log/workedcalls.h"
#include "station/callhistory.h"
#include "station/scp.h"

#include <QDateTime>
#include <QSet>
#include <array>
#include <memory>
#include <vector>

class QTimer;

namespace hfc {

class Db;
class Keyer;
class ClusterSession;
class SpotList;
class BandmapLink;
class MultiOp;
class Rig;
class Ft1000mpLine;
class EntrySession;
struct RigReading;

class ContestForm : public Form {
    Q_OBJECT
  public:
    explicit ContestForm(const Env& env, QObject* parent = nullptr);
    ~ContestForm() override;

    Form* subForm(const QString& name) override;
    Db& logDb();             // dbcontest
    LogStore& store();       // every question and write on the log
    EntrySession& session(); // the QSO being entered
    QsoDraft& draft();       // session().draft()
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
    Control* lblcat;  // the last frequency command emitted, as byte values
    Control* lblfreq; // the radio's frequency in kHz ("21025.0"); red outside the bands
    Control* lblrig;  // the radio link's state; hidden when no radio is set up
    // QTC frame
    Control *FRQTC, *txtqtcnr, *txtqtccall, *txtqtctime, *txtqtcband, *cmbqtc1;
    std::array<Control*, 10> txtqtc{};
    // menus
    Control *cmbadd1, *mnudal, *mnupol, *cmbotchet, *cmbvur, *mnudxcc, *mnuserw, *CMBEXIT;
    Control *mnumzone, *mnumdxcc, *mnuawto, *mnuprow, *MNUCW, *mnuCAT, *mnuQTC, *mnudelet;
    Control *mnuwindos, *mnurusdx, *mnurestore;
    Control* mnusettings; // "Настройки…": the station's settings window
    Control* Timer1;
    // station panel: the other computers of a multi-operator station, the link's state
    Control *frstation, *lststation, *lblstation;
    // rates from the log, the status line under the entry line, the contest finder
    Control *lblrate60 = nullptr, *lblrate10 = nullptr, *lblstatus = nullptr, *mnufind = nullptr;

    // ---------------------------------------------------------------- form-level state
    QString contestcode = QStringLiteral("hi hi");
    // The definition of contestcode (a script may set the code itself): the rules of the row.
    const contests::ContestDef& contestDef() const;
    QString myexch;
    QString curband;
    QString curmode = QStringLiteral("CW"); // cmbmod shows it
    bool multWindowAll = true; // the multiplier window counts the whole contest ("Всего")
    QString rstdef = QStringLiteral("599");
    QString callchars = QStringLiteral("0123456789ASDFGHJKLQWERTYUIOPZXCVBNM/");
    QString letters = QStringLiteral("ASDFGHJKLQWERTYUIOPZXCVBNM");
    QString digits = QStringLiteral("0123456789");
    QString nulchar = QStringLiteral("o");
    // contest switches (0 = the rule applies)
    int dxccmult = 1, itufill = 1, cqfill = 1, pfxmult = 1, exchmult = 1, fixexch = 0;
    int exchsel1 = 1, exchsel2 = 1, exchsel3 = 1, exchsel4 = 1;
    int ctype1 = 0, ctype2 = 0, ctype3 = 0, ctype4 = 0;
    int mwidlast = 0;
    int mwidmode = 0; // 1: the window lists worked prefixes; otherwise a fixed list
    int bandmult = 0; // 1: multipliers count per band in the window's band view
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
    QDateTime entryClock() const; // now in the entry line's time base (UTC or local)
    void Label4_Click();
    void mnuawto_Click();
    // The entry line's clock: the captions of Label4 and mnuawto only show these.
    bool localTime = false;  // local time instead of UTC
    bool manualTime = false; // the operator types date and time; the clock leaves them alone
    void txtdate_KeyPress(Event& e);
    void txttime_KeyPress(Event& e);
    void TXTNCALL_KeyPress(Event& e);
    void CMBEXIT_Click();
    void saveOwnCall();
    // selection.cpp
    // keptExch: the own exchange kept with the log, taken instead of asking again
    void selectContest(const QString& menuItem, const QString* keptExch = nullptr);
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
    LogStore::Scope firstMultScope() const;
    // What a QSO on the current band would find worked already: the first multipliers in
    // multcheck's scope, the second ones as pscheck counts them.
    QSet<QString> workedFirstMults();
    QSet<QString> workedSecondMults();
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
    // Country, continent, zones and prefix of a call as the entry line takes them: the prefix
    // table, then the Russian call areas and districts. row keeps what the table has nothing
    // for; false when the table knows no beginning of the call.
    bool resolveCall(const QString& call, CountryRow& row);
    void refineRussian(const QString& call, CountryRow& row);
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
    void leaveCall(); // Enter or Space in the call box: on to the exchange
    void wipeEntry(); // Alt+W, Ctrl+W: the entry line afresh, nothing logged
    // The draft's points and new multipliers, set there and shown in their boxes: the boxes
    // only show them. showScore shows the draft's four as they are.
    void setPoints(const QString& v);
    void setPoints2(const QString& v);
    void setMult(const QString& v);
    void setMult2(const QString& v);
    void showScore();
    void showEarlierQsos(const QString& call);
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
    void selectBand(int index);        // the band choice without moving the radio
    void setMode(const QString& mode); // "CW" or "SSB", without moving the radio
    void cmbwsego_Click();
    void prefixlist();
    void refreshMultWindow();
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
    bool keyerChosen = true; // a port picked on the panel (or one that needs no choosing)
    // rig.cpp
    void mnuCAT_Click();
    void emitCatOnBandEnter(int index); // the link's part of Enter on a band button
    void mnusettings_Click();
    // Connects the radio and the FT-1000MP line to what the station's settings say now.
    void applyStationSettings();
    Rig* rig() const { return rig_; } // nullptr while no radio is set up
    void rigReading(const RigReading& r);
    void qsyToBand(int index); // a band chosen by the operator: the radio goes there
    void qsyMode();            // the mode chosen by the operator: the radio takes it
    QString qsoFreq() const;   // kHz for the QSO logged now; empty when no radio answers
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
    void showLogAsItIs();      // every view of the log read again after a clearing
    bool logBackedUp_ = false; // set while a clearing's backup covers the QTC table too
    // session.cpp: the log's own call, contest, exchange, band and mode kept and restored; the
    // stored points recomputed for a new own call; the claimed score of lblscore
    void restoreSession();
    void keepSession(const QString& key, const QString& value);
    QHash<QString, QString> sessionKept; // what the log database holds, to skip same writes
    bool recomputeOwnPoints();           // true when a stored point changed
    void showClaimedScore();
    Control* lblscore = nullptr;
    struct ClaimState;
    std::shared_ptr<ClaimState> claim_; // session.cpp
    // windows.cpp
    void mnupol_Click();
    void cmbotchet_Click();
    void mnudxcc_Click();
    void mnurusdx_Click();
    // bandmap.cpp
    Control *frcluster, *bandmap, *lblcluster, *txtcluster, *lstcluster, *mnucluster;
    void startCluster(); // (re)starts the session with the station's settings; none: off
    void clusterLine(const QString& line); // a spot goes to the map, anything else is text
    void bandmapRefresh();                 // the map and the text as they are now
    void takeSpot(bool up);                // Ctrl+Down: the next spot up in frequency
    void txtcluster_KeyPress(Event& e);
    void mnucluster_Click();
    QString spotMark(const QString& call); // "повтор", "множ" or ""
    // Asks the rig to move; the rig link connects to qsyRequested.
    void requestQsy(double kHz);
    void qsyTo(double hz);     // rig.cpp: moves a connected radio there
    double rigKhz() const;     // rig.cpp: the connected radio's frequency in kHz, 0 when none
    ClusterSession* cluster(); // nullptr until startCluster found a host
    SpotList& spots();
    QString spotkhz; // the frequency of the last spot taken ("14025.0"), empty before one

    // station.cpp
    void startMultiOp(); // when the settings name a broker
    // The link keeps a connection of its own to the log file and its hook on the window's: it
    // lets go of the file while the file is replaced. True when it was running.
    bool stopMultiOp();
    MultiOp* multiop() { return multiop_.get(); }
    void sharedLogChanged(const QStringList& bands);
    void showSharedLogChange();
    QTimer* sharedTimer_ = nullptr; // a child; coalesces the others' QSOs into one redraw
    bool sharedPending_ = false;
    int sharedDeferrals_ = 0;
    QString originOf(qint64 rowid); // the computer that logged a row
    qint64 othersQsos();            // the contest's QSOs logged by the other computers
    // The serial the next one counts on from: the station's QSOs alone, or with the link this
    // computer's own (each transmitter) or its place in the station's reserved numbers.
    qint64 lastSerial(qint64 stationQsos);
    bool serialUnreserved = false; // the station-wide number shown is not reserved
    void DBGrid3_Delete(int row);
    void DBGrid3_DeleteKey(); // Delete on the grid's current row ("row"), after a question
    void stationRefresh();
    void mnufind_Click(); // the contest finder (Ctrl+K)
    // rates.cpp
    void showRates();
    void tickRates(); // the clock's part: once a minute
    QString rateminute;
    // logcheck.cpp
    QString checkReport(); // the text the log check shows
    // The status line: a word the operator should see without a box in the way.
    void status(const QString& text);
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
    const CallNeighbours& loggedNeighbours(const WorkedCalls& worked);
    CallNeighbours neighbours_;
    qsizetype neighboursSeen_ = 0;
    int neighboursReads_ = -1;
    int neighboursRemovals_ = -1;
    bool scpRead = false;
    CallHistory history;
    QString histfilled; // the exchange the history put into the box, while it is there
    int scpmax = 40;    // entries a list holds: more than a panel shows on a tall screen

  signals:
    void exitRequested();
    void catEmitted(const QByteArray& block);
    void messageQueued(const QString& text); // a message handed to the keyer (cwtext)
    void qsyRequested(double kHz);

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
    void registerSession();
    void registerBandmap();
    BandmapLink* bandmap_ = nullptr; // bandmap.cpp; a child of the window
    void registerStation();
    void registerRates();
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
    std::unique_ptr<LogStore> store_;
    std::shared_ptr<EntrySession> session_; // entry.cpp; shared: the type is complete there only
    std::unique_ptr<MultiOp> multiop_;      // station.cpp
    // selection.cpp: the definition of the code last asked for, found again when it changes
    mutable QString defCode_;
    mutable const contests::ContestDef* def_ = nullptr;
    // rig.cpp
    Rig* rig_ = nullptr;                   // owned (a child), created for the first radio
    std::shared_ptr<Ft1000mpLine> ftLine_; // the FT-1000MP's serial line, when set up
    quint64 rigWaitSeq_ = 0;               // readings older than this command are stale
    double rigHz_ = 0;                     // the last frequency read; 0 when none
    int rigBand_ = -1;                     // the band of the last reading; -1: outside
    QString rigMode_;                      // the mode of the last reading
    std::array<double, 7> bandHz_{};       // the last frequency heard on each band
};

} // namespace hfc

#include "forms/contest/contestform.h"

#include "contests/contestdef.h"

#include "data/databases.h"
#include "forms/clock.h"
#include "log/band.h"
#include "log/logcolumns.h"
#include "station/multiop.h"

namespace hfc {

using K = Control::Kind;

ContestForm::ContestForm(const Env& env, QObject* parent)
    : Form(QStringLiteral("CONTEST"), env, parent) {
    keyPreview = true; // function keys work wherever the focus is
    createControls();
    registerWindow();
    registerSelection();
    registerRecount();
    registerMultipliers();
    registerSpecialScoring();
    registerCountry();
    registerPoints();
    registerEntry();
    registerExchange();
    registerCommit();
    registerBands();
    registerKeys();
    registerRig();
    registerQtc();
    registerMaintenance();
    registerWindows();
    registerSession();
    registerBandmap();
    registerStation();
    registerRates();
    registerScp();
}

Db& ContestForm::logDb() {
    return env().db->contest;
}

LogStore& ContestForm::store() {
    if (!store_) store_ = std::make_unique<LogStore>(logDb());
    return *store_;
}

QStringList ContestForm::contestMenuItems() const {
    return contests::menuOrder();
}

Form* ContestForm::subForm(const QString& name) {
    return subForms_.value(name, nullptr);
}

void ContestForm::createControls() {
    // entry line
    lblcall = add("lblcall", K::Label, "Позывной");
    txtcall = add("txtcall", K::TextBox);
    lbldate = add("lbldate", K::Label, "Дата");
    txtdate = add("txtdate", K::TextBox);
    lbltime = add("lbltime", K::Label, "Время");
    txttime = add("txttime", K::TextBox);
    lblrsts = add("lblrsts", K::TextBox, "599");
    txtrsts = add("txtrsts", K::TextBox);
    TXTRSTS2 = add("TXTRSTS2", K::TextBox, "0");
    lblrstr = add("lblrstr", K::TextBox, "599");
    txtrstr = add("txtrstr", K::TextBox);
    txtmult = add("txtmult", K::TextBox);
    txtmult2 = add("txtmult2", K::TextBox);
    txtpoint = add("txtpoint", K::TextBox);
    txtpoint2 = add("txtpoint2", K::TextBox);
    txtrepit = add("txtrepit", K::TextBox, "Повтор");
    txtrepit->setBackcolor("#ff0000");
    txtrepit->setVisible(false);
    txtstran5 = add("txtstran5", K::TextBox);
    cmbAdd = add("cmbAdd", K::Button, "Ввод");
    TXTNCALL = add("TXTNCALL", K::TextBox, "Ваш CL ?");
    TXTNCALL->setTooltip("Введите свой позывной");
    tcont = add("tcont", K::TextBox);
    tcont->setVisible(false);

    LBLCONTEST = add("LBLCONTEST", K::Label);
    lbldxcc = add("lbldxcc", K::Label, "dxcc");
    lblzone = add("lblzone", K::Label, "zone");
    lblmult = add("lblmult", K::Label, "DXCC");
    lblmult1 = add("lblmult1", K::Label, "Zone");
    lblpoint = add("lblpoint", K::Label, "Очки");
    lblqso = add("lblqso", K::Label, "QSO");
    lblqtc = add("lblqtc", K::Label, "QTC: F1");
    lblqtc->setVisible(false);
    Label1 = add("Label1", K::Label);
    Label4 = add("Label4", K::Label, "UTC"); // contest logs are kept in UTC

    for (int b = 0; b < 7; ++b) {
        qsoband[b] = add(QStringLiteral("qsoband(%1)").arg(b), K::TextBox, "0");
        multband[b] = add(QStringLiteral("multband(%1)").arg(b), K::TextBox, "0");
        multband1[b] = add(QStringLiteral("multband1(%1)").arg(b), K::TextBox, "0");
    }
    qsotot = add("qsotot", K::TextBox, "0");
    multtot = add("multtot", K::TextBox, "0");
    multtot1 = add("multtot1", K::TextBox, "0");

    txtrate = add("txtrate", K::TextBox, "0");
    txtbandtime = add("txtbandtime", K::TextBox, "00:00:00");
    txtlastqso = add("txtlastqso", K::TextBox, "00:00:00");

    for (int b = 0; b < 7; ++b)
        cmbband[b] = add(QStringLiteral("cmbband(%1)").arg(b), K::Option, bandTable()[b].text);
    cmbmod = add("cmbmod", K::Button, "CW");
    cmbwsego = add("cmbwsego", K::Button, "Всего");
    cmbwsego->setVisible(false);

    DBList1 = add("DBList1", K::List);
    DBGrid1 = add("DBGrid1", K::Grid);
    DBGrid3 = add("DBGrid3", K::Grid);
    DBGrid3->setExtra("editable", "1"); // the log is mended in place, cell by cell
    DBGrid3->setColumns(logHeadings(logGridColumns()));
    List1 = add("List1", K::List);
    List1->setVisible(false);

    multwid = add("multwid", K::Frame);
    multwid->setVisible(false);
    for (int i = 0; i < MwidBoxes; ++i)
        txtMwid[i] = add(QStringLiteral("txtMwid(%1)").arg(i), K::TextBox);
    twid1 = add("twid1", K::TextBox);
    twid1->setVisible(false);

    frCW = add("frCW", K::Frame);
    frCW->setVisible(false);
    lbltest = add("lbltest", K::TextBox, "TEST");
    txtf4 = add("txtf4", K::TextBox);
    txtf7 = add("txtf7", K::TextBox);
    txtf8 = add("txtf8", K::TextBox, "QSO B4");
    txtf9 = add("txtf9", K::TextBox);
    static const char* factors[8] = {"0,5", "1", "0,75", "1", "0,75", "0,75", "0,75", "0,75"};
    for (int i = 0; i < 8; ++i)
        TXTSCOR[i] = add(QStringLiteral("TXTSCOR(%1)").arg(i), K::Label, factors[i]);
    HScroll1 = add("HScroll1", K::ScrollBar, "Скорость");
    HScroll1->setValue(51);
    lblNul = add("lblNul", K::Label, "Ноль = O");
    LblPoz = add("LblPoz", K::Label);
    lblwpm = add("lblwpm", K::Label);
    lblports = add("lblports", K::Label);
    txttu = add("txttu", K::TextBox, "TU");
    for (int i = 0; i < 4; ++i)
        Option1[i] = add(QStringLiteral("Option1(%1)").arg(i), K::Option,
                         QStringLiteral("COM%1").arg(i + 1));
    Option1[0]->setValue(1);
    lblcat = add("lblcat", K::Label);
    lblfreq = add("lblfreq", K::Label);
    lblrig = add("lblrig", K::Label);
    lblrig->setVisible(false);

    FRQTC = add("FRQTC", K::Frame);
    FRQTC->setVisible(false);
    txtqtcnr = add("txtqtcnr", K::TextBox);
    txtqtccall = add("txtqtccall", K::TextBox);
    txtqtctime = add("txtqtctime", K::TextBox);
    txtqtcband = add("txtqtcband", K::TextBox);
    for (int i = 0; i < 10; ++i) txtqtc[i] = add(QStringLiteral("txtqtc(%1)").arg(i), K::TextBox);
    cmbqtc1 = add("cmbqtc1", K::Button, "OK( F8 )");

    cmbadd1 = add("cmbadd1", K::Menu, "Соревнования");
    mnudal = add("mnudal", K::Menu, "Далее");
    mnupol = add("mnupol", K::Menu, "Результаты");
    cmbotchet = add("cmbotchet", K::Menu, "Отчет");
    cmbvur = add("cmbvur", K::Menu, "В журнал");
    mnudxcc = add("mnudxcc", K::Menu, "DXCC");
    mnuserw = add("mnuserw", K::Menu, "Сервис");
    mnumzone = add("mnumzone", K::Menu, "Множители Zone ");
    mnumdxcc = add("mnumdxcc", K::Menu, "Множители DXCC");
    mnuawto = add("mnuawto", K::Menu, "Дата-Время ручн.");
    MNUCW = add("MNUCW", K::Menu, "CW ключ");
    mnuCAT = add("mnuCAT", K::Menu, "CAT FT1000MP выкл");
    mnuQTC = add("mnuQTC", K::Menu, "Очистить QTC");
    mnudelet = add("mnudelet", K::Menu, "Очистить базу");
    mnuwindos = add("mnuwindos", K::Menu, "Перевод  Win  *.txt в DOS *.txt ");
    mnurusdx = add("mnurusdx", K::Menu, "Районы России");
    mnurestore = add("mnurestore", K::Menu, "Восстановить из копии…");
    mnuprow = add("mnuprow", K::Menu, "Проверка");
    mnusettings = add("mnusettings", K::Menu, "Настройки…");
    CMBEXIT = add("CMBEXIT", K::Menu, "Выход");
    Timer1 = add("Timer1", K::Timer);
    frstation = add("frstation", K::Frame);
    frstation->setVisible(false); // shown when the log is shared
    lststation = add("lststation", K::List);
    lblstation = add("lblstation", K::Label);
}

void ContestForm::registerWindow() {
    proc("Form_Load", [this] { Form_Load(); });
    proc("Timer1_Timer", [this] { Timer1_Timer(); });
    proc("Label4_Click", [this] { Label4_Click(); });
    proc("mnuawto_Click", [this] { mnuawto_Click(); });
    on("txtdate_KeyPress", [this](Event& e) { txtdate_KeyPress(e); }, {"KeyAscii"});
    on("txttime_KeyPress", [this](Event& e) { txttime_KeyPress(e); }, {"KeyAscii"});
    on("TXTNCALL_KeyPress", [this](Event& e) { TXTNCALL_KeyPress(e); }, {"KeyAscii"});
    proc("CMBEXIT_Click", [this] { CMBEXIT_Click(); });

    var("contestcode", contestcode);
    var("myexch", myexch);
    var("curband", curband);
    var("rstdef", rstdef);
    var("callchars", callchars);
    var("letters", letters);
    var("digits", digits);
    var("nulchar", nulchar);
    // The typed QSO's values keep the names scripts know them by.
    const auto draftVar = [this](const char* name, QString QsoDraft::*field) {
        var(
            QString::fromLatin1(name), [this, field] { return draft().*field; },
            [this, field](const QString& v) { draft().*field = v; });
    };
    draftVar("callprf", &QsoDraft::prefix);
    draftVar("callstrana", &QsoDraft::country);
    draftVar("callkont", &QsoDraft::continent);
    draftVar("callpref", &QsoDraft::dxccPrefix);
    draftVar("callitu", &QsoDraft::itu);
    draftVar("callcq", &QsoDraft::cq);
    draftVar("kodsrr", &QsoDraft::district);
    draftVar("multcand", &QsoDraft::multCandidate);
    draftVar("pscand", &QsoDraft::psCandidate);
    var("dxccmult", dxccmult);
    var("itufill", itufill);
    var("cqfill", cqfill);
    var("pfxmult", pfxmult);
    var("exchmult", exchmult);
    var("fixexch", fixexch);
    var("exchsel1", exchsel1);
    var("exchsel2", exchsel2);
    var("exchsel3", exchsel3);
    var("exchsel4", exchsel4);
    var("ctype1", ctype1);
    var("ctype2", ctype2);
    var("ctype3", ctype3);
    var("ctype4", ctype4);
    var("mwidlast", mwidlast);
    var("bandsame", bandsame);
    var("bandprev", bandprev);
    var("catcmd", catcmd);
    var("owntail", owntail);
    var("owncall", owncall);
    var("hourcount", hourcount);
    var("cwtext", cwtext);
    var("cwcode", cwcode);
    var("cwchar", cwchar);
    var("cwunit", cwunit);
    var("cwfactor", cwfactor);
    var("cutnumber", cutnumber);
    var("cutrst", cutrst);
    var("perewodfile", perewodfile);
}

void ContestForm::Form_Load() {
    contestcode = QStringLiteral("hi hi");
    curband.clear();
    rstdef = QStringLiteral("599");
    nulchar = QStringLiteral("o");
    if (session_) draft().prefix.clear();
    const QDateTime now = env().clock->localNow();
    bandstart = now;
    lastqso = now;
    hourcount = 0;
    for (int b = 0; b < 7; ++b) {
        qsoband[b]->setText("0");
        multband[b]->setText("0");
        multband1[b]->setText("0");
    }
    qsotot->setText("0");
    multtot->setText("0");
    multtot1->setText("0");
    if (const auto tit = store().stationCallAndTitle()) {
        if (!tit->first.isEmpty()) TXTNCALL->setText(tit->first);
        tcont->setText(tit->second);
    }
    resolveOwnCall();
    restoreSession();
    loadStationFiles();
    Timer1_Timer();
    applyStationSettings();
    setFocus(txtcall);
    startCluster();
    startMultiOp();
}

QDateTime ContestForm::utcnow() const {
    return env().clock->utcNow();
}

namespace {
QString elapsed(const QDateTime& from, const QDateTime& to) {
    qint64 s = from.secsTo(to);
    if (s < 0) s = 0;
    s %= 86400;
    return QStringLiteral("%1:%2:%3")
        .arg(s / 3600, 2, 10, QLatin1Char('0'))
        .arg((s / 60) % 60, 2, 10, QLatin1Char('0'))
        .arg(s % 60, 2, 10, QLatin1Char('0'));
}
} // namespace

void ContestForm::Timer1_Timer() {
    if (!manualTime) {
        const QDateTime t = entryClock();
        txttime->setText(t.toString(QStringLiteral("hh:mm:ss")));
        txtdate->setText(t.toString(QStringLiteral("dd.MM.yy")));
    }
    const QDateTime now = env().clock->localNow();
    txtbandtime->setText(elapsed(bandstart, now));
    txtlastqso->setText(elapsed(lastqso, now));

    const QString tm = txttime->text();
    const QString hh = tm.left(2), mm = tm.mid(3, 2), ss = tm.mid(6, 2);
    if (mm == QStringLiteral("00")) {
        if (ss == QStringLiteral("00") || ratehour != hh) {
            txtrate->setText("0");
            hourcount = 0;
            ratehour = hh;
        }
    } else if (hourcount > 0) {
        const long long minutes = val(mm);
        if (minutes > 0) txtrate->setText(num(hourcount * 60 / minutes));
    }
    if (multiop_) stationRefresh(); // band, mode and last QSO for the other computers
    tickRates();
}

QDateTime ContestForm::entryClock() const {
    return localTime ? env().clock->localNow() : utcnow();
}

void ContestForm::Label4_Click() {
    localTime = !localTime;
    Label4->setText(localTime ? QStringLiteral("Местное") : QStringLiteral("UTC"));
}

// The menu item offers the other mode: "ручн." while the clock fills date and time.
void ContestForm::mnuawto_Click() {
    manualTime = !manualTime;
    mnuawto->setText(manualTime ? QStringLiteral("Дата-Время авто.")
                                : QStringLiteral("Дата-Время ручн."));
    if (manualTime) {
        // The boxes keep their values as a starting point for the operator's typing.
        txtdate->setEnabled(true);
        txttime->setEnabled(true);
    }
    setFocus(txtcall);
}

void ContestForm::txtdate_KeyPress(Event& e) {
    if (e.keyAscii == keys::Enter) setFocus(txttime);
}

void ContestForm::txttime_KeyPress(Event& e) {
    if (e.keyAscii == keys::Enter) setFocus(txtrstr);
}

void ContestForm::TXTNCALL_KeyPress(Event& e) {
    e.keyAscii = QChar(e.keyAscii).toUpper().unicode();
    if (e.keyAscii == keys::Enter && TXTNCALL->text().size() > 3) {
        const QString typed = TXTNCALL->text();
        owncall = typed;
        if (TXTNCALL->text().size() > 4) TXTNCALL->setText(TXTNCALL->text().mid(3));
        saveOwnCall();
        resolveOwnCall(typed); // the station is the call as typed, not what the cut left
        keepSession(QStringLiteral("owncall"), owncall);
        // the log's points follow the station they were made from
        try {
            if (recomputeOwnPoints()) recount();
        } catch (const DbError& e) {
            msgbox(QStringLiteral("Очки журнала не пересчитаны: %1").arg(dbErrorReason(e)),
                   QStringLiteral("Журнал"));
        }
        setFocus(txtcall);
    }
}

void ContestForm::saveOwnCall() {
    store().setStationCall(TXTNCALL->text());
    owntail.clear(); // the caller resolves the own station from the call as typed
}

void ContestForm::CMBEXIT_Click() {
    unload();
    emit exitRequested();
}

} // namespace hfc

// The callsign box: key filter, partial-call and time lists, repeat rules.
#include "data/databases.h"
#include "forms/contest/contestform.h"
#include "text/keyfilter.h"

namespace hfc {

void ContestForm::registerEntry() {
    on("txtcall_KeyPress", [this](Event& e) { txtcall_KeyPress(e); }, {"KeyAscii"});
    on("txtcall_KeyUp", [this](Event& e) { txtcall_KeyUp(e); }, {"KeyCode", "Shift"});
    proc("txtcall_GotFocus", [this] { txtcall_GotFocus(); });
    proc("WWOD", [this] { WWOD(); });
    proc("wwodcall", [this] { wwodcall(); });
    proc("DBList1_Click", [this] { DBList1_Click(); });
    proc("wipeEntry", [this] { wipeEntry(); });
}

namespace {

// Minutes since midnight of "hh:mm…".
int minutesOf(const QString& t) {
    return int(val(t.left(2))) * 60 + int(val(t.mid(3, 2)));
}

} // namespace

void ContestForm::txtcall_KeyPress(Event& e) {
    if (curband.isEmpty()) setFocus(QStringLiteral("cmbband"));
    // Space ends the call as Enter does: the hands are already on the bar to type the exchange,
    // and a blank is never part of a call.
    if (e.keyAscii == ' ') {
        e.keyAscii = 0;
        if (!txtcall->text().isEmpty()) leaveCall();
        return;
    }
    if (e.keyAscii == keys::Backspace) {
        txtpoint->setText(QString());
        txtpoint2->setText(QString());
        txtmult->setText(QString());
        txtmult2->setText(QString());
        txtstran5->setText(QString());
    }
    e.keyAscii = filterKey(e.keyAscii, callchars, txtcall->text().size(), 14);
    if (e.keyAscii == 0) return;
    if (e.keyAscii == keys::Enter) {
        // Enter sends messages: CQ on an empty box, else the call and the exchange. A pre-filled
        // exchange box is only a guess until the operator confirms it there, so it does not count
        // as received yet.
        if (esmOn()) {
            if (txtcall->text().isEmpty())
                sendKeyMessage(keys::F2);
            else
                esmCall();
        }
        leaveCall();
    }
}

void ContestForm::leaveCall() {
    if (mnuawto->text() == QStringLiteral("Дата-Время ручн.")) {
        if (!txtcall->text().isEmpty()) setFocus(contestDef().reportTyped ? lblrstr : txtrstr);
    } else {
        setFocus(txtdate); // manual date and time: confirm them for every QSO
    }
}

// Alt+W / Ctrl+W: the entry line starts afresh without logging anything, wherever the keyboard
// was; the sent serial stays, it belongs to the next QSO as much as to this one.
void ContestForm::wipeEntry() {
    for (Control* box : {txtcall, txtrstr, txtmult, txtmult2, txtpoint, txtpoint2, txtstran5})
        box->setText(QString());
    txtrepit->setVisible(false);
    multcand.clear();
    pscand.clear();
    callitu.clear();
    callcq.clear();
    callstrana.clear();
    kodsrr.clear();
    confirmedBad.clear();
    timelist.clear();
    DBList1->setItems({});
    DBList1->setText(QString());
    DBGrid1->setRows({});
    if (contestDef().reportTyped) lblrstr->setText(QString());
    setFocus(txtcall);
}

void ContestForm::txtcall_KeyUp(Event& e) {
    // Ctrl with an arrow took a spot from the band map, lookups and all.
    if (e.shift == 2 && (e.keyCode == keys::Up || e.keyCode == keys::Down)) return;
    if (scpKeyUp(e)) return;
    if (txtcall->text().isEmpty()) {
        txtrstr->setText(QString());
        txtpoint->setText(QString());
    }
    if (e.keyCode == keys::Up) setFocus(QStringLiteral("cmbband"));
    if (e.keyCode == keys::Down && !txtcall->text().isEmpty()) setFocus(txtrstr);
    wwodcall();
}

void ContestForm::txtcall_GotFocus() {
    nextserial();
    recount();
    if (logGridStale()) refreshLogGrid();
    // A new QSO starts with clean points and exchange; a call being corrected keeps them.
    if (txtcall->text().isEmpty()) {
        txtpoint->setText(QString());
        txtpoint2->setText(QString());
        txtrstr->setText(QString());
    }
}

void ContestForm::WWOD() {
    const QString call = txtcall->text();
    timelist.clear();
    if (call.isEmpty()) {
        // An empty box lists nothing: the whole band's log is in the log grid already.
        DBList1->setItems({});
        DBList1->setText(QString());
        return;
    }
    // "Begins with" as an index range: [call, call + U+FFFF). A GLOB with a bound pattern would
    // make SQLite re-prepare the statement on every keystroke.
    const QString end = call + QChar(0xFFFF);
    Db& db = logDb();
    QStringList calls;
    const contests::ContestDef& def = contestDef();
    switch (def.partial) {
    case contests::PartialList::ExactCall:
        calls = db.column(QStringLiteral("SELECT ccall FROM tbllog WHERE ps2 = ?1 AND ccall = ?2 "
                                         "ORDER BY rowid"),
                          {contestcode, call});
        break;
    case contests::PartialList::DefaultReport:
        calls = db.column(QStringLiteral("SELECT DISTINCT ccall FROM tbllog WHERE ps2 = ?1 "
                                         "AND ccall >= ?2 AND ccall < ?3 AND rstr = ?4 "
                                         "ORDER BY ccall"),
                          {contestcode, call, end, rstdef});
        break;
    case contests::PartialList::BandAndReport:
        calls = db.column(QStringLiteral("SELECT DISTINCT ccall FROM tbllog WHERE ps2 = ?1 "
                                         "AND bband = ?2 AND ccall >= ?3 AND ccall < ?4 "
                                         "AND rstr = ?5 ORDER BY ccall"),
                          {contestcode, curband, call, end, lblrstr->text()});
        break;
    case contests::PartialList::Band:
        calls = db.column(QStringLiteral("SELECT DISTINCT ccall FROM tbllog WHERE ps2 = ?1 "
                                         "AND bband = ?2 AND ccall >= ?3 AND ccall < ?4 "
                                         "ORDER BY ccall"),
                          {contestcode, curband, call, end});
        break;
    }
    // The list's current entry is its first row, as after a re-read.
    DBList1->setText(calls.value(0));
    DBList1->setItems(calls);

    if (def.time == contests::TimeRule::None) return;
    if (def.timeListPerBand()) {
        timelist = db.query(QStringLiteral("SELECT ccall, ttime FROM tbllog WHERE ps2 = ?1 "
                                           "AND bband = ?2 AND ccall >= ?3 AND ccall < ?4 "
                                           "ORDER BY ccall, ttime"),
                            {contestcode, curband, call, end});
    } else {
        timelist = db.query(QStringLiteral("SELECT ccall, ttime FROM tbllog WHERE ps2 = ?1 "
                                           "AND ccall >= ?2 AND ccall < ?3 ORDER BY ccall, ttime"),
                            {contestcode, call, end});
    }
}

namespace {
Rows earlierQsos(Db& db, const QString& contest, const QString& call) {
    if (call.isEmpty()) return {};
    return db.query(QStringLiteral("SELECT ccall, ddate, ttime, bband, rsts1, rsts2, rstr1, "
                                   "rstr2, mult, ps, point, point2, ps1 FROM tbllog "
                                   "WHERE ps2 = ?1 AND ccall = ?2 ORDER BY rowid"),
                    {contest, call});
}
} // namespace

void ContestForm::DBList1_Click() {
    showEarlierQsos(DBList1->text());
}

// Every QSO of the contest with the station, on every band: the band column tells the
// operator where it was worked, also when this band's partial list has nothing.
void ContestForm::showEarlierQsos(const QString& call) {
    static const QStringList columns = {"Позывной", "Дата",   "Время",    "Диапазон", "Передан",
                                        "Номер",    "Принят", "Обмен",    "Множ.",    "Множ. 2",
                                        "Очки",     "Очки 2", "Вид/Повт."};
    DBGrid1->setTable(columns, earlierQsos(logDb(), contestcode, call));
}

void ContestForm::wwodcall() {
    const QString call = txtcall->text();
    callprefix();
    WWOD();
    STRAN();
    // The typed call itself when it has been worked on any band, else the list's entry.
    if (call.isEmpty() || !logDb().exists(QStringLiteral("SELECT 1 FROM tbllog WHERE ps2 = ?1 "
                                                         "AND ccall = ?2 LIMIT 1"),
                                          {contestcode, call}))
        DBList1_Click();
    else
        showEarlierQsos(call);
    scplookup();

    if (call.isEmpty()) {
        txtpoint->setText(QStringLiteral("0"));
        txtpoint2->setText(QStringLiteral("0"));
        txtmult->setText(QString());
        multcand.clear();
        pscand.clear();
        txtrepit->setVisible(false);
        return;
    }

    // The received exchange that follows from the call.
    if (contestDef().fromCall == contests::ExchangeFromCall::Oblast) {
        if (callstrana == QLatin1String("RUSSIAN")) {
            rusdx();
            txtrstr->setText(kodsrr);
        } else {
            txtrstr->setText(QString());
        }
    }
    if (itufill == 0) txtrstr->setText(callitu);
    if (cqfill == 0) txtrstr->setText(callcq);
    historyfill();

    if (dxccmult == 0) {
        multcand = callpref;
        multcheck();
    }
    if (pfxmult == 0) {
        multcand = callprf;
        multcheck();
    }
    eucountry(); // the country rules of UBA and YU; nothing for the other contests
    wwodrstr();
    qsopoints();
    applyRepeatRules();
}

void ContestForm::applyRepeatRules() {
    const QString call = txtcall->text();
    const QString now = txttime->text();
    bool early = false;
    const bool firstIsCall = !timelist.empty() && timelist.front().value(0) == call;
    const contests::ContestDef& def = contestDef();
    if (def.time == contests::TimeRule::ThirtyMinutes) {
        // The same station again only 30 minutes later, on any band; no wrap at midnight, so a
        // QSO just after midnight counts as too early.
        if (firstIsCall)
            for (const QStringList& r : timelist)
                if (r.value(0) == call && minutesOf(now) - minutesOf(r.value(1)) < 30) early = true;
    } else if (def.time == contests::TimeRule::HourOnBand || def.time == contests::TimeRule::Hour) {
        // One QSO per station and clock hour. Only rows of this very call count: a longer call
        // that begins with it is another station.
        if (firstIsCall)
            for (const QStringList& r : timelist)
                if (r.value(0) == call && r.value(1).left(2) == now.left(2)) early = true;
    }
    if (early) {
        txtrepit->setText(QStringLiteral("Рано"));
        txtrepit->setVisible(true);
        txtpoint->setText(QStringLiteral("0"));
        txtmult->setText(QString());
        return;
    }
    txtrepit->setVisible(false);
    // The plain repeat: the list's current entry is the call itself. A list of the exact call
    // on every band makes any earlier QSO a repeat.
    if (!def.repeatByList) return;
    if (!call.isEmpty() && DBList1->text() == call) {
        txtrepit->setText(QStringLiteral("Повтор"));
        txtrepit->setVisible(true);
        txtmult->setText(QString());
        // The points the QSO will be stored with: a repeat counts nothing.
        txtmult2->setText(QString());
        txtpoint->setText(QStringLiteral("0"));
        txtpoint2->setText(QStringLiteral("0"));
    }
}

} // namespace hfc

// The callsign box: key filter, partial-call and time lists, repeat rules.
#include "data/databases.h"
#include "entry/entrysession.h"
#include "forms/contest/contestform.h"
#include "forms/contest/entrymark.h"
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
    // A points or multiplier box corrected by hand: the draft takes what the operator typed,
    // as the log row Enter stores comes from the draft.
    on("txtpoint_KeyUp", [this](Event&) { session().draft().points = txtpoint->text(); });
    on("txtpoint2_KeyUp", [this](Event&) { session().draft().points2 = txtpoint2->text(); });
    on("txtmult_KeyUp", [this](Event&) { session().draft().mult = txtmult->text(); });
    on("txtmult2_KeyUp", [this](Event&) { session().draft().mult2 = txtmult2->text(); });
}

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
        setPoints(QString());
        setPoints2(QString());
        setMult(QString());
        setMult2(QString());
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
    if (!manualTime) {
        if (!txtcall->text().isEmpty()) setFocus(contestDef().reportTyped ? lblrstr : txtrstr);
    } else {
        setFocus(txtdate); // manual date and time: confirm them for every QSO
    }
}

// Alt+W / Ctrl+W: the entry line starts afresh without logging anything, wherever the keyboard
// was; the sent serial stays, it belongs to the next QSO as much as to this one.
void ContestForm::wipeEntry() {
    for (Control* box : {txtcall, txtrstr, txtstran5}) box->setText(QString());
    session().next();
    showScore();
    showMark(*this, QsoDraft::Mark::None);
    confirmedBad.clear();
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
        setPoints(QString());
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
        setPoints(QString());
        setPoints2(QString());
        txtrstr->setText(QString());
    }
}

EntrySession& ContestForm::session() {
    if (!session_) session_ = std::make_shared<EntrySession>(store());
    // The contest changes through the menu at any time; the rules follow it.
    if (session_->contest() != contestcode)
        session_->setContest(contestcode, entryRulesFor(contestcode));
    return *session_;
}

QsoDraft& ContestForm::draft() {
    return session().draft();
}

namespace {
// A field of the draft and the box that shows it.
void setShown(QString& field, Control* box, const QString& v) {
    field = v;
    box->setText(v);
}
} // namespace

void ContestForm::setPoints(const QString& v) {
    setShown(session().draft().points, txtpoint, v);
}

void ContestForm::setPoints2(const QString& v) {
    setShown(session().draft().points2, txtpoint2, v);
}

void ContestForm::setMult(const QString& v) {
    setShown(session().draft().mult, txtmult, v);
}

void ContestForm::setMult2(const QString& v) {
    setShown(session().draft().mult2, txtmult2, v);
}

void ContestForm::showScore() {
    const QsoDraft& d = session().draft();
    txtpoint->setText(d.points);
    txtpoint2->setText(d.points2);
    txtmult->setText(d.mult);
    txtmult2->setText(d.mult2);
}

void showMark(ContestForm& f, QsoDraft::Mark mark) {
    f.session().draft().mark = mark;
    Control* txtrepit = f.txtrepit;
    switch (mark) {
    case QsoDraft::Mark::None:
        txtrepit->setVisible(false);
        return;
    case QsoDraft::Mark::Repeat:
        txtrepit->setText(QStringLiteral("Повтор"));
        break;
    case QsoDraft::Mark::TooEarly:
        txtrepit->setText(QStringLiteral("Рано"));
        break;
    case QsoDraft::Mark::Invalid:
        txtrepit->setText(QStringLiteral("Неверно"));
        break;
    }
    txtrepit->setVisible(true);
}

void ContestForm::WWOD() {
    const QString call = txtcall->text();
    QsoDraft& d = session().draft();
    d.band = curband;
    d.rcvdReport = lblrstr->text();
    session().callChanged(call, rstdef);
    // The list's current entry is its first row, as after a re-read; an empty box lists nothing:
    // the whole band's log is in the log grid already.
    DBList1->setText(d.partial.value(0));
    DBList1->setItems(d.partial);
}

void ContestForm::DBList1_Click() {
    showEarlierQsos(DBList1->text());
}

// Every QSO of the contest with the station, on every band: the band column tells the
// operator where it was worked, also when this band's partial list has nothing.
void ContestForm::showEarlierQsos(const QString& call) {
    static const QStringList columns = {"Позывной", "Дата",   "Время",    "Диапазон", "Передан",
                                        "Номер",    "Принят", "Обмен",    "Множ.",    "Множ. 2",
                                        "Очки",     "Очки 2", "Вид/Повт."};
    DBGrid1->setTable(columns, store().earlierQsos(contestcode, call));
}

void ContestForm::wwodcall() {
    const QString call = txtcall->text();
    QsoDraft& d = draft(); // the session keeps one draft: the reference holds for the whole key
    callprefix();
    WWOD();
    STRAN();
    // The typed call itself when it has been worked on any band, else the list's entry.
    if (call.isEmpty() || !store().callWorked(contestcode, call))
        DBList1_Click();
    else
        showEarlierQsos(call);
    scplookup();

    if (call.isEmpty()) {
        setPoints(QStringLiteral("0"));
        setPoints2(QStringLiteral("0"));
        setMult(QString());
        d.multCandidate.clear();
        d.psCandidate.clear();
        showMark(*this, QsoDraft::Mark::None);
        return;
    }

    // The received exchange that follows from the call.
    if (contestDef().fromCall == contests::ExchangeFromCall::Oblast) {
        if (d.country == QLatin1String("RUSSIAN")) {
            rusdx();
            txtrstr->setText(d.district);
        } else {
            txtrstr->setText(QString());
        }
    }
    if (itufill == 0) txtrstr->setText(d.itu);
    if (cqfill == 0) txtrstr->setText(d.cq);
    historyfill();

    if (dxccmult == 0) {
        d.multCandidate = d.dxccPrefix;
        multcheck();
    }
    if (pfxmult == 0) {
        d.multCandidate = d.prefix;
        multcheck();
    }
    eucountry(); // the country rules of UBA and YU; nothing for the other contests
    wwodrstr();
    qsopoints();
    applyRepeatRules();
}

void ContestForm::applyRepeatRules() {
    session().draft().time = txttime->text();
    const QsoDraft::Mark m = session().markByRules();
    showMark(*this, m);
    if (m == QsoDraft::Mark::None) return;
    // The points the QSO will be stored with: a repeat or a too-early QSO counts nothing.
    setMult(QString());
    setPoints(QStringLiteral("0"));
    if (m == QsoDraft::Mark::Repeat) {
        setMult2(QString());
        setPoints2(QStringLiteral("0"));
    }
}

} // namespace hfc

// Beside the call box: super check partial (lstscp), calls one character off (lstnp1), and what
// the call history knows of the typed call (the exchange, the name in lblname).
#include "contests/contestdef.h"
#include "contests/historycolumn.h"
#include "data/databases.h"
#include "data/schema.h"
#include "forms/contest/contestform.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QSet>
#include <algorithm>

namespace hfc {

using K = Control::Kind;

void ContestForm::registerScp() {
    lstscp = add("lstscp", K::List);
    lstnp1 = add("lstnp1", K::List);
    for (Control* c : {lstscp, lstnp1}) {
        c->setExtra(QStringLiteral("marks"), QString());    // "band"/"contest"/"" per entry
        c->setExtra(QStringLiteral("selected"), QString()); // the entry a click chose
    }
    lblname = add("lblname", K::Label);
    mnuhistory = add("mnuhistory", K::Menu, "Записать историю позывных");

    proc("scplookup", [this] { scplookup(); });
    proc("lstscp_Click", [this] { lstscp_Click(); });
    proc("lstnp1_Click", [this] { lstnp1_Click(); });
    proc("mnuhistory_Click", [this] { mnuhistory_Click(); });
    // In a list that holds the keyboard the arrows move its current entry and Enter takes it.
    for (Control* c : {lstscp, lstnp1}) {
        const QString base = c->name();
        on(base + QStringLiteral("_KeyDown"),
           [this](Event& e) {
               if (e.keyCode == keys::Down) moveListCurrent(1);
               if (e.keyCode == keys::Up) moveListCurrent(-1);
           },
           {"KeyCode", "Shift"});
        on(base + QStringLiteral("_KeyPress"),
           [this, c](Event& e) {
               if (e.keyAscii == keys::Enter) takeListCall(c->text());
               if (e.keyAscii == keys::Esc) setFocus(txtcall);
           },
           {"KeyAscii"});
    }
    var("scpmax", scpmax);
}

void ContestForm::loadStationFiles() {
    scpRead = false; // read again at the next lookup
    history.clear();
    const QString hist = callHistoryPath(env().db->dir());
    if (QFileInfo::exists(hist) && !history.loadFile(hist))
        msgbox(QStringLiteral("Не удалось прочитать файл %1.\nИстория позывных не загружена.")
                   .arg(hist),
               QStringLiteral("Ошибка !!!"));
}

// The 85k calls are read when the first call is typed, not at start: a window that is only
// opened to look at the log or write a report never needs them.
ScpIndex& ContestForm::scpIndex() {
    if (scpRead) return scp;
    scpRead = true;
    scp.load({});
    // Without a MASTER.SCP the lists still offer the calls of the own log.
    const QString path = scpFilePath(env().db->dir());
    if (!path.isEmpty() && !scp.loadFile(path))
        msgbox(
            QStringLiteral("Не удалось прочитать файл %1.\nСписок позывных не загружен.").arg(path),
            QStringLiteral("Ошибка !!!"));
    return scp;
}

WorkedCalls& ContestForm::workedCalls() {
    return store().worked(contestcode);
}

// Kept in step with the worked calls: the calls added since the last look (ours or the
// station's others'), or all of them again after the set was read anew (an unannounced change,
// a clearing, another contest) or lost a call.
const CallNeighbours& ContestForm::loggedNeighbours(const WorkedCalls& worked) {
    const QStringList& calls = worked.calls();
    if (neighboursReads_ != worked.fullReads() || neighboursRemovals_ != worked.removals() ||
        neighboursSeen_ > calls.size()) {
        neighbours_.clear();
        neighboursSeen_ = 0;
        neighboursReads_ = worked.fullReads();
        neighboursRemovals_ = worked.removals();
    }
    for (; neighboursSeen_ < calls.size(); ++neighboursSeen_)
        neighbours_.add(calls[neighboursSeen_]);
    return neighbours_;
}

void ContestForm::scplookup() {
    const QString call = txtcall->text();
    lblname->setText(history.value(call, QStringLiteral("Name")));
    QStringList partial, near;
    if (call.size() >= 2) partial = scpIndex().containing(call, scpmax);
    const WorkedCalls* worked = call.size() >= 2 ? &workedCalls() : nullptr;
    if (call.size() >= 3) {
        near = scpIndex().oneOff(call, scpmax);
        // The own log has calls no file knows of: the stations worked in this contest.
        for (const QString& c : loggedNeighbours(*worked).oneOff(call))
            if (!near.contains(c)) near << c;
        std::sort(near.begin(), near.end());
        if (near.size() > scpmax) near.resize(scpmax);
    }
    const auto show = [this, worked](Control* list, const QStringList& calls) {
        QStringList marks;
        marks.reserve(calls.size());
        for (const QString& c : calls) marks << workedName(worked->check(c, curband));
        // No entry is current until the operator moves to one.
        list->setText(QString());
        list->setExtra(QStringLiteral("marks"), marks.join(QLatin1Char('|')));
        list->setItems(calls);
    };
    show(lstscp, partial);
    show(lstnp1, near);
}

void ContestForm::historyfill() {
    const QString column = contests::historyColumn(contestcode);
    QString v = history.value(txtcall->text(), column);
    if (!v.isEmpty()) {
        // A zone as the prefix table gives it, two digits.
        if (column.endsWith(QLatin1String("Zone")) && v.size() == 1) v.prepend(QLatin1Char('0'));
        txtrstr->setText(v);
        histfilled = v;
        return;
    }
    // The call changed to one without an entry: the exchange the history put there was another
    // station's and goes with it. Contests that fill the exchange from the call did that anew.
    const bool filledFromCall =
        cqfill == 0 || itufill == 0 || contestDef().fromCall == contests::ExchangeFromCall::Oblast;
    if (!filledFromCall && !histfilled.isEmpty() && txtrstr->text() == histfilled)
        txtrstr->setText(QString());
    histfilled.clear();
}

bool ContestForm::scpKeyUp(Event& e) {
    // Alt with the arrows walks the lists (Ctrl with the arrows belongs to the band map's
    // spots); Ctrl+Enter takes the call.
    if (e.shift == 4 && e.keyCode == keys::Down) {
        moveListCurrent(1);
    } else if (e.shift == 4 && e.keyCode == keys::Up) {
        moveListCurrent(-1);
    } else if (e.shift == 2 && e.keyCode == keys::Enter) {
        // Nothing chosen yet: the first entry shown, the partial list's before the one-off list's.
        QString call = lstscp->text().isEmpty() ? lstnp1->text() : lstscp->text();
        if (call.isEmpty()) call = lstscp->items().value(0, lstnp1->items().value(0));
        takeListCall(call);
    } else {
        return false;
    }
    return true;
}

// The two lists are one run of entries for the keys, the partial list's first.
void ContestForm::moveListCurrent(int step) {
    const QStringList& a = lstscp->items();
    const QStringList& b = lstnp1->items();
    const qsizetype count = a.size() + b.size();
    if (count == 0) return;
    qsizetype at = -1;
    if (!lstscp->text().isEmpty())
        at = a.indexOf(lstscp->text());
    else if (!lstnp1->text().isEmpty())
        at = a.size() + b.indexOf(lstnp1->text());
    at = at < 0 ? (step > 0 ? 0 : count - 1) : std::clamp<qsizetype>(at + step, 0, count - 1);
    lstscp->setText(at < a.size() ? a[at] : QString());
    lstnp1->setText(at >= a.size() ? b[at - a.size()] : QString());
}

void ContestForm::lstscp_Click() {
    takeListCall(lstscp->extra(QStringLiteral("selected")));
}

void ContestForm::lstnp1_Click() {
    takeListCall(lstnp1->extra(QStringLiteral("selected")));
}

// The chosen call goes into the box and everything typing it would do runs.
void ContestForm::takeListCall(const QString& call) {
    if (call.isEmpty()) return;
    setFocus(txtcall);
    txtcall->setText(call);
    wwodcall();
}

void ContestForm::mnuhistory_Click() {
    const QString path = callHistoryPath(env().db->dir());
    // What the file holds now is kept: names and columns the log knows nothing of, and calls not
    // in the log. A file that cannot be read is not replaced.
    CallHistory out;
    if (QFileInfo::exists(path) && !out.loadFile(path)) {
        msgbox(QStringLiteral("Не удалось прочитать файл %1.\nИстория позывных не записана.")
                   .arg(path),
               QStringLiteral("Ошибка !!!"));
        return;
    }
    // The zone and oblast columns mean the same in every contest; Exch1 is this contest's own
    // exchange. Later QSOs win.
    QSet<QString> calls;
    store().forEachExchange([&](const QString& call, const QString& code, const QString& value) {
        if (!contests::find(code)) return;
        const QString column = contests::historyColumn(code);
        if (column == QLatin1String("Exch1") && code != contestcode) return;
        if (!contests::historyValueFits(column, value)) return;
        out.set(call, column, value);
        calls.insert(call);
    });
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly) || f.write(out.text()) < 0 || !f.commit()) {
        msgbox(QStringLiteral("Не удалось записать файл %1: %2.\nПрежний файл не изменён.")
                   .arg(path, f.errorString()),
               QStringLiteral("Ошибка !!!"));
        return;
    }
    history = out;
    msgbox(QStringLiteral("История позывных записана: %1\nПозывных из журнала: %2, всего: %3.")
               .arg(path)
               .arg(calls.size())
               .arg(out.size()),
           QStringLiteral("Сервис"));
}

} // namespace hfc

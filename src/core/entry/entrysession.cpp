#include "entry/entrysession.h"

namespace hfc {

namespace {

// The number its leading digits make (blanks before them skipped), 0 without any.
int leadingNumber(const QString& s) {
    int n = 0;
    int i = 0;
    while (i < s.size() && s[i] == QLatin1Char(' ')) ++i;
    for (; i < s.size() && s[i] >= QLatin1Char('0') && s[i] <= QLatin1Char('9'); ++i)
        n = n * 10 + (s[i].unicode() - '0');
    return n;
}

// Minutes since midnight of "hh:mm…".
int minutesOf(const QString& t) {
    return leadingNumber(t.left(2)) * 60 + leadingNumber(t.mid(3, 2));
}

} // namespace

void EntrySession::setContest(const QString& code, const EntryRules& rules) {
    contest_ = code;
    rules_ = rules;
}

void EntrySession::callChanged(const QString& call, const QString& defaultReport) {
    QsoDraft& d = draft_;
    d.call = call;
    d.partial.clear();
    d.timeList.clear();
    if (call.isEmpty()) return;
    QString report;
    if (rules_.partialReport == EntryRules::Report::Received) report = d.rcvdReport;
    if (rules_.partialReport == EntryRules::Report::Default) report = defaultReport;
    d.partial = log_.partialList(rules_.partial, contest_, d.band, call, report);
    switch (rules_.time) {
    case EntryRules::TimeRule::None:
        break;
    case EntryRules::TimeRule::ClockHour:
        d.timeList = log_.timeList(contest_, d.band, call);
        break;
    case EntryRules::TimeRule::HalfHour:
    case EntryRules::TimeRule::ClockHourAnyBand:
        d.timeList = log_.timeList(contest_, QString(), call);
        break;
    }
}

QsoDraft::Mark EntrySession::markByRules() {
    QsoDraft& d = draft_;
    bool early = false;
    // Only rows of this very call count: a longer call that begins with it is another station.
    const bool firstIsCall = !d.timeList.empty() && d.timeList.front().value(0) == d.call;
    if (firstIsCall) {
        for (const QStringList& r : d.timeList) {
            if (r.value(0) != d.call) continue;
            if (rules_.time == EntryRules::TimeRule::HalfHour)
                // no wrap at midnight: a QSO just after midnight counts as too early
                early = early || minutesOf(d.time) - minutesOf(r.value(1)) < 30;
            else if (rules_.time != EntryRules::TimeRule::None)
                early = early || r.value(1).left(2) == d.time.left(2);
        }
    }
    if (early)
        d.mark = QsoDraft::Mark::TooEarly;
    else if (rules_.listedIsRepeat && !d.call.isEmpty() && d.partial.value(0) == d.call)
        d.mark = QsoDraft::Mark::Repeat;
    else
        d.mark = QsoDraft::Mark::None;
    return d.mark;
}

void EntrySession::checkFirstMult(const QString& candidate, const LogStore::Scope& scope) {
    draft_.mult = log_.firstMultWorked(contest_, candidate, scope) ? QString() : candidate;
}

void EntrySession::checkSecondMult(const QString& candidate) {
    draft_.mult2 = log_.secondMultWorked(contest_, candidate, draft_.band) ? QString() : candidate;
}

LogRow EntrySession::row() const {
    const QsoDraft& d = draft_;
    const bool dupe = d.mark == QsoDraft::Mark::Repeat;
    const QString zero = QStringLiteral("0");
    const QString rst =
        d.mode == QLatin1String("SSB") ? QStringLiteral("59") : QStringLiteral("599");
    LogRow r;
    r.ps2 = contest_;
    r.ccall = d.call;
    r.ddate = d.date;
    r.ttime = d.time.left(5);
    r.bband = d.band;
    r.rsts = rst;
    r.rstr = rst;
    // the mode column of the log holds the mode, or DUPE for a repeat
    r.ps1 = dupe ? QStringLiteral("DUPE") : d.mode;
    r.rsts1 = d.sentReport;
    r.rsts2 = d.sentExchange;
    r.rstr1 = d.rcvdReport;
    r.rstr2 = d.rcvdExchange;
    r.mult = dupe ? QString() : d.mult;
    r.ps = dupe ? QString() : d.mult2;
    r.point = dupe ? zero : d.points;
    r.point2 = dupe ? zero : d.points2;
    r.contr = d.country;
    r.prf = d.prefix;
    r.freq = d.freq;
    return r;
}

qint64 EntrySession::commit() {
    const qint64 rowid = log_.insert(row());
    if (draft_.mark == QsoDraft::Mark::Repeat) {
        // what was stored: a repeat counts nothing
        draft_.mult.clear();
        draft_.mult2.clear();
        draft_.points = draft_.points2 = QStringLiteral("0");
    }
    return rowid;
}

void EntrySession::next() {
    QsoDraft n;
    n.band = draft_.band;
    n.mode = draft_.mode;
    n.date = draft_.date;
    n.sentReport = draft_.sentReport;
    n.sentExchange = draft_.sentExchange;
    // Kept across QSOs as the lookup has always kept them: a call the prefix table does not
    // know has the country prefix and continent of the call before it, and the cut prefix is
    // taken only once the call has two characters.
    n.dxccPrefix = draft_.dxccPrefix;
    n.continent = draft_.continent;
    n.prefix = draft_.prefix;
    draft_ = n;
}

} // namespace hfc

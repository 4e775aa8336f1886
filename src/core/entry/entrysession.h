#pragma once
// The entry line without its window: a call typed, an exchange, Enter. The session keeps the
// QSO being entered as a typed draft, asks the log store what is worked already, marks repeats
// and too-early QSOs by the contest's rules, and turns the draft into a log row on Enter. The
// window shows the draft; it keeps no state of the QSO itself.
#include "entry/entryrules.h"
#include "entry/qsodraft.h"
#include "log/logstore.h"

namespace hfc {

class EntrySession {
  public:
    explicit EntrySession(LogStore& log) : log_(log) {}

    void setContest(const QString& code, const EntryRules& rules);
    const QString& contest() const { return contest_; }
    const EntryRules& rules() const { return rules_; }

    QsoDraft& draft() { return draft_; }
    const QsoDraft& draft() const { return draft_; }

    // The call box now holds call: the partial and time lists are read anew for the draft's
    // band and received report (defaultReport is the contest's usual one).
    void callChanged(const QString& call, const QString& defaultReport = {});
    // The time rule and the repeat rule against the lists; the mark is the result (an invalid
    // mark of the exchange is left to the exchange check).
    QsoDraft::Mark markByRules();

    // Is this first multiplier new within scope? The draft's mult is the candidate or empty.
    void checkFirstMult(const QString& candidate, const LogStore::Scope& scope);
    // Is this second multiplier new on the draft's band? The draft's mult2 likewise.
    void checkSecondMult(const QString& candidate);

    // The draft as the row Enter stores: a repeat keeps no multiplier and no points.
    LogRow row() const;
    // Stores the draft. The new row's rowid; a refused write throws DbError and leaves the
    // draft as it was, to store again.
    qint64 commit();
    // The next QSO starts: the draft is emptied but for band, mode, date, what was sent and the
    // country facts an unknown call falls back on.
    void next();

  private:
    LogStore& log_;
    QString contest_;
    EntryRules rules_;
    QsoDraft draft_;
};

} // namespace hfc

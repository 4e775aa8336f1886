#pragma once
// The shared log's bookkeeping in the log database, beside tbllog: which station QSO each row
// is (mqqso, with its latest version and the event that made it), the changes not yet
// delivered to the broker (mqoutbox) and this computer's counters (mqmeta). tbllog stays the
// log; everything here can be rebuilt from it and from the broker's retained messages.
#include "station/multiopevent.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <vector>

namespace hfc {

class Db;
class LogStore;
class NamedCommits;

class MultiOpStore {
  public:
    // The rows of tbllog are read and written through log; every write here tells log which
    // of its rows it changed, so the worked calls need not read the contest again.
    MultiOpStore(LogStore& log, const QString& logid, const QString& node);

    void open(); // creates the tables when missing, reads the counters

    // This computer's own changes to the given tbllog rows (an insert, an edit or a delete)
    // become events in the outbox, all in one transaction. collectAll compares the whole log
    // with what was last published, so changes cut off by a crash or made while the program
    // was not looking still go out. Both return the number of events made.
    int collect(const QList<qint64>& rowids);
    int collectAll();

    // Others' events: each applied when it is newer than what this computer holds, in one
    // transaction; applying the same events in any order, any number of times, gives the same
    // rows. An event older than what is held puts the held state back in the outbox, so the
    // broker's retained copy ends at the newest one whatever order the publishes crossed in.
    struct Applied {
        QList<qint64> rowids; // tbllog rows inserted, updated or deleted
        QStringList bands;    // bands of those rows, before and after
        int answered = 0;     // older events answered with the newer state
        int changed() const { return int(rowids.size()); }
    };
    // on: another connection to the same file (the link's writer on its own thread; nothing
    // else may use this store meanwhile), whose commit is named in named before it is made.
    Applied apply(const std::vector<multiop::QsoEvent>& events, LogStore* on = nullptr,
                  NamedCommits* named = nullptr);

    struct Outgoing {
        qint64 id = 0; // rowid in mqoutbox
        QString uid;
        QByteArray payload;
    };
    std::vector<Outgoing> outbox();
    // The oldest entries after the given one, at most limit: the next window to send.
    std::vector<Outgoing> outbox(qint64 after, int limit);
    void delivered(const QList<qint64>& ids); // the broker has them: the entries go
    // The same for entries as they were sent: an entry replaced meanwhile (its rowid may be
    // used again by the newer state) stays to be sent.
    void delivered(const std::vector<Outgoing>& sent);
    int outboxSize();

    // The broker's state this computer last saw (see MultiOp); "" before the first connection.
    QString epoch();
    void setEpoch(const QString& epoch);
    // Every state held, ours and others', back in the outbox: for a broker that lost its
    // retained copies (a new one, or one without persistence).
    int requeueAll();

    // The computer a tbllog row came from: "" for a row the link has not taken up yet (or one
    // deleted).
    QString originOf(qint64 rowid);

    // Blocks of serial numbers the computers claimed for a station-wide sequence: the first
    // claim heard of a block owns it (every computer hears the broker's claims in the same
    // order). noteClaim returns the owner.
    QString noteClaim(qint64 block, const QString& node);
    QList<qint64> blocksOf(const QString& node); // ascending
    qint64 lastBlock();                          // -1: none claimed yet

    const QString& node() const { return node_; }
    qint64 clock() const { return clock_; }

  private:
    int collectOne(qint64 rowid);
    void keep(const multiop::QsoEvent& e, const QString& qrowid);
    void saveCounters(Db& db);
    multiop::QsoEvent stamped(const QString& uid, const QString& origin);

    LogStore& log_;
    Db& db_;
    QString logid_, node_;
    qint64 clock_ = 0;                      // Lamport counter
    qint64 seq_ = 0;                        // this computer's changes
    QHash<QString, multiop::Stamp> stamps_; // uid -> the version held, for the fast skip
};

} // namespace hfc

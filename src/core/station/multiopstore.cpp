#include "station/multiopstore.h"

#include "data/db.h"
#include "data/schema.h"
#include "log/logcolumns.h"
#include "log/logstore.h"
#include "log/namedcommits.h"

#include <QSet>
#include <algorithm>
#include <optional>

namespace hfc {

using multiop::QsoEvent;
using multiop::Stamp;

namespace {

// A transaction that rolls back unless committed, so a failed statement leaves nothing half done.
// It takes the write lock at once (waiting its turn): with others' events written on a second
// connection, a transaction that read before it wrote would otherwise fail when the other one
// committed in between.
class Transaction {
  public:
    explicit Transaction(Db& db) : db_(db) { db_.exec(QStringLiteral("BEGIN IMMEDIATE")); }
    ~Transaction() {
        if (!done_) db_.rollback();
    }
    void commit() {
        db_.commit();
        done_ = true;
    }

  private:
    Db& db_;
    bool done_ = false;
};

} // namespace

MultiOpStore::MultiOpStore(LogStore& log, const QString& logid, const QString& node)
    : log_(log), db_(log.db()), logid_(logid), node_(node) {}

void MultiOpStore::open() {
    db_.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS mqqso (uid TEXT, qrowid TEXT, origin TEXT, "
                            "ver TEXT, vnode TEXT, del TEXT, payload TEXT)"));
    db_.exec(QStringLiteral("CREATE UNIQUE INDEX IF NOT EXISTS ix_mqqso_uid ON mqqso(uid)"));
    db_.exec(QStringLiteral("CREATE INDEX IF NOT EXISTS ix_mqqso_qrowid ON mqqso(qrowid)"));
    db_.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS mqoutbox (uid TEXT, payload TEXT)"));
    db_.exec(QStringLiteral("CREATE UNIQUE INDEX IF NOT EXISTS ix_mqoutbox_uid ON mqoutbox(uid)"));
    db_.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS mqmeta (k TEXT, v TEXT)"));
    db_.exec(QStringLiteral("CREATE UNIQUE INDEX IF NOT EXISTS ix_mqmeta_k ON mqmeta(k)"));
    db_.exec(QStringLiteral("CREATE TABLE IF NOT EXISTS mqblock (blk INTEGER, node TEXT)"));
    db_.exec(QStringLiteral("CREATE UNIQUE INDEX IF NOT EXISTS ix_mqblock_blk ON mqblock(blk)"));
    clock_ = db_.scalar(QStringLiteral("SELECT v FROM mqmeta WHERE k = 'clock'")).toLongLong();
    seq_ = db_.scalar(QStringLiteral("SELECT v FROM mqmeta WHERE k = 'seq'")).toLongLong();
    stamps_.clear();
    for (const QStringList& r : db_.query(QStringLiteral("SELECT uid, ver, vnode FROM mqqso")))
        stamps_.insert(r[0], Stamp{r[1].toLongLong(), r[2]});
}

void MultiOpStore::saveCounters(Db& db) {
    const QString sql = QStringLiteral("INSERT OR REPLACE INTO mqmeta (k, v) VALUES (?1, ?2)");
    db.prepared(sql, {QStringLiteral("clock"), QString::number(clock_)}).step();
    db.prepared(sql, {QStringLiteral("seq"), QString::number(seq_)}).step();
}

QsoEvent MultiOpStore::stamped(const QString& uid, const QString& origin) {
    QsoEvent e;
    e.logid = logid_;
    e.uid = uid;
    e.origin = origin;
    e.seq = ++seq_;
    e.stamp = Stamp{++clock_, node_};
    return e;
}

// Records e as the state held for its QSO and queues it for the broker.
void MultiOpStore::keep(const QsoEvent& e, const QString& qrowid) {
    const QByteArray payload = multiop::encode(e);
    db_.prepared(QStringLiteral("INSERT OR REPLACE INTO mqqso (uid, qrowid, origin, ver, vnode, "
                                "del, payload) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7)"),
                 {e.uid, qrowid, e.origin, QString::number(e.stamp.ver), e.stamp.node,
                  e.deleted ? QStringLiteral("1") : QStringLiteral("0"),
                  QString::fromUtf8(payload)})
        .step();
    // A later change of the same QSO replaces an undelivered earlier one: the broker keeps only
    // the latest state of each QSO anyway.
    db_.prepared(QStringLiteral("INSERT OR REPLACE INTO mqoutbox (uid, payload) VALUES (?1, ?2)"),
                 {e.uid, QString::fromUtf8(payload)})
        .step();
    stamps_.insert(e.uid, e.stamp);
}

int MultiOpStore::collectOne(qint64 rowid) {
    const QString qrowid = QString::number(rowid);
    const std::optional<LogRow> row = log_.findRow(rowid);
    const Rows held =
        db_.query(QStringLiteral("SELECT uid, origin, payload FROM mqqso WHERE qrowid = ?1 AND "
                                 "del = '0'"),
                  {qrowid});
    if (held.empty()) {
        if (!row) return 0;
        QsoEvent e = stamped({}, node_);
        e.uid = node_ + QLatin1Char('-') + QString::number(e.seq);
        e.fields = logRowFields(*row);
        keep(e, qrowid);
        return 1;
    }
    const QString& uid = held[0][0];
    QsoEvent e = stamped(uid, held[0][1]);
    if (!row) {
        e.deleted = true;
        keep(e, QString());
        return 1;
    }
    const auto before = multiop::decode(held[0][2].toUtf8(), logid_);
    e.fields = logRowFields(*row);
    if (before && before->fields == e.fields) {
        --seq_; // nothing changed: the stamp is not used
        --clock_;
        return 0;
    }
    keep(e, qrowid);
    return 1;
}

int MultiOpStore::collect(const QList<qint64>& rowids) {
    LogStore::KnownWrites known(log_); // bookkeeping only
    Transaction t(db_);
    int made = 0;
    for (qint64 id : rowids) made += collectOne(id);
    if (made) saveCounters(db_);
    t.commit();
    return made;
}

int MultiOpStore::collectAll() {
    LogStore::KnownWrites known(log_); // bookkeeping only
    Transaction t(db_);
    int made = 0;
    const std::vector<qint64> rowids = log_.allRowids();
    if (rowids.empty()) {
        // An emptied log (cleared on this computer) is not a delete of the station's QSOs: the
        // bookkeeping goes, and the station's log comes back from the broker.
        db_.exec(QStringLiteral("DELETE FROM mqqso"));
        db_.exec(QStringLiteral("DELETE FROM mqoutbox"));
        stamps_.clear();
    }
    for (qint64 id : rowids) made += collectOne(id);
    // Rows deleted while nobody was looking.
    const QSet<qint64> present(rowids.begin(), rowids.end());
    for (const QString& id : db_.column(QStringLiteral("SELECT qrowid FROM mqqso WHERE del = '0'")))
        if (!present.contains(id.toLongLong())) made += collectOne(id.toLongLong());
    if (made) saveCounters(db_);
    t.commit();
    return made;
}

MultiOpStore::Applied MultiOpStore::apply(const std::vector<QsoEvent>& events, LogStore* on,
                                          NamedCommits* named) {
    Applied a;
    LogStore& log = on ? *on : log_;
    Db& db = log.db();
    LogStore::KnownWrites known(log); // the log's own writes below name their rows
    // Destroyed after the transaction's end, committed or not.
    struct Naming {
        NamedCommits* named = nullptr;
        ~Naming() {
            if (named) named->done();
        }
    } naming;
    // The versions held in memory go back to what is on disk when the batch does not commit:
    // a version held only in memory would make the same event look applied when it comes again,
    // and the QSO would stay missing here until the next start.
    struct Undo {
        MultiOpStore& store;
        qint64 clock;
        std::vector<std::pair<QString, std::optional<Stamp>>> stamps;
        bool committed = false;
        ~Undo() {
            if (committed) return;
            store.clock_ = clock;
            for (auto it = stamps.rbegin(); it != stamps.rend(); ++it) {
                if (it->second)
                    store.stamps_.insert(it->first, *it->second);
                else
                    store.stamps_.remove(it->first);
            }
        }
    } undo{*this, clock_, {}};
    Transaction t(db);
    const qint64 clockBefore = clock_;
    for (const QsoEvent& e : events) {
        if (e.logid != logid_) continue;
        const Stamp held = stamps_.value(e.uid);
        if (!multiop::newer(e.stamp, held)) {
            if (multiop::newer(held, e.stamp)) {
                // Put what we hold back on the broker's retained topic.
                const QString payload =
                    db.scalar(QStringLiteral("SELECT payload FROM mqqso WHERE uid = ?1"), {e.uid});
                if (!payload.isEmpty()) {
                    db.prepared(QStringLiteral("INSERT OR REPLACE INTO mqoutbox (uid, payload) "
                                               "VALUES (?1, ?2)"),
                                {e.uid, payload})
                        .step();
                    ++a.answered;
                }
            }
            continue;
        }
        clock_ = std::max(clock_, e.stamp.ver);
        QString qrowid =
            db.scalar(QStringLiteral("SELECT qrowid FROM mqqso WHERE uid = ?1"), {e.uid});
        if (!qrowid.isEmpty()) {
            if (const std::optional<LogRow> held = log.findRow(qrowid.toLongLong()))
                a.bands << held->bband;
            else
                qrowid.clear();
        }
        if (e.deleted) {
            if (!qrowid.isEmpty()) {
                log.remove(qrowid.toLongLong());
                a.rowids << qrowid.toLongLong();
            }
            qrowid.clear();
        } else if (!qrowid.isEmpty()) {
            log.update(qrowid.toLongLong(), logRowFromFields(e.fields));
            a.rowids << qrowid.toLongLong();
        } else {
            const qint64 id = log.insert(logRowFromFields(e.fields));
            qrowid = QString::number(id);
            a.rowids << id;
        }
        if (!e.deleted) a.bands << e.fields.value(QStringLiteral("bband"));
        db.prepared(QStringLiteral("INSERT OR REPLACE INTO mqqso (uid, qrowid, origin, ver, vnode, "
                                   "del, payload) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7)"),
                    {e.uid, qrowid, e.origin, QString::number(e.stamp.ver), e.stamp.node,
                     e.deleted ? QStringLiteral("1") : QStringLiteral("0"),
                     QString::fromUtf8(multiop::encode(e))})
            .step();
        // A change of ours that lost to this one must not reach the broker after it.
        db.prepared(QStringLiteral("DELETE FROM mqoutbox WHERE uid = ?1"), {e.uid}).step();
        const auto was = stamps_.constFind(e.uid);
        undo.stamps.emplace_back(e.uid, was == stamps_.constEnd() ? std::nullopt
                                                                  : std::optional<Stamp>(*was));
        stamps_.insert(e.uid, e.stamp);
    }
    if (clock_ != clockBefore) saveCounters(db);
    if (named) {
        named->naming(a.rowids);
        naming.named = named;
    }
    t.commit();
    undo.committed = true;
    a.bands.removeDuplicates();
    return a;
}

std::vector<MultiOpStore::Outgoing> MultiOpStore::outbox() {
    return outbox(0, -1);
}

std::vector<MultiOpStore::Outgoing> MultiOpStore::outbox(qint64 after, int limit) {
    std::vector<Outgoing> out;
    for (const QStringList& r :
         db_.query(QStringLiteral("SELECT rowid, uid, payload FROM mqoutbox "
                                  "WHERE rowid > CAST(?1 AS INTEGER) ORDER BY rowid "
                                  "LIMIT CAST(?2 AS INTEGER)"),
                   {QString::number(after), QString::number(limit)}))
        out.push_back({r[0].toLongLong(), r[1], r[2].toUtf8()});
    return out;
}

void MultiOpStore::delivered(const QList<qint64>& ids) {
    // One transaction for a burst of acknowledgements: one wait for the disk, not one each.
    LogStore::KnownWrites known(log_);
    Transaction t(db_);
    for (qint64 id : ids)
        db_.prepared(QStringLiteral("DELETE FROM mqoutbox WHERE rowid = ?1"), {QString::number(id)})
            .step();
    t.commit();
}

void MultiOpStore::delivered(const std::vector<Outgoing>& sent) {
    LogStore::KnownWrites known(log_);
    Transaction t(db_);
    for (const Outgoing& o : sent)
        db_.prepared(QStringLiteral("DELETE FROM mqoutbox WHERE rowid = ?1 AND payload = ?2"),
                     {QString::number(o.id), QString::fromUtf8(o.payload)})
            .step();
    t.commit();
}

QString MultiOpStore::epoch() {
    return db_.scalar(QStringLiteral("SELECT v FROM mqmeta WHERE k = 'epoch'"));
}

void MultiOpStore::setEpoch(const QString& epoch) {
    LogStore::KnownWrites known(log_);
    db_.run(QStringLiteral("INSERT OR REPLACE INTO mqmeta (k, v) VALUES ('epoch', ?1)"), {epoch});
}

int MultiOpStore::requeueAll() {
    LogStore::KnownWrites known(log_);
    db_.exec(QStringLiteral("INSERT OR REPLACE INTO mqoutbox (uid, payload) SELECT uid, payload "
                            "FROM mqqso"));
    return outboxSize();
}

QString MultiOpStore::noteClaim(qint64 block, const QString& node) {
    const QString blk = QString::number(block);
    LogStore::KnownWrites known(log_);
    db_.run(QStringLiteral("INSERT OR IGNORE INTO mqblock (blk, node) VALUES (CAST(?1 AS INTEGER), "
                           "?2)"),
            {blk, node});
    return db_.scalar(QStringLiteral("SELECT node FROM mqblock WHERE blk = CAST(?1 AS INTEGER)"),
                      {blk});
}

QString MultiOpStore::originOf(qint64 rowid) {
    return db_.scalar(QStringLiteral("SELECT origin FROM mqqso WHERE qrowid = ?1 AND del = '0'"),
                      {QString::number(rowid)});
}

QList<qint64> MultiOpStore::blocksOf(const QString& node) {
    QList<qint64> out;
    for (const QString& b :
         db_.column(QStringLiteral("SELECT blk FROM mqblock WHERE node = ?1 ORDER BY blk"), {node}))
        out << b.toLongLong();
    return out;
}

qint64 MultiOpStore::lastBlock() {
    const QString b = db_.scalar(QStringLiteral("SELECT max(blk) FROM mqblock"));
    return b.isEmpty() ? -1 : b.toLongLong();
}

int MultiOpStore::outboxSize() {
    return db_.scalar(QStringLiteral("SELECT count(*) FROM mqoutbox")).toInt();
}

} // namespace hfc

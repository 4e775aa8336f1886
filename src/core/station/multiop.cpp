#include "station/multiop.h"

#include "data/db.h"
#include "log/logstore.h"
#include "station/settings.h"

#include <QDateTime>
#include <QFile>
#include <QMetaObject>
#include <QTimer>
#include <QtDebug>
#include <algorithm>
#include <mosquitto.h>
#include <mutex>
#include <sqlite3.h>
#include <utility>

namespace hfc {

namespace {
constexpr int kQos = 1;        // at least once: applying twice changes nothing
constexpr int kKeepAlive = 10; // seconds: a dead computer shows offline soon
// Outbox entries on their way at once. libmosquitto walks its whole queue of unacknowledged
// messages at each acknowledgement, so handing it thousands after a partition costs minutes;
// a window keeps its queue short and the link busy.
constexpr int kWindow = 200;
} // namespace

// The writer of others' events: its own connection to the log file, used only on its thread.
class MultiOp::Writer : public QObject {
  public:
    Db db;
    std::unique_ptr<LogStore> log;
};

bool MultiOp::configured(const StationSettings& s) {
    return !s.broker.isEmpty();
}

QString MultiOp::settingsProblem(const StationSettings& s) {
    QString host;
    quint16 port = 0;
    if (!splitHostPort(s.broker, host, port))
        return QStringLiteral("адрес брокера «%1» не в виде ХОСТ:ПОРТ").arg(s.broker);
    if (!multiop::validName(s.logid))
        return QStringLiteral("имя общего журнала (logid) пусто или содержит / + #");
    if (!multiop::validName(s.node))
        return QStringLiteral("имя компьютера (node) пусто или содержит / + #");
    return {};
}

MultiOp::MultiOp(LogStore& log, const StationSettings& s, QObject* parent)
    : QObject(parent), db_(log.db()), log_(log), logid_(s.logid), node_(s.node), user_(s.user),
      password_(s.password), cafile_(s.cafile), store_(log, s.logid, s.node) {
    splitHostPort(s.broker, host_, port_);
    status_.node = node_;
}

MultiOp::~MultiOp() {
    if (db_.handle()) sqlite3_update_hook(db_.handle(), nullptr, nullptr);
    if (mosq_) {
        // Say goodbye properly so the others see this computer offline at once.
        status_.online = false;
        const QByteArray t = multiop::nodeTopic(logid_, node_).toUtf8();
        const QByteArray p = multiop::encodeStatus(status_);
        if (connected_)
            mosquitto_publish(mosq_, nullptr, t.constData(), int(p.size()), p.constData(), kQos,
                              true);
        mosquitto_disconnect(mosq_);
        if (loopRunning_) mosquitto_loop_stop(mosq_, false);
        mosquitto_destroy(mosq_);
    }
    if (writer_) {
        // A batch being written is finished first; one not begun comes again from the broker.
        writerThread_.quit();
        writerThread_.wait();
        delete writer_;
    }
}

void MultiOp::start() {
    store_.open();
    // Changes made while the program was not running, or cut off by a crash, go out first.
    store_.collectAll();
    sqlite3_update_hook(db_.handle(), &MultiOp::onUpdate, this);
    startWriter();

    static std::once_flag init;
    std::call_once(init, [] { mosquitto_lib_init(); });
    const QByteArray clientId =
        (QStringLiteral("hfcontest-") + logid_ + QLatin1Char('-') + node_).toUtf8();
    mosq_ = mosquitto_new(clientId.constData(), true, this);
    if (!mosq_) {
        qWarning("multiop: mosquitto_new failed");
        return;
    }
    if (!user_.isEmpty())
        mosquitto_username_pw_set(mosq_, user_.toUtf8().constData(),
                                  password_.toUtf8().constData());
    if (!cafile_.isEmpty() &&
        mosquitto_tls_set(mosq_, QFile::encodeName(cafile_).constData(), nullptr, nullptr, nullptr,
                          nullptr) != MOSQ_ERR_SUCCESS)
        qWarning("multiop: the CA file %s cannot be used", qPrintable(cafile_));
    mosquitto_connect_callback_set(mosq_, &MultiOp::onConnect);
    mosquitto_disconnect_callback_set(mosq_, &MultiOp::onDisconnect);
    mosquitto_publish_callback_set(mosq_, &MultiOp::onPublish);
    mosquitto_message_callback_set(mosq_, &MultiOp::onMessage);
    mosquitto_subscribe_callback_set(mosq_, &MultiOp::onSubscribe);
    mosquitto_int_option(mosq_, MOSQ_OPT_SEND_MAXIMUM, kWindow);
    mosquitto_reconnect_delay_set(mosq_, 1, 2, false); // a LAN: try again soon
    const QByteArray will =
        multiop::encodeStatus(multiop::NodeStatus{node_, false, {}, {}, {}, {}, {}, {}});
    const QByteArray willTopic = multiop::nodeTopic(logid_, node_).toUtf8();
    mosquitto_will_set(mosq_, willTopic.constData(), int(will.size()), will.constData(), kQos,
                       true);
    tryConnect();
}

// Opens the writer's connection on its thread. Without one (a log that is no file, or one
// that cannot be opened twice) others' events are written on this thread as before.
void MultiOp::startWriter() {
    const char* file = sqlite3_db_filename(db_.handle(), "main");
    if (!file || !*file) return;
    const QString path = QString::fromUtf8(file);
    // The same durability as the window's own writes.
    const QString sync = db_.scalar(QStringLiteral("PRAGMA synchronous"));
    auto* w = new Writer;
    w->moveToThread(&writerThread_);
    writerThread_.setObjectName(QStringLiteral("multiop-writer"));
    writerThread_.start();
    bool ok = false;
    QMetaObject::invokeMethod(
        w,
        [w, path, sync, &ok] {
            try {
                w->db.open(path, false);
                w->db.exec(QStringLiteral("PRAGMA synchronous=%1").arg(sync.toInt()));
                w->log = std::make_unique<LogStore>(w->db);
                ok = true;
            } catch (const DbError& e) {
                qWarning("multiop: the writer's connection: %s", e.what());
            }
        },
        Qt::BlockingQueuedConnection);
    if (ok) {
        writer_ = w;
        return;
    }
    writerThread_.quit();
    writerThread_.wait();
    delete w;
}

// A broker that is not there yet is no error: the log works alone and the first connection is
// tried again each second. Once the network thread runs, it reconnects by itself.
void MultiOp::tryConnect() {
    if (loopRunning_) return;
    if (mosquitto_connect_async(mosq_, host_.toUtf8().constData(), port_, kKeepAlive) ==
        MOSQ_ERR_SUCCESS) {
        loopRunning_ = mosquitto_loop_start(mosq_) == MOSQ_ERR_SUCCESS;
        if (!loopRunning_) qWarning("multiop: no network thread");
        return;
    }
    QTimer::singleShot(1000, this, [this] { tryConnect(); });
}

int MultiOp::pending() {
    return store_.outboxSize();
}

// ------------------------------------------------------------------ libmosquitto's thread
// These run on the network thread and only hand over to this object's thread.

void MultiOp::onConnect(mosquitto*, void* self, int rc) {
    auto* me = static_cast<MultiOp*>(self);
    if (rc != 0) {
        qWarning("multiop: broker refused the connection (%d)", rc);
        return;
    }
    QMetaObject::invokeMethod(
        me, [me] { me->connectedNow(); }, Qt::QueuedConnection);
}

void MultiOp::onDisconnect(mosquitto*, void* self, int) {
    auto* me = static_cast<MultiOp*>(self);
    QMetaObject::invokeMethod(
        me, [me] { me->disconnectedNow(); }, Qt::QueuedConnection);
}

void MultiOp::onPublish(mosquitto*, void* self, int mid) {
    auto* me = static_cast<MultiOp*>(self);
    QMetaObject::invokeMethod(
        me,
        [me, mid] {
            const auto it = me->inflight_.constFind(mid);
            if (it == me->inflight_.constEnd()) return;
            me->inflightIds_.remove(it->id);
            me->acked_.push_back(*it);
            me->inflight_.erase(it);
            if (me->ackQueued_) return;
            me->ackQueued_ = true;
            QMetaObject::invokeMethod(
                me, [me] { me->ackedNow(); }, Qt::QueuedConnection);
        },
        Qt::QueuedConnection);
}

void MultiOp::onSubscribe(mosquitto*, void* self, int mid, int, const int*) {
    auto* me = static_cast<MultiOp*>(self);
    QMetaObject::invokeMethod(
        me,
        [me, mid] {
            if (mid != me->logSubscription_) return;
            // The epoch's retained copy (if the broker has one) came before this answer; a
            // moment's grace all the same, then a broker without one gets a new epoch. The
            // claimed serial blocks have come by then too, so a new claim goes past them.
            QTimer::singleShot(300, me, [me] {
                me->epochCheck();
                me->reserveSerials(me->wantIndex_);
            });
        },
        Qt::QueuedConnection);
}

void MultiOp::onMessage(mosquitto*, void* self, const mosquitto_message* m) {
    auto* me = static_cast<MultiOp*>(self);
    QString topic = QString::fromUtf8(m->topic);
    QByteArray payload(static_cast<const char*>(m->payload), m->payloadlen);
    QMetaObject::invokeMethod(
        me, [me, topic, payload] { me->received(topic, payload); }, Qt::QueuedConnection);
}

// SQLite calls this on our thread, inside the write, after the change of each row.
void MultiOp::onUpdate(void* self, int, const char* dbName, const char* table, long long rowid) {
    auto* me = static_cast<MultiOp*>(self);
    if (me->applying_ || qstrcmp(dbName, "main") != 0 || qstrcmp(table, "tbllog") != 0) return;
    me->touched_ << rowid;
    if (me->collectQueued_) return;
    me->collectQueued_ = true;
    // After the write's transaction has ended: the change is on disk before it becomes an event.
    QMetaObject::invokeMethod(
        me, [me] { me->flushLocal(); }, Qt::QueuedConnection);
}

// ------------------------------------------------------------------ this object's thread

void MultiOp::flushLocal() {
    if (applyInFlight_) {
        collectQueued_ = true; // taken up when the writer is done
        return;
    }
    collectQueued_ = false;
    if (touched_.isEmpty()) return;
    // A write still inside an open transaction is taken at the next turn.
    if (!sqlite3_get_autocommit(db_.handle())) {
        collectQueued_ = true;
        QTimer::singleShot(10, this, [this] { flushLocal(); });
        return;
    }
    QList<qint64> rows = std::exchange(touched_, {});
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    try {
        if (store_.collect(rows) > 0) {
            emit bookkeepingWritten();
            sendOutbox();
        }
    } catch (const DbError& e) {
        // Nothing lost: the next start compares the whole log again.
        qWarning("multiop: %s", e.what());
    }
}

void MultiOp::ackedNow() {
    if (applyInFlight_) return; // ackQueued_ stays: taken up when the writer is done
    ackQueued_ = false;
    if (acked_.empty() || !sqlite3_get_autocommit(db_.handle())) {
        if (!acked_.empty()) QTimer::singleShot(10, this, [this] { ackedNow(); });
        return;
    }
    try {
        store_.delivered(std::exchange(acked_, {}));
    } catch (const DbError& e) {
        // The entries go out once more at the next connection; applying twice changes nothing.
        qWarning("multiop: %s", e.what());
    }
    emit bookkeepingWritten();
    sendOutbox(); // the window has room again
}

void MultiOp::connectedNow() {
    connected_ = true;
    // The epoch first, on its own: the broker answers subscriptions in order and sends each
    // one's retained messages before answering the next, so the epoch is known before the
    // log's retained flood (thousands of QSOs after a partition) has even begun.
    epochSeen_ = false;
    const QString root = multiop::logTopicRoot(logid_);
    const QByteArray epochTopic = (root + QStringLiteral("epoch")).toUtf8();
    mosquitto_subscribe(mosq_, nullptr, epochTopic.constData(), kQos);
    const QByteArray sub = (root + QLatin1Char('#')).toUtf8();
    mosquitto_subscribe(mosq_, &logSubscription_, sub.constData(), kQos);
    inflight_.clear();
    inflightIds_.clear(); // whatever was on its way without an answer goes again
    claiming_ = -1;
    status_.online = true;
    publishStatus();
    sendOutbox();
    emit connectedChanged(true);
}

// The broker's state has a name (its epoch, a retained message of its own). A broker that
// comes back with the log keeps it; one that lost the log (a new computer, no persistence)
// gets a new name, and every computer then puts back all it holds.
void MultiOp::epochCheck() {
    if (!connected_ || epochSeen_) return;
    const QString fresh =
        node_ + QLatin1Char('-') + QString::number(QDateTime::currentMSecsSinceEpoch());
    const QByteArray t = (multiop::logTopicRoot(logid_) + QStringLiteral("epoch")).toUtf8();
    const QByteArray p = fresh.toUtf8();
    mosquitto_publish(mosq_, nullptr, t.constData(), int(p.size()), p.constData(), kQos, true);
    epochHeard(fresh);
}

void MultiOp::epochHeard(const QString& epoch) {
    epochSeen_ = true;
    const QString known = store_.epoch();
    if (epoch == known) return;
    store_.setEpoch(epoch);
    // A computer that never saw a broker holds nothing the others lack but its own QSOs,
    // which are in the outbox already.
    if (known.isEmpty()) return;
    for (qint64 b : store_.blocksOf(node_)) publishClaim(b);
    qWarning("multiop: the broker's log is new (%s, was %s): all held states go out again",
             qPrintable(epoch), qPrintable(known));
    if (store_.requeueAll() > 0) {
        emit bookkeepingWritten();
        sendOutbox();
    }
}

void MultiOp::disconnectedNow() {
    if (!connected_) return;
    connected_ = false;
    inflight_.clear();
    inflightIds_.clear();
    emit connectedChanged(false);
}

// Sends the outbox in rowid order, at most a window at a time; each acknowledgement makes room
// for the next. Only the window's worth of the oldest entries is read, not the whole outbox.
void MultiOp::sendOutbox() {
    if (!connected_) return;
    // The writer may be dropping a change of ours that lost: it must not go out now.
    if (applyInFlight_) {
        sendPending_ = true;
        return;
    }
    const int room = kWindow - int(inflight_.size());
    if (room <= 0) return;
    for (const MultiOpStore::Outgoing& o : store_.outbox(0, int(inflightIds_.size()) + room)) {
        if (inflightIds_.contains(o.id)) continue;
        const QByteArray topic = multiop::qsoTopic(logid_, o.uid).toUtf8();
        int mid = 0;
        // Refused (the connection just went): everything left goes at the next connection.
        if (mosquitto_publish(mosq_, &mid, topic.constData(), int(o.payload.size()),
                              o.payload.constData(), kQos, true) != MOSQ_ERR_SUCCESS)
            return;
        inflight_.insert(mid, o);
        inflightIds_.insert(o.id);
    }
}

void MultiOp::setStatus(const multiop::NodeStatus& s) {
    multiop::NodeStatus next = s;
    next.node = node_;
    next.online = status_.online;
    // Only a change goes out: each status heard makes the others refresh their panels.
    if (next == status_) return;
    status_ = next;
    publishStatus();
}

void MultiOp::publishStatus() {
    if (!connected_) return;
    const QByteArray t = multiop::nodeTopic(logid_, node_).toUtf8();
    const QByteArray p = multiop::encodeStatus(status_);
    mosquitto_publish(mosq_, nullptr, t.constData(), int(p.size()), p.constData(), kQos, true);
}

std::optional<qint64> MultiOp::stationSerial(qint64 index) {
    if (index < 0) return std::nullopt;
    const QList<qint64> blocks = store_.blocksOf(node_);
    const qint64 i = index / kSerialBlock;
    if (i >= blocks.size()) return std::nullopt;
    return blocks[i] * kSerialBlock + index % kSerialBlock + 1;
}

// kSpareBlocks spare: a computer cut off from the broker numbers another fifty QSOs or more
// without a number another computer could send.
void MultiOp::reserveSerials(qint64 index) {
    wantIndex_ = std::max(wantIndex_, index);
    if (wantIndex_ < 0 || !connected_ || !epochSeen_ || claiming_ >= 0) return;
    const qint64 held = qint64(store_.blocksOf(node_).size()) * kSerialBlock;
    if (held >= wantIndex_ + kSpareBlocks * kSerialBlock) return;
    claiming_ = store_.lastBlock() + 1;
    publishClaim(claiming_);
}

void MultiOp::publishClaim(qint64 block) {
    if (!connected_) return;
    const QByteArray t =
        (multiop::logTopicRoot(logid_) + QStringLiteral("serial/") + QString::number(block))
            .toUtf8();
    const QByteArray p = node_.toUtf8();
    mosquitto_publish(mosq_, nullptr, t.constData(), int(p.size()), p.constData(), kQos, true);
}

void MultiOp::claimHeard(qint64 block, const QString& node) {
    QString owner;
    try {
        owner = store_.noteClaim(block, node);
    } catch (const DbError& e) {
        qWarning("multiop: %s", e.what());
        return;
    }
    // A later claim of our block took the broker's retained copy: ours goes back there, so a
    // computer that starts later learns the block is taken by us.
    if (owner == node_ && node != node_) publishClaim(block);
    if (block != claiming_) return;
    claiming_ = -1;
    if (owner == node_) emit serialsReserved();
    reserveSerials(wantIndex_); // lost to another computer, or more to come: the next block
}

void MultiOp::received(const QString& topic, const QByteArray& payload) {
    const QString root = multiop::logTopicRoot(logid_);
    if (!topic.startsWith(root)) return;
    const QString rest = topic.mid(root.size());
    if (rest.startsWith(QLatin1String("node/"))) {
        const auto s = multiop::decodeStatus(payload);
        if (!s || s->node != rest.mid(5)) {
            qWarning("multiop: malformed status on %s skipped", qPrintable(topic));
            return;
        }
        if (s->node == node_) return;
        peers_.insert(s->node, *s);
        emit peersChanged();
        return;
    }
    if (rest == QLatin1String("epoch")) {
        if (multiop::validName(QString::fromUtf8(payload))) epochHeard(QString::fromUtf8(payload));
        return;
    }
    if (rest.startsWith(QLatin1String("serial/"))) {
        bool ok = false;
        const qint64 block = rest.mid(7).toLongLong(&ok);
        const QString node = QString::fromUtf8(payload);
        // Four digits of serial numbers at most.
        if (!ok || block < 0 || block >= 10000 / kSerialBlock || !multiop::validName(node)) {
            qWarning("multiop: malformed serial claim on %s skipped", qPrintable(topic));
            return;
        }
        claimHeard(block, node);
        return;
    }
    if (!rest.startsWith(QLatin1String("qso/")) || payload.isEmpty()) return;
    QString why;
    auto e = multiop::decode(payload, logid_, &why);
    if (!e || e->uid != rest.mid(4)) {
        qWarning("multiop: malformed event on %s skipped: %s", qPrintable(topic),
                 qPrintable(e ? QStringLiteral("topic and uid differ") : why));
        return;
    }
    inbox_.push_back(std::move(*e));
    if (applyQueued_) return;
    applyQueued_ = true;
    // Events arriving together (a catch-up) are applied in one transaction.
    QMetaObject::invokeMethod(
        this, [this] { applyReceived(); }, Qt::QueuedConnection);
}

void MultiOp::applyReceived() {
    applyQueued_ = false;
    if (inbox_.empty() || applyInFlight_) return; // in flight: the rest follows when it is done
    // Our own pending changes first: they must be stamped before others' versions are counted.
    flushLocal();
    if (!sqlite3_get_autocommit(db_.handle())) {
        applyQueued_ = true;
        QTimer::singleShot(10, this, [this] { applyReceived(); });
        return;
    }
    std::vector<multiop::QsoEvent> batch = std::exchange(inbox_, {});
    if (!writer_) {
        MultiOpStore::Applied a;
        applying_ = true;
        try {
            a = store_.apply(batch);
        } catch (const DbError& e) {
            // The retained copies come again at the next connection.
            qWarning("multiop: %s", e.what());
        }
        applying_ = false;
        appliedNow(a);
        return;
    }
    // The writer names its commit to this log's readers before it makes it, so the worked calls
    // read just the rows it changed.
    applyInFlight_ = true;
    QMetaObject::invokeMethod(
        writer_,
        [this, w = writer_, batch = std::move(batch)] {
            MultiOpStore::Applied a;
            try {
                a = store_.apply(batch, w->log.get(), &log_.namedCommits());
            } catch (const DbError& e) {
                qWarning("multiop: %s", e.what());
            }
            QMetaObject::invokeMethod(
                this, [this, a] { appliedNow(a); }, Qt::QueuedConnection);
        },
        Qt::QueuedConnection);
}

void MultiOp::appliedNow(const MultiOpStore::Applied& a) {
    applyInFlight_ = false;
    if (a.changed() > 0)
        emit logChanged(a.bands);
    else
        emit bookkeepingWritten();
    if (collectQueued_) flushLocal();
    if (ackQueued_) ackedNow();
    if (a.answered > 0 || std::exchange(sendPending_, false)) sendOutbox();
    if (!inbox_.empty() && !applyQueued_) {
        applyQueued_ = true;
        QMetaObject::invokeMethod(
            this, [this] { applyReceived(); }, Qt::QueuedConnection);
    }
}

} // namespace hfc

#pragma once
// The multi-operator link: this computer's log shared with the station's other computers
// through the station's MQTT broker. libmosquitto runs its network loop on its own thread;
// whatever it receives comes to this object's thread as a queued call, so nothing on the
// keystroke or commit path ever waits on the network. Others' events are written into the log by
// a writer of the link's own: a second connection to the file on a thread of its own, so that
// the window's thread does not wait for the disk on their account either (WAL lets the window
// read meanwhile). Changes to tbllog are noticed through
// SQLite's update hook after they are on disk, turned into events in the outbox and sent when
// the broker is there; a crash in between loses none, since the next start compares the whole
// log with what was last published.
#include "station/multiopevent.h"
#include "station/multiopstore.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QThread>
#include <memory>
#include <optional>
#include <vector>

struct mosquitto;
struct mosquitto_message;

namespace hfc {

class Db;
class LogStore;
struct StationSettings;

class MultiOp : public QObject {
    Q_OBJECT
  public:
    // Does nothing on the network until start(). The settings must name a broker, a logid and
    // a node (configured() says so).
    MultiOp(LogStore& log, const StationSettings& s, QObject* parent = nullptr);
    ~MultiOp() override;
    static bool configured(const StationSettings& s);
    // A reason in Russian why the settings cannot be used, or "" when they can.
    static QString settingsProblem(const StationSettings& s);

    void start();
    bool connected() const { return connected_; }
    const QString& node() const { return node_; }
    int pending(); // events not yet delivered
    MultiOpStore& store() { return store_; }

    // What this computer tells the others (band, mode, frequency, operator, last QSO).
    void setStatus(const multiop::NodeStatus& s);
    // The other computers as last heard of, by name.
    const QHash<QString, multiop::NodeStatus>& peers() const { return peers_; }

    // A station-wide serial sequence: numbers are reserved in blocks through the broker, so two
    // computers never send the same one, and a reserve of blocks lets a computer cut off from
    // the broker go on numbering. stationSerial gives the index-th number (from 0) of this
    // computer's blocks, nullopt when the reserve is used up; reserveSerials keeps the reserve
    // ahead of index (claims go out while the broker is there).
    static constexpr int kSerialBlock = 10;
    // Blocks kept ahead of the next number: a partition of 50 QSOs (a quarter of an hour at a
    // run station's peak rate, longer than a router takes to start again) is numbered from the
    // reserve. What is left unused at the end is a gap in the numbers, which no sponsor counts.
    static constexpr int kSpareBlocks = 5;
    std::optional<qint64> stationSerial(qint64 index);
    void reserveSerials(qint64 index);

    // Takes tbllog changes made on this computer now instead of at the next turn of the
    // event loop.
    void flushLocal();

  signals:
    // Others' changes reached tbllog: the totals and grids must be brought up to date.
    void logChanged(const QStringList& bands);
    // Only the bookkeeping tables were written (no row of tbllog changed).
    void bookkeepingWritten();
    void peersChanged();
    void connectedChanged(bool connected);
    void serialsReserved(); // a block of serial numbers became this computer's

  private:
    static void onConnect(mosquitto*, void* self, int rc);
    static void onDisconnect(mosquitto*, void* self, int rc);
    static void onPublish(mosquitto*, void* self, int mid);
    static void onMessage(mosquitto*, void* self, const mosquitto_message* m);
    static void onSubscribe(mosquitto*, void* self, int mid, int count, const int* granted);
    static void onUpdate(void* self, int op, const char* db, const char* table, long long rowid);

    void connectedNow();
    void disconnectedNow();
    void received(const QString& topic, const QByteArray& payload);
    void applyReceived();
    void appliedNow(const MultiOpStore::Applied& a);
    void sendOutbox();
    void publishStatus();
    void epochHeard(const QString& epoch);
    void tryConnect();
    void startWriter();
    void ackedNow();
    void epochCheck();
    void claimHeard(qint64 block, const QString& node);
    void publishClaim(qint64 block);

    class Writer;
    Db& db_;
    LogStore& log_;
    QString logid_, node_, host_, user_, password_, cafile_;
    quint16 port_ = 0;
    MultiOpStore store_;
    mosquitto* mosq_ = nullptr;
    bool connected_ = false;
    bool loopRunning_ = false; // the network thread runs (after the first connection attempt)
    bool applying_ = false;    // our own writes of others' changes: not local changes
    QThread writerThread_;
    Writer* writer_ = nullptr; // lives on writerThread_; null: others' events are written here
    // A batch is being written by the writer, which then uses store_: nothing here writes
    // through store_ or sends the outbox until it is done.
    bool applyInFlight_ = false;
    bool sendPending_ = false; // the outbox was to be sent meanwhile
    QList<qint64> touched_;    // tbllog rows changed here since the last collect
    bool collectQueued_ = false;
    std::vector<multiop::QsoEvent> inbox_; // received, applied in one transaction per batch
    bool applyQueued_ = false;
    QHash<int, MultiOpStore::Outgoing> inflight_; // message id -> the outbox entry sent
    QSet<qint64> inflightIds_;                    // mqoutbox rowids on their way
    int logSubscription_ = 0;                     // message id of the subscription to the whole log
    std::vector<MultiOpStore::Outgoing> acked_;   // delivered, to leave the outbox in one go
    bool ackQueued_ = false;
    bool epochSeen_ = false; // the broker's epoch arrived since the last connection
    qint64 claiming_ = -1;   // the block claimed and not yet heard back
    qint64 wantIndex_ = -1;  // the serial index the reserve must stay ahead of
    multiop::NodeStatus status_;
    QHash<QString, multiop::NodeStatus> peers_;
};

} // namespace hfc

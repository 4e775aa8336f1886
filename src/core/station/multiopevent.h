#pragma once
// One change of the shared log as it travels between the station's computers: the whole state
// of one QSO after the change (or its tombstone), stamped so that every computer picks the
// same winner whatever order and however often the changes arrive.
#include <QByteArray>
#include <QMap>
#include <QString>
#include <optional>

namespace hfc::multiop {

// A Lamport version; the node name breaks ties so that no two changes are ever equal unless
// they are the same change.
struct Stamp {
    qint64 ver = 0;
    QString node;
    bool operator==(const Stamp&) const = default;
};
// a is later than b: every computer compares the same way.
bool newer(const Stamp& a, const Stamp& b);

struct QsoEvent {
    QString logid;
    QString uid;    // the QSO's name at the station: the computer that logged it, a dash, its seq
    QString origin; // the computer that logged the QSO (the log grid's column)
    qint64 seq = 0; // the changing computer's own count of changes
    Stamp stamp;    // version and the computer that made this change
    bool deleted = false;
    QMap<QString, QString> fields; // the log row's columns; empty for a tombstone
};

QByteArray encode(const QsoEvent& e);
// A payload off the network: nullopt (and why, for the log) when it is not a well-formed event
// of logid. Only the log row's own columns are taken, each of bounded size.
std::optional<QsoEvent> decode(const QByteArray& payload, const QString& logid,
                               QString* why = nullptr);

// Topic names. Everything of one shared log lives under hfcontest/LOGID/.
QString logTopicRoot(const QString& logid);
QString qsoTopic(const QString& logid, const QString& uid);
QString nodeTopic(const QString& logid, const QString& node);
// logid and node names go into topics: no MQTT wildcards, separators or control characters.
bool validName(const QString& name);

// What a computer tells the others about itself (retained; its will says it went offline).
struct NodeStatus {
    QString node;
    bool online = false;
    QString band, mode, freq, op, lastCall, lastTime;
    bool operator==(const NodeStatus&) const = default;
};
QByteArray encodeStatus(const NodeStatus& s);
std::optional<NodeStatus> decodeStatus(const QByteArray& payload);

} // namespace hfc::multiop

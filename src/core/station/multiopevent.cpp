#include "station/multiopevent.h"

#include "data/schema.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace hfc::multiop {

namespace {
constexpr qsizetype kMaxPayload = 16 * 1024; // a QSO row is a few hundred bytes
constexpr qsizetype kMaxField = 256;
constexpr qsizetype kMaxName = 64;
} // namespace

bool newer(const Stamp& a, const Stamp& b) {
    if (a.ver != b.ver) return a.ver > b.ver;
    return a.node > b.node;
}

bool validName(const QString& name) {
    if (name.isEmpty() || name.size() > kMaxName) return false;
    for (const QChar c : name)
        if (c == u'/' || c == u'+' || c == u'#' || c.unicode() < 0x20 || c.unicode() == 0x7f)
            return false;
    return true;
}

QString logTopicRoot(const QString& logid) {
    return QStringLiteral("hfcontest/") + logid + QLatin1Char('/');
}
QString qsoTopic(const QString& logid, const QString& uid) {
    return logTopicRoot(logid) + QStringLiteral("qso/") + uid;
}
QString nodeTopic(const QString& logid, const QString& node) {
    return logTopicRoot(logid) + QStringLiteral("node/") + node;
}

QByteArray encode(const QsoEvent& e) {
    QJsonObject o;
    o[QStringLiteral("logid")] = e.logid;
    o[QStringLiteral("uid")] = e.uid;
    o[QStringLiteral("origin")] = e.origin;
    o[QStringLiteral("seq")] = QString::number(e.seq);
    o[QStringLiteral("ver")] = QString::number(e.stamp.ver);
    o[QStringLiteral("node")] = e.stamp.node;
    o[QStringLiteral("del")] = e.deleted;
    if (!e.deleted) {
        QJsonObject f;
        for (auto it = e.fields.cbegin(); it != e.fields.cend(); ++it) f[it.key()] = it.value();
        o[QStringLiteral("qso")] = f;
    }
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

std::optional<QsoEvent> decode(const QByteArray& payload, const QString& logid, QString* why) {
    const auto fail = [why](const char* text) -> std::optional<QsoEvent> {
        if (why) *why = QString::fromLatin1(text);
        return std::nullopt;
    };
    if (payload.size() > kMaxPayload) return fail("payload too large");
    QJsonParseError err{};
    const QJsonDocument doc = QJsonDocument::fromJson(payload, &err);
    if (err.error != QJsonParseError::NoError || !doc.isObject()) return fail("not a JSON object");
    const QJsonObject o = doc.object();
    QsoEvent e;
    e.logid = o.value(QStringLiteral("logid")).toString();
    if (e.logid != logid) return fail("another log");
    e.uid = o.value(QStringLiteral("uid")).toString();
    e.origin = o.value(QStringLiteral("origin")).toString();
    e.stamp.node = o.value(QStringLiteral("node")).toString();
    if (!validName(e.uid) || !validName(e.origin) || !validName(e.stamp.node))
        return fail("bad uid or node");
    bool okVer = false, okSeq = false;
    e.stamp.ver = o.value(QStringLiteral("ver")).toString().toLongLong(&okVer);
    e.seq = o.value(QStringLiteral("seq")).toString().toLongLong(&okSeq);
    if (!okVer || !okSeq || e.stamp.ver <= 0 || e.seq < 0) return fail("bad version");
    const QJsonValue del = o.value(QStringLiteral("del"));
    if (!del.isBool()) return fail("bad delete flag");
    e.deleted = del.toBool();
    if (!e.deleted) {
        const QJsonValue q = o.value(QStringLiteral("qso"));
        if (!q.isObject()) return fail("no QSO");
        const QJsonObject f = q.toObject();
        for (const QString& col : logColumns()) {
            const QJsonValue v = f.value(col);
            if (v.isUndefined() || v.isNull()) continue;
            if (!v.isString() || v.toString().size() > kMaxField) return fail("bad field");
            e.fields.insert(col, v.toString());
        }
    }
    return e;
}

QByteArray encodeStatus(const NodeStatus& s) {
    QJsonObject o;
    o[QStringLiteral("node")] = s.node;
    o[QStringLiteral("online")] = s.online;
    o[QStringLiteral("band")] = s.band;
    o[QStringLiteral("mode")] = s.mode;
    o[QStringLiteral("freq")] = s.freq;
    o[QStringLiteral("op")] = s.op;
    o[QStringLiteral("last")] = s.lastCall;
    o[QStringLiteral("lasttime")] = s.lastTime;
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

std::optional<NodeStatus> decodeStatus(const QByteArray& payload) {
    if (payload.size() > kMaxPayload) return std::nullopt;
    const QJsonDocument doc = QJsonDocument::fromJson(payload);
    if (!doc.isObject()) return std::nullopt;
    const QJsonObject o = doc.object();
    NodeStatus s;
    s.node = o.value(QStringLiteral("node")).toString();
    if (!validName(s.node)) return std::nullopt;
    s.online = o.value(QStringLiteral("online")).toBool();
    const auto text = [&o](const char* key) {
        return o.value(QLatin1String(key)).toString().left(kMaxField);
    };
    s.band = text("band");
    s.mode = text("mode");
    s.freq = text("freq");
    s.op = text("op");
    s.lastCall = text("last");
    s.lastTime = text("lasttime");
    return s;
}

} // namespace hfc::multiop

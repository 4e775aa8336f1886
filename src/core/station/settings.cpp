#include "station/settings.h"

#include <QDir>
#include <QSettings>

namespace hfc {

StationSettings StationSettings::load(QSettings& s) {
    StationSettings r;
    r.rigctld = s.value(QStringLiteral("rig/rigctld")).toString().trimmed();
    r.rigModel = s.value(QStringLiteral("rig/model"), 0).toInt();
    r.rigPort = s.value(QStringLiteral("rig/port")).toString().trimmed();
    r.rigSpeed = s.value(QStringLiteral("rig/speed"), 0).toInt();
    r.ft1000mp = s.value(QStringLiteral("rig/ft1000mp")).toString().trimmed();
    r.clusterHost = s.value(QStringLiteral("cluster/host")).toString().trimmed();
    r.clusterLogin = s.value(QStringLiteral("cluster/login")).toString().trimmed();
    r.keyerBackend = s.value(QStringLiteral("keyer/backend"), r.keyerBackend).toString().trimmed();
    r.cwdaemon = s.value(QStringLiteral("keyer/cwdaemon"), r.cwdaemon).toString().trimmed();
    r.winkeyer = s.value(QStringLiteral("keyer/winkeyer")).toString().trimmed();
    r.esm = s.value(QStringLiteral("keyer/esm"), false).toBool();
    r.broker = s.value(QStringLiteral("multiop/broker")).toString().trimmed();
    r.logid = s.value(QStringLiteral("multiop/logid")).toString().trimmed();
    r.node = s.value(QStringLiteral("multiop/node")).toString().trimmed();
    r.user = s.value(QStringLiteral("multiop/user")).toString();
    r.password = s.value(QStringLiteral("multiop/password")).toString();
    r.cafile = s.value(QStringLiteral("multiop/cafile")).toString().trimmed();
    return r;
}

void StationSettings::save(QSettings& s) const {
    s.setValue(QStringLiteral("rig/rigctld"), rigctld);
    s.setValue(QStringLiteral("rig/model"), rigModel);
    s.setValue(QStringLiteral("rig/port"), rigPort);
    s.setValue(QStringLiteral("rig/speed"), rigSpeed);
    s.setValue(QStringLiteral("rig/ft1000mp"), ft1000mp);
    s.setValue(QStringLiteral("cluster/host"), clusterHost);
    s.setValue(QStringLiteral("cluster/login"), clusterLogin);
    s.setValue(QStringLiteral("keyer/backend"), keyerBackend);
    s.setValue(QStringLiteral("keyer/cwdaemon"), cwdaemon);
    s.setValue(QStringLiteral("keyer/winkeyer"), winkeyer);
    s.setValue(QStringLiteral("keyer/esm"), esm);
    s.setValue(QStringLiteral("multiop/broker"), broker);
    s.setValue(QStringLiteral("multiop/logid"), logid);
    s.setValue(QStringLiteral("multiop/node"), node);
    s.setValue(QStringLiteral("multiop/user"), user);
    s.setValue(QStringLiteral("multiop/password"), password);
    s.setValue(QStringLiteral("multiop/cafile"), cafile);
}

QString StationSettings::defaultPath() {
    QString base = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (base.isEmpty()) base = QDir::homePath() + QStringLiteral("/.config");
    return base + QStringLiteral("/hfcontest/hfcontest.conf");
}

bool splitHostPort(const QString& text, QString& host, quint16& port) {
    const int colon = text.lastIndexOf(QLatin1Char(':'));
    if (colon <= 0) return false;
    bool ok = false;
    const uint p = text.mid(colon + 1).toUInt(&ok);
    if (!ok || p == 0 || p > 65535) return false;
    host = text.left(colon).trimmed();
    port = static_cast<quint16>(p);
    return !host.isEmpty();
}

} // namespace hfc

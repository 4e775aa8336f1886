#pragma once
// What a person sets once per station: the rig, the cluster, the keyer backend and the
// multi-operator link. Kept in $XDG_CONFIG_HOME/hfcontest/hfcontest.conf (QSettings INI), apart
// from what belongs to a log (that lives in the log database).
#include <QString>

class QSettings;

namespace hfc {

struct StationSettings {
    // [rig]
    QString rigctld;  // HOST:PORT of Hamlib's rigctld; empty: no rig through the daemon
    int rigModel = 0; // Hamlib model number of a radio on this computer; 0: none
    QString rigPort;  // its serial device
    int rigSpeed = 0; // its baud rate; 0: the model's default
    QString ft1000mp; // serial device for the FT-1000MP band command; empty: not sent
    // [cluster]
    QString clusterHost;  // HOST:PORT of a DX cluster (telnet)
    QString clusterLogin; // empty: the station's full call
    // [keyer]
    QString keyerBackend = QStringLiteral("serial"); // serial, cwdaemon, winkeyer, rigctld
    QString cwdaemon = QStringLiteral("127.0.0.1:6789");
    QString winkeyer; // serial device
    bool esm = false; // Enter sends message
    // [multiop]
    QString broker; // HOST:PORT of the station's MQTT broker; empty: one computer
    QString logid, node, user, password;
    QString cafile; // CA certificate of a broker that speaks TLS; empty: plain TCP

    static StationSettings load(QSettings& s);
    void save(QSettings& s) const;
    // The conf file the program and the script driver both read: $XDG_CONFIG_HOME/hfcontest/
    // hfcontest.conf, else ~/.config/hfcontest/hfcontest.conf.
    static QString defaultPath();
};

// "host:port" split; false when the port is missing or not a number.
bool splitHostPort(const QString& text, QString& host, quint16& port);

} // namespace hfc

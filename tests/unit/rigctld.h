#pragma once
// The real Hamlib daemon for tests: `rigctld -m 1` (Hamlib's dummy radio) on a free local port,
// and `rigctl` through it to turn the radio's knobs as an operator would.
#include "../support/freeport.h"

#include <QProcess>
#include <QTcpSocket>
#include <QThread>
#include <csignal>

namespace hfc::test {

class Rigctld {
  public:
    Rigctld() : port_(freePort()) {}
    ~Rigctld() { stop(); }

    quint16 port() const { return port_; }
    QString address() const { return QStringLiteral("127.0.0.1:%1").arg(port_); }

    // Starts the daemon and waits until it takes connections. A port another test's daemon
    // took meanwhile (tests run side by side) makes ours exit at once while the other answers
    // in its place: then another port is tried.
    bool start() {
        for (int attempt = 0; attempt < 5; ++attempt) {
            if (attempt) port_ = freePort();
            proc_.setProgram(QStringLiteral("rigctld"));
            proc_.setArguments({"-m", "1", "-T", "127.0.0.1", "-t", QString::number(port_)});
            proc_.setStandardOutputFile(QProcess::nullDevice());
            proc_.setStandardErrorFile(QProcess::nullDevice());
            proc_.start();
            if (!proc_.waitForStarted(5000)) return false;
            if (listening() && !proc_.waitForFinished(200)) return true;
            stop();
        }
        return false;
    }
    void stop() {
        if (proc_.state() == QProcess::NotRunning) return;
        cont();
        proc_.kill();
        proc_.waitForFinished(5000);
    }
    void freeze() { ::kill(pid_t(proc_.processId()), SIGSTOP); }
    void cont() { ::kill(pid_t(proc_.processId()), SIGCONT); }

    // One rigctl command through the daemon ("F 21025000", "M USB 2400", "f"); its output.
    QString rigctl(const QString& command) const {
        QProcess p;
        QStringList args{"-m", "2", "-r", address()};
        args << command.split(QLatin1Char(' '));
        p.start(QStringLiteral("rigctl"), args);
        p.waitForFinished(10000);
        return QString::fromLocal8Bit(p.readAllStandardOutput()).trimmed();
    }

  private:
    bool listening() {
        for (int i = 0; i < 100 && proc_.state() == QProcess::Running; ++i) {
            QTcpSocket s;
            s.connectToHost(QStringLiteral("127.0.0.1"), port_);
            if (s.waitForConnected(100)) return true;
            QThread::msleep(50);
        }
        return false;
    }

    quint16 port_;
    QProcess proc_;
};

} // namespace hfc::test

#pragma once
// The telnet session with a DX cluster: connects, answers the login prompt with the station's
// call, hands every line on, sends the operator's commands, and after a drop (or a host that
// does not answer) tries again after a wait that doubles up to a minute. Everything runs on the
// window's event loop without ever blocking it: name lookup, connect and reads are asynchronous.
#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <functional>

class QTcpSocket;
class QTimer;

namespace hfc {

class ClusterSession : public QObject {
    Q_OBJECT
  public:
    enum class State { Off, Connecting, Connected, Waiting };

    explicit ClusterSession(QObject* parent = nullptr);
    ~ClusterSession() override;

    // Starts (or restarts) the session with "HOST:PORT" (HOST alone: telnet's port 23). The
    // login call is asked for when the prompt comes, so a call typed meanwhile is the one sent.
    // False, with the reason in stateText(), when the address cannot be used.
    bool start(const QString& hostPort, std::function<QString()> loginCall);
    void stop();
    // Sends one command line; false when there is no connection to send it on.
    bool send(const QString& command);

    State state() const { return state_; }
    QString stateText() const; // Russian, for the panel
    const QString& host() const { return hostPort_; }

    // The waits between attempts (first, doubled each time up to the last) and how long an
    // attempt may take. Tests shorten them.
    void setBackoff(int firstMs, int maxMs);
    void setConnectTimeout(int ms);
    int waitMs() const { return currentWaitMs_; } // the wait under way while Waiting

  signals:
    void lineReceived(const QString& line);
    void stateChanged();

  private:
    void connectNow();
    void setState(State s);
    void onReadyRead();
    void onClosed();
    void answerLogin(const QString& pending);
    QString decode(const QByteArray& bytes) const;

    QTcpSocket* socket_;
    QTimer* retry_;
    QTimer* timeout_;
    QString hostPort_, host_;
    quint16 port_ = 0;
    std::function<QString()> loginCall_;
    State state_ = State::Off;
    QString problem_; // why the session is off
    QByteArray buffer_;
    bool loginSent_ = false;
    bool stopping_ = false;
    int firstWaitMs_ = 2000, maxWaitMs_ = 60000, waitMs_ = 2000, currentWaitMs_ = 0;
    int connectTimeoutMs_ = 15000;
    QElapsedTimer connectedFor_;
};

} // namespace hfc

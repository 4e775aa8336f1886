#include "station/cluster.h"

#include "station/settings.h"

#include <QStringDecoder>
#include <QTcpSocket>
#include <QTimer>

namespace hfc {

namespace {

// A connection that lasted this long was a working one: the next drop starts the waits over.
constexpr qint64 kSteadyMs = 20000;

// Telnet commands (IAC ...) are not text; the cluster's option offers go unanswered, which
// every cluster takes as "no options".
QByteArray stripTelnet(const QByteArray& in) {
    QByteArray out;
    out.reserve(in.size());
    for (qsizetype i = 0; i < in.size(); ++i) {
        const auto c = static_cast<unsigned char>(in[i]);
        if (c != 0xff) {
            out.append(in[i]);
            continue;
        }
        if (i + 1 >= in.size()) break;
        const auto cmd = static_cast<unsigned char>(in[i + 1]);
        if (cmd == 0xff) { // an escaped 255 byte
            out.append(in[i + 1]);
            ++i;
        } else if (cmd >= 0xfb && cmd <= 0xfe) { // WILL, WONT, DO, DONT and their option
            i += 2;
        } else {
            ++i;
        }
    }
    return out;
}

bool isLoginPrompt(const QString& text) {
    const QString t = text.trimmed().toLower();
    return t.endsWith(QLatin1String("login:")) || t.endsWith(QLatin1String("call:")) ||
           t.endsWith(QLatin1String("callsign:"));
}

} // namespace

ClusterSession::ClusterSession(QObject* parent)
    : QObject(parent), socket_(new QTcpSocket(this)), retry_(new QTimer(this)),
      timeout_(new QTimer(this)) {
    retry_->setSingleShot(true);
    timeout_->setSingleShot(true);
    connect(retry_, &QTimer::timeout, this, &ClusterSession::connectNow);
    // A host that never answers the connect (a dead route) would otherwise hold the attempt
    // for minutes.
    connect(timeout_, &QTimer::timeout, this, [this] {
        if (socket_->state() != QAbstractSocket::ConnectedState) socket_->abort();
    });
    connect(socket_, &QTcpSocket::connected, this, [this] {
        timeout_->stop();
        connectedFor_.start();
        loginSent_ = false;
        buffer_.clear();
        socket_->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
        setState(State::Connected);
    });
    connect(socket_, &QTcpSocket::readyRead, this, &ClusterSession::onReadyRead);
    connect(socket_, &QAbstractSocket::stateChanged, this, [this](QAbstractSocket::SocketState s) {
        if (s == QAbstractSocket::UnconnectedState) onClosed();
    });
}

ClusterSession::~ClusterSession() {
    stopping_ = true;
    socket_->abort();
}

bool ClusterSession::start(const QString& hostPort, std::function<QString()> loginCall) {
    stop();
    hostPort_ = hostPort.trimmed();
    loginCall_ = std::move(loginCall);
    problem_.clear();
    if (!hostPort_.contains(QLatin1Char(':')) && !hostPort_.isEmpty()) {
        host_ = hostPort_;
        port_ = 23;
    } else if (!splitHostPort(hostPort_, host_, port_)) {
        problem_ = QStringLiteral("неверный адрес «%1» (нужно ХОСТ:ПОРТ)").arg(hostPort_);
        setState(State::Off);
        return false;
    }
    waitMs_ = firstWaitMs_;
    connectNow();
    return true;
}

void ClusterSession::stop() {
    stopping_ = true;
    retry_->stop();
    timeout_->stop();
    socket_->abort();
    stopping_ = false;
    buffer_.clear();
    setState(State::Off);
}

void ClusterSession::connectNow() {
    if (host_.isEmpty()) return;
    setState(State::Connecting);
    timeout_->start(connectTimeoutMs_);
    socket_->connectToHost(host_, port_);
}

void ClusterSession::onClosed() {
    timeout_->stop();
    if (stopping_ || host_.isEmpty() || state_ == State::Off) return;
    // Whatever came without a line end before the drop is still a line.
    if (!buffer_.isEmpty()) {
        const QString last = decode(buffer_);
        buffer_.clear();
        emit lineReceived(last);
    }
    if (connectedFor_.isValid() && connectedFor_.elapsed() >= kSteadyMs) waitMs_ = firstWaitMs_;
    connectedFor_.invalidate();
    currentWaitMs_ = waitMs_;
    retry_->start(waitMs_);
    setState(State::Waiting);
    waitMs_ = std::min(waitMs_ * 2, maxWaitMs_);
}

void ClusterSession::onReadyRead() {
    buffer_.append(stripTelnet(socket_->readAll()));
    qsizetype nl;
    while ((nl = buffer_.indexOf('\n')) >= 0) {
        QByteArray raw = buffer_.left(nl);
        buffer_.remove(0, nl + 1);
        const QString line = decode(raw);
        if (!loginSent_ && isLoginPrompt(line)) answerLogin(line);
        emit lineReceived(line);
    }
    // The login prompt waits for the answer on its own line, with no line end.
    if (!loginSent_ && !buffer_.isEmpty()) {
        const QString pending = decode(buffer_);
        if (isLoginPrompt(pending)) {
            buffer_.clear();
            emit lineReceived(pending);
            answerLogin(pending);
        }
    }
}

void ClusterSession::answerLogin(const QString&) {
    const QString call = loginCall_ ? loginCall_().trimmed() : QString();
    // Without a call the prompt stays for the operator to answer on the command line.
    if (call.isEmpty()) return;
    loginSent_ = true;
    socket_->write(call.toLatin1() + "\r\n");
}

bool ClusterSession::send(const QString& command) {
    if (state_ != State::Connected) return false;
    // Whatever the operator types at the prompt is the login.
    loginSent_ = true;
    socket_->write(command.toUtf8() + "\r\n");
    return true;
}

QString ClusterSession::decode(const QByteArray& bytes) const {
    // Spots are ASCII; talk and announcements of Russian clusters come in UTF-8 or in
    // Windows-1251, told apart by whether the bytes are valid UTF-8.
    QByteArray b = bytes;
    while (!b.isEmpty() && (b.endsWith('\r') || b.endsWith('\a'))) b.chop(1);
    auto utf8 = QStringDecoder(QStringDecoder::Utf8);
    QString text = utf8.decode(b);
    if (utf8.hasError()) {
        auto cp = QStringDecoder("windows-1251");
        text = cp.isValid() ? QString(cp.decode(b)) : QString::fromLatin1(b);
    }
    text.removeIf([](QChar c) { return c.unicode() < 0x20 && c != u'\t'; });
    return text;
}

void ClusterSession::setBackoff(int firstMs, int maxMs) {
    firstWaitMs_ = waitMs_ = firstMs;
    maxWaitMs_ = maxMs;
}

void ClusterSession::setConnectTimeout(int ms) {
    connectTimeoutMs_ = ms;
}

void ClusterSession::setState(State s) {
    state_ = s;
    emit stateChanged();
}

QString ClusterSession::stateText() const {
    switch (state_) {
    case State::Off:
        return problem_.isEmpty() ? QStringLiteral("Кластер: выключен")
                                  : QStringLiteral("Кластер: ") + problem_;
    case State::Connecting:
        return QStringLiteral("Кластер %1: соединение…").arg(hostPort_);
    case State::Connected:
        return QStringLiteral("Кластер %1: на связи").arg(hostPort_);
    case State::Waiting:
        return QStringLiteral("Кластер %1: нет связи, повтор через %2 с")
            .arg(hostPort_)
            .arg((currentWaitMs_ + 999) / 1000);
    }
    return {};
}

} // namespace hfc

#include "keyer/deviceio.h"

#include <QByteArray>

#include <cerrno>
#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace hfc {

void Fd::reset(int fd) {
    if (m_fd >= 0) ::close(m_fd);
    m_fd = fd;
}

namespace {

Fd connectSocket(const QString& host, quint16 port, int type, int timeoutMs) {
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = type;
    addrinfo* list = nullptr;
    const QByteArray h = host.toUtf8();
    const QByteArray p = QByteArray::number(port);
    if (getaddrinfo(h.constData(), p.constData(), &hints, &list) != 0) return {};
    Fd result;
    for (addrinfo* a = list; a && !result.valid(); a = a->ai_next) {
        Fd fd(
            ::socket(a->ai_family, a->ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, a->ai_protocol));
        if (!fd.valid()) continue;
        if (::connect(fd.get(), a->ai_addr, a->ai_addrlen) == 0) {
            result = std::move(fd);
            break;
        }
        if (errno != EINPROGRESS) continue;
        pollfd pfd{fd.get(), POLLOUT, 0};
        if (::poll(&pfd, 1, timeoutMs) != 1) continue;
        int err = 0;
        socklen_t len = sizeof err;
        if (::getsockopt(fd.get(), SOL_SOCKET, SO_ERROR, &err, &len) == 0 && err == 0)
            result = std::move(fd);
    }
    freeaddrinfo(list);
    return result;
}

} // namespace

Fd connectUdp(const QString& host, quint16 port) {
    return connectSocket(host, port, SOCK_DGRAM, 0);
}

Fd connectTcp(const QString& host, quint16 port, int timeoutMs) {
    return connectSocket(host, port, SOCK_STREAM, timeoutMs);
}

bool waitReadable(int fd, int timeoutMs) {
    pollfd pfd{fd, POLLIN, 0};
    return ::poll(&pfd, 1, timeoutMs) == 1;
}

bool writeAll(int fd, const QByteArray& data) {
    qsizetype done = 0;
    while (done < data.size()) {
        const ssize_t n =
            ::send(fd, data.constData() + done, size_t(data.size() - done), MSG_NOSIGNAL);
        if (n >= 0) {
            done += n;
            continue;
        }
        if (errno == ENOTSOCK) {
            // A serial device, not a socket.
            const ssize_t w = ::write(fd, data.constData() + done, size_t(data.size() - done));
            if (w >= 0) {
                done += w;
                continue;
            }
        }
        if (errno == EINTR) continue;
        if (errno != EAGAIN && errno != EWOULDBLOCK) return false;
        pollfd pfd{fd, POLLOUT, 0};
        if (::poll(&pfd, 1, 1000) != 1) return false;
    }
    return true;
}

} // namespace hfc

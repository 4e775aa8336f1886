#pragma once
// Small POSIX pieces the keying devices share: an owned descriptor, a socket to HOST:PORT and a
// wait for input. Plain descriptors keep the devices independent of an event loop, so they work
// the same in the window, in the script driver and in a test.
#include <QString>
#include <QtGlobal>

namespace hfc {

class Fd {
  public:
    Fd() = default;
    explicit Fd(int fd) : m_fd(fd) {}
    ~Fd() { reset(); }
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
    Fd(Fd&& o) noexcept : m_fd(o.release()) {}
    Fd& operator=(Fd&& o) noexcept {
        if (this != &o) reset(o.release());
        return *this;
    }

    int get() const { return m_fd; }
    bool valid() const { return m_fd >= 0; }
    int release() {
        const int fd = m_fd;
        m_fd = -1;
        return fd;
    }
    void reset(int fd = -1);

  private:
    int m_fd = -1;
};

// A non-blocking socket connected to host:port: UDP (datagram) or TCP within timeoutMs. Invalid
// on failure.
Fd connectUdp(const QString& host, quint16 port);
Fd connectTcp(const QString& host, quint16 port, int timeoutMs);

// True when fd has input within timeoutMs (0: just look).
bool waitReadable(int fd, int timeoutMs);

// Writes all of data, waiting for room if the descriptor is full; false on error.
bool writeAll(int fd, const QByteArray& data);

} // namespace hfc

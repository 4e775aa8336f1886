#pragma once
// A loopback port nobody listens on right now, for the real daemons (cwdaemon, rigctld,
// mosquitto) that tests and benchmarks start.
#include <QtGlobal>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace hfc::test {

inline quint16 freePort(int type = SOCK_STREAM) {
    const int s = ::socket(AF_INET, type, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t len = sizeof a;
    ::bind(s, reinterpret_cast<sockaddr*>(&a), sizeof a);
    ::getsockname(s, reinterpret_cast<sockaddr*>(&a), &len);
    ::close(s);
    return ntohs(a.sin_port);
}

} // namespace hfc::test

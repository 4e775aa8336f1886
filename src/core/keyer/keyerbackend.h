#pragma once
// One interface for everything that can key the transmitter: the DTR/RTS keyer on a serial port
// and the devices that key by themselves (cwdaemon, a Winkeyer, the radio through rigctld). The
// window gives each the same element string and unit, so the F-keys, the speed bar, cut zeros and
// Esc behave alike on all of them.
#include <QString>
#include <QtGlobal>

#include <functional>

namespace hfc {

class KeyerBackend {
  public:
    virtual ~KeyerBackend();

    // Queues a message: `cwcode` as built by buildCwCode, keyed at `unit` iterations (the speed
    // bar's unit times the key's factor); `restoredUnit` is the bar's own unit.
    virtual void send(const QString& cwcode, qint64 unit, qint64 restoredUnit) = 0;
    // Esc: drops what is queued and stops the message being sent.
    virtual void abort() = 0;
    virtual bool busy() const = 0;
    // Blocks until the queued messages are out (or, for a device that stays silent, until they
    // should be).
    virtual void waitIdle() = 0;

    // Called with a Russian message when the keyer cannot do its work. It may run on another
    // thread: the window posts it to its own before showing anything.
    void setErrorHandler(std::function<void(const QString&)> handler);

  protected:
    void reportError(const QString& message) const;

  private:
    std::function<void(const QString&)> m_onError;
};

} // namespace hfc

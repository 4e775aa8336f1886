#pragma once
// The two modem-control lines the keyer drives: DTR is the key, RTS the transmitter's PTT.
// Timing is counted in iterations of a unit clock, so that the speed bar's unit formula stays
// independent of how long an iteration really takes.
#include <QString>
#include <QtGlobal>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <vector>

namespace hfc {

class KeyPort {
  public:
    virtual ~KeyPort();

    // commPort is the panel's COM choice, 1..4. False when the port is busy or missing.
    virtual bool open(int commPort) = 0;
    virtual void close() = 0;
    virtual bool isOpen() const = 0;
    virtual bool setRts(bool on) = 0; // false on failure
    virtual bool setDtr(bool on) = 0; // false on failure
    // Waits for n iterations of the unit clock; returns false early once abort is set.
    virtual bool wait(qint64 iterations, const std::atomic<bool>& abort) = 0;
    // A port of the station's own hardware keys only once the operator has chosen it: a COM
    // port picked by default is as likely to be a modem's as the keyer's.
    virtual bool needsChoice() const { return false; }
};

struct KeyEvent {
    qint64 time = 0; // unit-clock iterations
    QString name;    // "PortOpen", "RTSEnable" or "DTREnable"
    bool value = false;
    bool operator==(const KeyEvent&) const = default;
};

// A port without hardware for the headless driver and tests: it records every line change against
// a virtual iteration counter that only wait() moves, so a message "goes out" without real time
// passing. The keyer thread writes, the caller's thread reads; everything is under one mutex.
class RecordingKeyPort : public KeyPort {
  public:
    bool open(int commPort) override;
    void close() override;
    bool isOpen() const override;
    bool setRts(bool on) override;
    bool setDtr(bool on) override;
    bool wait(qint64 iterations, const std::atomic<bool>& abort) override;

    void setBusy(bool busy);            // open() fails from now on
    void setLinesFail(bool fail);       // setRts()/setDtr() fail from now on
    std::vector<KeyEvent> takeEvents(); // events since the previous take
    qint64 now() const;                 // the virtual counter
    int lastCommPort() const;           // commPort of the last successful open()

    // Stops the clock once at an iteration: the wait that reaches it blocks there until
    // releaseHold() or the abort flag. Lets a caller act while a message is in the middle of an
    // element.
    void holdAt(qint64 iteration);
    bool isHeld() const;
    // Blocks until a wait is held (true) or the timeout passes (false).
    bool waitUntilHeld(int timeoutMs);
    void releaseHold();

  private:
    void record(const char* name, bool value);

    mutable std::mutex m_mutex;
    std::condition_variable m_cv;
    std::vector<KeyEvent> m_events;
    qint64 m_now = 0;
    bool m_open = false;
    bool m_busy = false;
    bool m_linesFail = false;
    int m_commPort = 0;
    qint64 m_holdAt = -1;
    bool m_held = false;
};

} // namespace hfc

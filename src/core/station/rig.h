#pragma once
// The radio, through Hamlib: a radio on this computer (any of Hamlib's models on a serial port)
// or one behind Hamlib's rigctld. Hamlib's calls block for as long as the radio or the daemon
// takes to answer, up to its timeout, so they run on a thread of their own; the window only ever
// sees the results, posted to its thread. A radio that stops answering is closed and opened
// again until it answers.
#include <QObject>
#include <QString>
#include <memory>

namespace hfc {

struct StationSettings;

// Where the radio is.
struct RigTarget {
    QString rigctld; // HOST:PORT of a rigctld
    int model = 0;   // or a Hamlib model number
    QString port;    // with its serial device
    int speed = 0;   // and baud rate (0: the model's own)

    bool isSet() const { return !rigctld.isEmpty() || model > 0; }
    bool operator==(const RigTarget&) const = default;
    static RigTarget from(const StationSettings& s);
    QString describe() const; // "127.0.0.1:4532", "модель 1035, /dev/ttyUSB0"
};

// What the radio said last.
struct RigReading {
    double hz = 0;
    QString mode;    // "CW", "SSB" (LSB or USB), or empty for any other mode
    quint64 seq = 0; // the last command of the window the radio had carried out
};

class Rig : public QObject {
    Q_OBJECT
  public:
    enum class State { Off, Connecting, Online, Lost };

    explicit Rig(QObject* parent = nullptr);
    ~Rig() override; // waits a moment for the thread, never for a radio that hangs

    // Connects to the radio there (or, for an empty target, to none); the same target again
    // changes nothing.
    void setTarget(const RigTarget& t);
    const RigTarget& target() const { return target_; }
    State state() const { return state_; }

    // Commands for the radio; each returns its number, which the readings carry once the radio
    // has carried it out. A newer command of the same kind replaces one not yet sent.
    quint64 setFrequency(double hz);
    quint64 setMode(const QString& mode); // "CW" or "SSB"

    static constexpr int PollMs = 200;

    // Both signals are emitted on the window's thread (the results are posted there first).
  signals:
    void stateChanged(hfc::Rig::State state, const QString& why);
    // Posted when the frequency or mode changed, after a command was carried out, and after every
    // (re)connection.
    void reading(const hfc::RigReading& r);

  private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
    RigTarget target_;
    State state_ = State::Off;
    quint64 seq_ = 0;
};

} // namespace hfc

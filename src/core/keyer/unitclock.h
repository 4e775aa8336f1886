#pragma once
// Real time for the keyer's iteration counts. The speed bar gives the unit as a number of
// busy-wait iterations, (101 - position) x 3000; one iteration is fixed at 300 ns, so the bar's
// start position 51 (150000 iterations = 45 ms) keys at 26.7 WPM (PARIS = 50 units), position 100
// at 1333 WPM and position 1 at 13.3 WPM.
#include <QtGlobal>

#include <atomic>
#include <chrono>

namespace hfc {

inline constexpr std::chrono::nanoseconds kIterationDuration{300};

// Keying speed in words per minute (PARIS) for a unit of the given number of iterations.
double wpmForUnit(qint64 unitIterations);

// Waits on a continuous timeline: each wait ends a fixed span after the previous wait's deadline,
// not after its own start, so the time spent switching lines between waits does not pile up over a
// message. Sleeps for the bulk and spins the last millisecond for edge accuracy.
class UnitClock {
  public:
    // The next wait starts a new timeline at its own call (a new message).
    void restart() { m_anchored = false; }
    bool wait(qint64 iterations, const std::atomic<bool>& abort);

  private:
    bool m_anchored = false;
    std::chrono::steady_clock::time_point m_deadline;
};

} // namespace hfc

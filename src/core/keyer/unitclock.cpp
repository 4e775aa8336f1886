#include "keyer/unitclock.h"

#include <algorithm>
#include <thread>

namespace hfc {

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// Sleeps overshoot by tens of microseconds on an idle machine; spinning the last stretch hides
// that. Sleeping in short slices keeps Esc prompt during long elements.
constexpr auto kSpin = 1ms;
constexpr auto kSlice = 5ms;
// Later than this behind the timeline (the machine stalled), the next element starts afresh rather
// than being cut short to catch up.
constexpr auto kLateSlack = 2ms;

bool waitUntil(Clock::time_point deadline, const std::atomic<bool>& abort) {
    for (;;) {
        if (abort.load(std::memory_order_relaxed)) return false;
        const auto now = Clock::now();
        if (now >= deadline) return true;
        const auto left = deadline - now;
        if (left > kSpin)
            std::this_thread::sleep_for(std::min<Clock::duration>(left - kSpin, kSlice));
    }
}

} // namespace

double wpmForUnit(qint64 unitIterations) {
    if (unitIterations <= 0) return 0.0;
    const double unitSeconds =
        std::chrono::duration<double>(kIterationDuration).count() * double(unitIterations);
    return 1.2 / unitSeconds;
}

bool UnitClock::wait(qint64 iterations, const std::atomic<bool>& abort) {
    const auto now = Clock::now();
    const auto span = kIterationDuration * std::max<qint64>(iterations, 0);
    const bool late = now > m_deadline + kLateSlack;
    const auto start = (!m_anchored || late) ? now : m_deadline;
    m_deadline = std::chrono::time_point_cast<Clock::duration>(start + span);
    m_anchored = true;
    return waitUntil(m_deadline, abort);
}

} // namespace hfc

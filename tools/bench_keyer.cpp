// Edge accuracy of the keyer's real-time clock: sends messages through the keyer thread on a port
// that switches no lines but timestamps each change, and compares every edge with the nominal
// timeline of unit-clock iterations. Prints figures only.
#include "keyer/keyer.h"
#include "keyer/morse.h"
#include "keyer/unitclock.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <mutex>
#include <vector>

using namespace hfc;
using Clock = std::chrono::steady_clock;

namespace {

constexpr int kRuns = 4;

class TimestampPort : public KeyPort {
  public:
    struct Edge {
        Clock::time_point at;
        qint64 iteration;
        bool dtr;
    };

    bool open(int) override {
        m_open = true;
        m_clock.restart();
        return true;
    }
    void close() override { m_open = false; }
    bool isOpen() const override { return m_open; }
    bool setRts(bool) override { return mark(false); }
    bool setDtr(bool) override { return mark(true); }
    bool wait(qint64 iterations, const std::atomic<bool>& abort) override {
        m_iteration += iterations;
        return m_clock.wait(iterations, abort);
    }

    std::vector<Edge> take() {
        std::lock_guard lock(m_mutex);
        return std::exchange(m_edges, {});
    }

  private:
    bool mark(bool dtr) {
        const auto at = Clock::now();
        std::lock_guard lock(m_mutex);
        m_edges.push_back({at, m_iteration, dtr});
        return true;
    }

    std::mutex m_mutex;
    std::vector<Edge> m_edges;
    qint64 m_iteration = 0;
    bool m_open = false;
    UnitClock m_clock;
};

double microseconds(Clock::duration d) {
    return std::chrono::duration<double, std::micro>(d).count();
}

double nominalMicroseconds(qint64 iterations) {
    return double(iterations) * double(kIterationDuration.count()) / 1000.0;
}

struct Stats {
    double mean, p99, max;
};

Stats stats(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    double sum = 0;
    for (double x : v) sum += x;
    const size_t n = v.size();
    return {sum / double(n), v[std::min(n - 1, size_t(std::ceil(0.99 * double(n))) - 1)], v.back()};
}

} // namespace

int main() {
    const QString text = QStringLiteral("CQ TEST UA3A");
    QString cwchar;
    const QString cwcode = buildCwCode(text, cwchar);

    auto port = std::make_shared<TimestampPort>();
    Keyer keyer(port);
    std::printf("iteration %lld ns, bar 51 = %.1f WPM; message \"%s\" x %d\n",
                static_cast<long long>(kIterationDuration.count()), Keyer::wpmForBar(51),
                qPrintable(text), kRuns);
    std::printf("edge error against the nominal timeline from the first key-down, and the error\n"
                "of each edge-to-edge interval (element length), in microseconds\n");
    std::printf("%5s %9s %6s %10s %10s %10s %10s %12s %12s\n", "WPM", "unit", "edges", "mean",
                "p99", "max", "bias", "interval.mean", "interval.p99");
    for (const int wpm : {20, 30, 40}) {
        // 1.2 s per unit at 1 WPM, over the iteration length.
        const qint64 unit = std::llround(1.2e9 / wpm / double(kIterationDuration.count()));
        std::vector<double> errors, intervals;
        double bias = 0;
        for (int run = 0; run < kRuns; ++run) {
            keyer.send(cwcode, unit, unit);
            keyer.waitIdle();
            const auto edges = port->take();
            const auto first =
                std::find_if(edges.begin(), edges.end(), [](auto& e) { return e.dtr; });
            for (auto it = first + 1; it != edges.end(); ++it) {
                const double error = microseconds(it->at - first->at) -
                                     nominalMicroseconds(it->iteration - first->iteration);
                errors.push_back(std::abs(error));
                bias += error;
                const auto prev = it - 1;
                intervals.push_back(std::abs(microseconds(it->at - prev->at) -
                                             nominalMicroseconds(it->iteration - prev->iteration)));
            }
        }
        const Stats e = stats(errors), i = stats(intervals);
        std::printf("%5d %9lld %6zu %10.1f %10.1f %10.1f %10.1f %12.1f %12.1f\n", wpm,
                    static_cast<long long>(unit), errors.size(), e.mean, e.p99, e.max,
                    bias / double(errors.size()), i.mean, i.p99);
    }
    return 0;
}

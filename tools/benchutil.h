#pragma once
// What the benchmarks share: a fresh data folder, random calls of the usual prefixes,
// milliseconds of a duration and quantiles of the measured times.
#include "data/databases.h"
#include "forms/clock.h"
#include "forms/env.h"
#include "script/scriptedui.h"

#include <QRandomGenerator>
#include <QString>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <vector>

namespace hfc::bench {

using Steady = std::chrono::steady_clock;

// Opens the databases in dir (a fresh temporary folder); a folder that cannot be opened ends
// the benchmark with the reason.
inline void openOrExit(Databases& dbs, const QString& dir) {
    QString error;
    if (dbs.open(dir, error)) return;
    std::fprintf(stderr, "%s\n", qPrintable(error));
    std::exit(1);
}

inline constexpr const char* Prefixes[] = {
    "DL", "UA", "RA", "RV", "UA9", "K",  "W",  "N",  "JA", "G",  "F",  "I",  "EA", "OK", "SP",
    "HA", "YO", "LZ", "OH", "SM",  "LY", "YL", "ES", "UR", "VE", "VK", "PY", "LU", "ZS", "9A"};

// What a window model needs around it in a benchmark: the scripted dialogs, a fixed clock and the
// environment that names them with the databases.
struct WindowEnv {
    ScriptedUi ui;
    FixedClock clock;
    Env env;
    explicit WindowEnv(Databases& dbs) {
        env.db = &dbs;
        env.ui = &ui;
        env.clock = &clock;
    }
};

// A prefix, a digit and one to three letters.
inline QString randomCall(QRandomGenerator& rng) {
    QString c = QString::fromLatin1(Prefixes[rng.bounded(int(std::size(Prefixes)))]);
    c += QChar('0' + rng.bounded(10));
    const int letters = 1 + rng.bounded(3);
    for (int i = 0; i < letters; ++i) c += QChar('A' + rng.bounded(26));
    return c;
}

inline double ms(Steady::duration d) {
    return std::chrono::duration<double, std::milli>(d).count();
}

// The q quantile of the times (sorted in place); 0 when there are none.
inline double quantile(std::vector<double>& v, double q) {
    if (v.empty()) return 0;
    std::sort(v.begin(), v.end());
    return v[std::min(v.size() - 1, size_t(q * double(v.size() - 1) + 0.5))];
}

} // namespace hfc::bench

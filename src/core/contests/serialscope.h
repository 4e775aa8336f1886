#pragma once
// Whose sequence the serial sent belongs to when several computers share one log: each
// transmitter its own, or one for the whole station. docs/contests.md gives each contest's
// reason.
#include <QString>

namespace hfc::contests {

enum class SerialScope {
    Transmitter, // each computer counts its own QSOs
    Station,     // one sequence for the station: numbers reserved between the computers
};

SerialScope serialScope(const QString& contestcode);

} // namespace hfc::contests

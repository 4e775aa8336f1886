#pragma once
// Small contest rules that need no window: the serial number text, the RAEM distance and the
// SAC area multiplier.
#include <QString>
#include <optional>

namespace hfc::contests {

// The serial number as sent: at least three digits with leading zeros ("001", "999", "1000").
QString padSerial(long long n);

// RAEM coordinates a station may pass: whole degrees, 1 < lat < 90 and 1 < lon < 180.
constexpr bool raemCoordinatesValid(long long lat, long long lon) {
    return lat > 1 && lat < 90 && lon > 1 && lon < 180;
}

// RAEM points: whole degrees of latitude plus longitude between the received and the own
// coordinates. A three-digit received longitude is taken as east of the own one (received minus
// own, no absolute value). Coordinates that are not valid give no points.
std::optional<long long> raemPoints(long long lat, long long lon, bool threeDigitLon,
                                    long long ownLat, long long ownLon);
// Far-north stations bring a bonus.
constexpr long long RaemNorthLat = 69;

// The SAC area multiplier of a call: the country followed by the call's third character when
// that is a digit, else by "0".
QString sacCandidate(const QString& country, const QString& call, const QString& digits);

} // namespace hfc::contests

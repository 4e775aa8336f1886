#pragma once
// Maidenhead squares: the four-character locator of the grid contests.
#include <QString>
#include <optional>

namespace hfc::contests {

// "KO85": two field letters A–R, two square digits.
bool isSquare(const QString& text);

// Great-circle distance in km between the centres of two squares; only the first four
// characters count, so a six-character locator names its square. nullopt when either is none.
std::optional<double> squareDistanceKm(const QString& a, const QString& b);

} // namespace hfc::contests

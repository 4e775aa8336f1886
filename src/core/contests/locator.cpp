#include "contests/locator.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace hfc::contests {

namespace {

struct LatLon {
    double lat, lon; // degrees
};

std::optional<LatLon> centre(const QString& text) {
    const QString sq = text.left(4).toUpper();
    if (!isSquare(sq)) return std::nullopt;
    const double lon = (sq[0].unicode() - 'A') * 20.0 - 180.0 + (sq[2].unicode() - '0') * 2.0 + 1.0;
    const double lat = (sq[1].unicode() - 'A') * 10.0 - 90.0 + (sq[3].unicode() - '0') + 0.5;
    return LatLon{lat, lon};
}

} // namespace

bool isSquare(const QString& text) {
    if (text.size() != 4) return false;
    auto field = [](QChar c) { return c >= QLatin1Char('A') && c <= QLatin1Char('R'); };
    auto digit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
    return field(text[0]) && field(text[1]) && digit(text[2]) && digit(text[3]);
}

std::optional<double> squareDistanceKm(const QString& a, const QString& b) {
    const auto p = centre(a), q = centre(b);
    if (!p || !q) return std::nullopt;
    constexpr double rad = std::numbers::pi / 180.0;
    constexpr double earthKm = 6371.0;
    const double c =
        std::sin(p->lat * rad) * std::sin(q->lat * rad) +
        std::cos(p->lat * rad) * std::cos(q->lat * rad) * std::cos((p->lon - q->lon) * rad);
    return earthKm * std::acos(std::clamp(c, -1.0, 1.0));
}

} // namespace hfc::contests

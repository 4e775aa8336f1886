#include "contests/scoring.h"

namespace hfc::contests {

QString padSerial(long long n) {
    QString s = QString::number(n);
    if (s.size() == 1)
        s.prepend(QStringLiteral("00"));
    else if (s.size() == 2)
        s.prepend(QLatin1Char('0'));
    return s;
}

std::optional<long long> raemPoints(long long lat, long long lon, bool threeDigitLon,
                                    long long ownLat, long long ownLon) {
    if (!raemCoordinatesValid(lat, lon)) return std::nullopt;
    const long long dlat = lat > ownLat ? lat - ownLat : ownLat - lat;
    const long long dlon =
        threeDigitLon ? lon - ownLon : (lon > ownLon ? lon - ownLon : ownLon - lon);
    return dlat + dlon;
}

QString sacCandidate(const QString& country, const QString& call, const QString& digits) {
    const QString third = call.mid(2, 1);
    const bool digit = third.size() == 1 && digits.contains(third);
    return country + (digit ? third : QStringLiteral("0"));
}

} // namespace hfc::contests

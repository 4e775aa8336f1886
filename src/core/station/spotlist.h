#pragma once
// The spots heard lately: one per call (the newest says where the station is now), each
// leaving 30 minutes after it was heard by the program's clock. Pure.
#include "station/spot.h"

#include <QDateTime>
#include <QHash>
#include <vector>

namespace hfc {

struct HeardSpot {
    Spot spot;
    QString band;     // bandOfKHz(spot.kHz)
    qint64 heard = 0; // seconds since the epoch
};

class SpotList {
  public:
    static constexpr qint64 LifeSeconds = 30 * 60;

    // Keeps the spot, replacing an older one of the call.
    void add(const Spot& s, const QDateTime& now);
    // Drops the spots heard 30 minutes or more before now; true when any went.
    bool prune(const QDateTime& now);
    size_t size() const { return size_t(byCall_.size()); }
    const HeardSpot* find(const QString& call) const;
    // Goes up whenever a spot of the band comes, moves or goes: a map of the band showing an
    // older count is out of date.
    quint64 version(const QString& band) const { return versions_.value(band); }

    // The spots of a band, lowest frequency first (calls in order on one frequency). The
    // pointers hold until the list next changes.
    std::vector<const HeardSpot*> onBand(const QString& band) const;
    // The next spot of the band above (up) or below a place in it; nullptr when there is none
    // that way. The place is a spot (fromCall on fromKHz: the next call on the same frequency
    // comes next), or a frequency alone (fromCall empty: spots within 0.05 kHz of it are there
    // already), or nowhere (fromKHz < 0: the lowest spot going up, the highest going down).
    const HeardSpot* next(const QString& band, double fromKHz, const QString& fromCall,
                          bool up) const;

    // Whole minutes since the spot was heard (0 for a clock set back).
    static qint64 ageMinutes(const HeardSpot& s, const QDateTime& now);

  private:
    QHash<QString, HeardSpot> byCall_;
    QHash<QString, quint64> versions_;
};

} // namespace hfc

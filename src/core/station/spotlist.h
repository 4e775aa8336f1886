#pragma once
// The spots heard lately: one per call (the newest says where the station is now), each
// leaving 30 minutes after it was heard by the program's clock. Each band's spots are kept in
// frequency order as they come, so a map of the band is a copy and the next spot a search,
// however many spots a busy cluster has sent. Pure.
#include "station/spot.h"

#include <QDateTime>
#include <QHash>
#include <deque>
#include <vector>

namespace hfc {

struct HeardSpot {
    Spot spot;
    QString band;     // bandOfKHz(spot.kHz)
    qint64 heard = 0; // seconds since the epoch
};

// One spot of a band as a map shows it.
struct BandSpot {
    double kHz = 0;
    QString call;
    qint64 heard = 0;
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

    // The spots of a band, lowest frequency first (calls in order on one frequency).
    const std::vector<BandSpot>& onBand(const QString& band) const;
    // The next spot of the band above (up) or below a place in it; nullptr when there is none
    // that way. The place is a spot (fromCall on fromKHz: the next call on the same frequency
    // comes next), or a frequency alone (fromCall empty: spots within 0.05 kHz of it are there
    // already), or nowhere (fromKHz < 0: the lowest spot going up, the highest going down).
    const BandSpot* next(const QString& band, double fromKHz, const QString& fromCall,
                         bool up) const;

    // Whole minutes since the spot was heard (0 for a clock set back).
    static qint64 ageMinutes(qint64 heard, const QDateTime& now);

  private:
    void unlist(const HeardSpot& s);

    QHash<QString, HeardSpot> byCall_;
    QHash<QString, std::vector<BandSpot>> bands_;
    QHash<QString, quint64> versions_;
    // Calls in the order they were heard: the oldest are at the front, so pruning looks at
    // those only. A call heard again has a later entry; its earlier one is passed over.
    std::deque<std::pair<qint64, QString>> arrivals_;
};

} // namespace hfc

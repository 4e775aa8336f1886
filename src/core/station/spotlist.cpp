#include "station/spotlist.h"

#include <algorithm>

namespace hfc {

void SpotList::add(const Spot& s, const QDateTime& now) {
    HeardSpot h{s, bandOfKHz(s.kHz), now.toSecsSinceEpoch()};
    auto it = byCall_.find(s.call);
    if (it != byCall_.end()) {
        ++versions_[it->band];
        *it = std::move(h);
    } else {
        it = byCall_.insert(s.call, std::move(h));
    }
    ++versions_[it->band];
}

bool SpotList::prune(const QDateTime& now) {
    const qint64 oldest = now.toSecsSinceEpoch() - LifeSeconds;
    const qsizetype before = byCall_.size();
    byCall_.removeIf([this, oldest](const QHash<QString, HeardSpot>::iterator& it) {
        if (it->heard > oldest) return false;
        ++versions_[it->band];
        return true;
    });
    return byCall_.size() != before;
}

const HeardSpot* SpotList::find(const QString& call) const {
    auto it = byCall_.constFind(call);
    return it == byCall_.cend() ? nullptr : &*it;
}

std::vector<const HeardSpot*> SpotList::onBand(const QString& band) const {
    std::vector<const HeardSpot*> v;
    if (band.isEmpty()) return v;
    for (const HeardSpot& s : byCall_)
        if (s.band == band) v.push_back(&s);
    std::sort(v.begin(), v.end(), [](const HeardSpot* a, const HeardSpot* b) {
        if (a->spot.kHz != b->spot.kHz) return a->spot.kHz < b->spot.kHz;
        return a->spot.call < b->spot.call;
    });
    return v;
}

const HeardSpot* SpotList::next(const QString& band, double fromKHz, const QString& fromCall,
                                bool up) const {
    const std::vector<const HeardSpot*> v = onBand(band);
    if (v.empty()) return nullptr;
    if (fromKHz < 0) return up ? v.front() : v.back();
    constexpr double same = 0.05; // spots come with a tenth of a kHz at most
    const auto above = [&](const HeardSpot* s) {
        if (fromCall.isEmpty()) return s->spot.kHz > fromKHz + same;
        return s->spot.kHz > fromKHz || (s->spot.kHz == fromKHz && s->spot.call > fromCall);
    };
    const auto below = [&](const HeardSpot* s) {
        if (fromCall.isEmpty()) return s->spot.kHz < fromKHz - same;
        return s->spot.kHz < fromKHz || (s->spot.kHz == fromKHz && s->spot.call < fromCall);
    };
    if (up) {
        for (const HeardSpot* s : v)
            if (above(s)) return s;
    } else {
        for (auto it = v.rbegin(); it != v.rend(); ++it)
            if (below(*it)) return *it;
    }
    return nullptr;
}

qint64 SpotList::ageMinutes(const HeardSpot& s, const QDateTime& now) {
    return std::max<qint64>(0, (now.toSecsSinceEpoch() - s.heard) / 60);
}

} // namespace hfc

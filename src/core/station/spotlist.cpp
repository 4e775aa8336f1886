#include "station/spotlist.h"

#include <algorithm>

namespace hfc {

namespace {

bool before(const BandSpot& a, double kHz, const QString& call) {
    return a.kHz < kHz || (a.kHz == kHz && a.call < call);
}

} // namespace

void SpotList::unlist(const HeardSpot& s) {
    ++versions_[s.band];
    if (s.band.isEmpty()) return;
    std::vector<BandSpot>& v = bands_[s.band];
    auto it = std::lower_bound(v.begin(), v.end(), s, [](const BandSpot& a, const HeardSpot& h) {
        return before(a, h.spot.kHz, h.spot.call);
    });
    if (it != v.end() && it->call == s.spot.call) v.erase(it);
}

void SpotList::add(const Spot& s, const QDateTime& now) {
    HeardSpot h{s, bandOfKHz(s.kHz), now.toSecsSinceEpoch()};
    auto old = byCall_.find(s.call);
    if (old != byCall_.end()) unlist(*old);
    ++versions_[h.band];
    if (!h.band.isEmpty()) {
        std::vector<BandSpot>& v = bands_[h.band];
        auto at =
            std::lower_bound(v.begin(), v.end(), h, [](const BandSpot& a, const HeardSpot& x) {
                return before(a, x.spot.kHz, x.spot.call);
            });
        v.insert(at, BandSpot{s.kHz, s.call, h.heard});
    }
    arrivals_.emplace_back(h.heard, s.call);
    byCall_.insert(s.call, std::move(h));
}

bool SpotList::prune(const QDateTime& now) {
    const qint64 oldest = now.toSecsSinceEpoch() - LifeSeconds;
    bool any = false;
    // A clock set back leaves the order of the entries behind; the spots heard "later" then
    // wait for the ones ahead of them, at most until those are 30 minutes old as well.
    while (!arrivals_.empty() && arrivals_.front().first <= oldest) {
        const auto [heard, call] = arrivals_.front();
        arrivals_.pop_front();
        auto it = byCall_.find(call);
        if (it == byCall_.end() || it->heard != heard) continue; // heard again since
        unlist(*it);
        byCall_.erase(it);
        any = true;
    }
    return any;
}

const HeardSpot* SpotList::find(const QString& call) const {
    auto it = byCall_.constFind(call);
    return it == byCall_.cend() ? nullptr : &*it;
}

const std::vector<BandSpot>& SpotList::onBand(const QString& band) const {
    static const std::vector<BandSpot> none;
    auto it = bands_.constFind(band);
    return it == bands_.cend() ? none : *it;
}

const BandSpot* SpotList::next(const QString& band, double fromKHz, const QString& fromCall,
                               bool up) const {
    const std::vector<BandSpot>& v = onBand(band);
    if (v.empty()) return nullptr;
    if (fromKHz < 0) return up ? &v.front() : &v.back();
    constexpr double same = 0.05; // spots come with a tenth of a kHz at most
    const auto above = [&](const BandSpot& s) {
        if (fromCall.isEmpty()) return s.kHz > fromKHz + same;
        return s.kHz > fromKHz || (s.kHz == fromKHz && s.call > fromCall);
    };
    const auto below = [&](const BandSpot& s) {
        if (fromCall.isEmpty()) return s.kHz < fromKHz - same;
        return before(s, fromKHz, fromCall);
    };
    if (up) {
        auto it = std::find_if(v.begin(), v.end(), above);
        return it == v.end() ? nullptr : &*it;
    }
    auto it = std::find_if(v.rbegin(), v.rend(), below);
    return it == v.rend() ? nullptr : &*it;
}

qint64 SpotList::ageMinutes(qint64 heard, const QDateTime& now) {
    return std::max<qint64>(0, (now.toSecsSinceEpoch() - heard) / 60);
}

} // namespace hfc

#include "station/scp.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstring>
#include <utility>

namespace hfc {

namespace {

std::string toKey(const QString& s) {
    return s.toUpper().toStdString();
}

QStringList toList(const std::vector<std::string>& calls, const std::vector<uint32_t>& ids) {
    QStringList out;
    out.reserve(qsizetype(ids.size()));
    for (uint32_t id : ids) out << QString::fromLatin1(calls[id]);
    return out;
}

} // namespace

int ScpIndex::symbol(char c) {
    if (c >= 'A' && c <= 'Z') return c - 'A';
    if (c >= '0' && c <= '9') return 26 + (c - '0');
    if (c == '/') return 36;
    return Symbols - 1;
}

void ScpIndex::load(const QByteArray& text) {
    calls_.clear();
    calls_.reserve(size_t(text.size() / 7));
    const char* p = text.constData();
    const char* const end = p + text.size();
    while (p < end) {
        const char* eol = static_cast<const char*>(std::memchr(p, '\n', size_t(end - p)));
        if (!eol) eol = end;
        while (p < eol && (*p == ' ' || *p == '\t')) ++p;
        // A call is the line's first word; whatever follows it is not part of the call.
        const char* word = p;
        while (word < eol && *word != ' ' && *word != '\t' && *word != '\r') ++word;
        if (word > p && *p != '#') {
            std::string& call = calls_.emplace_back(p, size_t(word - p));
            for (char& c : call)
                if (c >= 'a' && c <= 'z') c = char(c - 'a' + 'A');
        }
        p = eol + 1;
    }
    // The file comes sorted but for a few late additions: those are sorted and merged in.
    const auto sortedUpTo = std::is_sorted_until(calls_.begin(), calls_.end());
    std::sort(sortedUpTo, calls_.end());
    std::inplace_merge(calls_.begin(), sortedUpTo, calls_.end());
    calls_.erase(std::unique(calls_.begin(), calls_.end()), calls_.end());

    // Each call under every pair of adjacent characters it holds (once), and under its last
    // pair.
    buildLists(
        [this](auto&& f) {
            for (uint32_t id = 0; id < calls_.size(); ++id) {
                const std::string& c = calls_[id];
                for (size_t i = 0; i + 1 < c.size(); ++i) {
                    bool seen = false;
                    for (size_t j = 0; j < i && !seen; ++j)
                        seen = c[j] == c[i] && c[j + 1] == c[i + 1];
                    if (!seen) f(pairKey(c[i], c[i + 1]), id);
                }
            }
        },
        pairStart_, pairIds_);
    buildLists(
        [this](auto&& f) {
            for (uint32_t id = 0; id < calls_.size(); ++id) {
                const std::string& c = calls_[id];
                if (c.size() >= 2) f(pairKey(c[c.size() - 2], c[c.size() - 1]), id);
            }
        },
        endStart_, endIds_);
}

// The lists of all keys in one array, counted first, so that no list grows one call at a time.
template <class Each>
void ScpIndex::buildLists(const Each& each, std::array<uint32_t, Pairs + 1>& start,
                          std::vector<uint32_t>& ids) {
    std::fill(start.begin(), start.end(), 0);
    each([&](int key, uint32_t) { ++start[size_t(key) + 1]; });
    for (size_t k = 1; k < start.size(); ++k) start[k] += start[k - 1];
    ids.assign(start.back(), 0);
    std::vector<uint32_t> next(start.begin(), start.end() - 1);
    each([&](int key, uint32_t id) { ids[next[size_t(key)]++] = id; });
}

bool ScpIndex::loadFile(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return false;
    load(f.readAll());
    return true;
}

bool ScpIndex::contains(const QString& call) const {
    const std::string key = toKey(call);
    return std::binary_search(calls_.begin(), calls_.end(), key);
}

QStringList ScpIndex::containing(const QString& part, int limit) const {
    const std::string p = toKey(part);
    if (p.size() < 2 || limit <= 0) return {};
    // Every match holds each pair of the typed text, so the calls of its rarest pair are all
    // that need a look; they are in sorted order, so the first matches are the ones shown.
    size_t best = size_t(pairKey(p[0], p[1]));
    for (size_t i = 1; i + 1 < p.size(); ++i) {
        const size_t key = size_t(pairKey(p[i], p[i + 1]));
        if (pairCount(key) < pairCount(best)) best = key;
    }
    std::vector<uint32_t> hits;
    for (uint32_t k = pairStart_[best]; k < pairStart_[best + 1]; ++k) {
        const uint32_t id = pairIds_[k];
        if (calls_[id].find(p) == std::string::npos) continue;
        hits.push_back(id);
        if (int(hits.size()) == limit) break;
    }
    return toList(calls_, hits);
}

// One edit leaves one part of the call as it was: with the call cut after its first `head`
// characters, an edit in the tail keeps the head and an edit in the head keeps the tail. So the
// calls that begin with the head and those that end with the tail are the only candidates; the
// tail is the last pair, which finds them, and the head all before it, which keeps the range of
// calls beginning with it short.
QStringList ScpIndex::oneOff(const QString& call, int limit) const {
    const std::string c = toKey(call);
    if (c.size() < 3 || limit <= 0) return {};
    const size_t head = c.size() - 2;
    const std::string_view prefix = std::string_view(c).substr(0, head);
    std::vector<uint32_t> hits;
    auto it = std::lower_bound(calls_.begin(), calls_.end(), prefix,
                               [](const std::string& s, std::string_view v) { return s < v; });
    for (; it != calls_.end() && std::string_view(*it).substr(0, head) == prefix; ++it)
        if (isOneOff(c, *it)) hits.push_back(uint32_t(it - calls_.begin()));
    const size_t last = size_t(pairKey(c[c.size() - 2], c[c.size() - 1]));
    for (uint32_t k = endStart_[last]; k < endStart_[last + 1]; ++k)
        if (isOneOff(c, calls_[endIds_[k]])) hits.push_back(endIds_[k]);
    std::sort(hits.begin(), hits.end());
    hits.erase(std::unique(hits.begin(), hits.end()), hits.end());
    if (hits.size() > size_t(limit)) hits.resize(size_t(limit));
    return toList(calls_, hits);
}

namespace {
// Any two sequences of characters with size() and [].
template <class S> bool oneOffOf(S a, S b) {
    if (a.size() > b.size()) std::swap(a, b);
    const auto n = a.size();
    if (b.size() - n > 1) return false;
    decltype(a.size()) i = 0;
    while (i < n && a[i] == b[i]) ++i;
    if (i == n) return b.size() != n; // equal, or b is a with one more at the end
    // Past the first difference the rest must agree: shifted by one when b is longer.
    const auto skip = b.size() == n ? i + 1 : i;
    for (auto j = i + 1; j < b.size(); ++j)
        if (a[skip + (j - i - 1)] != b[j]) return false;
    return true;
}
} // namespace

bool isOneOff(std::string_view a, std::string_view b) {
    return oneOffOf(a, b);
}

bool isOneOff(QStringView a, QStringView b) {
    return oneOffOf(a, b);
}

void CallNeighbours::clear() {
    calls_.clear();
    slots_.clear();
    filed_ = 0;
}

uint32_t CallNeighbours::keyOf(std::string_view s) {
    const uint64_t h = std::hash<std::string_view>{}(s);
    return uint32_t(h ^ (h >> 32));
}

template <class Each> void CallNeighbours::eachUnder(std::string_view key, const Each& each) const {
    if (slots_.empty()) return;
    const uint32_t k = keyOf(key);
    const size_t mask = slots_.size() - 1;
    for (size_t i = k & mask; slots_[i].id != Free; i = (i + 1) & mask)
        if (slots_[i].key == k) each(slots_[i].id);
}

void CallNeighbours::file(uint32_t key, uint32_t id) {
    if (2 * (filed_ + 1) > slots_.size()) {
        std::vector<Slot> old(std::max<size_t>(1024, 2 * slots_.size()));
        old.swap(slots_);
        filed_ = 0;
        for (const Slot& s : old)
            if (s.id != Free) file(s.key, s.id);
    }
    const size_t mask = slots_.size() - 1;
    size_t i = key & mask;
    while (slots_[i].id != Free) i = (i + 1) & mask;
    slots_[i] = {key, id};
    ++filed_;
}

// Each form of c with one character left out, once: "AA" less either A is the same form.
template <class Each> void CallNeighbours::eachShorter(const std::string& c, const Each& each) {
    std::string shorter;
    for (size_t i = 0; i < c.size(); ++i) {
        if (i > 0 && c[i] == c[i - 1]) continue;
        shorter = c;
        shorter.erase(i, 1);
        each(shorter);
    }
}

void CallNeighbours::add(const QString& call) {
    if (call.size() < 2) return;
    std::string c = toKey(call);
    bool known = false;
    eachUnder(c, [&](uint32_t id) { known = known || calls_[id] == c; });
    if (known) return;
    const auto id = uint32_t(calls_.size());
    file(keyOf(c), id);
    eachShorter(c, [&](const std::string& shorter) { file(keyOf(shorter), id); });
    calls_.push_back(std::move(c));
}

QStringList CallNeighbours::oneOff(const QString& call) const {
    if (call.size() < 3 || calls_.empty()) return {};
    const std::string c = toKey(call);
    // Calls are filed once each, so equal views are the same call found under two keys.
    std::vector<std::string_view> found;
    const auto take = [&](uint32_t id) {
        if (isOneOff(c, calls_[id])) found.emplace_back(calls_[id]);
    };
    eachUnder(c, take); // one more character, or one other at a place a form leaves out
    // one character less, or one other there
    eachShorter(c, [&](const std::string& shorter) { eachUnder(shorter, take); });
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    QStringList out;
    out.reserve(qsizetype(found.size()));
    for (std::string_view f : found) out << QString::fromUtf8(f.data(), qsizetype(f.size()));
    return out;
}

QString scpFilePath(const QString& dataDir) {
    const QString own = dataDir + QStringLiteral("/MASTER.SCP");
    if (!dataDir.isEmpty() && QFileInfo(own).isFile()) return own;
    const QString debian = QStringLiteral("/usr/share/hamradio-files/MASTER.SCP");
    if (QFileInfo(debian).isFile()) return debian;
    return {};
}

} // namespace hfc

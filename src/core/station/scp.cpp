#include "station/scp.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
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

// The range of sorted strings that begin with p.
template <class It> std::pair<It, It> prefixRange(It first, It last, std::string_view p) {
    const auto lo = std::lower_bound(first, last, p, [](const std::string& s, std::string_view v) {
        return std::string_view(s).substr(0, v.size()) < v;
    });
    const auto hi = std::upper_bound(lo, last, p, [](std::string_view v, const std::string& s) {
        return v < std::string_view(s).substr(0, v.size());
    });
    return {lo, hi};
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
    reversed_.clear();
    reversedId_.clear();
    for (auto& p : pairs_) p.clear();

    calls_.reserve(size_t(text.size() / 7));
    qsizetype at = 0;
    while (at < text.size()) {
        qsizetype end = text.indexOf('\n', at);
        if (end < 0) end = text.size();
        const QByteArray line = text.mid(at, end - at).trimmed();
        at = end + 1;
        if (line.isEmpty() || line.startsWith('#')) continue;
        // A call is the line's first word; whatever follows it is not part of the call.
        qsizetype word = 0;
        while (word < line.size() && line[word] != ' ' && line[word] != '\t') ++word;
        calls_.emplace_back(line.constData(), size_t(word));
        for (char& c : calls_.back())
            if (c >= 'a' && c <= 'z') c = char(c - 'a' + 'A');
    }
    std::sort(calls_.begin(), calls_.end());
    calls_.erase(std::unique(calls_.begin(), calls_.end()), calls_.end());

    std::vector<std::pair<std::string, uint32_t>> rev;
    rev.reserve(calls_.size());
    for (uint32_t id = 0; id < calls_.size(); ++id) {
        const std::string& c = calls_[id];
        rev.emplace_back(std::string(c.rbegin(), c.rend()), id);
        for (size_t i = 0; i + 1 < c.size(); ++i) {
            std::vector<uint32_t>& list = pairs_[size_t(pairKey(c[i], c[i + 1]))];
            if (list.empty() || list.back() != id) list.push_back(id);
        }
    }
    std::sort(rev.begin(), rev.end());
    reversed_.reserve(rev.size());
    reversedId_.reserve(rev.size());
    for (auto& [s, id] : rev) {
        reversed_.push_back(std::move(s));
        reversedId_.push_back(id);
    }
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
    const std::vector<uint32_t>* rarest = &pairs_[size_t(pairKey(p[0], p[1]))];
    for (size_t i = 1; i + 1 < p.size(); ++i) {
        const auto& list = pairs_[size_t(pairKey(p[i], p[i + 1]))];
        if (list.size() < rarest->size()) rarest = &list;
    }
    std::vector<uint32_t> hits;
    for (uint32_t id : *rarest) {
        if (calls_[id].find(p) == std::string::npos) continue;
        hits.push_back(id);
        if (int(hits.size()) == limit) break;
    }
    return toList(calls_, hits);
}

// One edit leaves one half of the call as it was: the calls that begin with its first half and
// those that end with its second half are the only candidates.
QStringList ScpIndex::oneOff(const QString& call, int limit) const {
    const std::string c = toKey(call);
    if (c.size() < 2 || limit <= 0) return {};
    const size_t half = c.size() / 2;
    std::vector<uint32_t> hits;
    const auto [plo, phi] =
        prefixRange(calls_.begin(), calls_.end(), std::string_view(c).substr(0, half));
    for (auto it = plo; it != phi; ++it)
        if (isOneOff(c, *it)) hits.push_back(uint32_t(it - calls_.begin()));
    const std::string tail(c.rbegin(), c.rbegin() + std::ptrdiff_t(c.size() - half));
    const auto [rlo, rhi] = prefixRange(reversed_.begin(), reversed_.end(), tail);
    for (auto it = rlo; it != rhi; ++it) {
        const uint32_t id = reversedId_[size_t(it - reversed_.begin())];
        if (isOneOff(c, calls_[id])) hits.push_back(id);
    }
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

QString scpFilePath(const QString& dataDir) {
    const QString own = dataDir + QStringLiteral("/MASTER.SCP");
    if (!dataDir.isEmpty() && QFileInfo(own).isFile()) return own;
    const QString debian = QStringLiteral("/usr/share/hamradio-files/MASTER.SCP");
    if (QFileInfo(debian).isFile()) return debian;
    return {};
}

} // namespace hfc

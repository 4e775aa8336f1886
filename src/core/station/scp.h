#pragma once
// Super check partial: the calls of a MASTER.SCP file, indexed once so that the two lookups made
// on every keystroke (calls that contain the typed text, calls one character off it) touch only
// a few hundred calls instead of all of them.
#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace hfc {

class ScpIndex {
  public:
    // One call a line; '#' lines (the release note) and blank lines skipped; upper-cased,
    // duplicates dropped. Replaces what was loaded before.
    void load(const QByteArray& text);
    // False when the file cannot be read; the index is then left as it was.
    bool loadFile(const QString& path);
    size_t size() const { return calls_.size(); }
    bool contains(const QString& call) const;

    // Calls that hold part anywhere, in sorted order, at most limit. Fewer than two characters
    // match nothing: one character would list a tenth of the file.
    QStringList containing(const QString& part, int limit) const;
    // Calls one character off call (one substitution, insertion or deletion), sorted, at most
    // limit; the call itself is not among them. A call of fewer than three characters has
    // none: nearly every short call is one off it.
    QStringList oneOff(const QString& call, int limit) const;

  private:
    static constexpr int Symbols = 64; // A-Z, 0-9, '/', anything else shares one slot
    static int symbol(char c);
    static int pairKey(char a, char b) { return symbol(a) * Symbols + symbol(b); }
    static constexpr int Pairs = Symbols * Symbols;
    template <class Each>
    static void buildLists(const Each& each, std::array<uint32_t, Pairs + 1>& start,
                           std::vector<uint32_t>& ids);

    std::vector<std::string> calls_; // sorted
    // For each pair of adjacent characters the calls holding it, in sorted order: those of pair
    // k are pairIds_[pairStart_[k] .. pairStart_[k + 1]). endIds_ holds the calls by their last
    // pair the same way.
    std::array<uint32_t, Pairs + 1> pairStart_{}, endStart_{};
    std::vector<uint32_t> pairIds_, endIds_;
    uint32_t pairCount(size_t k) const { return pairStart_[k + 1] - pairStart_[k]; }
};

// Exactly one substitution, insertion or deletion turns a into b (compared as they are: the
// calls of the window are upper case already).
bool isOneOff(std::string_view a, std::string_view b);
bool isOneOff(QStringView a, QStringView b);

// The own log's calls one edit away from a typed call, kept up as calls are added: the log
// grows by one call a QSO. Every logged call is filed under itself and under each of its forms
// with one character left out. A call one substitution, insertion or deletion away from the
// typed one then shares a key with it: the typed call itself or one of its own one-left-out
// forms. So a keystroke looks up a handful of keys whatever the log's size, and neither walks the
// calls sharing a short beginning (most of a keystroke at 100k QSOs once) nor tries every call
// one edit away (a few hundred probes a key).
class CallNeighbours {
  public:
    void clear();
    void add(const QString& call);
    int size() const { return int(calls_.size()); }
    QStringList oneOff(const QString& call) const; // sorted

  private:
    static uint32_t keyOf(std::string_view s);
    // Calls filed under the hash of key; isOneOff weeds out what only the hash shares.
    template <class Each> void eachUnder(std::string_view key, const Each& each) const;
    void file(uint32_t key, uint32_t id);
    template <class Each> static void eachShorter(const std::string& c, const Each& each);

    std::vector<std::string> calls_; // each logged call once
    // An open-addressing table, a power of two in size and at most half full: about seven
    // entries a call, 16 bytes each with the free slots, where a node-based multimap took 40.
    struct Slot {
        uint32_t key = 0;
        uint32_t id = Free;
    };
    static constexpr uint32_t Free = ~0U;
    std::vector<Slot> slots_;
    size_t filed_ = 0;
};

// The MASTER.SCP to read: the data folder's own copy when it has one, else Debian's
// (hamradio-files); empty when there is neither.
QString scpFilePath(const QString& dataDir);

} // namespace hfc

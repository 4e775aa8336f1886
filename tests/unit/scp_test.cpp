// Super check partial: the index over MASTER.SCP and the one-off match (the data folder's own
// file before Debian's: ScpFormTest).
#include "station/scp.h"
#include "testfiles.h"

#include <gtest/gtest.h>

using namespace hfc;

namespace {

const QString kDebianScp = QStringLiteral("/usr/share/hamradio-files/MASTER.SCP");

// Every call of the list that holds part / is one off call, by looking at each: what the index
// must give without looking at each.
QStringList scanContaining(const QStringList& all, const QString& part, int limit) {
    QStringList out;
    for (const QString& c : all)
        if (c.contains(part) && out.size() < limit) out << c;
    return out;
}
QStringList scanOneOff(const QStringList& all, const QString& call, int limit) {
    QStringList out;
    for (const QString& c : all)
        if (isOneOff(QStringView(call), QStringView(c)) && out.size() < limit) out << c;
    return out;
}

} // namespace

TEST(OneOff, SubstitutionInsertionDeletionAndNothingElse) {
    const auto off = [](const char* a, const char* b) {
        return isOneOff(std::string_view(a), std::string_view(b));
    };
    // one off: the last or a middle character changed, the last or the first dropped, one
    // inserted or added at the end, either way round
    for (const char* b : {"UA3ABD", "UA4ABC", "UA3AB", "A3ABC", "UA3AABC", "UA3ABCP"})
        EXPECT_TRUE(off("UA3ABC", b) && off(b, "UA3ABC")) << b;
    // not: the same call, a swap (two changes), two dropped, two changed
    for (const char* b : {"UA3ABC", "UA3BAC", "UA3A", "UA4ABD"})
        EXPECT_FALSE(off("UA3ABC", b)) << b;
    EXPECT_FALSE(isOneOff(QStringView(u"K1AB"), QStringView(u"K1BA"))); // the Qt strings alike
}

TEST(ScpIndex, ReadsCallsSkippingCommentsAndDuplicates) {
    ScpIndex scp;
    scp.load("# Release 2023\n#\nua3abc\r\nDL1AB\n\nDL1AB\nK1ABC extra words\n");
    EXPECT_EQ(scp.size(), 3u);
    EXPECT_TRUE(scp.contains("UA3ABC")); // upper-cased, line end trimmed
    EXPECT_TRUE(scp.contains("K1ABC"));
    EXPECT_EQ(scp.containing("AB", 10), QStringList({"DL1AB", "K1ABC", "UA3ABC"})); // sorted
    EXPECT_EQ(scp.containing("A", 10), QStringList());           // one character lists nothing
    EXPECT_EQ(scp.containing("1AB", 1), QStringList({"DL1AB"})); // the limit
    scp.load("W1AW\n");                                          // a second load replaces the first
    EXPECT_EQ(scp.size(), 1u);
    EXPECT_EQ(scp.containing("AB", 10), QStringList());
}

TEST(ScpIndex, CallsWithAPairTwiceAreListedOnce) {
    ScpIndex scp;
    scp.load("ABAB1\nAB1\n");
    EXPECT_EQ(scp.containing("AB", 10), QStringList({"AB1", "ABAB1"}));
    EXPECT_EQ(scp.containing("BAB", 10), QStringList({"ABAB1"}));
}

// On the real file the index gives exactly what looking at every call gives, for parts typed
// at the start, in the middle and at the end of calls, and for calls off in every way.
TEST(ScpIndex, DebianFileAgreesWithAFullScan) {
    ScpIndex scp;
    ASSERT_TRUE(scp.loadFile(kDebianScp));
    EXPECT_GT(scp.size(), 80000u);
    QStringList all = QString::fromLatin1(test::readFile(kDebianScp)).split('\n');
    all.erase(std::remove_if(all.begin(), all.end(),
                             [](const QString& l) { return l.isEmpty() || l.startsWith('#'); }),
              all.end());
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    ASSERT_EQ(size_t(all.size()), scp.size());
    for (const char* part : {"UA3", "DL", "3AB", "ABC", "/P", "K1", "QQ", "ZZZZ", "9A1", "0/"})
        EXPECT_EQ(scp.containing(part, 40), scanContaining(all, part, 40)) << part;
    for (const char* call : {"DL1ABD", "K1AR", "UA3ABQ", "W1AWX", "N1MMM", "UA9CDX", "ON4U", "G4D",
                             "DK1ABC/P", "XX9X"})
        EXPECT_EQ(scp.oneOff(call, 40), scanOneOff(all, call, 40)) << call;
    EXPECT_TRUE(scp.contains("CT7/DL6IAK/P")); // long portable calls are calls too
}

#include "keyer/keyer.h"
#include "keyer/morse.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <atomic>
#include <ostream>

namespace hfc {

void PrintTo(const KeyEvent& e, std::ostream* os) {
    *os << e.time << ' ' << e.name.toStdString() << ' ' << (e.value ? "true" : "false");
}

namespace {

QString u(const char* utf8) {
    return QString::fromUtf8(utf8);
}

QString code(const QString& text) {
    QString cwchar;
    return buildCwCode(text, cwchar);
}

// Dots and dashes as written in a Morse chart, to the keyer's digits.
QString fromChart(const QString& chart) {
    QString s;
    for (const QChar c : chart) s += QLatin1Char(c == '.' ? '1' : '3');
    return s + QLatin1Char('0');
}

TEST(MorseCode, LettersDigitsAndTheWordGapFollowTheChart) {
    const QString chars = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    const QStringList chart =
        QString(".- -... -.-. -.. . ..-. --. .... .. .--- -.- .-.. -- -. --- .--. --.- .-. ... - "
                "..- ...- .-- -..- -.-- --.. ----- .---- ..--- ...-- ....- ..... -.... --... ---.. "
                "----.")
            .split(' ');
    for (qsizetype i = 0; i < chars.size(); ++i) {
        EXPECT_EQ(code(chars[i]), fromChart(chart[i])) << chars[i].toLatin1();
        EXPECT_EQ(code(chars[i].toLower()), fromChart(chart[i])) << chars[i].toLatin1();
    }
    QString cwchar;
    EXPECT_EQ(buildCwCode("PARIS ", cwchar), "133101301310110111000"); // P A R I S, gap
    EXPECT_EQ(cwchar, "0");
}

TEST(MorseCode, CyrillicLettersTakeTheirLatinEquivalents) {
    const QString cyrillic = u("ЖЩЬЫЦЙХВАБГДЕЗИКЛМНОПРСТУФ"), latin = "VQXYCJHWABGDEZIKLMNOPRSTUF";
    for (qsizetype i = 0; i < cyrillic.size(); ++i) {
        EXPECT_EQ(code(cyrillic[i]), code(latin[i])) << int(cyrillic[i].unicode());
        EXPECT_EQ(code(cyrillic[i].toLower()), code(latin[i])) << int(cyrillic[i].unicode());
    }
    // letters of their own (the Russian signs: DeviceText)
    EXPECT_EQ(code(u("шЭ")), fromChart("----") + fromChart("..-.."));
}

TEST(MorseCode, CharacterWithoutEntryRepeatsThePreviousCode) {
    QString cwchar;
    EXPECT_EQ(buildCwCode(u("Ъ"), cwchar), "0"); // nothing converted yet
    EXPECT_EQ(cwchar, "");
    EXPECT_EQ(buildCwCode(u("AЪ"), cwchar), "130130");
    // The last code survives into the next message.
    EXPECT_EQ(buildCwCode(u("=ё+@ъ"), cwchar), "130130130130130");
}

// ---- keying ----

KeyEvent ev(qint64 t, const char* name, bool v) {
    return {t, QString::fromLatin1(name), v};
}

struct KeyerTest : ::testing::Test {
    std::shared_ptr<RecordingKeyPort> port = std::make_shared<RecordingKeyPort>();
    Keyer keyer{port};
    std::atomic<int> errors{0};
    void SetUp() override {
        keyer.setPortErrorHandler([this] { ++errors; });
    }
    std::vector<KeyEvent> sendAndTake(const QString& cwcode, qint64 unit, qint64 restored) {
        keyer.send(cwcode, unit, restored);
        keyer.waitIdle();
        return port->takeEvents();
    }
};

TEST_F(KeyerTest, ElementsKeepTheirProportionsAndTheTailUsesTheRestoredUnit) {
    // "A " is 13 0 0 0: the final "0" is not played.
    const std::vector<KeyEvent> expected = {
        ev(0, "PortOpen", true),     ev(0, "RTSEnable", true),  ev(0, "DTREnable", true),
        ev(10, "DTREnable", false),  ev(20, "DTREnable", true), ev(50, "DTREnable", false),
        ev(128, "RTSEnable", false), ev(128, "PortOpen", false)};
    EXPECT_EQ(sendAndTake("13000", 10, 7), expected);
    EXPECT_EQ(errors, 0);
    EXPECT_FALSE(port->isOpen());
}

TEST_F(KeyerTest, PortFaultsAreReportedAndAPortLeftOpenIsReused) {
    port->setBusy(true);
    EXPECT_TRUE(sendAndTake("130", 10, 10).empty());
    port->setBusy(false);

    // A line that cannot be set leaves the port open; the next message reuses it.
    port->setLinesFail(true);
    EXPECT_EQ(sendAndTake("130", 10, 10), std::vector<KeyEvent>{ev(0, "PortOpen", true)});
    port->setLinesFail(false);
    const auto events = sendAndTake("10", 10, 10);
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(events.front().name, "RTSEnable"); // not reopened
    EXPECT_EQ(events.back(), ev(60, "PortOpen", false));
    EXPECT_EQ(errors, 2);
}

TEST_F(KeyerTest, AbortStopsMidElementAndDropsTheQueue) {
    port->holdAt(25); // inside the dash of "T" (DTR on from 0 to 30)
    keyer.send("30", 10, 10);
    keyer.send("10", 10, 10);
    ASSERT_TRUE(port->waitUntilHeld(5000));
    EXPECT_TRUE(keyer.busy());
    keyer.abort();
    keyer.waitIdle();
    const std::vector<KeyEvent> expected = {ev(0, "PortOpen", true),    ev(0, "RTSEnable", true),
                                            ev(0, "DTREnable", true),   ev(25, "DTREnable", false),
                                            ev(25, "RTSEnable", false), ev(25, "PortOpen", false)};
    EXPECT_EQ(port->takeEvents(), expected);
    EXPECT_FALSE(port->isOpen());
    EXPECT_EQ(errors, 0);
    // Sending goes on normally after Esc.
    EXPECT_EQ(sendAndTake("10", 10, 10).size(), 6u);
}

} // namespace
} // namespace hfc

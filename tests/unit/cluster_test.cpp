// The telnet session against a cluster on a local port: the login, lines in pieces and a dropped
// link.
#include "clusterserver.h"
#include "formfixture.h"
#include "station/cluster.h"
#include "station/spot.h"

#include <gtest/gtest.h>
#include <memory>

using namespace hfc;
using hfc::test::ClusterServer;
using hfc::test::waitFor;

namespace {

struct ClusterTest : ::testing::Test {
    hfc::test::QtApp qt;
    std::unique_ptr<ClusterServer> server;
    std::unique_ptr<ClusterSession> session;
    QStringList lines;
    QString login = "UA3ABC";

    void SetUp() override {
        server = std::make_unique<ClusterServer>();
        session = std::make_unique<ClusterSession>();
        session->setBackoff(100, 400);
        QObject::connect(session.get(), &ClusterSession::lineReceived,
                         [this](const QString& l) { lines << l; });
    }
    void TearDown() override {
        session.reset();
        server.reset();
    }
    bool start() {
        return session->start(server->address(), [this] { return login; });
    }
    bool loggedIn(int connection) {
        return waitFor([&] {
            return server->connections == connection && server->received.count(login) == connection;
        });
    }
};

} // namespace

TEST_F(ClusterTest, AnswersThePromptAndHandsOnWholeLines) {
    ASSERT_TRUE(start());
    ASSERT_TRUE(loggedIn(1));
    EXPECT_EQ(session->state(), ClusterSession::State::Connected);
    EXPECT_EQ(server->received, QStringList({"UA3ABC"}));
    EXPECT_EQ(lines.value(0), "Please enter your call: ") << "the prompt is shown too";

    // A banner, then spots cut in two by the network, with bells, CRs and a telnet command.
    server->send("Hello UA3ABC, this is RU3AA-7 in Moscow\r\n"
                 "UA3ABC de RU3AA-7 24-Nov-2026 1200Z dxspider >\r\n"
                 "DX de G4ABC:      14025.0  UA3");
    ASSERT_TRUE(waitFor([&] { return lines.size() == 3; }));
    server->send(
        "ABC       up 1                           1405Z\a\a\r\n"
        "DX de DK9IP-#:   14010.1  JA1XYZ  \xff\xf1       CW    24 dB  28 WPM  CQ      1200Z\r\n"
        "\xc4\xee\xe1\xf0\xee \xef\xee\xe6\xe0\xeb\xee\xe2\xe0\xf2\xfc\r\n");
    ASSERT_TRUE(waitFor([&] { return lines.size() == 6; }));
    EXPECT_EQ(lines[1], "Hello UA3ABC, this is RU3AA-7 in Moscow");
    const auto first = parseSpotLine(lines[3]);
    ASSERT_TRUE(first.has_value()) << lines[3].toStdString();
    EXPECT_EQ(first->call + " " + first->time, "UA3ABC 1405Z");
    const auto skimmer = parseSpotLine(lines[4]);
    ASSERT_TRUE(skimmer.has_value()) << lines[4].toStdString();
    EXPECT_EQ(skimmer->comment, "CW 24 dB 28 WPM CQ");
    EXPECT_EQ(lines[5], "Добро пожаловать") << "Windows-1251 text of a Russian cluster";
    // (the operator's commands: BandmapClusterTest)
}

TEST_F(ClusterTest, ComesBackAfterADrop) {
    ASSERT_TRUE(start());
    ASSERT_TRUE(loggedIn(1));
    server->drop();
    ASSERT_TRUE(waitFor([&] { return session->state() == ClusterSession::State::Waiting; }));
    EXPECT_NE(session->stateText().indexOf("нет связи"), -1);
    EXPECT_FALSE(session->send("SH/DX")) << "nothing to send it on";
    // The first wait is short: the link is back and logged in again.
    ASSERT_TRUE(loggedIn(2));
}

// The band map of the main window: spots of the current band with their marks as this contest
// counts them, taken into the callsign box with Ctrl+arrows; and the whole panel against a
// cluster on a local port.
#include "clusterserver.h"
#include "scoringfixture.h"
#include "station/cluster.h"
#include "station/settings.h"

using namespace hfc;
using hfc::test::ClusterServer;
using hfc::test::waitFor;

namespace {

constexpr int Down = 40, Up = 38, Ctrl = 2;

struct BandmapTest : hfc::test::ScoringFixture {
    QList<double> qsy;

    void SetUp() override {
        ScoringFixture::SetUp();
        QObject::connect(form.get(), &ContestForm::qsyRequested, [this](double k) { qsy << k; });
    }
    void spot(const QString& call, const QString& kHz) {
        form->clusterLine("DX de SP5ZZZ:     " + kHz + "  " + call + "   CQ    1200Z");
    }
    // Logs a QSO through the entry line, the exchange as the window fills it in.
    void log(const QString& call, int band) {
        form->cmbband_Click(band);
        typeCall(call);
        form->typeText("\r\r");
        ASSERT_EQ(text("txtcall"), "") << "logged";
    }
    std::vector<QStringList> map() {
        form->bandmapRefresh();
        return form->bandmap->rows();
    }
};

} // namespace

TEST_F(BandmapTest, MarksRepeatsAndNewCountriesAndZonesOfTheBand) {
    select("mnucqww", "16");
    log("DL1ABC", 3); // DL, zone 14 on 14 MHz
    log("W1AW", 3);   // K, zone 5 on 14 MHz
    log("JA1XYZ", 4); // JA on 21 MHz only
    form->cmbband_Click(3);
    spot("DL1ABC", "14025.0"); // worked on this band
    spot("DL2ZZZ", "14030.0"); // country and zone worked here
    spot("JA1XYZ", "14005.0"); // worked, but on another band: a new country here
    spot("W6XX", "14040.5");   // country worked, zone 3 new
    spot("K1AR", "21020.0");   // another band
    EXPECT_EQ(map(), (std::vector<QStringList>{{"14005.0", "JA1XYZ", "0", "множ"},
                                               {"14025.0", "DL1ABC", "0", "повтор"},
                                               {"14030.0", "DL2ZZZ", "0", ""},
                                               {"14040.5", "W6XX", "0", "множ"}}));
    // A QSO logged changes the marks at the next redraw.
    log("JA1XYZ", 3);
    EXPECT_EQ(map()[0], QStringList({"14005.0", "JA1XYZ", "0", "повтор"}));
}

TEST_F(BandmapTest, CtrlArrowsTakeTheNextSpotWithItsLookupsAndMoveTheRig) {
    select("mnucqww", "16");
    log("DL1ABC", 3);
    spot("DL1ABC", "14025.0");
    spot("JA1XYZ", "14005.0");
    spot("W6XX", "14040.5");
    spot("K1AR", "21020.0");
    // In the middle of another QSO's exchange: the spot starts a new one.
    typeCall("UA9CDV");
    form->typeText("\r");
    form->txtrstr->setText("17");
    form->pressKey(Down, Ctrl);
    EXPECT_EQ(text("txtcall"), "JA1XYZ") << "the first time: the lowest";
    EXPECT_EQ(text("txtrstr"), "25") << "the zone of the new call, as typing fills it";
    form->pressKey(Down, Ctrl);
    form->pressKey(Down, Ctrl);
    form->pressKey(Down, Ctrl); // nothing above: stays
    EXPECT_EQ(text("txtcall"), "W6XX");
    form->pressKey(Up, Ctrl);
    EXPECT_EQ(text("txtcall"), "DL1ABC");
    EXPECT_EQ(qsy, QList<double>({14005.0, 14025.0, 14040.5, 14025.0}));
    EXPECT_EQ(form->focused(), form->txtcall) << "Ctrl+Up is no way to the band buttons";
}

namespace {

// The window built on a station whose settings name a cluster on a local port.
struct BandmapClusterTest : hfc::test::FormFixture {
    hfc::test::QtApp qt;
    std::unique_ptr<ClusterServer> server;
    StationSettings settings;

    void SetUp() override {
        FormFixture::SetUp();
        server = std::make_unique<ClusterServer>();
        settings.clusterHost = server->address();
        Env env = form->env();
        env.settings = &settings;
        form = std::make_unique<ContestForm>(env);
        form->owncall = "UA3ABC";
        form->Form_Load();
        form->cmbband_Click(3);
        form->cluster()->setBackoff(100, 400);
    }
    void TearDown() override {
        form.reset();
        server.reset();
    }
};

} // namespace

TEST_F(BandmapClusterTest, SpotsFromTheClusterReachTheMap) {
    EXPECT_TRUE(form->frcluster->visible());
    ASSERT_TRUE(waitFor([&] { return server->received == QStringList({"UA3ABC"}); }))
        << "logged in with the station's call as typed";
    EXPECT_NE(text("lblcluster").indexOf("на связи"), -1) << text("lblcluster").toStdString();
    server->send(
        "DX de G4ABC:      14025.0  DL1ABC       up 1                           1405Z\r\n"
        "DX de DK9IP-#:   14010.1  JA1XYZ         CW    24 dB  28 WPM  CQ      1200Z\r\n"
        "DX de OH2BH:     21012.5  K1AR         CQ                             0012Z KP20\r\n");
    // The map is redrawn by its own timer.
    ASSERT_TRUE(waitFor([&] { return form->bandmap->rowCount() == 2; }));
    EXPECT_EQ(form->bandmap->row(0), QStringList({"14010.1", "JA1XYZ", "0", ""}));
}

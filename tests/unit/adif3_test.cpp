#include "formatparsers.h"
#include "reports/standard/adif3.h"
#include "standardfixture.h"

using namespace hfc;

namespace {

Adif3Options options() {
    Adif3Options o;
    o.stationCallsign = "rz3dxx";
    o.createdUtc = QDateTime(QDate(2021, 5, 8), QTime(9, 30, 5), Qt::UTC);
    return o;
}

// Expected values of the fields the exchange and contest decide; "-" marks a field that must be
// absent. Order: CALL, BAND, MODE, RST_SENT, RST_RCVD, STX, SRX, STX_STRING, SRX_STRING,
// CONTEST_ID.
struct Expected {
    const char* fields[10];
};

const char* const kNames[10] = {"CALL", "BAND", "MODE",       "RST_SENT",   "RST_RCVD",
                                "STX",  "SRX",  "STX_STRING", "SRX_STRING", "CONTEST_ID"};

// The fixture log's QSOs in entry order (placeholder and empty-call rows are not QSOs).
const Expected kRecords[] = {
    {{"DL1ABC", "20m", "CW", "599", "599", "-", "-", "16", "14", "CQ-WW-CW"}},
    {{"JA1XYZ", "20m", "CW", "599", "599", "-", "-", "16", "25", "CQ-WW-CW"}},
    {{"UA1AAA", "20m", "CW", "599", "599", "1", "123", "-", "-", "CQ-WPX-CW"}},
    {{"K1AR", "15m", "CW", "599", "599", "-", "-", "16", "05", "CQ-WW-CW"}},
    {{"DL1ABC", "20m", "CW", "599", "599", "-", "-", "16", "14", "CQ-WW-CW"}},
    {{"OH2BH", "40m", "CW", "599", "599", "-", "-", "16", "15", "CQ-WW-CW"}},
    {{"UA1ANA", "20m", "CW", "599", "599", "-", "-", "MA", "SP", "RDXC"}},
    {{"DL1ABC", "20m", "CW", "599", "599", "-", "1", "MA", "-", "RDXC"}},
    {{"R9XC", "20m", "SSB", "59", "59", "-", "-", "MA", "KO", "RDXC"}},
    {{"R9XC", "20m", "SSB", "59", "59", "-", "-", "MA", "KO", "RDXC"}},
    {{"UA1ANA", "20m", "SSB", "59", "59", "-", "-", "MA", "SP", "RDXC"}},
    {{"DL1ABC", "20m", "CW", "599", "599", "1", "5", "-", "-", "DARC-WAEDC-CW"}},
    {{"OK1XYZ", "20m", "CW", "599", "599", "2", "10", "-", "-", "DARC-WAEDC-CW"}},
    {{"F5AAA", "20m", "CW", "599", "599", "3", "20", "-", "-", "DARC-WAEDC-CW"}},
    {{"G3BBB", "40m", "CW", "599", "599", "4", "15", "-", "-", "DARC-WAEDC-CW"}},
    {{"DL2CCC", "20m", "CW", "599", "599", "5", "100", "-", "-", "DARC-WAEDC-CW"}},
    // LZ Open: own serial and the number passed on; the received serial box is empty.
    {{"LZ1AB", "80m", "CW", "599", "599", "1", "-", "001 000", "001", "LZ-OPEN"}},
    // RAEM: serial and coordinates both ways, no report in the exchange.
    {{"R3AA", "20m", "CW", "599", "599", "1", "5", "001 56N38O", "005 55N37O", "RAEM"}},
    {{"UA3KHYZ", "30m", "CW", "599", "599", "2", "3", "-", "-", "CQ-WPX-CW"}},
};

} // namespace

TEST(Adif3, WholeLogReadsBackWithTheRightFields) {
    const QByteArray file = adif3File(options(), standardRows("log.psv"));
    const fmt::AdifFile adif = fmt::readAdif(file);
    EXPECT_TRUE(adif.errors.isEmpty()) << adif.errors.join('\n').toStdString();

    EXPECT_FALSE(file.startsWith('<')) << "a header must not begin with <";
    EXPECT_TRUE(adif.preamble.contains("hfcontest"));
    EXPECT_TRUE(adif.preamble.contains("2021-05-08 09:30:05"));
    EXPECT_EQ(adif.header.value("ADIF_VER"), "3.1.4");
    EXPECT_EQ(adif.header.value("PROGRAMID"), "hfcontest");
    EXPECT_EQ(adif.header.value("PROGRAMVERSION"), "0.1");
    EXPECT_EQ(adif.header.value("CREATED_TIMESTAMP"), "20210508 093005");

    const qsizetype n = std::size(kRecords);
    ASSERT_EQ(adif.records.size(), n);
    for (qsizetype i = 0; i < n; ++i) {
        const fmt::AdifFields& rec = adif.records[i];
        SCOPED_TRACE(i);
        EXPECT_TRUE(fmt::checkAdifRecord(rec).isEmpty())
            << fmt::checkAdifRecord(rec).join(", ").toStdString();
        for (int f = 0; f < 10; ++f) {
            const QString want = QLatin1String(kRecords[i].fields[f]);
            if (want == "-")
                EXPECT_FALSE(rec.contains(kNames[f])) << kNames[f];
            else
                EXPECT_EQ(rec.value(kNames[f]), want) << kNames[f];
        }
        EXPECT_EQ(rec.value("STATION_CALLSIGN"), "RZ3DXX");
    }
    EXPECT_EQ(adif.records[5].value("QSO_DATE"), "20201127");
    EXPECT_EQ(adif.records[5].value("TIME_ON"), "2359");
    EXPECT_EQ(adif.records[16].value("QSO_DATE"), "20210501");
}

TEST(Adif3, BrokenDatesAndUnknownBandsLeaveFieldsOutRatherThanWriteWrongOnes) {
    LogRow r;
    r.ccall = "DL1ABC", r.ddate = "31.02.21", r.ttime = "25:00", r.bband = "sat";
    r.rsts = r.rstr = r.rsts1 = r.rstr1 = "599", r.rsts2 = "001", r.rstr2 = "Зона 5";
    r.ps1 = "CW", r.ps2 = "hi hi";
    const fmt::AdifFile adif = fmt::readAdif(adif3File(Adif3Options{}, {r}));
    EXPECT_TRUE(adif.errors.isEmpty()) << adif.errors.join('\n').toStdString();
    ASSERT_EQ(adif.records.size(), 1);
    const fmt::AdifFields& rec = adif.records[0];
    for (const char* absent : {"QSO_DATE", "TIME_ON", "BAND", "CONTEST_ID", "STATION_CALLSIGN"})
        EXPECT_FALSE(rec.contains(absent)) << absent;
    EXPECT_EQ(rec.value("STX"), "1");
    EXPECT_EQ(rec.value("SRX_STRING"), "Zona 5") << "ASCII only, so Cyrillic is transliterated";
}

TEST(Adif3, EmptyLogHasTheHeaderOnly) {
    const fmt::AdifFile adif = fmt::readAdif(adif3File(options(), {}));
    EXPECT_TRUE(adif.errors.isEmpty());
    EXPECT_TRUE(adif.records.isEmpty());
    EXPECT_EQ(adif.header.value("PROGRAMID"), "hfcontest");
}

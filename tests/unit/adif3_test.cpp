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

} // namespace

// The golden file holds, per contest, which exchange goes into the number fields and which into
// the string fields: serials as STX/SRX, zones and districts as strings, LZ Open's passed-on
// number and RAEM's coordinates both ways; the placeholder and the empty call are left out.
TEST(Adif3, WholeLogMatchesTheGoldenFile) {
    const QByteArray file = adif3File(options(), standardRows("log.psv"));
    const QList<QByteArray> got = file.split('\n'), want = standardDataFile("log.adi").split('\n');
    for (qsizetype i = 0; i < std::min(got.size(), want.size()); ++i)
        EXPECT_EQ(got[i].toStdString(), want[i].toStdString()) << "line " << i + 1;
    EXPECT_EQ(got.size(), want.size());

    EXPECT_FALSE(file.startsWith('<')) << "a header must not begin with <";
}

TEST(Adif3, BrokenDatesAndUnknownBandsLeaveFieldsOutRatherThanWriteWrongOnes) {
    LogRow r;
    r.ccall = "DL1ABC", r.ddate = "31.02.21", r.ttime = "25:00", r.bband = "sat";
    r.rsts = r.rstr = r.rsts1 = r.rstr1 = "599", r.rsts2 = "001", r.rstr2 = "Зона 5";
    r.ps1 = "CW", r.ps2 = "hi hi";
    const QByteArray file = adif3File(Adif3Options{}, {r});
    EXPECT_EQ(file.count("<EOR>"), 1);
    for (const char* absent :
         {"<QSO_DATE", "<TIME_ON", "<BAND", "<CONTEST_ID", "<STATION_CALLSIGN"})
        EXPECT_FALSE(file.contains(absent)) << absent;
    EXPECT_TRUE(file.contains("<STX:1>1 "));
    EXPECT_TRUE(file.contains("<SRX_STRING:6>Zona 5 "))
        << "ASCII only, so Cyrillic is transliterated";
    // an empty log: the header alone
    const QByteArray empty = adif3File(options(), {});
    EXPECT_TRUE(empty.endsWith("<EOH>\r\n")) << empty.constData();
}

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

} // namespace

// The golden file holds, per contest, which exchange goes into the number fields and which into
// the string fields: serials as STX/SRX, zones and districts as strings, LZ Open's passed-on
// number and RAEM's coordinates both ways; the placeholder and the empty call are left out.
TEST(Adif3, WholeLogMatchesTheGoldenFileAndReadsBackClean) {
    const QByteArray file = adif3File(options(), standardRows("log.psv"));
    const QList<QByteArray> got = file.split('\n'), want = standardDataFile("log.adi").split('\n');
    for (qsizetype i = 0; i < std::min(got.size(), want.size()); ++i)
        EXPECT_EQ(got[i].toStdString(), want[i].toStdString()) << "line " << i + 1;
    EXPECT_EQ(got.size(), want.size());

    const fmt::AdifFile adif = fmt::readAdif(file);
    EXPECT_TRUE(adif.errors.isEmpty()) << adif.errors.join('\n').toStdString();
    EXPECT_FALSE(file.startsWith('<')) << "a header must not begin with <";
    EXPECT_EQ(adif.header.value("CREATED_TIMESTAMP"), "20210508 093005");
    EXPECT_EQ(adif.records.size(), 19);
    for (const fmt::AdifFields& rec : adif.records)
        EXPECT_TRUE(fmt::checkAdifRecord(rec).isEmpty())
            << fmt::checkAdifRecord(rec).join(", ").toStdString();
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
    // an empty log: the header alone
    const fmt::AdifFile empty = fmt::readAdif(adif3File(options(), {}));
    EXPECT_TRUE(empty.errors.isEmpty());
    EXPECT_TRUE(empty.records.isEmpty());
    EXPECT_EQ(empty.header.value("PROGRAMID"), "hfcontest");
}

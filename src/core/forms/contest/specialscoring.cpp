// RAEM coordinate scoring and the SAC area multiplier.
#include "contests/scoring.h"
#include "entry/entrysession.h"
#include "forms/contest/contestform.h"
#include "forms/contest/entrymark.h"

namespace hfc {

void ContestForm::registerSpecialScoring() {
    proc("raemscore", [this] { raemscore(); });
    proc("SAC", [this] { SAC(); });
    proc("SAC1", [this] { SAC1(); });
    proc("SAC2", [this] { SAC2(); });
    proc("Prowerka", [this] { Prowerka(); });
    proc("mnuprow_Click", [this] { mnuprow_Click(); });
    var("sacarea", sacarea);
    var("sacbox", sacbox);
}

// Received exchange: serial (3) + latitude (2) + "N" + longitude (2 or 3) + "O".
// Own exchange: latitude (2) + "N" + longitude (2) + "O".
void ContestForm::raemscore() {
    const QString rx = txtrstr->text();
    if (rx.size() != 9 && rx.size() != 10) return;
    const bool longLon = rx.size() == 10;
    const long long lat = val(rx.mid(3, 2));
    const long long lon = val(rx.mid(6, longLon ? 3 : 2));
    const auto points =
        contests::raemPoints(lat, lon, longLon, val(myexch.mid(0, 2)), val(myexch.mid(3, 2)));
    if (!points) return;
    setPoints(num(*points));
    if (lat >= contests::RaemNorthLat) setPoints2(QStringLiteral("100"));
    if (txtcall->text() == QLatin1String("RAEM")) setPoints2(QStringLiteral("300"));
    if (session().draft().mark != QsoDraft::Mark::None) {
        setPoints(QStringLiteral("0"));
        setPoints2(QString());
    }
}

void ContestForm::SAC() {
    setPoints(QStringLiteral("0"));
    sacarea = 0;
    if (session().draft().mark != QsoDraft::Mark::None) setPoints(QStringLiteral("0"));
    // The points were zeroed just above, so the area check below does not run from here; the
    // order is kept as it has always been.
    if (val(session().draft().points) == 1) {
        draft().multCandidate = contests::sacCandidate(draft().dxccPrefix, txtcall->text(), digits);
        multcheck();
    }
}

void ContestForm::SAC1() {
    if (val(session().draft().points) == 1 && draft().multCandidate.size() > 2)
        sacbox = 10 * sacarea + int(val(draft().multCandidate.mid(2, 1)));
}

void ContestForm::SAC2() {}

} // namespace hfc

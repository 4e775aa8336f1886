// The next exchange to send and the band totals, rebuilt from the log of the current contest.
#include "contests/scoring.h"
#include "data/db.h"
#include "data/logtally.h"
#include "forms/contest/contestform.h"

namespace hfc {

void ContestForm::registerRecount() {
    proc("nextserial", [this] { nextserial(); });
    proc("recount", [this] { recount(); });
}

LogTally& ContestForm::tally() {
    if (!tally_) tally_ = std::make_unique<LogTally>(logDb());
    return *tally_;
}

void ContestForm::nextserial() {
    Db& db = logDb();
    const contests::ContestDef& def = contestDef();
    LogTally& t = tally();
    t.sync(contestcode, def.countsPoints());
    TXTRSTS2->setText(num(t.qsos() - othersQsos()));

    if (fixexch != 0)
        txtrsts->setText(myexch);
    else
        txtrsts->setText(contests::padSerial(val(TXTRSTS2->text()) + 1));

    switch (def.second) {
    case contests::SecondSent::Serial: {
        // serial and own coordinates go out as two elements
        lblrsts->setText(txtrsts->text());
        txtrsts->setText(myexch);
        lblrstr->setText(QString());
        break;
    }
    case contests::SecondSent::Counter:
        lblrstr->setText(QString());
        lblrsts->setText(QStringLiteral("1"));
        break;
    case contests::SecondSent::PassedOn: {
        // The exchange passes on the number received in the previous QSO.
        QString pass;
        if (txtrsts->text() == QLatin1String("001")) {
            pass = QStringLiteral("000");
        } else {
            // Read back from the end of the table: the last QSO is nearly always the newest
            // row. An index on the contest would make SQLite sort all of its rows instead.
            const Rows last =
                db.query(QStringLiteral("SELECT rstr2 FROM tbllog NOT INDEXED WHERE ps2 = ?1 "
                                        "ORDER BY rowid DESC LIMIT 1"),
                         {contestcode});
            if (!last.empty()) pass = last[0][0].left(3);
        }
        lblrsts->setText(txtrsts->text());
        txtrsts->setText(pass);
        break;
    }
    case contests::SecondSent::None:
        break;
    }
}

// Per band: QSOs without placeholders; distinct non-empty first and second multipliers
// (placeholders included, as logged), or for the championship the summed points. The tally
// keeps these between calls, so the recount after each QSO costs a few index probes.
void ContestForm::recount() {
    const contests::ContestDef& def = contestDef();
    const bool chemp = def.totals == contests::Totals::PointsPerBand;
    LogTally& t = tally();
    t.sync(contestcode, def.countsPoints());
    const auto sumText = [](std::optional<qint64> v) {
        return v ? QString::number(*v) : QString();
    };

    long long qsum = 0, msum = 0, m1sum = 0;
    for (int b = 0; b < 7; ++b) {
        const LogTally::Band f = t.band(cmbband[b]->text());
        qsoband[b]->setText(num(f.qsos));
        multband[b]->setText(num(chemp ? val(sumText(f.points)) : f.mults));
        multband1[b]->setText(num(chemp ? val(sumText(f.points2)) : f.mults2));
        qsum += val(qsoband[b]->text());
        msum += val(multband[b]->text());
        m1sum += val(multband1[b]->text());
    }
    qsotot->setText(num(qsum));
    multtot->setText(num(msum));
    multtot1->setText(num(m1sum));

    // Contests without multipliers show their point total in the multiplier total.
    if (def.totals == contests::Totals::PointsOnly) {
        const QString points = sumText(t.points());
        multtot->setText(points.isEmpty() ? QStringLiteral("0") : points);
    }
    showClaimedScore();
}

} // namespace hfc

// The next exchange to send and the band totals, rebuilt from the log of the current contest.
#include "contests/scoring.h"
#include "data/db.h"
#include "forms/contest/contestform.h"

namespace hfc {

namespace {
// A call of one double quote marks a placeholder row: never a QSO.
const QString& placeholder() {
    static const QString q = QStringLiteral("\"");
    return q;
}
} // namespace

void ContestForm::registerRecount() {
    proc("nextserial", [this] { nextserial(); });
    proc("recount", [this] { recount(); });
}

void ContestForm::nextserial() {
    Db& db = logDb();
    const QString count =
        db.scalar(QStringLiteral("SELECT COUNT(*) FROM tbllog WHERE ps2 = ?1 AND ccall <> ?2"),
                  {contestcode, placeholder()});
    TXTRSTS2->setText(num(val(count)));

    if (fixexch != 0)
        txtrsts->setText(myexch);
    else
        txtrsts->setText(contests::padSerial(val(TXTRSTS2->text()) + 1));

    if (contestcode == QLatin1String("raem")) {
        // serial and own coordinates go out as two elements
        lblrsts->setText(txtrsts->text());
        txtrsts->setText(myexch);
        lblrstr->setText(QString());
    }
    if (contestcode == QLatin1String("chemp")) {
        lblrstr->setText(QString());
        lblrsts->setText(QStringLiteral("1"));
    }
    if (contestcode == QLatin1String("lzo")) {
        // The exchange passes on the number received in the previous QSO.
        QString pass;
        if (txtrsts->text() == QLatin1String("001")) {
            pass = QStringLiteral("000");
        } else {
            const Rows last = db.query(QStringLiteral("SELECT rstr2 FROM tbllog WHERE ps2 = ?1 "
                                                      "ORDER BY rowid DESC LIMIT 1"),
                                       {contestcode});
            if (!last.empty()) pass = last[0][0].left(3);
        }
        lblrsts->setText(txtrsts->text());
        txtrsts->setText(pass);
    }
}

void ContestForm::recount() {
    Db& db = logDb();
    const bool chemp = contestcode == QLatin1String("chemp");
    const QStringList params{contestcode, placeholder()};
    // Per band: QSOs without placeholders; distinct non-empty first and second multipliers
    // (placeholders included, as logged), or for the championship the summed points. Each query
    // reads one covering index of the log.
    const Rows qsos = db.query(QStringLiteral("SELECT bband, COUNT(*) FROM tbllog WHERE ps2 = ?1 "
                                              "AND ccall <> ?2 GROUP BY bband"),
                               params);
    Rows first, second;
    if (chemp) {
        // the championship logs are small: one pass over the rows for both sums
        const Rows sums = db.query(QStringLiteral("SELECT bband, SUM(CAST(point AS INTEGER)), "
                                                  "SUM(CAST(point2 AS INTEGER)) FROM tbllog "
                                                  "WHERE ps2 = ?1 GROUP BY bband"),
                                   {contestcode});
        for (const QStringList& r : sums) {
            first.push_back({r[0], r[1]});
            second.push_back({r[0], r[2]});
        }
    } else {
        first = db.query(QStringLiteral("SELECT bband, COUNT(DISTINCT mult) FROM tbllog "
                                        "WHERE ps2 = ?1 AND length(mult) > 0 GROUP BY bband"),
                         {contestcode});
        second = db.query(QStringLiteral("SELECT bband, COUNT(DISTINCT ps) FROM tbllog "
                                         "WHERE ps2 = ?1 AND length(ps) > 0 GROUP BY bband"),
                          {contestcode});
    }
    const auto of = [](const Rows& rows, const QString& band) -> long long {
        for (const QStringList& r : rows)
            if (r[0] == band) return val(r[1]);
        return 0;
    };

    long long qsum = 0, msum = 0, m1sum = 0;
    for (int b = 0; b < 7; ++b) {
        const QString band = cmbband[b]->text();
        qsoband[b]->setText(num(of(qsos, band)));
        multband[b]->setText(num(of(first, band)));
        multband1[b]->setText(num(of(second, band)));
        qsum += val(qsoband[b]->text());
        msum += val(multband[b]->text());
        m1sum += val(multband1[b]->text());
        qsotot->setText(num(qsum));
        multtot->setText(num(msum));
        multtot1->setText(num(m1sum));
    }

    // Contests without multipliers show their point total in the multiplier total.
    if (contestcode == QLatin1String("lzo") || contestcode == QLatin1String("bal")) {
        const QString points = db.scalar(
            QStringLiteral("SELECT SUM(CAST(point AS INTEGER)) FROM tbllog WHERE ps2 = ?1"),
            {contestcode});
        multtot->setText(points.isEmpty() ? QStringLiteral("0") : points);
    }
}

} // namespace hfc

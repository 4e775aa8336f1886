#pragma once
// Real QSOs logged through the entry line, key by key, one contest at a time: the points they
// are stored with, or the "Неверно" mark when the exchange is refused.
#include "contests/contestdef.h"
#include "entryfixture.h"

namespace hfc::test {

struct ScoringFixture : EntryFixture {
    // One QSO: the own call, the call worked, the band, the received exchange as typed
    // (nullptr: the pre-filled one is taken; in "chemp" "R SERIAL", the report first), the
    // expected outcome ("3"; "17/100" when a second count is not 0; "Неверно"), the mode.
    struct Qso {
        const char* own;
        const char* call = nullptr;
        const char* band = nullptr;
        const char* ex = nullptr;
        const char* want = nullptr;
        const char* mode = "CW";
    };

    // Chooses a contest through its menu item, answering its input box with myexch.
    void select(const QString& menuItem, const QString& myexch = {}) {
        if (contests::byMenuItem(menuItem)->prompt) ui.queueInput(myexch);
        form->fire(menuItem + "_Click");
        ui.takeShown();
    }

    std::string enter(const Qso& q) {
        db.contest.exec("DELETE FROM tbllog");
        if (text("TXTNCALL") != q.own) {
            form->TXTNCALL->setText(q.own);
            form->resolveOwnCall();
        }
        static const QStringList bands = {"1,8", "3,5", "7", "14", "21", "28", "sat"};
        form->cmbband_Click(int(bands.indexOf(q.band)));
        if (text("cmbmod") != q.mode) form->cmbmod_Click();
        typeCall(q.call);
        form->typeText("\r");
        QString ex = q.ex ? QString(q.ex) : QString();
        if (form->contestcode == "chemp") {
            form->typeText(ex.section(' ', 0, 0) + "\r");
            ex = ex.section(' ', 1);
        }
        if (q.ex) form->typeText(ex);
        // A letters-only box cannot hold a serial: the operator logs with the "Ввод" button.
        if (form->txtrstr->text().isEmpty())
            form->cmbAdd_Click();
        else
            form->typeText("\r");
        if (logRows() == 0) return mark().toStdString();
        const auto row = db.contest.query("SELECT point, point2 FROM tbllog")[0];
        const bool second = !row[1].isEmpty() && row[1] != "0";
        return (second ? row[0] + "/" + row[1] : row[0]).toStdString();
    }

    // Chooses the contest ("mnucqww 16": with the answer to its question), then logs each QSO
    // on an empty log and compares. One QSO a string, "own call band exchange outcome [mode]";
    // the exchange "." is the pre-filled one, "-" an empty one, and "_" stands for a space in it.
    void expectIn(const QString& menuItem, std::initializer_list<const char*> rows) {
        select(menuItem.section(' ', 0, 0), menuItem.section(' ', 1));
        for (const char* row : rows) {
            const QStringList w = QString::fromUtf8(row).split(' ');
            ASSERT_GE(w.size(), 5) << row;
            const QByteArray own = w[0].toUtf8(), call = w[1].toUtf8(), band = w[2].toUtf8(),
                             mode = w.value(5, "CW").toUtf8(),
                             ex = w[3] == "-" ? QByteArray("") : w[3].toUtf8().replace('_', ' ');
            Qso q{own.constData(), call.constData(), band.constData()};
            q.ex = w[3] == "." ? nullptr : ex.constData(), q.mode = mode.constData();
            EXPECT_EQ(enter(q), w[4].toStdString()) << menuItem.toStdString() << ": " << row;
        }
    }
};

} // namespace hfc::test

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

    // Logs each QSO on an empty log and compares; the message names the failing row. A row of
    // a menu item alone ("mnucqww 16": with the answer to its question) chooses that contest.
    void expectAll(std::initializer_list<Qso> qsos) {
        for (const Qso& q : qsos) {
            if (!q.call) {
                const QString item(q.own);
                select(item.section(' ', 0, 0), item.section(' ', 1));
                continue;
            }
            EXPECT_EQ(enter(q), q.want)
                << form->contestcode.toStdString() << ": " << q.own << " works " << q.call << " on "
                << q.band << " " << q.mode << ", exchange " << (q.ex ? q.ex : "(as filled)");
        }
    }
};

} // namespace hfc::test

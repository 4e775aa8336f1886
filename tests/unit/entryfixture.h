#pragma once
// The main window with a band chosen and the entry line at hand.
#include "formfixture.h"

#include <ostream>

// Readable QString values in failure messages.
inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace hfc::test {

struct EntryFixture : FormFixture {
    void SetUp() override {
        FormFixture::SetUp();
        form->cmbband_Click(3); // 14 MHz
    }
    // The time box as the clock would fill it.
    void at(const QString& hhmm) { form->txttime->setText(hhmm + ":00"); }
    // Types a call into the empty callsign box, key by key.
    void typeCall(const QString& call) {
        form->setFocus("txtcall");
        form->txtcall->setText("");
        form->typeText(call);
    }
    // Types the own call into its emptied box and confirms it with Enter.
    void typeOwnCall(const QString& call) {
        form->setFocus("TXTNCALL");
        form->TXTNCALL->setText("");
        form->typeText(call + "\r");
    }
    // Resolves a call as the keystroke path does.
    void resolve(const QString& call) {
        form->txtcall->setText(call);
        form->wwodcall();
    }
    bool marked() { return form->txtrepit->visible(); }
    QString mark() { return marked() ? form->txtrepit->text() : QString(); }
    int logRows() { return db.contest.count("SELECT rowid FROM tbllog"); }
};

} // namespace hfc::test

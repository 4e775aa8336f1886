// Contest selection: one handler per menu item, all driven by the contests' definitions.
#include "contests/contestdef.h"
#include "forms/contest/contestform.h"

#include <QTimer>

namespace hfc {

namespace {
QString utf8(const char* s) {
    return QString::fromUtf8(s);
}
} // namespace

void ContestForm::registerSelection() {
    // Menu items of the contests: the first ones straight in "Соревнования", the rest in its
    // submenu "Далее".
    mnudal->setExtra(QStringLiteral("parent"), QStringLiteral("cmbadd1"));
    const auto all = contests::catalogue();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const QString item = QLatin1String(all[i].menuItem);
        Control* m = add(item, Control::Kind::Menu, utf8(all[i].caption));
        m->setExtra(QStringLiteral("parent"), contests::menuParent(int(i)));
        contestMenu.push_back(m);
        proc(item + QStringLiteral("_Click"), [this, item] { selectContest(item); });
    }
    proc("clearmwid", [this] { clearmwid(); });
    var("mwidmode", mwidmode);
    var("bandmult", bandmult);
}

void ContestForm::selectContest(const QString& menuItem, const QString* keptExch) {
    const contests::ContestDef* c = contests::byMenuItem(menuItem);
    if (!c) return;
    const QString code = QLatin1String(c->code);
    contestcode = code;

    // The script-visible switches, where 0 means "the rule applies".
    using namespace contests;
    const auto sw = [](bool applies) { return applies ? 0 : 1; };
    dxccmult = sw(c->firstMult == FirstMult::Country);
    pfxmult = sw(c->firstMult == FirstMult::Prefix);
    itufill = sw(c->fromCall == ExchangeFromCall::ItuZone);
    cqfill = sw(c->fromCall == ExchangeFromCall::CqZone);
    exchmult = sw(c->exchangeIsMult);
    if (c->sent != SentExchange::AsBefore) fixexch = c->sent == SentExchange::Fixed ? 1 : 0;
    exchsel1 = sw(c->chars == ExchangeChars::Serial);
    exchsel2 = sw(c->chars == ExchangeChars::Number);
    exchsel3 = sw(c->chars == ExchangeChars::Letters);
    exchsel4 = sw(c->chars == ExchangeChars::Mixed);
    int* types[4] = {&ctype1, &ctype2, &ctype3, &ctype4};
    for (int t = 0; t < 4; ++t) *types[t] = (t + 1 == c->contestClass) ? c->classValue : 0;

    // Asked before the restart: the serial box shows the fixed exchange at once.
    if (c->prompt) myexch = keptExch ? *keptExch : inputbox(utf8(c->prompt), utf8(c->promptTitle));
    keepSession(QStringLiteral("contest"), code);
    keepSession(QStringLiteral("myexch"), myexch);

    if (contests::runsRestart(c->calls)) {
        nextserial();
        recount();
    }

    LBLCONTEST->setText(utf8(c->title));
    for (const contests::Setting& s : c->captions) {
        Control* ctl = control(QLatin1String(s.control));
        if (!ctl) continue;
        if (s.prop == contests::Setting::Prop::Caption)
            ctl->setText(utf8(s.value));
        else
            ctl->setVisible(QLatin1String(s.value) == QLatin1String("1"));
    }

    // A contest without a window leaves the window, its mode and its size as they were.
    if (c->window != contests::WindowKind::None) {
        mwidlast = c->boxes - 1;
        mwidmode = contests::windowMode(c->window);
        bandmult = c->windowPerBand ? 1 : 0;
        if (contests::runsClear(c->calls)) clearmwid();
        // Marks of the contest chosen before would claim multipliers this one has not worked.
        for (Control* box : txtMwid) box->setBackcolor(QString());
        if (c->window != contests::WindowKind::Cleared)
            for (int i = 0; i <= mwidlast; ++i) txtMwid[i]->setText(contests::windowBox(*c, i));
        // A list shows only its own boxes, so the window takes no more room than the list; the
        // worked prefixes of a cleared window may fill every box.
        for (int i = 0; i < MwidBoxes; ++i)
            txtMwid[i]->setVisible(c->window == contests::WindowKind::Cleared || i <= mwidlast);
    }

    refreshMultWindow();
    showRates();
    setFocus(QStringLiteral("cmbband"));

    // The contest's worked calls and their one-off index are read as soon as the window is
    // idle after the choice (a start restores it the same way), not at the second and third
    // key of the first call typed: at 10k QSOs that read held up those keys by 40 ms.
    QTimer::singleShot(0, this, [this, code] {
        if (contestcode == code) loggedNeighbours(workedCalls());
    });
}

const contests::ContestDef& ContestForm::contestDef() const {
    // A string compare on the keystroke path; the hash probe only when the code has changed.
    if (!def_ || defCode_ != contestcode) {
        defCode_ = contestcode;
        def_ = &contests::def(contestcode);
    }
    return *def_;
}

void ContestForm::clearmwid() {
    for (int i = 0; i <= mwidlast && i < MwidBoxes; ++i) txtMwid[i]->setText(QString());
}

} // namespace hfc

#include "forms/chooser/chooserform.h"

#include "contests/contestdef.h"

namespace hfc {

using K = Control::Kind;

namespace {
QString entryText(const contests::ContestDef& c) {
    return QStringLiteral("%1 — %2 — %3")
        .arg(QString::fromUtf8(c.caption), QString::fromUtf8(c.title).simplified(),
             QString::fromUtf8(c.code));
}
} // namespace

QStringList matchingContests(const QString& filter) {
    const QStringList words = filter.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QString joined = words.join(QString());
    // The contest whose code is what was typed comes first ("cq ww" is CQ WW, not CQ WW 160 m),
    // then those whose menu name begins with it, then the rest, each in menu order.
    QStringList exact, starts, out;
    for (const QString& item : contests::menuOrder()) {
        const contests::ContestDef* c = contests::byMenuItem(item);
        if (!c) continue;
        const QString hay = QString::fromUtf8(c->code) + QLatin1Char(' ') +
                            QString::fromUtf8(c->caption) + QLatin1Char(' ') +
                            QString::fromUtf8(c->title);
        bool all = true;
        for (const QString& w : words) all = all && hay.contains(w, Qt::CaseInsensitive);
        if (!all) continue;
        if (QString::fromUtf8(c->code).compare(joined, Qt::CaseInsensitive) == 0)
            exact << item;
        else if (QString::fromUtf8(c->caption).startsWith(filter.trimmed(), Qt::CaseInsensitive))
            starts << item;
        else
            out << item;
    }
    return exact + starts + out;
}

ChooserForm::ChooserForm(const Env& env, std::function<void(const QString&)> chooseItem,
                         QObject* parent)
    : Form(QStringLiteral("chooser"), env, parent), choose_(std::move(chooseItem)) {
    windowTitle = QStringLiteral("Выбор соревнования");
    escCloses = true;
    lblfilter = add("lblfilter", K::Label, "Наберите часть названия или кода, Enter — выбрать");
    txtfilter = add("txtfilter", K::TextBox);
    lstcontests = add("lstcontests", K::List);

    proc("Form_Load", [this] { Form_Load(); });
    // Only a changed filter lists anew: the arrows walking the list leave it as it is.
    proc("txtfilter_KeyUp", [this] {
        if (txtfilter->text() != shownFilter_) filter();
    });
    on("txtfilter_KeyPress", [this](Event& e) {
        if (e.keyAscii == keys::Enter) {
            e.keyAscii = 0;
            choose();
        }
    });
    on("txtfilter_KeyDown", [this](Event& e) {
        if (e.keyCode == keys::Down) move(1);
        if (e.keyCode == keys::Up) move(-1);
    });
    proc("lstcontests_Click", [this] { choose(); });
}

void ChooserForm::Form_Load() {
    txtfilter->setText(QString());
    filter();
    setFocus(txtfilter);
}

void ChooserForm::filter() {
    shownFilter_ = txtfilter->text();
    shownItems_ = matchingContests(shownFilter_);
    QStringList texts;
    for (const QString& item : shownItems_) texts << entryText(*contests::byMenuItem(item));
    lstcontests->setItems(texts);
    lstcontests->setText(texts.value(0)); // the first match is the one Enter takes
}

void ChooserForm::move(int step) {
    const QStringList& items = lstcontests->items();
    if (items.isEmpty()) return;
    const int at = int(items.indexOf(lstcontests->text()));
    lstcontests->setText(items.at(qBound(0, at + step, int(items.size()) - 1)));
}

void ChooserForm::choose() {
    const int at = int(lstcontests->items().indexOf(lstcontests->text()));
    if (at < 0 || at >= shownItems_.size()) return; // nothing matches: the window stays
    const QString item = shownItems_.at(at);
    unload();
    choose_(item);
}

} // namespace hfc

#include "otchetview.h"

#include "binder.h"
#include "forms/form.h"
#include "forms/otchet/otchetform.h"
#include "ratechart.h"
#include "viewparts.h"

#include <QHeaderView>
#include <QTabWidget>
#include <QTableView>

#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace hfc {

OtchetView::OtchetView(Form* form, QWidget* parent)
    : QWidget(parent, Qt::Window), form_(form), binder_(new Binder(form, this)) {
    setWindowTitle(QStringLiteral("Отчет"));
    auto* outer = new QVBoxLayout(this);
    auto* tabs = new QTabWidget;
    outer->addWidget(tabs);
    auto* page = new QWidget;
    tabs->addTab(page, QStringLiteral("Отчет"));
    tabs->addTab(buildRatePage(), QStringLiteral("Темп по часам"));
    auto* v = new QVBoxLayout(page);
    auto* top = new QHBoxLayout;

    // station data
    auto* station = binder_->make("Frame1");
    auto* sg = new QGridLayout(station);
    const std::pair<const char*, const char*> boxes[] = {
        {"tcont", "Соревнование"}, {"tcall", "Позывной"}, {"tpod", "Подгруппа"},
        {"tname", "Фамилия, имя"}, {"tadres", "Адрес"},   {"tgor", "Город"},
        {"tstr", "Страна"}};
    int r = 0;
    for (const auto& [name, text] : boxes) {
        sg->addWidget(new QLabel(QString::fromUtf8(text)), r, 0);
        sg->addWidget(binder_->make(name), r, 1);
        ++r;
    }
    sg->addWidget(new QLabel(QStringLiteral("Даты")), r, 0);
    sg->addWidget(binder_->make("Text4"), r, 1);
    top->addWidget(station, 1);

    // band table
    auto* table = new QGroupBox(QStringLiteral("Итоги по диапазонам"));
    auto* tg = new QGridLayout(table);
    tg->addWidget(binder_->make("lq"), 0, 1);
    tg->addWidget(binder_->make("ld"), 0, 2);
    tg->addWidget(binder_->make("lz"), 0, 3);
    tg->addWidget(binder_->make("lp"), 0, 4);
    for (int i = 0; i < 7; ++i) {
        tg->addWidget(binder_->make(arr("lblb", i)), i + 1, 0);
        tg->addWidget(binder_->make(arr("tq", i)), i + 1, 1);
        tg->addWidget(binder_->make(arr("tdx", i)), i + 1, 2);
        tg->addWidget(binder_->make(arr("tz", i)), i + 1, 3);
        tg->addWidget(binder_->make(arr("tp", i)), i + 1, 4);
    }
    tg->addWidget(binder_->make("Label17"), 8, 0);
    tg->addWidget(binder_->make("tqtot"), 8, 1);
    tg->addWidget(binder_->make("tdxtot"), 8, 2);
    tg->addWidget(binder_->make("tztot"), 8, 3);
    tg->addWidget(binder_->make("tptot"), 8, 4);
    auto* formula = new QHBoxLayout;
    for (const char* name : {"lblrez1", "Text3", "lblrez2", "Text2", "lblrez3", "Text1"})
        formula->addWidget(binder_->make(name));
    formula->addWidget(new QLabel(QStringLiteral("=")));
    formula->addWidget(binder_->make("trezult"));
    tg->addLayout(formula, 9, 0, 1, 5);
    auto* claimed = new QHBoxLayout;
    claimed->addWidget(binder_->make("lblclaimed"), 1);
    claimed->addWidget(binder_->make("tclaimed"));
    tg->addLayout(claimed, 10, 0, 1, 5);
    top->addWidget(table, 1);
    v->addLayout(top);

    // The standard exports first, a robot takes them; the output folder and the check of the
    // log beside them.
    auto* middle = new QHBoxLayout;
    if (QWidget* standard = buildStandardExports()) middle->addWidget(standard, 2);
    auto* folder = binder_->make("Frame2");
    auto* fg = new QVBoxLayout(folder);
    QWidget* dir = binder_->make("Dir1");
    dir->setMinimumHeight(120);
    fg->addWidget(dir, 1);
    fg->addWidget(binder_->make("txtput"));
    if (form->control("lstlint")) {
        fg->addWidget(binder_->make("lbllint"));
        QWidget* lint = binder_->make("lstlint");
        lint->setMaximumHeight(110);
        fg->addWidget(lint);
    }
    middle->addWidget(folder, 3);
    v->addLayout(middle, 1);

    // The old formats, byte for byte as the old program wrote them. The file buttons carry the
    // file names as captions (two of them the bare call): a line above says what each writes.
    auto* oldBox = new QGroupBox(
        QStringLiteral("Старые форматы (Cabrillo 2.0, ADIF 1.0, .LOG, .SUM) — роботы их не "
                       "принимают"));
    auto* buttons = new QGridLayout(oldBox);
    const std::pair<const char*, const char*> files[] = {{"Ccabrila", "Cabrillo 2.0"},
                                                         {"cmbAdif", "ADIF 1.0"},
                                                         {"cmbreport", "Журнал .LOG"},
                                                         {"cmbtit", "Итоги .SUM"}};
    int col = 0;
    for (const auto& [name, what] : files) {
        auto* head = caption(QString::fromUtf8(what));
        head->setAlignment(Qt::AlignCenter);
        buttons->addWidget(head, 0, col);
        buttons->addWidget(binder_->make(name), 1, col);
        ++col;
    }
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(oldBox, 1);
    bottom->addWidget(binder_->make("Command1"), 0, Qt::AlignBottom);
    v->addLayout(bottom);
    // Whatever else the model holds (the outcome of the last file) goes below.
    for (Control* c : form->controls()) {
        if (binder_->widget(c->name()) || c->kind() == Control::Kind::Menu ||
            c->kind() == Control::Kind::Timer || c->kind() == Control::Kind::Frame)
            continue;
        if (QWidget* w = binder_->make(c)) v->addWidget(w);
    }
    resizeWithinScreen(this, 1000, 720);
    // Tab walks the station data, the standard exports, the folder and the old file buttons;
    // the band table, filled by the recount, is left out of the round.
    for (const char* name :
         {"tcont",       "tcall",         "tpod",     "tname",        "tadres",     "tgor",
          "tstr",        "Text4",         "cmbcatop", "cmbcatassist", "cmbcatband", "cmbcatmode",
          "cmbcatpower", "cmbcatstation", "cmbcattx", "cmbqtcrole",   "cmbcab3",    "cmbadif3",
          "txtput",      "Ccabrila",      "cmbAdif",  "cmbreport",    "cmbtit",     "Command1"})
        if (QWidget* w = binder_->widget(QLatin1String(name))) tabChain_ << w;
    Binder::followShown(form, this);
}

// The rate chart beside the band-by-hour table it is drawn from, and the button that saves it.
QWidget* OtchetView::buildRatePage() {
    auto* page = new QWidget;
    auto* v = new QVBoxLayout(page);
    auto* row = new QHBoxLayout;
    auto* chart = new RateChart(form_->control(QStringLiteral("grdhours")));
    row->addWidget(chart, 3);
    auto* table = qobject_cast<QTableView*>(binder_->make("grdhours"));
    table->horizontalHeader()->setDefaultSectionSize(44);
    table->setColumnWidth(0, 112);
    row->addWidget(table, 2);
    v->addLayout(row, 1);
    v->addWidget(binder_->make("cmbchart"), 0, Qt::AlignLeft);
    if (auto* report = dynamic_cast<OtchetForm*>(form_)) {
        report->chartWriter = [chart](const QString& path) { return chart->savePng(path); };
        connect(chart, &QObject::destroyed, report, [report] { report->chartWriter = nullptr; });
    }
    return page;
}

// The Cabrillo 3.0 categories, each under its header tag (the box's tool tip), and the two
// buttons; nullptr when the window has no standard exports.
QWidget* OtchetView::buildStandardExports() {
    if (!form_->control("cmbcab3")) return nullptr;
    auto* box = new QGroupBox(QStringLiteral("Cabrillo 3.0 / ADIF 3.1"));
    auto* g = new QFormLayout(box);
    for (const char* name : {"cmbcatop", "cmbcatassist", "cmbcatband", "cmbcatmode", "cmbcatpower",
                             "cmbcatstation", "cmbcattx", "cmbqtcrole"}) {
        Control* c = form_->control(QLatin1String(name));
        if (!c) continue;
        auto* head = caption(c->tooltip());
        g->addRow(head, binder_->make(c));
        headingFollows(head, c);
    }
    auto* row = new QHBoxLayout;
    row->addWidget(binder_->make("cmbcab3"));
    row->addWidget(binder_->make("cmbadif3"));
    g->addRow(row);
    return box;
}

void OtchetView::showEvent(QShowEvent* e) {
    QWidget::showEvent(e);
    justOpened_ = true;
}

bool OtchetView::focusNextPrevChild(bool next) {
    // The focus may sit in a part of a chain member (the text field of a combo box).
    qsizetype at = -1;
    for (qsizetype i = 0; i < tabChain_.size() && at < 0; ++i)
        if (tabChain_[i] == focusWidget() || tabChain_[i]->isAncestorOf(focusWidget())) at = i;
    if (at < 0) return QWidget::focusNextPrevChild(next);
    for (qsizetype step = 1; step <= tabChain_.size(); ++step) {
        const qsizetype i = (at + (next ? step : -step) + tabChain_.size()) % tabChain_.size();
        QWidget* w = tabChain_[i];
        if (w->isVisible() && w->isEnabled()) {
            w->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return false;
}

void OtchetView::changeEvent(QEvent* e) {
    // Coming back to the window recounts, as its activation does.
    if (e->type() == QEvent::ActivationChange && isActiveWindow() && form_->isShown())
        form_->fire(QStringLiteral("Form_Activate"));
    QWidget::changeEvent(e);
    // Opened, the window takes the keyboard in its first station box.
    if (e->type() == QEvent::ActivationChange && isActiveWindow() && justOpened_) {
        justOpened_ = false;
        if (!tabChain_.isEmpty()) tabChain_.first()->setFocus(Qt::OtherFocusReason);
    }
}

} // namespace hfc

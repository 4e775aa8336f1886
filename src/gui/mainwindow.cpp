#include "mainwindow.h"

#include "autoview.h"
#include "binder.h"
#include "forms/contest/contestform.h"
#include "otchetview.h"
#include "paneldock.h"
#include "settingsview.h"
#include "viewparts.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QScrollArea>
#include <QSet>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

namespace hfc {

MainWindow::MainWindow(ContestForm* form, QWidget* parent)
    : QMainWindow(parent), form_(form), binder_(new Binder(form, this)) {
    setWindowTitle(QStringLiteral("hfcontest"));
    buildMenus();

    auto* central = new QWidget(this);
    auto* v = new QVBoxLayout(central);
    v->setContentsMargins(6, 4, 6, 4);

    // title row
    auto* top = new QHBoxLayout;
    auto* title = binder_->make("LBLCONTEST");
    binder_->setBaseStyle(title,
                          QStringLiteral("font-size: 14pt; font-weight: bold; color: #000080;"));
    // A long contest title gives way (cut at its end) rather than widening the window.
    title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    title->setMinimumWidth(120);
    top->addWidget(title, 1);
    top->addWidget(caption(QStringLiteral("Диапазон:")));
    auto* band = binder_->make("Label1");
    band->setMinimumWidth(70);
    top->addWidget(band);
    // The radio's frequency and its link, beside the band they decide.
    auto* freq = binder_->make("lblfreq");
    freq->setMinimumWidth(70);
    top->addWidget(freq);
    top->addWidget(binder_->make("lblrig"));
    top->addWidget(caption(QStringLiteral("Время:")));
    top->addWidget(binder_->make("Label4"));
    top->addWidget(caption(QStringLiteral("Свой позывной:")));
    auto* own = binder_->make("TXTNCALL");
    own->setMinimumWidth(90);
    own->setMaximumWidth(120);
    top->addWidget(own);
    v->addLayout(top);

    // bands and mode
    auto* bands = new QHBoxLayout;
    for (int b = 0; b < 7; ++b) {
        // A fixed width: the row must not shift when the chosen band changes colour.
        auto* w = binder_->make(arr("cmbband", b));
        w->setFixedWidth(64);
        bands->addWidget(w);
    }
    bands->addSpacing(12);
    bands->addWidget(binder_->make("cmbmod"));
    bands->addWidget(binder_->make("cmbwsego"));
    bands->addStretch(1);
    bands->addWidget(binder_->make("lblqtc"));
    v->addLayout(bands);

    v->addWidget(buildEntryLine());

    // lookups, score panel, side panels
    auto* middle = new QHBoxLayout;
    auto* partial = new QVBoxLayout;
    partial->addWidget(caption(QStringLiteral("Позывные в журнале")));
    auto* list = binder_->make("DBList1");
    list->setMaximumWidth(130);
    partial->addWidget(list);
    middle->addLayout(partial);
    auto* earlier = new QVBoxLayout;
    earlier->addWidget(caption(QStringLiteral("Прежние связи")));
    QWidget* earlierGrid = binder_->make("DBGrid1");
    earlierGrid->setProperty("hfcFollowLast", true); // the last QSO with the station in view
    if (auto* t = qobject_cast<QTableView*>(earlierGrid))
        t->horizontalHeader()->setDefaultSectionSize(64);
    earlier->addWidget(earlierGrid);
    middle->addLayout(earlier, 2);
    middle->addWidget(buildScorePanel());
    v->addLayout(middle, 2);

    auto* log = qobject_cast<QTableView*>(binder_->make("DBGrid3"));
    // A whole log row fits the window's width: narrow columns, a wider one for the call.
    log->horizontalHeader()->setDefaultSectionSize(66);
    for (int col = 0; col < log->model()->columnCount(); ++col) {
        // Narrow columns, each as wide as its heading; a wider one for the call.
        const QString head = log->model()->headerData(col, Qt::Horizontal).toString();
        const int fit = log->horizontalHeader()->fontMetrics().horizontalAdvance(head) + 16;
        log->setColumnWidth(col, col ? std::max(66, fit) : 104);
    }
    log->setProperty("hfcFollowLast", true); // the newest QSO stays in view
    v->addWidget(log, 3);

    setCentralWidget(central);
    // The status line: what the window has to say without a box that would take the next Enter.
    statusBar()->addWidget(binder_->make("lblstatus"), 1);
    buildPanels();
    resizeWithinScreen(this, 1280, 860);

    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [this] { form_->fire(QStringLiteral("Timer1_Timer")); });
    timer->start(1000);

    connect(form_, &ContestForm::exitRequested, this, &QWidget::close);
    connect(form_, &Form::formOpened, this, &MainWindow::openSubWindow);
    // F10 opens the contest menu, whatever the keyboard layout.
    connect(binder_, &Binder::menuKeyPressed, this,
            [this] { menuBar()->setActiveAction(contestMenu_->menuAction()); });
    if (QWidget* w = binder_->widget(form_->focusName())) w->setFocus();
}

// The menu bar is reached from the keyboard: Alt and the underlined letter (a Russian letter, so
// with the Russian layout on), or F10, which opens the contest menu whatever the layout is.
void MainWindow::buildMenus() {
    QMenuBar* bar = menuBar();
    auto* contests = bar->addMenu(Binder::withMnemonic(form_->cmbadd1->text(), QChar(u'С')));
    contestMenu_ = contests;
    QAction* find = binder_->makeAction("mnufind", this, QChar(u'Н'));
    find->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
    contests->addAction(find);
    contests->addSeparator();
    QMenu* more = nullptr;
    // Each item is underlined at the first letter or digit its menu has not used yet, so a
    // contest is two keys away once the menu is open.
    QSet<QChar> used{QChar(u'Н'), QChar(u'Д')};
    for (const QString& item : form_->contestMenuItems()) {
        if (item == QLatin1String("mnuuba")) {
            more = contests->addMenu(Binder::withMnemonic(form_->mnudal->text(), QChar(u'Д')));
            used = {};
        }
        QChar letter;
        for (const QChar ch : form_->control(item)->text())
            if (ch.isLetterOrNumber() && !used.contains(ch.toUpper())) {
                letter = ch;
                used.insert(ch.toUpper());
                break;
            }
        (more ? more : contests)->addAction(binder_->makeAction(item, this, letter));
    }
    bar->addAction(binder_->makeAction("mnupol", this, QChar(u'Р')));
    bar->addAction(binder_->makeAction("cmbotchet", this, QChar(u'О')));
    bar->addAction(binder_->makeAction("cmbvur", this, QChar(u'В')));
    bar->addAction(binder_->makeAction("mnudxcc", this, QChar(u'D')));
    auto* service = bar->addMenu(Binder::withMnemonic(form_->mnuserw->text(), QChar(u'и')));
    for (const char* item :
         {"mnumzone", "mnumdxcc", "mnuawto", "MNUCW", "mnuCAT", "mnurusdx", "mnuQTC", "mnudelet",
          "mnurestore", "mnuwindos", "mnuprow", "mnucluster", "mnusettings"})
        service->addAction(binder_->makeAction(item, this));
    service->addAction(binder_->makeAction("mnuhistory", this));
    bar->addAction(binder_->makeAction("CMBEXIT", this, QChar(u'х')));
}

// The panels the contests switch on and off sit in docks: side by side under the log by default,
// so the entry line keeps the window's whole width, and wherever the operator drags them after.
void MainWindow::buildPanels() {
    setDockOptions(QMainWindow::AnimatedDocks | QMainWindow::AllowNestedDocks);
    const auto dock = [this](const char* name, const QString& title, QWidget* content, Control* c,
                             Qt::DockWidgetArea area) {
        auto* d = new PanelDock(QString::fromLatin1(name), title, content, c, this);
        addDockWidget(area, d);
        docks_.push_back(d);
        connect(d, &PanelDock::activationSettled, this, &MainWindow::keepKeyboardWithModel);
        d->follow();
        return d;
    };
    PanelDock* mult = dock("panelMultipliers", QStringLiteral("Окно множителей"),
                           buildMultiplierWindow(), form_->multwid, Qt::BottomDockWidgetArea);
    PanelDock* keyer = dock("panelKeyer", QStringLiteral("Телеграфный ключ"), buildKeyerPanel(),
                            form_->frCW, Qt::BottomDockWidgetArea);
    PanelDock* qtc = dock("panelQtc", QStringLiteral("QTC"), buildQtcFrame(), form_->FRQTC,
                          Qt::BottomDockWidgetArea);
    PanelDock* worked = dock("panelWorked", QStringLiteral("Сработано"), binder_->make("List1"),
                             form_->List1, Qt::BottomDockWidgetArea);
    splitDockWidget(mult, keyer, Qt::Horizontal);
    splitDockWidget(keyer, qtc, Qt::Horizontal);
    splitDockWidget(qtc, worked, Qt::Horizontal);
    // The band map runs down the side: a band's spots are a tall, narrow list.
    dock("panelCluster", QStringLiteral("DX кластер"), buildClusterPanel(), form_->frcluster,
         Qt::RightDockWidgetArea);
    dock("panelStation", QStringLiteral("Станция"), buildStationPanel(), form_->frstation,
         Qt::RightDockWidgetArea);
    // The call lists sit beside the log, where the eye goes from the call box; one above the
    // other, so that the column is one call wide and the window still fits a 1024-wide screen.
    QWidget* scpList = binder_->make("lstscp");
    QWidget* np1List = binder_->make("lstnp1");
    for (QWidget* list : {scpList, np1List}) list->setMinimumWidth(90);
    PanelDock* scp =
        dock("panelScp", QStringLiteral("SCP"), scpList, form_->lstscp, Qt::RightDockWidgetArea);
    PanelDock* np1 =
        dock("panelNp1", QStringLiteral("N+1"), np1List, form_->lstnp1, Qt::RightDockWidgetArea);
    splitDockWidget(scp, np1, Qt::Vertical);
}

// Bringing a floating panel forward (to drag it, say) gives its first box the keyboard; the
// operator's typing belongs where the window model has its focus, so it goes back there. A click
// into a box of the panel has moved the model's focus there, and then nothing changes.
void MainWindow::keepKeyboardWithModel() {
    QWidget* want = binder_->widget(form_->focusName());
    if (!want || !want->isVisible() || want == QApplication::focusWidget()) return;
    want->window()->activateWindow();
    want->setFocus(Qt::OtherFocusReason);
}

QByteArray MainWindow::saveLayout() const {
    return saveState(kLayoutVersion);
}

bool MainWindow::restoreLayout(const QByteArray& state) {
    const bool ok = restoreState(state, kLayoutVersion);
    for (PanelDock* d : docks_) d->follow();
    return ok;
}

QWidget* MainWindow::buildEntryLine() {
    auto* box = new QWidget;
    auto* g = new QGridLayout(box);
    g->setContentsMargins(0, 0, 0, 0);
    g->setHorizontalSpacing(3);
    // Each box with its heading: a fixed text, or a label of the window (headingLabel) whose
    // caption the contest sets.
    struct Col {
        const char* name;
        const char* head;
        const char* headingLabel;
        int width;
    };
    // Widths that fit a 1024-pixel screen with the country and the QSO counter beside them, and
    // the call lists' column at the right edge.
    const Col cols[] = {{"txtcall", "Позывной", nullptr, 118},
                        {"txtdate", "Дата", nullptr, 66},
                        {"txttime", "Время", nullptr, 62},
                        {"lblrsts", "Передан", nullptr, 40},
                        {"txtrsts", "", nullptr, 56},
                        {"lblrstr", "Принят", nullptr, 40},
                        {"txtrstr", "", nullptr, 72},
                        {"txtmult", nullptr, "lbldxcc", 48},
                        {"txtmult2", nullptr, "lblzone", 48},
                        {"txtpoint", nullptr, "lblpoint", 36},
                        {"txtpoint2", "", nullptr, 36},
                        {"txtrepit", "", nullptr, 62},
                        {"cmbAdd", "", nullptr, 50}};
    int c = 0;
    for (const Col& col : cols) {
        g->addWidget(col.headingLabel ? binder_->make(col.headingLabel)
                                      : caption(QString::fromUtf8(col.head)),
                     0, c);
        QWidget* w = binder_->make(col.name);
        w->setMinimumWidth(col.width);
        // A hidden box keeps its room: the row must not shift under the operator's eyes (nor
        // squeeze the call lists) when "Повтор" comes and goes.
        QSizePolicy keep = w->sizePolicy();
        keep.setRetainSizeWhenHidden(true);
        w->setSizePolicy(keep);
        g->addWidget(w, 1, c);
        ++c;
    }
    binder_->setBaseStyle(binder_->widget(QStringLiteral("txtcall")),
                          QStringLiteral("font-size: 14pt; font-weight: bold;"));
    g->addWidget(caption(QStringLiteral("Страна")), 0, c);
    auto* country = binder_->make("txtstran5");
    country->setMinimumWidth(64);
    g->addWidget(country, 1, c);
    g->setColumnStretch(c, 1); // the country takes what room is left
    g->addWidget(caption(QStringLiteral("QSO")), 0, c + 1);
    QWidget* counter = binder_->make("TXTRSTS2");
    counter->setMinimumWidth(44);
    counter->setMaximumWidth(60);
    g->addWidget(counter, 1, c + 1);
    // The name the call history knows, under the call where the operator reads it back.
    g->addWidget(binder_->make("lblname"), 2, 0, 1, 3);
    return box;
}

QWidget* MainWindow::buildScorePanel() {
    auto* box = new QGroupBox(QStringLiteral("Итоги"));
    auto* g = new QGridLayout(box);
    g->setSpacing(2);
    g->addWidget(binder_->make("lblqso"), 0, 1);
    g->addWidget(binder_->make("lblmult"), 0, 2);
    g->addWidget(binder_->make("lblmult1"), 0, 3);
    for (int b = 0; b < 7; ++b) {
        g->addWidget(new QLabel(form_->cmbband[b]->text()), b + 1, 0);
        g->addWidget(binder_->make(arr("qsoband", b)), b + 1, 1);
        g->addWidget(binder_->make(arr("multband", b)), b + 1, 2);
        g->addWidget(binder_->make(arr("multband1", b)), b + 1, 3);
    }
    g->addWidget(new QLabel(QStringLiteral("Всего")), 8, 0);
    g->addWidget(binder_->make("qsotot"), 8, 1);
    g->addWidget(binder_->make("multtot"), 8, 2);
    g->addWidget(binder_->make("multtot1"), 8, 3);
    for (QLineEdit* e : box->findChildren<QLineEdit*>()) e->setMaximumWidth(56);
    // The clock's figures, then the rates from the log and the claimed score, each under its
    // caption in one column.
    auto* rates = new QVBoxLayout;
    rates->setSpacing(1);
    const auto figure = [&](const QString& head, const char* name) {
        auto* l = caption(head);
        l->setWordWrap(true);
        rates->addWidget(l);
        QWidget* w = binder_->make(name);
        if (auto* label = qobject_cast<QLabel*>(w))
            binder_->setBaseStyle(label, QStringLiteral("font-weight: bold;"));
        rates->addWidget(w);
    };
    figure(QStringLiteral("Темп текущего часа  (QSO/час)"), "txtrate");
    figure(QStringLiteral("Последнего переключения диапазона"), "txtbandtime");
    figure(QStringLiteral("Последнего QSO"), "txtlastqso");
    figure(QStringLiteral("QSO за последние 60 минут"), "lblrate60");
    figure(QStringLiteral("Темп последних 10 QSO (QSO/час)"), "lblrate10");
    if (form_->control(QStringLiteral("lblscore")))
        figure(QStringLiteral("Заявленный результат"), "lblscore");
    rates->addStretch(1);
    auto* column = new QWidget;
    column->setLayout(rates);
    for (QLineEdit* e : column->findChildren<QLineEdit*>()) e->setMaximumWidth(90);
    column->setMaximumWidth(190);
    g->addWidget(column, 0, 4, 10, 1);
    return box;
}

QWidget* MainWindow::buildMultiplierWindow() {
    auto* frame = binder_->make("multwid");
    auto* g = new QGridLayout(frame);
    g->setSpacing(1);
    constexpr int perRow = 18;
    for (int i = 0; i < ContestForm::MwidBoxes; ++i) {
        auto* w = binder_->make(arr("txtMwid", i));
        w->setMaximumWidth(38);
        g->addWidget(w, i / perRow, i % perRow);
    }
    g->addWidget(binder_->make("twid1"), ContestForm::MwidBoxes / perRow + 1, 0);
    return frame;
}

QWidget* MainWindow::buildKeyerPanel() {
    auto* frame = binder_->make("frCW");
    auto* g = new QGridLayout(frame);
    g->setSpacing(2);
    const char* keysText[8] = {"F2", "F3", "F4", "F5", "F6", "F7", "F8", "F9"};
    for (int i = 0; i < 8; ++i) {
        g->addWidget(new QLabel(QString::fromLatin1(keysText[i])), 0, i);
        g->addWidget(binder_->make(arr("TXTSCOR", i)), 1, i);
    }
    g->addWidget(caption(QStringLiteral("CtrF +  ShiftF -")), 2, 0, 1, 4);
    g->addWidget(caption(QStringLiteral("Ctr или Alt плюс F2-F9 изм.скорость передачи")), 2, 4, 1,
                 4);
    g->addWidget(new QLabel(QStringLiteral("F2")), 3, 0);
    g->addWidget(binder_->make("lbltest"), 3, 1, 1, 3);
    g->addWidget(new QLabel(QStringLiteral("F4")), 3, 4);
    g->addWidget(binder_->make("txtf4"), 3, 5, 1, 3);
    g->addWidget(new QLabel(QStringLiteral("F7")), 4, 0);
    g->addWidget(binder_->make("txtf7"), 4, 1, 1, 3);
    g->addWidget(new QLabel(QStringLiteral("F8")), 4, 4);
    g->addWidget(binder_->make("txtf8"), 4, 5, 1, 3);
    g->addWidget(new QLabel(QStringLiteral("F9")), 5, 0);
    g->addWidget(binder_->make("txtf9"), 5, 1, 1, 3);
    g->addWidget(binder_->make("lblNul"), 5, 4, 1, 2);
    g->addWidget(new QLabel(QStringLiteral("Скорость")), 6, 0);
    g->addWidget(binder_->make("HScroll1"), 6, 1, 1, 5);
    g->addWidget(binder_->make("lblwpm"), 6, 6, 1, 2);
    auto* ports = new QGroupBox(QStringLiteral("   COM  "));
    auto* pl = new QHBoxLayout(ports);
    for (int i = 0; i < 4; ++i) pl->addWidget(binder_->make(arr("Option1", i)));
    g->addWidget(ports, 7, 0, 1, 5);
    g->addWidget(caption(QStringLiteral("DTR > Ключ")), 7, 5, 1, 3);
    g->addWidget(caption(QStringLiteral("RTS > PTT(педаль)")), 8, 5, 1, 3);
    g->addWidget(binder_->make("lblports"), 8, 0, 1, 5);
    g->addWidget(binder_->make("LblPoz"), 9, 0, 1, 4);
    g->addWidget(binder_->make("lblcat"), 9, 4, 1, 4);
    g->addWidget(new QLabel(QStringLiteral("Спасибо (Enter)")), 10, 0, 1, 2);
    g->addWidget(binder_->make("txttu"), 10, 2, 1, 3);
    return frame;
}

QWidget* MainWindow::buildClusterPanel() {
    auto* frame = binder_->make("frcluster");
    auto* v = new QVBoxLayout(frame);
    v->setSpacing(2);
    v->addWidget(binder_->make("lblcluster"));
    auto* map = qobject_cast<QTableView*>(binder_->make("bandmap"));
    map->verticalHeader()->hide();
    map->horizontalHeader()->setStretchLastSection(true);
    const int widths[] = {62, 86, 32};
    for (int col = 0; col < 3; ++col) map->setColumnWidth(col, widths[col]);
    map->setMinimumWidth(250);
    v->addWidget(map, 3);
    v->addWidget(binder_->make("lstcluster"), 1);
    v->addWidget(binder_->make("txtcluster"));
    return frame;
}

QWidget* MainWindow::buildQtcFrame() {
    auto* frame = binder_->make("FRQTC");
    auto* g = new QGridLayout(frame);
    g->setSpacing(2);
    g->addWidget(new QLabel(QStringLiteral("QTC №")), 0, 0);
    g->addWidget(binder_->make("txtqtcnr"), 0, 1);
    g->addWidget(binder_->make("txtqtccall"), 1, 0);
    g->addWidget(binder_->make("txtqtctime"), 1, 1);
    g->addWidget(binder_->make("txtqtcband"), 1, 2);
    for (int i = 0; i < 10; ++i) g->addWidget(binder_->make(arr("txtqtc", i)), 2 + i, 0, 1, 3);
    g->addWidget(binder_->make("cmbqtc1"), 12, 0, 1, 3);
    return frame;
}

// The other computers of a multi-operator station and the link's state (or the band warning).
QWidget* MainWindow::buildStationPanel() {
    auto* frame = binder_->make("frstation");
    auto* v = new QVBoxLayout(frame);
    v->setSpacing(2);
    v->addWidget(binder_->make("lblstation"));
    v->addWidget(binder_->make("lststation"));
    return frame;
}

void MainWindow::openSubWindow(Form* child) {
    if (subWindows_.contains(child)) return;
    QWidget* view = nullptr;
    if (child->name() == QLatin1String("otchet"))
        view = new OtchetView(child, this);
    else if (child->name() == QLatin1String("settings"))
        view = new SettingsView(child, this);
    else
        view = new AutoView(child, this);
    subWindows_.insert(child, view);
}

void MainWindow::closeEvent(QCloseEvent* e) {
    form_->unload();
    e->accept();
}

} // namespace hfc

#include "binder.h"

#include "gridmodel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDockWidget>
#include <QFileSystemModel>
#include <QFocusEvent>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QTableView>
#include <QTreeView>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace hfc {

using K = Control::Kind;

Binder::Binder(Form* form, QObject* parent) : QObject(parent), form_(form) {
    connect(form, &Form::focusChanged, this, &Binder::onFocusChanged);
}

QWidget* Binder::widget(const QString& controlName) const {
    return widgets_.value(form_->control(controlName), nullptr);
}

QWidget* Binder::make(const QString& controlName, QWidget* parent) {
    Control* c = form_->control(controlName);
    Q_ASSERT_X(c, "Binder::make", qPrintable(controlName));
    return c ? make(c, parent) : nullptr;
}

QWidget* Binder::make(Control* c, QWidget* parent) {
    QWidget* w = nullptr;
    switch (c->kind()) {
    case K::TextBox: {
        if (c->extra(QStringLiteral("multiline")) == QLatin1String("1")) {
            // A long text to read (rules): shown whole, with line breaks, not edited here.
            auto* p = new QPlainTextEdit(parent);
            p->setReadOnly(true);
            w = p;
            break;
        }
        auto* e = new QLineEdit(parent);
        // A click into the text puts the model's caret there too.
        connect(e, &QLineEdit::cursorPositionChanged, this, [this, c](int, int now) {
            if (!mirroring_) c->setCursor(now);
        });
        w = e;
        break;
    }
    case K::Combo: {
        auto* cb = new QComboBox(parent);
        cb->setEditable(true);
        connect(cb->lineEdit(), &QLineEdit::cursorPositionChanged, this, [this, c](int, int now) {
            if (!mirroring_) c->setCursor(now);
        });
        connect(cb, &QComboBox::activated, this, [this, c, cb](int i) {
            if (mirroring_) return;
            c->setText(cb->itemText(i));
            form_->click(c);
        });
        w = cb;
        break;
    }
    case K::Label: {
        auto* l = new QLabel(parent);
        l->installEventFilter(this); // a click on a label is an event of the window
        w = l;
        break;
    }
    case K::Button:
    case K::Option:
    case K::CheckBox: {
        auto* b = new QPushButton(parent);
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [this, c] {
            if (!mirroring_) form_->click(c);
        });
        w = b;
        break;
    }
    case K::Frame: {
        auto* g = new QGroupBox(parent);
        w = g;
        break;
    }
    case K::List: {
        auto* l = new QListWidget(parent);
        // A click makes the row the list's current entry, as the arrows do, and says which
        // row it was; then the list's click handler runs.
        connect(l, &QListWidget::itemClicked, this, [this, c](QListWidgetItem* it) {
            c->setText(it->text());
            c->setExtra(QStringLiteral("selected"), it->text());
            form_->click(c);
        });
        w = l;
        break;
    }
    case K::Grid: {
        auto* t = new QTableView(parent);
        auto* model = new GridModel(c, t);
        t->setModel(model);
        t->setEditTriggers(QAbstractItemView::NoEditTriggers);
        if (c->extra(QStringLiteral("editable")) == QLatin1String("1")) {
            // Typing on a cell, or a double click, opens it; Enter stores, Esc leaves it as it was.
            t->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::AnyKeyPressed);
            const QString base = Form::baseName(c->name());
            t->setItemDelegate(new GridCellDelegate(
                [this, base](int ascii) {
                    Event ev;
                    ev.keyAscii = ascii;
                    form_->fire(base + QStringLiteral("_KeyPress"), ev);
                    return ev.keyAscii;
                },
                t));
            connect(model, &GridModel::edited, this,
                    [this, base](int row, int column, const QString& value) {
                        Event ev;
                        ev.args = {QString::number(row), QString::number(column), value};
                        form_->fire(base + QStringLiteral("_Edit"), ev);
                    });
        }
        t->setSelectionBehavior(QAbstractItemView::SelectRows);
        t->verticalHeader()->setDefaultSectionSize(20);
        t->horizontalHeader()->setHighlightSections(false);
        w = t;
        break;
    }
    case K::ScrollBar: {
        auto* s = new QScrollBar(Qt::Horizontal, parent);
        s->setRange(1, 100);
        connect(s, &QScrollBar::valueChanged, this, [this, c](int v) {
            if (mirroring_) return;
            c->setValue(v);
            form_->fire(Form::baseName(c->name()) + QStringLiteral("_Change"));
        });
        w = s;
        break;
    }
    case K::Tree: {
        // Nodes carry their tree index (from 1); the window's handlers take that index.
        auto* t = new QTreeWidget(parent);
        t->setHeaderHidden(true);
        const auto forward = [this, c](const char* event, QTreeWidgetItem* it) {
            if (mirroring_) return;
            Event ev;
            ev.index = it->data(0, Qt::UserRole).toInt();
            form_->fire(Form::baseName(c->name()) + QLatin1String(event), ev);
        };
        connect(t, &QTreeWidget::itemClicked, this,
                [forward](QTreeWidgetItem* it) { forward("_NodeClick", it); });
        connect(t, &QTreeWidget::itemExpanded, this,
                [forward](QTreeWidgetItem* it) { forward("_Expand", it); });
        connect(t, &QTreeWidget::itemCollapsed, this,
                [forward](QTreeWidgetItem* it) { forward("_Collapse", it); });
        w = t;
        break;
    }
    case K::DirList: {
        auto* v = new QTreeView(parent);
        auto* m = new QFileSystemModel(v);
        m->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
        m->setRootPath(QStringLiteral("/"));
        v->setModel(m);
        for (int col = 1; col < m->columnCount(); ++col) v->hideColumn(col);
        v->setHeaderHidden(true);
        connect(v, &QTreeView::clicked, this, [this, c, m](const QModelIndex& idx) {
            c->setExtra(QStringLiteral("path"), m->filePath(idx));
            Event ev;
            form_->fire(Form::baseName(c->name()) + QStringLiteral("_MouseDown"), ev);
        });
        w = v;
        break;
    }
    case K::Menu:
    case K::Timer:
        return nullptr;
    }
    w->setObjectName(c->name());
    w->installEventFilter(this);
    widgets_.insert(c, w);
    controls_.insert(w, c);
    connect(c, &Control::changed, w, [this, c, w] { mirror(c, w); });
    connect(w, &QObject::destroyed, this, [this, c, w] {
        widgets_.remove(c);
        controls_.remove(w);
    });
    mirror(c, w);
    return w;
}

QString Binder::withMnemonic(const QString& caption, QChar mnemonic) {
    QString text = caption;
    text.replace(QLatin1Char('&'), QStringLiteral("&&"));
    if (mnemonic.isNull()) return text;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].toUpper() == mnemonic.toUpper()) {
            text.insert(i, QLatin1Char('&'));
            break;
        }
    }
    return text;
}

QAction* Binder::makeAction(const QString& controlName, QObject* parent, QChar mnemonic) {
    Control* c = form_->control(controlName);
    auto* a = new QAction(withMnemonic(c->text(), mnemonic), parent);
    connect(a, &QAction::triggered, this, [this, c] { form_->click(c); });
    connect(c, &Control::changed, a, [a, c, mnemonic] {
        a->setText(withMnemonic(c->text(), mnemonic));
        a->setVisible(c->visible());
        a->setEnabled(c->enabled());
    });
    return a;
}

void Binder::setBaseStyle(QWidget* w, const QString& declarations) {
    w->setProperty("hfcBaseStyle", declarations);
    if (Control* c = controls_.value(w, nullptr)) mirror(c, w);
}

namespace {
// A button that holds the keyboard shows it plainly: a band or a mode button is chosen by the
// arrows and Enter, and the operator must see where they are.
const char* const kButtonFocus =
    "QPushButton:focus { border: 2px solid #000080; border-radius: 3px; padding: 2px; }";
} // namespace

void Binder::mirror(Control* c, QWidget* w) {
    mirroring_ = true;
    QString decl = w->property("hfcBaseStyle").toString();
    if (!c->backcolor().isEmpty())
        decl += QStringLiteral("background-color: %1;").arg(c->backcolor());
    QString style = decl;
    if (qobject_cast<QPushButton*>(w)) {
        style = QLatin1String(kButtonFocus);
        if (!decl.isEmpty()) style = QStringLiteral("QPushButton { %1 } ").arg(decl) + style;
    }
    if (w->styleSheet() != style) w->setStyleSheet(style);
    // A widget not yet placed in its window must not be shown on its own: that would open it as
    // a window of its own for a moment. Hidden, it stays hidden once placed.
    if (w->parentWidget())
        w->setVisible(c->visible());
    else if (!c->visible())
        w->hide();
    else
        w->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
    w->setEnabled(c->enabled());
    w->setToolTip(c->tooltip());
    if (auto* p = qobject_cast<QPlainTextEdit*>(w)) {
        if (p->toPlainText() != c->text()) p->setPlainText(c->text());
    } else if (auto* e = qobject_cast<QLineEdit*>(w)) {
        if (e->text() != c->text()) e->setText(c->text());
        if (!e->hasSelectedText() && e->cursorPosition() != c->cursor())
            e->setCursorPosition(c->cursor());
    } else if (auto* l = qobject_cast<QLabel*>(w)) {
        l->setText(c->text());
    } else if (auto* b = qobject_cast<QPushButton*>(w)) {
        b->setText(c->text());
        if (c->kind() == K::Option || c->kind() == K::CheckBox) {
            b->setCheckable(true);
            b->setChecked(c->checked());
        }
    } else if (auto* g = qobject_cast<QGroupBox*>(w)) {
        g->setTitle(c->text());
    } else if (auto* cb = qobject_cast<QComboBox*>(w)) {
        QStringList have;
        for (int i = 0; i < cb->count(); ++i) have << cb->itemText(i);
        if (have != c->items()) {
            cb->clear();
            cb->addItems(c->items());
        }
        if (cb->currentText() != c->text()) cb->setCurrentText(c->text());
        if (QLineEdit* e = cb->lineEdit(); e && e->cursorPosition() != c->cursor())
            e->setCursorPosition(c->cursor());
    } else if (auto* l = qobject_cast<QListWidget*>(w)) {
        mirrorList(c, l);
    } else if (auto* t = qobject_cast<QTableView*>(w)) {
        auto* m = qobject_cast<GridModel*>(t->model());
        const bool added = m && m->sync();
        if (added && t->property("hfcFollowLast").toBool()) t->scrollToBottom(); // the newest QSO
    } else if (auto* s = qobject_cast<QScrollBar*>(w)) {
        if (s->value() != c->value()) s->setValue(c->value());
    } else if (auto* t = qobject_cast<QTreeWidget*>(w)) {
        mirrorTree(c, t);
    }
    mirroring_ = false;
}

namespace {
// How a list shows the mark of a worked call: a colour for the eye, words for a screen reader.
struct ListMark {
    const char* colour;
    const char* words;
};
ListMark listMark(const QString& mark) {
    if (mark == QLatin1String("band")) return {"#c00000", "сработан на этом диапазоне"};
    if (mark == QLatin1String("contest")) return {"#0000c0", "сработан в соревновании"};
    return {nullptr, nullptr};
}
} // namespace

// A list's items; a list whose control has "marks" ("|"-joined, one per item) shows each mark;
// the control's text, when it is one of the items, is the current row.
void Binder::mirrorList(Control* c, QListWidget* l) {
    const bool marked = c->hasProperty(QStringLiteral("marks"));
    QStringList have;
    for (int i = 0; i < l->count(); ++i) have << l->item(i)->text();
    if (have != c->items()) {
        l->clear();
        l->addItems(c->items());
        if (l->count() > 0 && !marked) l->setCurrentRow(0);
    }
    if (!marked) {
        // The model's current entry, where it names one.
        const int current = int(c->items().indexOf(c->text()));
        if (current >= 0 && l->currentRow() != current) l->setCurrentRow(current);
        return;
    }
    const QStringList marks = c->extra(QStringLiteral("marks")).split(QLatin1Char('|'));
    for (int i = 0; i < l->count(); ++i) {
        QListWidgetItem* it = l->item(i);
        const ListMark m = listMark(marks.value(i));
        it->setForeground(m.colour ? QBrush(QColor(QLatin1String(m.colour))) : QBrush());
        QFont f = l->font();
        f.setBold(m.colour != nullptr);
        it->setFont(f);
        it->setData(Qt::AccessibleTextRole,
                    m.words ? it->text() + QStringLiteral(", ") + QString::fromUtf8(m.words)
                            : it->text());
        it->setToolTip(m.words ? QString::fromUtf8(m.words) : QString());
    }
    const int current = c->text().isEmpty() ? -1 : int(c->items().indexOf(c->text()));
    if (l->currentRow() != current) l->setCurrentRow(current);
}

namespace {
// The node pictures are named by the model; any distinct icons serve.
QIcon nodeIcon(const QString& name) {
    static QHash<QString, QIcon> icons;
    if (icons.isEmpty()) {
        QStyle* st = QApplication::style();
        icons.insert(QStringLiteral("closed"), st->standardIcon(QStyle::SP_DirClosedIcon));
        icons.insert(QStringLiteral("open"), st->standardIcon(QStyle::SP_DirOpenIcon));
        const std::pair<const char*, const char*> dots[] = {
            {"bek", "#d2b48c"}, {"lux", "#ffd700"}, {"net", "#4682b4"}};
        for (const auto& [key, colour] : dots) {
            QPixmap pm(12, 12);
            pm.fill(Qt::transparent);
            QPainter p(&pm);
            p.setRenderHint(QPainter::Antialiasing);
            p.setBrush(QColor(QLatin1String(colour)));
            p.setPen(Qt::darkGray);
            p.drawEllipse(1, 1, 10, 10);
            icons.insert(QLatin1String(key), QIcon(pm));
        }
    }
    return icons.value(name);
}
} // namespace

// A tree control's nodes: items are the texts (index 1 first); the extra properties "keys",
// "parents", "images" and "expanded" ("|"-joined, same order) give the shape and pictures.
void Binder::mirrorTree(Control* c, QTreeWidget* t) {
    const QStringList texts = c->items();
    const QStringList keys = c->extra(QStringLiteral("keys")).split('|');
    const QStringList parents = c->extra(QStringLiteral("parents")).split('|');
    const QStringList images = c->extra(QStringLiteral("images")).split('|');
    const QStringList expanded = c->extra(QStringLiteral("expanded")).split('|');
    std::vector<QTreeWidgetItem*> items;
    for (QTreeWidgetItemIterator it(t); *it; ++it) items.push_back(*it);
    bool same = items.size() == size_t(texts.size());
    for (size_t i = 0; same && i < items.size(); ++i) same = items[i]->text(0) == texts[int(i)];
    if (!same) {
        t->clear();
        items.clear();
        QHash<QString, QTreeWidgetItem*> byKey;
        for (int i = 0; i < texts.size(); ++i) {
            QTreeWidgetItem* parent = byKey.value(parents.value(i), nullptr);
            auto* it = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(t);
            it->setText(0, texts[i]);
            it->setData(0, Qt::UserRole, i + 1);
            if (!keys.value(i).isEmpty()) byKey.insert(keys[i], it);
            items.push_back(it);
        }
    }
    for (size_t i = 0; i < items.size(); ++i) {
        items[i]->setIcon(0, nodeIcon(images.value(int(i))));
        const bool open = expanded.value(int(i)) == QLatin1String("1");
        if (items[i]->isExpanded() != open) items[i]->setExpanded(open);
    }
}

void Binder::followShown(Form* form, QWidget* window) {
    connect(form, &Form::shownChanged, window, [window](bool shown) {
        if (shown) {
            window->show();
            window->raise();
            window->activateWindow();
            return;
        }
        const bool hadKeyboard = window->isActiveWindow();
        window->hide();
        QWidget* owner = window->parentWidget() ? window->parentWidget()->window() : nullptr;
        if (hadKeyboard && owner && owner->isVisible()) owner->activateWindow();
    });
    window->setVisible(form->isShown());
}

void Binder::onFocusChanged(Control* c) {
    if (QWidget* w = widgets_.value(c, nullptr)) {
        if (w->hasFocus() || !w->isVisible()) return;
        // A box in a panel floating on its own takes the keyboard only with its window active,
        // and so does the main window's box after one. Other windows keep theirs.
        QWidget* active = QApplication::activeWindow();
        if (active && active != w->window() &&
            (qobject_cast<QDockWidget*>(active) || qobject_cast<QDockWidget*>(w->window())))
            w->window()->activateWindow();
        w->setFocus(Qt::OtherFocusReason);
    }
}

// The Latin letter on the key that carries a Cyrillic letter in the Russian (ЙЦУКЕН) layout;
// 0 for any other key.
int Binder::latinKeyAt(int key) {
    static const QHash<int, int> latin = [] {
        const QString cyrillic = QStringLiteral("ЙЦУКЕНГШЩЗФЫВАПРОЛДЯЧСМИТЬ");
        const char* qwerty = "QWERTYUIOPASDFGHJKLZXCVBNM";
        QHash<int, int> t;
        for (int i = 0; i < cyrillic.size(); ++i) t.insert(cyrillic[i].unicode(), qwerty[i]);
        return t;
    }();
    return latin.value(key, 0);
}

int Binder::vkCode(int key) {
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return keys::F1 + (key - Qt::Key_F1);
    switch (key) {
    case Qt::Key_Left:
        return keys::Left;
    case Qt::Key_Up:
        return keys::Up;
    case Qt::Key_Right:
        return keys::Right;
    case Qt::Key_Down:
        return keys::Down;
    case Qt::Key_Escape:
        return keys::Esc;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return keys::Enter;
    case Qt::Key_Backspace:
        return keys::Backspace;
    case Qt::Key_Tab:
        return keys::Tab;
    case Qt::Key_Delete:
        return keys::Delete;
    case Qt::Key_Home:
        return keys::Home;
    case Qt::Key_End:
        return keys::End;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_Insert:
        return 45;
    default:
        return 0;
    }
}

bool Binder::forwardKey(Form* form, QKeyEvent* e) {
    int shift = 0;
    if (e->modifiers() & Qt::ShiftModifier) shift |= 1;
    if (e->modifiers() & Qt::ControlModifier) shift |= 2;
    if (e->modifiers() & Qt::AltModifier) shift |= 4;
    const int vk = vkCode(e->key());
    // Ctrl or Alt with a letter is a command of the window (Alt+W wipes the entry line), never
    // a character typed into a box. With the Russian layout on, the same keys arrive as
    // Cyrillic letters: Ctrl takes them by their place on the keyboard, so Ctrl+W and Ctrl+K do
    // not depend on the layout; Alt only for W, as the Cyrillic letters under Alt open the menus.
    int key = e->key();
    if (const int latin = latinKeyAt(key); latin && (shift == 2 || (shift == 4 && latin == 'W')))
        key = latin;
    // Ctrl+A and Ctrl+C stay the edit box's own: select all, copy.
    const bool boxOwn = shift == 2 && (key == Qt::Key_A || key == Qt::Key_C);
    if ((shift & 6) && !boxOwn && key >= Qt::Key_A && key <= Qt::Key_Z) {
        form->pressKey(key, shift);
        return true;
    }
    if (vk == keys::Enter || vk == keys::Backspace || vk == keys::Esc || vk == keys::Tab) {
        if (shift & ~1) {
            form->pressKey(vk, shift);
        } else {
            form->typeChar(QChar(vk));
        }
        return true;
    }
    if (vk) {
        form->pressKey(vk, shift);
        return true;
    }
    if (typesCharacter(e)) {
        for (const QChar ch : e->text()) form->typeChar(ch);
        return true;
    }
    return false;
}

bool Binder::typesCharacter(const QKeyEvent* e) {
    const QString t = e->text();
    return !t.isEmpty() && t[0].unicode() >= 0x20 &&
           !(e->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
}

// In a grid that can be edited the arrows and page keys move between cells and a typed
// character opens the current one: the table does that itself. The rest (F-keys, Enter, Esc,
// Tab) is the window's, as everywhere.
bool Binder::keepsInEditableGrid(const QKeyEvent* ke) {
    switch (ke->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        break;
    }
    return typesCharacter(ke);
}

// Text selected in a box (double click, Ctrl+A, Shift+arrows) is the model's to take: a typed
// key, Backspace or Delete removes it on the window's own event path, so the look-ups of the box
// run on what is left.
void Binder::takeSelection(Control* c, QObject* watched) {
    auto* edit = qobject_cast<QLineEdit*>(watched);
    if (!edit || !c->isEditable()) return;
    if (edit->hasSelectedText())
        c->setSelection(edit->selectionStart(), int(edit->selectedText().size()));
    else
        c->setSelection(0, 0);
}

// Ctrl+V and Shift+Insert: the clipboard's text is typed into the box key by key, as the
// operator would type it. Line ends and tabs are dropped: a pasted Enter would log a QSO.
bool Binder::paste(Control* c, QObject* watched, QKeyEvent* ke) {
    if (!qobject_cast<QLineEdit*>(watched) || !c->isEditable()) return false;
    const bool ctrlV = ke->key() == Qt::Key_V && ke->modifiers() == Qt::ControlModifier;
    const bool shiftIns = ke->key() == Qt::Key_Insert && ke->modifiers() == Qt::ShiftModifier;
    if (!ctrlV && !shiftIns) return false;
    QString text = QApplication::clipboard()->text();
    text.removeIf([](QChar ch) { return ch.unicode() < 0x20; });
    for (const QChar ch : text) form_->typeChar(ch);
    return true;
}

// The calendar tree is walked with the arrows as any tree; Enter chooses the node there, as a
// click would.
bool Binder::treeKey(Control* c, QObject* watched, QKeyEvent* ke) {
    auto* t = qobject_cast<QTreeWidget*>(watched);
    if (!t) return false;
    switch (ke->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (QTreeWidgetItem* it = t->currentItem()) {
            Event ev;
            ev.index = it->data(0, Qt::UserRole).toInt();
            form_->fire(Form::baseName(c->name()) + QStringLiteral("_NodeClick"), ev);
        }
        return false;
    default:
        return false;
    }
}

bool Binder::eventFilter(QObject* watched, QEvent* event) {
    Control* c = controls_.value(watched, nullptr);
    if (!c) return false;
    switch (event->type()) {
    case QEvent::KeyPress: {
        auto* ke = static_cast<QKeyEvent*>(event);
        // A key a box inside a frame did not take (Shift alone) travels up to the frame: that is
        // no reason to move the focus to the frame.
        if (!static_cast<QWidget*>(watched)->hasFocus()) return false;
        if (form_->focused() != c) form_->setFocus(c);
        if (c->kind() == K::Grid && c->extra(QStringLiteral("editable")) == QLatin1String("1") &&
            keepsInEditableGrid(ke))
            return false;
        if (c->kind() == K::Tree && treeKey(c, watched, ke)) return false;
        // A grid's keys act on its current row (Delete removes it): the model learns which.
        if (auto* t = qobject_cast<QTableView*>(watched))
            c->setExtra(QStringLiteral("row"), QString::number(t->currentIndex().row()));
        takeSelection(c, watched);
        if (paste(c, watched, ke)) return true;
        const bool forwarded = forwardKey(form_, ke);
        // A window without a tab order of its own: Tab still walks its boxes and buttons.
        if ((ke->key() == Qt::Key_Tab || ke->key() == Qt::Key_Backtab) &&
            form_->tabOrder.isEmpty() && form_->focused() == c)
            return false;
        if (ke->key() == Qt::Key_F10 && ke->modifiers() == Qt::NoModifier) emit menuKeyPressed();
        return forwarded;
    }
    case QEvent::ShortcutOverride: {
        // Keys that Qt would take as shortcuts (F-keys, Esc) belong to the window's handlers.
        auto* ke = static_cast<QKeyEvent*>(event);
        if (vkCode(ke->key()) != 0 && !(ke->modifiers() & Qt::AltModifier)) {
            event->accept();
            return true;
        }
        return false;
    }
    case QEvent::FocusIn: {
        // The operator moved the focus (mouse, Tab): the window's model follows. Focus that comes
        // back with the window (activation, a closed menu or dialog) is where the model put it.
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if ((reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
             reason == Qt::BacktabFocusReason) &&
            form_->focused() != c)
            form_->setFocus(c);
        return false;
    }
    case QEvent::MouseButtonRelease:
        if (c->kind() == K::Label) {
            form_->click(c);
            return true;
        }
        return false;
    default:
        return false;
    }
}

} // namespace hfc

#include "forms/form.h"

#include "data/db.h"

#include <QScopeGuard>
#include <algorithm>

namespace hfc {

Form::Form(const QString& name, const Env& env, QObject* parent)
    : QObject(parent), name_(name), env_(env) {}

Form::~Form() = default;

Control* Form::add(const QString& name, Control::Kind kind, const QString& text) {
    auto* c = new Control(name, kind, this);
    c->setText(text);
    byName_.insert(name, c);
    order_.push_back(c);
    return c;
}

std::vector<Control*> Form::addArray(const QString& base, int count, Control::Kind kind) {
    std::vector<Control*> out;
    out.reserve(count);
    for (int i = 0; i < count; ++i) out.push_back(add(arrayName(base, i), kind));
    return out;
}

Control* Form::control(const QString& name) const {
    return byName_.value(name, nullptr);
}

QString Form::baseName(const QString& name, int* index) {
    const int open = name.indexOf('(');
    if (open > 0 && name.endsWith(')')) {
        if (index) *index = name.mid(open + 1, name.size() - open - 2).toInt();
        return name.left(open);
    }
    if (index) *index = -1;
    return name;
}

void Form::on(const QString& name, Handler h, const QStringList& params) {
    handlers_.insert(name, {std::move(h), params});
}

void Form::proc(const QString& name, std::function<void()> f) {
    on(name, [f = std::move(f)](Event&) { f(); });
}

bool Form::fire(const QString& name, Event& ev) {
    auto it = handlers_.constFind(name);
    if (it == handlers_.constEnd()) return false;
    Handler fn = it->fn; // a handler may re-register handlers
    runHandler(fn, ev);
    return true;
}

// A database failure (a full disk, a file made read-only or locked by another program) ends the
// event it happened in, not the program: the outermost handler reports it in words and the
// window goes on. What was committed before stays committed.
void Form::runHandler(const Handler& fn, Event& ev) {
    ++handlerDepth_;
    const auto done = qScopeGuard([this] { --handlerDepth_; });
    if (handlerDepth_ > 1) {
        fn(ev);
        return;
    }
    try {
        fn(ev);
    } catch (const DbError& e) {
        msgbox(dbErrorMessage(e) + QStringLiteral("\nДействие не выполнено."),
               QStringLiteral("Ошибка"));
    }
}

bool Form::fire(const QString& name) {
    Event ev;
    return fire(name, ev);
}

bool Form::call(const QString& name, const QStringList& args) {
    auto it = handlers_.constFind(name);
    if (it == handlers_.constEnd()) return false;
    Event ev;
    ev.args = args;
    for (int i = 0; i < args.size() && i < it->params.size(); ++i) {
        const QString& p = it->params[i];
        const int v = args[i].toInt();
        if (p == QLatin1String("Index"))
            ev.index = v;
        else if (p == QLatin1String("KeyAscii"))
            ev.keyAscii = v;
        else if (p == QLatin1String("KeyCode"))
            ev.keyCode = v;
        else if (p == QLatin1String("Shift"))
            ev.shift = v;
    }
    Handler fn = it->fn;
    runHandler(fn, ev);
    return true;
}

void Form::var(const QString& name, QString& ref) {
    vars_.insert(name, {[&ref] { return ref; }, [&ref](const QString& v) { ref = v; }});
}
void Form::var(const QString& name, int& ref) {
    vars_.insert(name, {[&ref] { return QString::number(ref); },
                        [&ref](const QString& v) { ref = int(val(v)); }});
}
void Form::var(const QString& name, double& ref) {
    vars_.insert(name, {[&ref] { return QString::number(ref); },
                        [&ref](const QString& v) { ref = v.toDouble(); }});
}
void Form::var(const QString& name, std::function<QString()> get,
               std::function<void(QString)> set) {
    vars_.insert(name, {std::move(get), std::move(set)});
}
QString Form::getVar(const QString& name) const {
    auto it = vars_.constFind(name);
    return it == vars_.constEnd() ? QString() : it->get();
}
bool Form::setVar(const QString& name, const QString& value) {
    auto it = vars_.constFind(name);
    if (it == vars_.constEnd()) return false;
    it->set(value);
    return true;
}

QString Form::focusName() const {
    return focus_ ? focus_->name() : QString();
}

void Form::setFocus(const QString& name) {
    if (Control* c = control(name)) {
        setFocus(c);
        return;
    }
    // A control array as a whole: its selected element, else the first.
    Control* first = control(name + QStringLiteral("(0)"));
    if (!first) return;
    for (int i = 0;; ++i) {
        Control* c = control(arrayName(name, i));
        if (!c) break;
        if (c->checked()) {
            setFocus(c);
            return;
        }
    }
    setFocus(first);
}

void Form::setFocus(Control* c) {
    if (!c || c == focus_) return;
    Control* old = focus_;
    focus_ = c;
    if (old) {
        int idx;
        const QString base = baseName(old->name(), &idx);
        Event ev;
        ev.index = idx;
        fire(base + QStringLiteral("_LostFocus"), ev);
    }
    emit focusChanged(c);
    int idx;
    const QString base = baseName(c->name(), &idx);
    Event ev;
    ev.index = idx;
    fire(base + QStringLiteral("_GotFocus"), ev);
}

namespace {
// A text box takes no control character: Esc, Ctrl+[ ... Ctrl+_ and Delete (127) are keys, not
// text, as in any edit control.
bool isPrintable(int ascii) {
    return ascii >= 0x20 && ascii != 0x7f && !(ascii >= 0x80 && ascii < 0xa0);
}

int keyCodeOf(QChar c) {
    const QChar u = c.toUpper();
    if ((u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9')) return u.unicode();
    switch (c.unicode()) {
    case '\r':
        return keys::Enter;
    case '\b':
        return keys::Backspace;
    case '\t':
        return keys::Tab;
    case 27:
        return keys::Esc;
    case ' ':
        return 32;
    default:
        return c.unicode();
    }
}
} // namespace

void Form::keyDown(int keyCode, int shift) {
    keyEvent(QStringLiteral("_KeyDown"), keyCode, shift);
    if (keyCode == keys::Esc && shift == 0 && escCloses && shown_) unload();
}

// The key-up goes to whichever control holds the focus when the key is released.
void Form::keyUp(int keyCode, int shift) {
    keyEvent(QStringLiteral("_KeyUp"), keyCode, shift);
}

void Form::keyEvent(const QString& suffix, int keyCode, int shift) {
    Event ev;
    ev.keyCode = keyCode;
    ev.shift = shift;
    if (keyPreview) fire(QStringLiteral("Form") + suffix, ev);
    if (!focus_) return;
    ev = Event();
    ev.keyCode = keyCode;
    ev.shift = shift;
    const QString base = baseName(focus_->name(), &ev.index);
    fire(base + suffix, ev);
}

bool Form::keyPress(Control* target, int& keyAscii) {
    if (keyPreview) {
        Event ev;
        ev.keyAscii = keyAscii;
        fire(QStringLiteral("Form_KeyPress"), ev);
        keyAscii = ev.keyAscii;
        if (keyAscii == 0) return false;
    }
    if (!target) return false;
    int idx;
    const QString base = baseName(target->name(), &idx);
    Event ev;
    ev.index = idx;
    ev.keyAscii = keyAscii;
    fire(base + QStringLiteral("_KeyPress"), ev);
    keyAscii = ev.keyAscii;
    return keyAscii != 0;
}

void Form::typeChar(QChar c) {
    const int code = keyCodeOf(c);
    keyDown(code, 0);
    Control* target = focus_;
    int ascii = c.unicode();
    if (keyPress(target, ascii) && target) {
        if (target->isEditable()) {
            QString t = target->text();
            int at = target->cursor();
            // A selection goes first: typed over, or taken by Backspace alone.
            const bool edits = ascii == keys::Backspace || isPrintable(ascii);
            if (edits && target->removeSelected()) {
                t = target->text();
                at = target->cursor();
                if (ascii == keys::Backspace) ascii = 0;
            }
            if (ascii == keys::Backspace) {
                if (at > 0) t.remove(--at, 1);
            } else if (isPrintable(ascii) &&
                       (target->maxLength() == 0 || t.size() < target->maxLength())) {
                t.insert(at++, QChar(ascii));
            }
            target->setText(t);
            target->setCursor(at);
        } else if (ascii == keys::Enter && target->kind() == Control::Kind::Button) {
            click(target);
        }
    }
    if (code == keys::Tab && !tabOrder.isEmpty()) {
        const int at = focus_ ? tabOrder.indexOf(focus_->name()) : -1;
        setFocus(tabOrder.value((at + 1) % tabOrder.size()));
    }
    keyUp(code, 0);
}

void Form::typeText(const QString& text) {
    for (const QChar c : text) typeChar(c);
}

void Form::pressKey(int keyCode, int shift) {
    if (shift == 0 && (keyCode == keys::Enter || keyCode == keys::Backspace ||
                       keyCode == keys::Esc || keyCode == keys::Tab)) {
        typeChar(QChar(keyCode));
        return;
    }
    keyDown(keyCode, shift);
    if (shift == 0) moveCaret(keyCode);
    keyUp(keyCode, shift);
}

// What an edit box does itself with the keys that move in its text, between the window's key-down
// and key-up: a typo in the middle of a call is mended where it is.
void Form::moveCaret(int keyCode) {
    Control* box = focus_;
    if (!box || !box->isEditable()) return;
    const int at = box->cursor();
    switch (keyCode) {
    case keys::Left:
        box->setCursor(std::max(0, at - 1));
        break;
    case keys::Right:
        box->setCursor(at + 1);
        break;
    case keys::Home:
        box->setCursor(0);
        break;
    case keys::End:
        box->setCursor(-1);
        break;
    case keys::Delete:
        if (box->removeSelected()) break;
        if (at < box->text().size()) {
            QString t = box->text();
            t.remove(at, 1);
            box->setText(t);
            box->setCursor(at);
        }
        break;
    default:
        break;
    }
}

QString Form::arrayName(const QString& base, int index) {
    return base + QLatin1Char('(') + QString::number(index) + QLatin1Char(')');
}

void Form::click(const QString& controlName) {
    if (Control* c = control(controlName)) click(c);
}

void Form::click(Control* c) {
    int idx;
    const QString base = baseName(c->name(), &idx);
    if (c->kind() == Control::Kind::Option && idx >= 0) {
        for (int i = 0;; ++i) {
            Control* o = control(arrayName(base, i));
            if (!o) break;
            o->setValue(o == c ? 1 : 0);
        }
    }
    Event ev;
    ev.index = idx;
    fire(base + QStringLiteral("_Click"), ev);
}

void Form::show() {
    shown_ = true;
    emit shownChanged(true);
    fire(QStringLiteral("Form_Activate"));
}

void Form::unload() {
    onUnload();
    shown_ = false;
    emit shownChanged(false);
}

Ui::Answer Form::msgbox(const QString& text, const QString& title, Ui::Buttons b) {
    return env_.ui->msgbox(text, title, b);
}

QString Form::inputbox(const QString& prompt, const QString& title) {
    // An answer is one line of text: whatever control characters came with it (a pasted tab or
    // line end) would end up in the log.
    QString answer = env_.ui->inputbox(prompt, title).value_or(QString());
    answer.removeIf([](QChar c) { return !isPrintable(c.unicode()); });
    return answer;
}

QString num(long long v) {
    return QString::number(v);
}

long long val(const QString& s) {
    qsizetype i = 0;
    while (i < s.size() && s[i] == ' ') ++i;
    bool neg = false;
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) {
        neg = s[i] == '-';
        ++i;
    }
    long long v = 0;
    bool any = false;
    while (i < s.size() && s[i].isDigit() && s[i].unicode() < 128) {
        v = v * 10 + (s[i].unicode() - '0');
        any = true;
        if (v > 1000000000000LL) break;
        ++i;
    }
    if (!any) return 0;
    return neg ? -v : v;
}

} // namespace hfc

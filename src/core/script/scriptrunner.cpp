#include "script/scriptrunner.h"

#include "data/databases.h"
#include "forms/clock.h"
#include "forms/contest/contestform.h"
#include "keyer/keyer.h"
#include "keyer/keyport.h"
#include "script/scriptedui.h"
#include "station/settings.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSettings>
#include <QStringList>
#include <QTimer>

namespace hfc {

struct ScriptRunner::Impl {
    QTextStream& out;
    QTextStream& err;
    Databases db;
    ScriptedUi ui;
    FixedClock clock;
    RecordingKeyPort port;
    StationSettings settings;
    std::unique_ptr<ContestForm> form;
    // Keys go to the window the operator is in: the one last opened or focused.
    Form* active = nullptr;

    // Lets the keyer's queued notices (a busy port) reach the window before the next line.
    void settle() {
        if (KeyerBackend* k = form->keyer()) k->waitIdle();
        QCoreApplication::processEvents();
    }

    Impl(QTextStream& o, QTextStream& e) : out(o), err(e) {}

    // One output line of cells (grid rows, SQL rows, dialogs): each escaped, tab-separated.
    void printCells(const QStringList& cells) {
        QStringList escaped;
        escaped.reserve(cells.size());
        for (const QString& s : cells) escaped << ScriptRunner::escape(s);
        out << escaped.join('\t') << "\n";
    }

    // Splits "otchet.tq(3).text" into the window, the control or variable name and the property.
    struct Target {
        Form* form = nullptr;
        QString name;
        QString prop;
    };
    bool resolve(const QString& spec, Target& t) {
        QString rest = spec;
        t.form = form.get();
        const int dot = rest.indexOf('.');
        if (dot > 0) {
            if (Form* sub = form->subForm(rest.left(dot))) {
                t.form = sub;
                rest = rest.mid(dot + 1);
            }
        }
        // A control name may hold "(i)" but never a dot, so the first dot starts the property.
        const int pdot = rest.indexOf('.');
        t.name = pdot >= 0 ? rest.left(pdot) : rest;
        t.prop = pdot >= 0 ? rest.mid(pdot + 1) : QString();
        return !t.name.isEmpty();
    }
};

ScriptRunner::ScriptRunner(QTextStream& out, QTextStream& err) : d(new Impl(out, err)) {}
ScriptRunner::~ScriptRunner() = default;

bool ScriptRunner::start(const QString& dataDir) {
    QString error;
    if (!d->db.open(dataDir, error)) {
        d->err << error << "\n";
        return false;
    }
    Env env;
    env.db = &d->db;
    env.ui = &d->ui;
    env.clock = &d->clock;
    env.port = &d->port;
    // The driver reads the same conf file as the program, so a test points XDG_CONFIG_HOME at
    // its own folder to give a rig, a cluster, a keyer backend or a broker.
    QSettings conf(StationSettings::defaultPath(), QSettings::IniFormat);
    d->settings = StationSettings::load(conf);
    env.settings = &d->settings;
    d->form = std::make_unique<ContestForm>(env);
    d->form->Form_Load();
    d->active = d->form.get();
    QObject::connect(d->form.get(), &Form::formOpened, [this](Form* child) {
        d->active = child;
        QObject::connect(child, &Form::shownChanged, [this, child](bool shown) {
            if (!shown && d->active == child) d->active = d->form.get();
        });
    });
    return true;
}

QString ScriptRunner::escape(const QString& value) {
    QString o;
    o.reserve(value.size());
    for (const QChar c : value) {
        const ushort u = c.unicode();
        if (u == '\r')
            o += "\\r";
        else if (u == '\n')
            o += "\\n";
        else if (u == '\t')
            o += "\\t";
        else if (u == '\\')
            o += "\\\\";
        else if (u < 0x20 || (u >= 0x7f && u <= 0xff))
            o += QStringLiteral("\\x%1").arg(u, 2, 16, QLatin1Char('0'));
        else
            o += c;
    }
    return o;
}

QString ScriptRunner::unescapeTyped(const QString& text) {
    QString o;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size()) {
            const QChar n = text[i + 1];
            if (n == 'r') {
                o += QChar('\r');
                ++i;
                continue;
            }
            if (n == 'b') {
                o += QChar('\b');
                ++i;
                continue;
            }
            if (n == '\\') {
                o += QChar('\\');
                ++i;
                continue;
            }
        }
        o += text[i];
    }
    return o;
}

namespace {

QString restAfter(const QString& line, int words) {
    // The text after the first `words` blank-separated words, as written (inner blanks kept).
    qsizetype i = 0;
    for (int w = 0; w < words; ++w) {
        while (i < line.size() && line[i] == ' ') ++i;
        while (i < line.size() && line[i] != ' ') ++i;
    }
    if (i < line.size() && line[i] == ' ') ++i;
    return line.mid(i);
}

} // namespace

bool ScriptRunner::runLine(const QString& rawLine) {
    QString line = rawLine;
    if (line.endsWith('\r')) line.chop(1);
    const QString trimmed = line.trimmed();
    if (trimmed.isEmpty() || trimmed.startsWith('#')) return true;
    const QStringList w = trimmed.split(' ', Qt::SkipEmptyParts);
    const QString cmd = w[0];
    auto bad = [&](const QString& why) {
        d->err << why << ": " << line << "\n";
        return false;
    };
    try {
        if (cmd == "clock") {
            if (w.size() != 3) return bad("clock needs LOCAL and UTC");
            const QDateTime l = QDateTime::fromString(w[1], Qt::ISODate);
            const QDateTime u = QDateTime::fromString(w[2], Qt::ISODate);
            if (!l.isValid() || !u.isValid()) return bad("bad time");
            d->clock.set(l, u);
        } else if (cmd == "advance") {
            bool ok = false;
            const qint64 s = w.value(1).toLongLong(&ok);
            if (!ok) return bad("advance needs SECONDS");
            d->clock.advance(s);
        } else if (cmd == "answer") {
            static const QHash<QString, Ui::Answer> map = {{"yes", Ui::Answer::Yes},
                                                           {"no", Ui::Answer::No},
                                                           {"ok", Ui::Answer::Ok},
                                                           {"cancel", Ui::Answer::Cancel}};
            if (w.size() != 2 || !map.contains(w[1])) return bad("answer yes|no|ok|cancel");
            d->ui.queueAnswer(map.value(w[1]));
        } else if (cmd == "input") {
            const QString text = restAfter(line, 1);
            if (w.size() == 1)
                d->ui.queueInput(std::nullopt);
            else
                d->ui.queueInput(text);
        } else if (cmd == "file") {
            d->ui.queueFile(w.size() == 1 ? QString() : restAfter(line, 1));
        } else if (cmd == "port") {
            if (w.size() != 2 || w[1] != "busy") return bad("port busy");
            d->port.setBusy(true);
        } else if (cmd == "wait") {
            if (w.size() == 1) {
                d->settle();
            } else {
                // Real time for sockets and timers (rig, cluster, network keyer, broker).
                bool ok = false;
                const int ms = w[1].toInt(&ok);
                if (!ok || ms < 0 || w.size() > 2) return bad("wait [MS]");
                QEventLoop loop;
                QTimer::singleShot(ms, &loop, &QEventLoop::quit);
                loop.exec();
            }
        } else if (cmd == "events") {
            d->settle();
            const auto events = d->port.takeEvents();
            const qint64 t0 = events.empty() ? 0 : events.front().time;
            for (const KeyEvent& e : events)
                d->out << (e.time - t0) << '\t' << e.name << '\t' << (e.value ? "true" : "false")
                       << "\n";
        } else if (cmd == "call") {
            if (w.size() < 2) return bad("call needs a name");
            Impl::Target t;
            d->resolve(w[1], t);
            // "call otchet.X" names a handler of another window: the whole rest is the name.
            const QString name = t.prop.isEmpty() ? t.name : t.name + '.' + t.prop;
            if (!t.form->call(name, w.mid(2))) return bad("unknown name");
        } else if (cmd == "focus") {
            Impl::Target t;
            if (w.size() != 2 || !d->resolve(w[1], t)) return bad("focus needs a name");
            if (!t.form->control(t.name) && !t.form->control(t.name + "(0)"))
                return bad("unknown name");
            t.form->setFocus(t.name);
            d->active = t.form;
        } else if (cmd == "type") {
            d->active->typeText(unescapeTyped(restAfter(line, 1)));
        } else if (cmd == "key") {
            bool ok = false;
            const int code = w.value(1).toInt(&ok);
            if (!ok) return bad("key needs CODE");
            d->active->pressKey(code, w.value(2).toInt());
        } else if (cmd == "set") {
            Impl::Target t;
            if (w.size() < 2 || !d->resolve(w[1], t)) return bad("set needs a name");
            const QString value = restAfter(line, 2);
            if (Control* c = t.form->control(t.name)) {
                if (!c->setProperty(t.prop.isEmpty() ? QStringLiteral("text") : t.prop, value))
                    return bad("unknown property");
            } else if (t.prop.isEmpty() && t.form->setVar(t.name, value)) {
            } else {
                return bad("unknown name");
            }
        } else if (cmd == "print") {
            if (w.size() != 2) return bad("print needs a name");
            Impl::Target t;
            d->resolve(w[1], t);
            QString value;
            if (t.name == "focus" && t.prop.isEmpty()) {
                value = t.form->focusName();
            } else if (Control* c = t.form->control(t.name)) {
                const QString prop = t.prop.isEmpty() ? QStringLiteral("text") : t.prop;
                if (!c->hasProperty(prop)) return bad("unknown property");
                if (prop.toLower() == "rows") {
                    d->out << w[1] << "=\n";
                    for (size_t i = 0; i < c->rowCount(); ++i) d->printCells(c->row(i));
                    d->out << ".\n";
                    return true;
                }
                value = c->property(prop);
            } else if (t.prop.isEmpty() && t.form->hasVar(t.name)) {
                value = t.form->getVar(t.name);
            } else {
                return bad("unknown name");
            }
            d->out << w[1] << "=" << escape(value) << "\n";
        } else if (cmd == "sql") {
            if (w.size() < 3) return bad("sql needs DB and STATEMENT");
            Db* db = d->db.byKey(w[1]);
            if (!db) return bad("unknown database");
            const Rows rows = db->query(restAfter(line, 2));
            for (const QStringList& r : rows) d->printCells(r);
        } else if (cmd == "dialogs") {
            d->settle();
            for (const QString& s : d->ui.takeShown()) d->printCells(s.split('\t'));
        } else {
            return bad("unknown line");
        }
    } catch (const ScriptAbort& e) {
        d->err << QString::fromUtf8(e.what()) << "\n";
        return false;
    } catch (const DbError& e) {
        d->err << "database error: " << QString::fromUtf8(e.what()) << "\n";
        return false;
    }
    return true;
}

int ScriptRunner::runScript(const QString& text) {
    const QStringList lines = text.split('\n');
    for (const QString& l : lines) {
        try {
            // A queued notice (a busy key port) may show a dialog that has no answer queued.
            QCoreApplication::processEvents();
        } catch (const ScriptAbort& e) {
            d->err << QString::fromUtf8(e.what()) << "\n";
            d->out.flush();
            return 2;
        }
        if (!runLine(l)) {
            d->out.flush();
            return 2;
        }
        d->out.flush();
    }
    return 0;
}

} // namespace hfc
